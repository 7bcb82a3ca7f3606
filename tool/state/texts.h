// The values of fields, as they are typed: what operations are given, and what keys are made of.
#pragma once

#include "tool/binding.h"
#include "tool/state/document.h"
#include "tool/state/shape.h"
#include "tool/values.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// By the names of fields.
using Texts = std::map<std::string, std::string, std::less<>>;

// What an operation is given: those of these texts that it has parameters for, and what is said of others.
std::vector<Given> given_to(const Operation& operation, std::string_view said, const Texts& texts, AddressOrder order);

// Of a field's value; a list is a JSON array.
std::string typed(const Value& value);
// What a field is that nobody has set.
Value zero_of(const Member& member);

// The text of a key, and the values of its fields. A text that is empty is "-"; blanks and hyphens are escaped.
std::string key_of(const Level& level, const Texts& texts);
// Throws Misuse, which says what was expected.
Texts fields_of_key(const Level& level, const Level* outer, std::string_view key);

bool is_in_key(const Level& level, std::string_view field);

// The value in the text that the module's own values have. Throws Misuse, which says what was expected.
Value normal(const Member& member, const Value& value);

} // namespace tool
