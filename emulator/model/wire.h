// Requests as the module reads them and records as it writes them, by literal offsets.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace emulator {

class Request
{
public:
    explicit Request(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::uint8_t u8(std::size_t offset) const { return number<std::uint8_t>(offset); }
    std::uint16_t u16(std::size_t offset) const { return number<std::uint16_t>(offset); }
    std::uint32_t u32(std::size_t offset) const { return number<std::uint32_t>(offset); }
    std::uint64_t u64(std::size_t offset) const { return number<std::uint64_t>(offset); }

    // Up to the first NUL or the field's end.
    std::string text(std::size_t offset, std::size_t width) const
    {
        const char* begin = reinterpret_cast<const char*>(bytes_.data()) + offset;
        return {begin, std::find(begin, begin + width, '\0')};
    }

    template <std::size_t Width>
    std::array<std::byte, Width> bytes(std::size_t offset) const
    {
        std::array<std::byte, Width> copy;
        std::memcpy(copy.data(), bytes_.data() + offset, Width);
        return copy;
    }

    std::span<const std::byte> from(std::size_t offset, std::size_t width) const
    {
        return bytes_.subspan(offset, width);
    }

private:
    template <class Number>
    Number number(std::size_t offset) const
    {
        Number value;
        std::memcpy(&value, bytes_.data() + offset, sizeof value);
        return value;
    }

    std::span<const std::byte> bytes_;
};

// Appends one zeroed record to a reply and fills it.
class Record
{
public:
    Record(std::vector<std::byte>& reply, std::size_t size) : reply_(reply), begin_(reply.size())
    {
        reply.resize(begin_ + size);
    }

    Record& u8(std::size_t offset, std::uint8_t value) { return number(offset, value); }
    Record& u16(std::size_t offset, std::uint16_t value) { return number(offset, value); }
    Record& u32(std::size_t offset, std::uint32_t value) { return number(offset, value); }
    Record& u64(std::size_t offset, std::uint64_t value) { return number(offset, value); }

    // Cut to width - 1 bytes, so that the field ends in NUL.
    Record& text(std::size_t offset, std::size_t width, std::string_view text)
    {
        const std::string_view fitting = text.substr(0, width - 1);
        std::copy(fitting.begin(), fitting.end(), reinterpret_cast<char*>(at(offset)));
        return *this;
    }

    Record& bytes(std::size_t offset, std::span<const std::byte> bytes)
    {
        std::copy(bytes.begin(), bytes.end(), at(offset));
        return *this;
    }

private:
    template <class Number>
    Record& number(std::size_t offset, Number value)
    {
        std::memcpy(at(offset), &value, sizeof value);
        return *this;
    }

    std::byte* at(std::size_t offset) { return reply_.data() + begin_ + offset; }

    std::vector<std::byte>& reply_;
    std::size_t begin_;
};

} // namespace emulator
