// Under MemorySanitizer: what the library sends, and what it gives the caller, has been initialised, and nothing that
// the module did not write decides anything. Linked without the C++ run-time library, which is not instrumented and
// would be reported for nothing. The reports of what is decided by uninitialised memory are the sanitizer's own.
#include "fake/interposer.h"
#include "operations/envelope.h"
#include "operations/operations.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sanitizer/allocator_interface.h>
#include <sanitizer/msan_interface.h>

using namespace operations;

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
const Operation* operation;
const Case* one;
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
    std::printf("%s, module %s: %s\n", one->name, behaviour->name, what);
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
void check_request(const char* request, std::size_t length)
{
    if (operation->remainder == Remainder::Cleared)
        return expect_initialised(request, length, "the request is not initialised");
    for (std::size_t i = 0; i < length; ++i)
        if (one->request.names(i))
            expect_initialised(request + i, 1, "a field of the request is not initialised");
    expect(!initialised(request, length), "the request is cleared");
}

void put32(char* to, std::uint32_t value)
{
    std::memcpy(to, &value, sizeof value);
}

// Counts on which the length of what follows depends. Kept: that of the IPv6 routes and those of the receive-side scaling
// statistics are read whatever length the module reports, so that it must write them in any case.
void put_counts(std::uint32_t room, std::uint32_t length, char* reply)
{
    if (operation->shape == Shape::CountedBlock && room == 4)
        put32(reply, 0);
    if (operation->shape == Shape::CountedTable && length >= 4)
        put32(reply, 2);
    if (operation->shape == Shape::CountedArrays)
        put32(reply + 4, 2);
}

class Module : public fake::Libc
{
public:
    int open64(const char*, int, mode_t) override { return 5000; }
    int close(int) override { return 0; }
    int ioctl(int, unsigned long, void* argument) override
    {
        expect_initialised(argument, envelope_size, "the envelope is not initialised");
        const Envelope envelope = read_envelope(argument);
        if (envelope.in != nullptr)
            check_request(envelope.in, envelope.in_len);
        if (behaviour->error != 0) {
            errno = behaviour->error;
            return -1;
        }
        // All caps are even, so that half of a list's room is a whole number of records. The count of the IPv6 routes
        // is a command of its own, without which there is no second one.
        const bool is_count = operation->shape == Shape::CountedBlock && envelope.room == 4;
        written = is_count ? envelope.room : envelope.room * behaviour->parts / 2;
        if (written > 0)
            std::memset(envelope.out, behaviour->fill, written);
        put_counts(envelope.room, written, envelope.out);
        report_length(argument, written);
        return 0;
    }
};

struct ListHolder
{
    std::int32_t count;
    void* records;
};

// What the caller has, uninitialised.
char memory[7471104];
std::uint32_t count_of_result;

void check_list(const ListHolder* list)
{
    expect_block_initialised(list, "the holder is not initialised");
    expect_block_initialised(list->records, "the records are not initialised");
    free(list->records);
}

void check_result(void* result)
{
    if (operation->shape == Shape::CountedBlock) {
        expect_initialised(result, written, "the routes are not initialised");
    } else if (operation->shape == Shape::CountedArrays) {
        // Kept: what the count does not cover is left as it was allocated.
        const char* bytes = static_cast<const char*>(result);
        expect_initialised(bytes + 4, 4, "the count is not initialised");
        expect(!initialised(bytes, 804), "the block is cleared");
        if (behaviour->parts > 0) {
            expect_initialised(bytes + 8, 8, "the words are not initialised");
            expect_initialised(bytes + 76, 16, "the first counters are not initialised");
            expect_initialised(bytes + 204, 16, "the second counters are not initialised");
            expect_initialised(bytes + 332, 16, "the third counters are not initialised");
        }
    } else if (is_list(*operation) || operation->shape == Shape::CountedTable) {
        check_list(static_cast<const ListHolder*>(result));
    } else {
        expect_block_initialised(result, "the record is not initialised");
    }
    free(result);
}

void check_memory(std::int32_t result)
{
    const std::size_t size = target_size(*operation);
    // Kept: a result area is zeroed in any case.
    if (operation->shape == Shape::ResultSend)
        expect_initialised(memory, size, "the result area is not initialised");
    else if (result == 0 && behaviour->parts == 2)
        expect_initialised(memory, size, "what was read is not initialised");
    if (result == 0 && (operation->shape == Shape::CountedBlock || operation->shape == Shape::CountedRead))
        expect_initialised(&count_of_result, sizeof count_of_result, "the count is not initialised");
}

void call_once()
{
    __msan_poison(memory, target_size(*operation));
    __msan_poison(&count_of_result, sizeof count_of_result);
    void* result = operation->shape == Shape::ListWorker ? calloc(1, sizeof(ListHolder)) : nullptr;
    void* const target = operation->shape == Shape::ListWorker ? result
                         : hands_out(*operation)               ? static_cast<void*>(&result)
                                                               : memory;
    const std::int32_t returned = call(*operation, *one, {target, &count_of_result});
    expect_initialised(&returned, sizeof returned, "the result is not initialised");
    check_memory(returned);
    if (returned == 0 && result != nullptr)
        check_result(result);
    else if (operation->shape == Shape::ListWorker && behaviour->error != 0)
        free(result);
}

} // namespace

extern "C" const char* __msan_default_options()
{
    return "allocator_may_return_null=1";
}

int main()
{
    Module module;
    fake::answer_this_thread(&module);
    unsigned calls = 0;
    for_each_case([&](const Operation& each, const Case& of_it) {
        operation = &each;
        one = &of_it;
        for (const Behaviour& way : behaviours) {
            behaviour = &way;
            call_once();
            ++calls;
        }
    });
    std::printf("%u calls, %u checks, %u mistakes\n", calls, checks, mistakes);
    return mistakes == 0 && calls >= 161 * 8 ? 0 : 1;
}
