// What operations get: memory that frees itself, and ranges over it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <lumozeph.h>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace lumozeph {

/** A record, which is freed with its owner. */
template <class Record, auto Release>
class owned
{
public:
    owned() noexcept = default;
    /** Takes over what a function of lumozeph.h has handed out. */
    explicit owned(Record* record) noexcept : record_(record) {}
    owned(owned&& other) noexcept : record_(other.release()) {}
    owned& operator=(owned&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    owned(const owned&) = delete;
    owned& operator=(const owned&) = delete;
    ~owned() { Release(record_); }

    Record& operator*() & noexcept { return *record_; }
    const Record& operator*() const& noexcept { return *record_; }
    /** Of an owner that goes: a copy. */
    Record operator*() && noexcept { return *record_; }
    Record* operator->() noexcept { return record_; }
    const Record* operator->() const noexcept { return record_; }
    explicit operator bool() const noexcept { return record_ != nullptr; }
    Record* get() & noexcept { return record_; }
    const Record* get() const& noexcept { return record_; }
    Record* get() && = delete;

    /** Gives the record to the caller. */
    Record* release() noexcept { return std::exchange(record_, nullptr); }
    void reset(Record* record = nullptr) noexcept
    {
        if (record_ != nullptr)
            Release(record_);
        record_ = record;
    }

private:
    Record* record_ = nullptr;
};

/** The cap of what has none. */
inline constexpr std::size_t no_cap = static_cast<std::size_t>(-1);

/** A list, which is freed with its owner: a range over its records as they lie. */
template <class List, auto Release, std::size_t Cap>
class list
{
public:
    using value_type = std::remove_pointer_t<decltype(List::records)>;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using reference = value_type&;
    using const_reference = const value_type&;
    using iterator = value_type*;
    using const_iterator = const value_type*;

    list() noexcept = default;
    /** Takes over what a function of lumozeph.h has handed out. */
    explicit list(List* from) noexcept { hold(from); }
    list(list&& other) noexcept : list() { swap(other); }
    list& operator=(list&& other) noexcept
    {
        list(std::move(other)).swap(*this);
        return *this;
    }
    list(const list&) = delete;
    list& operator=(const list&) = delete;
    ~list() { Release(list_); }

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    /** Whether the list is at its cap: there may be more than it holds. */
    template <std::size_t Most = Cap, std::enable_if_t<Most != no_cap, int> = 0>
    bool truncated() const noexcept
    {
        return size_ >= Most;
    }

    iterator begin() & noexcept { return records_; }
    iterator end() & noexcept { return records_ + size_; }
    const_iterator begin() const& noexcept { return records_; }
    const_iterator end() const& noexcept { return records_ + size_; }
    value_type* data() & noexcept { return records_; }
    const value_type* data() const& noexcept { return records_; }
    reference operator[](std::size_t index) & noexcept { return records_[index]; }
    const_reference operator[](std::size_t index) const& noexcept { return records_[index]; }
#if defined(__cpp_lib_span)
    std::span<value_type> span() & noexcept
    {
        return {records_, size_};
    }
    std::span<const value_type> span() const& noexcept
    {
        return {records_, size_};
    }
    void span() && = delete;
#endif
    // Of a list that goes: what pointed into it would outlive it. A range-based for keeps its list.
    iterator begin() && = delete;
    iterator end() && = delete;
    value_type* data() && = delete;
    /** Of a list that goes: a copy. */
    value_type operator[](std::size_t index) && noexcept
    {
        return records_[index];
    }

    void reset(List* from = nullptr) noexcept
    {
        if (list_ != nullptr)
            Release(list_);
        hold(from);
    }
    void swap(list& other) noexcept
    {
        std::swap(list_, other.list_);
        std::swap(records_, other.records_);
        std::swap(size_, other.size_);
    }

private:
    void hold(List* from) noexcept
    {
        list_ = from;
        records_ = from != nullptr ? from->records : nullptr;
        size_ = from != nullptr ? static_cast<std::size_t>(from->count) : 0;
    }

