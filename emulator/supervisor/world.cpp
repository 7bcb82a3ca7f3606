#include "emulator/supervisor/world.h"

#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/mounts.h"
#include "emulator/supervisor/namespaces.h"
#include "emulator/supervisor/signals.h"
#include "emulator/supervisor/supervisor.h"
#include "emulator/supervisor/terminal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fmt/core.h>
#include <memory>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

namespace emulator {

namespace {

constexpr int emulator_failed = 125;

// Keeps where the process is, which is elsewhere when the files around it are mounted anew.
class Place
{
public:
    Place() : directory_(getcwd(nullptr, 0), std::free), mask_(umask(022)) {}
    ~Place()
    {
        umask(mask_);
        // A directory that has been removed or cannot be reached stays where it is.
        if (directory_ && chdir(directory_.get()) != 0)
            return;
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

private:
    std::unique_ptr<char, decltype(&std::free)> directory_;
    mode_t mask_;
};

MountIds make_device_files_around()
{
    const Place place;
    return make_device_files();
}

// What the supervisor of a world is given.
struct House
{
    SharedModule& module;
    Trace& trace;
    const Foreground& foreground;
    Lifetime lifetime;
};

// A world, as the process sees it that was asked for it.
class World
{
public:
    // Throws if the machine refuses.
    World(Mode mode, const House& house, const std::function<int()>& program)
        : foreground_(house.foreground), group_(group_in(mode, house.foreground))
    {
        if (mode == Mode::Namespaces && what_forbids_device_files() != nullptr)
            throw std::runtime_error(what_forbids_device_files());
        auto [here, there] = Link::pair();
        supervisor_ = mode == Mode::Namespaces ? fork_apart() : fork();
        if (supervisor_ < 0)
            fail("cannot start a process");
        if (supervisor_ == 0) {
            here.close();
            supervise(mode, house, there, program);
        }
        link_.emplace(std::move(here));
        there.close();
        const auto answer = link_->receive();
        if (answer && answer->word == Word::Ready)
            return;
        const std::string why = answer ? answer->text : "the supervisor was killed";
        end();
        throw std::runtime_error(why);
    }

    // Passes signals on until the world has ended.
    Ending wait(const Signals& signals)
    {
        std::optional<Ending> ending;
        for (bool there = true; there;) {
            std::array<pollfd, 2> events {{{link_->descriptor(), POLLIN, 0}, {signals.descriptor(), POLLIN, 0}}};
            if (poll(events.data(), events.size(), -1) < 0)
                continue;
            if (events[0].revents != 0)
                there = hear(ending);
            if (events[1].revents != 0)
                while (const auto signal = signals.next())
                    pass_on(*signal);
        }
        end();
        if (!ending)
            throw std::runtime_error("the supervisor was killed");
        foreground_.take();
        // Whoever waits in the process group that had the terminal would have been interrupted, too.
        if (group_ == Group::Own && (ending->signal == SIGINT || ending->signal == SIGQUIT))
            kill(0, ending->signal);
        return *ending;
    }

private:
    [[noreturn]] static void supervise(
        Mode mode, const House& house, const Link& link, const std::function<int()>& program)
    {
        try {
            if (mode == Mode::Namespaces) {
                const MountedDevice device(make_device_files_around());
                const OfNamespace inhabitants;
                supervise({device, Handed::Commands, inhabitants, house.lifetime, group_in(mode, house.foreground)},
                    house, link, program);
            } else {
                if (!MarkedDevice::open(O_RDWR))
                    fail("cannot open /dev/null");
                const MarkedDevice device;
                const Descendants inhabitants;
                supervise(
                    {device, Handed::CommandsAndOpens, inhabitants, house.lifetime, group_in(mode, house.foreground)},
                    house, link, program);
            }
        } catch (const std::exception& error) {
            link.send(Word::Failed, 0, error.what());
            _exit(emulator_failed);
        }
        // Threads may still be waiting for memory that never comes.
        _exit(0);
    }

    static void supervise(
        const Premises& premises, const House& house, const Link& link, const std::function<int()>& program)
    {
        link.send(Word::Ready);
        Supervisor(house.module, premises, link).run(program);
        house.trace.finish(house.lifetime.grace);
    }

    static Group group_in(Mode mode, const Foreground& foreground)
    {
        return mode == Mode::Namespaces && foreground.is_alone() ? Group::Own : Group::Shared;
    }

    void pass_on(const signalfd_siginfo& signal)
    {
        const int number = static_cast<int>(signal.ssi_signo);
        if (number == SIGCONT && group_ == Group::Own && has_terminal())
            link_->send(Word::Terminal);
        // What is sent to the whole process group by the terminal, or by a shell that continues it, has been heard by all
        // who are in it.
        if (number == SIGCONT ? group_ == Group::Own || stopped_ : signal.ssi_code != SI_KERNEL)
            link_->send(Word::Signal, number);
        if (number == SIGCONT)
            stopped_ = false;
    }

    // Whoever started the emulator waits for it, not for the program.
    void stop_by(int signal)
    {
        if (group_ == Group::Own) {
            foreground_.take();
            kill(signal == SIGSTOP ? getpid() : 0, signal);
        } else if (signal == SIGSTOP) {
            stopped_ = true;
            raise(SIGSTOP);
        }
    }

    // False when there is nothing more to hear.
    bool hear(std::optional<Ending>& ending)
    {
        const auto message = link_->receive();
        if (!message)
            return false;
        switch (message->word) {
        case Word::Stopped:
            stop_by(message->number);
            break;
        case Word::Exited:
            ending = Ending {message->number, 0};
            break;
        case Word::Killed:
            ending = Ending {0, message->number};
            break;
        default:
            end();
            throw std::runtime_error(message->text);
        }
        return true;
    }

    // Whoever is left when the supervisor was killed has become a child of the caller, or the kernel has ended them.
    void end()
    {
        link_.reset();
        while (waitpid(supervisor_, nullptr, 0) < 0 && errno == EINTR)
            continue;
        descendants_.kill();
    }

    Descendants descendants_;
    const Foreground& foreground_;
    Group group_;
    pid_t supervisor_ = 0;
    bool stopped_ = false; // because the program was, alone
    std::optional<Link> link_;
};

std::unique_ptr<World> best_world(const House& house, const std::function<int()>& program)
{
    try {
        return std::make_unique<World>(Mode::Namespaces, house, program);
    } catch (const std::runtime_error& refusal) {
        return std::make_unique<World>(Mode::Injection, house, program);
    }
}

} // namespace

Ending run_in_world(Module& module, const Wishes& wishes, const std::function<int()>& program)
{
    Trace trace(wishes.trace);
    SharedModule shared(module, trace);
    const Signals signals {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGCONT};
    const Foreground foreground;
    const House house {shared, trace, foreground, wishes.lifetime};
    const auto restored = [&signals, &program] {
        signals.restore();
        return program();
    };
    const auto world =
        wishes.mode ? std::make_unique<World>(*wishes.mode, house, restored) : best_world(house, restored);
    return world->wait(signals);
}

} // namespace emulator
