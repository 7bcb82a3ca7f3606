#include "tool/state/plan.h"

#include "tool/state/shape.h"
#include "tool/state/texts.h"
#include "tool/words.h"

#include <algorithm>
#include <arpa/inet.h>
#include <fmt/format.h>
#include <optional>
#include <set>
#include <utility>

namespace tool {
namespace {

// Of ranks: what is added, in their order; LIFs are up while next hops are added; what is taken away, in the opposite order.
constexpr unsigned addition(unsigned rank)
{
    return 10 * rank;
}
constexpr unsigned deletion(unsigned rank)
{
    return 200 - 10 * rank;
}
constexpr unsigned deletion_of_the_other_kind = addition(5) - 1;
constexpr unsigned going_up = addition(8) - 1;
constexpr unsigned going_down = addition(8) + 1;

constexpr std::string_view lif_kinds[] {"lifs", "bridgeLifs"};

const Value& nothing()
{
    static const Value empty = Value::object();
    return empty;
}

const Value& member_or_nothing(const Value* object, std::string_view name)
{
    const Value* const found = object ? object->find(std::string(name)) : nullptr;
    return found ? *found : nothing();
}

bool has_word(std::string_view words, std::string_view word)
{
    const std::vector<std::string_view> all = split(words, ' ');
    return std::ranges::find(all, word) != all.end();
}

const Level& level_named(const Level& outer, std::string_view name)
{
    return **std::ranges::find(outer.levels, name, [](const Level* level) { return level->name; });
}

bool is_ipv4_on(const std::string& gateway, const Value& lif)
{
    const Value* const address = lif.find("address");
    const Value* const mask = lif.find("mask");
    if (!address || !mask || is_zero(*address))
        return false;
    const std::uint32_t bits = parse_ipv4(mask->text, AddressOrder::Network);
    return (parse_ipv4(gateway, AddressOrder::Network) & bits) ==
           (parse_ipv4(address->text, AddressOrder::Network) & bits);
}

bool is_ipv6_on(const std::string& gateway, const Value& lif)
{
    const auto wanted = parse_ipv6(gateway);
    for (const auto& [text, one] : member_or_nothing(&lif, "ipv6").members) {
        const auto own = parse_ipv6(text);
        const Value* const length = one.find("prefixLen");
        const std::uint64_t bits = std::min<std::uint64_t>(length ? parse_number(length->text, 4) : 0, 128);
        bool is_same = true;
        for (std::uint64_t bit = 0; bit < bits && is_same; ++bit)
            is_same = ((wanted[bit / 8] ^ own[bit / 8]) & (0x80 >> bit % 8)) == 0;
        if (is_same)
            return true;
    }
    return false;
}

// The state is six levels deep.
// NOLINTBEGIN(misc-no-recursion)
class Planner
{
public:
    Planner(const Value& state, const Value& document, AddressOrder order)
        : _state(state), _document(document), _order(order)
    {}

    Plan whole()
    {
        change_levels(whole_state(), {}, _document, &_state);
        std::ranges::stable_sort(_plan.calls, {}, &Call::phase);
        return std::move(_plan);
    }

private:
    void change_levels(const Level& outer, const Texts& texts, const Value& wanted, const Value* present)
    {
        for (const Level* const level : outer.levels) {
            const Value* const said = wanted.find(std::string(level->name));
            if (level->part == Part::Statistic || !said)
                continue;
            const Value* const there = present ? present->find(std::string(level->name)) : nullptr;
            const Level* const read_with = level->embedded.empty() ? nullptr : &outer;
            _path.emplace_back(level->name);
            if (level->key.empty())
                change_object(*level, read_with, texts, *said, there ? there : &nothing());
            else
                change_collection(*level, read_with, texts, *said, there ? *there : nothing());
            _path.pop_back();
        }
    }

    void change_collection(
        const Level& level, const Level* outer, const Texts& texts, const Value& wanted, const Value& present)
    {
        const bool is_full = level.cap != 0 && wanted.members.size() > 0 && size_of_both(wanted, present) > level.cap;
        auto going = present.members.begin();
        std::size_t count = present.members.size();
        if (level.name == "fdb")
            clear_networks(level, texts, wanted, present);
        for (const auto& [key, one] : wanted.members) {
            const Value* const there = present.find(key);
            // Where there is no room for both, one goes before another comes.
            for (; is_full && !there && count >= level.cap && going != present.members.end(); ++going)
                if (!wanted.find(going->first)) {
                    remove(level, outer, texts, going->first, going->second, addition(level.rank));
                    --count;
                }
            count += there ? 0 : 1;
            _path.push_back(key);
            change_entry(level, outer, with_key(texts, level, outer, key), one, there);
            _path.pop_back();
        }
        for (const auto& [key, one] : present.members) {
            const bool has_gone = is_full && comes_before(present, key, going);
            if (!wanted.find(key) && !has_gone)
                remove(level, outer, texts, key, one, deletion(level.rank));
        }
    }

