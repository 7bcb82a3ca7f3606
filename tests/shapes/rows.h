// What operations of one shape must do, tested for every call of the tables in operations/.
#pragma once

#include "fake/matchers.h"
#include "operations/operations.h"

#include <gtest/gtest.h>

namespace shapes {

using fake::Answer;
using fake::Bytes;
using fake::Call;
using fake::DoesNothing;
using fake::Fails;
using fake::fails;
using fake::LeavesNothingAllocated;
using fake::observe;
using fake::replies;
using fake::reports;
using fake::ScriptedDevice;
using fake::Succeeds;
using operations::Layout;
using operations::Shape;

// One call of an operation. Of a read of a record that has several layouts, with one of them.
struct Row
{
    const operations::Chapter* chapter;
    const operations::Operation* operation;
    const operations::Case* one;
    const Layout* layout;

    int command() const { return operation->command; }
    std::int32_t call(void* out = nullptr, std::uint32_t* count = nullptr) const
    {
        return operations::call(*operation, *one, {out, count});
    }
    std::int32_t release(void* result) const { return operation->release.call(result); }
};

std::vector<Row> rows_of(Shape shape);

void PrintTo(const Row& row, std::ostream* out);

// "lifs_SetLifWithoutMac"
struct NameOfRow
{
    std::string operator()(const testing::TestParamInfo<Row>& row) const;
};

// Where an out pointer pointed before the call.
inline void* const elsewhere = reinterpret_cast<void*>(0x5a5a);

// The events of one device call.
std::vector<std::string> device_call(int command);

std::vector<std::string> joined(const std::vector<std::vector<std::string>>& pieces);

// The call has sent the row's one command, and its request as far as the operation clears it.
void expect_sent(const Row& row, const Call& call);

// The operation rejects its arguments: EINVAL, no device call, no allocation.
void expect_rejected(const std::function<std::int32_t()>& call);

class Rows : public testing::TestWithParam<Row>
{
protected:
    const Row& row = GetParam();
};

} // namespace shapes
