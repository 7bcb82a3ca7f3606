// The way to the module. One command is one call of LUMOZEPHIoctl with one envelope.
#pragma once

#include "channel/command.h"
#include "channel/request.h"
#include "lumozeph.h"

#include <cstdint>

namespace lumo {

struct Input
{
    const void* bytes;
    uint32_t length;
};

inline constexpr Input no_input {nullptr, 0};

inline Input input(const Request& request)
{
    return {request.data(), request_size};
}

// Where the module writes, and how much room there is; after a call, the length that the module reported.
struct Room
{
    void* bytes;
    uint32_t length;
};

// Issues the command. Returns 0, or -1 with the errno of the system call that failed.
int32_t exchange(Command command, Input input, Room& room);

// A command that returns nothing.
int32_t send(Command command, Input input);
int32_t send(Command command, const Request& request);

// A command that answers with the module's own result, if the caller has given an area for it.
int32_t send(Command command, const Request& request, LumoCmdResult* result);

// A command whose reply goes straight to the caller, who is trusted to give length bytes of room; what the module
// reports of it is not looked at.
int32_t read_raw(Command command, const Request& request, void* bytes, uint32_t length);

// Sets a module-wide 32-bit value: the value itself is the input.
int32_t send_value(Command command, uint32_t value);

// Reads a module-wide 32-bit value. A command without input, so that there is no request.
int32_t read_value(Command command, uint32_t* out);

} // namespace lumo
