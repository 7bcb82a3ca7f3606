#include "emulator/supervisor/server.h"

#include "emulator/protocol/access.h"
#include "emulator/protocol/envelope.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/memory.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <linux/audit.h>
#include <linux/openat2.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <thread>
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

#if defined(__x86_64__)
constexpr std::uint32_t native_architecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t native_architecture = AUDIT_ARCH_AARCH64;
#endif

// A call on a descriptor that cannot be looked at fails as the kernel has it, or because the supervisor may not look.
bool kernel_knows(int error)
{
    return error == EBADF || error == ESRCH;
}

} // namespace

Fate SharedModule::fate_of_command(std::uint32_t number)
{
    const std::lock_guard one(one_at_a_time_);
    return faults_.of_command(number);
}

Fate SharedModule::fate_of_open()
{
    const std::lock_guard one(one_at_a_time_);
    return faults_.of_open();
}

Answer SharedModule::apply(Call& call, const Fate& fate)
{
    const std::lock_guard one(one_at_a_time_);
    call.order = ++applied_;
    if (call.in_len != call.input.size())
        return {EINVAL, {}};
    if (replay_ != nullptr)
        return replay_->answer(call);
    return emulator::answer(module_, fate, call.number, call.input, call.room);
}

void SharedModule::pass_by(Call& call)
{
    const std::lock_guard one(one_at_a_time_);
    call.order = ++applied_;
}

void SharedModule::use(const std::function<void(Module&)>& user)
{
    const std::lock_guard one(one_at_a_time_);
    user(module_);
}

void SharedModule::use_faults(const std::function<void(Faults&)>& user)
{
    const std::lock_guard one(one_at_a_time_);
    user(faults_);
}

std::string SharedModule::difference()
{
    const std::lock_guard one(one_at_a_time_);
    return replay_->difference();
}

void prepare(int listener)
{
    // Hands the processor straight to the other side and back. Kernels before 6.6 do without.
    ioctl(listener, SECCOMP_IOCTL_NOTIF_SET_FLAGS, SECCOMP_USER_NOTIF_FD_SYNC_WAKE_UP);
}

Server::Server(SharedModule& module, const Device& device, int listener)
    : module_(module), device_(device), listener_(listener)
{
    seccomp_notif_sizes sizes {};
    if (syscall(SYS_seccomp, SECCOMP_GET_NOTIF_SIZES, 0, &sizes) != 0)
        fail("the kernel has no seccomp user notification");
    received_.resize(std::max<std::size_t>(sizes.seccomp_notif, sizeof(seccomp_notif)));
    response_.resize(std::max<std::size_t>(sizes.seccomp_notif_resp, sizeof(seccomp_notif_resp)));
}

bool Server::receive()
{
    std::fill(received_.begin(), received_.end(), std::byte {0});
    if (ioctl(listener_, SECCOMP_IOCTL_NOTIF_RECV, received_.data()) != 0)
        return false;
    std::memcpy(&notification_, received_.data(), sizeof notification_);
    return true;
}

void Server::answer()
{
    const auto& call = notification_.data;
    // Other architectures number their calls differently, but hand over no other call than ioctl.
    switch (call.arch == native_architecture ? call.nr : SYS_ioctl) {
#ifdef SYS_open
    case SYS_open:
        answer_open(static_cast<std::uint32_t>(AT_FDCWD), call.args[0], call.args[1]);
        break;
#endif
    case SYS_openat:
        answer_open(call.args[0], call.args[1], call.args[2]);
        break;
    case SYS_openat2:
        answer_openat2(call.args[0], call.args[1], call.args[2]);
        break;
    default:
        answer_ioctl();
    }
}

void Server::answer_openat2(std::uint64_t folder, std::uint64_t path, std::uint64_t how)
{
    std::uint64_t flags = 0; // the first member of struct open_how
    Memory(static_cast<pid_t>(notification_.pid)).read(how, std::as_writable_bytes(std::span(&flags, 1)));
    answer_open(folder, path, flags);
}

