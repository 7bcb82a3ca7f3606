// A request record as the module must see it, by literal offsets.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace operations {

inline constexpr std::size_t request_size = 776;

// What is not named is zero, unless the operation does not clear its request. Each function gives a request that names
// more.
class Request
{
public:
    // The text, and zeros up to the width.
    constexpr Request text(std::size_t offset, const char* text, std::size_t width = 0) const
    {
        Request more = *this;
        for (std::size_t i = 0; *text != '\0' || i < width; ++i)
            more.put(offset + i, *text != '\0' ? *text++ : '\0');
        return more;
    }
    template <std::size_t Size>
    constexpr Request bytes(
        std::size_t offset, const std::array<std::uint8_t, Size>& bytes, std::size_t size = Size) const
    {
        Request more = *this;
        for (std::size_t i = 0; i < size; ++i)
            more.put(offset + i, static_cast<char>(bytes[i]));
        return more;
    }
    constexpr Request u8(std::size_t offset, std::uint8_t value) const { return number(offset, value, 1); }
    constexpr Request u16(std::size_t offset, std::uint16_t value) const { return number(offset, value, 2); }
    constexpr Request u32(std::size_t offset, std::uint32_t value) const { return number(offset, value, 4); }
    constexpr Request u64(std::size_t offset, std::uint64_t value) const { return number(offset, value, 8); }

    constexpr bool names(std::size_t offset) const { return named_[offset]; }
    constexpr std::string_view content() const { return {bytes_.data(), bytes_.size()}; }

private:
    constexpr Request number(std::size_t offset, std::uint64_t value, std::size_t width) const
    {
        Request more = *this;
        for (std::size_t i = 0; i < width; ++i)
            more.put(offset + i, static_cast<char>(value >> (8 * i)));
        return more;
    }
    constexpr void put(std::size_t offset, char byte)
    {
        bytes_[offset] = byte;
        named_[offset] = true;
    }

    std::array<char, request_size> bytes_ {};
    std::array<bool, request_size> named_ {};
};

} // namespace operations
