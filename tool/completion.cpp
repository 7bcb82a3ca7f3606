#include "tool/completion.h"

#include "tool/grammar.h"
#include "tool/lists.h"
#include "tool/mistakes.h"
#include "tool/names.h"
#include "tool/own_verbs.h"
#include "tool/pattern.h"
#include "tool/rates.h"
#include "tool/records.h"
#include "tool/words.h"

#include <algorithm>
#include <fmt/format.h>

namespace tool {
namespace {

// The values that options take, where they are few.
struct Values
{
    std::string_view option;
    std::string_view values;
};

constexpr Values option_values[] {
    {"-o", "wide raw"},
    {"--address-order", "network host"},
};

class Completion
{
public:
    Completion(std::span<const std::string> words, std::span<const OptionWords> options)
        : _options(options), _current(words.back())
    {
        // Options stand anywhere: what is left are the words of the command.
        for (const std::string& word : words.first(words.size() - 1)) {
            const bool is_value = !_pending.empty();
            _pending = {};
            if (const OptionWords* const option = _options_are_ended ? nullptr : find(word))
                _pending = option->takes_value ? std::string_view(word) : std::string_view();
            else if (word == "--" && !_options_are_ended)
                _options_are_ended = true;
            else if (_options_are_ended || (!is_value && !word.starts_with('-')))
                _words.push_back(word);
        }
        if (own_verb() && own_verb()->name == "help")
            _words.erase(_words.begin());
        if (const OwnVerb* const own = own_verb())
            _words.front() = own->name;
    }

    std::vector<Candidate> run()
    {
        if (!_pending.empty())
            complete_value(_pending);
        else if (_current.starts_with('-') && !_options_are_ended)
            complete_option();
        else if (_words.empty())
            complete_object();
        else if (_words.front() == "call")
            complete_call();
        else if (_words.front() == "watch")
            complete_watch();
        else if (_words.front() == "graph" && _words.size() == 1)
            offer_names(Verb {}, "instance", {}, "");
        else if (!own_verb())
            complete_verb();
        return std::move(_candidates);
    }

private:
    const OwnVerb* own_verb() const { return _words.empty() ? nullptr : find_own_verb(_words.front()); }

    const OptionWords* find(std::string_view name) const
    {
        const auto found = std::ranges::find_if(_options,
            [&](const OptionWords& option) { return std::ranges::find(option.names, name) != option.names.end(); });
        return found == _options.end() ? nullptr : &*found;
    }

    void offer(std::string word, std::string_view brief)
    {
        if (word.starts_with(_current) && std::ranges::find(_candidates, word, &Candidate::word) == _candidates.end())
            _candidates.push_back({std::move(word), brief});
    }

    void complete_value(std::string_view option)
    {
        for (const Values& values : option_values)
            if (values.option == option)
                for (const std::string_view value : split(values.values, ' '))
                    offer(std::string(value), "");
        if (option == "--fields" || option == "--filter")
            complete_field();
        else if (option == "--instance")
            offer_names(Verb {}, "instance", {}, "");
    }

    // Of several with commas between them, the last.
    void complete_field()
    {
        const std::vector<const Verb*> verbs = whole_verbs();
        if (verbs.empty())
            return;
        const std::size_t comma = _current.rfind(',');
        const std::string before = comma == std::string::npos ? "" : _current.substr(0, comma + 1);
        if (const Record* const record = record_of(*find_operation(verbs.front()->operation)))
            for (const Member& member : record->members)
                offer(before + std::string(member.name), "");
    }

    // Those that the words that there are do not refuse.
    void complete_option()
    {
        for (const OptionWords& option : _options)
            if (_words.empty() || std::ranges::all_of(option.names, [&](auto& name) { return is_taken(name); }))
                for (const std::string& name : option.names)
                    offer(name, option.brief);
    }

    bool is_taken(std::string_view option) const
    {
        if (own_verb() || !takes_option(nullptr, option))
            return takes_option(own_verb(), option);
        const std::vector<const Verb*> verbs = whole_verbs();
        if (verbs.empty())
            return true;
        const Operation& operation = *find_operation(verbs.front()->operation);
        if (option == "--rates" || option == "--interval")
            return has_rates(operation);
        if (option == "--fields" || option == "--filter")
            return record_of(operation);
        return option != "-6" || std::ranges::any_of(verbs, &Verb::is_ipv6);
    }

