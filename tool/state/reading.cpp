#include "tool/state/reading.h"

#include "tool/carrying_out.h"
#include "tool/members.h"
#include "tool/mistakes.h"
#include "tool/records.h"
#include "tool/reply.h"
#include "tool/state/difference.h"
#include "tool/state/texts.h"
#include "tool/words.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <set>
#include <span>
#include <utility>

namespace tool {
namespace {

// Where the elements of a member lie: those of a record within the record are its list.
struct Place
{
    const Record* record;
    Member member;
    const std::byte* data;
};

Place inside(const Record& record, const Member& member, const std::byte* data)
{
    if (member.form != Form::Records || member.length > 0)
        return {&record, member, data};
    const auto list = std::ranges::find_if(member.record->members, [](const Member& one) { return one.length > 0; });
    return {member.record, *list, data + member.offset};
}

Value scalar(const Place& place, std::size_t element, AddressOrder order)
{
    const Member& member = place.member;
    if (member.form == Form::Text)
        return Value::string(std::string(text_in(place.data + member.offset, member.width)));
    std::string text = element_text(*place.record, member, place.data, element, order);
    const bool is_number = member.form == Form::Number || member.form == Form::SignedNumber;
    return is_number ? Value::number(std::move(text)) : Value::string(std::move(text));
}

Value value_of(const Record& record, const Member& member, const std::byte* data, AddressOrder order)
{
    const Place place = inside(record, member, data);
    if (place.member.length == 0)
        return scalar(place, 0, order);
    Value list = Value::list();
    const std::size_t count = elements_in_use(*place.record, place.member, place.data);
    for (std::size_t i = 0; i < count; ++i)
        list.elements.push_back(scalar(place, i, order));
    return list;
}

constexpr std::string_view networks_of_entries = "GetBridgeNetworks";

Texts network_of(std::string_view bridge, std::string_view selector1, std::string_view selector2)
{
    return {{"key", std::string(bridge)}, {"value16", std::string(selector1)}, {"value32", std::string(selector2)}};
}

// The network of an address.
std::string network_of(const std::string& address, unsigned length)
{
    auto bytes = parse_ipv6(address);
    for (unsigned bit = length; bit < 8 * bytes.size(); ++bit)
        bytes[bit / 8] = static_cast<std::uint8_t>(bytes[bit / 8] & ~(0x80 >> bit % 8));
    return ipv6_text(std::as_bytes(std::span(bytes)).data());
}

// The keys of routes to the networks that enabled LIFs are on, each as often as it is reported.
std::multiset<std::string> networks_of_lifs(const Level& routes, const Value& instance)
{
    std::multiset<std::string> keys;
    for (const char* const kind : {"lifs", "bridgeLifs"})
        for (const auto& [name, lif] : instance.find(kind)->members) {
            if (lif.find("up")->text == "0")
                continue;
            for (const auto& [address, one] : lif.find("ipv6")->members) {
                const std::string& length = one.find("prefixLen")->text;
                const auto bits = static_cast<unsigned>(parse_number(length, sizeof(std::uint32_t)));
                keys.insert(key_of(routes,
                    {{"dest", network_of(address, bits)}, {"prefixLen", length}, {"gateway", "::"}, {"lif", name}}));
            }
        }
    return keys;
}

// As people call it, with what it is given.
std::string described(const Operation& operation, std::span<const Given> given)
{
    std::string words(operation.name);
    for (const Given& one : given)
        words += fmt::format(" {}={}", one.name, one.value);
    return words;
}

// The state is six levels deep.
// NOLINTBEGIN(misc-no-recursion)
class Reader
{
public:
    Reader(const Scope& scope, AddressOrder order) : _scope(scope), _order(order) {}

    void read_levels(const Level& outer, const Texts& texts, const std::byte* data, Value& found)
    {
        for (const Level* const level : outer.levels) {
            const bool is_wanted = level->part != Part::Statistic || _scope.statistics == Statistics::Included;
            const bool is_in_scope = _scope.instance.empty() || !texts.empty() || level->name == "instances";
            if (is_wanted && is_in_scope)
                found.members[std::string(level->name)] = read(*level, outer, texts, data, found);
        }
    }

