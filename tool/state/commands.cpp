#include "tool/state/commands.h"

#include "tool/failures.h"
#include "tool/files.h"
#include "tool/mistakes.h"
#include "tool/state/applying.h"
#include "tool/state/checking.h"
#include "tool/state/difference.h"
#include "tool/state/graph.h"
#include "tool/state/plan.h"
#include "tool/state/reading.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>
#include <unistd.h>

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

void refuse_missing(const Value& state, const Scope& scope, const std::string& attempt)
{
    if (!scope.instance.empty() && state.find("instances")->members.empty())
        throw failure(attempt, "GetInstances", ENOENT);
}

int save(std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    demand_words(words, 1, 1, "FILE");
    const Scope scope {options.instance, options.statistics ? Statistics::Included : Statistics::LeftOut};
    const Value state = read_state(scope, manner.order);
    refuse_missing(state, scope, "save --instance " + scope.instance);
    const std::string text = print_document(state, spacing_of(manner));
    if (words[1] != "-") {
        replace_contents(words[1], text, Access::AsBefore);
        return EXIT_SUCCESS;
    }
    output.write(text);
    output.flush();
    return EXIT_SUCCESS;
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
    const Value from = read_document(words[1]);
    const Value to = words.size() > 2 ? read_document(words[2]) : state_beside(from, manner);
    const std::vector<Difference> found = differences(from, to);
    if (manner.style != Style::Text)
        output.write(print_document(patch_of(found), spacing_of(manner)));
    else
        output.write(text_of(found));
    output.flush();
    return found.empty() ? same : different;
}

Value list_of(const std::vector<Path>& paths)
{
    Value list = Value::list();
    for (const Path& path : paths)
        list.elements.push_back(Value::string(pointer_to(path)));
    return list;
}

Value list_of(const std::vector<Call>& calls)
{
    Value list = Value::list();
    for (const Call& call : calls)
        list.elements.push_back(Value::string(command_of(call)));
    return list;
}

Value list_of(const std::vector<std::string>& texts)
{
    Value list = Value::list();
    for (const std::string& text : texts)
        list.elements.push_back(Value::string(text));
    return list;
}

void write_commands(Output& output, std::string_view before, const std::vector<Call>& calls)
{
    for (const Call& call : calls)
        output.format("{}{}\n", before, command_of(call));
}

void write_paths(Output& output, std::string_view before, const std::vector<Path>& paths)
{
    for (const Path& path : paths)
        output.format("{}{}\n", before, text_of(path));
}

bool begins_with(const Path& path, const Path& beginning)
{
    return path.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), path.begin());
}

// Of what the document speaks of and can be set.
std::vector<Difference> changes_of(const Plan& plan, const Value& part, const Value& document)
{
    std::vector<Difference> found = differences(part, document);
    std::erase_if(found, [&](const Difference& one) {
        return std::ranges::any_of(plan.not_settable, [&](const Path& path) { return begins_with(one.path, path); });
    });
    return found;
}

void show_plan(Output& output, const Plan& plan, const Value& state, const Value& document)
{
    const Value part = part_spoken_of(state, document);
    output.write(text_of(changes_of(plan, part, document)));
    write_paths(output, "cannot be set: ", plan.not_settable);
    for (const std::string& loss : plan.losses)
        output.format("{}\n", loss);
    output.flush();
}

void show_dry(Output& output, const Plan& plan, const Value& state, const Value& document, const Manner& manner)
{
    if (manner.style == Style::Text) {
        write_commands(output, "", plan.calls);
        write_paths(output, "# cannot be set: ", plan.not_settable);
        for (const std::string& loss : plan.losses)
            output.format("# {}\n", loss);
    } else {
        const Value part = part_spoken_of(state, document);
        const std::vector<Difference> changes = changes_of(plan, part, document);
        Value answer = Value::object();
        answer.members["commands"] = list_of(plan.calls);
        answer.members["before"] = part_before(changes);
        answer.members["after"] = part_after(changes);
        answer.members["notSettable"] = list_of(plan.not_settable);
        answer.members["losses"] = list_of(plan.losses);
        output.write(print_document(answer, spacing_of(manner)));
    }
    output.flush();
}

std::string count_of(std::size_t calls)
{
    return fmt::format("{} call{}", calls, calls == 1 ? "" : "s");
}

