#include "emulator/supervisor/guest.h"

#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <sched.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace emulator {

void Guest::run(Group group, Handed handed, const std::function<int()>& start)
{
    const Signals signals {SIGCHLD, SIGPIPE, SIGXFSZ};
    Program program(group, handed, start);
    setpgid(0, 0);
    if (const Descriptor listener = program.take_listener())
        world_.pass(Word::Listener, listener.number());
    program.start();
    bool alive = true;
    while (alive) {
        std::array<pollfd, 3> events {
            {{link_.descriptor(), POLLIN, 0}, {signals.descriptor(), POLLIN, 0}, {world_.descriptor(), POLLIN, 0}}};
        if (poll(events.data(), events.size(), -1) < 0)
            continue;
        while (signals.next())
            continue;
        // Without its world, or whoever asked for it, the program is to end.
        if (events[2].revents != 0 || (events[0].revents != 0 && !hear(program))) {
            kill(program.number(), SIGKILL);
            poll(nullptr, 0, 1);
        }
        alive = look_at(program);
    }
}

bool Guest::hear(const Program& program)
{
    const auto message = link_.receive();
    if (message)
        program.heed(*message);
    return message.has_value();
}

bool Guest::look_at(const Program& program) const
{
    int status = 0;
    while (waitpid(program.number(), &status, WNOHANG | WUNTRACED) > 0) {
        const Message news = tell(status);
        link_.send(news.word, news.number);
        if (news.word != Word::Stopped)
            return false;
    }
    return true;
}

void require_filter()
{
    auto [here, there] = Link::pair();
    const pid_t child = fork();
    if (child < 0)
        fail("cannot start a process");
    if (child == 0) {
        try {
            enter_filter(Handed::Commands);
        } catch (const std::exception& error) {
            there.send(Word::Failed, 0, error.what());
        }
        _exit(0);
    }
    there.close();
    const auto refusal = here.receive();
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR)
        continue;
    if (refusal)
        throw std::runtime_error(refusal->text);
}

void enter_namespaces(const Descriptor& supervisor, int namespaces)
{
    const std::unique_ptr<char, decltype(&std::free)> directory(getcwd(nullptr, 0), std::free);
    if (setns(supervisor.number(), namespaces) != 0)
        fail("cannot enter the world's namespaces");
    if (directory && chdir(directory.get()) != 0)
        fail("the working directory is not there in the world");
}

} // namespace emulator
