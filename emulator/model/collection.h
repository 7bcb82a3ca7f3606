// Entries in the order in which they were added, found by what tells them apart. Each has an identity(): a value, or a
// tuple of them. Adding, finding and removing one takes the same time however many there are, and none moves in memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_set>
#include <utility>

namespace emulator {

inline std::size_t hash_of(const std::string& text)
{
    return std::hash<std::string_view>()(text);
}

template <std::size_t Size>
std::size_t hash_of(const std::array<std::byte, Size>& bytes)
{
    return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), Size});
}

template <class Number>
requires std::is_integral_v<Number> || std::is_enum_v<Number> std::size_t hash_of(Number number)
{
    const std::size_t mixed = static_cast<std::size_t>(number) * 0x9e3779b97f4a7c15;
    return mixed ^ mixed >> 32;
}

template <class... Parts>
std::size_t hash_of(const std::tuple<Parts...>& all)
{
    return std::apply(
        [](const auto&... parts) {
            std::size_t hash = 0;
            ((hash = hash_of(hash ^ hash_of(parts))), ...);
            return hash;
        },
        all);
}

template <class Entry>
class Collection
{
    using Entries = std::list<Entry>;
    using Position = typename Entries::iterator;

public:
    using value_type = Entry;

    Collection() = default;
    Collection(Collection&&) noexcept = default;
    Collection& operator=(Collection&&) noexcept = default;
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    ~Collection() = default;

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    auto begin() { return entries_.begin(); }
    auto end() { return entries_.end(); }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

    // Null if there is none.
    template <class Identity>
    Entry* find(const Identity& identity)
    {
        const auto found = index_.find(identity);
        return found == index_.end() ? nullptr : &**found;
    }

    // There must be no other of its identity, which must not change as long as it is here.
    Entry& add(Entry entry)
    {
        entries_.push_back(std::move(entry));
        index_.insert(std::prev(entries_.end()));
        return entries_.back();
    }

    void remove(const Entry& entry)
    {
        const auto found = index_.find(entry.identity());
        const Position position = *found;
        index_.erase(found);
        entries_.erase(position);
    }

    // Whether there was one.
    template <class Identity>
    bool remove_if_found(const Identity& identity)
    {
        const Entry* entry = find(identity);
        if (entry == nullptr)
            return false;
        remove(*entry);
        return true;
    }

    template <class Condition>
    void remove_all(Condition condition)
    {
        for (auto entry = entries_.begin(); entry != entries_.end();) {
            const Entry& candidate = *entry++;
            if (condition(candidate))
                remove(candidate);
        }
    }

    void clear()
    {
        index_.clear();
        entries_.clear();
    }

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(const Position& entry) const { return hash_of(entry->identity()); }
        template <class Identity>
        std::size_t operator()(const Identity& identity) const
        {
            return hash_of(identity);
        }
    };

    struct Same
    {
        using is_transparent = void;
        bool operator()(const Position& left, const Position& right) const { return left == right; }
        template <class Identity>
        bool operator()(const Identity& identity, const Position& entry) const
        {
            return identity == entry->identity();
        }
    };

    Entries entries_;
    std::unordered_set<Position, Hash, Same> index_;
};

} // namespace emulator
