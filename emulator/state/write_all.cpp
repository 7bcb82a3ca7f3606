#include "emulator/state/write_all.h"

#include <cerrno>
#include <cstddef>
#include <poll.h>
#include <unistd.h>

namespace emulator {

bool write_all(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t length = write(file, text.data(), text.size());
        if (length >= 0) {
            text.remove_prefix(static_cast<std::size_t>(length));
        } else if (errno == EAGAIN) {
            pollfd writable {file, POLLOUT, 0};
            poll(&writable, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace emulator