    static bool comes_before(
        const Value& present, const std::string& key, std::map<std::string, Value>::const_iterator end)
    {
        return end == present.members.end() || key < end->first;
    }

    static std::size_t size_of_both(const Value& wanted, const Value& present)
    {
        std::size_t size = present.members.size();
        for (const auto& [key, one] : wanted.members)
            size += present.find(key) ? 0 : 1;
        return size;
    }

    static Texts with_key(Texts texts, const Level& level, const Level* outer, const std::string& key)
    {
        for (auto& [name, text] : fields_of_key(level, outer, key))
            texts[name] = text;
        return texts;
    }

    void change_entry(
        const Level& level, const Level* outer, const Texts& texts, const Value& wanted, const Value* there)
    {
        if (!there && level.creation.operation.empty() && level.name != "routes")
            return cannot_set();
        if (level.name != "instances")
            return change_object(level, outer, texts, wanted, there);
        const std::optional<Value> rest = change_kinds_of_lifs(texts, wanted, there);
        const Value* const left = rest ? &*rest : there;
        change_object(level, outer, texts, wanted, left);
        switch_lifs(texts, wanted, left);
    }

    // What is not there before is null.
    void change_object(const Level& level, const Level* outer, Texts texts, const Value& wanted, const Value* there)
    {
        std::set<std::string_view> changed;
        const bool is_new = !there;
        for (const Field& field : level.fields) {
            if (is_in_key(level, field.name))
                continue;
            const std::string name(field.name);
            const Value* const said = wanted.find(name);
            const Value* const was = there ? there->find(name) : nullptr;
            const Value zero = zero_of(member_of(level, outer, field));
            const Value& before = was ? *was : zero;
            texts[name] = for_argument(level, outer, field, said ? *said : before);
            texts["was:" + name] = typed(before);
            if (!said || *said == before || field.part == Part::Statistic)
                continue;
            if (field.part == Part::Setting)
                changed.insert(field.name);
            else if (!is_new)
                cannot_set(field.name);
        }
        set(level, outer, texts, changed, is_new);
        if (level.name == "routes")
            return change_route(level, texts, wanted, there, !is_new && changed.contains("param"));
        if (is_new && level.name == "routes6")
            need_up(texts);
        change_levels(level, texts, wanted, there);
    }

    // Records are written as JSON.
    static std::string for_argument(const Level& level, const Level* outer, const Field& field, const Value& value)
    {
        const Member member = member_of(level, outer, field);
        if (value.kind != Value::Kind::List || !member.record || member.record->members.size() != 1)
            return typed(value);
        Value records = Value::list();
        for (const Value& one : value.elements) {
            Value& record = records.elements.emplace_back(Value::object());
            record.members.emplace(member.record->members.front().name, one);
        }
        return typed(records);
    }

    void set(
        const Level& level, const Level* outer, const Texts& texts, std::set<std::string_view> changed, bool is_new)
    {
        const auto covers = [](const Setter& setter) {
            return [&setter](std::string_view field) { return has_word(setter.fields, field); };
        };
        const auto is_only_created = [&](std::string_view field) {
            return covers(level.creation)(field) &&
                   std::ranges::none_of(level.setters, [&](const Setter& one) { return covers(one)(field); });
        };
        if (!level.creation.operation.empty() && (is_new || std::ranges::any_of(changed, is_only_created))) {
            call(level.creation.operation, level.creation.given, texts, addition(level.rank));
            std::erase_if(changed, covers(level.creation));
            if (!level.loss.empty())
                _plan.losses.push_back(fmt::format("{}: {}", text_of(_path), level.loss));
        }
        for (const Setter& setter : level.setters) {
            if (std::ranges::none_of(changed, covers(setter)))
                continue;
            const std::vector<std::string_view> fields = split(setter.fields, ' ');
            const bool is_zeroed = !setter.if_zero.empty() && std::ranges::all_of(fields, [&](std::string_view field) {
                const Value zero = zero_of(member_of(level, outer, *find_field(level, field)));
                return texts.find(field)->second == typed(zero);
            });
            if (!is_zeroed && setter.operation.empty())
                continue;
            call(is_zeroed ? setter.if_zero : setter.operation, is_zeroed ? setter.given_if_zero : setter.given, texts,
                addition(level.rank));
            std::erase_if(changed, covers(setter));
        }
        for (const std::string_view field : changed)
            if (field != "up" && level.name != "routes")
                cannot_set(field);
    }

