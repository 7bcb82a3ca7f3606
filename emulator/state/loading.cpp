#include "emulator/state/loading.h"

#include <algorithm>

namespace emulator::description {

namespace {

[[noreturn]] void fail(json::Position position, const std::string& expected, std::string_view found)
{
    // What it says ends with the first zero.
    std::string shown;
    for (const char character : found)
        shown += character == '\0' ? std::string("\\u0000") : std::string(1, character);
    throw json::Error(position, "expected " + expected + ", not '" + shown + "'");
}

// The two numbers of "A..B" or "A*B".
std::optional<std::array<std::uint64_t, 2>> two_numbers(std::string_view text, std::string_view between)
{
    const std::size_t middle = text.find(between);
    if (middle == std::string_view::npos)
        return std::nullopt;
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    const auto first = notation::number(text.substr(0, middle), largest);
    const auto second = notation::number(text.substr(middle + between.size()), largest);
    if (!first || !second)
        return std::nullopt;
    return std::array {*first, *second};
}

// Of a text that is an address.
std::string text_further(const std::string& text, std::uint64_t further, json::Position position)
{
    std::optional<MacAddress> mac = notation::mac(text);
    if (mac)
        mac = notation::further(*mac, further);
    if (!mac)
        fail(position, "a MAC address where {+N} is, or no {+N}", text);
    return notation::of_mac(*mac);
}

} // namespace

Filled fill(const std::string& text, const std::optional<Repetition>& repetition, json::Position position)
{
    Filled filled;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t brace = std::min(rest.find_first_of("{}"), rest.size());
        filled.text += rest.substr(0, brace);
        rest.remove_prefix(brace);
        if (rest.empty())
            break;
        if (rest.substr(0, 2) == "{{" || rest.substr(0, 2) == "}}") {
            filled.text += rest[0];
            rest.remove_prefix(2);
            continue;
        }
        const std::size_t end = rest.find('}');
        const std::string_view inside = rest.substr(1, std::max<std::size_t>(end, 1) - 1);
        const auto step = inside.substr(0, 1) == "+"
                              ? notation::number(inside.substr(1), std::numeric_limits<std::uint32_t>::max())
                              : std::nullopt;
        const bool is_last = end != std::string_view::npos && end + 1 == rest.size();
        if (!repetition || end == std::string_view::npos || rest[0] == '}' || (inside != "i" && !(step && is_last)))
            fail(position, "{i}, or {+N} at the end, where something is repeated; a brace itself is doubled", text);
        if (step) {
            filled.further = *step * repetition->index;
            filled.place = filled.text.size();
        } else
            filled.text += std::to_string(repetition->number);
        rest.remove_prefix(end + 1);
    }
    return filled;
}

KeyExpansion::KeyExpansion(const std::string& key, const std::optional<Repetition>& outer, json::Position position)
    : before_(key), outer_(outer), position_(position)
{
    for (std::size_t at = 0; at < key.size(); ++at) {
        if (key[at] != '{' && key[at] != '}')
            continue;
        if (key.substr(at, 2) == "{{" || key.substr(at, 2) == "}}") {
            ++at;
            continue;
        }
        const std::size_t end = key.find('}', at);
        if (end == std::string::npos)
            return; // which is wrong
        const std::string inside = key.substr(at + 1, end - at - 1);
        if (const auto numbers = two_numbers(inside, "..")) {
            kind_ = Kind::Numbers;
            first_ = (*numbers)[0];
            if ((*numbers)[1] < first_ || (*numbers)[1] - first_ >= most_repetitions)
                fail(position, "a range of at most 10000000 numbers", inside);
            count_ = (*numbers)[1] - first_ + 1;
        } else if (const auto steps = inside[0] == '+' ? two_numbers(inside.substr(1), "*") : std::nullopt) {
            kind_ = Kind::Addresses;
            step_ = (*steps)[0];
            count_ = (*steps)[1];
            if (count_ > most_repetitions || step_ > std::numeric_limits<std::uint32_t>::max())
                fail(position, "at most 10000000 entries", inside);
        } else {
            continue; // what is filled in, or wrong
        }
        before_ = key.substr(0, at);
        after_ = key.substr(end + 1);
        return;
    }
}

ExpandedKey KeyExpansion::operator[](std::uint64_t index) const
{
    if (kind_ == Kind::Single)
        return {fill(before_, outer_, position_), outer_};
    const Repetition own {index, kind_ == Kind::Numbers ? first_ + index : index};
    Filled whole = fill(before_, own, position_);
    if (kind_ == Kind::Numbers) {
        whole.text += std::to_string(own.number);
    } else {
        whole.further = step_ * index;
        whole.place = whole.text.size();
    }
    const Filled after = fill(after_, own, position_);
    if (after.further != 0) {
        if (whole.further != 0)
            fail(position_, "one thing in a key that goes on", before_ + "..." + after_);
        whole.further = after.further;
        whole.place = whole.text.size() + after.place;
    }
    whole.text += after.text;
    return {whole, own};
}

