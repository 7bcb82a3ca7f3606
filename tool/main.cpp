// lumozephctl: shows and changes the state of the module, for operators.
#include "tool/batch.h"
#include "tool/carrying_out.h"
#include "tool/command_line.h"
#include "tool/completion.h"
#include "tool/deadline.h"
#include "tool/dry_run.h"
#include "tool/failures.h"
#include "tool/grammar.h"
#include "tool/help.h"
#include "tool/members.h"
#include "tool/metrics.h"
#include "tool/mistakes.h"
#include "tool/output.h"
#include "tool/own_verbs.h"
#include "tool/patience.h"
#include "tool/printer.h"
#include "tool/rates.h"
#include "tool/raw.h"
#include "tool/spelling.h"
#include "tool/state/commands.h"
#include "tool/watch.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace tool;

std::size_t columns_of_terminal()
{
    winsize size {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0)
        return 0;
    return size.ws_col;
}

std::string as_json(
    std::string_view place, std::string_view message, std::string_view operation, int error, std::string_view advice)
{
    nlohmann::ordered_json object {{"error", message}};
    if (!place.empty())
        object["place"] = place;
    if (!operation.empty())
        object["operation"] = operation;
    if (error != 0) {
        object["errno"] = name_of(error);
        object["number"] = error;
    }
    if (!advice.empty())
        object["advice"] = advice;
    return object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string complaint(const CommandLine& line, std::string_view message, std::string_view operation = {}, int error = 0,
    std::string_view advice = {})
{
    if (line.manner.style != Style::Text)
        return as_json(line.place, message, operation, error, advice);
    // In one line, whatever was typed, and nothing that a terminal would obey.
    return fmt::format("lumozephctl: {}{}{}{}{}\n", printable(line.place), line.place.empty() ? "" : ": ",
        printable(message), advice.empty() ? "" : ": ", advice);
}

const Operation& function_named(const std::string& name)
{
    if (const Operation* const operation = find_function(name))
        return *operation;
    std::vector<std::string_view> names;
    for (const Operation& operation : operations())
        names.push_back(operation.name);
    throw Misuse(fmt::format("unknown function '{}'{}", name, nearest(without_prefix(name), names)));
}

Step call_of(std::span<const std::string> words)
{
    if (words.empty())
        throw Misuse("which function? lumozephctl call --help lists them");
    Step step {nullptr, &function_named(words.front()), {}};
    for (const std::string& word : words.subspan(1)) {
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos)
            throw Misuse(fmt::format("'{}' is not NAME=VALUE", word));
        step.given.push_back({word.substr(0, equals), word.substr(equals + 1)});
    }
    return step;
}

std::string help(const CommandLine& line, std::span<const std::string> words)
{
    if (words.empty())
        return line.help_of_options + "\n" + help_of_state_commands() + "\n" + help_of_objects();
    const OwnVerb* const own = find_own_verb(words.front());
    if (!own)
        return help_of_verbs(words);
    if (own->name != "call")
        return help_of_own_verb(*own, line.known_options);
    return words.size() == 1 ? help_of_functions() : help_of_function(function_named(words[1]));
}

const std::string& only_word(std::span<const std::string> words, std::string_view what)
{
    if (words.size() < 2)
        throw Misuse(fmt::format("{} needs {}", words.front(), what));
    if (words.size() > 2)
        throw Misuse(fmt::format("'{}' is not expected here", words[2]));
    return words[1];
}

WatchTerms terms_of(const CommandLine& line)
{
    WatchTerms terms = line.terms;
    if (!line.interval.empty())
        terms.interval = parse_time(line.interval);
    if (!line.duration.empty())
        terms.duration = parse_time(line.duration);
    return terms;
}

void run(const CommandLine& line, Output& output)
{
    const std::span<const std::string> words(line.words);
    if (line.wants_help) {
        output.write(help(line, words));
        return output.flush();
    }
    if (line.wants_version) {
        output.write(LUMOZEPH_VERSION "\n");
        return output.flush();
    }
    if (words.empty())
        throw Misuse("nothing to do; lumozephctl --help says what there is");
    refuse_options_of_others(line);
    if (words.front() == "batch")
        throw Misuse("a batch within a batch");
    if (words.front() == "complete")
        throw Misuse("complete stands first, and -- before the words");
    if (words.front() == "raw") {
        RawCommand command = line.raw;
        command.number = only_word(words, "the number of a command");
        return issue(command, line.dry_run ? Sending::OnlyShown : Sending::Done, line.manner, output);
    }
    if (words.front() == "watch")
        return watch(words.subspan(1), terms_of(line), line.manner, output);
    if (words.front() == "metrics") {
        if (line.manner.style != Style::Text)
            throw Misuse("metrics has formats of its own, and JSON is none of them");
        MetricsTerms terms = line.metrics;
        terms.exposition = line.openmetrics ? Exposition::OpenMetrics : Exposition::PrometheusText;
        return export_metrics(words.subspan(1), terms, line.manner.order, output);
    }
    const std::vector<Step> steps =
        words.front() == "call" ? std::vector<Step> {call_of(words.subspan(1))} : understand(words, line.prefer_ipv6);
    if (line.dry_run)
        show_requests(steps, line.manner, output);
    else if (line.rates)
        show_rates(steps, terms_of(line).interval, line.manner, output);
    else
        carry_out(steps, line.manner, output);
}

