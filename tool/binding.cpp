#include "tool/binding.h"

#include "tool/mistakes.h"
#include "tool/spelling.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tool {
namespace {

nlohmann::json parsed(std::string_view text)
{
    try {
        return nlohmann::json::parse(text);
    } catch (const nlohmann::json::exception& error) {
        throw Misuse(fmt::format("'{}' is not JSON: {}", text, error.what()));
    }
}

// As it would be typed.
std::string typed(const nlohmann::json& value)
{
    return value.is_string() ? value.get<std::string>() : value.dump();
}

void store(std::string& bytes, std::size_t offset, const void* value, std::size_t size)
{
    std::memcpy(bytes.data() + offset, value, size);
}

void store_member(std::string& record, const Member& member, const std::string& text, AddressOrder order)
{
    switch (member.form) {
    case Form::Number: {
        const std::uint64_t number = parse_number(text, member.width);
        return store(record, member.offset, &number, member.width);
    }
    case Form::SignedNumber: {
        const std::uint64_t number = parse_signed_number(text, member.width);
        return store(record, member.offset, &number, member.width);
    }
    case Form::Ipv4: {
        const std::uint32_t address = parse_ipv4(text, order);
        return store(record, member.offset, &address, sizeof address);
    }
    case Form::Bytes: {
        const std::string bytes = parse_bytes(text, member.width);
        return store(record, member.offset, bytes.data(), bytes.size());
    }
    default:
        throw Misuse(fmt::format("{} cannot be set", member.name));
    }
}

// The library would read what is not there.
void refuse_counts_beyond_the_room(const Record& record, const std::string& bytes)
{
    std::size_t room = 0;
    for (const Member& member : record.members) {
        if (member.form == Form::Bytes)
            room = member.width;
        if (member.kind == "count" &&
            load_number(std::as_bytes(std::span(bytes)).data() + member.offset, member.width) > room)
            throw Misuse(fmt::format("{} of {} is larger than {}", member.name, record.name, room));
    }
}

std::string record_from(const Record& record, const nlohmann::json& object, AddressOrder order)
{
    if (!object.is_object())
        throw Misuse(fmt::format("{} is not a JSON object with the members of {}", object.dump(), record.name));
    std::string bytes(record.size, '\0');
    for (const auto& [name, value] : object.items()) {
        const Member* const member = record.find(name);
        if (!member) {
            std::vector<std::string_view> names;
            for (const Member& one : record.members)
                names.push_back(one.name);
            throw Misuse(fmt::format("{} has no member '{}'{}", record.name, name, nearest(name, names)));
        }
        store_member(bytes, *member, typed(value), order);
    }
    refuse_counts_beyond_the_room(record, bytes);
    return bytes;
}

class Binding
{
public:
    Binding(const Operation& operation, AddressOrder order)
        : _operation(operation), _order(order), _arguments(operation.parameters.size()),
          _given(operation.parameters.size())
    {}

    void take(const Given& given)
    {
        const std::size_t position = find(given.name);
        if (_given[position])
            throw Misuse(fmt::format("{} is given twice", given.name));
        const Parameter& parameter = _operation.parameters[position];
        try {
            store(position, parameter, given.value);
        } catch (const Misuse& misuse) {
            throw Misuse(fmt::format("{}: {}", given.name, misuse.what()));
        }
        _given[position] = true;
    }

    Arguments end(Completeness completeness)
    {
        for (std::size_t i = 0; i < _given.size(); ++i) {
            const Parameter& parameter = _operation.parameters[i];
            const bool can_be_nothing =
                parameter.input <= Input::Ipv6Word && completeness == Completeness::OrElseNothing;
            if (!_given[i] && !parameter.may_be_left_out && !can_be_nothing)
                throw Misuse(fmt::format("{} needs {}: {}", _operation.name, parameter.name, parameter.summary));
            // What goes nowhere must be there, too.
            const bool may_be_null = parameter.may_be_left_out && parameter.kind != "unsent";
            if (!_given[i] && !may_be_null && parameter.input == Input::Text)
                _arguments.set_bytes(i, "");
            if (parameter.input == Input::Records)
                refuse_more_than_given(i, parameter);
        }
        return std::move(_arguments);
    }

private:
    std::size_t find(std::string_view name) const
    {
        const int position = _operation.position(name);
        if (position >= 0)
            return static_cast<std::size_t>(position);
        // Both words of an address by its name.
        for (std::size_t i = 0; i < _operation.parameters.size(); ++i)
            if (!name.empty() && _operation.parameters[i].address == name)
                return i;
        std::vector<std::string_view> names;
        for (const Parameter& parameter : _operation.parameters)
            names.push_back(parameter.name);
        throw Misuse(fmt::format("{} has no parameter '{}'{}", _operation.name, name, nearest(name, names)));
    }

