// What every single read and every list read must do. A family instantiates SingleReads and ListReads with rows that
// restate what goes over its wire; the tests are in reads.cpp and, for replies of every kind, in replies.cpp.
#pragma once

#include "support/matchers.h"
#include "support/wire.h"

#include <gtest/gtest.h>

namespace world {

struct SingleRead
{
    std::string name;
    int command;
    Layout layout;
    Bytes request;
    std::function<std::int32_t(void** out)> read;
    std::function<std::int32_t(void* record)> release;
};

enum class Holder
{
    Freed,
    LeftAllocated
};
enum class Fragment
{
    Rejected,
    DecodedAsRecord
};

struct ListRead
{
    std::string name;
    int command;
    Layout layout;
    std::size_t cap;
    std::size_t room;
    Bytes request;
    std::function<std::int32_t(void** out)> read;
    std::function<std::int32_t(void* list)> release;
    Holder on_device_error = Holder::Freed;
    Fragment fragment = Fragment::Rejected;
};

// The functions of the header, with their typed pointers put aside.
template <class Type>
Type** as(void** out)
{
    return reinterpret_cast<Type**>(out);
}

template <class Type>
std::function<std::int32_t(void*)> releasing(std::int32_t (*release)(Type*))
{
    return [release](void* pointer) { return release(static_cast<Type*>(pointer)); };
}

inline void PrintTo(const SingleRead& row, std::ostream* out)
{
    *out << row.name;
}
inline void PrintTo(const ListRead& row, std::ostream* out)
{
    *out << row.name;
}

struct NameOfRow
{
    template <class Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const
    {
        return row.param.name;
    }
};

// Where an out pointer pointed before the call.
inline void* const elsewhere = reinterpret_cast<void*>(0x5a5a);

// The events of one device call.
std::vector<std::string> device_call(int command);

std::vector<std::string> joined(const std::vector<std::vector<std::string>>& pieces);

class SingleReads : public testing::TestWithParam<SingleRead>
{
protected:
    const SingleRead& row = GetParam();
    const std::size_t size = row.layout.size;
    void* out = elsewhere;

    const std::string reply_buffer = "malloc(" + std::to_string(size) + ")";
    const std::string result = "calloc(1, " + std::to_string(size) + ")";

    std::vector<std::string> rejected_after_the_call() const
    {
        return joined({{reply_buffer + " = #1"}, device_call(row.command), {result + " = #2", "free(#2)", "free(#1)"}});
    }

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.read(&out); });
    }

    Bytes record() const { return Bytes(static_cast<const char*>(out), size); }

    void release() { EXPECT_EQ(row.release(out), 0); }
};

// A list holder as it lies in memory.
struct Listed
{
    std::int32_t count;
    char* records;
};

class ListReads : public testing::TestWithParam<ListRead>
{
protected:
    const ListRead& row = GetParam();
    const std::size_t size = row.layout.size;
    void* out = elsewhere;

    const std::string holder = "calloc(1, 16)";
    const std::string reply_buffer = "malloc(" + std::to_string(row.room) + ")";
    const std::string array = "calloc(" + std::to_string(row.cap) + ", " + std::to_string(size) + ")";

    std::vector<std::string> rejected_after_the_call() const
    {
        return joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command),
            {array + " = #3", "free(#3)", "free(#1)", "free(#2)"}});
    }

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.read(&out); });
    }

    Bytes reply_of(std::size_t records) const
    {
        Bytes reply;
        reply.reserve(records * size);
        for (std::size_t i = 0; i < records; ++i)
            reply += reply_record(row.layout, i);
        return reply;
    }

    const Listed& list() const { return *static_cast<const Listed*>(out); }
    Bytes record(std::size_t index) const { return Bytes(list().records + index * size, size); }

    void expect_records(std::size_t count) const
    {
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count));
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(record(i), decoded(row.layout, reply_record(row.layout, i))) << "record " << i;
        for (std::size_t i = count; i < std::min(count + 2, row.cap); ++i)
            ASSERT_EQ(record(i), Bytes(size, '\0')) << "past the last record";
    }

    void expect_failure(const Call& call, int error, const std::vector<std::string>& events)
    {
        EXPECT_THAT(call, Fails(error));
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(call.events, events);
        out = elsewhere;
    }

    void release() { EXPECT_EQ(row.release(out), 0); }
};

} // namespace world
