#include "system.h"

#include "operations/envelope.h"
#include "operations/operations.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sanitizer/asan_interface.h>
#include <sys/mman.h>
#include <sys/socket.h>

namespace fuzz {

namespace {

constexpr int descriptor_of_the_device = 5000;

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
        char* const block = static_cast<char*>(fake::Libc().malloc(size));
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
        fake::Libc().free(block);
        return;
    }
    munmap(block + size - pages_of(size), pages_of(size) + page_size);
}

// A list of megabytes takes a hundred times as long as one of a few records. Not every input may ask for it.
constexpr std::int32_t longest_in_haste = 16 * 1024;

// Far enough for a read that goes on behind the end to be seen.
constexpr std::size_t most_poisoned = 4096;

unsigned long last_command()
{
    static const unsigned long last = [] {
        std::int32_t largest = 0;
        operations::for_each_operation([&](const operations::Chapter&, const operations::Operation& operation) {
            largest = std::max(largest, operation.command);
        });
        return static_cast<unsigned long>(largest);
    }();
    return last;
}

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
    fake::answer_this_thread(this);
}

int System::leave()
{
    const int error = errno;
    fake::answer_this_thread(nullptr);
    return error;
}

void System::expect_left(std::size_t size)
{
    if (blocks_.size() != 1)
        fail("leaves " + std::to_string(blocks_.size()) + " blocks instead of one");
    expect_equal(
        "size of what is left", static_cast<std::int64_t>(blocks_.front().size), static_cast<std::int64_t>(size));
    free(blocks_.front().at);
}

void* System::malloc(std::size_t size)
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

void* System::calloc(std::size_t count, std::size_t size)
{
    void* const block = malloc(count * size);
    if (block != nullptr && count * size <= largest_on_the_heap)
        std::memset(block, 0, count * size);
    return block;
}

void System::free(void* block)
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
    errno = ELOOP; // Allocators are replaced, and may leave any errno: it must change no result.
}

int System::open64(const char*, int, mode_t)
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

int System::ioctl(int descriptor, unsigned long number, void* argument)
{
    expect_equal("descriptor", descriptor, descriptor_of_the_device);
    if (number > last_command())
        fail("sends a command that does not exist");
    expect_accessible("the envelope", static_cast<const char*>(argument), operations::envelope_size);
    const operations::Envelope envelope = operations::read_envelope(argument);
    expect_accessible("the request", envelope.in, envelope.in_len);
    expect_accessible("the room of the reply", envelope.out, std::min<std::size_t>(envelope.room, most_poisoned));
    Exchange exchange {.room = envelope.room, .reported = envelope.room, .input = {envelope.in, envelope.in_len}};

    const Reply& reply = replies_[opened_ - 1];
    if (reply.error() == 0) {
        exchange.reported = reply.reported(exchange.room, shape_.record);
        operations::report_length(argument, exchange.reported);
        const std::size_t looked = looked_at(exchange);
        if (envelope.out != nullptr)
            reply.write(envelope.out, std::max(looked, reply.written(exchange.room)));
        if (shape_.looks != Looks::Nowhere && looked < exchange.room) {
            poisoned_ = {envelope.out + looked, std::min(exchange.room - looked, most_poisoned)};
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

int System::inet_pton(int family, const char* text, void* address)
{
    const int real = Libc::inet_pton(family, text, address);
    if (real != 0 || inet_pton_.empty())
        return real;
    const int answer = static_cast<std::int8_t>(inet_pton_.front()) % 2;
    inet_pton_.remove_prefix(1);
    if (answer == 1)
        std::memset(address, 'a', family == AF_INET ? 4 : 16);
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
