#include "fake/system.h"

#include "fake/interposer.h"
#include "operations/envelope.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

namespace fake {

namespace {

constexpr int first_descriptor = 5000;

// What lies between the beginning of a page and a block that ends with it.
constexpr char before_block = 0x5b;

enum class Place
{
    Heap,
    BeforeInaccessiblePage
};

struct Block
{
    int number;
    std::string made_by;
    std::size_t size;
    Place place;
};

std::size_t page_size()
{
    return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::size_t mapped_size(std::size_t size)
{
    return (size + page_size() - 1) / page_size() * page_size() + page_size();
}

void* map_guarded(std::size_t size)
{
    const std::size_t mapped = mapped_size(size);
    char* base = static_cast<char*>(mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (base == MAP_FAILED)
        return nullptr;
    mprotect(base + mapped - page_size(), page_size(), PROT_NONE);
    std::memset(base, before_block, mapped - page_size() - size);
    return base + mapped - page_size() - size;
}

void unmap_guarded(void* block, std::size_t size)
{
    const std::size_t mapped = mapped_size(size);
    char* const base = static_cast<char*>(block) + size + page_size() - mapped;
    if (std::any_of(base, static_cast<char*>(block), [](char byte) { return byte != before_block; }))
        abort(); // Something has been written before the block.
    munmap(base, mapped);
}

void give_back(void* block, const Block& facts)
{
    if (facts.place == Place::Heap)
        Libc().free(block);
    else
        unmap_guarded(block, facts.size);
}

// What happens outside observe(): blocks that were handed out are freed there, too, and programs and threads call an
// installed device.
class Outside : public Libc
{
public:
    Outside() { answer_every_thread(this); }
    ~Outside() { answer_every_thread(nullptr); }

    void install(Device* device) { device_ = device; }

    // Blocks that the library has handed out: they outlive the call in which they were made.
    void take_over(std::map<void*, Block>& blocks)
    {
        const std::lock_guard lock(mutex_);
        blocks_.merge(blocks);
    }
    std::optional<Block> take_back(void* block)
    {
        const std::lock_guard lock(mutex_);
        const auto found = blocks_.find(block);
        if (found == blocks_.end())
            return std::nullopt;
        Block facts = std::move(found->second);
        blocks_.erase(found);
        return facts;
    }

    void free(void* block) override;
    int open64(const char* path, int flags, mode_t mode) override;
    int ioctl(int descriptor, unsigned long number, void* argument) override;
    int close(int descriptor) override;

private:
    std::atomic<Device*> device_ = nullptr;
    std::mutex mutex_;
    std::map<void*, Block> blocks_;
    std::map<int, std::string> descriptors_; // of the installed device, with the path that was opened
};

Outside outside;

Sent take_apart(const std::string& path, unsigned long number, const operations::Envelope& envelope)
{
    Sent sent {.path = path,
        .number = number,
        .in_len = envelope.in_len,
        .in_ptr = reinterpret_cast<std::uint64_t>(envelope.in),
        .out_len = envelope.room,
        .out_ptr = reinterpret_cast<std::uint64_t>(envelope.out)};
    if (envelope.in != nullptr)
        sent.input.assign(envelope.in, envelope.in_len);
    return sent;
}

int answer_ioctl(Device& device, const Sent& sent, void* envelope)
{
    const Answer answer = device.answer(sent);
    if (answer.error != 0) {
        errno = answer.error;
        return -1;
    }
    if (answer.at < sent.out_len)
        std::memcpy(reinterpret_cast<char*>(sent.out_ptr) + answer.at, answer.reply.data(),
            std::min<std::size_t>(answer.reply.size(), sent.out_len - answer.at));
    if (!answer.leaves_length)
        operations::report_length(envelope,
            static_cast<std::uint32_t>(answer.length.value_or(static_cast<std::int32_t>(answer.reply.size()))));
    return 7; // Any result that is not negative is a success.
}

void Outside::free(void* block)
{
    if (const auto facts = take_back(block))
        give_back(block, *facts);
    else
        Libc::free(block);
}

int Outside::open64(const char* path, int flags, mode_t mode)
{
    if (device_ == nullptr || std::strncmp(path, "/pelt/", 6) != 0)
        return Libc::open64(path, flags, mode);
    const std::lock_guard lock(mutex_);
    const int descriptor = descriptors_.empty() ? first_descriptor : descriptors_.rbegin()->first + 1;
    descriptors_[descriptor] = path;
    return descriptor;
}

int Outside::ioctl(int descriptor, unsigned long number, void* argument)
{
    if (device_ == nullptr || descriptor < first_descriptor)
        return Libc::ioctl(descriptor, number, argument);
    std::string path;
    {
        const std::lock_guard lock(mutex_);
        path = descriptors_.at(descriptor);
    }
    return answer_ioctl(*device_, take_apart(path, number, operations::read_envelope(argument)), argument);
}

int Outside::close(int descriptor)
{
    if (device_ == nullptr || descriptor < first_descriptor)
        return Libc::close(descriptor);
    const std::lock_guard lock(mutex_);
    return descriptors_.erase(descriptor) == 1 ? 0 : -1;
}

// One call of the library, from beginning to end.
class Recorder : public Libc
{
public:
    Recorder(Device& device, const System& system) : device_(device), system_(system) {}

    Call record(const std::function<std::int32_t()>& call);

    void* malloc(std::size_t size) override;
    void* calloc(std::size_t count, std::size_t size) override;
    void free(void* block) override;
    char* getenv(const char* name) override;
    int open64(const char* path, int flags, mode_t mode) override;
    int ioctl(int descriptor, unsigned long number, void* argument) override;
    int close(int descriptor) override;
    int inet_pton(int family, const char* text, void* address) override;

private:
    enum class Content
    {
        Undefined,
        Zero
    };
    void* allocate(const std::string& made_by, std::size_t size, Content content);

    Device& device_;
    const System& system_;
    Call call_ {};
    std::map<void*, Block> blocks_ {};
    int allocations_ = 0;
    int opens_ = 0;
    std::map<int, std::string> descriptors_ {};
};

Call Recorder::record(const std::function<std::int32_t()>& call)
{
    answer_this_thread(this);
    errno = untouched;
    call_.result = call();
    call_.error = errno;
    answer_this_thread(nullptr);
    for (const auto& [block, facts] : blocks_) {
        call_.blocks_left.push_back("#" + std::to_string(facts.number) + ": " + facts.made_by);
        call_.addresses_left.push_back(block);
    }
    outside.take_over(blocks_);
    std::sort(call_.blocks_left.begin(), call_.blocks_left.end());
    call_.descriptors_left = static_cast<int>(descriptors_.size());
    return std::move(call_);
}

void* Recorder::allocate(const std::string& made_by, std::size_t size, Content content)
{
    const int number = ++allocations_;
    if (number == system_.failing_allocation) {
        call_.events.push_back(made_by + " = null");
        errno = EAGAIN; // The library must say ENOMEM whatever the allocator leaves behind.
        return nullptr;
    }
    const Place place = system_.guarded_blocks ? Place::BeforeInaccessiblePage : Place::Heap;
    void* block = place == Place::Heap ? Libc::calloc(1, size > 0 ? size : 1) : map_guarded(size);
    if (block == nullptr)
        abort();
    if (content == Content::Undefined)
        std::memset(block, 0xa5, std::min(size, system_.kept_content));
    blocks_[block] = {number, made_by, size, place};
    call_.events.push_back(made_by + " = #" + std::to_string(number));
    return block;
}

void* Recorder::malloc(std::size_t size)
{
    return allocate("malloc(" + std::to_string(size) + ")", size, Content::Undefined);
}

void* Recorder::calloc(std::size_t count, std::size_t size)
{
    return allocate("calloc(" + std::to_string(count) + ", " + std::to_string(size) + ")", count * size, Content::Zero);
}

void Recorder::free(void* block)
{
    Block facts {};
    if (const auto found = blocks_.find(block); found != blocks_.end()) {
        facts = found->second;
        blocks_.erase(found);
        call_.events.push_back("free(#" + std::to_string(facts.number) + ")");
    } else if (const auto handed = outside.take_back(block)) {
        facts = *handed;
        call_.events.push_back("free(" + facts.made_by + ")");
    } else {
        call_.events.push_back("free(of what was not allocated)");
        return;
    }
    call_.freed_content.emplace_back(static_cast<const char*>(block), std::min(facts.size, system_.kept_content));
    give_back(block, facts);
    errno = ELOOP; // Allocators are replaced, and may leave any errno: it must change no result.
}

char* Recorder::getenv(const char* name)
{
    call_.events.push_back("getenv(" + std::string(name) + ")");
    if (std::strcmp(name, "USE_UPGRADE_DEV") != 0 || !system_.upgrade_switch)
        return nullptr;
    return const_cast<char*>(system_.upgrade_switch->c_str());
}

int Recorder::open64(const char* path, int flags, mode_t)
{
    const std::string event = "open64(" + std::string(path) + ", " + std::to_string(flags) + ")";
    if (system_.open_error != 0 && opens_ == system_.opens_before_error) {
        call_.events.push_back(event + " = -1");
        errno = system_.open_error;
        return -1;
    }
    ++opens_;
    const int descriptor = first_descriptor + static_cast<int>(descriptors_.size());
    descriptors_[descriptor] = path;
    call_.events.push_back(event + " = " + std::to_string(descriptor));
    return descriptor;
}

int Recorder::ioctl(int descriptor, unsigned long number, void* argument)
{
    call_.events.push_back(
        "ioctl(" + std::to_string(descriptor) + ", " + std::to_string(static_cast<long>(number)) + ")");
    const operations::Envelope envelope = operations::read_envelope(argument);
    Sent sent = take_apart(descriptors_.at(descriptor), number, envelope);
    if (envelope.out != nullptr)
        sent.room.assign(envelope.out, std::min<std::size_t>(envelope.room, system_.kept_content));
    call_.sent.push_back(sent);
    return answer_ioctl(device_, sent, argument);
}

int Recorder::close(int descriptor)
{
    call_.events.push_back("close(" + std::to_string(descriptor) + ")");
    descriptors_.erase(descriptor);
    if (system_.close_error == 0)
        return 0;
    errno = system_.close_error;
    return -1;
}

int Recorder::inet_pton(int family, const char* text, void* address)
{
    return system_.inet_pton ? system_.inet_pton(family, text, address) : Libc::inet_pton(family, text, address);
}

} // namespace

Answer ScriptedDevice::answer(const Sent&)
{
    if (answers_.empty())
        return {};
    Answer answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

Call observe(Device& device, const System& system, const std::function<std::int32_t()>& call)
{
    return Recorder(device, system).record(call);
}

Call observe(Device& device, const std::function<std::int32_t()>& call)
{
    return observe(device, System {}, call);
}

void free_left(const Call& call)
{
    for (void* block : call.addresses_left)
        free(block);
}

Installed::Installed(Device& device)
{
    outside.install(&device);
}

Installed::~Installed()
{
    outside.install(nullptr);
}

} // namespace fake
