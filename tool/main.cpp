// lumozephctl: shows and changes the state of the module, for operators.
#include "tool/carrying_out.h"
#include "tool/deadline.h"
#include "tool/failures.h"
#include "tool/grammar.h"
#include "tool/help.h"
#include "tool/mistakes.h"
#include "tool/output.h"
#include "tool/printer.h"
#include "tool/spelling.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
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
    bool prefer_ipv6 = false;
    bool wants_help = false;
    double timeout = 0;
};

std::size_t columns_of_terminal()
{
    winsize size {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0)
        return 0;
    return size.ws_col;
}

std::string as_json(std::string_view message, std::string_view operation, int error, std::string_view advice)
{
    nlohmann::ordered_json object {{"error", message}};
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

std::string complaint(
    Style style, std::string_view message, std::string_view operation = {}, int error = 0, std::string_view advice = {})
{
    if (style != Style::Text)
        return as_json(message, operation, error, advice);
    return fmt::format("lumozephctl: {}{}{}\n", message, advice.empty() ? "" : ": ", advice);
}

const Operation& function_named(const std::string& name)
{
    if (const Operation* const operation = find_operation(name))
        return *operation;
    std::vector<std::string_view> names;
    for (const Operation& operation : operations())
        names.push_back(operation.name);
    throw Misuse(fmt::format("unknown function '{}'{}", name, nearest(name, names)));
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
               "       lumozephctl [OPTIONS] call FUNCTION [NAME=VALUE...]\n";
    }
};

std::string help(const CLI::App& app, std::span<const std::string> words)
{
    if (words.empty())
        return app.help() + "\n" + help_of_objects();
    if (words.front() != "call")
        return help_of_verbs(words);
    return words.size() == 1 ? help_of_functions() : help_of_function(function_named(words[1]));
}

void run(const CLI::App& app, const CommandLine& line, Output& output)
{
    const std::span<const std::string> words(line.words);
    if (line.wants_help) {
        output.write(help(app, words));
        return output.flush();
    }
    if (words.empty())
        throw Misuse("nothing to do; lumozephctl --help says what there is");
    if (words.front().starts_with('-'))
        throw Misuse(fmt::format("unknown option '{}'; lumozephctl --help says what there is", words.front()));
    if (words.front() == "call") {
        const Step step = call_of(words.subspan(1));
        return carry_out({&step, 1}, line.manner, output);
    }
    carry_out(understand(words, line.prefer_ipv6), line.manner, output);
}

void complain(const std::string& message)
{
    // Where even that cannot be written, the exit status must do.
    static_cast<void>(std::fputs(message.c_str(), stderr));
}

int run_safely(const CLI::App& app, const CommandLine& line)
{
    const Style style = line.manner.style;
    try {
        Output output;
        if (line.timeout > 0)
            end_after(std::chrono::duration<double>(line.timeout),
                complaint(style, fmt::format("no answer within {} seconds", line.timeout)));
        run(app, line, output);
        return EXIT_SUCCESS;
    } catch (const Misuse& misuse) {
        complain(complaint(style, misuse.what()));
        return misused;
    } catch (const Failure& failure) {
        complain(complaint(style, failure.what(), failure.operation, failure.number, failure.advice));
        return failed;
    } catch (const std::bad_alloc&) {
        complain(complaint(style, "out of memory"));
        return failed;
    }
}

int understand_and_run(int argc, char** argv)
{
    CommandLine line;
    Manner& manner = line.manner;
    CLI::App app("Shows and changes the state of the host's router and bridge.", "lumozephctl");
    app.set_help_flag();
    app.set_version_flag("--version", LUMOZEPH_VERSION, "the version");
    const auto formatter = std::make_shared<Formatter>();
    formatter->column_width(34);
    app.formatter(formatter);
    bool json = false;
    bool indented_json = false;
    std::string output_form;
    std::string address_order = "network";
    app.allow_extras();
    app.add_flag("-h,--help", line.wants_help, "this help, or that of an object or a function");
    app.add_flag("-j,--json", json, "JSON, with the field names of lumozeph.h");
    app.add_flag("--json-pretty", indented_json, "the same, indented");
    app.add_option("-o", output_form, "wide: all fields, whatever the width of the terminal")
        ->check(CLI::IsMember({"wide"}));
    app.add_option("--fields", manner.fields, "only these fields, with commas between them");
    app.add_option("--filter", manner.filters, "only what fulfils FIELD==VALUE, or !=, <, <=, >, >=, ~ (contains)")
        ->allow_extra_args(false);
    app.add_option("--address-order", address_order, "how the module keeps IPv4 addresses: network (default) or host")
        ->check(CLI::IsMember({"network", "host"}));
    app.add_flag("-6", line.prefer_ipv6, "IPv6, where the words do not say it");
    app.add_option("--timeout", line.timeout, "seconds after which a call that hangs is given up")
        ->check(CLI::PositiveNumber);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error);
        complain(fmt::format("lumozephctl: {}\n", error.what()));
        return misused;
    }
    line.words = app.remaining();
    if (json || indented_json)
        manner.style = indented_json ? Style::IndentedJson : Style::Json;
    manner.wide = output_form == "wide";
    manner.order = address_order == "host" ? AddressOrder::Host : AddressOrder::Network;
    manner.columns = columns_of_terminal();
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
    const char* const no_color = std::getenv("NO_COLOR");
    manner.bold = isatty(STDOUT_FILENO) != 0 && (!no_color || *no_color == '\0');
    return run_safely(app, line);
}

} // namespace

int main(int argc, char** argv)
{
    // A reader that has seen enough is not worth a message.
    static_cast<void>(std::signal(SIGPIPE, SIG_DFL));
    try {
        return understand_and_run(argc, argv);
    } catch (const std::exception& exception) {
        static_cast<void>(std::fprintf(stderr, "lumozephctl: %s\n", exception.what()));
        return failed;
    }
}
