// Reads what descriptions describe, and says where something else stands.
//
// Keys and texts of collections may stand for many: "lif{1..100}" is a hundred LIFs, "10.0.0.0/24{+256*8000}" eight thousand
// networks. In what such a key leads to, {i} is the number of the entry, and an address or a number that ends in {+N} is N
// larger in each entry than in the one before it.
#pragma once

#include "emulator/state/json.h"
#include "emulator/state/notation.h"

#include <limits>
#include <span>
#include <utility>

namespace emulator::description {

// How many entries a key may stand for.
constexpr std::uint64_t most_repetitions = 10000000;

// Which of the entries of a repeated key.
struct Repetition
{
    std::uint64_t index = 0;
    std::uint64_t number = 0;
};

// A text, what is in braces filled in, and how much is to be added to what is before one of its places.
struct Filled
{
    std::string text;
    std::uint64_t further = 0;
    std::size_t place = 0;
};

Filled fill(const std::string& text, const std::optional<Repetition>& repetition, json::Position position);

// Calls for each entry that the key stands for.
struct ExpandedKey
{
    Filled key;
    std::optional<Repetition> repetition;
};
class KeyExpansion
{
public:
    KeyExpansion(const std::string& key, const std::optional<Repetition>& outer, json::Position position);

    std::uint64_t size() const { return count_; }
    ExpandedKey operator[](std::uint64_t index) const;

private:
    std::string before_;
    std::string after_;
    std::optional<Repetition> outer_;
    json::Position position_;
    std::uint64_t first_ = 0;
    std::uint64_t step_ = 0;
    std::uint64_t count_ = 1;
    enum class Kind
    {
        Single,
        Numbers,
        Addresses
    } kind_ = Kind::Single;
};

class LoadedKey
{
public:
    LoadedKey(const Filled& key, json::Position position) : key_(key), rest_(key_.text), position_(position) {}

    void name(std::string& text, std::size_t longest)
    {
        text = key_.text;
        rest_ = {};
        check_length(text, longest);
    }

    void text(std::string& text, std::size_t longest);

    template <class Integer>
    void number(Integer& value)
    {
        const bool is_negative = std::is_signed_v<Integer> && !rest_.empty() && rest_[0] == '-';
        if (is_negative)
            rest_.remove_prefix(1);
        const std::string_view digits = next();
        constexpr std::uint64_t largest = std::numeric_limits<Integer>::max();
        const auto read = notation::number(digits, largest);
        const std::uint64_t further = further_of(digits);
        if (!read)
            fail("a number", digits);
        if (further > largest - *read)
            fail("a number of at most " + std::to_string(largest), digits, further);
        value = static_cast<Integer>(*read + further);
        if (is_negative)
            value = static_cast<Integer>(-value);
    }

    void ipv4(std::uint32_t& address) { read("an IPv4 address", notation::ipv4, address); }
    void ipv6(Ipv6Address& address) { read("an IPv6 address", notation::ipv6, address); }
    void mac(MacAddress& address) { read("a MAC address", notation::mac, address); }
    void prefix(std::uint32_t& address, std::uint32_t& mask);
    void prefix(Ipv6Address& address, std::uint8_t& length);

    void finish()
    {
        if (!rest_.empty() || key_.further != 0)
            fail("no more in this key", key_.text);
    }

private:
    // How much is to be added to a part of the key, once.
    std::uint64_t further_of(std::string_view part);
    std::string_view next();
    void check_length(const std::string& text, std::size_t longest) const;
    [[noreturn]] void fail(const std::string& expected, std::string_view found, std::uint64_t further = 0) const;

    template <class Address>
    Address moved(const Address& address, std::string_view part)
    {
        const std::uint64_t further = further_of(part);
        const std::optional<Address> there = notation::further(address, further);
        if (!there)
            fail("an address that there is", part, further);
        return *there;
    }

    template <class Address>
    void read(const char* what, std::optional<Address> (*address_in)(std::string_view), Address& address)
    {
        const std::string_view text = next();
        const std::optional<Address> found = address_in(text);
        if (!found)
            fail(what, text);
        address = moved(*found, text);
    }

    Filled key_;
    std::string_view rest_;
    json::Position position_;
};

class Loading
{
public:
    Loading(State& state, const json::Value& value, std::optional<Repetition> repetition = {});

    State& state() const { return state_; }

