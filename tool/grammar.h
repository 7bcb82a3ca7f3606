// The objects and verbs of the tool: what of the command line means which operation.
#pragma once

#include "tool/binding.h"
#include "tool/description.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// A command of people: the words that name it, what follows them, and the operation that it is.
//
// What follows is written as help shows it: <parameter> for a value, <address/mask> for two that are written as one,
// keyword <parameter> for a value behind its name, and brackets around what may be left out. Keywords come in any order.
struct Verb
{
    std::string_view words;
    std::string_view operation;
    std::string_view form;
    // Values that the words imply: name=value, with blanks between them.
    std::string_view implied = {};
    // The columns of its table on a narrow terminal, with commas between them; none: all of them.
    std::string_view fields = {};
    // Of a list, the fields by which its records are told apart, with commas between them.
    std::string_view key = {};
    // Of those with the same words, for IPv6.
    bool is_ipv6 = false;
    // Of those with the same words, several may be given at once, each with its own keywords.
    bool joins = false;
    // The keyword of one that cannot be given beside it.
    std::string_view excludes = {};
};

struct Object
{
    std::string_view name;
    std::string_view brief;
    std::span<const Verb> verbs;
};

std::span<const Object> known_objects();

// One operation to be carried out.
struct Step
{
    const Verb* verb; // null: by its function's name
    const Operation* operation;
    std::vector<Given> given;
};

// What the words of a command line mean. Throws Misuse.
std::vector<Step> understand(std::span<const std::string> words, bool prefer_ipv6);

// The verbs that these words name, whatever follows them: if not all words of a verb are there, those that begin with them.
// Throws Misuse.
std::vector<const Verb*> verbs_named_by(std::span<const std::string> words);

// The verbs that begin with these words; none if there are none.
std::vector<const Verb*> verbs_under(std::span<const std::string> words);

// The verb of no object that is meant, which may be shortened where no object is meant. Null: none is.
struct OwnVerb;
const OwnVerb* find_own_verb(std::string_view word);

// Whether it takes an option, by its name with its dashes. Null: a verb of an object.
bool takes_option(const OwnVerb* verb, std::string_view option);
bool is_option_of_all(std::string_view option);

// The object that is meant, which may be shortened. Null: none is.
const Object* find_object(std::string_view word);

} // namespace tool
