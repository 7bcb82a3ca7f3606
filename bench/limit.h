// What an operation cannot do without: the least that its contract allows it to be. A shared object of its own, built
// like the library, so that its calls cost what the library's do.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

// A list as it lies in memory, whatever its records are.
struct LimitList
{
    std::int32_t count;
    char* records;
};

// Zeroes a request, and getenv, open64, ioctl and close.
std::int32_t limit_send(std::int32_t command);

// Allocates a reply and, when it is there, a record, and copies it.
std::int32_t limit_get(std::int32_t command, std::size_t size, char** out);

// Allocates a holder, a reply and, when it is there, an array, and copies the bytes that were reported.
std::int32_t limit_get_list(std::int32_t command, std::size_t size, std::size_t cap, LimitList** out);
void limit_release_list(LimitList* list);

// 32-bit values, without a request.
std::int32_t limit_get_value(std::int32_t command, std::uint32_t* out);
std::int32_t limit_send_value(std::int32_t command, std::uint32_t value);
}
