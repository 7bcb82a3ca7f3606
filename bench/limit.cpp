#include "limit.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <lumozeph.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

inline std::int32_t issue(std::int32_t command, LumoEnvelope& envelope)
{
    const char* const path = getenv("USE_UPGRADE_DEV") != nullptr ? "/pelt/devices/char/zephdriver/kola_lumo_ugrade"
                                                                  : "/pelt/devices/char/zephdriver/kola_lumo";
    const int device = open64(path, O_RDWR);
    if (device < 0)
        return -1;
    const int result = ioctl(device, static_cast<unsigned long>(command), &envelope);
    close(device);
    return result < 0 ? -1 : 0;
}

inline std::int32_t issue_with_request(std::int32_t command, void* room, std::size_t size, std::uint32_t& length)
{
    char request[776];
    // The compiler must not know it: what it puts in the place of such a memset is slower.
    std::size_t request_size = sizeof request;
    asm("" : "+r"(request_size));
    std::memset(request, 0, request_size);
    LumoEnvelope envelope {sizeof request, request, static_cast<std::uint32_t>(size), room};
    const std::int32_t result = issue(command, envelope);
    length = envelope.outLen;
    return result;
}

} // namespace

std::int32_t limit_send(std::int32_t command)
{
    std::uint32_t length;
    return issue_with_request(command, nullptr, 0, length);
}

std::int32_t limit_get(std::int32_t command, std::size_t size, char** out)
{
    char* const reply = static_cast<char*>(malloc(size));
    std::uint32_t length;
    const std::int32_t result = issue_with_request(command, reply, size, length);
    *out = static_cast<char*>(calloc(1, size));
    std::memcpy(*out, reply, length);
    free(reply);
    return result;
}

std::int32_t limit_get_list(std::int32_t command, std::size_t size, std::size_t cap, LimitList** out)
{
    LimitList* const list = static_cast<LimitList*>(calloc(1, sizeof(LimitList)));
    *out = list;
    char* const reply = static_cast<char*>(malloc(cap * size));
    std::uint32_t length;
    const std::int32_t result = issue_with_request(command, reply, cap * size, length);
    list->records = static_cast<char*>(calloc(cap, size));
    std::memcpy(list->records, reply, length);
    list->count = static_cast<std::int32_t>(length / size);
    free(reply);
    return result;
}

void limit_release_list(LimitList* list)
{
    free(list->records);
    free(list);
}

std::int32_t limit_get_value(std::int32_t command, std::uint32_t* out)
{
    LumoEnvelope envelope {0, nullptr, sizeof *out, out};
    return issue(command, envelope);
}

std::int32_t limit_send_value(std::int32_t command, std::uint32_t value)
{
    LumoEnvelope envelope {sizeof value, &value, 0, nullptr};
    return issue(command, envelope);
}
