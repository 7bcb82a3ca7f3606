#include "emulator/supervisor/output.h"

#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/signals.h"

#include <cerrno>
#include <csignal>
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

void print(std::string_view text)
{
    if (!write_all(STDOUT_FILENO, text))
        fail("cannot write to the standard output");
}

void replace_content(int file, std::string_view text)
{
    // These would end the process before it can say why.
    const Signals unheard {SIGPIPE, SIGXFSZ};
    // What has no length, as a pipe, has no content either.
    if ((ftruncate(file, 0) != 0 && errno != EINVAL) || !write_all(file, text))
        fail("cannot write the state");
}

} // namespace emulator
