// The system under the library: its calls of malloc, calloc, free, open64, ioctl, close and inet_pton are answered as
// the input says, and what it leaves behind is seen.
#pragma once

#include "expect.h"
#include "fake/interposer.h"
#include "input.h"

#include <string>
#include <vector>

namespace fuzz {

// What of a reply's room the library may look at, by the length that is reported. Of the rest, the nearest bytes are
// poisoned.
enum class Looks
{
    AtWholeRecords,
    AtWholeRecordsAndAFragment,
    AtTheRoom,
    Nowhere
};

// What the device does with one command.
class Reply
{
public:
    // The lower bits of one byte say how the length is reported and whether the bytes are repeated, the upper ones
    // whether the length may be a long one. Then come the numbers that this calls for.
    explicit Reply(Input& input);

    void set_bytes(std::string_view bytes) { bytes_ = bytes; }

    // The errno that open or ioctl fails with; 0 if they do not.
    int open_error() const { return open_error_; }
    int error() const { return open_error_ != 0 ? open_error_ : ioctl_error_; }

    std::uint32_t reported(std::uint32_t room, std::size_t record) const;

    // What the device has written, as far as it is looked at.
    std::size_t written(std::size_t room) const { return std::min(room, bytes_.size()); }
    char byte(std::size_t at) const;
    std::string content(std::size_t from, std::size_t size) const;
    void write(char* to, std::size_t size) const;

private:
    enum class Length
    {
        Written,
        AsSent,
        Given,
        InRecords,
        NearTheRoom
    };
    enum class Pace
    {
        InHaste,
        Patient
    };

    std::uint32_t chosen_length(std::uint32_t room, std::size_t record) const;

    Length length_ = Length::Written;
    Pace pace_ = Pace::InHaste;
    std::uint32_t number_ = 0;
    std::int8_t more_ = 0;
    std::size_t repetitions_ = 1;
    int open_error_ = 0;
    int ioctl_error_ = 0;
    std::string_view bytes_ {};
};

// One command that reached the device.
struct Exchange
{
    std::uint32_t room;
    std::uint32_t reported;
    std::string input;
};

// What fresh memory holds, and what lies behind the bytes of a reply.
inline constexpr char filler = '\xa5';

struct Shape
{
    Looks looks;
    std::size_t record; // what the lengths are counted in
    std::size_t replies = 1;
};

class System : public fake::Libc
{
public:
    // The input says which allocation is refused, then what the replies do, then what all but the last of them hold;
    // that of the last is the rest.
    System(Input& input, const Shape& shape);
    ~System();

    // Makes calls of the library in this system.
    template <class Function>
    Ended call(Function function)
    {
        enter();
        const std::int32_t result = function();
        return {result, leave()};
    }

    const Reply& reply(std::size_t index = 0) const { return replies_[index]; }
    const std::vector<Exchange>& exchanges() const { return exchanges_; }

    // The number of the allocation that was refused, from 1 on; 0 if none was.
    int refused() const { return refused_; }
    int allocations() const { return allocations_; }

    // Frees what the library leaves allocated on purpose: one block of this size.
    void expect_left(std::size_t size);

    // Answers inet_pton with these, one after the other, and then with 0.
    void script_inet_pton(std::string_view answers) { inet_pton_ = answers; }

    // What the library calls.
    void* malloc(std::size_t size) override;
    void* calloc(std::size_t count, std::size_t size) override;
    void free(void* block) override;
    int open64(const char* path, int flags, mode_t mode) override;
    int ioctl(int descriptor, unsigned long number, void* argument) override;
    int close(int descriptor) override;
    int inet_pton(int family, const char* text, void* address) override;

private:
    struct Block
    {
        char* at;
        std::size_t size;
    };

    void enter();
    int leave();
    std::size_t looked_at(const Exchange& exchange) const;

    Shape shape_;
    int to_be_refused_;
    std::vector<Reply> replies_;
    std::string_view inet_pton_ {};
    std::vector<Block> blocks_ {};
    Block poisoned_ {};
    std::vector<Exchange> exchanges_ {};
    std::size_t opened_ = 0;
    int open_descriptors_ = 0;
    int allocations_ = 0;
    int refused_ = 0;
};

// Memory of exactly the size that the library may use.
class Buffer
{
public:
    explicit Buffer(std::size_t size);
    explicit Buffer(std::string_view content);
    ~Buffer();
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    char* data() const { return data_; }
    std::string_view content(std::size_t from, std::size_t size) const { return {data_ + from, size}; }
    std::size_t size() const { return size_; }
    // What it held before anything was written.
    char fresh() const;

private:
    std::size_t size_;
    char* data_;
};

} // namespace fuzz