    List* list_ = nullptr;
    value_type* records_ = nullptr;
    std::size_t size_ = 0;
};

/** Numbers of a record, which may be unaligned there: they are read one by one, by value. */
template <class Number>
class numbers
{
public:
    class iterator
    {
    public:
        using value_type = Number;
        using difference_type = std::ptrdiff_t;
        using reference = Number;
        using pointer = void;
        using iterator_category = std::input_iterator_tag;

        iterator() noexcept = default;
        explicit iterator(const void* at) noexcept : at_(static_cast<const unsigned char*>(at)) {}
        Number operator*() const noexcept
        {
            Number number;
            std::memcpy(&number, at_, sizeof number);
            return number;
        }
        iterator& operator++() noexcept
        {
            at_ += sizeof(Number);
            return *this;
        }
        iterator operator++(int) noexcept { return std::exchange(*this, iterator(at_ + sizeof(Number))); }
        friend bool operator==(iterator a, iterator b) noexcept { return a.at_ == b.at_; }
        friend bool operator!=(iterator a, iterator b) noexcept { return a.at_ != b.at_; }

    private:
        const unsigned char* at_ = nullptr;
    };

    numbers(const void* first, std::size_t size) noexcept
        : first_(static_cast<const unsigned char*>(first)), size_(size)
    {}

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    iterator begin() const noexcept { return iterator(first_); }
    iterator end() const noexcept { return iterator(first_ + size_ * sizeof(Number)); }
    Number operator[](std::size_t index) const noexcept { return *iterator(first_ + index * sizeof(Number)); }

private:
    const unsigned char* first_;
    std::size_t size_;
};

/** Entries of so many bytes each, in the module's layout, in memory of someone else's. */
template <std::size_t EntrySize>
class entries
{
public:
    using value_type = view<const std::byte>;

    class iterator
    {
    public:
        using value_type = view<const std::byte>;
        using difference_type = std::ptrdiff_t;
        using reference = value_type;
        using pointer = void;
        using iterator_category = std::input_iterator_tag;

        iterator() noexcept = default;
        explicit iterator(const std::byte* at) noexcept : at_(at) {}
        value_type operator*() const noexcept { return {at_, EntrySize}; }
        iterator& operator++() noexcept
        {
            at_ += EntrySize;
            return *this;
        }
        iterator operator++(int) noexcept { return std::exchange(*this, iterator(at_ + EntrySize)); }
        friend bool operator==(iterator a, iterator b) noexcept { return a.at_ == b.at_; }
        friend bool operator!=(iterator a, iterator b) noexcept { return a.at_ != b.at_; }

    private:
        const std::byte* at_ = nullptr;
    };

    entries() noexcept = default;
    /** As many entries as are reported, but no more than there is room for. */
    entries(const void* first, std::size_t room, std::size_t reported) noexcept
        : first_(static_cast<const std::byte*>(first)), size_(reported < room ? reported : room), reported_(reported)
    {}

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    /** How many there are, as the module says. */
    std::size_t reported() const noexcept { return reported_; }
    /** Whether the module says that there are more than are here. */
    bool truncated() const noexcept { return reported_ > size_; }
    iterator begin() const noexcept { return iterator(first_); }
    iterator end() const noexcept { return iterator(first_ + size_ * EntrySize); }
    view<const std::byte> operator[](std::size_t index) const noexcept
    {
        return {first_ + index * EntrySize, EntrySize};
    }

private:
    const std::byte* first_ = nullptr;
    std::size_t size_ = 0;
    std::size_t reported_ = 0;
};

namespace detail {

// Gives an owner what a call has handed out, or nothing if it has failed.
template <class Owner, class Handed>
std::error_code handed_over(std::int32_t result, Handed*& from, Owner& to) noexcept
{
    if (result != 0) {
        const std::error_code code = failure();
        to.reset();
        return code;
    }
    to.reset(from);
    return {};
}

inline void release_block(void* block) noexcept
{
    std::free(block);
}

// The room of the block of IPv6 routes, in entries: the smaller one, and the one where there are more routes than that.
inline constexpr std::size_t sure_room = 8000;
inline constexpr std::size_t largest_room = 30000;

// Release functions leave the array of a table without entries allocated.
template <class Table, std::int32_t (*Release)(Table*)>
void release_table(Table* table) noexcept
{
    if (table != nullptr && table->count == 0)
        std::free(table->records);
    Release(table);
}

} // namespace detail

/**
 * A block of entries, which is freed with its owner: a range over those that are sure to lie in it.
 *
 * The block has room for SureRoom or for LargestRoom entries, and the library does not tell which. Those of all() lie
 * in it, too, if the module is well behaved.
 */
template <std::size_t EntrySize, std::size_t SureRoom, std::size_t LargestRoom>
class entry_block
{
public:
    using iterator = typename entries<EntrySize>::iterator;

