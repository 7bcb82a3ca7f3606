// Says, as JSON schema, what descriptions describe.
#pragma once

#include "emulator/state/json.h"
#include "emulator/state/loading.h"

#include <limits>

namespace emulator::description {

class Schema
{
public:
    explicit Schema(State& state) : state_(state) {}

    State& state() const { return state_; }

    json::Value document()
    {
        json::Object all {{"$schema", {std::string("http://json-schema.org/draft-07/schema#")}},
            {"title", {std::string("The state of the emulated module")}}};
        for (json::Member& member : object())
            all.push_back(std::move(member));
        return {std::move(all)};
    }

    void text(const char* name, std::string&, std::size_t) { add(name, of_type("string")); }
    void ipv4(const char* name, std::uint32_t&) { add(name, of_type("string")); }
    void prefix(const char* name, std::uint32_t&, std::uint32_t&) { add(name, of_type("string")); }
    void mac(const char* name, MacAddress&) { add(name, of_type("string")); }
    void flag(const char* name, bool&) { add(name, of_type("boolean")); }
    void duration(const char* name, std::chrono::seconds&, std::chrono::seconds)
    {
        add(name, number_or_text(longest_time.count()));
    }
    void age(const char* name, Time&, std::chrono::seconds) { add(name, seconds()); }
    void learned(const char* name, std::optional<Time>&) { add(name, seconds()); }
    void deletions(const char* name, std::vector<Time>&) { add(name, array_of({seconds()}, most_repetitions)); }

    template <class Integer>
    void number(const char* name, Integer&, Integer = 0)
    {
        add(name, number_or_text(std::numeric_limits<Integer>::max()));
    }

    template <std::size_t Size>
    void bytes(const char* name, std::array<std::byte, Size>&)
    {
        json::Object bytes = of_type("string");
        bytes.push_back({"pattern", {std::string("^([0-9A-Fa-f]{2}){") + std::to_string(Size) + "}$"}});
        add(name, std::move(bytes));
    }

    template <class Choice>
    void choice(const char* name, Choice&, const std::vector<std::string>& names)
    {
        json::Array all;
        for (const std::string& each : names)
            all.push_back({each});
        add(name, {{"enum", {std::move(all)}}});
    }

    template <class Integer, std::size_t Size>
    void numbers(const char* name, std::array<Integer, Size>&)
    {
        add(name, array_of({number_or_text(std::numeric_limits<Integer>::max())}, Size));
    }

    void counters(const char* name, Counters&, std::uint32_t)
    {
        Schema counter(state_);
        std::uint64_t any = 0;
        counter.number("value", any);
        counter.number("rate", any);
        counter.add("billionths", number_or_text(most_billionths));
        add(name, entries_of(counter.object()));
    }

    template <class Describe>
    void part(const char* name, Describe describe_part)
    {
        Schema inner(state_);
        describe_part(inner);
        add(name, inner.object());
    }

    template <class Element>
    void list(const char* name, std::vector<Element>&, std::size_t most)
    {
        Element element {};
        Schema inner(state_);
        describe(inner, element);
        add(name, array_of({inner.object()}, most));
    }

    template <class Element, std::size_t Size>
    void list(const char* name, std::array<Element, Size>&)
    {
        std::vector<Element> elements;
        list(name, elements, Size);
    }

    template <class Entries, class Add, class Entry = typename Entries::value_type>
    void collection(const char* name, Entries&, Add, const Entry& = {})
    {
        Entry entry {};
        Schema inner(state_);
        describe(inner, entry);
        add(name, entries_of(inner.object()));
    }

private:
    static json::Object of_type(const char* name) { return {{"type", {std::string(name)}}}; }

    // A text where something is filled in.
    static json::Object number_or_text(std::uint64_t largest)
    {
        return {{"type", {json::Array {{std::string("integer")}, {std::string("string")}}}},
            {"minimum", {json::Number {"0"}}}, {"maximum", {json::Number {std::to_string(largest)}}}};
    }

    static json::Object seconds()
    {
        return {{"type", {std::string("number")}}, {"minimum", {json::Number {"0"}}},
            {"maximum", {json::Number {std::to_string(longest_time.count())}}}};
    }

    static json::Object array_of(json::Value element, std::uint64_t most)
    {
        return {{"type", {std::string("array")}}, {"items", std::move(element)},
            {"maxItems", {json::Number {std::to_string(most)}}}};
    }

    static json::Object entries_of(json::Object entry)
    {
        return {{"type", {std::string("object")}}, {"additionalProperties", {std::move(entry)}}};
    }

    json::Object object()
    {
        return {{"type", {std::string("object")}}, {"properties", {members_}}, {"additionalProperties", {false}}};
    }

    void add(const char* name, json::Object described) { members_.push_back({name, {std::move(described)}}); }

    State& state_;
    json::Object members_;
};

} // namespace emulator::description
