#include "tool/grammar.h"

#include "tool/mistakes.h"
#include "tool/objects/objects.h"
#include "tool/own_verbs.h"
#include "tool/pattern.h"
#include "tool/spelling.h"
#include "tool/words.h"

#include <algorithm>
#include <arpa/inet.h>
#include <fmt/format.h>
#include <iterator>
#include <optional>

namespace tool {
namespace {

bool looks_like_ipv6(const std::string& word)
{
    in6_addr address {};
    return inet_pton(AF_INET6, word.substr(0, word.find('/')).c_str(), &address) == 1;
}

bool any_looks_like_ipv6(std::span<const std::string> words)
{
    return std::ranges::any_of(words, looks_like_ipv6);
}

// The verbs whose words these are, and how many they are. Of several that a shortened word may mean, it means the first.
class VerbPath
{
public:
    explicit VerbPath(std::span<const std::string> words)
    {
        for (const Object& object : known_objects())
            for (const Verb& verb : object.verbs)
                _verbs.push_back(&verb);
        while (_length < words.size() && !is_whole() && step(words[_length]))
            ++_length;
    }

    std::size_t length() const { return _length; }
    const std::vector<const Verb*>& verbs() const { return _verbs; }
    bool is_whole() const { return _length > 0 && split(_verbs.front()->words, ' ').size() == _length; }

    std::vector<std::string_view> next_words() const
    {
        std::vector<std::string_view> words;
        for (const Verb* const verb : _verbs)
            if (const std::string_view word = split(verb->words, ' ')[_length];
                std::ranges::find(words, word) == words.end())
                words.push_back(word);
        return words;
    }

private:
    bool step(const std::string& word)
    {
        const std::vector<std::string_view> known = next_words();
        auto found = std::ranges::find(known, word);
        if (found == known.end() && !word.empty())
            found = std::ranges::find_if(known, [&](std::string_view one) { return one.starts_with(word); });
        if (found == known.end())
            return false;
        const std::string_view meant = *found;
        std::erase_if(_verbs, [&](const Verb* verb) { return split(verb->words, ' ')[_length] != meant; });
        return true;
    }

