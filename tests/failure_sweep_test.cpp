// Every failure of the system around every operation that sends a command: each allocation in turn returns null, the
// open, the ioctl and the close fail. What is due afterwards is restated here for each operation.
#include "shapes/rows.h"

#include <cstring>
#include <set>

using namespace fake;
using operations::Case;
using operations::Operation;
using operations::Shape;
using shapes::elsewhere;

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

// What an operation does, from beginning to end.
struct Course
{
    Steps steps;
    std::vector<std::string> frees; // after success
    std::vector<std::string> left;  // what the caller then owns
    Answer reply;
};

std::string of(std::size_t size)
{
    return "(" + std::to_string(size) + ")";
}

std::string of(std::size_t count, std::size_t size)
{
    return "(" + std::to_string(count) + ", " + std::to_string(size) + ")";
}

Course read_of_one(const Operation& operation)
{
    const std::string reply = "malloc" + of(operation.room);
    const std::string result = "calloc" + of(1, operation.room);
    return {{allocates(reply, {{}}), asks(operation.command, {{"free(#1)"}}),
                allocates(result, {.frees = {"free(#1)"}, .out = Out::Null})},
        {"free(#1)"}, {"#2: " + result}, replies(Bytes(operation.room, '\0'))};
}

Course read_of_list(const Operation& operation)
{
    const std::string holder = "calloc" + of(1, 16);
    const std::string reply = "malloc" + of(operation.room);
    const std::string array = "calloc" + of(static_cast<std::size_t>(operation.cap), operation.layouts.begin()->size);
    const Due device_error = operation.on_device_error == operations::Holder::Freed
                                 ? Due {.frees = {"free(#1)", "free(#2)"}, .out = Out::Null}
                                 : Due {.frees = {"free(#2)"}, .left = {"#1: " + holder}, .out = Out::Null};
    return {{allocates(holder, {.frees = {}, .out = Out::Null}),
                allocates(reply, {.frees = {"free(#1)"}, .out = Out::Null}), asks(operation.command, device_error),
                allocates(array, {.frees = {"free(#1)", "free(#2)"}, .out = Out::Null})},
        {"free(#2)"}, {"#1: " + holder, "#3: " + array}, reports({}, 0)};
}

// Fills a list of the caller's, who keeps the pointer to it whatever happens.
Course worker_of_list(const Operation& operation)
{
    Course course = read_of_list(operation);
    course.steps[0] = is_given(course.steps[0].allocation);
    for (Step& step : course.steps)
        if (step.when_it_fails)
            step.when_it_fails->out = Out::Untouched;
    return course;
}

// A reply that is copied to where the caller wants it.
Course buffered(const Operation& operation)
{
    return {{allocates("malloc" + of(operation.room), {{}}), asks(operation.command, {{"free(#1)"}})}, {"free(#1)"}, {},
        replies(Bytes(operation.room, '\0'))};
}

Course counted_table(const Operation& operation)
{
    Bytes reply(4 + 2 * 68, '\0');
    operations::put(reply, 0, 2, 4);
    return {{allocates("malloc" + of(operation.room), {{}}), asks(operation.command, {{"free(#1)"}}),
                allocates("calloc(1, 16)", {.frees = {"free(#1)"}, .out = Out::Null}),
                allocates("calloc(2, 68)", {.frees = {"free(#2)", "free(#1)"}, .out = Out::Null})},
        {"free(#1)"}, {"#2: calloc(1, 16)", "#3: calloc(2, 68)"}, replies(reply)};
}

Course counted_arrays(const Operation& operation)
{
    const std::string block = "malloc" + of(operation.room);
    return {{allocates(block, {{}}), asks(operation.command, {{"free(#1)"}}),
                allocates(block, {.frees = {"free(#1)"}, .out = Out::Null})},
        {"free(#1)"}, {"#2: " + block}, replies(Bytes(operation.room, '\0'))};
}

// Kept: a failed count query is reported as ENOMEM; after a failed data query the caller's pointer stays.
Course counted_block(const Operation& operation)
{
    const std::string block = "malloc" + of(operation.room);
    Step count = asks(operation.command + 1, {{}});
    count.device_error = ENOMEM;
    return {{count, allocates(block, {.frees = {}, .out = Out::Null}),
                asks(operation.command, {.frees = {"free(#1)"}, .out = Out::Dangling})},
        {}, {"#1: " + block}, replies(Bytes(4, '\0'))};
}

