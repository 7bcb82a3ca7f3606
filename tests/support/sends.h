// What every operation that sends a request and reads no reply of its own must do, for rows of a table.
#pragma once

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

// The operation sends exactly this request and nothing else, allocates nothing, and passes the system's errno on.
void expect_send(const Send& row);

// The operation rejects its arguments: EINVAL, no device call, no allocation.
void expect_rejected(const std::function<std::int32_t()>& call);

} // namespace world
