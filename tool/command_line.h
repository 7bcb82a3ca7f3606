// The command line, taken apart: its options, and the words that are left.
#pragma once

#include "tool/completion.h"
#include "tool/metrics.h"
#include "tool/printer.h"
#include "tool/raw.h"
#include "tool/state/commands.h"
#include "tool/watch.h"

#include <string>
#include <vector>

namespace tool {

struct CommandLine
{
    std::vector<std::string> words;
    Manner manner;
    RawCommand raw;
    MetricsTerms metrics;
    StateOptions state;
    WatchTerms terms;
    std::string interval;
    std::string duration;
    std::string timeout;
    bool prefer_ipv6 = false;
    bool wants_help = false;
    bool wants_version = false;
    bool dry_run = false;
    bool keep_going = false;
    bool rates = false;
    bool openmetrics = false;
    std::string place;                      // in a batch; empty: typed
    std::vector<std::string> options_given; // that not all verbs take
    std::string mistake;                    // in its options, if any; then nothing else is known but how to say so
    // If help is wanted.
    std::string help_of_options;
    std::vector<OptionWords> known_options;
};

// What it does not say is as in the general one.
CommandLine command_line_of(const CommandLine& general, std::vector<std::string> arguments);

// Throws Misuse if an option makes no sense, or would say nothing to the verb that there is. The former comes first.
void refuse_mistakes(const CommandLine& line);
void refuse_options_of_others(const CommandLine& line);

// All that there are.
std::vector<OptionWords> known_options();

} // namespace tool
