#include "tool/pattern.h"

#include "tool/mistakes.h"
#include "tool/words.h"

#include <algorithm>
#include <fmt/format.h>

namespace tool {
namespace {

std::string_view next_word(std::string_view& form)
{
    form.remove_prefix(std::min(form.find_first_not_of(' '), form.size()));
    const std::string_view word = form.substr(0, form.find(' '));
    form.remove_prefix(word.size());
    return word;
}

std::string_view without(std::string_view word, char first, char last)
{
    if (word.starts_with(first))
        word.remove_prefix(1);
    if (word.ends_with(last))
        word.remove_suffix(1);
    return word;
}

} // namespace

Pattern::Pattern(std::string_view form)
{
    while (true) {
        std::string_view word = next_word(form);
        if (word.empty())
            return;
        const bool is_optional = word.starts_with('[');
        word = without(word, '[', ']');
        if (word.starts_with('<')) {
            _places.push_back({{}, without(word, '<', '>'), is_optional});
            continue;
        }
        std::string_view rest = form;
        std::string_view value = next_word(rest);
        if (value.starts_with('<')) {
            form = rest;
            value = without(without(value, '[', ']'), '<', '>');
        } else {
            value = {};
        }
        _keywords.push_back({word, value, is_optional});
    }
}

Pattern::Match Pattern::match_places(std::span<const std::string> words) const
{
    Match match;
    for (const Part& place : _places) {
        if (match.words == words.size()) {
            if (place.is_optional)
                break;
            throw Misuse(fmt::format("<{}> is missing", place.value));
        }
        give(match.given, place.value, words[match.words++]);
    }
    return match;
}

Pattern::Match Pattern::match_keywords(std::span<const std::string> words) const
{
    Match match;
    std::vector<const Part*> seen;
    while (match.words < words.size()) {
        const std::string& word = words[match.words];
        const auto found = find_keyword(word);
        if (found == _keywords.end() || std::ranges::find(seen, &*found) != seen.end())
            break;
        seen.push_back(&*found);
        ++match.words;
        if (found->value.empty())
            continue;
        if (match.words == words.size())
            throw Misuse(fmt::format("<{}> is missing behind '{}'", found->value, found->keyword));
        give(match.given, found->value, words[match.words++]);
    }
    for (const Part& part : _keywords)
        if (!part.is_optional && std::ranges::find(seen, &part) == seen.end())
            throw Misuse(part.value.empty() ? fmt::format("'{}' is missing", part.keyword)
                                            : fmt::format("{} <{}> is missing", part.keyword, part.value));
    return match;
}

Pattern::Expected Pattern::expected_after(std::span<const std::string> words) const
{
    Expected expected;
    const std::size_t places = std::min(words.size(), _places.size());
    for (std::size_t i = 0; i < places; ++i)
        give(expected.given, _places[i].value, words[i]);
    if (places < _places.size()) {
        expected.value = _places[places].value;
        return expected;
    }
    std::vector<const Part*> left;
    for (const Part& part : _keywords)
        left.push_back(&part);
    for (std::size_t i = places; i < words.size(); ++i) {
        const auto found =
            std::ranges::find_if(left, [&](const Part* part) { return part->keyword.starts_with(words[i]); });
        if (found == left.end() || words[i].empty())
            continue;
        const Part& part = **found;
        left.erase(found);
        if (part.value.empty())
            continue;
        if (++i == words.size()) {
            expected.value = part.value;
            return expected;
        }
        give(expected.given, part.value, words[i]);
    }
    for (const Part* const part : left)
        expected.keywords.push_back(part->keyword);
    return expected;
}

std::vector<std::string> Pattern::parameters() const
{
    std::vector<std::string> names;
    for (const auto* parts : {&_places, &_keywords})
        for (const Part& part : *parts)
            name_parameters(names, part);
    return names;
}

std::vector<std::string> Pattern::demanded() const
{
    std::vector<std::string> names;
    for (const auto* parts : {&_places, &_keywords})
        for (const Part& part : *parts)
            if (!part.is_optional)
                name_parameters(names, part);
    return names;
}

void Pattern::name_parameters(std::vector<std::string>& names, const Part& part)
{
    for (const std::string_view name : split(part.value, '/'))
        names.emplace_back(name);
}

std::vector<std::string_view> Pattern::keywords() const
{
    std::vector<std::string_view> words;
    for (const Part& part : _keywords)
        words.push_back(part.keyword);
    return words;
}

std::string_view Pattern::keyword_meant(std::string_view word) const
{
    const auto found = find_keyword(word);
    return found == _keywords.end() ? std::string_view() : found->keyword;
}

std::vector<Pattern::Part>::const_iterator Pattern::find_keyword(std::string_view word) const
{
    const auto exact = std::ranges::find(_keywords, word, &Part::keyword);
    if (exact != _keywords.end() || word.empty())
        return exact;
    return std::ranges::find_if(_keywords, [word](const Part& part) { return part.keyword.starts_with(word); });
}

// An address may be written without the length of its prefix: it is then one host.
void Pattern::give(std::vector<Given>& given, std::string_view parameter, const std::string& value)
{
    const std::size_t between = parameter.find('/');
    if (between == std::string_view::npos) {
        given.push_back({std::string(parameter), value});
        return;
    }
    const std::string first(parameter.substr(0, between));
    const std::string second(parameter.substr(between + 1));
    const bool is_ipv6 = second == "prefixLen";
    const std::string prefix = value != "default" ? value : is_ipv6 ? "::/0" : "0.0.0.0/0";
    const std::size_t slash = prefix.find('/');
    given.push_back({first, prefix.substr(0, slash)});
    given.push_back({second, slash != std::string::npos ? prefix.substr(slash + 1) : is_ipv6 ? "128" : "32"});
}

} // namespace tool
