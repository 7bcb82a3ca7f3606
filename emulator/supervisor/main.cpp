// lumozeph-emulator: runs programs in a world in which the module exists.
#include "emulator/door/launch.h"
#include "emulator/faults/faults.h"
#include "emulator/model/module.h"
#include "emulator/state/replaced_file.h"
#include "emulator/state/state_file.h"
#include "emulator/supervisor/check.h"
#include "emulator/supervisor/control.h"
#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/options.h"
#include "emulator/supervisor/output.h"
#include "emulator/supervisor/readiness.h"
#include "emulator/supervisor/recording_command.h"
#include "emulator/supervisor/world.h"
#include "emulator/supervisor/world_command.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fmt/core.h>
#include <iostream>
#include <optional>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// As env(1) and timeout(1) have them.
constexpr int cannot_be_invoked = 126;
constexpr int not_found = 127;
using emulator::emulator_failed;

// Where standard streams are closed, other files must not be taken for them. They are closed for the program again.
void fill_standard_streams()
{
    int opened = 0;
    while ((opened = open("/dev/null", O_RDWR | O_CLOEXEC)) >= 0 && opened <= STDERR_FILENO)
        continue;
    if (opened >= 0)
        close(opened);
}

int execute(char** program)
{
    execvp(program[0], program);
    const int error = errno;
    fmt::print(stderr, "lumozeph-emulator: cannot run '{}': {}\n", program[0], std::strerror(error));
    return error == ENOENT ? not_found : cannot_be_invoked;
}

// Ends as the program ended.
int end_like(const emulator::Ending& ending)
{
    if (ending.signal == 0)
        return ending.status;
    // The program has dumped its core, if any.
    const rlimit no_core {0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
    std::signal(ending.signal, SIG_DFL);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, ending.signal);
    sigprocmask(SIG_UNBLOCK, &only, nullptr);
    std::raise(ending.signal);
    return 128 + ending.signal;
}

// None where nothing is to be written.
emulator::Descriptor open_to_write(const std::string& path, int flags = 0)
{
    if (path.empty())
        return {};
    emulator::Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | flags, 0666));
    if (!file)
        emulator::fail(fmt::format("cannot write '{}'", path));
    return file;
}

emulator::Descriptor open_trace(const std::string& path)
{
    return path == "-" ? emulator::Descriptor(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) : open_to_write(path, O_APPEND);
}

// What 'run' and 'serve' are asked for.
struct Asked
{
    std::optional<std::string> world;
    std::optional<emulator::Mode> mode;
    std::string trace;
    std::string record;
    emulator::TraceFormat format = emulator::TraceFormat::Text;
    bool summary = false;
    std::size_t journal = 10000;
    bool opens = false;
    bool linger = false;
    double grace = 2;
    std::optional<double> timeout;
    bool lenient = false;
    emulator::Clock clock = emulator::Clock::Real;
    std::string load;
    std::string save;
    std::vector<std::string> faults;
    std::uint64_t seed = 0;
};

