#include "emulator/supervisor/namespaces.h"

#include "emulator/supervisor/failure.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <initializer_list>
#include <linux/capability.h>
#include <sched.h>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace emulator {

namespace {

bool may(std::initializer_list<int> capabilities)
{
    __user_cap_header_struct header {_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> data {};
    if (syscall(SYS_capget, &header, data.data()) != 0)
        return false;
    for (const int capability : capabilities) {
        const auto number = static_cast<unsigned int>(capability);
        if ((data[number / 32].effective & (1U << (number % 32))) == 0)
            return false;
    }
    return true;
}

void write_file(const std::string& path, const std::string& text)
{
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file || write(file.number(), text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        fail(fmt::format("cannot write {}", path));
}

// Everybody in the user namespace is who they are outside; but without the privilege to say so of others, only oneself.
void map_users(pid_t process)
{
    const std::string folder = fmt::format("/proc/{}/", process);
    if (may({CAP_SETUID, CAP_SETGID})) {
        write_file(folder + "uid_map", "0 0 4294967295");
        write_file(folder + "gid_map", "0 0 4294967295");
        return;
    }
    write_file(folder + "setgroups", "deny");
    write_file(folder + "uid_map", fmt::format("{0} {0} 1", geteuid()));
    write_file(folder + "gid_map", fmt::format("{0} {0} 1", getegid()));
}

// What would have to be allowed.
std::string_view permission_for(int error)
{
    switch (error) {
    case EPERM:
    case EACCES:
        return " (allow user namespaces: kernel.unprivileged_userns_clone=1, "
               "kernel.apparmor_restrict_unprivileged_userns=0, no seccomp profile against unshare, no chroot)";
    case ENOSPC:
    case EUSERS:
        return " (allow more of them: user.max_user_namespaces, user.max_mnt_namespaces, user.max_pid_namespaces)";
    case EINVAL:
        return " (the kernel lacks user, mount or process namespaces)";
    default:
        return "";
    }
}

// Takes the namespaces, and starts the first process in them. Returns only in that.
void take_namespaces(const Link& link)
{
    if (unshare(needed_namespaces()) != 0) {
        const int error = errno;
        link.send(
            Word::Failed, 0, fmt::format("cannot make namespaces: {}{}", std::strerror(error), permission_for(error)));
        _exit(1);
    }
    link.send(Word::Apart);
    if (!link.receive())
        _exit(1);
    const pid_t first = fork();
    if (first == 0)
        return;
    if (first < 0)
        link.send(Word::Failed, 0, fmt::format("cannot start a process: {}", std::strerror(errno)));
    else
        link.send(Word::Ready, first);
    _exit(0);
}

Message expect(const Link& link)
{
    std::optional<Message> message = link.receive();
    if (!message)
        throw std::runtime_error("a process that makes namespaces was killed");
    if (message->word == Word::Failed)
        throw std::runtime_error(message->text);
    return std::move(*message);
}

// Waits for a child when it is of no use any more.
class Reaper
{
public:
    explicit Reaper(pid_t child) : child_(child) {}
    ~Reaper()
    {
        while (waitpid(child_, nullptr, 0) < 0 && errno == EINTR)
            continue;
    }
    Reaper(const Reaper&) = delete;
    Reaper& operator=(const Reaper&) = delete;

private:
    pid_t child_;
};

pid_t first_process(const Link& link, pid_t taker)
{
    expect(link);
    if ((needed_namespaces() & CLONE_NEWUSER) != 0)
        map_users(taker);
    link.send(Word::Go);
    return expect(link).number;
}

} // namespace

int needed_namespaces()
{
    const int always = CLONE_NEWNS | CLONE_NEWPID;
    return may({CAP_SYS_ADMIN, CAP_SYS_PTRACE, CAP_SYS_CHROOT, CAP_KILL}) ? always : always | CLONE_NEWUSER;
}

pid_t fork_apart()
{
    auto [here, there] = Link::pair();
    // The taker ends at once; its child is to be the caller's.
    if (prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0)
        fail("cannot adopt orphans");
    const pid_t taker = fork();
    if (taker < 0)
        fail("cannot start a process");
    if (taker == 0) {
        here.close();
        take_namespaces(there);
        // From when the taker has ended, the caller is the parent.
        if (!there.receive())
            _exit(1);
        return 0;
    }
    there.close();
    pid_t first = 0;
    {
        const Reaper reaper(taker);
        try {
            first = first_process(here, taker);
        } catch (...) {
            here.close();
            throw;
        }
    }
    here.send(Word::Go);
    return first;
}

} // namespace emulator
