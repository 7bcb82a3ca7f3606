// The bytes of one run.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

// Gives the bytes from the front. Those that have run out are zero.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : left_(reinterpret_cast<const char*>(data), size) {}

    std::uint8_t byte() { return static_cast<std::uint8_t>(number(1)); }
    std::uint16_t half() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t word() { return number(4); }

    std::string_view bytes(std::size_t size)
    {
        const std::string_view taken = left_.substr(0, size);
        left_.remove_prefix(taken.size());
        return taken;
    }
    std::string_view rest() { return bytes(left_.size()); }

private:
    std::uint32_t number(std::size_t width)
    {
        std::uint32_t value = 0;
        unsigned shift = 0;
        for (const char byte : bytes(width)) {
            value |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(byte)) << shift;
            shift += 8;
        }
        return value;
    }

    std::string_view left_;
};

} // namespace fuzz