bool is_about_state(const CommandLine& line)
{
    return !line.wants_help && !line.wants_version && !line.words.empty() && is_state_command(line.words.front());
}

int run_about_state(const CommandLine& line, Output& output)
{
    refuse_options_of_others(line);
    StateOptions options = line.state;
    options.dry_run = line.dry_run;
    return run_state_command(line.words, options, line.manner, output);
}

void complain(const std::string& message)
{
    // Where even that cannot be written, the exit status must do.
    static_cast<void>(std::fputs(message.c_str(), stderr));
}

// 1 is that of a difference.
int status_of_failure(const CommandLine& line)
{
    return !line.words.empty() && line.words.front() == "diff" ? misused : failed;
}

// Says what goes wrong, and returns the exit status.
template <class Action>
int attempt(const CommandLine& line, Action action)
{
    try {
        return action();
    } catch (const Misuse& misuse) {
        complain(complaint(line, misuse.what()));
        return misused;
    } catch (const Failure& failure) {
        complain(complaint(line, failure.what(), failure.operation, failure.number, failure.advice));
        return status_of_failure(line);
    } catch (const std::bad_alloc&) {
        complain(complaint(line, "out of memory"));
        return status_of_failure(line);
    }
}

int run_safely(const CommandLine& line)
{
    return attempt(line, [&] {
        refuse_mistakes(line);
        Output output;
        std::optional<Patience> patience;
        if (!line.timeout.empty())
            patience.emplace(parse_time(line.timeout));
        if (is_about_state(line))
            return run_about_state(line, output);
        run(line, output);
        return EXIT_SUCCESS;
    });
}

// Its options hold for all of its lines.
int run_batch(const CommandLine& line)
{
    refuse_mistakes(line);
    refuse_options_of_others(line);
    CommandLine general = line;
    general.words.clear();
    // What says how is for those of its lines that it means something to.
    for (const char* const option : {"--keep-going", "-o", "--address-order", "-6"})
        std::erase(general.options_given, option);
    Batch batch(only_word(line.words, "a file"));
    int status = EXIT_SUCCESS;
    while ((status == EXIT_SUCCESS || line.keep_going) && batch.advance()) {
        general.place = batch.place();
        const int one = attempt(general, [&] {
            std::vector<std::string> words = words_of(batch.line());
            return words.empty() ? EXIT_SUCCESS : run_safely(command_line_of(general, std::move(words)));
        });
        if (one != EXIT_SUCCESS)
            status = failed;
    }
    return status;
}

int run_any(const CommandLine& line)
{
    const bool is_batch =
        !line.wants_help && !line.wants_version && !line.words.empty() && line.words.front() == "batch";
    return is_batch ? attempt(line, [&] { return run_batch(line); }) : run_safely(line);
}

// For the scripts by which shells complete: a candidate a line, what it is behind a tab.
int complete(const std::vector<std::string>& words)
{
    // A shell that waits is worse than one that does not know.
    constexpr std::chrono::duration<double> patience {2};
    const Deadline deadline(patience, failed);
    const std::vector<OptionWords> options = known_options();
    Output output;
    for (const Candidate& candidate : candidates(words, options))
        output.format("{}\t{}\n", printable(candidate.word), candidate.brief);
    output.flush();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    // A reader that has seen enough is not worth a message.
    static_cast<void>(std::signal(SIGPIPE, SIG_DFL));
    try {
        if (argc > 2 && std::string_view(argv[1]) == "complete" && std::string_view(argv[2]) == "--")
            return complete({argv + 3, argv + argc});
        CommandLine general;
        general.manner.columns = columns_of_terminal();
        // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
        const char* const no_color = std::getenv("NO_COLOR");
        general.manner.bold = isatty(STDOUT_FILENO) != 0 && (!no_color || *no_color == '\0');
        const int status = run_any(command_line_of(general, {argv + 1, argv + argc}));
        // Nothing is taken down around a call that hangs.
        if (calls_given_up() > 0)
            _exit(status);
        return status;
    } catch (const std::exception& exception) {
        static_cast<void>(std::fprintf(stderr, "lumozephctl: %s\n", exception.what()));
        return failed;
    }
}
