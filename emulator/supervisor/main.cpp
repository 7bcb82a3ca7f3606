// lumozeph-emulator: runs programs in a world in which the module exists.
#include "emulator/door/launch.h"
#include "emulator/model/module.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"
#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/world.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fmt/core.h>
#include <map>
#include <optional>
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

// The better one first.
constexpr std::array<std::pair<const char*, emulator::Mode>, 2> modes {
    {{"namespaces", emulator::Mode::Namespaces}, {"injection", emulator::Mode::Injection}}};

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

emulator::Descriptor open_trace(const std::string& path)
{
    if (path.empty())
        return {};
    emulator::Descriptor file(path == "-"
                                  ? fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)
                                  : open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666));
    if (!file)
        emulator::fail(fmt::format("cannot write '{}'", path));
    return file;
}

// What 'run' is asked for.
struct Asked
{
    std::optional<emulator::Mode> mode;
    std::string trace;
    bool linger = false;
    double grace = 2;
    std::optional<double> timeout;
};

std::chrono::milliseconds milliseconds(double seconds)
{
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

int run(const Asked& asked, char** program)
{
    const emulator::Descriptor trace = open_trace(asked.trace);
    emulator::Wishes wishes {asked.mode, trace.number(), {}};
    wishes.lifetime.leftovers = asked.linger ? emulator::Leftovers::WaitFor : emulator::Leftovers::End;
    wishes.lifetime.grace = milliseconds(asked.grace);
    if (asked.timeout)
        wishes.lifetime.timeout = milliseconds(*asked.timeout);
    setenv("LUMOZEPH_WORLD", fmt::format("run-{}", getpid()).c_str(), 1);
    emulator::Module module;
    return end_like(emulator::run_in_world(module, wishes, [program] { return execute(program); }));
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

// Why no world of this kind can be made here; empty if one can.
std::string refusal(emulator::Mode mode)
{
    try {
        emulator::Module module;
        const emulator::Ending ending = emulator::run_in_world(module, {mode, -1, {}}, ask_once);
        if (ending.signal == 0 && ending.status == 0)
            return {};
        return "the supervisor may not read the memory of its children";
    } catch (const std::exception& error) {
        return error.what();
    }
}

int check()
{
    const char* best = nullptr;
    for (const auto& [name, mode] : modes) {
        const std::string why = refusal(mode);
        fmt::print("{}: {}\n", name, why.empty() ? "works" : why);
        if (why.empty() && best == nullptr)
            best = name;
    }
    if (best == nullptr) {
        fmt::print(stderr, "lumozeph-emulator: this machine cannot run the emulator\n");
        return emulator_failed;
    }
    fmt::print("this machine can run the emulator; it uses {}\n", best);
    return 0;
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

    const CLI::Range in_seconds(0.0, 1e6);
    Asked asked;
    CLI::App* const run_command = app.add_subcommand("run", "Run a program: run [OPTIONS] -- PROGRAM [ARGS...]");
    run_command->add_option("--mode", asked.mode, "How the device comes into the world: namespaces or injection")
        ->type_name("MODE")
        ->transform(CLI::Transformer(std::map<std::string, emulator::Mode>(modes.begin(), modes.end())));
    run_command
        ->add_option("--trace", asked.trace, "Write a line of JSON for each command answered (-: standard error)")
        ->type_name("FILE");
    run_command->add_flag("--linger", asked.linger, "Wait for what PROGRAM leaves running, instead of ending it");
    run_command->add_option("--grace", asked.grace, "Seconds between SIGTERM and SIGKILL for what must end (2)")
        ->type_name("SECONDS")
        ->check(in_seconds);
    run_command
        ->add_option("--timeout", asked.timeout, "End PROGRAM and all others after so many seconds; exit with 124")
        ->type_name("SECONDS")
        ->check(in_seconds);
    bool in_process = false;
    CLI::Option* const in_process_flag = run_command->add_flag(
        "--in-process", in_process, "Preload the module into the program instead of making a world");
    for (CLI::Option* const option : run_command->get_options())
        if (option != in_process_flag)
            in_process_flag->excludes(option);
    CLI::App* const check_command = app.add_subcommand("check", "Say whether this machine can run the emulator");

    try {
        app.parse(own, argv);
        if (check_command->parsed())
            return check();
        if (*program == nullptr)
            throw CLI::RequiredError("-- PROGRAM");
        return in_process ? emulator::run_in_process(program, execute) : run(asked, program);
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