std::string_view LoadedKey::next()
{
    const std::size_t space = std::min(rest_.find(' '), rest_.size());
    const std::string_view part = rest_.substr(0, space);
    if (part.empty())
        fail("a key of more parts", key_.text);
    if (space + 1 == rest_.size())
        fail("no space at the end", key_.text);
    rest_.remove_prefix(std::min(space + 1, rest_.size()));
    return part;
}

std::uint64_t LoadedKey::further_of(std::string_view part)
{
    const std::string_view whole = key_.text;
    const auto begin = static_cast<std::size_t>(part.data() - whole.data());
    const bool is_within = key_.place > begin && key_.place <= begin + part.size();
    return is_within ? std::exchange(key_.further, 0) : 0;
}

void LoadedKey::check_length(const std::string& text, std::size_t longest) const
{
    if (text.size() > longest || text.find('\0') != std::string::npos)
        fail("at most " + std::to_string(longest) + " bytes, none of them zero", text);
}

void LoadedKey::fail(const std::string& expected, std::string_view found, std::uint64_t further) const
{
    const std::string on = further == 0 ? "" : " and " + std::to_string(further) + " further";
    description::fail(position_, expected, std::string(found) + on);
}

void LoadedKey::text(std::string& text, std::size_t longest)
{
    const std::string_view part = next();
    text.clear();
    for (std::size_t i = 0; part != "-" && i < part.size(); ++i) {
        if (part[i] != '%') {
            text += part[i];
            continue;
        }
        const std::string_view code = part.substr(i, 3);
        if (code != "%20" && code != "%25" && code != "%2d")
            fail("%20, %25 or %2d", part);
        text += code == "%20" ? ' ' : code == "%25" ? '%' : '-';
        i += 2;
    }
    if (const std::uint64_t further = further_of(part); further != 0)
        text = text_further(text, further, position_);
    check_length(text, longest);
}

void LoadedKey::prefix(std::uint32_t& address, std::uint32_t& mask)
{
    const std::string_view text = next();
    const std::size_t slash = std::min(text.find('/'), text.size());
    const auto read = notation::ipv4(text.substr(0, slash));
    const auto read_mask = notation::mask(text.substr(std::min(slash + 1, text.size())));
    if (!read || !read_mask)
        fail("an IPv4 address with the length of its prefix, as 10.0.0.0/8", text);
    address = moved(*read, text);
    mask = *read_mask;
}

void LoadedKey::prefix(Ipv6Address& address, std::uint8_t& length)
{
    const std::string_view text = next();
    const std::size_t slash = std::min(text.find('/'), text.size());
    const auto read = notation::ipv6(text.substr(0, slash));
    const auto read_length = notation::number(text.substr(std::min(slash + 1, text.size())), 255);
    if (!read || !read_length)
        fail("an IPv6 address with the length of its prefix, as 2001:db8::/32", text);
    address = moved(*read, text);
    length = static_cast<std::uint8_t>(*read_length);
}

Loading::Loading(State& state, const json::Value& value, std::optional<Repetition> repetition)
    : state_(state), object_(object_in(value)), repetition_(repetition)
{}

const json::Value* Loading::member(const char* name)
{
    known_.emplace_back(name);
    return json::find(object_, name);
}

void Loading::finish() const
{
    for (const json::Member& member : object_)
        if (std::find(known_.begin(), known_.end(), member.name) == known_.end()) {
            std::string names;
            for (const std::string_view name : known_)
                names.append(names.empty() ? "" : ", ").append(name);
            fail(member.position, names.empty() ? "no members" : "one of " + names, member.name);
        }
}

Filled Loading::filled_in(const json::Value& value) const
{
    const std::string* const text = value.text();
    if (text == nullptr)
        throw json::Error(value.position, "expected a text");
    return fill(*text, repetition_, value.position);
}

std::uint64_t Loading::number_in(const json::Value& value, std::uint64_t largest) const
{
    const bool is_filled = repetition_ && value.text() != nullptr;
    const Filled filled = is_filled                   ? filled_in(value)
                          : value.number() != nullptr ? Filled {json::plain(value.number()->digits)}
                                                      : Filled {};
    const auto number = notation::number(filled.text, largest);
    if (!number || filled.further > largest - *number)
        throw json::Error(value.position, "expected a number from 0 to " + std::to_string(largest));
    return *number + filled.further;
}

Time Loading::time_in(const json::Value& value) const
{
    const auto time = value.number() != nullptr ? notation::time(json::plain(value.number()->digits)) : std::nullopt;
    if (!time)
        throw json::Error(value.position,
            "expected seconds, from 0 to " + std::to_string(longest_time.count()) + ", with at most 9 decimals");
    return *time;
}

