#include "support/device.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

extern "C" {
void* __real_malloc(std::size_t);
void* __real_calloc(std::size_t, std::size_t);
void __real_free(void*);
char* __real_getenv(const char*);
int __real_open64(const char*, int, ...);
int __real_ioctl(int, unsigned long, ...);
int __real_close(int);
}

namespace world {

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

struct Recording
{
    Device& device;
    const System& system;
    Call call;
    std::map<void*, Block> blocks;
    int allocations = 0;
    int opens = 0;
    std::map<int, std::string> descriptors;
};

// The recording that the library's calls on this thread go to. Null while the test itself runs.
thread_local Recording* recording = nullptr;

// Devices for calls outside observe(). Their descriptors carry the path that was opened.
std::atomic<Device*> installed {nullptr};
std::mutex descriptors_mutex;
std::map<int, std::string> descriptors;

// Suspends the recording while the world itself does something.
class Aside
{
public:
    Aside() : taken_(recording) { recording = nullptr; }
    ~Aside() { recording = taken_; }
    Recording* operator->() const { return taken_; }

private:
    Recording* taken_;
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

// Blocks that the library has handed out: they outlive the call in which they were made.
std::mutex handed_out_mutex;
std::map<void*, Block> handed_out;

enum class Content
{
    Undefined,
    Zero
};

void* allocate(const std::string& made_by, std::size_t size, Content content)
{
    Aside aside;
    const int number = ++aside->allocations;
    if (number == aside->system.failing_allocation) {
        aside->call.events.push_back(made_by + " = null");
        errno = EAGAIN; // The library must say ENOMEM whatever the allocator leaves behind.
        return nullptr;
    }
    const Place place = aside->system.guarded_blocks ? Place::BeforeInaccessiblePage : Place::Heap;
    void* block = place == Place::Heap ? __real_calloc(1, size > 0 ? size : 1) : map_guarded(size);
    if (block == nullptr)
        abort();
    if (content == Content::Undefined)
        std::memset(block, 0xa5, std::min(size, aside->system.kept_content));
    aside->blocks[block] = {number, made_by, size, place};
    aside->call.events.push_back(made_by + " = #" + std::to_string(number));
    return block;
}

void give_back(void* block, const Block& facts)
{
    if (facts.place == Place::Heap)
        __real_free(block);
    else
        unmap_guarded(block, facts.size);
}

std::optional<Block> take_from_handed_out(void* block)
{
    const std::lock_guard lock(handed_out_mutex);
    const auto found = handed_out.find(block);
    if (found == handed_out.end())
        return std::nullopt;
    Block facts = std::move(found->second);
    handed_out.erase(found);
    return facts;
}

Sent take_apart(const std::string& path, unsigned long number, const char* envelope)
{
    Sent sent {.path = path, .number = number};
    std::memcpy(&sent.in_len, envelope + 0, 4);
    std::memcpy(&sent.in_ptr, envelope + 4, 8);
    std::memcpy(&sent.out_len, envelope + 12, 4);
    std::memcpy(&sent.out_ptr, envelope + 16, 8);
    if (sent.in_ptr != 0)
        sent.input.assign(reinterpret_cast<const char*>(sent.in_ptr), sent.in_len);
    return sent;
}

int answer_ioctl(Device& device, const Sent& sent, char* envelope)
{
    const Answer answer = device.answer(sent);
    if (answer.error != 0) {
        errno = answer.error;
        return -1;
    }
    if (answer.at < sent.out_len)
        std::memcpy(reinterpret_cast<char*>(sent.out_ptr) + answer.at, answer.reply.data(),
            std::min<std::size_t>(answer.reply.size(), sent.out_len - answer.at));
    if (!answer.leaves_length) {
        const std::int32_t length = answer.length.value_or(static_cast<std::int32_t>(answer.reply.size()));
        std::memcpy(envelope + 12, &length, 4);
    }
    return 7; // Any result that is not negative is a success.
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
    Recording made {.device = device, .system = system, .call = {}, .blocks = {}, .descriptors = {}};
    recording = &made;
    errno = untouched;
    const std::int32_t result = call();
    const int error = errno;
    recording = nullptr;
    made.call.result = result;
    made.call.error = error;
    for (const auto& [block, facts] : made.blocks) {
        made.call.blocks_left.push_back("#" + std::to_string(facts.number) + ": " + facts.made_by);
        made.call.addresses_left.push_back(block);
    }
    const std::lock_guard lock(handed_out_mutex);
    handed_out.merge(made.blocks);
    std::sort(made.call.blocks_left.begin(), made.call.blocks_left.end());
    made.call.descriptors_left = static_cast<int>(made.descriptors.size());
    return made.call;
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
    installed = &device;
}

Installed::~Installed()
{
    installed = nullptr;
}

} // namespace world

using namespace world;

extern "C" {

void* __wrap_malloc(std::size_t size)
{
    if (recording == nullptr)
        return __real_malloc(size);
    std::string made_by;
    {
        Aside aside;
        made_by = "malloc(" + std::to_string(size) + ")";
    }
    return allocate(made_by, size, Content::Undefined);
}

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    if (recording == nullptr)
        return __real_calloc(count, size);
    std::string made_by;
    {
        Aside aside;
        made_by = "calloc(" + std::to_string(count) + ", " + std::to_string(size) + ")";
    }
    return allocate(made_by, count * size, Content::Zero);
}

void __wrap_free(void* block)
{
    if (recording == nullptr) {
        if (const auto facts = take_from_handed_out(block))
            give_back(block, *facts);
        else
            __real_free(block);
        return;
    }
    Aside aside;
    Block facts {};
    if (const auto found = aside->blocks.find(block); found != aside->blocks.end()) {
        facts = found->second;
        aside->blocks.erase(found);
        aside->call.events.push_back("free(#" + std::to_string(facts.number) + ")");
    } else if (const auto handed = take_from_handed_out(block)) {
        facts = *handed;
        aside->call.events.push_back("free(" + facts.made_by + ")");
    } else {
        aside->call.events.push_back("free(of what was not allocated)");
        return;
    }
    aside->call.freed_content.emplace_back(
        static_cast<const char*>(block), std::min(facts.size, aside->system.kept_content));
    give_back(block, facts);
}

char* __wrap_getenv(const char* name)
{
    if (recording == nullptr)
        return __real_getenv(name);
    Aside aside;
    aside->call.events.push_back("getenv(" + std::string(name) + ")");
    if (std::strcmp(name, "USE_UPGRADE_DEV") != 0 || !aside->system.upgrade_switch)
        return nullptr;
    return const_cast<char*>(aside->system.upgrade_switch->c_str());
}

int __wrap_open64(const char* path, int flags, ...)
{
    if (recording == nullptr && installed != nullptr && std::strncmp(path, "/pelt/", 6) == 0) {
        const std::lock_guard lock(descriptors_mutex);
        const int descriptor = descriptors.empty() ? first_descriptor : descriptors.rbegin()->first + 1;
        descriptors[descriptor] = path;
        return descriptor;
    }
    if (recording == nullptr) {
        va_list arguments;
        va_start(arguments, flags);
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
        va_end(arguments);
        return __real_open64(path, flags, mode);
    }
    Aside aside;
    const std::string event = "open64(" + std::string(path) + ", " + std::to_string(flags) + ")";
    if (aside->system.open_error != 0 && aside->opens == aside->system.opens_before_error) {
        aside->call.events.push_back(event + " = -1");
        errno = aside->system.open_error;
        return -1;
    }
    ++aside->opens;
    const int descriptor = first_descriptor + static_cast<int>(aside->descriptors.size());
    aside->descriptors[descriptor] = path;
    aside->call.events.push_back(event + " = " + std::to_string(descriptor));
    return descriptor;
}

int __wrap_ioctl(int descriptor, unsigned long number, ...)
{
    va_list arguments;
    va_start(arguments, number);
    char* const argument = va_arg(arguments, char*);
    va_end(arguments);
    if (recording == nullptr) {
        if (installed == nullptr || descriptor < first_descriptor)
            return __real_ioctl(descriptor, number, argument);
        std::string path;
        {
            const std::lock_guard lock(descriptors_mutex);
            path = descriptors.at(descriptor);
        }
        return answer_ioctl(*installed, take_apart(path, number, argument), argument);
    }
    Aside aside;
    aside->call.events.push_back(
        "ioctl(" + std::to_string(descriptor) + ", " + std::to_string(static_cast<long>(number)) + ")");
    Sent sent = take_apart(aside->descriptors.at(descriptor), number, argument);
    if (sent.out_ptr != 0)
        sent.room.assign(reinterpret_cast<const char*>(sent.out_ptr),
            std::min<std::size_t>(sent.out_len, aside->system.kept_content));
    aside->call.sent.push_back(sent);
    return answer_ioctl(aside->device, sent, argument);
}

int __wrap_close(int descriptor)
{
    if (recording == nullptr) {
        if (installed == nullptr || descriptor < first_descriptor)
            return __real_close(descriptor);
        const std::lock_guard lock(descriptors_mutex);
        return descriptors.erase(descriptor) == 1 ? 0 : -1;
    }
    Aside aside;
    aside->call.events.push_back("close(" + std::to_string(descriptor) + ")");
    aside->descriptors.erase(descriptor);
    if (aside->system.close_error == 0)
        return 0;
    errno = aside->system.close_error;
    return -1;
}

} // extern "C"
