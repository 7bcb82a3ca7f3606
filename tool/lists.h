// The lists that an object has, and what is in them.
#pragma once

#include "tool/grammar.h"
#include "tool/names.h"
#include "tool/records.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// One list: a verb, and the instance or other thing of which it is the list.
struct List
{
    const Verb* verb;
    std::vector<Given> place;
};

// The verbs of an object that list records which can be told apart.
std::vector<const Verb*> lists_of_object(std::string_view object);

// One for each of the things that have such a list. Throws Failure.
std::vector<List> lists_of(const Verb& verb, Names& names);

// Records, as bytes, by what tells them apart. Those that are not told apart are counted.
using Contents = std::map<std::string, std::string>;

Contents contents_of(const Records& records, std::string_view key);
// Throws Failure.
Contents contents_of(const List& list, AddressOrder order);

// The members whose values are not the same.
std::vector<const Member*> differences(
    const Record& record, const std::string& before, const std::string& after, AddressOrder order);

} // namespace tool