    void complete_object()
    {
        for (const Object& object : known_objects())
            offer(std::string(object.name), object.brief);
        for (const OwnVerb& verb : own_verbs)
            offer(std::string(verb.name), verb.brief);
    }

    void complete_call()
    {
        if (_words.size() == 1) {
            const std::string_view prefix = _current.starts_with(function_prefix) ? function_prefix : "";
            for (const Operation& operation : operations())
                offer(fmt::format("{}{}", prefix, operation.name), operation.brief);
            return;
        }
        const Operation* const operation = find_function(_words[1]);
        if (!operation)
            return;
        std::vector<Given> given;
        for (const std::string& word : std::span(_words).subspan(2)) {
            const std::size_t equals = std::min(word.find('='), word.size());
            given.push_back({word.substr(0, equals), word.substr(std::min(equals + 1, word.size()))});
        }
        for (const Parameter& parameter : operation->parameters) {
            const std::string name = std::string(parameter.name) + "=";
            if (std::ranges::find(given, parameter.name, &Given::name) != given.end())
                continue;
            if (!_current.starts_with(name))
                offer(name, parameter.summary);
            else if (const Verb* const verb = verb_of(*operation))
                offer_names(*verb, parameter.name, given, name);
        }
    }

    void complete_watch()
    {
        const std::size_t equals = _current.find('=');
        for (const Object& object : known_objects()) {
            const std::vector<const Verb*> verbs = lists_of_object(object.name);
            if (!verbs.empty() && equals == std::string::npos)
                offer(std::string(object.name), object.brief);
            if (equals == std::string::npos || find_object(_current.substr(0, equals)) != &object)
                continue;
            for (const Verb* const verb : verbs)
                for (const std::string& parameter : Pattern(verb->form).demanded())
                    offer_names(*verb, parameter, {}, _current.substr(0, equals + 1));
        }
    }

    void complete_verb()
    {
        const std::vector<const Verb*> verbs = whole_verbs();
        if (verbs.empty()) {
            for (const Verb* const verb : verbs_under(_words)) {
                const std::vector<std::string_view> words = split(verb->words, ' ');
                const bool is_last = words.size() == _words.size() + 1;
                offer(std::string(words[_words.size()]), is_last ? find_operation(verb->operation)->brief : "");
            }
            return;
        }
        const auto rest = std::span(_words).subspan(split(verbs.front()->words, ' ').size());
        bool wants_value = false;
        for (const Verb* const verb : verbs) {
            const Pattern::Expected expected = Pattern(verb->form).expected_after(rest);
            wants_value = wants_value || !expected.value.empty();
            if (!expected.value.empty())
                offer_names(*verb, expected.value, expected.given, "");
        }
        if (wants_value)
            return;
        for (const Verb* const verb : verbs)
            for (const std::string_view keyword : Pattern(verb->form).expected_after(rest).keywords)
                offer(std::string(keyword), find_operation(verb->operation)->brief);
    }

    // Those whose words have all been typed.
    std::vector<const Verb*> whole_verbs() const
    {
        for (std::size_t length = 1; length <= _words.size(); ++length) {
            std::vector<const Verb*> verbs = verbs_under(std::span(_words).first(length));
            if (!verbs.empty() && split(verbs.front()->words, ' ').size() == length)
                return verbs;
        }
        return {};
    }

    static const Verb* verb_of(const Operation& operation)
    {
        for (const Object& object : known_objects())
            for (const Verb& verb : object.verbs)
                if (verb.operation == operation.name)
                    return &verb;
        return nullptr;
    }

    void offer_names(
        const Verb& verb, std::string_view parameter, std::span<const Given> given, const std::string& before)
    {
        const Source* const source = find_source(verb, parameter);
        if (!source)
            return;
        try {
            Names names(AddressOrder::Network);
            // Ahead of -- one that begins with a hyphen would be taken for an option.
            for (const std::string& name : names.from(*source, given))
                if (_options_are_ended || !(before + name).starts_with('-'))
                    offer(before + name, "");
        } catch (const std::runtime_error&) {
            // Nobody asked for a message here.
            return;
        }
    }

    std::span<const OptionWords> _options;
    const std::string& _current;
    bool _options_are_ended = false;
    std::string_view _pending; // the option whose value is completed
    std::vector<std::string> _words;
    std::vector<Candidate> _candidates;
};

} // namespace

std::vector<Candidate> candidates(std::span<const std::string> words, std::span<const OptionWords> options)
{
    if (words.empty())
        return {};
    return Completion(words, options).run();
}

} // namespace tool
