#include "emulator/supervisor/readiness.h"

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/failure.h"

#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>

namespace emulator {

void notify_readiness()
{
    const char* const path = std::getenv("NOTIFY_SOCKET");
    if (path == nullptr)
        return;
    const std::string_view name(path);
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    if (name.empty() || name.size() >= sizeof address.sun_path)
        return;
    name.copy(address.sun_path, name.size());
    if (name.front() == '@')
        address.sun_path[0] = '\0'; // It lies in no folder.
    const Descriptor made(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    constexpr std::string_view ready = "READY=1";
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    if (sendto(made.number(), ready.data(), ready.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address),
            length) < 0)
        fail("cannot tell the service manager");
}

} // namespace emulator
