// lumozeph-emulator: runs programs in a world in which the module exists.
#include "emulator/door/launch.h"
#include "emulator/model/module.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"
#include "emulator/state/state_file.h"
#include "emulator/supervisor/world.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fmt/core.h>
#include <map>
#include <memory>
#include <string>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

// As env(1) and timeout(1) have them.
constexpr int emulator_failed = 125;
constexpr int cannot_be_invoked = 126;
constexpr int not_found = 127;

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

struct CloseFile
{
    void operator()(std::FILE* file) const
    {
        if (file != stderr)
            std::fclose(file);
    }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// What the world begins with, and where it is written when it ends.
struct States
{
    std::string load;
    std::string save;
};

int run(const std::string& trace_path, emulator::Settings settings, const States& states, char** program)
{
    File trace;
    if (trace_path == "-") {
        trace.reset(stderr);
    } else if (!trace_path.empty()) {
        trace.reset(std::fopen(trace_path.c_str(), "we"));
        if (!trace) {
            fmt::print(stderr, "lumozeph-emulator: cannot write '{}': {}\n", trace_path, std::strerror(errno));
            return emulator_failed;
        }
    }
    emulator::Module module(settings);
    if (!states.load.empty())
        emulator::load_state(module, states.load);
    const emulator::Ending ending = emulator::run_in_world(module, trace.get(), [program] { return execute(program); });
    if (!states.save.empty())
        emulator::save_state(module, states.save);
    return end_like(ending);
}

// Asks for a setting, from inside a world. Returns an exit status.
int ask_once()
{
    using namespace emulator::protocol;
    const int device = open(normal_path.data(), O_RDWR | O_CLOEXEC);
    std::array<std::byte, levels::level.width> level {};
    std::array<std::byte, envelope::layout.size> bytes {};
    const Record sent(bytes);
    sent[envelope::out_len] = level.size();
    sent[envelope::out_ptr] = reinterpret_cast<std::uintptr_t>(level.data());
    return device >= 0 && ioctl(device, number_of("GetLogLevel"), bytes.data()) >= 0 ? 0 : 1;
}

int check()
{
    emulator::Module module;
    const emulator::Ending ending = emulator::run_in_world(module, nullptr, ask_once);
    if (ending.signal == 0 && ending.status == 0) {
        fmt::print("this machine can run the emulator\n");
        return 0;
    }
    if (ending.status != emulator_failed)
        fmt::print(stderr, "lumozeph-emulator: the supervisor may not read the memory of its children\n");
    return emulator_failed;
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what is thrown up to here ends the program, as it should
int main(int argc, char** argv)
{
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

    std::string trace;
    CLI::App* const run_command = app.add_subcommand("run", "Run a program: run [OPTIONS] -- PROGRAM [ARGS...]");
    CLI::Option* const trace_option =
        run_command->add_option("--trace", trace, "Write a line of JSON for each command answered (-: standard error)")
            ->type_name("FILE");
    bool in_process = false;
    CLI::Option* const in_process_flag =
        run_command
            ->add_flag("--in-process", in_process, "Preload the module into the program instead of making a world")
            ->excludes(trace_option);
    bool lenient = false;
    run_command->add_flag("--lenient", lenient, "Accept what the module refuses as making no sense");
    emulator::Settings settings;
    run_command->add_option("--clock", settings.clock, "How the module's time passes: real (by itself) or manual")
        ->type_name("CLOCK")
        ->transform(CLI::Transformer(std::map<std::string, emulator::Clock> {
            {"real", emulator::Clock::Real}, {"manual", emulator::Clock::Manual}}));
    States states;
    run_command->add_option("--load", states.load, "Begin with the state that a file describes")->type_name("FILE");
    CLI::Option* const save_option =
        run_command->add_option("--save", states.save, "Write the state when the world ends")->type_name("FILE");
    in_process_flag->excludes(save_option);
    CLI::App* const check_command = app.add_subcommand("check", "Say whether this machine can run the emulator");

    try {
        app.parse(own, argv);
        if (check_command->parsed())
            return check();
        if (*program == nullptr)
            throw CLI::RequiredError("-- PROGRAM");
        settings.strictness = lenient ? emulator::Strictness::Lenient : emulator::Strictness::Strict;
        return in_process ? emulator::run_in_process(program, settings, states.load, execute)
                          : run(trace, settings, states, program);
    } catch (const CLI::ParseError& error) {
        // --help and --version come this way, too.
        if (error.get_exit_code() == 0)
            return app.exit(error);
        fmt::print(stderr, "lumozeph-emulator: {}\nTry 'lumozeph-emulator --help'.\n", error.what());
        return emulator_failed;
    } catch (const std::exception& error) {
        fmt::print(stderr, "lumozeph-emulator: {}\n", error.what());
        return emulator_failed;
    }
}
