// lumozephctl: shows and changes the state of the module, for operators.
#include "tool/batch.h"
#include "tool/carrying_out.h"
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
#include "tool/words.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace tool;

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
    std::string unknown_option;
    // If help is wanted.
    std::string help_of_options;
    std::vector<OptionWords> known_options;
};

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

struct Formatter : CLI::Formatter
{
    std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override
    {
        return "Usage: lumozephctl [OPTIONS] OBJECT VERB ...\n"
               "       lumozephctl [OPTIONS] call FUNCTION [NAME=VALUE...]\n"
               "       lumozephctl [OPTIONS] batch FILE\n"
               "       lumozephctl [OPTIONS] raw NUMBER\n"
               "       lumozephctl [OPTIONS] watch OBJECT[=NAME]...\n"
               "       lumozephctl [OPTIONS] metrics [TARGET...]\n"
               "       lumozephctl [OPTIONS] save|diff|apply FILE\n"
               "       lumozephctl [OPTIONS] graph [INSTANCE]\n";
    }
};

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

bool takes(std::string_view options, std::string_view option)
{
    const std::vector<std::string_view> all = split(options, ' ');
    return std::ranges::find(all, option) != all.end();
}

// An option that would say nothing.
void refuse_options_of_others(const CommandLine& line, const std::string& word)
{
    const OwnVerb* const own = find_own_verb(word);
    for (const std::string& option : line.options_given) {
        if (takes(own ? own->options : options_of_objects, option))
            continue;
        const auto owner =
            std::ranges::find_if(own_verbs, [&](const OwnVerb& one) { return takes(one.options, option); });
        if (takes(options_of_objects, option))
            throw Misuse(fmt::format("{} takes no {}", word, option));
        throw Misuse(fmt::format("{} belongs to {}", option, owner->name));
    }
    if (!line.interval.empty() && !line.rates && word != "watch")
        throw Misuse("--interval belongs to watch and to --rates");
}

