// Prints what operations answered, as text for people and as JSON.
#pragma once

#include "tool/description.h"
#include "tool/filter.h"
#include "tool/output.h"
#include "tool/reply.h"
#include "tool/values.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

enum class Style
{
    Text,
    Json,
    IndentedJson
};

// How somebody wants to see it.
struct Manner
{
    Style style = Style::Text;
    bool wide = false; // all members, whatever the width of the terminal
    bool raw = false;  // bytes as they are
    AddressOrder order = AddressOrder::Network;
    std::string fields; // only these members, with commas between them; none: the usual ones
    std::vector<std::string> filters;
    std::size_t columns = 0; // of the terminal; 0: there is none
    bool bold = false;       // heads of tables
};

// Whether the operation's answer has what is asked for is known before it is called: throws Misuse if not.
void refuse_unknown_fields(const Operation& operation, const Manner& manner);
void refuse_bytes_of_others(const Operation& operation, const Manner& manner);

// The usual columns of a table, in their order, with commas between them; none: all.
void print(Output& output, const Operation& operation, const Reply& reply, const Manner& manner,
    std::string_view usual_fields);

} // namespace tool
