// Reads of counted lists.
#pragma once

#include "reads.h"

#include <cerrno>
#include <cstdlib>

namespace fuzz {

// What becomes of a list's holder when the device call fails.
enum class Holder
{
    Freed,
    LeftAllocated
};

struct ListRead
{
    std::string name;
    world::Layout layout;
    std::size_t cap;
    Holder on_device_error;
    std::function<std::int32_t(void**)> read;
    std::function<std::int32_t(void*)> release;
    Looks looks = Looks::AtWholeRecords;
};

template <class List>
ListRead list(const std::string& name, const world::Layout& layout, std::size_t cap, Holder on_device_error,
    std::type_identity_t<std::int32_t (*)(List**)> read, std::int32_t (*release)(List*))
{
    return {name, layout, cap, on_device_error, storing<List>(read), releasing(release)};
}

// One of the exported workers, which fill a list of the caller's and free it when they fail: with the allocation of the
// list, it is what the read of the same list is.
template <class List>
ListRead worker(const std::string& name, const world::Layout& layout, std::size_t cap,
    std::type_identity_t<std::int32_t (*)(List*)> fill, std::int32_t (*release)(List*))
{
    const auto read = [fill](List** out) {
        List* const list = static_cast<List*>(calloc(1, sizeof(List)));
        *out = list;
        if (list == nullptr) {
            errno = ENOMEM;
            return -1;
        }
        const std::int32_t result = fill(list);
        if (result != 0)
            *out = nullptr;
        return result;
    };
    return {name, layout, cap, Holder::LeftAllocated, storing<List>(read), releasing(release)};
}

void run(const ListRead& row, Input& input);

} // namespace fuzz
