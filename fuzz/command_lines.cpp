// What people type: words, values and conditions are understood, or refused in a line that says why.
#include "expect.h"
#include "input.h"

#include "tool/batch.h"
#include "tool/binding.h"
#include "tool/command_line.h"
#include "tool/filter.h"
#include "tool/grammar.h"
#include "tool/mistakes.h"
#include "tool/values.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace fuzz {

namespace {

template <class Action>
void attempt(Action action)
{
    try {
        action();
    } catch (const tool::Misuse& misuse) {
        if (std::string_view(misuse.what()).empty())
            fail("a refusal without a reason");
    }
}

tool::AddressOrder order_in(Input& input)
{
    return input.byte() % 2 == 0 ? tool::AddressOrder::Network : tool::AddressOrder::Host;
}

// A line of a batch, as far as the call of the library.
void understand_line(Input& input)
{
    const tool::AddressOrder order = order_in(input);
    const bool prefer_ipv6 = input.byte() % 2 == 0;
    attempt([&] {
        for (const tool::Step& step : tool::understand(tool::words_of(input.rest()), prefer_ipv6))
            tool::arguments_of(*step.operation, step.given, tool::Completeness::OrElseNothing, order);
    });
}

// Values for any operation, as `call` takes them: a line for each parameter.
void bind_values(Input& input)
{
    const tool::AddressOrder order = order_in(input);
    const auto operations = tool::operations();
    const tool::Operation& operation = operations[input.byte() % operations.size()];
    now_reading(operation.name);
    std::vector<tool::Given> given;
    std::string_view rest = input.rest();
    for (const tool::Parameter& parameter : operation.parameters) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        given.push_back({std::string(parameter.name), std::string(rest.substr(0, end))});
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    attempt([&] { tool::arguments_of(operation, given, tool::Completeness::Demanded, order); });
}

// A condition, on a record of any bytes.
void filter_record(Input& input)
{
    const tool::AddressOrder order = order_in(input);
    const auto records = tool::records();
    const tool::Record& record = *records[input.byte() % records.size()];
    now_reading(record.name);
    const std::string condition(input.bytes(input.byte()));
    std::string bytes(input.rest());
    bytes.resize(record.size);
    attempt([&] {
        const tool::Filter filter(condition, record, order);
        filter.matches(std::as_bytes(std::span(bytes)).data());
    });
}

// Options and words: what is a word stays one, in its order, and nothing becomes one.
void take_apart(Input& input)
{
    attempt([&] {
        std::vector<std::string> arguments = tool::words_of(input.rest());
        arguments.insert(arguments.begin(), "instance"); // the first word may be short for another
        const tool::CommandLine line = tool::command_line_of({}, arguments);
        attempt([&] { tool::refuse_mistakes(line); });
        if (!line.mistake.empty())
            return;
        if (!line.words.empty())
            attempt([&] { tool::refuse_options_of_others(line); });
        const auto options_end = std::find(arguments.begin(), arguments.end(), "--");
        const auto behind = static_cast<std::size_t>(std::distance(options_end, arguments.end()));
        if (behind > 1 &&
            (line.words.size() < behind - 1 || !std::equal(line.words.end() - static_cast<std::ptrdiff_t>(behind - 1),
                                                   line.words.end(), options_end + 1)))
            fail("words behind the options that are gone");
        if (line.words.size() > arguments.size())
            fail("words that nobody typed");
    });
}

void read_time(Input& input)
{
    attempt([&] {
        if (!(tool::parse_time(input.rest()).count() > 0))
            fail("a time that does not pass");
    });
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::now_reading("command line");
    fuzz::Input input(data, size);
    switch (input.byte() % 8) {
    case 0:
        fuzz::read_time(input);
        break;
    case 7:
        fuzz::take_apart(input);
        break;
    case 1:
    case 2:
        fuzz::filter_record(input);
        break;
    case 3:
    case 4:
        fuzz::bind_values(input);
        break;
    default:
        fuzz::understand_line(input);
    }
    return 0;
}