// Not even with the help: what was mistyped may be what was wanted.
void refuse_unknown_option(const CommandLine& line)
{
    if (!line.unknown_option.empty())
        throw Misuse(line.unknown_option);
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
    refuse_options_of_others(line, words.front());
    if (words.front() == "batch")
        throw Misuse("a batch within a batch");
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
    refuse_options_of_others(line, line.words.front());
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
        refuse_unknown_option(line);
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

// What is wrong with the value of an option; nothing if it is right.
std::string wrong_time(const std::string& text)
{
    try {
        parse_time(text);
        return {};
    } catch (const Misuse& misuse) {
        return misuse.what();
    }
}

std::string wrong_number(const std::string& text, std::uint64_t least, std::size_t size)
{
    try {
        if (parse_number(text, size) >= least)
            return {};
    } catch (const Misuse& misuse) {
        if (least == 0)
            return misuse.what();
    }
    return fmt::format("'{}' is not a number of at least {}", text, least);
}

std::string wrong_count(const std::string& text)
{
    return wrong_number(text, 1, sizeof(std::size_t));
}

std::string wrong_size(const std::string& text)
{
    return wrong_number(text, 0, sizeof(std::uint32_t));
}

// Takes a command line apart. What it does not say is as in the one that it is given.
class Parser
{
public:
    explicit Parser(CommandLine line) : _line(std::move(line))
    {
        Manner& manner = _line.manner;
        _app.set_help_flag();
        const auto formatter = std::make_shared<Formatter>();
        formatter->column_width(34);
        _app.formatter(formatter);
        _app.allow_extras();
        _app.add_flag("--version", _line.wants_version, "the version");
        _app.add_flag("-h,--help", _line.wants_help, "this help, or that of an object, a verb or a function");
        _app.add_flag("-j,--json", _json, "JSON, with the field names of lumozeph.h");
        _app.add_flag("--json-pretty", _indented_json, "the same, indented");
        _app.add_option(
                "-o", _output_form, "wide: all fields, whatever the width of the terminal; raw: bytes as they are")
            ->check(CLI::IsMember({"wide", "raw"}));
        _app.add_option("--fields", manner.fields, "only these fields, with commas between them")->type_name("NAMES");
        _app.add_option("--filter", manner.filters, "only what fulfils FIELD==VALUE, or !=, <, <=, >, >=, ~ (contains)")
            ->type_name("CONDITION")
            ->allow_extra_args(false);
        _app.add_option(
                "--address-order", _address_order, "how the module keeps IPv4 addresses: network (default) or host")
            ->check(CLI::IsMember({"network", "host"}));
        _app.add_flag("-6", _line.prefer_ipv6, "IPv6, where the words do not say it");
        _app.add_option(
                "--timeout", _line.timeout, "the time after which a call that hangs is given up: 5 (seconds), 500ms")
            ->type_name("TIME")
            ->check(wrong_time);
        _app.add_flag("--dry-run", _line.dry_run, "show what would be sent, and send nothing");
        _app.add_flag("--keep-going", _line.keep_going, "batch: go on after a command that failed");
        _app.add_flag("--rates", _line.rates, "of statistics: read twice, and show how much they count a second");
        _app.add_option("--interval", _line.interval, "watch, --rates: the time between reads: 1s (default), 500ms, 2m")
            ->type_name("TIME")
            ->check(wrong_time);
        _app.add_option("--count", _line.terms.count, "watch: end after so many events")
            ->type_name("NUMBER")
            ->check(wrong_count);
        _app.add_option("--duration", _line.duration, "watch: end after this time")
            ->type_name("TIME")
            ->check(wrong_time);
        _app.add_flag("--timestamps", _line.terms.timestamps, "watch: say when each event was seen");
        _app.add_option("--output", _line.metrics.file, "metrics: the file that is replaced by them")
            ->type_name("FILE");
        _app.add_option("--state", _line.metrics.state, "metrics: a file; how much is not as it says is counted")
            ->type_name("FILE");
        _app.add_flag("--openmetrics", _line.openmetrics, "metrics: in the format of OpenMetrics");
        _app.add_option("--request", _line.raw.request_file, "raw: the file that has the command's input")
            ->type_name("FILE");
        _app.add_option("--reply-size", _line.raw.reply_size, "raw: the room for its reply in bytes")
            ->type_name("NUMBER")
            ->check(wrong_size);
        _app.add_option("--instance", _line.state.instance, "save: only this instance")->type_name("INSTANCE");
        _app.add_flag("--statistics", _line.state.statistics, "save: with counters and states of sessions");
        _app.add_flag("--yes", _line.state.yes, "apply: without asking");
        _app.add_flag("--rollback", _line.state.rollback, "apply: undo it if it fails");
        _app.add_flag("--svg", _line.state.svg, "graph: as SVG, which dot draws");
    }

    // Throws CLI::ParseError.
    CommandLine parse(std::vector<std::string> arguments)
    {
        // Behind it, all are words.
        const auto end_of_options = std::ranges::find(arguments, "--");
        std::vector<std::string> front(std::make_reverse_iterator(end_of_options), arguments.rend());
        _app.parse(front);
        Manner& manner = _line.manner;
        _line.words = _app.remaining();
        note_unknown_option();
        note_options_given();
        if (end_of_options != arguments.end())
            _line.words.insert(_line.words.end(), end_of_options + 1, arguments.end());
        note_own_verb();
        if (_json || _indented_json)
            manner.style = _indented_json ? Style::IndentedJson : Style::Json;
        if (!_output_form.empty()) {
            manner.wide = _output_form == "wide";
            manner.raw = _output_form == "raw";
        }
        if (!_address_order.empty())
            manner.order = _address_order == "host" ? AddressOrder::Host : AddressOrder::Network;
        if (_line.wants_help) {
            _line.help_of_options = _app.help();
            _line.known_options = options();
        }
        return std::move(_line);
    }

    std::vector<OptionWords> options() const
    {
        std::vector<OptionWords> all;
        for (const CLI::Option* const option : _app.get_options()) {
            OptionWords words {{}, option->get_description(), option->get_expected_max() > 0, option->get_type_name()};
            for (const std::string& name : option->get_snames())
                words.names.push_back("-" + name);
            for (const std::string& name : option->get_lnames())
                words.names.push_back("--" + name);
            all.push_back(std::move(words));
        }
        return all;
    }

    // Of a line that makes no sense, too.
    Style style() const
    {
        const bool is_json = _app.count("--json") + _app.count("--json-pretty") > 0;
        return is_json ? Style::Json : _line.manner.style;
    }

private:
    void note_unknown_option()
    {
        const auto is_option = [](const std::string& word) {
            return word.size() > 1 && word[0] == '-' && std::isdigit(static_cast<unsigned char>(word[1])) == 0;
        };
        const auto unknown = std::ranges::find_if(_line.words, is_option);
        if (unknown == _line.words.end())
            return;
        const std::vector<OptionWords> all = options();
        std::vector<std::string_view> names;
        for (const OptionWords& option : all)
            names.insert(names.end(), option.names.begin(), option.names.end());
        const std::string name = unknown->substr(0, unknown->find('='));
        const std::string meant = name.starts_with("--") ? nearest(name, names) : "";
        _line.unknown_option = fmt::format("unknown option '{}'{}", name,
            meant.empty() ? "; lumozephctl --help lists them, and -- comes before names that begin so" : meant);
    }

    void note_options_given()
    {
        for (const CLI::Option* const option : _app.get_options())
            if (const std::string name = option->get_single_name(); option->count() > 0 && belongs_to_some("--" + name))
                _line.options_given.push_back("--" + name);
    }

    static bool belongs_to_some(const std::string& option)
    {
        return std::ranges::any_of(own_verbs, [&](const OwnVerb& verb) { return takes(verb.options, option); });
    }

    void note_own_verb()
    {
        std::vector<std::string>& words = _line.words;
        if (!words.empty() && words.front() == "help") {
            words.erase(words.begin());
            _line.wants_help = true;
        }
        if (const OwnVerb* const own = words.empty() ? nullptr : find_own_verb(words.front()))
            words.front() = own->name;
    }

    CLI::App _app {"Shows and changes the state of the host's router and bridge.", "lumozephctl"};
    CommandLine _line;
    bool _json = false;
    bool _indented_json = false;
    std::string _output_form;
    std::string _address_order;
};

template <class Action>
int take_apart(const CommandLine& general, std::vector<std::string> arguments, Action action)
{
    Parser parser(general);
    CommandLine line;
    try {
        line = parser.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        line = general;
        line.manner.style = parser.style();
        complain(complaint(line, error.what()));
        return misused;
    }
    return action(line);
}

// Its options hold for all of its lines.
int run_batch(const CommandLine& line)
{
    refuse_unknown_option(line);
    refuse_options_of_others(line, "batch");
    CommandLine general = line;
    general.words.clear();
    std::erase(general.options_given, "--keep-going");
    Batch batch(only_word(line.words, "a file"));
    int status = EXIT_SUCCESS;
    while ((status == EXIT_SUCCESS || line.keep_going) && batch.advance()) {
        general.place = batch.place();
        const int one = attempt(general, [&] {
            std::vector<std::string> words = words_of(batch.line());
            return words.empty() ? EXIT_SUCCESS : take_apart(general, std::move(words), run_safely);
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
int complete(std::vector<std::string> words)
{
    if (!words.empty() && words.front() == "--")
        words.erase(words.begin());
    // A shell that waits is worse than one that does not know.
    constexpr std::chrono::duration<double> patience {2};
    const Deadline deadline(patience, failed);
    const std::vector<OptionWords> options = Parser({}).options();
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
        if (argc > 1 && std::string_view(argv[1]) == "complete")
            return complete({argv + 2, argv + argc});
        CommandLine general;
        general.manner.columns = columns_of_terminal();
        // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
        const char* const no_color = std::getenv("NO_COLOR");
        general.manner.bold = isatty(STDOUT_FILENO) != 0 && (!no_color || *no_color == '\0');
        const int status = take_apart(general, {argv + 1, argv + argc}, run_any);
        // Nothing is taken down around a call that hangs.
        if (calls_given_up() > 0)
            _exit(status);
        return status;
    } catch (const std::exception& exception) {
        static_cast<void>(std::fprintf(stderr, "lumozephctl: %s\n", exception.what()));
        return failed;
    }
}
