// The layouts of raw replies that the tool assumes, against those of the emulated module.
#include "tool/layouts.h"

#include "emulator/protocol/commands.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace tool;

namespace {

// GetProxyArps is GetArps with another argument.
std::string_view command_of(std::string_view operation)
{
    return operation == "GetProxyArps" ? "GetArps" : operation;
}

const emulator::protocol::Command* find_command(std::string_view name)
{
    for (const auto& chapter : emulator::protocol::chapters)
        for (const auto& command : chapter.commands)
            if (command.name == name)
                return &command;
    return nullptr;
}

} // namespace

TEST(Layouts, AreThoseOfTheEmulatedModule)
{
    for (const RawLayout& layout : layouts()) {
        const auto* const command = find_command(command_of(layout.operation));
        ASSERT_TRUE(command) << layout.operation;
        EXPECT_EQ(command->reply.record.size, layout.record.size) << layout.operation;
        for (const Member& member : layout.record.members) {
            const auto& fields = command->reply.record.fields;
            const auto field =
                std::ranges::find_if(fields, [&](const auto* one) { return one->offset == member.offset; });
            ASSERT_NE(field, fields.end()) << layout.operation << ": " << member.name;
            EXPECT_EQ((*field)->width, member.width) << layout.operation << ": " << member.name;
        }
    }
}
