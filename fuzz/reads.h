// What the targets have in common that iterate the tables of operations: which of their calls a run makes, and what
// must arrive of a record.
#pragma once

#include "operations/operations.h"
#include "operations/reply.h"
#include "system.h"

namespace fuzz {

struct Read
{
    const operations::Operation* operation;
    const operations::Case* one;

    std::int32_t call(void* out) const { return operations::call(*operation, *one, {out, nullptr}); }
    std::int32_t release(void* result) const { return operation->release.call(result); }
};

// Reads with more room than that are a target of their own: they would slow down the others.
inline constexpr std::uint32_t largest_room = 10'000'000;
enum class Rooms
{
    Usual,
    Larger
};

std::vector<Read> reads_of(std::initializer_list<operations::Shape> shapes, Rooms rooms = Rooms::Usual);

// The input chooses.
const Read& choose(const std::vector<Read>& reads, Input& input);

// Compares the record that lies there with what must arrive of the reply's record.
void expect_record(const operations::Operation& operation, const void* record, const std::string& reply);

} // namespace fuzz
