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
inline constexpr std::string_view options_of_objects =
    "-o --fields --filter --address-order -6 --dry-run --rates --interval";

inline constexpr OwnVerb own_verbs[] {
    {"help", "What there is, and how it is typed", "[WORD...]", "", "help route add"},
    {"call", "A function of the library, by its name", "FUNCTION [NAME=VALUE...]",
        "-o --fields --filter --address-order --dry-run --rates --interval",
        "call GetResolveRoute instance=blue dest=10.2.3.4 mask=32 param=0"},
    {"batch", "The command lines of a file", "FILE",
        "--keep-going -o --fields --filter --address-order -6 --dry-run --rates --interval",
        "batch router --keep-going"},
    {"raw", "A command by its number", "NUMBER", "--request --reply-size -o --dry-run", "raw 9 --reply-size 4"},
    {"watch", "What changes, as it changes", "OBJECT[=NAME]...",
        "--interval --count --duration --timestamps --address-order", "watch lif=blue route=blue bridge -j"},
    {"metrics", "Statistics and numbers of objects for Prometheus", "[TARGET...]",
        "--output --state --openmetrics --address-order",
        "metrics --output /var/lib/prometheus/node-exporter/lumozeph.prom"},
    {"save", "The state as a whole, to a file", "FILE", "--instance --statistics --address-order", "save before.json"},
    {"diff", "How the state differs from a file", "FILE [FILE]", "--address-order", "diff before.json"},
    {"apply", "Makes the state what a file says", "FILE", "--yes --dry-run --rollback --address-order",
        "apply before.json --yes --rollback"},
    {"graph", "Draws the state, or that of an instance", "[INSTANCE]", "--svg --address-order",
        "graph --svg blue > blue.svg"},
    {"complete", "What may stand for the last of the words, for shells", "-- WORD...", "", "complete -- route l"},
};

} // namespace tool