    std::uint64_t entries_unread(const std::string& bridge)
    {
        const Reply bridges = call(*find_operation("GetBridgeInstances"), {});
        const std::uint64_t all = entries_of(bridge, *records_of(*find_operation("GetBridgeInstances"), bridges));
        const Level& level = forwarding_entries();
        const Operation& operation = *find_operation(level.read);
        std::uint64_t known = 0;
        for (const Texts& asked : questions(level, {{"key", bridge}}))
            known += records_of(operation, call(operation, given_to(operation, level.given, asked, _order)))->count;
        return all > known ? all - known : 0;
    }

private:
    static const Level& forwarding_entries()
    {
        const auto named = [](std::string_view name) { return [name](const Level* one) { return one->name == name; }; };
        const Level& bridges = **std::ranges::find_if(whole_state().levels, named("bridges"));
        return **std::ranges::find_if(bridges.levels, named("fdb"));
    }

    // As many as the bridge itself says.
    static std::uint64_t entries_of(const std::string& bridge, const Records& bridges)
    {
        const Member& name = *bridges.record->find("name");
        const Member& entries = *bridges.record->find(count_of_entries);
        for (std::size_t i = 0; i < bridges.count; ++i)
            if (text_in(bridges[i] + name.offset, name.width) == bridge)
                return load_number(bridges[i] + entries.offset, entries.width);
        return 0;
    }

    Value read(const Level& level, const Level& outer, const Texts& texts, const std::byte* data, const Value& owner)
    {
        if (!level.embedded.empty())
            return read_embedded(level, outer, texts, data);
        if (level.read.empty())
            return read_values(level, texts);
        if (!level.key.empty())
            return read_collection(level, texts, owner);
        const Operation& operation = *find_operation(level.read);
        const Reply reply = call(operation, given_to(operation, level.given, texts, _order));
        Texts own = texts;
        return read_object(level, nullptr, own, records_of(operation, reply)->first);
    }

    Value read_embedded(const Level& level, const Level& outer, const Texts& texts, const std::byte* data)
    {
        const Record& record = *record_of(outer, nullptr);
        const Member& member = *record.find(level.embedded);
        Value collection = Value::object();
        const std::size_t count = elements_in_use(record, member, data);
        for (std::size_t i = 0; i < count; ++i)
            add(collection, level, &outer, texts, data + member.offset + i * member.width);
        return collection;
    }

    // Each from an operation of its own. What is not there is zero.
    Value read_values(const Level& level, const Texts& texts)
    {
        Value found = Value::object();
        for (const Field& field : level.fields) {
            if (!is_wanted(field))
                continue;
            const Operation& operation = *find_operation(field.source);
            const Member member = member_of(level, nullptr, field);
            Value& value = found.members[std::string(field.name)];
            const std::optional<Reply> reply = call_if_there(operation, given_to(operation, {}, texts, _order));
            if (!reply)
                value = zero_of(member);
            else if (operation.answer != Answer::Value)
                value = Value::string(bytes_text(reply->bytes()));
            else if (operation.form == Form::Ipv4)
                value = Value::string(ipv4_text(reply->value(), _order));
            else
                value = Value::number(std::to_string(reply->value()));
        }
        return found;
    }

    Value read_collection(const Level& level, const Texts& texts, const Value& owner)
    {
        Value collection = Value::object();
        const Operation& operation = *find_operation(level.read);
        std::multiset<std::string> derived;
        if (level.derived == Derived::NetworksOfLifs)
            derived = networks_of_lifs(level, owner);
        for (const Texts& asked : questions(level, texts)) {
            const Reply reply = call(operation, given_to(operation, level.given, asked, _order));
            const Records found = *records_of(operation, reply);
            for (std::size_t i = 0; i < found.count; ++i) {
                const std::byte* const data = found[i];
                if (is_selected(level, *found.record, data) && is_in_scope(level, *found.record, data) &&
                    !take(derived, level, asked, data))
                    add(collection, level, nullptr, asked, data);
            }
        }
        return collection;
    }

    // What a level is read with, once for each.
    std::set<Texts> questions(const Level& level, const Texts& texts)
    {
        std::set<Texts> asked;
        for (const std::string_view one : split(level.alternatives, ' ')) {
            Texts question = texts;
            question[std::string(one.substr(0, one.find('=')))] = one.substr(one.find('=') + 1);
            asked.insert(std::move(question));
        }
        if (!level.each.empty()) {
            const Operation& operation = *find_operation(level.each);
            const Reply reply = call(operation, given_to(operation, {}, texts, _order));
            const Records found = *records_of(operation, reply);
            for (std::size_t i = 0; i < found.count; ++i)
                asked.insert(with(level, texts, *found.record, found[i]));
        }
        if (asked.empty() && level.each != networks_of_entries)
            asked.insert(texts);
        if (level.each == networks_of_entries)
            ask_of_unlisted_networks(texts, asked);
        return asked;
    }