    void remove(const Level& level, const Level* outer, const Texts& texts, const std::string& key, const Value& one,
        unsigned phase)
    {
        Texts own = with_key(texts, level, outer, key);
        for (const Field& field : level.fields)
            if (const Value* const value = one.find(std::string(field.name)))
                own[std::string(field.name)] = typed(*value);
        if (level.name == "routes") {
            const Level& hops = *level.levels.front();
            for (const auto& [hop, what] : member_or_nothing(&one, "nextHops").members)
                remove(hops, &level, own, hop, what, phase);
        } else if (!level.deletion.operation.empty()) {
            call(level.deletion.operation, level.deletion.given, own, phase);
        } else if (level.name != "fdb") {
            _path.push_back(key);
            cannot_set();
            _path.pop_back();
        }
    }

    // A route is its next hops, each of which sets the parameter, too.
    void change_route(const Level& level, const Texts& texts, const Value& wanted, const Value* there, bool is_changed)
    {
        const Value* const said = wanted.find("nextHops");
        if (!said)
            return;
        const Level& hops = *level.levels.front();
        const Value& present = member_or_nothing(there, "nextHops");
        const Value* again = nullptr;
        std::string key_again;
        for (const auto& [key, one] : said->members) {
            const bool is_there = present.find(key);
            if (!is_there)
                need_up(with_key(texts, hops, &level, key));
            if (is_there && is_changed && !again) {
                again = &one;
                key_again = key;
            }
        }
        _path.emplace_back(hops.name);
        change_collection(hops, &level, texts, *said, present);
        _path.pop_back();
        const bool any_is_new =
            std::ranges::any_of(said->members, [&](const auto& one) { return !present.find(one.first); });
        if (again && !any_is_new) {
            const Texts own = with_key(texts, hops, &level, key_again);
            need_up(own);
            call(hops.creation.operation, hops.creation.given, own, addition(hops.rank));
        }
    }

    // Entries are not taken away one by one, but with all of their network.
    void clear_networks(const Level& level, const Texts& texts, const Value& wanted, const Value& present)
    {
        _cleared.clear();
        for (const auto& [key, one] : present.members) {
            if (wanted.find(key))
                continue;
            const Texts own = with_key(texts, level, nullptr, key);
            const std::string network = own.at("selector1") + " " + own.at("selector2");
            if (_cleared.insert(network).second)
                call("BridgeClearFdbTable", {}, own, addition(level.rank));
        }
        for (const auto& [key, one] : wanted.members) {
            const Texts own = with_key(texts, level, nullptr, key);
            const Value* const there = present.find(key);
            if (there && _cleared.contains(own.at("selector1") + " " + own.at("selector2"))) {
                Texts all = own;
                for (const Field& field : level.fields)
                    if (const std::string name(field.name); !is_in_key(level, name))
                        all[name] = typed(*(one.find(name) ? one.find(name) : there->find(name)));
                call(level.creation.operation, level.creation.given, all, addition(level.rank));
            }
        }
    }

    // A name belongs to one LIF of either kind: the one goes before the other comes, and what is over it with it. The
    // instance as it is then; nothing if there is no such LIF.
    std::optional<Value> change_kinds_of_lifs(const Texts& texts, const Value& wanted, const Value* there)
    {
        std::optional<Value> rest;
        for (const std::size_t kind : {std::size_t {0}, std::size_t {1}}) {
            const Level& instance = level_named(whole_state(), "instances");
            const Level& other = level_named(instance, lif_kinds[1 - kind]);
            const Value& added = member_or_nothing(&wanted, lif_kinds[kind]);
            const Value& left = member_or_nothing(&wanted, other.name);
            for (const auto& [name, one] : member_or_nothing(there, other.name).members)
                if (added.find(name) && !left.find(name)) {
                    remove(other, nullptr, texts, name, one, deletion_of_the_other_kind);
                    rest = rest ? std::move(rest) : *there;
                    rest->members[std::string(other.name)].members.erase(name);
                    take_what_is_over(instance, name, *rest);
                }
        }
        return rest;
    }

    static void take_what_is_over(const Level& outer, const std::string& lif, Value& object)
    {
        for (const Level* const level : outer.levels) {
            const auto collection = object.members.find(std::string(level->name));
            if (level->key.empty() || collection == object.members.end())
                continue;
            const Level* const read_with = level->embedded.empty() ? nullptr : &outer;
            const bool is_over_lifs = is_in_key(*level, "lif") && level->name != "lifs" && level->name != "bridgeLifs";
            auto& members = collection->second.members;
            for (auto& [key, one] : members)
                take_what_is_over(*level, lif, one);
            std::erase_if(members, [&](const auto& entry) {
                if (is_over_lifs)
                    return fields_of_key(*level, read_with, entry.first).at("lif") == lif;
                const Value* const hops = entry.second.find("nextHops");
                return hops && hops->members.empty();
            });
        }
    }

