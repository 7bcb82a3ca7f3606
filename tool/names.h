// The names that the module knows: what can stand for a parameter of a verb.
#pragma once

#include "tool/grammar.h"
#include "tool/values.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// Where they can be read.
struct Source
{
    std::string_view verb; // the words with which the verb begins; none: any verb
    std::string_view parameter;
    std::string_view operation; // that lists them
    std::string_view field;
};

// Null if nobody lists them.
const Source* find_source(const Verb& verb, std::string_view parameter);
std::span<const Source> sources();

// Reads each list of names once.
class Names
{
public:
    explicit Names(AddressOrder order) : _order(order) {}

    // Of what is given, that which the list needs is taken. Throws Failure, and Misuse if it is missing.
    const std::vector<std::string>& from(const Source& source, std::span<const Given> within);

private:
    AddressOrder _order;
    std::map<std::string, std::vector<std::string>> _read;
};

} // namespace tool