void Server::answer_open(std::uint64_t folder, std::uint64_t path, std::uint64_t flags)
{
    std::array<std::byte, PATH_MAX> buffer;
    const Memory memory(static_cast<pid_t>(notification_.pid));
    const std::size_t length = memory.read_some(path, buffer);
    const bool unreadable = length == 0 && errno == EPERM;
    const char* const text = reinterpret_cast<const char*>(buffer.data());
    const std::size_t end = strnlen(text, length);
    const bool is_whole = end < length && (flags & O_PATH) == 0;
    if (device_.is_file()) {
        const std::string_view device = is_whole ? device_named(folder, text, flags) : std::string_view();
        device.empty() ? let_continue() : open_device(device, flags);
    } else if (unreadable) {
        respond(EIO); // It might be the device.
    } else if (is_whole && is_device_path({text, end})) {
        open_device({text, end}, flags);
    } else {
        let_continue();
    }
}

// The device that the kernel is going to open, if it is one. Whoever changes the path meanwhile deceives the trace and
// the faults alone.
std::string_view Server::device_named(std::uint64_t folder, const std::string& path, std::uint64_t flags)
{
    Descriptor start;
    const bool is_absolute = path.starts_with('/');
    if (is_absolute || static_cast<int>(folder) == AT_FDCWD) {
        const std::string its = fmt::format("/proc/{}/{}", notification_.pid, is_absolute ? "root" : "cwd");
        start = Descriptor(open(its.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    } else {
        start = copier_.copy(notification_.pid, folder);
    }
    open_how how {};
    how.flags = O_PATH | O_CLOEXEC | (flags & O_NOFOLLOW);
    // The links of /proc would lead into the supervisor's own files.
    how.resolve = RESOLVE_NO_MAGICLINKS | (is_absolute ? RESOLVE_IN_ROOT : 0);
    const Descriptor found(static_cast<int>(syscall(SYS_openat2, start.number(), path.c_str(), &how, sizeof how)));
    return found ? device_.path_of(found.number()) : std::string_view();
}

void Server::open_device(std::string_view path, std::uint64_t flags)
{
    const bool is_seen = module_.witness().sees_opens();
    Event event = is_seen ? beginning() : Event {};
    const Fate fate = module_.fate_of_open();
    const bool is_answered = wait(fate);
    if (is_seen) {
        event.what = Opening {std::string(path), flags};
        event.error = is_answered ? std::optional(fate.error()) : std::nullopt;
        event.faults = fate.faults;
        tell(std::move(event));
    }
    if (!is_answered)
        return;
    if (fate.error() != 0)
        respond(fate.error());
    else if (device_.is_file())
        let_continue();
    else
        give(flags);
}

void Server::give(std::uint64_t flags)
{
    const Descriptor opened = MarkedDevice::open(flags);
    if (!opened) {
        respond(errno);
        return;
    }
    seccomp_notif_addfd added {};
    added.id = notification_.id;
    added.flags = SECCOMP_ADDFD_FLAG_SEND;
    added.srcfd = static_cast<std::uint32_t>(opened.number());
    added.newfd_flags = (flags & O_CLOEXEC) != 0 ? O_CLOEXEC : 0;
    // Answers the call with the new descriptor's number. Fails when the process may have no more descriptors.
    if (ioctl(listener_, SECCOMP_IOCTL_NOTIF_ADDFD, &added) < 0)
        respond(errno);
}

void Server::answer_ioctl()
{
    const Descriptor copy = copier_.copy(notification_.pid, notification_.data.args[0]);
    using Is = Device::Is;
    const Is is = copy ? device_.opened_as(copy.number(), static_cast<pid_t>(notification_.pid))
                       : (kernel_knows(errno) ? Is::Another : Is::Unclear);
    if (is == Is::Another)
        let_continue();
    else if (is == Is::Meant && notification_.data.arch == native_architecture && notification_.data.nr == SYS_ioctl)
        answer_command();
    else
        // It might be the device, for which the kernel has answers of its own; or it is, and the envelope holds
        // pointers of another width.
        respond(EIO);
}

void Server::answer_command()
{
    const bool is_seen = module_.witness().sees_commands();
    Event event = is_seen ? beginning() : Event {};
    Call call {.number = static_cast<std::uint32_t>(notification_.data.args[1])};
    const std::optional<int> error = command(call, event.faults);
    if (is_seen) {
        event.what = std::move(call);
        event.error = error;
        tell(std::move(event));
    }
    if (error)
        respond(*error);
}

// The errno, or 0. Nothing if nobody waits for it, or nobody is to get it.
std::optional<int> Server::command(Call& call, std::string& faults)
{
    const std::uint64_t envelope_at = notification_.data.args[2];
    const Memory memory(static_cast<pid_t>(notification_.pid));

    std::array<std::byte, envelope::layout.size> bytes {};
    if (!memory.read(envelope_at, bytes)) {
        const int error = errno == EPERM ? EIO : EFAULT;
        module_.pass_by(call);
        return error;
    }
    const Input sent(bytes);
    call.readable = Readable::Envelope;
    call.in_len = sent[envelope::in_len];
    call.in_ptr = sent[envelope::in_ptr];
    call.room = sent[envelope::out_len];
    call.out_ptr = sent[envelope::out_ptr];

    call.input.resize(std::min(call.in_len, longest_input));
    if (!memory.read(sent[envelope::in_ptr], call.input)) {
        call.input.clear();
        module_.pass_by(call);
        return EFAULT;
    }
    call.readable = Readable::Input;
    const Fate fate = call.in_len == call.input.size() ? module_.fate_of_command(call.number) : Fate();
    faults = fate.faults;
    // The process may have been killed and its number given to another one while its memory was read.
    if (!wait(fate) || !still_waiting()) {
        module_.pass_by(call);
        return std::nullopt;
    }
    return carry_out(call, envelope_at, fate);
}

int Server::carry_out(Call& call, std::uint64_t envelope_at, const Fate& fate)
{
    Answer answer = module_.apply(call, fate);
    if (answer.error != 0)
        return answer.error;
    call.reply_len = answer.length();
    const Memory memory(static_cast<pid_t>(notification_.pid));
    if (!memory.write({{{call.out_ptr, answer.reply},
            {envelope_at + envelope::out_len.offset, std::as_bytes(std::span(&call.reply_len, 1))}}}))
        return EFAULT;
    call.reply_size = answer.reply.size();
    call.reply = std::move(answer.reply);
    return 0;
}

// Whoever asks may be gone before there is an answer.
Event Server::beginning()
{
    module_.witness().expect();
    return {.begun = std::chrono::system_clock::now(), .caller = callers_.find(notification_.pid)};
}

void Server::tell(Event event)
{
    event.took = std::chrono::system_clock::now() - event.begun;
    module_.witness().tell(std::move(event));
}

// False if whoever has called is gone, or is left waiting: until it is killed, and without a thread of ours.
bool Server::wait(const Fate& fate) const
{
    if (fate.hangs)
        return false;
    constexpr Time look = std::chrono::milliseconds(100);
    const auto end = std::chrono::steady_clock::now() + fate.delay;
    for (Time left = fate.delay; left > Time(); left = end - std::chrono::steady_clock::now()) {
        std::this_thread::sleep_for(std::min(look, left));
        if (!still_waiting())
            return false;
    }
    return true;
}

bool Server::still_waiting() const
{
    return ioctl(listener_, SECCOMP_IOCTL_NOTIF_ID_VALID, &notification_.id) == 0;
}

void Server::let_continue()
{
    seccomp_notif_resp response {};
    response.id = notification_.id;
    response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
    std::memcpy(response_.data(), &response, sizeof response);
    ioctl(listener_, SECCOMP_IOCTL_NOTIF_SEND, response_.data());
}

void Server::respond(int error)
{
    seccomp_notif_resp response {};
    response.id = notification_.id;
    response.error = -error;
    std::memcpy(response_.data(), &response, sizeof response);
    ioctl(listener_, SECCOMP_IOCTL_NOTIF_SEND, response_.data());
}

} // namespace emulator
