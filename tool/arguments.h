// The arguments of an operation, as the library gets them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tool {

class Arguments
{
public:
    explicit Arguments(std::size_t count) : _slots(count) {}

    void set_number(std::size_t position, std::uint64_t number) { _slots[position].number = number; }
    void set_bytes(std::size_t position, std::string bytes) { _slots[position].bytes = std::move(bytes); }
    std::size_t size_of_bytes(std::size_t position) const
    {
        return _slots[position].bytes ? _slots[position].bytes->size() : 0;
    }

    template <class Number>
    Number number(std::size_t position) const
    {
        return static_cast<Number>(_slots[position].number);
    }

    // Null if there are none.
    const char* text(std::size_t position) const { return bytes<const char>(position); }
    char* writable(std::size_t position) { return _slots[position].bytes ? _slots[position].bytes->data() : nullptr; }
    // The records of the header are packed: they may lie anywhere.
    template <class Pointed>
    Pointed* bytes(std::size_t position) const
    {
        return _slots[position].bytes ? static_cast<Pointed*>(static_cast<const void*>(_slots[position].bytes->data()))
                                      : nullptr;
    }

private:
    struct Slot
    {
        std::uint64_t number = 0;
        std::optional<std::string> bytes;
    };

    std::vector<Slot> _slots;
};

} // namespace tool