std::chrono::milliseconds milliseconds(double seconds)
{
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

bool are_one_file(int left, int right)
{
    struct stat one
    {};
    struct stat other
    {};
    return left >= 0 && right >= 0 && fstat(left, &one) == 0 && fstat(right, &other) == 0 && S_ISREG(one.st_mode) &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// What a world writes.
struct Outputs
{
    // What is there of the state stays until there is something else to write: it may be what the world begins with.
    explicit Outputs(const Asked& asked) : trace(open_trace(asked.trace)), recording(open_to_write(asked.record))
    {
        if (!asked.save.empty())
            state.emplace(asked.save);
        const int kept = state ? state->found() : -1;
        if (are_one_file(trace.number(), recording.number()) || are_one_file(trace.number(), kept) ||
            are_one_file(recording.number(), kept))
            throw std::runtime_error("--trace, --record and --save need files of their own");
    }

    emulator::Descriptor trace;
    emulator::Descriptor recording;
    std::optional<emulator::ReplacedFile> state;
};

emulator::Settings settings_for(const Asked& asked)
{
    using emulator::Strictness;
    return {asked.lenient ? Strictness::Lenient : Strictness::Strict, asked.clock};
}

emulator::Faults faults_for(const Asked& asked)
{
    emulator::Faults faults(asked.seed, asked.opens ? emulator::Opens::Seen : emulator::Opens::Unseen);
    for (const std::string& fault : asked.faults)
        faults.add(fault);
    return faults;
}

// What the world's module begins with.
void load(emulator::Module& module, const Asked& asked)
{
    if (!asked.load.empty())
        emulator::load_state(module, asked.load);
}

emulator::Wishes wishes_for(const Asked& asked, const Outputs& outputs)
{
    using emulator::Traced;
    emulator::Wishes wishes;
    wishes.name = asked.world;
    wishes.mode = asked.mode;
    wishes.telling = {.trace = outputs.trace.number(),
        .format = asked.format,
        .recording = outputs.recording.number(),
        .traced = asked.opens ? Traced::CommandsAndOpens : Traced::Commands,
        // Who has no name is asked by nobody.
        .journal = asked.world ? std::optional(asked.journal) : std::nullopt,
        .summary = asked.summary};
    wishes.state = outputs.state ? &*outputs.state : nullptr;
    wishes.lifetime.leftovers = asked.linger ? emulator::Leftovers::WaitFor : emulator::Leftovers::End;
    wishes.lifetime.grace = milliseconds(asked.grace);
    if (asked.timeout)
        wishes.lifetime.timeout = milliseconds(*asked.timeout);
    return wishes;
}

int run(const Asked& asked, char** program)
{
    emulator::Faults faults = faults_for(asked);
    emulator::Module module(settings_for(asked));
    load(module, asked);
    const Outputs outputs(asked);
    const std::string name = asked.world.value_or(fmt::format("run-{}", getpid()));
    setenv("LUMOZEPH_WORLD", name.c_str(), 1);
    return end_like(
        emulator::run_in_world(module, faults, wishes_for(asked, outputs), [program] { return execute(program); }));
}

int serve(const Asked& asked)
{
    emulator::Faults faults = faults_for(asked);
    emulator::Module module(settings_for(asked));
    load(module, asked);
    const Outputs outputs(asked);
    return end_like(emulator::serve_world(module, faults, wishes_for(asked, outputs), emulator::notify_readiness));
}

int join(const std::string& world, char** program)
{
    setenv("LUMOZEPH_WORLD", world.c_str(), 1);
    return end_like(emulator::join_world(world, [program] { return execute(program); }));
}

int list()
{
    for (const std::string& name : emulator::names_of_worlds())
        if (const auto description = emulator::describe_world(name))
            emulator::print(fmt::format("{} {}\n", name, *description));
    return 0;
}

int stop(const std::string& world)
{
    if (emulator::stop_world(world))
        return 0;
    fmt::print(stderr, "lumozeph-emulator: there is no world '{}'\n", world);
    return emulator_failed;
}

void add_options_of_world(CLI::App& command, Asked& asked)
{
    choose(command.add_option("--mode", asked.mode, "How the device comes into the world: namespaces or injection"),
        "MODE", emulator::modes);
    emulator::take_seconds(
        command.add_option("--grace", asked.grace, "Seconds between SIGTERM and SIGKILL for what must end (2)"));
    emulator::take_seconds(
        command.add_option("--timeout", asked.timeout, "End all after so many seconds; exit with 124"));
    command.add_option("--save", asked.save, "Write the state when the world ends")->type_name("FILE");
}

void add_options_of_trace(CLI::App& command, Asked& asked)
{
    command.add_option("--trace", asked.trace, "Write a line for each command answered (-: standard error)")
        ->type_name("FILE");
    choose(command.add_option("--trace-format", asked.format, "How: text (for people), or json (an object a line)"),
        "FORMAT", emulator::formats);
    command.add_option("--record", asked.record, "Write a recording, for replay and compare")->type_name("FILE");
    command.add_flag("--summary", asked.summary, "Print, in the end, how many commands there were and what they took");
    emulator::take_number(
        command.add_option("--journal", asked.journal, "How many commands a world with a name remembers (10000)"));
    command.add_flag("--opens", asked.opens,
        "See the opens of the device, for the trace and for faults; slows all opens in the world");
}

void add_options_of_module(CLI::App& command, Asked& asked)
{
    command.add_option("--load", asked.load, "Begin with the state that a file describes")->type_name("FILE");
    command.add_flag("--lenient", asked.lenient, "Accept what the module refuses as making no sense");
    choose(command.add_option("--clock", asked.clock, "How the module's time passes: real (by itself) or manual"),
        "CLOCK", emulator::clocks);
    command
        .add_option(
            "--fault", asked.faults, "Have commands go wrong, such as GetLifs#2=ENODEV; may be given several times")
        ->type_name("SPEC")
        ->allow_extra_args(false);
    emulator::take_number(command.add_option("--seed", asked.seed, "Of what is at random in faults (0)"));
}

// What does not ask for anything that can be done; --help and --version come this way, too.
int explain(const CLI::App& app, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0) {
        app.exit(error);
        if (std::cout.flush())
            return 0;
        fmt::print(stderr, "lumozeph-emulator: cannot write to the standard output\n");
        return emulator_failed;
    }
    const std::vector<std::string> unknown = app.remaining(true);
    const bool lacks_command = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
    const std::string what = lacks_command && !unknown.empty() ? fmt::format("there is no command '{}'", unknown[0])
                                                               : std::string(error.what());
    fmt::print(stderr, "lumozeph-emulator: {}\nTry 'lumozeph-emulator --help'.\n", what);
    return emulator_failed;
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what is thrown up to here ends the program, as it should
int main(int argc, char** argv)
{
    fill_standard_streams();

    // What follows the first "--" is the program's, to the letter.
    int own = 1;
    while (own < argc && std::strcmp(argv[own], "--") != 0)
        ++own;
    char** const program = own < argc ? argv + own + 1 : argv + argc;

    CLI::App app("Runs programs in a world in which the lumozeph module exists.", "lumozeph-emulator");
    app.set_version_flag("--version", std::string("lumozeph-emulator ") + LUMOZEPH_VERSION);
    app.require_subcommand(1);
    app.footer("The exit status of 'run' is that of PROGRAM; 125 if the emulator failed, 126 if PROGRAM cannot be\n"
               "invoked, 127 if it is not found. If a signal ends PROGRAM, the same signal ends the emulator.");

    Asked asked;
    CLI::App* const run_command = app.add_subcommand("run", "Run a program: run [OPTIONS] -- PROGRAM [ARGS...]");
    CLI::App* const serve_command = app.add_subcommand("serve", "Hold a world without a program: serve --world NAME");
    CLI::App* const join_command =
        app.add_subcommand("join", "Run a program in a world: join NAME -- PROGRAM [ARGS...]");
    CLI::App* const list_command = app.add_subcommand("list", "List the worlds that have names");
    CLI::App* const stop_command = app.add_subcommand("stop", "End a world");
    const emulator::WorldCommand world_command(app);
    const emulator::RecordingCommand recording_command(app);
    CLI::App* const check_command = app.add_subcommand("check", "Say whether this machine can run the emulator");

    add_options_of_world(*run_command, asked);
    add_options_of_trace(*run_command, asked);
    run_command->add_option("--world", asked.world, "Give the world a name, by which others can join it")
        ->type_name("NAME");
    run_command->add_flag("--linger", asked.linger, "Wait for what PROGRAM leaves running, instead of ending it");
    bool in_process = false;
    CLI::Option* const in_process_flag = run_command->add_flag(
        "--in-process", in_process, "Preload the module into the program instead of making a world");
    for (CLI::Option* const option : run_command->get_options())
        if (option != in_process_flag)
            in_process_flag->excludes(option);
    add_options_of_module(*run_command, asked);
    add_options_of_world(*serve_command, asked);
    add_options_of_trace(*serve_command, asked);
    add_options_of_module(*serve_command, asked);
    serve_command->add_option("--world", asked.world, "The world's name")->type_name("NAME")->required();
    join_command->add_option("NAME", asked.world, "The world's name")->required();
    stop_command->add_option("NAME", asked.world, "The world's name")->required();

    try {
        app.parse(own, argv);
        if (check_command->parsed())
            return emulator::check();
        if (list_command->parsed())
            return list();
        if (stop_command->parsed())
            return stop(*asked.world);
        if (world_command.is_asked_for())
            return world_command.run();
        if (recording_command.is_asked_for())
            return recording_command.run(program, execute, end_like);
        if (serve_command->parsed())
            return serve(asked);
        if (*program == nullptr)
            throw CLI::RequiredError("-- PROGRAM");
        if (join_command->parsed())
            return join(*asked.world, program);
        return in_process ? emulator::run_in_process(
                                program, {settings_for(asked), asked.load, asked.faults, asked.seed}, execute)
                          : run(asked, program);
    } catch (const CLI::ParseError& error) {
        return explain(app, error);
    } catch (const std::exception& error) {
        fmt::print(stderr, "lumozeph-emulator: {}\n", error.what());
        return emulator_failed;
    }
}
