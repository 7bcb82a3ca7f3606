#include "tool/help.h"

#include "tool/grammar.h"
#include "tool/words.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace tool {
namespace {

std::string two_columns(const std::vector<std::pair<std::string, std::string_view>>& rows)
{
    constexpr std::size_t widest = 40;
    std::size_t width = 0;
    for (const auto& [left, right] : rows)
        if (left.size() <= widest)
            width = std::max(width, left.size());
    std::string text;
    for (const auto& [left, right] : rows)
        text += left.size() <= width ? fmt::format("  {:{}}  {}\n", left, width, right)
                                     : fmt::format("  {}\n  {:{}}  {}\n", left, "", width, right);
    return text;
}

} // namespace

std::string help_of_objects()
{
    std::vector<std::pair<std::string, std::string_view>> rows;
    for (const Object& object : known_objects())
        rows.emplace_back(object.name, object.brief);
    return "Objects:\n" + two_columns(rows);
}

std::string help_of_functions()
{
    std::vector<std::pair<std::string, std::string_view>> rows;
    for (const Operation& operation : operations())
        rows.emplace_back(operation.name, operation.brief);
    return two_columns(rows);
}

std::string help_of_function(const Operation& operation)
{
    std::string usage = fmt::format("usage: lumozephctl call {}", operation.name);
    std::vector<std::pair<std::string, std::string_view>> rows;
    for (const Parameter& parameter : operation.parameters) {
        usage += parameter.may_be_left_out ? fmt::format(" [{}=...]", parameter.name)
                                           : fmt::format(" {}=...", parameter.name);
        rows.emplace_back(parameter.name, parameter.summary);
    }
    return fmt::format("{}\n\n{}\n{}{}", usage, operation.brief, rows.empty() ? "" : "\n", two_columns(rows));
}

std::string help_of_own_verb(const OwnVerb& verb, std::span<const OptionWords> options)
{
    std::vector<std::pair<std::string, std::string_view>> rows;
    for (const std::string_view name : split(verb.options, ' ')) {
        const auto option = std::ranges::find_if(
            options, [name](const OptionWords& one) { return std::ranges::find(one.names, name) != one.names.end(); });
        // Whose it is goes without saying.
        std::string_view brief = option->brief;
        if (std::ranges::any_of(own_verbs, [brief](const OwnVerb& one) { return brief.starts_with(one.name); }))
            brief.remove_prefix(brief.find(": ") + 2);
        rows.emplace_back(fmt::format("{}{}{}", name, option->takes_value ? " " : "", option->value), brief);
    }
    return fmt::format("usage: lumozephctl {} {}{}\n\n{}.\n{}{}\nlumozephctl --help has the options that all take.\n"
                       "An example: lumozephctl {}\n",
        verb.name, verb.form, rows.empty() ? "" : " [OPTIONS]", verb.brief, rows.empty() ? "" : "\n", two_columns(rows),
        verb.example);
}

std::string help_of_verbs(std::span<const std::string> words)
{
    const std::vector<const Verb*> verbs = verbs_named_by(words);
    std::vector<std::pair<std::string, std::string_view>> rows;
    rows.reserve(verbs.size());
    for (const Verb* const verb : verbs)
        rows.emplace_back(fmt::format("{}{}{}", verb->words, verb->form.empty() ? "" : " ", verb->form),
            find_operation(verb->operation)->brief);
    return two_columns(rows);
}

} // namespace tool
