// Prints a command line for each verb, with samples as its values: its operation, what that answers, and the words, with
// tabs between them.
#include "tool/grammar.h"
#include "tool/tests/samples.h"
#include "tool/words.h"

#include <algorithm>
#include <fmt/format.h>
#include <string>

namespace {

using namespace tool;

constexpr std::string_view answers[] {"nothing", "value", "record", "list", "bytes", "entries"};

// The world in which they are carried out has one of each, with the name that samples have; a LIF is of one kind
// only, and DHCP servers are addresses.
std::string sample_named(const Operation& operation, std::string_view name)
{
    if (operation.name == "GetBridgeLif" && name == "lif")
        return "b";
    if (operation.name == "ConfigureLifDhcpRelay" && name == "servers")
        return "10.0.0.1";
    const auto is_meant = [&](const Parameter& one) { return one.name == name || one.address == name; };
    return sample(*std::ranges::find_if(operation.parameters, is_meant));
}

std::string value_of(const Operation& operation, std::string_view place)
{
    if (place.ends_with("/mask"))
        return "10.0.0.0/24";
    return place.ends_with("/prefixLen") ? "2001:db8::/64" : sample_named(operation, place);
}

// With all that may be left out.
std::string line_of(const Verb& verb)
{
    std::string line(verb.is_ipv6 ? "-6 " : "");
    line += verb.words;
    for (const std::string_view part : split(verb.form, ' ')) {
        std::string word(part);
        std::erase_if(word, [](char c) { return c == '[' || c == ']'; });
        if (word.starts_with('<'))
            word = value_of(*find_operation(verb.operation), word.substr(1, word.size() - 2));
        line += " " + word;
    }
    return line;
}

} // namespace

int main()
{
    for (const Object& object : known_objects())
        for (const Verb& verb : object.verbs) {
            const Operation& operation = *find_operation(verb.operation);
            fmt::print(
                "{}\t{}\t{}\n", operation.name, answers[static_cast<std::size_t>(operation.answer)], line_of(verb));
        }
}