    void text(const char* name, std::string& value, std::size_t longest);
    void flag(const char* name, bool& value);
    void ipv4(const char* name, std::uint32_t& address);
    void prefix(const char* name, std::uint32_t& address, std::uint32_t& mask);
    void mac(const char* name, MacAddress& address);
    void duration(const char* name, std::chrono::seconds& value, std::chrono::seconds fallback);
    void age(const char* name, Time& since, std::chrono::seconds fallback);
    void learned(const char* name, std::optional<Time>& seen);
    void deletions(const char* name, std::vector<Time>& ends);
    void counters(const char* name, Counters& counters, std::uint32_t places);

    template <class Integer>
    void number(const char* name, Integer& value, Integer fallback = 0)
    {
        const json::Value* const written = member(name);
        value = written == nullptr ? fallback
                                   : static_cast<Integer>(number_in(*written, std::numeric_limits<Integer>::max()));
    }

    template <std::size_t Size>
    void bytes(const char* name, std::array<std::byte, Size>& value)
    {
        if (const json::Value* written = member(name))
            bytes_in(*written, value);
    }

    template <class Choice>
    void choice(const char* name, Choice& value, const std::vector<std::string>& names)
    {
        if (const json::Value* written = member(name))
            value = static_cast<Choice>(choice_in(*written, names));
    }

    template <class Integer, std::size_t Size>
    void numbers(const char* name, std::array<Integer, Size>& values)
    {
        const json::Value* const written = member(name);
        if (written == nullptr)
            return;
        const json::Array& elements = array_in(*written, Size);
        for (std::size_t i = 0; i < elements.size(); ++i)
            values[i] = static_cast<Integer>(number_in(elements[i], std::numeric_limits<Integer>::max()));
    }

    template <class Describe>
    void part(const char* name, Describe describe_part)
    {
        if (const json::Value* written = member(name)) {
            Loading inner(state_, *written, repetition_);
            describe_part(inner);
            inner.finish();
        }
    }

    template <class Element>
    void list(const char* name, std::vector<Element>& elements, std::size_t most)
    {
        const json::Value* const written = member(name);
        if (written == nullptr)
            return;
        for (const json::Value& value : array_in(*written, most)) {
            Loading inner(state_, value, repetition_);
            describe(inner, elements.emplace_back());
            inner.finish();
        }
    }

    template <class Element, std::size_t Size>
    void list(const char* name, std::array<Element, Size>& elements)
    {
        const json::Value* const written = member(name);
        if (written == nullptr)
            return;
        const json::Array& values = array_in(*written, Size);
        for (std::size_t i = 0; i < values.size(); ++i) {
            Loading inner(state_, values[i], repetition_);
            describe(inner, elements[i]);
            inner.finish();
        }
    }

    template <class Entries, class Add, class Entry = typename Entries::value_type>
    void collection(const char* name, Entries&, Add add, const Entry& blank = {})
    {
        const json::Value* const written = member(name);
        if (written == nullptr)
            return;
        for (const json::Member& member : object_in(*written)) {
            const KeyExpansion keys(member.name, repetition_, member.position);
            for (std::uint64_t i = 0; i < keys.size(); ++i) {
                const ExpandedKey expanded = keys[i];
                Entry entry(copy(blank));
                LoadedKey key(expanded.key, member.position);
                describe_key(key, entry);
                key.finish();
                Loading inner(state_, member.value, expanded.repetition);
                describe(inner, entry);
                inner.finish();
                if (const std::string wrong = add(std::move(entry)); !wrong.empty())
                    throw json::Error(member.position, wrong);
            }
        }
    }

    // What is left is something that nobody knows.
    void finish() const;

private:
    // Entries that hold collections are not copied, and their blanks are like any new one.
    template <class Entry>
    static Entry copy(const Entry& blank)
    {
        if constexpr (std::is_copy_constructible_v<Entry>)
            return blank;
        else
            return Entry {};
    }

    const json::Value* member(const char* name);
    Filled filled_in(const json::Value& value) const;
    std::uint64_t number_in(const json::Value& value, std::uint64_t largest) const;
    Time time_in(const json::Value& value) const;
    void bytes_in(const json::Value& value, std::span<std::byte> to) const;
    std::size_t choice_in(const json::Value& value, const std::vector<std::string>& names) const;
    static const json::Array& array_in(const json::Value& value, std::size_t most);
    static const json::Object& object_in(const json::Value& value);

    State& state_;
    const json::Object& object_;
    std::optional<Repetition> repetition_;
    std::vector<std::string_view> known_;
};

} // namespace emulator::description
