// The verbs that are no object's.
#pragma once

#include <string_view>

namespace tool {

struct OwnVerb
{
    std::string_view name;
    std::string_view brief;
    std::string_view form;    // what follows it
    std::string_view options; // what it takes of those that not all take, with blanks between them
    std::string_view example; // what is typed behind the name of the tool
};

// Options that verbs of objects take, and not all verbs.
inline constexpr std::string_view options_of_objects = "--fields --filter --dry-run --rates --interval";

inline constexpr OwnVerb own_verbs[] {
    {"call", "A function of the library, by its name", "FUNCTION [NAME=VALUE...]", options_of_objects,
        "call GetResolveRoute instance=blue dest=10.2.3.4 mask=32 param=0"},
    {"batch", "The command lines of a file", "FILE", "--keep-going --fields --filter --dry-run --rates --interval",
        "batch router --keep-going"},
    {"raw", "A command by its number", "NUMBER", "--request --reply-size --dry-run", "raw 9 --reply-size 4"},
    {"watch", "What changes, as it changes", "OBJECT[=NAME]...", "--interval --count --duration --timestamps",
        "watch lif=blue route=blue bridge -j"},
    {"metrics", "Statistics and numbers of objects for Prometheus", "[TARGET...]", "--output --state --openmetrics",
        "metrics --output /var/lib/prometheus/node-exporter/lumozeph.prom"},
    {"save", "The state as a whole, to a file", "FILE", "--instance --statistics", "save before.json"},
    {"diff", "How the state differs from a file", "FILE [FILE]", "", "diff before.json"},
    {"apply", "Makes the state what a file says", "FILE", "--yes --dry-run --rollback",
        "apply before.json --yes --rollback"},
    {"graph", "Draws the state, or that of an instance", "[INSTANCE]", "--svg", "graph --svg blue > blue.svg"},
};

} // namespace tool
