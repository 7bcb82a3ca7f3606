// Under MemorySanitizer: what the library sends, and what it gives the caller, has been initialised, and nothing that
// the module did not write decides anything. Linked without the C++ run-time library, which is not instrumented and
// would be reported for nothing. The reports of what is decided by uninitialised memory are the sanitizer's own.
#include "support/commands.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sanitizer/allocator_interface.h>
#include <sanitizer/msan_interface.h>

using namespace world;

namespace {

// What the module does with one command: fails, or fills so much of the room.
struct Behaviour
{
    const char* name;
    int error;
    unsigned char fill;
    std::uint32_t parts; // of two
};

constexpr Behaviour behaviours[] {
    {"fails", ENODEV, 0, 0},
    {"writes nothing", 0, 0, 0},
    {"writes half of 0x00", 0, 0x00, 1},
    {"writes half of 0x01", 0, 0x01, 1},
    {"writes half of 0xff", 0, 0xff, 1},
    {"writes all of 0x00", 0, 0x00, 2},
    {"writes all of 0x01", 0, 0x01, 2},
    {"writes all of 0xff", 0, 0xff, 2},
};

const Behaviour* behaviour;
const CommandRow* row;
std::uint32_t written; // by the last command
unsigned mistakes;
unsigned checks;

bool initialised(const void* bytes, std::size_t length)
{
    return __msan_test_shadow(bytes, length) == -1;
}

void report(const char* what)
{
    ++mistakes;
    std::printf("%s, module %s: %s\n", row->function, behaviour->name, what);
}

void expect(bool holds, const char* what)
{
    ++checks;
    if (!holds)
        report(what);
}

void expect_initialised(const void* bytes, std::size_t length, const char* what)
{
    expect(initialised(bytes, length), what);
}

// The sanitizer's size of a block of the heap.
void expect_block_initialised(const void* block, const char* what)
{
    expect_initialised(block, __sanitizer_get_allocated_size(block), what);
}

// Kept: two requests are not cleared. That the rest of them is uninitialised shows that this program can tell.
void check_request(unsigned long command, const char* request, std::size_t length)
{
    if (command == 122) {
        expect_initialised(request, 4, "the empty instance key is not initialised");
        expect_initialised(request + 220, 4, "the table's number is not initialised");
        expect(!initialised(request, length), "the request is cleared");
    } else if (command == 132) {
        expect_initialised(request, 68, "instance and value are not initialised");
        expect_initialised(request + 84, 4, "the key is not initialised");
        expect(!initialised(request, length), "the request is cleared");
    } else {
        expect_initialised(request, length, "the request is not initialised");
    }
}

void put32(char* to, std::uint32_t value)
{
    std::memcpy(to, &value, sizeof value);
}

// Counts on which the length of what follows depends. Kept: they are read whatever length the module reports, so that
// the module must write them in any case.
void put_counts(unsigned long command, char* reply)
{
    if (command == 115)
        put32(reply, 0);
    if (command == 129)
        put32(reply, 2);
    if (command == 153)
        put32(reply + 4, 2);
}

} // namespace

extern "C" {

const char* __msan_default_options()
{
    return "allocator_may_return_null=1";
}

int __wrap_open64(const char*, int, ...)
{
    return 5000;
}

int __wrap_close(int)
{
    return 0;
}

int __wrap_ioctl(int, unsigned long command, char* envelope)
{
    expect_initialised(envelope, 24, "the envelope is not initialised");
    const char* in = nullptr;
    char* out = nullptr;
    std::uint32_t in_length = 0;
    std::uint32_t room = 0;
    std::memcpy(&in_length, envelope, 4);
    std::memcpy(&in, envelope + 4, 8);
    std::memcpy(&room, envelope + 12, 4);
    std::memcpy(&out, envelope + 16, 8);
    if (in != nullptr)
        check_request(command, in, in_length);
    if (behaviour->error != 0) {
        errno = behaviour->error;
        return -1;
    }
    // All caps are even, so that half of a list's room is a whole number of records. The count of the IPv6 routes is a
    // command of its own, without which there is no second one.
    written = command == 115 ? room : room / 2 * behaviour->parts;
    if (written > 0)
        std::memset(out, behaviour->fill, written);
    put_counts(command, out);
    put32(envelope + 12, written);
    return 0;
}

} // extern "C"

namespace {

// Every destination of the caller's starts out uninitialised, every input of the caller's initialised.
void prepare_caller()
{
    caller.out = nullptr;
    std::memset(caller.bytes, 1, sizeof caller.bytes);
    std::memset(&caller.tunables, 1, sizeof caller.tunables);
    __msan_poison(&caller.number, sizeof caller.number);
    __msan_poison(&caller.result, sizeof caller.result);
    if (row->command == 149 || row->command == 157)
        __msan_poison(caller.bytes, sizeof caller.bytes);
    if (row->command == 155)
        __msan_poison(&caller.tunables, sizeof caller.tunables);
}

struct Holder
{
    std::int32_t count;
    void* records;
};
constexpr std::size_t holder_size = 16;

void check_block(void* block)
{
    if (row->command == 114 || row->command == 115) {
        expect_initialised(block, written, "the routes are not initialised");
    } else if (row->command == 153) {
        // Kept: what the count does not cover is left as it was allocated.
        const char* bytes = static_cast<const char*>(block);
        expect_initialised(bytes + 4, 4, "the count is not initialised");
        expect(!initialised(bytes, 804), "the block is cleared");
        if (behaviour->parts == 0)
            return;
        expect_initialised(bytes + 8, 8, "the words are not initialised");
        expect_initialised(bytes + 76, 16, "the first counters are not initialised");
        expect_initialised(bytes + 204, 16, "the second counters are not initialised");
        expect_initialised(bytes + 332, 16, "the third counters are not initialised");
    } else if (__sanitizer_get_allocated_size(block) == holder_size) {
        const auto* list = static_cast<const Holder*>(block);
        expect_block_initialised(list, "the holder is not initialised");
        expect_block_initialised(list->records, "the records are not initialised");
        free(list->records);
    } else {
        expect_block_initialised(block, "the record is not initialised");
    }
}

void check_caller(std::int32_t result)
{
    if (row->out_len == sizeof caller.result)
        expect_initialised(&caller.result, sizeof caller.result, "the result area is not initialised");
    if (result != 0)
        return;
    if (row->out_len == sizeof caller.number && behaviour->parts == 2)
        expect_initialised(&caller.number, sizeof caller.number, "the number is not initialised");
    if (row->command == 52 || row->command == 114)
        expect_initialised(&caller.number, sizeof caller.number, "the count is not initialised");
    if ((row->command == 149 || row->command == 157) && behaviour->parts == 2)
        expect_initialised(caller.bytes, row->out_len, "the bytes are not initialised");
    if (row->command == 155 && behaviour->parts == 2)
        expect_initialised(&caller.tunables, sizeof caller.tunables, "the tunables are not initialised");
    if (caller.out != nullptr) {
        check_block(caller.out);
        free(caller.out);
    }
}

} // namespace

int main()
{
    unsigned calls = 0;
    for (const CommandRow& each : command_rows) {
        row = &each;
        for (const Behaviour& way : behaviours) {
            behaviour = &way;
            prepare_caller();
            const std::int32_t result = row->call();
            expect_initialised(&result, sizeof result, "the result is not initialised");
            check_caller(result);
            ++calls;
        }
    }
    std::printf("%u calls, %u checks, %u mistakes\n", calls, checks, mistakes);
    return mistakes == 0 && calls == 162 * 8 ? 0 : 1;
}
