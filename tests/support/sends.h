// What every operation must do that sends a request and reads no reply. A family instantiates Sends with rows that
// restate its requests; the tests are in sends.cpp.
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

class Sends : public testing::TestWithParam<Send>
{
protected:
    const Send& row = GetParam();
};

// The operation rejects its arguments: EINVAL, no device call, no allocation.
void expect_rejected(const std::function<std::int32_t()>& call);

} // namespace world
