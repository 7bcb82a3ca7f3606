#include "emulator/supervisor/world.h"

#include "emulator/supervisor/filter.h"
#include "emulator/supervisor/server.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fmt/core.h>
#include <fstream>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace emulator {

namespace {

constexpr int passed_on[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2};

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

// The signals that the supervisor hears of by a descriptor while it lives, and how they were set before.
class Signals
{
public:
    Signals()
    {
        sigset_t heard;
        sigemptyset(&heard);
        sigaddset(&heard, SIGCHLD);
        for (const int signal : passed_on)
            sigaddset(&heard, signal);
        sigprocmask(SIG_BLOCK, &heard, &mask_before_);
        // A parent that ignores SIGCHLD would never learn how its children end.
        struct sigaction child
        {};
        child.sa_handler = SIG_DFL;
        sigaction(SIGCHLD, &child, &child_before_);
        descriptor_ = signalfd(-1, &heard, SFD_CLOEXEC | SFD_NONBLOCK);
        if (descriptor_ < 0)
            fail("signalfd");
    }
    ~Signals()
    {
        close(descriptor_);
        restore();
    }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    void restore() const
    {
        sigaction(SIGCHLD, &child_before_, nullptr);
        sigprocmask(SIG_SETMASK, &mask_before_, nullptr);
    }

    int descriptor() const { return descriptor_; }

    std::optional<signalfd_siginfo> next() const
    {
        signalfd_siginfo signal {};
        if (read(descriptor_, &signal, sizeof signal) != sizeof signal)
            return std::nullopt;
        return signal;
    }

private:
    sigset_t mask_before_ {};
    struct sigaction child_before_
    {};
    int descriptor_ = -1;
};

// One descriptor, from the child to the supervisor.
void send_descriptor(int socket, int descriptor)
{
    char nothing = 0;
    iovec data {&nothing, 1};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control {};
    msghdr message {};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    cmsghdr* header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &descriptor, sizeof descriptor);
    if (sendmsg(socket, &message, 0) != 1)
        fail("sendmsg");
}

// -1 when the child ended instead.
int receive_descriptor(int socket)
{
    char nothing = 0;
    iovec data {&nothing, 1};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control {};
    msghdr message {};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    ssize_t length = 0;
    do
        length = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    while (length < 0 && errno == EINTR);
    const cmsghdr* header = CMSG_FIRSTHDR(&message);
    if (length != 1 || header == nullptr || header->cmsg_type != SCM_RIGHTS)
        return -1;
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(header), sizeof descriptor);
    return descriptor;
}

constexpr int could_not_start = 125;

// The child: dies with the supervisor, enters the filter, hands the listener over and becomes the program.
[[noreturn]] void become(pid_t supervisor, int socket, const Signals& signals, const std::function<int()>& program)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != supervisor)
        _exit(could_not_start);
    const int listener = enter_filter();
    if (listener < 0) {
        const int error = errno;
        fmt::print(stderr, "lumozeph-emulator: {}\n",
            error == EBUSY ? "cannot run inside another emulated world"
                           : fmt::format("the kernel lacks seccomp user notification: {}", std::strerror(error)));
        _exit(could_not_start);
    }
    send_descriptor(socket, listener);
    close(listener);
    close(socket);
    signals.restore();
    _exit(program());
}

void kill_children()
{
    std::ifstream children(fmt::format("/proc/self/task/{}/children", getpid()));
    for (pid_t child = 0; children >> child;)
        kill(child, SIGKILL);
}

// Kills whatever is left, generation by generation: the children of whoever dies become the supervisor's.
void kill_everybody()
{
    for (;;) {
        kill_children();
        const pid_t reaped = waitpid(-1, nullptr, WNOHANG);
        if (reaped < 0 && errno == ECHILD)
            return;
        if (reaped == 0)
            poll(nullptr, 0, 1);
    }
}

class World
{
public:
    World(Server& server, const Signals& signals, pid_t program) : server_(server), signals_(signals), program_(program)
    {}

    Ending serve()
    {
        while (!(ending_ && deserted_)) {
            std::array<pollfd, 2> events {
                {{deserted_ ? -1 : server_.listener(), POLLIN, 0}, {signals_.descriptor(), POLLIN, 0}}};
            if (poll(events.data(), events.size(), -1) < 0 && errno != EINTR)
                fail("poll");
            if ((events[0].revents & POLLIN) != 0)
                server_.serve_one();
            else if ((events[0].revents & (POLLHUP | POLLERR)) != 0)
                deserted_ = true;
            if ((events[1].revents & POLLIN) != 0)
                while (const auto signal = signals_.next())
                    hear(*signal);
        }
        return *ending_;
    }

private:
    void hear(const signalfd_siginfo& signal)
    {
        const int number = static_cast<int>(signal.ssi_signo);
        if (number == SIGCHLD)
            reap();
        else if (ending_)
            end();
        // The terminal has sent its signals to the program, too.
        else if (signal.ssi_code != SI_KERNEL)
            kill(program_, number);
    }

    void reap()
    {
        int status = 0;
        for (pid_t child = 0; (child = waitpid(-1, &status, WNOHANG)) > 0;) {
            if (child != program_)
                continue;
            if (WIFSIGNALED(status)) {
                ending_ = Ending {0, WTERMSIG(status)};
                end();
            } else {
                ending_ = Ending {WEXITSTATUS(status), 0};
            }
        }
    }

    void end()
    {
        kill_everybody();
        deserted_ = true;
    }

    Server& server_;
    const Signals& signals_;
    pid_t program_;
    std::optional<Ending> ending_;
    bool deserted_ = false; // nobody is left under the filter
};

} // namespace

Ending run_in_world(Module& module, std::FILE* trace, const std::function<int()>& program)
{
    Server server(module, trace);
    // Orphans become the supervisor's children, so that none is lost.
    if (prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0)
        fail("prctl");
    const Signals signals;
    std::array<int, 2> sockets {};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0)
        fail("socketpair");

    const pid_t supervisor = getpid();
    const pid_t child = fork();
    if (child < 0)
        fail("fork");
    if (child == 0)
        become(supervisor, sockets[1], signals, program);
    close(sockets[1]);
    const int listener = receive_descriptor(sockets[0]);
    close(sockets[0]);
    if (listener < 0) {
        int status = 0;
        while (waitpid(child, &status, 0) < 0 && errno == EINTR)
            continue;
        return WIFSIGNALED(status) ? Ending {0, WTERMSIG(status)} : Ending {WEXITSTATUS(status), 0};
    }
    server.listen(listener);
    return World(server, signals, child).serve();
}

} // namespace emulator
