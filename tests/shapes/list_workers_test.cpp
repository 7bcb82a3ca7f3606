// The exported workers of list reads, which fill a list of the caller's.
#include "shapes/rows.h"

using testing::ElementsAre;

namespace shapes {

class ListWorkers : public Rows
{
protected:
    void* list = nullptr;

    // The holder is block #1.
    Call fill(Answer answer, const fake::System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] {
            list = calloc(1, 16);
            return row.call(list);
        });
    }
};

TEST_P(ListWorkers, FillTheCallersList)
{
    const Call call = fill(replies({}));
    ASSERT_THAT(call, Succeeds());
    expect_sent(row, call);
    EXPECT_EQ(call.blocks_left.size(), 2u);
    EXPECT_EQ(row.release(list), 0);
}

// Kept: the holder is the caller's, and yet the worker frees it.
TEST_P(ListWorkers, FreeTheCallersListWhenTheyFail)
{
    const Call no_reply = fill({}, {.failing_allocation = 2});
    EXPECT_THAT(no_reply, Fails(ENOMEM));
    EXPECT_EQ(no_reply.events.back(), "free(#1)");
    EXPECT_THAT(no_reply, LeavesNothingAllocated());
    const Call no_array = fill(replies({}), {.failing_allocation = 3});
    EXPECT_THAT(no_array, Fails(ENOMEM));
    EXPECT_THAT(no_array, LeavesNothingAllocated());
    const Call fragment = fill(reports("x", 1));
    EXPECT_THAT(fragment, Fails(EBADMSG));
    EXPECT_THAT(fragment, LeavesNothingAllocated());
}

// Kept: but not when the device call fails.
TEST_P(ListWorkers, LeaveTheCallersListAloneWhenTheDeviceFails)
{
    const Call call = fill(fails(EPERM));
    EXPECT_THAT(call, Fails(EPERM));
    EXPECT_THAT(call.blocks_left, ElementsAre("#1: calloc(1, 16)"));
    fake::free_left(call);
}

INSTANTIATE_TEST_SUITE_P(, ListWorkers, testing::ValuesIn(rows_of(Shape::ListWorker)), NameOfRow());

} // namespace shapes