    // They may have entries, too.
    void ask_of_unlisted_networks(const Texts& bridge, std::set<Texts>& asked) const
    {
        std::set<Texts> networks = _scope.networks;
        networks.insert(network_of(bridge.at("key"), "0", "0"));
        for (Texts network : networks)
            if (network.at("key") == bridge.at("key")) {
                network.insert(bridge.begin(), bridge.end());
                asked.insert(std::move(network));
            }
    }

    Texts with(const Level& level, Texts texts, const Record& record, const std::byte* data) const
    {
        for (const std::string_view one : split(level.each_given, ' ')) {
            const Member& member = *record.find(one.substr(one.find('=') + 1));
            texts[std::string(one.substr(0, one.find('=')))] = typed(value_of(record, member, data, _order));
        }
        return texts;
    }

    static bool is_selected(const Level& level, const Record& record, const std::byte* data)
    {
        if (level.selection.member.empty())
            return true;
        const Member& member = *record.find(level.selection.member);
        return (load_number(data + member.offset, member.width) & level.selection.bits) == level.selection.value;
    }

    bool is_in_scope(const Level& level, const Record& record, const std::byte* data) const
    {
        if (level.name != "instances" || _scope.instance.empty())
            return true;
        const Member& member = *record.find("instanceKey");
        return text_in(data + member.offset, member.width) == _scope.instance;
    }

    // Whether the record is one of the derived ones, each of which is one record.
    bool take(std::multiset<std::string>& derived, const Level& level, Texts texts, const std::byte* data) const
    {
        if (derived.empty())
            return false;
        read_object_fields(level, nullptr, texts, data, nullptr);
        const auto found = derived.find(key_of(level, texts));
        if (found == derived.end())
            return false;
        derived.erase(found);
        return true;
    }

    void add(Value& collection, const Level& level, const Level* outer, Texts texts, const std::byte* data)
    {
        Value object = read_object(level, outer, texts, data);
        collection.members[key_of(level, texts)] = std::move(object);
    }

    // Adds what is in the key to the texts.
    Value read_object(const Level& level, const Level* outer, Texts& texts, const std::byte* data)
    {
        Value object = Value::object();
        read_object_fields(level, outer, texts, data, &object);
        read_levels(level, texts, data, object);
        return object;
    }

    void read_object_fields(
        const Level& level, const Level* outer, Texts& texts, const std::byte* data, Value* object) const
    {
        const Record* const record = record_of(level, outer);
        for (const Field& field : level.fields) {
            const bool is_key = is_in_key(level, field.name);
            if (field.source.empty() || (!is_key && (!object || !is_wanted(field))))
                continue;
            Value value = value_of(*record, member_of(level, outer, field), data, _order);
            if (is_key)
                texts[std::string(field.name)] = typed(value);
            else
                object->members[std::string(field.name)] = std::move(value);
        }
    }

    bool is_wanted(const Field& field) const
    {
        return field.part != Part::Statistic || _scope.statistics == Statistics::Included;
    }

    Reply call(const Operation& operation, const std::vector<Given>& given) const
    {
        return answer_of(operation, arguments_of(operation, given, Completeness::OrElseNothing, _order),
            [&] { return described(operation, given); });
    }

    std::optional<Reply> call_if_there(const Operation& operation, const std::vector<Given>& given) const
    {
        return answer_if_there(operation, arguments_of(operation, given, Completeness::OrElseNothing, _order),
            [&] { return described(operation, given); });
    }

    const Scope& _scope;
    AddressOrder _order;
};
// NOLINTEND(misc-no-recursion)

} // namespace

Scope scope_of(const Value& document)
{
    const Value* const instance = document.find("instance");
    Scope scope {instance ? instance->text : "", has_statistics(document) ? Statistics::Included : Statistics::LeftOut};
    if (const Value* const bridges = document.find("bridges"))
        for (const auto& [name, bridge] : bridges->members)
            if (const Value* const entries = bridge.find("fdb"))
                for (const auto& [key, entry] : entries->members) {
                    const std::vector<std::string_view> parts = split(key, ' ');
                    scope.networks.insert(network_of(name, parts[0], parts[1]));
                }
    return scope;
}

Value read_state(const Scope& scope, AddressOrder order)
{
    Value document = Value::object();
    Reader(scope, order).read_levels(whole_state(), {}, nullptr, document);
    if (!scope.instance.empty())
        document.members["instance"] = Value::string(scope.instance);
    document.members["format"] = Value::number(std::string(document_format));
    return document;
}

std::uint64_t entries_unread(const std::string& bridge, const Scope& scope, AddressOrder order)
{
    return Reader(scope, order).entries_unread(bridge);
}

} // namespace tool
