#include "tool/state/commands.h"

#include "tool/failures.h"
#include "tool/files.h"
#include "tool/mistakes.h"
#include "tool/state/checking.h"
#include "tool/state/difference.h"
#include "tool/state/reading.h"

#include <cerrno>
#include <cstdlib>

namespace tool {
namespace {

constexpr int same = 0;
constexpr int different = 1;

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

// A file that cannot be read is as one that makes no sense: the other status is that of a difference.
std::string readable_text(const std::string& file)
{
    try {
        return contents_of(file);
    } catch (const Failure& failure) {
        throw Misuse(failure.what());
    }
}

Value load_state(const std::string& file)
{
    const std::string name = file == "-" ? "standard input" : file;
    return checked(parse_document(readable_text(file), name), name);
}

Value state_beside(const Value& document, const Manner& manner)
{
    try {
        return part_spoken_of(read_state(scope_of(document), manner.order), document);
    } catch (const Failure& failure) {
        // The status of a failure is that of a difference.
        throw Misuse(fmt::format("{}{}{}", failure.what(), failure.advice.empty() ? "" : ": ", failure.advice));
    }
}

int diff(std::span<const std::string> words, const Manner& manner, Output& output)
{
    demand_words(words, 1, 2, "FILE [FILE]");
    const Value from = load_state(words[1]);
    const Value to = words.size() > 2 ? load_state(words[2]) : state_beside(from, manner);
    const std::vector<Difference> found = differences(from, to);
    if (manner.style != Style::Text)
        output.write(print_document(patch_of(found), spacing_of(manner)));
    else
        output.write(text_of(found));
    output.flush();
    return found.empty() ? same : different;
}

} // namespace

bool is_state_command(std::string_view word)
{
    return word == "save" || word == "diff";
}

std::string help_of_state_commands()
{
    return "The state as a whole:\n"
           "  save FILE                   writes it to a file, - for standard output: --instance, --statistics\n"
           "  diff FILE [FILE]            how it, or another file, differs from a file\n";
}

int run_state_command(
    std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    if (words.front() == "save")
        return save(words, options, manner, output);
    return diff(words, manner, output);
}

} // namespace tool