    entry_block() noexcept = default;
    /** Takes over what a function of lumozeph.h has handed out. */
    entry_block(void* block, std::size_t reported) noexcept : block_(block), reported_(reported) {}

    std::size_t size() const noexcept { return sure().size(); }
    bool empty() const noexcept { return size() == 0; }
    /** How many there are, as the module says. */
    std::size_t reported() const noexcept { return reported_; }
    /** Whether the module says that there are more than are sure to be here. */
    bool truncated() const noexcept { return sure().truncated(); }
    iterator begin() const& noexcept { return sure().begin(); }
    iterator end() const& noexcept { return sure().end(); }
    view<const std::byte> operator[](std::size_t index) const& noexcept { return sure()[index]; }
    /** All that the module reports: for programs that trust it. */
    entries<EntrySize> all() const& noexcept { return {block_.get(), LargestRoom, reported_}; }
    iterator begin() && = delete;
    iterator end() && = delete;
    view<const std::byte> operator[](std::size_t index) && = delete;
    entries<EntrySize> all() && = delete;

private:
    struct free_block
    {
        void operator()(void* block) const noexcept { std::free(block); }
    };

    entries<EntrySize> sure() const noexcept { return {block_.get(), SureRoom, reported_}; }

    std::unique_ptr<void, free_block> block_;
    std::size_t reported_ = 0;
};

/**
 * A reply in the module's own layout: Size bytes. What the module does not write of it is zero, or what was there
 * before if it is read into again. Large ones lie in memory of their own.
 */
template <std::size_t Size, bool InPlace = (Size <= 4096)>
class raw
{
public:
    static constexpr std::size_t size() noexcept { return Size; }
    std::byte* data() & noexcept { return bytes_; }
    const std::byte* data() const& noexcept { return bytes_; }
    std::byte* begin() & noexcept { return bytes_; }
    std::byte* end() & noexcept { return bytes_ + Size; }
    const std::byte* begin() const& noexcept { return bytes_; }
    const std::byte* end() const& noexcept { return bytes_ + Size; }
    std::byte& operator[](std::size_t index) & noexcept { return bytes_[index]; }
    std::byte operator[](std::size_t index) const& noexcept { return bytes_[index]; }
    std::byte* data() && = delete;
    std::byte* begin() && = delete;
    std::byte* end() && = delete;

private:
    std::byte bytes_[Size] = {};
};

template <std::size_t Size>
class raw<Size, false>
{
public:
    /** Throws std::bad_alloc. */
    raw() : bytes_(static_cast<std::byte*>(std::calloc(1, Size)))
    {
        if (bytes_ == nullptr)
            throw std::bad_alloc();
    }

    static constexpr std::size_t size() noexcept { return Size; }
    std::byte* data() & noexcept { return bytes_.get(); }
    const std::byte* data() const& noexcept { return bytes_.get(); }
    std::byte* begin() & noexcept { return bytes_.get(); }
    std::byte* end() & noexcept { return bytes_.get() + Size; }
    const std::byte* begin() const& noexcept { return bytes_.get(); }
    const std::byte* end() const& noexcept { return bytes_.get() + Size; }
    std::byte& operator[](std::size_t index) & noexcept { return bytes_.get()[index]; }
    std::byte operator[](std::size_t index) const& noexcept { return bytes_.get()[index]; }
    std::byte* data() && = delete;
    std::byte* begin() && = delete;
    std::byte* end() && = delete;

private:
    struct free_block
    {
        void operator()(std::byte* block) const noexcept { std::free(block); }
    };

    std::unique_ptr<std::byte, free_block> bytes_;
};

} // namespace lumozeph