    void store(std::size_t position, const Parameter& parameter, const std::string& value)
    {
        if (parameter.kind == "switch" && !is_number(value))
            return _arguments.set_number(position, position_of_switch(value));
        switch (parameter.input) {
        case Input::Text:
            return _arguments.set_bytes(position, value);
        case Input::Number:
            return _arguments.set_number(position, parse_number(value, parameter.size));
        case Input::SignedNumber:
            return _arguments.set_number(position, parse_signed_number(value, parameter.size));
        case Input::Ipv4:
            return _arguments.set_number(position, address_or_mask(parameter, value));
        case Input::Ipv6Word:
            return store_word(position, parameter, value);
        case Input::Mac: {
            const auto mac = parse_mac(value);
            return _arguments.set_bytes(position, std::string(mac.begin(), mac.end()));
        }
        case Input::Bytes:
            return _arguments.set_bytes(position, parse_bytes(value, parameter.size));
        case Input::Record:
            return _arguments.set_bytes(position, record_from(*parameter.record, parsed(value), _order));
        case Input::Records:
            return store_records(position, parameter, value);
        }
    }

    static bool is_number(const std::string& value) { return value.find_first_of("0123456789") != std::string::npos; }

    static std::uint64_t position_of_switch(const std::string& value)
    {
        if (value != "on" && value != "off")
            throw Misuse(fmt::format("'{}' is neither on nor off, nor a number", value));
        return value == "on" ? 1 : 0;
    }

    // A mask may also be written as the length of its prefix.
    std::uint32_t address_or_mask(const Parameter& parameter, const std::string& value) const
    {
        const bool is_length = parameter.kind == "ipv4_mask" && value.find('.') == std::string::npos;
        return is_length ? mask_of_length(value, _order) : parse_ipv4(value, _order);
    }

    // Either as a number, or the whole address, which is both words.
    void store_word(std::size_t position, const Parameter& parameter, const std::string& value)
    {
        constexpr std::string_view digits = "0123456789abcdefABCDEFxX";
        if (std::isdigit(static_cast<unsigned char>(value[0])) != 0 &&
            value.find_first_not_of(digits) == std::string::npos)
            return _arguments.set_number(position, parse_number(value, parameter.size));
        const auto address = parse_ipv6(value);
        const auto partner = static_cast<std::size_t>(parameter.partner);
        std::uint64_t words[2];
        std::memcpy(words, address.data(), sizeof words);
        _arguments.set_number(std::min(position, partner), words[0]);
        _arguments.set_number(std::max(position, partner), words[1]);
        _given[partner] = true;
    }

    void store_records(std::size_t position, const Parameter& parameter, const std::string& value)
    {
        const nlohmann::json array = parsed(value);
        if (!array.is_array())
            throw Misuse(fmt::format("{} is not a JSON array of {}", array.dump(), parameter.record->name));
        std::string bytes;
        for (const nlohmann::json& object : array)
            bytes += record_from(*parameter.record, object, _order);
        _arguments.set_bytes(position, bytes);
        const auto count = static_cast<std::size_t>(parameter.partner);
        if (!_given[count])
            _arguments.set_number(count, array.size());
    }

    void refuse_more_than_given(std::size_t position, const Parameter& parameter) const
    {
        const auto count = static_cast<std::size_t>(parameter.partner);
        const std::size_t records = _arguments.size_of_bytes(position) / parameter.size;
        if (_arguments.number<std::size_t>(count) > records)
            throw Misuse(fmt::format(
                "{} is larger than the {} records of {}", _operation.parameters[count].name, records, parameter.name));
    }

    const Operation& _operation;
    AddressOrder _order;
    Arguments _arguments;
    std::vector<bool> _given;
};

} // namespace

Arguments arguments_of(
    const Operation& operation, std::span<const Given> given, Completeness completeness, AddressOrder order)
{
    Binding binding(operation, order);
    for (const Given& one : given)
        binding.take(one);
    return binding.end(completeness);
}

} // namespace tool
