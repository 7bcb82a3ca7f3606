// What a trace tells of: commands, and opens of the device.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace emulator {

// Who has asked. The program's name is that of the thread, which is the program's unless it has named its thread.
struct Caller
{
    std::uint32_t process = 0;
    std::uint32_t thread = 0;
    std::string program {};
};

// How far what was asked could be read in the caller's memory.
enum class Readable
{
    Nothing,
    Envelope,
    Input
};

struct Call
{
    std::uint64_t order = 0; // in which commands took place, from 1
    std::uint32_t number = 0;
    Readable readable = Readable::Nothing;
    std::uint32_t in_len = 0;
    std::uint64_t in_ptr = 0;
    std::uint32_t room = 0;
    std::uint64_t out_ptr = 0;
    std::vector<std::byte> input {}; // the beginning of one that is too long
    std::uint32_t reply_len = 0;     // as the caller is told
    std::size_t reply_size = 0;      // as it is
    std::vector<std::byte> reply {}; // as much of its beginning as is kept
};

struct Opening
{
    std::string path;
    std::uint64_t flags = 0;
};

struct Event
{
    std::chrono::system_clock::time_point begun {};
    std::chrono::nanoseconds took {};
    Caller caller {};
    std::variant<Call, Opening> what {};
    std::optional<int> error {}; // 0 or the errno; nothing if it is never answered
    std::string faults {};       // that struck it, as they were written, with spaces between
};

// In how many bytes it is kept.
inline std::size_t size_of(const Event& event)
{
    const Call* const call = std::get_if<Call>(&event.what);
    return sizeof event + event.faults.capacity() +
           (call != nullptr ? call->input.capacity() + call->reply.capacity() : 0);
}

} // namespace emulator
