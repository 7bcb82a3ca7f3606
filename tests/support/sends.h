// What every operation must do that sends a request and reads no reply. A family instantiates Sends with rows that
// restate its requests; the tests are in sends.cpp.
#pragma once

#include "lumozeph.h"
#include "support/matchers.h"
#include "support/reads.h"

namespace world {

struct Send
{
    std::string name;
    unsigned long command;
    Bytes request;
    std::function<std::int32_t()> send;
};

inline void PrintTo(const Send& row, std::ostream* out)
{
    *out << row.name;
}

class Sends : public testing::TestWithParam<Send>
{
protected:
    const Send& row = GetParam();
};

// The same for operations that offer an area of the caller's for the module's own result.
struct ResultSend
{
    std::string name;
    unsigned long command;
    Bytes request;
    std::function<std::int32_t(LumoCmdResult*)> send;
};

inline void PrintTo(const ResultSend& row, std::ostream* out)
{
    *out << row.name;
}

class ResultSends : public testing::TestWithParam<ResultSend>
{
protected:
    const ResultSend& row = GetParam();
};

// The same for reads whose reply goes straight into the caller's buffer.
struct RawRead
{
    std::string name;
    unsigned long command;
    Bytes request;
    std::uint32_t room;
    std::function<std::int32_t(void*)> read;
};

inline void PrintTo(const RawRead& row, std::ostream* out)
{
    *out << row.name;
}

class RawReads : public testing::TestWithParam<RawRead>
{
protected:
    const RawRead& row = GetParam();
    Bytes buffer = Bytes(row.room, '\x5a');
};

// The operation sends this command with neither input nor room for a reply.
void expect_empty_envelope(unsigned long command, const std::function<std::int32_t()>& send);

// The operation rejects its arguments: EINVAL, no device call, no allocation.
void expect_rejected(const std::function<std::int32_t()>& call);

} // namespace world
