// The envelope that an ioctl of the device carries, by its literal offsets.
#pragma once

#include <cstdint>
#include <cstring>

namespace operations {

inline constexpr std::size_t envelope_size = 24;

struct Envelope
{
    std::uint32_t in_len;
    const char* in;
    std::uint32_t room;
    char* out;
};

inline Envelope read_envelope(const void* from)
{
    const char* const bytes = static_cast<const char*>(from);
    Envelope envelope;
    std::memcpy(&envelope.in_len, bytes + 0, 4);
    std::memcpy(&envelope.in, bytes + 4, 8);
    std::memcpy(&envelope.room, bytes + 12, 4);
    std::memcpy(&envelope.out, bytes + 16, 8);
    return envelope;
}

// The module stores how many bytes it wrote where the room was.
inline void report_length(void* envelope, std::uint32_t length)
{
    std::memcpy(static_cast<char*>(envelope) + 12, &length, 4);
}

} // namespace operations
