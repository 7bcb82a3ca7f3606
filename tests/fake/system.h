// The system that the library sees in these tests. Inside observe() the library's calls of open64, ioctl, close,
// getenv, malloc, calloc and free are recorded in order and answered by the device that the test has put in place;
// everywhere else they go to libc.
#pragma once

#include "operations/reply.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fake {

using operations::Bytes;

// What one ioctl carried.
struct Sent
{
    std::string path;
    unsigned long number = 0;
    std::uint32_t in_len = 0;
    std::uint64_t in_ptr = 0;
    std::uint32_t out_len = 0;
    std::uint64_t out_ptr = 0;
    Bytes input {}; // a copy of the in_len bytes at in_ptr
    Bytes room {};  // what the out_len bytes at out_ptr held before the device wrote
};

// What the device does with one ioctl.
struct Answer
{
    int error = 0;                         // fails with this errno if it is not 0
    Bytes reply {};                        // written to out_ptr, as far as there is room
    std::size_t at = 0;                    // where in the room the reply begins
    std::optional<std::int32_t> length {}; // stored in outLen; the reply's size if not given
    bool leaves_length = false;            // outLen stays as it was sent
};

inline Answer replies(Bytes reply)
{
    return {.reply = std::move(reply)};
}
inline Answer reports(Bytes reply, std::int32_t length)
{
    return {.reply = std::move(reply), .length = length};
}
inline Answer fails(int error)
{
    return {.error = error};
}
inline Answer writes_nothing()
{
    return {.leaves_length = true};
}

class Device
{
public:
    virtual ~Device() = default;
    virtual Answer answer(const Sent& sent) = 0;
};

// Answers with what the test has queued, in order, and with success and a length of 0 when nothing is left.
class ScriptedDevice : public Device
{
public:
    ScriptedDevice() = default;
    explicit ScriptedDevice(Answer answer) { next(std::move(answer)); }
    ScriptedDevice& next(Answer answer)
    {
        answers_.push_back(std::move(answer));
        return *this;
    }
    Answer answer(const Sent& sent) override;

private:
    std::deque<Answer> answers_;
};

// How the system behaves around the device.
struct System
{
    std::optional<std::string> upgrade_switch {}; // the value of USE_UPGRADE_DEV
    int open_error = 0;
    int opens_before_error = 0; // so many calls of open64 succeed before the one that fails
    int close_error = 0;
    int failing_allocation = 0; // 1: the first malloc or calloc returns null, and so on
    bool guarded_blocks =
        false; // every block ends where an inaccessible page begins, and begins where a change is seen
    std::size_t kept_content = 1024 * 1024; // as much of a block or a room is filled, and kept for the test to look at
    std::function<int(int, const char*, void*)> inet_pton {}; // answers in its place if given
};

// A call of the library and everything that it did to its surroundings.
struct Call
{
    std::int32_t result = 0;
    int error = 0; // errno after the call; it was untouched (below) before
    std::vector<std::string> events;
    std::vector<Sent> sent;
    std::vector<std::string> blocks_left;   // allocated in this call, not freed: "#1: malloc(256)"
    std::vector<void*> addresses_left;      // where they are
    std::vector<std::string> freed_content; // what each freed block held, in the order of the frees
    int descriptors_left = 0;
};

// errno before every observed call: a value that nothing here sets.
inline constexpr int untouched = 133;

Call observe(Device& device, const System& system, const std::function<std::int32_t()>& call);
// Frees what the call has left allocated on purpose.
void free_left(const Call& call);

Call observe(Device& device, const std::function<std::int32_t()>& call);

// What the library hands out is freed by a later observe(), where it is recorded by how it was made,
// "free(calloc(1, 16))", or by free() in the test.

// Makes the device answer without recording, until the object goes: for whole programs and for threads.
class Installed
{
public:
    explicit Installed(Device& device);
    ~Installed();
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;
};

} // namespace fake
