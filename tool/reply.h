// What an operation answered, and what is to be done with it when it is no longer needed.
#pragma once

#include "lumozeph.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <span>
#include <vector>

namespace tool {

class Reply
{
public:
    std::uint32_t value() const { return _value; }
    // The record, the records of a list, or the bytes.
    const std::byte* data() const { return _data; }
    // Of records or entries.
    std::size_t count() const { return _count; }
    // Of the bytes, or of one entry.
    std::size_t size() const { return _size; }
    std::span<const std::byte> bytes() const { return {_data, _size}; }

    void take_value(std::uint32_t value) { _value = value; }

    void take(void* owned, const void* records, std::size_t count, void (*release)(void*))
    {
        _owned = Owned(owned, release);
        _data = static_cast<const std::byte*>(records);
        _count = count;
    }

    // The module may count more than there is room for, and nobody else says how large the block is.
    void take_block(void* block, std::size_t count, std::size_t entry)
    {
        take(block, block, std::min(count, malloc_usable_size(block) / entry), std::free);
        _size = entry;
    }

    template <class Record>
    void keep(const Record& record)
    {
        const auto bytes = std::as_bytes(std::span(&record, 1));
        _buffer.assign(bytes.begin(), bytes.end());
        _data = _buffer.data();
        _count = 1;
    }

    // Zeros until the library has written to it.
    template <class Element>
    Element* room(std::size_t size)
    {
        _buffer.assign(size, std::byte {0});
        _data = _buffer.data();
        _size = size;
        return static_cast<Element*>(static_cast<void*>(_buffer.data()));
    }

    // Of the room, what is in use. The module may count more than it has.
    void take_part(std::size_t count, std::size_t entry)
    {
        _count = std::min(count, _buffer.size() / entry);
        _size = entry;
    }

    LumoCmdResult& command_result() { return _command_result; }

private:
    using Owned = std::unique_ptr<void, void (*)(void*)>;

    std::uint32_t _value = 0;
    const std::byte* _data = nullptr;
    std::size_t _count = 0;
    std::size_t _size = 0;
    std::vector<std::byte> _buffer;
    Owned _owned {nullptr, std::free};
    LumoCmdResult _command_result {};
};

} // namespace tool
