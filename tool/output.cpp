#include "tool/output.h"

#include "tool/mistakes.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace tool {

void Output::flush()
{
    std::string_view rest(_buffer.data(), _buffer.size());
    while (!rest.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, rest.data(), rest.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0) {
            const int error = errno;
            _buffer.clear();
            throw Failure(fmt::format("cannot write to standard output: {}", strerrordesc_np(error)), "", error, "");
        }
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    _buffer.clear();
}

} // namespace tool
