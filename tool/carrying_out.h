// Carries operations out.
#pragma once

#include "tool/grammar.h"
#include "tool/output.h"
#include "tool/printer.h"
#include "tool/reply.h"

#include <span>

namespace tool {

// All of them, in their order, and prints what they answer. Nothing is carried out if the arguments of one make no sense.
// Throws Misuse and Failure.
void carry_out(std::span<const Step> steps, const Manner& manner, Output& output);

// What one answers. Throws Misuse and Failure.
Reply answer_of(const Step& step, AddressOrder order);

} // namespace tool
