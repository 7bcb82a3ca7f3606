// Every failure of the system around every operation that sends a command: each allocation in turn returns null, the
// open, the ioctl and the close fail. What is due afterwards is restated here for each operation.
#include "support/commands.h"
#include "support/matchers.h"
#include "support/wire.h"

#include <map>
#include <set>

using namespace world;

namespace {

// What the caller finds in an out pointer after a failure.
enum class Out
{
    Untouched,
    Null,
    Dangling // where a block was that has been freed
};

// What is due after a failure besides -1 and errno.
struct Due
{
    std::vector<std::string> frees;
    std::vector<std::string> left {}; // on purpose, or because it is the caller's
    Out out = Out::Untouched;
};

struct Step
{
    std::string allocation; // empty: the device call
    int command;
    std::optional<Due> when_it_fails; // not given: the caller's doing, not the library's
    int device_error = 0;             // 0: that of the system call
};

using Steps = std::vector<Step>;

Step allocates(std::string allocation, Due when_it_fails)
{
    return {std::move(allocation), 0, std::move(when_it_fails)};
}

Step is_given(std::string allocation)
{
    return {std::move(allocation), 0, std::nullopt};
}

Step asks(int command, Due when_it_fails)
{
    return {"", command, std::move(when_it_fails)};
}

struct Operation
{
    Steps steps;
    std::vector<std::string> frees; // after success
    std::vector<std::string> left;  // what the caller then owns
    Answer reply;
};

// A worker fills what the caller has; the others that leave anything allocated hand it out.
bool hands_out(const Operation& operation)
{
    return !operation.left.empty() && operation.steps[0].when_it_fails.has_value();
}

std::string of(std::size_t size)
{
    return "(" + std::to_string(size) + ")";
}

std::string of(std::size_t count, std::size_t size)
{
    return "(" + std::to_string(count) + ", " + std::to_string(size) + ")";
}

Operation single(int command, std::size_t size)
{
    const std::string reply = "malloc" + of(size);
    const std::string result = "calloc" + of(1, size);
    return {{allocates(reply, {{}}), asks(command, {{"free(#1)"}}),
                allocates(result, {.frees = {"free(#1)"}, .out = Out::Null})},
        {"free(#1)"}, {"#2: " + result}, replies(Bytes(size, '\0'))};
}

// What becomes of a list's holder when the device call fails.
enum class Holder
{
    Freed,
    LeftAllocated
};

Operation list(int command, std::size_t room, std::size_t cap, std::size_t size, Holder on_device_error)
{
    const std::string holder = "calloc" + of(1, 16);
    const std::string reply = "malloc" + of(room);
    const std::string array = "calloc" + of(cap, size);
    const Due device_error = on_device_error == Holder::Freed
                                 ? Due {.frees = {"free(#1)", "free(#2)"}, .out = Out::Null}
                                 : Due {.frees = {"free(#2)"}, .left = {"#1: " + holder}, .out = Out::Null};
    return {{allocates(holder, {.frees = {}, .out = Out::Null}),
                allocates(reply, {.frees = {"free(#1)"}, .out = Out::Null}), asks(command, device_error),
                allocates(array, {.frees = {"free(#1)", "free(#2)"}, .out = Out::Null})},
        {"free(#2)"}, {"#1: " + holder, "#3: " + array}, reports({}, 0)};
}

// The exported worker of a bridge list: frees the caller's holder on every failure but that of the device call.
Operation worker(int command, std::size_t room, std::size_t cap, std::size_t size)
{
    const std::string holder = "calloc" + of(1, 16);
    const std::string reply = "malloc" + of(room);
    const std::string array = "calloc" + of(cap, size);
    return {{is_given(holder), allocates(reply, {{"free(#1)"}}), asks(command, {{"free(#2)"}, {"#1: " + holder}}),
                allocates(array, {{"free(#1)", "free(#2)"}})},
        {"free(#2)"}, {"#1: " + holder, "#3: " + array}, reports({}, 0)};
}

// A reply that is copied to where the caller wants it.
Operation buffered(int command, std::size_t size)
{
    return {{allocates("malloc" + of(size), {{}}), asks(command, {{"free(#1)"}})}, {"free(#1)"}, {},
        replies(Bytes(size, '\0'))};
}

Operation vtep_table()
{
    Bytes reply(4 + 2 * 68, '\0');
    put(reply, 0, 2, 4);
    return {{allocates("malloc(139268)", {{}}), asks(129, {{"free(#1)"}}),
                allocates("calloc(1, 16)", {.frees = {"free(#1)"}, .out = Out::Null}),
                allocates("calloc(2, 68)", {.frees = {"free(#2)", "free(#1)"}, .out = Out::Null})},
        {"free(#1)"}, {"#2: calloc(1, 16)", "#3: calloc(2, 68)"}, replies(reply)};
}

Operation rss_stats()
{
    return {{allocates("malloc(804)", {{}}), asks(153, {{"free(#1)"}}),
                allocates("malloc(804)", {.frees = {"free(#1)"}, .out = Out::Null})},
        {"free(#1)"}, {"#2: malloc(804)"}, replies(Bytes(804, '\0'))};
}

// Kept: a failed count query is reported as ENOMEM; after a failed data query the caller's pointer stays.
Operation routes6()
{
    Step count = asks(115, {{}});
    count.device_error = ENOMEM;
    return {{count, allocates("malloc(6208000)", {.frees = {}, .out = Out::Null}),
                asks(114, {.frees = {"free(#1)"}, .out = Out::Dangling})},
        {}, {"#1: malloc(6208000)"}, replies(Bytes(4, '\0'))};
}

// clang-format off
const std::map<std::string, Operation> allocating {
    {"LUMOZEPH_GetInstance", single(1, 256)},
    {"LUMOZEPH_GetLumoInstanceCPStats", single(5, 804)},
    {"LUMOZEPH_GetLif", single(22, 576)},
    {"LUMOZEPH_GetLifStats", single(23, 804)},
    {"LUMOZEPH_GetLifStatsCached", single(23, 804)},
    {"LUMOZEPH_GetResolveRoute", single(37, 668)},
    {"LUMOZEPH_GetLumoDiStats", single(43, 804)},
    {"LUMOZEPH_GetBridgeLif", single(60, 576)},
    {"LUMOZEPH_GetBridgeInstance", single(62, 393)},
    {"LUMOZEPH_GetLumoInstanceCPSyncState", single(87, 1420)},
    {"LUMOZEPH_GetMRoutingDomain", single(130, 148)},
    {"LUMOZEPH_GetLifPolicyTableRef", single(146, 546)},

    {"LUMOZEPH_GetInstances", list(0, 256000, 1000, 256, Holder::Freed)},
    {"LUMOZEPH_GetLifs", list(21, 5760000, 10000, 576, Holder::Freed)},
    {"LUMOZEPH_GetRoutes", list(36, 5344000, 8000, 668, Holder::Freed)},
    {"LUMOZEPH_GetPolicy", list(119, 28000, 1000, 28, Holder::Freed)},
    {"LUMOZEPH_GetLifPolicies", list(140, 5344000, 8000, 668, Holder::Freed)},
    {"LUMOZEPH_GetPolicyTable", list(143, 72000, 1000, 72, Holder::Freed)},
    {"LUMOZEPH_GetBridgeLifs", list(59, 5760000, 10000, 576, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeInstances", list(61, 1609728, 4096, 393, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeNetworks", list(63, 4358144, 32768, 133, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgePorts", list(64, 4784128, 32768, 146, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeFdbEntries", list(65, 81920, 4096, 20, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeClusters", list(89, 1830, 10, 183, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeClusterNodes", list(92, 7100, 100, 71, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeEndpoints", list(95, 6737920, 28672, 235, Holder::LeftAllocated)},
    {"LUMOZEPH_GetBridgeBFDSessions", list(96, 111820800, 2867200, 39, Holder::LeftAllocated)},
    {"LUMOZEPH_GetMRoutingLocalRcvrs", list(128, 45056, 512, 88, Holder::LeftAllocated)},
    {"LUMOZEPH_GetMRoutingAllMcastGroups", list(135, 49152, 4096, 12, Holder::LeftAllocated)},

    {"LUMOZEPHGetBridgeInstances", worker(61, 1609728, 4096, 393)},
    {"LUMOZEPHGetBridgeNetworks", worker(63, 4358144, 32768, 133)},
    {"LUMOZEPHGetBridgePorts", worker(64, 4784128, 32768, 146)},
    {"LUMOZEPHGetBridgeFdbEntries", worker(65, 81920, 4096, 20)},
    {"LUMOZEPHGetBridgeClusters", worker(89, 1830, 10, 183)},
    {"LUMOZEPHGetBridgeClusterNodes", worker(92, 7100, 100, 71)},
    {"LUMOZEPHGetBridgeEndpoints", worker(95, 6737920, 28672, 235)},
    {"LUMOZEPHGetBridgeBFDSessions", worker(96, 111820800, 2867200, 39)},

    {"LUMOZEPH_GetPolicyCount", buffered(122, 4)},
    {"LUMOZEPH_SoftRSSGetTunables", buffered(155, 12)},
    {"LUMOZEPH_SoftRSSGetIndTable", buffered(157, 128)},
    {"LUMOZEPH_GetMRoutingRemoteRcvrs", vtep_table()},
    {"LUMOZEPH_SoftRSSGetStats", rss_stats()},
    {"LUMOZEPH_GetRoutesv6", routes6()},
};
// clang-format on

// Every operation that is not named above allocates nothing and lets the module write to the caller's own memory.
Operation operation_of(const CommandRow& row)
{
    const auto found = allocating.find(row.function);
    if (found != allocating.end())
        return found->second;
    return {{asks(row.command, {{}})}, {}, {}, replies(Bytes(row.out_len, '\0'))};
}

// One way in which the system fails: at one step, or only when the device is closed.
struct Point
{
    std::string name;
    std::optional<std::size_t> failing_step;
    int open_error = 0;
    int ioctl_error = 0;
    int close_error = 0;
};

constexpr int open_errors[] = {ENOENT, EACCES, ENODEV, EMFILE, ENFILE, EINTR};
constexpr int ioctl_errors[] = {EINVAL, EPERM, ENOTTY, EBUSY, ENOMEM, ENODEV, EINTR, EFAULT};
constexpr int close_errors[] = {EIO, EINTR, EBADF};

std::vector<Point> points(const Operation& operation)
{
    std::vector<Point> all;
    for (const int close_error : close_errors)
        all.push_back({"close fails with " + errno_name(close_error), std::nullopt, 0, 0, close_error});
    for (std::size_t i = 0; i < operation.steps.size(); ++i) {
        const Step& step = operation.steps[i];
        if (!step.when_it_fails)
            continue;
        if (!step.allocation.empty()) {
            all.push_back({step.allocation + " returns null", i});
            all.push_back({step.allocation + " returns null, close fails", i, 0, 0, EIO});
            continue;
        }
        const std::string command = std::to_string(step.command);
        for (const int error : open_errors)
            all.push_back({"open for " + command + " fails with " + errno_name(error), i, error});
        for (const int error : ioctl_errors) {
            all.push_back({"ioctl " + command + " fails with " + errno_name(error), i, 0, error});
            all.push_back(
                {"ioctl " + command + " fails with " + errno_name(error) + ", close fails", i, 0, error, EIO});
        }
    }
    return all;
}

// The events up to the failure, and the errno that is due.
struct Expected
{
    std::vector<std::string> events;
    int error = 0;
};

Expected expected(const Operation& operation, const Point& point)
{
    Expected due;
    int number = 0;
    for (std::size_t i = 0; i < operation.steps.size(); ++i) {
        const Step& step = operation.steps[i];
        const bool fails = point.failing_step == i;
        if (!step.allocation.empty()) {
            ++number;
            due.events.push_back(step.allocation + (fails ? " = null" : " = #" + std::to_string(number)));
            due.error = ENOMEM;
        } else {
            const bool unopened = fails && point.open_error != 0;
            due.events.push_back("getenv(USE_UPGRADE_DEV)");
            due.events.push_back(
                std::string("open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = ") + (unopened ? "-1" : "5000"));
            if (!unopened) {
                due.events.push_back("ioctl(5000, " + std::to_string(step.command) + ")");
                due.events.push_back("close(5000)");
            }
            // A failing close has the last word, if anything was opened.
            due.error = unopened ? point.open_error : point.ioctl_error;
            if (!unopened && point.close_error != 0)
                due.error = point.close_error;
            if (step.device_error != 0)
                due.error = step.device_error;
        }
        if (fails)
            return due;
    }
    return due;
}

System system_for(const Operation& operation, const Point& point)
{
    System system {.open_error = point.open_error, .close_error = point.close_error};
    for (std::size_t i = 0; point.failing_step && i <= *point.failing_step; ++i) {
        const Step& step = operation.steps[i];
        if (!step.allocation.empty())
            ++system.failing_allocation;
        else if (i < *point.failing_step)
            ++system.opens_before_error;
    }
    if (point.failing_step && operation.steps[*point.failing_step].allocation.empty())
        system.failing_allocation = 0;
    return system;
}

void prepare(ScriptedDevice& device, const Operation& operation, const Point& point)
{
    for (std::size_t i = 0; i < operation.steps.size(); ++i)
        if (operation.steps[i].allocation.empty())
            device.next(point.failing_step == i && point.ioctl_error != 0 ? fails(point.ioctl_error) : operation.reply);
}

// The caller's memory, into which an operation may only put what is due.
struct Memory
{
    std::uint32_t number;
    Bytes bytes;
    Bytes result;
    Bytes tunables;
    Bytes room;
    bool operator==(const Memory&) const = default;
};

template <class Type>
Bytes bytes_of(const Type& object)
{
    return Bytes(reinterpret_cast<const char*>(&object), sizeof object);
}

constexpr std::uint32_t old_number = 0x5a5a5a5a;
void* const elsewhere = reinterpret_cast<void*>(0x5a5a);

Memory memory_before(std::size_t room)
{
    caller.out = elsewhere;
    caller.number = old_number;
    std::memset(caller.bytes, 0x5a, sizeof caller.bytes);
    std::memset(&caller.result, 0x5a, sizeof caller.result);
    std::memset(&caller.tunables, 0x5a, sizeof caller.tunables);
    std::memset(caller.room, 0x5a, room);
    return {
        old_number, bytes_of(caller.bytes), bytes_of(caller.result), bytes_of(caller.tunables), Bytes(room, '\x5a')};
}

Memory memory_now(std::size_t room)
{
    return {caller.number, bytes_of(caller.bytes), bytes_of(caller.result), bytes_of(caller.tunables),
        Bytes(caller.room, room)};
}

// Kept: what these operations write although they fail. A result area is zeroed in any case.
void write_what_is_due(const CommandRow& row, const Operation& operation, std::size_t failing_step, Memory& memory)
{
    if (row.out_len == 88)
        memory.result = Bytes(88, '\0');
    const bool device_failed = operation.steps[failing_step].allocation.empty();
    if (std::string_view(row.function) == "LUMOZEPH_SoftRSSGetTunables" && device_failed)
        memory.tunables = Bytes(12, '\xa5'); // what a fresh block holds here
    if (std::string_view(row.function) == "LUMOZEPH_GetRoutesv6" && device_failed && failing_step > 0)
        memory.number = 8000;
}

class FailureSweep : public testing::TestWithParam<CommandRow>
{};

TEST_P(FailureSweep, LeavesWhatIsDue)
{
    const CommandRow& row = GetParam();
    const Operation operation = operation_of(row);
    // The room of the reply is the caller's own where nothing is allocated for it.
    const std::size_t room = allocating.count(row.function) != 0 ? 0 : row.out_len;

    memory_before(room);
    ScriptedDevice good;
    prepare(good, operation, {});
    const Call success = observe(good, row.call);
    ASSERT_THAT(success, Succeeds());
    EXPECT_EQ(success.blocks_left, operation.left);
    free_left(success);
    const Memory good_memory = memory_now(room);

    for (const Point& point : points(operation)) {
        SCOPED_TRACE(point.name);
        Memory memory = memory_before(room);
        ScriptedDevice device;
        prepare(device, operation, point);
        const Call call = observe(device, system_for(operation, point), row.call);
        Expected due = expected(operation, point);

        if (!point.failing_step) {
            EXPECT_EQ(call.result, 0);
            due.events.insert(due.events.end(), operation.frees.begin(), operation.frees.end());
            EXPECT_EQ(call.events, due.events);
            EXPECT_EQ(call.blocks_left, operation.left);
            EXPECT_EQ(caller.out != elsewhere, hands_out(operation));
            EXPECT_NE(caller.out, nullptr);
            EXPECT_TRUE(memory_now(room) == good_memory);
        } else {
            const Due& left = *operation.steps[*point.failing_step].when_it_fails;
            EXPECT_THAT(call, Fails(due.error));
            due.events.insert(due.events.end(), left.frees.begin(), left.frees.end());
            EXPECT_EQ(call.events, due.events);
            EXPECT_EQ(call.blocks_left, left.left);
            EXPECT_EQ(caller.out == elsewhere, left.out == Out::Untouched);
            EXPECT_EQ(caller.out == nullptr, left.out == Out::Null);
            write_what_is_due(row, operation, *point.failing_step, memory);
            EXPECT_TRUE(memory_now(room) == memory);
        }
        EXPECT_EQ(call.descriptors_left, 0);
        free_left(call);
        if (HasFailure())
            break;
    }
}

// The two commands of the IPv6 routes are steps of one operation.
std::vector<CommandRow> rows_to_sweep()
{
    std::vector<CommandRow> rows;
    for (const CommandRow& row : command_rows)
        if (row.command != 115)
            rows.push_back(row);
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Rows, FailureSweep, testing::ValuesIn(rows_to_sweep()),
    [](const auto& row) { return std::string(row.param.function) + "_" + std::to_string(row.param.command); });

TEST(FailureSweeps, CoverEveryOperation)
{
    std::set<std::string> swept;
    std::size_t count = 0;
    for (const CommandRow& row : rows_to_sweep()) {
        swept.insert(row.function);
        count += points(operation_of(row)).size();
    }
    EXPECT_EQ(swept.size(), 154u);
    for (const auto& [function, operation] : allocating)
        EXPECT_EQ(swept.count(function), 1u) << function;
    EXPECT_EQ(count, 4247u);
    RecordProperty("points", static_cast<int>(count));
}

} // namespace
