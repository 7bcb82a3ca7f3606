// Reads the state of the module into a document.
#pragma once

#include "tool/state/document.h"
#include "tool/state/texts.h"
#include "tool/values.h"

#include <cstdint>
#include <set>
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
    // Of bridges, as GetBridgeFdbEntries is given them: they are read even if the bridge does not list them.
    std::set<Texts> networks = {};
};

// Throws Failure.
Value read_state(const Scope& scope, AddressOrder order);

// How many forwarding entries a bridge has that are in none of the networks which it lists or the scope names, and so in no
// document. Throws Failure.
std::uint64_t entries_unread(const std::string& bridge, const Scope& scope, AddressOrder order);

// What a document is about. The networks are those whose forwarding entries it has.
Scope scope_of(const Value& document);

} // namespace tool
