// Shows what would be sent, and sends nothing.
#pragma once

#include "tool/grammar.h"
#include "tool/output.h"
#include "tool/printer.h"
#include "tool/stand_in.h"

#include <span>
#include <string>
#include <vector>

namespace tool {

// What lies in a request, and where.
struct RequestField
{
    std::size_t offset;
    std::size_t size; // of what the argument can change
    std::string name; // of the argument, or of its record's member
    std::string value;
};

// Where the arguments of an operation arrive is tried: each is changed in turn, and what changes in the request is its
// field. An argument that chooses the command, or that is only tested, has none.
std::vector<RequestField> fields_of(
    const Operation& operation, const Arguments& arguments, const Issued& issued, AddressOrder order);

// Throws Misuse, and Failure where the library refuses the arguments.
void show_requests(std::span<const Step> steps, const Manner& manner, Output& output);

// A command that no operation stands for.
void show_command(const Issued& issued, const Manner& manner, Output& output);

} // namespace tool