    std::vector<const Verb*> _verbs;
    std::size_t _length = 0;
};

Step step(const Verb& verb, std::vector<Given> given)
{
    const Operation* const operation = find_operation(verb.operation);
    for (const std::string_view one : split(verb.implied, ' ')) {
        const std::size_t equals = one.find('=');
        const std::string name(one.substr(0, equals));
        if (std::ranges::find(given, name, &Given::name) == given.end())
            given.push_back({name, std::string(one.substr(equals + 1))});
    }
    return {&verb, operation, std::move(given)};
}

[[noreturn]] void refuse(const std::string& word, std::span<const std::string_view> known)
{
    throw Misuse(fmt::format("'{}' is not expected here{}", word, nearest(word, known)));
}

std::string_view keyword_of(const Verb& verb)
{
    return Pattern(verb.form).keywords().front();
}

// A LIF has many IPv6 addresses, and one of everything else.
void refuse_beside(const Verb& verb, const Verb& other)
{
    if (&verb == &other && !verb.is_ipv6)
        throw Misuse(fmt::format("'{}' is given twice", keyword_of(verb)));
    if (keyword_of(verb) == other.excludes)
        throw Misuse(fmt::format("'{}' and '{}' exclude each other", keyword_of(other), keyword_of(verb)));
}

Step one_of(std::span<const Verb* const> verbs, std::span<const std::string> words, bool prefer_ipv6)
{
    const bool is_ipv6 = prefer_ipv6 || any_looks_like_ipv6(words);
    const auto meant = std::ranges::find(verbs, is_ipv6, &Verb::is_ipv6);
    const Verb& verb = meant == verbs.end() ? *verbs.front() : **meant;
    const Pattern pattern(verb.form);
    Pattern::Match places = pattern.match_places(words);
    const Pattern::Match keywords = pattern.match_keywords(words.subspan(places.words));
    const std::size_t end = places.words + keywords.words;
    if (end < words.size() && !pattern.keyword_meant(words[end]).empty())
        throw Misuse(fmt::format("'{}' is given twice", pattern.keyword_meant(words[end])));
    if (end < words.size())
        refuse(words[end], pattern.keywords());
    std::ranges::copy(keywords.given, std::back_inserter(places.given));
    return step(verb, std::move(places.given));
}

std::vector<Step> several_of(std::span<const Verb* const> verbs, std::span<const std::string> words)
{
    const Pattern::Match places = Pattern(verbs.front()->form).match_places(words);
    std::vector<Step> steps;
    std::vector<std::string_view> known;
    for (std::size_t at = places.words; at < words.size();) {
        std::size_t taken = 0;
        std::optional<Misuse> unfinished;
        for (const Verb* const verb : verbs) {
            const Pattern pattern(verb->form);
            std::ranges::copy(pattern.keywords(), std::back_inserter(known));
            const std::string_view keyword = pattern.keywords().front();
            if (!keyword.starts_with(words[at]) || taken > 0)
                continue;
            Pattern::Match match;
            try {
                match = pattern.match_keywords(words.subspan(at));
            } catch (const Misuse& misuse) {
                if (!unfinished)
                    unfinished = misuse;
                continue;
            }
            if (any_looks_like_ipv6(words.subspan(at, match.words)) != verb->is_ipv6)
                continue;
            for (const Step& other : steps)
                refuse_beside(*verb, *other.verb);
            taken = match.words;
            std::vector<Given> given = places.given;
            std::ranges::copy(match.given, std::back_inserter(given));
            steps.push_back(step(*verb, std::move(given)));
        }
        if (taken == 0 && unfinished)
            throw Misuse(*unfinished);
        if (taken == 0)
            refuse(words[at], known);
        at += taken;
    }
    if (steps.empty())
        throw Misuse("nothing is said to be changed");
    return steps;
}

void refuse_unknown_word(const VerbPath& path, std::span<const std::string> words)
{
    if (path.is_whole() || path.length() == words.size())
        return;
    std::vector<std::string_view> known = path.next_words();
    if (path.length() == 0)
        std::ranges::transform(own_verbs, std::back_inserter(known), &OwnVerb::name);
    const std::string& word = words[path.length()];
    throw Misuse(fmt::format("unknown word '{}'{}", word, nearest(word, known)));
}

} // namespace

std::vector<Step> understand(std::span<const std::string> words, bool prefer_ipv6)
{
    const VerbPath path(words);
    if (!path.is_whole()) {
        refuse_unknown_word(path, words);
        throw Misuse(fmt::format("a word is missing: one of {}", fmt::join(path.next_words(), ", ")));
    }
    const auto rest = words.subspan(path.length());
    if (path.verbs().front()->joins)
        return several_of(path.verbs(), rest);
    return {one_of(path.verbs(), rest, prefer_ipv6)};
}

std::vector<const Verb*> verbs_named_by(std::span<const std::string> words)
{
    const VerbPath path(words);
    refuse_unknown_word(path, words);
    return path.verbs();
}

std::vector<const Verb*> verbs_under(std::span<const std::string> words)
{
    const VerbPath path(words);
    return path.length() == words.size() ? path.verbs() : std::vector<const Verb*> {};
}

const OwnVerb* find_own_verb(std::string_view word)
{
    const auto begins = [word](std::string_view name) { return name.starts_with(word); };
    const auto exact = std::ranges::find(own_verbs, word, &OwnVerb::name);
    if (exact != std::end(own_verbs))
        return exact;
    if (word.empty() || std::ranges::any_of(known_objects(), begins, &Object::name))
        return nullptr;
    const auto found = std::ranges::find_if(own_verbs, begins, &OwnVerb::name);
    return found == std::end(own_verbs) ? nullptr : found;
}

bool takes_option(const OwnVerb* verb, std::string_view option)
{
    const std::vector<std::string_view> options = split(verb ? verb->options : options_of_objects, ' ');
    return std::ranges::find(options, option) != options.end() || is_option_of_all(option);
}

bool is_option_of_all(std::string_view option)
{
    return std::ranges::none_of(own_verbs, [option](const OwnVerb& verb) {
        const std::vector<std::string_view> options = split(verb.options, ' ');
        return std::ranges::find(options, option) != options.end();
    });
}

const Object* find_object(std::string_view word)
{
    const auto exact = std::ranges::find(all_objects, word, &Object::name);
    const auto found =
        exact != std::end(all_objects) || word.empty()
            ? exact
            : std::ranges::find_if(
                  all_objects, [word](std::string_view name) { return name.starts_with(word); }, &Object::name);
    return found == std::end(all_objects) ? nullptr : &*found;
}

std::span<const Object> known_objects()
{
    return all_objects;
}

} // namespace tool
