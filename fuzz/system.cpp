#include "system.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sanitizer/asan_interface.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

extern "C" {
void* __real_malloc(std::size_t);
void* __real_calloc(std::size_t, std::size_t);
void __real_free(void*);
int __real_open64(const char*, int, ...);
int __real_ioctl(int, unsigned long, ...);
int __real_close(int);
int __real_inet_pton(int, const char*, void*);
}

namespace fuzz {

namespace {

constexpr int descriptor_of_the_device = 5000;

// The system that the calls on this thread go to. Null while the fuzzer itself runs.
thread_local System* system_of_the_library = nullptr;

// Larger blocks end where an inaccessible page begins: AddressSanitizer would spend more time on marking megabytes than
// the library on using them.
constexpr std::size_t largest_on_the_heap = 64 * 1024;

constexpr std::size_t page_size = 4096;

std::size_t pages_of(std::size_t size)
{
    return (size + page_size - 1) / page_size * page_size;
}

// Of the heap: filled. Of their own pages: zero.
char* take(std::size_t size)
{
    if (size <= largest_on_the_heap) {
        char* const block = static_cast<char*>(__real_malloc(size));
        std::memset(block, filler, size);
        return block;
    }
    const std::size_t pages = pages_of(size);
    void* const base =
        mmap(nullptr, pages + page_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (base == MAP_FAILED)
        return nullptr;
    mprotect(static_cast<char*>(base) + pages, page_size, PROT_NONE);
    return static_cast<char*>(base) + pages - size;
}

void give_back(char* block, std::size_t size)
{
    if (size <= largest_on_the_heap) {
        __real_free(block);
        return;
    }
    munmap(block + size - pages_of(size), pages_of(size) + page_size);
}

// A list of megabytes takes a hundred times as long as one of a few records. Not every input may ask for it.
constexpr std::int32_t longest_in_haste = 16 * 1024;

// Far enough for a read that goes on behind the end to be seen.
constexpr std::size_t most_poisoned = 4096;

// A request or a room that is not the library's to use is seen here rather than in the kernel.
void expect_accessible(std::string_view what, const char* bytes, std::size_t size)
{
    if (size > 0 && __asan_region_is_poisoned(const_cast<char*>(bytes), size) != nullptr)
        fail(std::string(what) + " is not all there");
}

} // namespace

Reply::Reply(Input& input)
{
    const unsigned how = input.byte();
    if ((how & 8) != 0)
        repetitions_ = SIZE_MAX;
    if (how >> 4 == 15)
        pace_ = Pace::Patient;
    switch (how & 7) {
    case 1:
        length_ = Length::AsSent;
        break;
    case 2:
        length_ = Length::Given;
        number_ = input.word();
        break;
    case 3:
        length_ = Length::InRecords;
        number_ = input.half();
        more_ = static_cast<std::int8_t>(input.byte());
        break;
    case 4:
        length_ = Length::NearTheRoom;
        more_ = static_cast<std::int8_t>(input.byte());
        break;
    case 5:
        ioctl_error_ = 1 + input.byte() % 130;
        break;
    case 6:
        open_error_ = 1 + input.byte() % 130;
        break;
    default:
        break;
    }
}

std::uint32_t Reply::reported(std::uint32_t room, std::size_t record) const
{
    const std::uint32_t length = chosen_length(room, record);
    const bool is_long = static_cast<std::int32_t>(length) > longest_in_haste && room > longest_in_haste;
    return is_long && pace_ == Pace::InHaste ? length % longest_in_haste : length;
}

std::uint32_t Reply::chosen_length(std::uint32_t room, std::size_t record) const
{
    switch (length_) {
    case Length::AsSent:
        return room;
    case Length::Given:
        return number_;
    case Length::InRecords:
        return number_ * static_cast<std::uint32_t>(record) + static_cast<std::uint32_t>(more_);
    case Length::NearTheRoom:
        return room + static_cast<std::uint32_t>(more_);
    case Length::Written:
        break;
    }
    return static_cast<std::uint32_t>(written(room));
}

char Reply::byte(std::size_t at) const
{
    return !bytes_.empty() && at / bytes_.size() < repetitions_ ? bytes_[at % bytes_.size()] : filler;
}

std::string Reply::content(std::size_t from, std::size_t size) const
{
    std::string content(size, filler);
    for (std::size_t i = 0; i < size; ++i)
        content[i] = byte(from + i);
    return content;
}

void Reply::write(char* to, std::size_t size) const
{
    std::size_t done = written(size);
    std::memcpy(to, bytes_.data(), done);
    if (done == 0 || repetitions_ == 1) {
        std::memset(to + done, filler, size - done);
        return;
    }
    while (done < size) {
        const std::size_t more = std::min(done, size - done);
        std::memcpy(to + done, to, more);
        done += more;
    }
}

System::System(Input& input, const Shape& shape) : shape_(shape), to_be_refused_(input.byte())
{
    for (std::size_t i = 0; i < shape.replies; ++i)
        replies_.emplace_back(input);
    for (std::size_t i = 0; i + 1 < shape.replies; ++i)
        replies_[i].set_bytes(input.bytes(input.byte()));
    replies_.back().set_bytes(input.rest());
}

System::~System()
{
    if (!blocks_.empty())
        fail("leaves " + std::to_string(blocks_.size()) + " blocks, the first of " +
             std::to_string(blocks_.front().size) + " bytes");
    expect_equal("open descriptors", open_descriptors_, 0);
}

void System::enter()
{
    errno = untouched;
    system_of_the_library = this;
}

int System::leave()
{
    const int error = errno;
    system_of_the_library = nullptr;
    return error;
}

void System::expect_left(std::size_t size)
{
    if (blocks_.size() != 1)
        fail("leaves " + std::to_string(blocks_.size()) + " blocks instead of one");
    expect_equal(
        "size of what is left", static_cast<std::int64_t>(blocks_.front().size), static_cast<std::int64_t>(size));
    release(blocks_.front().at);
}

void* System::allocate(std::size_t size)
{
    ++allocations_;
    char* const block = allocations_ == to_be_refused_ ? nullptr : take(size);
    if (block == nullptr) {
        refused_ = allocations_;
        errno = EAGAIN; // The library must say ENOMEM whatever the allocator leaves behind.
        return nullptr;
    }
    blocks_.push_back({block, size});
    return block;
}

void System::release(void* block)
{
    const auto found = std::find_if(blocks_.begin(), blocks_.end(), [&](const Block& one) { return one.at == block; });
    if (found == blocks_.end())
        fail("frees what is not allocated");
    if (poisoned_.at >= found->at && poisoned_.at < found->at + found->size) {
        ASAN_UNPOISON_MEMORY_REGION(poisoned_.at, poisoned_.size);
        poisoned_ = {};
    }
    give_back(found->at, found->size);
    blocks_.erase(found);
}

int System::open()
{
    if (opened_ == replies_.size())
        fail("opens the device once more than it may");
    const Reply& reply = replies_[opened_++];
    if (reply.open_error() != 0) {
        errno = reply.open_error();
        return -1;
    }
    ++open_descriptors_;
    return descriptor_of_the_device;
}

std::size_t System::looked_at(const Exchange& exchange) const
{
    const std::size_t length = std::min<std::size_t>(
        exchange.room, static_cast<std::size_t>(std::max(static_cast<std::int32_t>(exchange.reported), 0)));
    switch (shape_.looks) {
    case Looks::AtWholeRecords:
        return length / shape_.record * shape_.record;
    case Looks::AtWholeRecordsAndAFragment:
        return (length + shape_.record - 1) / shape_.record * shape_.record;
    case Looks::AtTheRoom:
        return exchange.room;
    case Looks::Nowhere:
        break;
    }
    return 0;
}

int System::control(int descriptor, unsigned long number, char* envelope)
{
    expect_equal("descriptor", descriptor, descriptor_of_the_device);
    if (number > 160)
        fail("sends a command that does not exist");
    expect_accessible("the envelope", envelope, 24);
    std::uint32_t in_length;
    const char* in;
    Exchange exchange {};
    char* out;
    std::memcpy(&in_length, envelope, 4);
    std::memcpy(&in, envelope + 4, 8);
    std::memcpy(&exchange.room, envelope + 12, 4);
    std::memcpy(&out, envelope + 16, 8);
    expect_accessible("the request", in, in_length);
    expect_accessible("the room of the reply", out, std::min<std::size_t>(exchange.room, most_poisoned));
    exchange.input.assign(in, in_length);

    const Reply& reply = replies_[opened_ - 1];
    exchange.reported = exchange.room;
    if (reply.error() == 0) {
        exchange.reported = reply.reported(exchange.room, shape_.record);
        std::memcpy(envelope + 12, &exchange.reported, 4);
        const std::size_t looked = looked_at(exchange);
        if (out != nullptr)
            reply.write(out, std::max(looked, reply.written(exchange.room)));
        if (shape_.looks != Looks::Nowhere && looked < exchange.room) {
            poisoned_ = {out + looked, std::min(exchange.room - looked, most_poisoned)};
            ASAN_POISON_MEMORY_REGION(poisoned_.at, poisoned_.size);
        }
    }
    exchanges_.push_back(exchange);
    errno = reply.error() != 0 ? reply.error() : errno;
    return reply.error() != 0 ? -1 : 7; // Any result that is not negative is a success.
}

int System::close(int descriptor)
{
    expect_equal("descriptor", descriptor, descriptor_of_the_device);
    --open_descriptors_;
    return 0;
}

int System::convert(void* address, std::size_t size)
{
    if (inet_pton_.empty())
        return 0;
    const int answer = static_cast<std::int8_t>(inet_pton_.front()) % 2;
    inet_pton_.remove_prefix(1);
    if (answer == 1)
        std::memset(address, 'a', size);
    return answer;
}

Buffer::Buffer(std::size_t size) : size_(size), data_(take(size)) {}

Buffer::Buffer(std::string_view content) : Buffer(content.size())
{
    std::memcpy(data_, content.data(), content.size());
}

Buffer::~Buffer()
{
    give_back(data_, size_);
}

char Buffer::fresh() const
{
    return size_ <= largest_on_the_heap ? filler : '\0';
}

} // namespace fuzz

using fuzz::system_of_the_library;

extern "C" {

void* __wrap_malloc(std::size_t size)
{
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    if (system == nullptr)
        return __real_malloc(size);
    void* const block = system->allocate(size);
    system_of_the_library = system;
    return block;
}

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    if (system == nullptr)
        return __real_calloc(count, size);
    void* const block = system->allocate(count * size);
    if (block != nullptr && count * size <= fuzz::largest_on_the_heap)
        std::memset(block, 0, count * size);
    system_of_the_library = system;
    return block;
}

void __wrap_free(void* block)
{
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    if (system == nullptr)
        return __real_free(block);
    system->release(block);
    system_of_the_library = system;
}

int __wrap_open64(const char* path, int flags, ...)
{
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    if (system == nullptr) {
        va_list arguments;
        va_start(arguments, flags);
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
        va_end(arguments);
        return __real_open64(path, flags, mode);
    }
    const int descriptor = system->open();
    system_of_the_library = system;
    return descriptor;
}

int __wrap_ioctl(int descriptor, unsigned long number, ...)
{
    va_list arguments;
    va_start(arguments, number);
    char* const argument = va_arg(arguments, char*);
    va_end(arguments);
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    if (system == nullptr)
        return __real_ioctl(descriptor, number, argument);
    const int result = system->control(descriptor, number, argument);
    system_of_the_library = system;
    return result;
}

int __wrap_close(int descriptor)
{
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    if (system == nullptr)
        return __real_close(descriptor);
    const int result = system->close(descriptor);
    system_of_the_library = system;
    return result;
}

int __wrap_inet_pton(int family, const char* text, void* address)
{
    fuzz::System* const system = std::exchange(system_of_the_library, nullptr);
    const int real = __real_inet_pton(family, text, address);
    if (system == nullptr)
        return real;
    const int scripted = system->convert(address, family == AF_INET ? 4 : 16);
    system_of_the_library = system;
    return real != 0 ? real : scripted;
}

} // extern "C"
