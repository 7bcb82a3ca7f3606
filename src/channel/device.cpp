#include "channel/device.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr char normal_device[] = "/pelt/devices/char/zephdriver/kola_lumo";
constexpr char upgrade_device[] = "/pelt/devices/char/zephdriver/kola_lumo_ugrade";
constexpr char upgrade_switch[] = "USE_UPGRADE_DEV";

} // namespace

int32_t LUMOZEPHIoctl(int32_t command, LumoEnvelope* envelope)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): safe as long as the program does not change its environment meanwhile
    const char* path = getenv(upgrade_switch) != nullptr ? upgrade_device : normal_device;
    const int device = open64(path, O_RDWR);
    if (device < 0)
        return -1;
    const int result = ioctl(device, static_cast<unsigned long>(command), envelope);
    close(device);
    return result < 0 ? -1 : 0;
}

namespace lumo {

// What a small command costs beside its system calls is a few calls deep: they are flattened.
[[gnu::flatten]] int32_t exchange(Command command, Input input, Room& room)
{
    LumoEnvelope envelope {input.length, input.bytes, room.length, room.bytes};
    const int32_t result = LUMOZEPHIoctl(static_cast<int32_t>(command), &envelope);
    room.length = envelope.outLen;
    return result;
}

int32_t send(Command command, Input input)
{
    Room none {nullptr, 0};
    return exchange(command, input, none);
}

[[gnu::flatten]] int32_t send(Command command, const Request& request)
{
    return send(command, input(request));
}

[[gnu::flatten]] int32_t send(Command command, const Request& request, LumoCmdResult* result)
{
    if (result == nullptr)
        return send(command, request);
    std::memset(result, 0, unknown(sizeof *result));
    return read_raw(command, request, result, sizeof *result);
}

[[gnu::flatten]] int32_t read_raw(Command command, const Request& request, void* bytes, uint32_t length)
{
    Room room {bytes, length};
    return exchange(command, input(request), room);
}

[[gnu::flatten]] int32_t send_value(Command command, uint32_t value)
{
    return send(command, Input {&value, sizeof value});
}

[[gnu::flatten]] int32_t read_value(Command command, uint32_t* out)
{
    // Kept: neither is the slot set before the call nor the reported length looked at, so that a module that answers
    // with fewer than four bytes hands over the rest of the slot as it was.
    uint32_t slot;
    Room room {&slot, sizeof slot};
    const int32_t result = exchange(command, no_input, room);
    if (result == 0)
        *out = slot;
    return result;
}

} // namespace lumo