bool is_agreed_to(Output& output, std::size_t calls)
{
    output.format("{}: carry {} out? [y/N] ", count_of(calls), calls == 1 ? "it" : "them");
    output.flush();
    std::string answer;
    std::getline(std::cin, answer);
    std::ranges::transform(answer, answer.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return answer == "y" || answer == "yes";
}

void write_remains(Output& output, const Remains& remains)
{
    constexpr std::string_view not_rolled_back = "not rolled back: ";
    if (remains.why_unknown)
        output.format("{}what is left cannot be read: {}\n", not_rolled_back, remains.why_unknown->what());
    else if (remains.left.empty() && remains.losses.empty())
        output.write("rolled back\n");
    write_paths(output, not_rolled_back, remains.left);
    for (const std::string& loss : remains.losses)
        output.format("{}{}\n", not_rolled_back, loss);
}

// Unknown, it may be all of the document.
Value list_of(const Remains& remains)
{
    return list_of(remains.why_unknown ? std::vector<Path> {Path()} : remains.left);
}

// Says what could not be done, and what of it is left.
[[noreturn]] void end_in_failure(
    Output& output, const Outcome& outcome, const std::optional<Remains>& remains, const Manner& manner)
{
    if (manner.style == Style::Text) {
        output.format("{} done\n", count_of(outcome.done.size()));
        write_commands(output, "not done: ", outcome.not_done);
        if (remains)
            write_remains(output, *remains);
    } else {
        Value answer = Value::object();
        answer.members["done"] = list_of(outcome.done);
        answer.members["notDone"] = list_of(outcome.not_done);
        if (remains) {
            answer.members["notRolledBack"] = list_of(*remains);
            answer.members["losses"] =
                list_of(std::vector<std::string>(remains->losses.begin(), remains->losses.end()));
        }
        output.write(print_document(answer, spacing_of(manner)));
    }
    output.flush();
    throw Failure(*outcome.why_not);
}

void end_in_success(Output& output, const Outcome& outcome, const Manner& manner)
{
    if (manner.style == Style::Text) {
        output.write(outcome.done.empty() ? "nothing to do\n" : count_of(outcome.done.size()) + " done\n");
        write_paths(output, "cannot be set: ", outcome.not_settable);
    } else {
        Value answer = Value::object();
        answer.members["done"] = list_of(outcome.done);
        answer.members["notSettable"] = list_of(outcome.not_settable);
        output.write(print_document(answer, spacing_of(manner)));
    }
    output.flush();
}

// What goes with bridges and is in no document, by the words of the calls that take them away.
std::map<std::string, std::string> losses_with_bridges(const Plan& plan, const Scope& scope, AddressOrder order)
{
    std::map<std::string, std::string> losses;
    for (const Call& call : plan.calls) {
        if (call.operation->name != "BridgeDel")
            continue;
        const std::string& bridge = std::ranges::find(call.given, "key", &Given::name)->value;
        if (const std::uint64_t count = entries_unread(bridge, scope, order))
            losses[words_of(call)] =
                fmt::format("{}: forwarding entries of networks that it does not list are lost: {}",
                    text_of(Path {"bridges", bridge}), count);
    }
    return losses;
}

int apply(std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    demand_words(words, 1, 1, "FILE");
    const Value document = without_statistics(read_document(words[1]));
    HostModule module(manner.order);
    const Scope scope = scope_of(document);
    const Value before = module.read(scope);
    Plan plan = plan_of(before, document, manner.order);
    const std::map<std::string, std::string> with_bridges = losses_with_bridges(plan, scope, manner.order);
    for (const auto& [call, loss] : with_bridges)
        plan.losses.push_back(loss);
    if (options.dry_run) {
        show_dry(output, plan, before, document, manner);
        return EXIT_SUCCESS;
    }
    if (!plan.calls.empty() && !options.yes && (manner.style != Style::Text || isatty(STDIN_FILENO) == 0))
        throw Misuse("apply asks before it changes anything, and nobody is there to answer: --yes does it in advance");
    if (!plan.calls.empty() && manner.style == Style::Text)
        show_plan(output, plan, before, document);
    if (!plan.calls.empty() && !options.yes && !is_agreed_to(output, plan.calls.size()))
        throw Failure("nothing was done", "", 0, "");
    const Outcome outcome = carry_out(module, plan, document, manner.order);
    if (!outcome.why_not) {
        end_in_success(output, outcome, manner);
        return EXIT_SUCCESS;
    }
    std::optional<Remains> remains;
    if (options.rollback) {
        remains = roll_back(module, before, scope, manner.order);
        for (const Call& call : outcome.done)
            if (const auto loss = with_bridges.find(words_of(call)); loss != with_bridges.end())
                remains->losses.insert(loss->second);
    }
    end_in_failure(output, outcome, remains, manner);
}

int graph(std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    demand_words(words, 0, 1, "[INSTANCE]");
    const Scope scope {words.size() > 1 ? words[1] : "", Statistics::Included};
    const Value state = read_state(scope, manner.order);
    refuse_missing(state, scope, "graph " + scope.instance);
    const std::string text = graph_of(state);
    output.write(options.svg ? drawn(text) : text);
    output.flush();
    return EXIT_SUCCESS;
}

} // namespace

bool is_state_command(std::string_view word)
{
    return word == "save" || word == "diff" || word == "apply" || word == "graph";
}

std::string help_of_state_commands()
{
    return "The state as a whole:\n"
           "  save FILE                   writes it to a file, - for standard output: --instance, --statistics\n"
           "  diff FILE [FILE]            how it, or another file, differs from a file\n"
           "  apply FILE                  makes it what a file says: --yes, --dry-run, --rollback\n"
           "  graph [INSTANCE]            draws it, in the language of dot or with --svg\n";
}

int run_state_command(
    std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output)
{
    if (words.front() == "save")
        return save(words, options, manner, output);
    if (words.front() == "apply")
        return apply(words, options, manner, output);
    if (words.front() == "graph")
        return graph(words, options, manner, output);
    return diff(words, manner, output);
}

} // namespace tool
