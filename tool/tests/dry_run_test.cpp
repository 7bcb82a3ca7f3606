// What the tool finds in the requests of the library, against what the emulated module reads there.
#include "tool/dry_run.h"

#include "emulator/protocol/commands.h"
#include "tool/reply.h"
#include "tool/tests/samples.h"

#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>

using namespace tool;

namespace {

const emulator::protocol::Command* find_command(std::int32_t number)
{
    for (const auto& chapter : emulator::protocol::chapters)
        for (const auto& command : chapter.commands)
            if (command.number == static_cast<std::uint32_t>(number))
                return &command;
    return nullptr;
}

const emulator::protocol::Field* find_field(const emulator::protocol::Layout& input, const RequestField& field)
{
    const auto found = std::ranges::find_if(input.fields, [&](const emulator::protocol::Field* one) {
        return one->offset <= field.offset && field.offset + field.size <= one->offset + one->width;
    });
    return found == input.fields.end() ? nullptr : *found;
}

bool is_found(std::span<const RequestField> fields, const emulator::protocol::Field& known)
{
    return std::ranges::any_of(
        fields, [&](const RequestField& field) { return field.offset == known.offset && field.name == known.name; });
}

// What the samples do not send, and records, which are found by their members.
bool is_unsent(const Operation& operation, const emulator::protocol::Field& known)
{
    const bool is_of_policies = operation.name == "SetLifPolicy" || operation.name == "DelLifPolicy";
    return known.name == "servers" || (is_of_policies && known.name == "text") ||
           (operation.name == "SetLifPolicyTableRef" && (known.name == "count" || known.name == "entries"));
}

// All of them, but for servers of DHCP, of which the library accepts none.
Arguments sample_arguments(const Operation& operation)
{
    std::vector<Given> given;
    for (std::size_t i = 0; i < operation.parameters.size(); ++i) {
        const Parameter& parameter = operation.parameters[i];
        const auto* const partner =
            parameter.partner < 0 ? nullptr : &operation.parameters[static_cast<std::size_t>(parameter.partner)];
        const bool is_count = partner && partner->input == Input::Records;
        const bool is_second_word = parameter.input == Input::Ipv6Word && parameter.partner < static_cast<int>(i);
        if (!is_count && !is_second_word && parameter.kind != "dhcp_servers")
            given.push_back(
                {std::string(parameter.name), parameter.input == Input::Records ? "[{}]" : sample(parameter)});
    }
    return arguments_of(operation, given, Completeness::OrElseNothing, AddressOrder::Network);
}

} // namespace

TEST(DryRun, FindsArgumentsWhereTheModuleReadsThem)
{
    for (const Operation& operation : operations()) {
        // The caller chooses the command of one, and the other sends what the stack held.
        if (operation.name == "BridgeSetConfig" || operation.name == "GetPolicyCount")
            continue;
        const Arguments arguments = sample_arguments(operation);
        const std::optional<Issued> issued = issued_by(operation, arguments);
        ASSERT_TRUE(issued) << operation.name << ": " << errno;
        const auto* const command = find_command(issued->number);
        ASSERT_TRUE(command) << operation.name << ": " << issued->number;
        const std::vector<RequestField> fields = fields_of(operation, arguments, *issued, AddressOrder::Network);
        for (const RequestField& field : fields)
            EXPECT_TRUE(find_field(command->input, field)) << operation.name << ": " << field.name << field.offset;
        for (const auto* const known : command->input.fields)
            EXPECT_TRUE(is_found(fields, *known) || operation.position(known->name) < 0 || is_unsent(operation, *known))
                << operation.name << ": " << known->name;
    }
}

TEST(DryRun, ShowsNothingThatTheLibraryRefuses)
{
    const Operation& operation = *find_operation("ConfigureLifDhcpRelay");
    const std::vector<Given> given {{"instance", "blue"}, {"lif", "eth0"}, {"servers", "10.0.0.1"}};
    errno = 0;
    EXPECT_FALSE(issued_by(operation, arguments_of(operation, given, Completeness::Demanded, AddressOrder::Network)));
    EXPECT_EQ(errno, EINVAL);
}

TEST(DryRun, LeavesTheDeviceToOtherCalls)
{
    const Operation& operation = *find_operation("GetLogLevel");
    Arguments none(0);
    ASSERT_TRUE(issued_by(operation, none));
    Reply reply;
    errno = 0;
    operation.call(none, reply);
    EXPECT_NE(errno, ECANCELED);
}
