// Carries operations out.
#pragma once

#include "tool/arguments.h"
#include "tool/grammar.h"
#include "tool/output.h"
#include "tool/printer.h"
#include "tool/reply.h"

#include <functional>
#include <optional>
#include <span>
#include <string>

namespace tool {

// All of them, in their order, and prints what they answer. Nothing is carried out if the arguments of one make no sense.
// Throws Misuse and Failure.
void carry_out(std::span<const Step> steps, const Manner& manner, Output& output);

// What an operation answers. Throws Failure, with words for what was attempted.
Reply answer_of(const Operation& operation, Arguments arguments, const std::function<std::string()>& attempt);

// The same, but that there is nothing if it fails with ENOENT.
std::optional<Reply> answer_if_there(
    const Operation& operation, Arguments arguments, const std::function<std::string()>& attempt);

// What one answers. Throws Misuse and Failure.
Reply answer_of(const Step& step, AddressOrder order);

} // namespace tool
