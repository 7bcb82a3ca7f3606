#include "emulator/supervisor/server.h"

#include "emulator/protocol/access.h"
#include "emulator/protocol/envelope.h"
#include "emulator/supervisor/memory.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

// Newer than the oldest headers that the emulator is built with.
#ifndef SECCOMP_IOCTL_NOTIF_SET_FLAGS
#define SECCOMP_IOCTL_NOTIF_SET_FLAGS SECCOMP_IOW(4, __u64)
#endif
#ifndef SECCOMP_USER_NOTIF_FD_SYNC_WAKE_UP
#define SECCOMP_USER_NOTIF_FD_SYNC_WAKE_UP (1UL << 0)
#endif

namespace emulator {

using namespace protocol;

namespace {

// No command takes more input; a longer one is refused without being read.
constexpr std::uint32_t longest_input = 4096;

} // namespace

Server::Server(Module& module, std::FILE* trace) : module_(module), trace_(trace)
{
    seccomp_notif_sizes sizes {};
    if (syscall(SYS_seccomp, SECCOMP_GET_NOTIF_SIZES, 0, &sizes) != 0)
        throw std::system_error(errno, std::generic_category(), "the kernel has no seccomp user notification");
    notification_.resize(std::max<std::size_t>(sizes.seccomp_notif, sizeof(seccomp_notif)));
    response_.resize(std::max<std::size_t>(sizes.seccomp_notif_resp, sizeof(seccomp_notif_resp)));
}

Server::~Server()
{
    if (listener_ >= 0)
        close(listener_);
}

void Server::listen(int listener)
{
    listener_ = listener;
    // Hands the processor straight to the other side and back. Kernels before 6.6 do without.
    ioctl(listener_, SECCOMP_IOCTL_NOTIF_SET_FLAGS, SECCOMP_USER_NOTIF_FD_SYNC_WAKE_UP);
}

void Server::serve_one()
{
    std::fill(notification_.begin(), notification_.end(), std::byte {0});
    if (ioctl(listener_, SECCOMP_IOCTL_NOTIF_RECV, notification_.data()) != 0)
        return; // Whoever it was has gone.
    Notification notification;
    std::memcpy(&notification, notification_.data(), sizeof notification);

    const auto& arguments = notification.data.args;
    switch (notification.data.nr) {
#ifdef SYS_open
    case SYS_open:
        answer_open(notification, arguments[0], arguments[1]);
        break;
#endif
    case SYS_openat:
        answer_open(notification, arguments[1], arguments[2]);
        break;
    case SYS_openat2: {
        std::uint64_t flags = 0; // the first member of struct open_how
        Memory(static_cast<pid_t>(notification.pid)).read(arguments[2], std::as_writable_bytes(std::span(&flags, 1)));
        answer_open(notification, arguments[1], flags);
        break;
    }
    case SYS_ioctl:
        answer_ioctl(notification);
        break;
    default:
        let_continue(notification);
    }
}

bool Server::opens_device(const Notification& notification, std::uint64_t path) const
{
    std::array<std::byte, upgrade_path.size() + 1> buffer {};
    const Memory memory(static_cast<pid_t>(notification.pid));
    const std::size_t length = memory.read_some(path, buffer);
    const char* text = reinterpret_cast<const char*>(buffer.data());
    const std::size_t end = strnlen(text, length);
    return end < length && is_device_path({text, end});
}

void Server::answer_open(const Notification& notification, std::uint64_t path, std::uint64_t flags)
{
    if (!opens_device(notification, path)) {
        let_continue(notification);
        return;
    }
    seccomp_notif_addfd added {};
    added.id = notification.id;
    added.flags = SECCOMP_ADDFD_FLAG_SEND;
    added.srcfd = static_cast<std::uint32_t>(device_.number());
    added.newfd_flags = (flags & O_CLOEXEC) != 0 ? O_CLOEXEC : 0;
    // Answers the call with the new descriptor's number. Fails when the process may have no more descriptors.
    if (ioctl(listener_, SECCOMP_IOCTL_NOTIF_ADDFD, &added) < 0)
        respond(notification, errno);
}

void Server::answer_ioctl(const Notification& notification)
{
    if (device_.is_copied_to(notification.pid, notification.data.args[0]))
        respond(notification, command(notification));
    else
        let_continue(notification);
}

int Server::command(const Notification& notification)
{
    const auto number = static_cast<std::uint32_t>(notification.data.args[1]);
    const std::uint64_t envelope_at = notification.data.args[2];
    const Memory memory(static_cast<pid_t>(notification.pid));

    std::array<std::byte, envelope::layout.size> bytes {};
    if (!memory.read(envelope_at, bytes))
        return EFAULT;
    const Input sent(bytes);
    const std::uint32_t in_len = sent[envelope::in_len];
    const std::uint32_t room = sent[envelope::out_len];

    std::vector<std::byte> input(std::min(in_len, longest_input));
    if (!memory.read(sent[envelope::in_ptr], input))
        return EFAULT;
    // The process may have been killed and its number given to another one while its memory was read.
    if (!still_waiting(notification))
        return EINTR;

    Answer answer;
    if (in_len > longest_input)
        answer.error = EINVAL;
    else
        answer = module_.answer(number, input, room);
    if (answer.error == 0) {
        const auto length = static_cast<std::uint32_t>(answer.reply.size());
        if (!memory.write({{{sent[envelope::out_ptr], answer.reply},
                {envelope_at + envelope::out_len.offset, std::as_bytes(std::span(&length, 1))}}}))
            answer.error = EFAULT;
    }
    trace_.write({notification.pid, number, in_len, room}, answer);
    return answer.error;
}

bool Server::still_waiting(const Notification& notification) const
{
    return ioctl(listener_, SECCOMP_IOCTL_NOTIF_ID_VALID, &notification.id) == 0;
}

void Server::let_continue(const Notification& notification)
{
    seccomp_notif_resp response {};
    response.id = notification.id;
    response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
    std::memcpy(response_.data(), &response, sizeof response);
    ioctl(listener_, SECCOMP_IOCTL_NOTIF_SEND, response_.data());
}

void Server::respond(const Notification& notification, int error)
{
    seccomp_notif_resp response {};
    response.id = notification.id;
    response.error = -error;
    std::memcpy(response_.data(), &response, sizeof response);
    ioctl(listener_, SECCOMP_IOCTL_NOTIF_SEND, response_.data());
}

} // namespace emulator
