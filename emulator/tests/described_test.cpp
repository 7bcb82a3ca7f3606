// The model held against its description: for every command, what is described is what it reads and answers.
#include "emulator/model/addresses.h"
#include "emulator/model/module.h"
#include "emulator/protocol/commands.h"

#include <cerrno>
#include <cstring>
#include <gmock/gmock.h>
#include <map>
#include <set>

using namespace emulator;
using namespace emulator::protocol;

namespace {

using Octets = std::vector<std::byte>;

constexpr std::uint32_t plenty_of_room = 0xffffffff;

void put_text(const std::string& text, std::span<std::byte> field)
{
    std::memcpy(field.data(), text.data(), text.size());
}

// Puts the same into the same field of whatever command: 1 into numbers and addresses, and names by which all find each
// other. What must make sense does. Everything else keeps what background is.
void fill(const Layout& layout, std::span<std::byte> bytes)
{
    for (const Field* field : layout.fields) {
        const auto place = bytes.subspan(field->offset, field->width);
        std::fill(place.begin(), place.end(), std::byte {0});
        if (field->kind == Kind::Table)
            for (std::size_t at = 0; at < field->width; at += field->entry->size)
                fill(*field->entry, place.subspan(at, field->entry->size));
        else if (field->kind == Kind::Text)
            put_text(field->name == "lif"                         ? "uplink"
                     : field->name == "mac" && field->width == 18 ? "02:00:00:00:00:01"
                                                                  : "blue",
                place);
        else if (field->name == "mask")
            place[0] = std::byte {0xff};
        else if (field->name == "prefixLen")
            place[0] = std::byte {longest_prefix};
        else if (field->name == "mtu")
            place[1] = std::byte {0x10};
        else
            place[0] = std::byte {1};
    }
}

Octets input_of(const Command& command, std::byte background)
{
    Octets message(command.input.size, background);
    fill(command.input, message);
    return message;
}

Answer ask(Module& module, const Command& command, std::byte background, std::uint32_t room = plenty_of_room)
{
    return module.answer(command.number, input_of(command, background), room);
}

// A module in which everything that a command can name is there.
class Described : public testing::Test
{
protected:
    static void prepare(Module& module)
    {
        for (const std::uint32_t set : {number_of("SetLumoInstance"), number_of("SetLif"), number_of("EnableLif"),
                 number_of("SetLifIpv6"), number_of("SetRoute"), number_of("SetRoutev6"), number_of("SetArp"),
                 number_of("SetArpv6"), number_of("SetLifPolicy"), number_of("SetPolicyTable"), number_of("SetPolicy"),
                 number_of("SetLifPolicyTableRef"), number_of("PlumbLumoConnection"),
                 number_of("PlumbBFDPortConnection"), number_of("BridgeAdd"), number_of("BridgeSetFdbEntry"),
                 number_of("AddPmac"), number_of("BridgeClusterSetOn"), number_of("BridgeClusterNodeSetOn"),
                 number_of("BridgeLocalTransportNodeSetOn"), number_of("AddBridgeEndpoint"),
                 number_of("AddMRoutingLocalRcvrs"), number_of("AddMRoutingRemoteRcvrs"),
                 number_of("AddMRoutingMRouter")})
            ASSERT_EQ(ask(module, *commands_by_number[set], std::byte {0}).error, 0) << set;
    }

    static std::vector<const Command*> all_commands()
    {
        std::vector<const Command*> all;
        for (const Command* command : commands_by_number)
            if (command != nullptr)
                all.push_back(command);
        return all;
    }
};

TEST_F(Described, EveryCommandIsAnswered)
{
    // The LIF is a routed one, and the module is in use.
    const std::map<std::string_view, int> refused {
        {"SetBridgeLifOn", EEXIST}, {"SetBridgeLifOff", ENOENT}, {"GetBridgeLif", ENOENT}, {"PreUnload", EBUSY}};
    for (const Command* command : all_commands()) {
        Module module;
        prepare(module);
        const auto expected = refused.find(command->name);
        EXPECT_EQ(ask(module, *command, std::byte {0}).error, expected == refused.end() ? 0 : expected->second)
            << command->name;
    }
}

TEST_F(Described, RepliesAreOfTheirShape)
{
    for (const Command* command : all_commands()) {
        Module module;
        prepare(module);
        const Answer answer = ask(module, *command, std::byte {0});
        if (answer.error != 0)
            continue;
        const auto& reply = answer.reply;
        const auto& [shape, record, most, head] = command->reply;
        switch (shape) {
        case Shape::Nothing:
            EXPECT_EQ(reply.size(), 0u) << command->name;
            break;
        case Shape::Result:
            EXPECT_EQ(reply.size(), record.size) << command->name;
            break;
        case Shape::Record:
            EXPECT_EQ(reply.size(), record.size) << command->name;
            break;
        case Shape::List:
            EXPECT_EQ(reply.size() % record.size, 0u) << command->name;
            EXPECT_LE(reply.size() / record.size, most) << command->name;
            break;
        case Shape::EndedList:
            ASSERT_GT(reply.size(), record.size) << command->name;
            EXPECT_EQ(reply.size() % record.size, 0u) << command->name;
            EXPECT_TRUE(std::all_of(reply.end() - std::ptrdiff_t(record.size), reply.end(), [](std::byte byte) {
                return byte == std::byte {0};
            })) << command->name;
            break;
        case Shape::CountedList: {
            std::uint32_t count = 0;
            std::memcpy(&count, reply.data(), sizeof count);
            EXPECT_EQ(count, 1u) << command->name;
            EXPECT_EQ(reply.size(), head.size + count * record.size) << command->name;
            break;
        }
        }
    }
}

TEST_F(Described, ResultsAreWrittenWhereThereIsRoomForThem)
{
    for (const Command* command : all_commands()) {
        if (command->reply.shape != Shape::Result)
            continue;
        for (const std::uint32_t room : {0u, 87u, 88u}) {
            Module module;
            prepare(module);
            const Answer answer = ask(module, *command, std::byte {0}, room);
            EXPECT_EQ(answer.error, 0) << command->name;
            EXPECT_EQ(answer.reply.size(), room == 88 ? 88u : 0u) << command->name;
        }
    }
}

// Two commands are sent in records that are not cleared: what lies between the fields is whatever was there before.
TEST_F(Described, NothingButTheFieldsIsRead)
{
    // These report the records in which something was sent, whole.
    const std::set<std::string_view> as_sent {
        "GetConnections", "GetConnection", "GetBFDPortConnections", "BridgeGetLocalTransportNode"};
    for (const Command* command : all_commands()) {
        Module cleared;
        Module uncleared;
        prepare(cleared);
        prepare(uncleared);
        const Answer right = ask(cleared, *command, std::byte {0});
        const Answer same = ask(uncleared, *command, std::byte {0xa5});
        EXPECT_EQ(same.error, right.error) << command->name;
        EXPECT_EQ(same.reply, right.reply) << command->name;
        for (const Command* read : all_commands()) {
            if (read->reply.shape == Shape::Nothing || as_sent.contains(read->name))
                continue;
            EXPECT_EQ(ask(uncleared, *read, std::byte {0}).reply, ask(cleared, *read, std::byte {0}).reply)
                << command->name << ", seen by " << read->name;
        }
    }
}

} // namespace
