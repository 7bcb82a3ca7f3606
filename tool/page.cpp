// Prints the manual page of lumozephctl: its template, and the verbs that the tool knows where @VERBS@ stands.
//
// usage: lumozephctl_page TEMPLATE
#include "tool/grammar.h"

#include <algorithm>
#include <fmt/format.h>
#include <fstream>
#include <string>

namespace {

using namespace tool;

// The words of a verb's form, as macros of mdoc(7): places and values are arguments, brackets are options.
std::string arguments(std::string_view form)
{
    std::string text;
    while (!form.empty()) {
        const std::size_t length = std::min(form.find(' '), form.size());
        std::string_view word = form.substr(0, length);
        form.remove_prefix(std::min(length + 1, form.size()));
        if (word.starts_with('[')) {
            text += " Oo";
            word.remove_prefix(1);
        }
        const bool closes = word.ends_with(']');
        if (closes)
            word.remove_suffix(1);
        const bool is_value = word.starts_with('<');
        text += fmt::format(" {} {}", is_value ? "Ar" : "Cm", is_value ? word.substr(1, word.size() - 2) : word);
        if (closes)
            text += " Oc";
    }
    return text;
}

void print_verbs()
{
    for (const Object& object : known_objects()) {
        fmt::print(".Ss {}\n.Bl -tag -width Ds\n", object.brief);
        for (const Verb& verb : object.verbs)
            fmt::print(".It Cm {}{}\n{}\n.Pq Xr LUMOZEPH_{} 3\n", verb.words, arguments(verb.form),
                find_operation(verb.operation)->brief, verb.operation);
        fmt::print(".El\n");
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        fmt::print(stderr, "usage: lumozephctl_page TEMPLATE\n");
        return 2;
    }
    std::ifstream page(argv[1]);
    if (!page) {
        fmt::print(stderr, "lumozephctl_page: cannot read {}\n", argv[1]);
        return 1;
    }
    for (std::string line; std::getline(page, line);) {
        if (line == "@VERBS@")
            print_verbs();
        else
            fmt::print("{}\n", line);
    }
    return 0;
}
