// Reads the state of the module into a document.
#pragma once

#include "tool/state/document.h"
#include "tool/values.h"

#include <string>
#include <string_view>

namespace tool {

// Of the documents.
inline constexpr std::string_view document_format = "1";

enum class Statistics
{
    LeftOut,
    Included
};

struct Scope
{
    std::string instance; // only this one; empty: the whole host
    Statistics statistics = Statistics::LeftOut;
};

// Throws Failure.
Value read_state(const Scope& scope, AddressOrder order);

// What a document is about.
Scope scope_of(const Value& document);

} // namespace tool
