#include "tool/state/commands.h"

#include "tool/failures.h"
#include "tool/files.h"
#include "tool/mistakes.h"
#include "tool/state/reading.h"

#include <cerrno>
#include <cstdlib>

namespace tool {
namespace {

// What the words after the command are.
void demand_words(std::span<const std::string> words, std::size_t least, std::size_t most, std::string_view form)
{
    if (words.size() <= least)
        throw Misuse(fmt::format("a file is missing: {} {}", words.front(), form));
    if (words.size() > most + 1)
        throw Misuse(fmt::format("'{}' is not expected here: {} {}", words[most + 1], words.front(), form));
}

Spacing spacing_of(const Manner& manner)
{
    return manner.style == Style::Json ? Spacing::OneLine : Spacing::Indented;
}

int save(std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    demand_words(words, 1, 1, "FILE");
    const Scope scope {options.instance, options.statistics ? Statistics::Included : Statistics::LeftOut};
    const Value state = read_state(scope, manner.order);
    if (!scope.instance.empty() && state.find("instances")->members.empty())
        throw failure(fmt::format("save --instance {}", scope.instance), "GetInstances", ENOENT);
    const std::string text = print_document(state, spacing_of(manner));
    if (words[1] != "-") {
        replace_contents(words[1], text, Access::AsBefore);
        return EXIT_SUCCESS;
    }
    output.write(text);
    output.flush();
    return EXIT_SUCCESS;
}

} // namespace

bool is_state_command(std::string_view word)
{
    return word == "save";
}

std::string help_of_state_commands()
{
    return "The state as a whole:\n"
           "  save FILE                   writes it to a file, - for standard output: --instance, --statistics\n";
}

int run_state_command(
    std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    return save(words, options, manner, output);
}

} // namespace tool
