#include "emulator/supervisor/world.h"

#include "emulator/state/state_file.h"
#include "emulator/supervisor/control.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/guest.h"
#include "emulator/supervisor/mounts.h"
#include "emulator/supervisor/namespaces.h"
#include "emulator/supervisor/output.h"
#include "emulator/supervisor/supervisor.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fmt/format.h>
#include <memory>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace emulator {

namespace {

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

DeviceFiles make_device_files_around()
{
    const Place place;
    return make_device_files();
}

// What a supervisor does once the device is there.
using Work = std::function<void(Mode, const Premises&, const Link&)>;

Handed handed_in(Mode mode, Traced traced)
{
    if (traced == Traced::CommandsAndOpens)
        return Handed::CommandsAndOpens;
    return mode == Mode::Namespaces ? Handed::Commands : Handed::CommandsAndOpensForWriting;
}

void supervise(Mode mode, Traced traced, int namespaces, const Link& link, const Work& work)
{
    const Handed handed = handed_in(mode, traced);
    if (mode == Mode::Namespaces) {
        const MountedDevice device(make_device_files_around());
        const OfNamespace inhabitants;
        work(mode, {device, handed, inhabitants, namespaces, "namespaces"}, link);
        return;
    }
    if (!MarkedDevice::open(O_RDWR))
        fail("cannot open /dev/null");
    const MarkedDevice device;
    const Descendants inhabitants;
    inhabitants.check();
    work(mode, {device, handed, inhabitants, 0, "injection"}, link);
}

Group group_in(Mode mode, const Foreground& foreground)
{
    return mode == Mode::Namespaces && foreground.is_alone() ? Group::Own : Group::Shared;
}

// Starts a supervisor. Throws if the machine refuses.
Front make_world(Mode mode, Traced traced, const Foreground& foreground, const Work& work)
{
    if (mode == Mode::Namespaces && what_forbids_device_files() != nullptr)
        throw std::runtime_error(what_forbids_device_files());
    const int namespaces = needed_namespaces();
    // If the supervisor is killed, its children are the caller's at once.
    const Descendants adopted;
    auto [here, there] = Link::pair();
    const pid_t supervisor = mode == Mode::Namespaces ? fork_apart() : fork();
    if (supervisor < 0)
        fail("cannot start a process");
    if (supervisor > 0) {
        there.close();
        return {supervisor, std::move(here), group_in(mode, foreground), foreground};
    }
    here.close();
    // Who is stopped must notice, too, that whoever started the world has gone.
    prctl(PR_SET_PDEATHSIG, SIGCONT);
    work_until_end(there, [&](const Link& link) { supervise(mode, traced, namespaces, link, work); });
}

Front make_best_world(const Wishes& wishes, const Foreground& foreground, const Work& work)
{
    if (wishes.mode)
        return make_world(*wishes.mode, wishes.telling.traced, foreground, work);
    try {
        return make_world(Mode::Namespaces, wishes.telling.traced, foreground, work);
    } catch (const std::runtime_error& refusal) {
        return make_world(Mode::Injection, wishes.telling.traced, foreground, work);
    }
}

// A name's socket, as long as the world needs it.
class Door
{
public:
    explicit Door(const std::optional<std::string>& name)
    {
        if (name)
            socket_.emplace(*name);
    }
    ~Door() { shut(); }
    Door(const Door&) = delete;
    Door& operator=(const Door&) = delete;

    ControlSocket* socket() { return socket_ ? &*socket_ : nullptr; }

    // Both the front and the supervisor do this in the end, as one may have been killed.
    void shut()
    {
        if (!socket_)
            return;
        socket_->close();
        socket_->remove();
    }

    void leave_to_supervisor()
    {
        if (socket_)
            socket_->close();
    }

private:
    std::optional<ControlSocket> socket_;
};

// Does what is left to be done when the world has ended.
void wind_up(const Wishes& wishes, SharedModule& module, Door& door)
{
    module.witness().finish(wishes.lifetime.grace);
    if (wishes.replay != nullptr)
        write_all(wishes.difference, module.difference());
    if (wishes.state != nullptr)
        module.use([&](Module& used) { wishes.state->replace(json::print(state_of(used))); });
    // Who takes the name over finds the state written.
    door.shut();
}

} // namespace

Ending run_in_world(Module& module, Faults& faults, const Wishes& wishes, const std::function<int()>& program)
{
    Door door(wishes.name);
    Witness witness(wishes.telling);
    SharedModule shared(module, faults, witness);
    if (wishes.replay != nullptr)
        shared.replay(*wishes.replay);
    const Signals signals = heard_by_front();
    const Foreground foreground;
    Front front = make_best_world(wishes, foreground, [&](Mode mode, const Premises& premises, const Link& link) {
        Supervisor supervisor(shared, premises, wishes.lifetime, link, door.socket());
        link.send(Word::Ready);
        supervisor.run(group_in(mode, foreground), [&] {
            signals.restore();
            return program();
        });
        wind_up(wishes, shared, door);
    });
    door.leave_to_supervisor();
    return front.wait(signals);
}

Ending serve_world(Module& module, Faults& faults, const Wishes& wishes, const std::function<void()>& ready)
{
    require_filter();
    Door door(wishes.name);
    Witness witness(wishes.telling);
    SharedModule shared(module, faults, witness);
    const Signals signals = heard_by_front();
    const Foreground foreground;
    Front front = make_best_world(wishes, foreground, [&](Mode, const Premises& premises, const Link& link) {
        Supervisor supervisor(shared, premises, wishes.lifetime, link, door.socket());
        link.send(Word::Ready);
        supervisor.serve();
        wind_up(wishes, shared, door);
    });
    door.leave_to_supervisor();
    ready();
    return front.wait(signals);
}

Ending join_world(const std::string& name, const std::function<int()>& program)
{
    require_filter();
    std::optional<Link> world = connect_to(name);
    if (!world)
        throw std::runtime_error(fmt::format("there is no world '{}'", name));
    world->send(Word::Join);
    auto answer = world->receive();
    const auto handed = static_cast<Handed>(answer ? answer->number : 0);
    if (answer && answer->word == Word::Handed)
        answer = world->receive();
    if (!answer || answer->word != Word::Ready)
        throw std::runtime_error(answer ? answer->text : "the world has ended");
    const int namespaces = answer->number;

    const Signals signals = heard_by_front();
    const Foreground foreground;
    const Mode mode = namespaces != 0 ? Mode::Namespaces : Mode::Injection;
    auto [here, there] = Link::pair();
    const pid_t worker = fork();
    if (worker < 0)
        fail("cannot start a process");
    if (worker == 0) {
        here.close();
        work_until_end(there, [&](const Link& link) {
            if (namespaces != 0)
                enter_namespaces(answer->passed, namespaces);
            link.send(Word::Ready);
            Guest(*world, link).run(group_in(mode, foreground), handed, [&] {
                signals.restore();
                return program();
            });
        });
    }
    there.close();
    world.reset();
    return Front(worker, std::move(here), group_in(mode, foreground), foreground).wait(signals);
}

bool stop_world(const std::string& name)
{
    const std::optional<Link> world = connect_to(name);
    if (!world)
        return false;
    world->send(Word::Stop);
    while (world->receive())
        continue;
    return true;
}

std::optional<std::string> describe_world(const std::string& name)
{
    const std::optional<Link> world = connect_to(name);
    if (!world)
        return std::nullopt;
    world->send(Word::Describe);
    const auto answer = world->receive();
    return answer ? std::optional(answer->text) : std::nullopt;
}

} // namespace emulator
