// Writes what descriptions describe. What is as it is anyway is left out.
#pragma once

#include "emulator/state/json.h"
#include "emulator/state/notation.h"

#include <algorithm>
#include <charconv>

namespace emulator::description {

// In a key of several parts, a space in a text is written %20, and % itself %25; a text that is empty is "-". What stands in
// braces would be repeated: a brace is doubled.
class SavedKey
{
public:
    void name(const std::string& text, std::size_t) { add(doubled(text)); }

    void text(const std::string& text, std::size_t)
    {
        std::string escaped;
        for (const char character : text)
            escaped += character == ' ' ? "%20" : character == '%' ? "%25" : std::string(1, character);
        add(escaped.empty() ? "-" : escaped == "-" ? "%2d" : doubled(escaped));
    }

    template <class Integer>
    void number(Integer value)
    {
        add(std::to_string(value));
    }

    void ipv4(std::uint32_t address) { add(notation::of_ipv4(address)); }
    void ipv6(const Ipv6Address& address) { add(notation::of_ipv6(address)); }
    void mac(const MacAddress& address) { add(notation::of_mac(address)); }
    void prefix(std::uint32_t address, std::uint32_t mask)
    {
        add(notation::of_ipv4(address) + "/" + notation::of_mask(mask));
    }
    void prefix(const Ipv6Address& address, std::uint8_t length)
    {
        add(notation::of_ipv6(address) + "/" + std::to_string(length));
    }

    const std::string& text() const { return text_; }

    static std::string doubled(const std::string& text)
    {
        std::string all;
        for (const char character : text)
            all.append(character == '{' || character == '}' ? 2 : 1, character);
        return all;
    }

private:
    void add(const std::string& part) { text_ += (text_.empty() ? "" : " ") + part; }

    std::string text_;
};

class Saving
{
public:
    explicit Saving(State& state) : state_(state), now_(state.stopwatch.now()) {}

    State& state() const { return state_; }
    json::Object take() { return std::move(object_); }

    void text(const char* name, const std::string& value, std::size_t)
    {
        if (!value.empty())
            add(name, SavedKey::doubled(value));
    }

    template <class Integer>
    void number(const char* name, Integer value, Integer fallback = 0)
    {
        if (value != fallback)
            add(name, json::Number {std::to_string(value)});
    }

    void flag(const char* name, bool value)
    {
        if (value)
            add(name, true);
    }

    void ipv4(const char* name, std::uint32_t address)
    {
        if (address != 0)
            add(name, notation::of_ipv4(address));
    }

    void prefix(const char* name, std::uint32_t address, std::uint32_t mask)
    {
        if (address != 0 || mask != 0)
            add(name, notation::of_ipv4(address) + "/" + notation::of_mask(mask));
    }

    void mac(const char* name, const MacAddress& address)
    {
        if (address != MacAddress {})
            add(name, notation::of_mac(address));
    }

    template <std::size_t Size>
    void bytes(const char* name, const std::array<std::byte, Size>& value)
    {
        if (value != std::array<std::byte, Size> {})
            add(name, notation::of_bytes(value));
    }

    template <class Choice>
    void choice(const char* name, Choice value, const std::vector<std::string>& names)
    {
        if (value != Choice {})
            add(name, names[static_cast<std::size_t>(value)]);
    }

    void duration(const char* name, std::chrono::seconds value, std::chrono::seconds fallback)
    {
        number(name, value.count(), fallback.count());
    }

    void age(const char* name, Time since, std::chrono::seconds fallback)
    {
        if (now_ - since != Time(fallback))
            add(name, json::Number {notation::of_time(time_since(since))});
    }

    void learned(const char* name, const std::optional<Time>& seen)
    {
        if (seen)
            add(name, json::Number {notation::of_time(time_since(*seen))});
    }

    void deletions(const char* name, const std::vector<Time>& ends)
    {
        json::Array left;
        for (const Time end : ends)
            if (end > now_)
                left.push_back({json::Number {notation::of_time(end - now_)}});
        if (!left.empty())
            add(name, std::move(left));
    }

    void counters(const char* name, const Counters& counters, std::uint32_t)
    {
        json::Object all;
        for (const auto& [place, counter] : counters) {
            const Counter reading = counter.reading(now_);
            json::Object written {{"value", {json::Number {std::to_string(reading.value)}}}};
            if (counter.rate != 0)
                written.push_back({"rate", {json::Number {std::to_string(counter.rate)}}});
            if (reading.billionths != 0)
                written.push_back({"billionths", {json::Number {std::to_string(reading.billionths)}}});
            all.push_back({std::to_string(place), {std::move(written)}});
        }
        if (!all.empty())
            add(name, std::move(all));
    }

    template <class Integer, std::size_t Size>
    void numbers(const char* name, const std::array<Integer, Size>& values)
    {
        if (values == std::array<Integer, Size> {})
            return;
        json::Array all;
        for (const Integer value : values)
            all.push_back({json::Number {std::to_string(value)}});
        add(name, std::move(all));
    }

    template <class Describe>
    void part(const char* name, Describe describe_part)
    {
        Saving inner(state_);
        describe_part(inner);
        if (!inner.object_.empty())
            add(name, inner.take());
    }

    // The last ones that are as if nothing had been said are left out.
    template <class Elements>
    void list(const char* name, Elements& elements, std::size_t = 0)
    {
        json::Array all;
        std::size_t last = 0;
        for (auto& element : elements) {
            Saving inner(state_);
            describe(inner, element);
            if (!inner.object_.empty() || !is_fixed<Elements>)
                last = all.size() + 1;
            all.push_back({inner.take()});
        }
        all.resize(last);
        if (!all.empty())
            add(name, std::move(all));
    }

    template <class Entries, class Add, class Entry = typename Entries::value_type>
    void collection(const char* name, Entries& entries, Add, const Entry& = {})
    {
        json::Object all;
        for (Entry& entry : entries) {
            SavedKey key;
            describe_key(key, entry);
            Saving inner(state_);
            describe(inner, entry);
            all.push_back({key.text(), {inner.take()}});
        }
        if (!all.empty())
            add(name, std::move(all));
    }

private:
    // Who began with what is old already may have more behind it than a file can say.
    Time time_since(Time then) const { return std::clamp<Time>(now_ - then, Time(0), longest_time); }

    template <class Elements>
    static constexpr bool is_fixed = requires
    {
        std::tuple_size<Elements>::value;
    };

    template <class Content>
    void add(const char* name, Content content)
    {
        object_.push_back({name, {std::move(content)}});
    }

    State& state_;
    Time now_;
    json::Object object_;
};

} // namespace emulator::description