void Loading::bytes_in(const json::Value& value, std::span<std::byte> to) const
{
    if (!notation::bytes(filled_in(value).text, to))
        throw json::Error(
            value.position, "expected " + std::to_string(to.size()) + " bytes, of two hexadecimal digits each");
}

std::size_t Loading::choice_in(const json::Value& value, const std::vector<std::string>& names) const
{
    const std::string text = filled_in(value).text;
    const auto found = std::find(names.begin(), names.end(), text);
    if (found == names.end())
        fail(value.position, "'" + names[0] + "' or '" + names[1] + "'", text);
    return static_cast<std::size_t>(found - names.begin());
}

const json::Array& Loading::array_in(const json::Value& value, std::size_t most)
{
    if (value.array() == nullptr || value.array()->size() > most)
        throw json::Error(value.position, "expected an array of at most " + std::to_string(most) + " elements");
    return *value.array();
}

const json::Object& Loading::object_in(const json::Value& value)
{
    if (value.object() == nullptr)
        throw json::Error(value.position, "expected an object");
    return *value.object();
}

void Loading::text(const char* name, std::string& value, std::size_t longest)
{
    const json::Value* const written = member(name);
    if (written == nullptr)
        return;
    const Filled filled = filled_in(*written);
    value = filled.further == 0 ? filled.text : text_further(filled.text, filled.further, written->position);
    if (value.size() > longest || value.find('\0') != std::string::npos)
        fail(written->position, "at most " + std::to_string(longest) + " bytes, none of them zero", value);
}

void Loading::flag(const char* name, bool& value)
{
    const json::Value* const written = member(name);
    if (written == nullptr)
        return;
    if (written->truth() == nullptr)
        throw json::Error(written->position, "expected true or false");
    value = *written->truth();
}

void Loading::ipv4(const char* name, std::uint32_t& address)
{
    const json::Value* const written = member(name);
    if (written == nullptr)
        return;
    const Filled filled = filled_in(*written);
    LoadedKey key(filled, written->position);
    key.ipv4(address);
    key.finish();
}

void Loading::prefix(const char* name, std::uint32_t& address, std::uint32_t& mask)
{
    const json::Value* const written = member(name);
    if (written == nullptr)
        return;
    const Filled filled = filled_in(*written);
    LoadedKey key(filled, written->position);
    key.prefix(address, mask);
    key.finish();
}

void Loading::mac(const char* name, MacAddress& address)
{
    const json::Value* const written = member(name);
    if (written == nullptr)
        return;
    const Filled filled = filled_in(*written);
    LoadedKey key(filled, written->position);
    key.mac(address);
    key.finish();
}

void Loading::duration(const char* name, std::chrono::seconds& value, std::chrono::seconds fallback)
{
    const json::Value* const written = member(name);
    value = written == nullptr
                ? fallback
                : std::chrono::seconds(static_cast<std::int64_t>(number_in(*written, longest_time.count())));
}

void Loading::age(const char* name, Time& since, std::chrono::seconds fallback)
{
    const json::Value* const written = member(name);
    since = state_.stopwatch.now() - (written == nullptr ? Time(fallback) : time_in(*written));
}

void Loading::learned(const char* name, std::optional<Time>& seen)
{
    if (const json::Value* written = member(name))
        seen = state_.stopwatch.now() - time_in(*written);
}

void Loading::deletions(const char* name, std::vector<Time>& ends)
{
    if (const json::Value* written = member(name))
        for (const json::Value& end : array_in(*written, most_repetitions))
            ends.push_back(state_.stopwatch.now() + time_in(end));
}

void Loading::counters(const char* name, Counters& counters, std::uint32_t places)
{
    const json::Value* const written = member(name);
    if (written == nullptr)
        return;
    for (const json::Member& member : object_in(*written)) {
        const KeyExpansion keys(member.name, repetition_, member.position);
        for (std::uint64_t i = 0; i < keys.size(); ++i) {
            const auto place = notation::number(keys[i].key.text, places - 1);
            if (!place)
                fail(member.position, "the place of a counter from 0 to " + std::to_string(places - 1), member.name);
            Loading inner(state_, member.value, keys[i].repetition);
            Counter counter;
            inner.number("value", counter.value);
            inner.number("rate", counter.rate);
            inner.number("billionths", counter.billionths);
            if (counter.billionths > most_billionths)
                throw json::Error(member.position, "expected billionths from 0 to " + std::to_string(most_billionths));
            inner.finish();
            counter.since = state_.stopwatch.now();
            counters.set(static_cast<std::uint32_t>(*place), counter);
        }
    }
}

} // namespace emulator::description