    void need_up(const Texts& texts) { _needed_up.insert({texts.find("gateway")->second, texts.find("lif")->second}); }

    // LIFs that next hops are added over are up while that is done.
    void switch_lifs(const Texts& texts, const Value& wanted, const Value* there)
    {
        std::map<std::string, std::pair<const Value*, bool>> lifs; // and whether they are up in the end
        for (const std::string_view kind : lif_kinds) {
            const Value& present = member_or_nothing(there, kind);
            const Value* const said = wanted.find(std::string(kind));
            for (const auto& [name, lif] : (said ? *said : present).members) {
                const Value* const was = present.find(name);
                const Value* const up = lif.find("up") ? lif.find("up") : was ? was->find("up") : nullptr;
                lifs[name] = {&lif, up && !is_zero(*up)};
            }
        }
        std::set<std::string> used;
        for (const auto& [gateway, lif] : std::exchange(_needed_up, {}))
            used.insert(lif.empty() ? lif_to(gateway, lifs) : lif);
        for (const auto& [name, one] : lifs) {
            const auto& [lif, is_up] = one;
            Texts own = texts;
            own["lif"] = name;
            const bool was_up = is_up_in(there, name);
            if (!was_up && (is_up || used.contains(name)))
                call("EnableLif", {}, own, going_up);
            if (!is_up && (was_up || used.contains(name)))
                call("DisableLif", {}, own, going_down);
        }
    }

    static bool is_up_in(const Value* instance, const std::string& lif)
    {
        for (const std::string_view kind : lif_kinds)
            if (const Value* const one = member_or_nothing(instance, kind).find(lif))
                return !is_zero(*one->find("up"));
        return false;
    }

    // One on whose network a gateway is; none if one that is up does.
    static std::string lif_to(
        const std::string& gateway, const std::map<std::string, std::pair<const Value*, bool>>& lifs)
    {
        std::string found;
        for (const auto& [name, one] : lifs) {
            const bool is_ipv6 = gateway.find(':') != std::string::npos;
            if (is_ipv6 ? !is_ipv6_on(gateway, *one.first) : !is_ipv4_on(gateway, *one.first))
                continue;
            if (one.second)
                return {};
            found = found.empty() ? name : found;
        }
        return found;
    }

    void call(std::string_view operation, std::string_view said, const Texts& texts, unsigned phase)
    {
        const Operation* const found = find_operation(operation);
        Call one {found, given_to(*found, said, texts, _order), phase};
        std::string key = std::to_string(phase) + words_of(one);
        if (_called.insert(std::move(key)).second)
            _plan.calls.push_back(std::move(one));
    }

    void cannot_set(std::string_view field = {})
    {
        Path& path = _plan.not_settable.emplace_back(_path);
        if (!field.empty())
            path.emplace_back(field);
    }

    const Value& _state;
    const Value& _document;
    AddressOrder _order;
    Plan _plan;
    Path _path;
    std::set<std::string> _called;
    std::set<std::string> _cleared;
    std::set<std::pair<std::string, std::string>> _needed_up;
};
// NOLINTEND(misc-no-recursion)

std::string quoted(const std::string& word)
{
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789=.,:/_-+@%";
    if (word.find_first_not_of(plain) == std::string::npos)
        return word;
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? "'\\''" : std::string(1, c);
    return text + "'";
}

} // namespace

Plan plan_of(const Value& state, const Value& document, AddressOrder order)
{
    return Planner(state, document, order).whole();
}

std::string words_of(const Call& call)
{
    std::string text = fmt::format("call {}", call.operation->name);
    std::string_view last;
    for (const Parameter& parameter : call.operation->parameters) {
        // Both words of an address are one.
        const std::string_view name = parameter.address.empty() ? parameter.name : parameter.address;
        const auto given = std::ranges::find(call.given, name, &Given::name);
        if (name == last)
            continue;
        last = name;
        if (given != call.given.end())
            text += ' ' + quoted(fmt::format("{}={}", name, given->value));
        else if (!parameter.may_be_left_out)
            text += fmt::format(" {}={}", name, parameter.input == Input::Text ? "" : "0");
    }
    return text;
}

std::string command_of(const Call& call)
{
    return "lumozephctl " + words_of(call);
}

} // namespace tool
