// The shapes of reads: one decoded record, a counted list of them; and the release of what they return.
#pragma once

#include "channel/device.h"
#include "channel/fail.h"
#include "channel/record.h"

#include <cstdlib>
#include <type_traits>
#include <utility>

namespace lumo {

// The call fails with this errno. Frees what it has allocated before that, where it is not null, so that an errno which
// free leaves changes nothing.
[[gnu::cold, gnu::noinline]] int32_t fail_freeing(int error, void* records, void* holder, void* buffer);

// Where the module writes a reply that is decoded afterwards. Freed when the call ends, by whatever way.
class ReplyBuffer
{
public:
    explicit ReplyBuffer(uint32_t size) : room_ {malloc(size), size} {}
    ~ReplyBuffer()
    {
        if (room_.bytes != nullptr)
            free(room_.bytes);
    }
    ReplyBuffer(const ReplyBuffer&) = delete;
    ReplyBuffer& operator=(const ReplyBuffer&) = delete;

    bool allocated() const { return room_.bytes != nullptr; }
    int32_t receive(Command command, const Request& request) { return exchange(command, input(request), room_); }

    int32_t fail(int error, void* holder = nullptr, void* records = nullptr)
    {
        return fail_freeing(error, records, holder, std::exchange(room_.bytes, nullptr));
    }

    // For the one reply that stays allocated when it is too short.
    void leave_allocated() { room_.bytes = nullptr; }

    const char* bytes() const { return static_cast<const char*>(room_.bytes); }
    // The length that the module reported. It is compared as signed everywhere.
    int32_t length() const { return static_cast<int32_t>(room_.length); }

private:
    Room room_;
};

template <class Record>
int32_t release(Record* record)
{
    if (record != nullptr)
        free(record);
    return 0;
}

template <class List>
int32_t release_list(List* list)
{
    if (list == nullptr)
        return 0;
    release(list->records);
    free(list);
    return 0;
}

// Reads one record.
template <class Record>
int32_t get_one(Command command, const Request& request, Record** out)
{
    ReplyBuffer reply(sizeof(Record));
    if (!reply.allocated())
        return reply.fail(ENOMEM);
    if (reply.receive(command, request) != 0)
        return reply.fail(errno);

    Record* record = static_cast<Record*>(calloc(1, sizeof(Record)));
    *out = record;
    if (record == nullptr)
        return reply.fail(ENOMEM);
    if (reply.length() < static_cast<int32_t>(sizeof(Record))) {
        *out = nullptr;
        return reply.fail(EBADMSG, record);
    }
    decode<Record>(reinterpret_cast<char*>(record), reply.bytes());
    return 0;
}

// What becomes of a list's holder when the device call fails.
enum class Holder
{
    Freed,
    LeftAllocated
};

// What a piece at the end of a list that is shorter than a record is.
enum class Fragment
{
    Rejected,
    DecodedAsRecord
};

struct ListShape
{
    int32_t cap;
    Holder on_device_error = Holder::Freed;
    Fragment fragment = Fragment::Rejected;
};

// Decodes so many records of a reply into zeroed memory.
using DecodeRecords = void(void* to, const char* from, int32_t count);

template <class Record>
void decode_records(void* to, const char* from, int32_t count)
{
    char* at = static_cast<char*>(to);
    for (int32_t i = 0; i < count; ++i, at += sizeof(Record), from += sizeof(Record))
        decode<Record>(at, from);
}

// Fills the holder of a list of whatever records; those without a decoder are copied as they stand.
int32_t fill_list(
    Command command, const Request& request, const ListShape& shape, uint32_t size, DecodeRecords* decode, void* list);

// Fills the holder that the caller has allocated. Every failure frees it, except that of the device call where the
// shape says so.
template <class List>
int32_t fill_list(Command command, const Request& request, const ListShape& shape, List* list)
{
    using Record = std::remove_pointer_t<decltype(List::records)>;
    static_assert(offsetof(List, count) == 0 && offsetof(List, records) == sizeof(void*));
    static_assert(sizeof(List::count) == sizeof(int32_t));
    return fill_list(
        command, request, shape, sizeof(Record), is_plain<Record> ? nullptr : decode_records<Record>, list);
}

// Allocates the holder, hands it to the caller at once, and has it filled; takes it back when that fails.
template <class List, class Fill>
int32_t get_list(List** out, Fill fill)
{
    List* list = static_cast<List*>(calloc(1, sizeof(List)));
    *out = list;
    if (list == nullptr)
        return fail(ENOMEM);
    const int32_t result = fill(list);
    if (result != 0)
        *out = nullptr;
    return result;
}

template <class List>
int32_t get_list(Command command, const Request& request, const ListShape& shape, List** out)
{
    return get_list(out, [&](List* list) { return fill_list(command, request, shape, list); });
}

} // namespace lumo
