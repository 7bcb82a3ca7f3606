// So many calls of one kind of operation, in C or in C++, and nothing else: for counting what they do.
// usage: cost KIND c|cxx|tried CALLS
#include "bindings/cxx/bench/kinds.h"
#include "operations/envelope.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::uint32_t most_records = 1000;
const char* reply;
std::uint32_t reply_length;

} // namespace

// The device is /dev/null. What it answers is in the reply.
extern "C" {

int open64(const char*, int flags, ...)
{
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, "/dev/null", flags));
}

int ioctl(int, unsigned long, ...) noexcept;

int ioctl(int, unsigned long number, ...) noexcept
{
    __builtin_va_list arguments;
    __builtin_va_start(arguments, number);
    void* const envelope = __builtin_va_arg(arguments, void*);
    __builtin_va_end(arguments);
    if (reply_length > 0)
        std::memcpy(operations::read_envelope(envelope).out, reply, reply_length);
    operations::report_length(envelope, reply_length);
    return 0;
}

} // extern "C"

int main(int argc, char** argv)
{
    for (const cost::Kind& kind : cost::kinds)
        if (argc == 4 && std::strcmp(argv[1], kind.name) == 0) {
            const std::vector<char> records = cost::lifs(most_records);
            reply = records.data();
            reply_length = kind.size * std::min(kind.most, most_records);
            const std::string_view form = argv[2];
            void (*const call)() = form == "c" ? kind.in_c : form == "cxx" ? kind.in_cxx : kind.tried;
            for (int calls = std::atoi(argv[3]); calls > 0; --calls)
                call();
            return 0;
        }
    std::fprintf(stderr, "usage: cost KIND c|cxx|tried CALLS\n");
    return 2;
}
