// Prints what is documented of lumozephctl from what it knows.
//
// usage: lumozephctl_documents page TEMPLATE     the manual page: the template, with the verbs where @VERBS@ stands
//        lumozephctl_documents schema            the JSON Schema of what it prints
//        lumozephctl_documents state-schema      that of what it saves
//        lumozephctl_documents verbs             the words of each verb, 4 or 6, its operation, sets or reads
#include "tool/grammar.h"
#include "tool/schema.h"

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

int print_page(const char* path)
{
    std::ifstream page(path);
    if (!page) {
        fmt::print(stderr, "lumozephctl_documents: cannot read {}\n", path);
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

void list_verbs()
{
    for (const Object& object : known_objects())
        for (const Verb& verb : object.verbs)
            fmt::print("{}\t{}\t{}\t{}\n", verb.words, verb.is_ipv6 ? 6 : 4, verb.operation,
                find_operation(verb.operation)->answer == Answer::Nothing ? "sets" : "reads");
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (what == "page" && argc == 3)
        return print_page(argv[2]);
    if (what == "schema" && argc == 2)
        fmt::print("{}", schema());
    else if (what == "state-schema" && argc == 2)
        fmt::print("{}", state_schema());
    else if (what == "verbs" && argc == 2)
        list_verbs();
    else
        return 2;
    return 0;
}