Course course_of(const Operation& operation)
{
    switch (operation.shape) {
    case Shape::SingleRead:
        return read_of_one(operation);
    case Shape::ListRead:
        return read_of_list(operation);
    case Shape::ListWorker:
        return worker_of_list(operation);
    case Shape::BufferedRead:
        return buffered(operation);
    case Shape::CountedTable:
        return counted_table(operation);
    case Shape::CountedArrays:
        return counted_arrays(operation);
    case Shape::CountedBlock:
        return counted_block(operation);
    // These allocate nothing and let the module write to the caller's own memory.
    case Shape::Send:
    case Shape::ResultSend:
    case Shape::SetValue:
    case Shape::GetValue:
    case Shape::Bare:
    case Shape::RawRead:
    case Shape::CountedRead:
        break;
    }
    return {{asks(operation.command, {{}})}, {}, {}, replies(Bytes(reply_room(operation), '\0'))};
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

std::vector<Point> points(const Course& course)
{
    std::vector<Point> all;
    for (const int close_error : close_errors)
        all.push_back({"close fails with " + errno_name(close_error), std::nullopt, 0, 0, close_error});
    for (std::size_t i = 0; i < course.steps.size(); ++i) {
        const Step& step = course.steps[i];
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

Expected expected(const Course& course, const Point& point)
{
    Expected due;
    int number = 0;
    for (std::size_t i = 0; i < course.steps.size(); ++i) {
        const Step& step = course.steps[i];
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

System system_for(const Course& course, const Point& point)
{
    System system {.open_error = point.open_error, .close_error = point.close_error};
    for (std::size_t i = 0; point.failing_step && i <= *point.failing_step; ++i) {
        const Step& step = course.steps[i];
        if (!step.allocation.empty())
            ++system.failing_allocation;
        else if (i < *point.failing_step)
            ++system.opens_before_error;
    }
    if (point.failing_step && course.steps[*point.failing_step].allocation.empty())
        system.failing_allocation = 0;
    return system;
}

void prepare(ScriptedDevice& device, const Course& course, const Point& point)
{
    for (std::size_t i = 0; i < course.steps.size(); ++i)
        if (course.steps[i].allocation.empty())
            device.next(point.failing_step == i && point.ioctl_error != 0 ? fails(point.ioctl_error) : course.reply);
}

constexpr std::uint32_t old_count = 0x5a5a5a5a;

// What the caller has, into which an operation may only put what is due.
struct Caller
{
    const Operation& operation;
    void* out = elsewhere;
    Bytes memory = Bytes(target_size(operation), '\x5a');
    std::uint32_t count = old_count;

    std::int32_t call()
    {
        const Case& one = *operation.cases.begin();
        if (operation.shape == Shape::ListWorker)
            return operations::call(operation, one, {calloc(1, 16), &count});
        return operations::call(
            operation, one, {hands_out(operation) ? static_cast<void*>(&out) : memory.data(), &count});
    }
};

// Kept: what these operations write although they fail. A result area is zeroed in any case.
void write_what_is_due(const Course& course, std::size_t failing_step, Caller& caller)
{
    const bool device_failed = course.steps[failing_step].allocation.empty();
    const std::string_view function = caller.operation.function.name;
    if (caller.operation.shape == Shape::ResultSend)
        caller.memory.assign(caller.memory.size(), '\0');
    if (function == "LUMOZEPH_SoftRSSGetTunables" && device_failed)
        caller.memory.assign(caller.memory.size(), '\xa5'); // what a fresh block holds here
    if (function == "LUMOZEPH_GetRoutesv6" && device_failed && failing_step > 0)
        caller.count = 8000;
}

class FailureSweep : public testing::TestWithParam<const Operation*>
{};

TEST_P(FailureSweep, LeavesWhatIsDue)
{
    const Operation& operation = *GetParam();
    const Course course = course_of(operation);

    Caller lucky {operation};
    ScriptedDevice good;
    prepare(good, course, {});
    const Call success = observe(good, [&] { return lucky.call(); });
    ASSERT_THAT(success, Succeeds());
    EXPECT_EQ(success.blocks_left, course.left);
    free_left(success);

    for (const Point& point : points(course)) {
        SCOPED_TRACE(point.name);
        Caller caller {operation};
        ScriptedDevice device;
        prepare(device, course, point);
        const Call call = observe(device, system_for(course, point), [&] { return caller.call(); });
        Expected due = expected(course, point);

        if (!point.failing_step) {
            EXPECT_EQ(call.result, 0);
            due.events.insert(due.events.end(), course.frees.begin(), course.frees.end());
            EXPECT_EQ(call.events, due.events);
            EXPECT_EQ(call.blocks_left, course.left);
            EXPECT_EQ(caller.out != elsewhere, hands_out(operation));
            EXPECT_NE(caller.out, nullptr);
            EXPECT_TRUE(caller.memory == lucky.memory);
            EXPECT_EQ(caller.count, lucky.count);
        } else {
            const Due& left = *course.steps[*point.failing_step].when_it_fails;
            EXPECT_THAT(call, Fails(due.error));
            due.events.insert(due.events.end(), left.frees.begin(), left.frees.end());
            EXPECT_EQ(call.events, due.events);
            EXPECT_EQ(call.blocks_left, left.left);
            EXPECT_EQ(caller.out == elsewhere, left.out == Out::Untouched);
            EXPECT_EQ(caller.out == nullptr, left.out == Out::Null);
            Caller unlucky {operation};
            write_what_is_due(course, *point.failing_step, unlucky);
            EXPECT_TRUE(caller.memory == unlucky.memory);
            EXPECT_EQ(caller.count, unlucky.count);
        }
        EXPECT_EQ(call.descriptors_left, 0);
        free_left(call);
        if (HasFailure())
            break;
    }
}

std::vector<const Operation*> all_operations()
{
    std::vector<const Operation*> all;
    operations::for_each_operation(
        [&](const operations::Chapter&, const Operation& operation) { all.push_back(&operation); });
    return all;
}

INSTANTIATE_TEST_SUITE_P(, FailureSweep, testing::ValuesIn(all_operations()), [](const auto& operation) {
    return std::string(operation.param->function.name) + "_" + std::to_string(operation.param->command);
});

TEST(FailureSweeps, CoverEveryOperation)
{
    std::set<std::string> swept;
    std::size_t count = 0;
    for (const Operation* operation : all_operations()) {
        swept.insert(operation->function.name);
        count += points(course_of(*operation)).size();
    }
    EXPECT_GE(swept.size(), 154u);
    EXPECT_GE(count, 4247u);
    RecordProperty("points", static_cast<int>(count));
}

} // namespace
