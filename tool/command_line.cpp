#include "tool/command_line.h"

#include "tool/grammar.h"
#include "tool/mistakes.h"
#include "tool/own_verbs.h"
#include "tool/spelling.h"
#include "tool/values.h"
#include "tool/words.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace tool {
namespace {

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

std::string wrong_fields(const std::string& text)
{
    return split(text, ',').empty() ? "it names no field" : "";
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
            ->type_name("wide|raw")
            ->check(CLI::IsMember({"wide", "raw"}).description(""));
        _app.add_option("--fields", manner.fields, "only these fields, with commas between them")
            ->type_name("NAMES")
            ->check(wrong_fields);
        _app.add_option("--filter", manner.filters, "only what fulfils FIELD==VALUE, or !=, <, <=, >, >=, ~ (contains)")
            ->type_name("CONDITION")
            ->allow_extra_args(false);
        _app.add_option(
                "--address-order", _address_order, "how the module keeps IPv4 addresses: network (default) or host")
            ->type_name("network|host")
            ->check(CLI::IsMember({"network", "host"}).description(""));
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
        _app.add_flag("--statistics", _line.state.statistics, "save: with counters, states of sessions and UUIDs");
        _app.add_flag("--yes", _line.state.yes, "apply: without asking");
        _app.add_flag("--rollback", _line.state.rollback, "apply: undo it if it fails");
        _app.add_flag("--svg", _line.state.svg, "graph: as SVG, which dot draws");
    }

    // Throws CLI::ParseError.
    CommandLine parse(std::vector<std::string> arguments)
    {
        // Behind it, all are words.
        const auto end_of_options = std::ranges::find(arguments, "--");
        const std::vector<std::string> front(std::make_reverse_iterator(end_of_options), arguments.rend());
        _app.parse(std::vector<std::string>(front));
        Manner& manner = _line.manner;
        _line.words = _app.remaining();
        note_unknown_option(front);
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
    void note_unknown_option(std::span<const std::string> arguments)
    {
        const auto is_option = [](const std::string& word) {
            return word.size() > 1 && word[0] == '-' && std::isdigit(static_cast<unsigned char>(word[1])) == 0;
        };
        const auto unknown = std::ranges::find_if(_line.words, is_option);
        if (unknown == _line.words.end())
            return;
        // Such is what is left of -j=1.
        if (unknown->starts_with("-=")) {
            const std::string_view rest = std::string_view(*unknown).substr(1);
            const auto whole = std::ranges::find_if(
                arguments, [rest](const std::string& word) { return word.starts_with('-') && word.ends_with(rest); });
            _line.mistake = fmt::format("'{}': this option takes no value", *whole);
            return;
        }
        const std::vector<OptionWords> all = options();
        std::vector<std::string_view> names;
        for (const OptionWords& option : all)
            names.insert(names.end(), option.names.begin(), option.names.end());
        const std::string name = unknown->substr(0, unknown->find('='));
        const std::string meant = name.starts_with("--") ? nearest(name, names) : "";
        _line.mistake = fmt::format("unknown option '{}'{}", name,
            meant.empty() ? "; lumozephctl --help lists them, and -- comes before names that begin so" : meant);
    }

    void note_options_given()
    {
        for (const CLI::Option* const option : _app.get_options())
            if (const std::string name = (option->get_lnames().empty() ? "-" : "--") + option->get_single_name();
                option->count() > 0 && !is_option_of_all(name))
                _line.options_given.push_back(name);
    }

    void note_own_verb()
    {
        name_own_verb();
        std::vector<std::string>& words = _line.words;
        if (words.empty() || words.front() != "help")
            return;
        words.erase(words.begin());
        _line.wants_help = true;
        name_own_verb();
    }

    void name_own_verb()
    {
        std::vector<std::string>& words = _line.words;
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

bool was_given(const CommandLine& line, std::string_view option)
{
    return std::ranges::find(line.options_given, option) != line.options_given.end();
}

void refuse_one_family(std::span<const std::string> words)
{
    const std::vector<const Verb*> verbs = verbs_named_by(words);
    const bool is_one_verb = verbs.front()->words == verbs.back()->words;
    if (is_one_verb && std::ranges::none_of(verbs, &Verb::is_ipv6))
        throw Misuse(fmt::format("{} takes no -6", verbs.front()->words));
}

} // namespace

CommandLine command_line_of(const CommandLine& general, std::vector<std::string> arguments)
{
    Parser parser(general);
    try {
        return parser.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        CommandLine line = general;
        line.manner.style = parser.style();
        line.mistake = error.what();
        return line;
    }
}

// Even where help is wanted: what was mistyped may be what was wanted.
void refuse_mistakes(const CommandLine& line)
{
    if (!line.mistake.empty())
        throw Misuse(line.mistake);
}

void refuse_options_of_others(const CommandLine& line)
{
    const std::string& verb = line.words.front();
    const OwnVerb* const own = find_own_verb(verb);
    for (const std::string& option : line.options_given) {
        if (takes_option(own, option))
            continue;
        if (takes_option(nullptr, option))
            throw Misuse(fmt::format("{} takes no {}", verb, option));
        const auto owner =
            std::ranges::find_if(own_verbs, [&](const OwnVerb& one) { return takes_option(&one, option); });
        throw Misuse(fmt::format("{} belongs to {}", option, owner->name));
    }
    if (verb == "raw" && line.manner.wide && was_given(line, "-o"))
        throw Misuse("raw takes no -o wide");
    if (!own && was_given(line, "-6"))
        refuse_one_family(line.words);
    if (!line.interval.empty() && !line.rates && verb != "watch")
        throw Misuse("--interval belongs to watch and to --rates");
}

std::vector<OptionWords> known_options()
{
    return Parser({}).options();
}

} // namespace tool
