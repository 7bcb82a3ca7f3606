// The emulator's program, run as a user runs it.
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <grp.h>
#include <poll.h>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Words = std::vector<std::string>;

enum class User
{
    Self,
    Ordinary
};

struct Ended
{
    int status = -1; // exit status, if it exited
    int signal = 0;  // the signal that ended it, if one did
    std::string out;
    std::string err;
};

std::string content_of(int file)
{
    std::string content;
    std::array<char, 4096> piece {};
    lseek(file, 0, SEEK_SET);
    for (ssize_t length = 0; (length = read(file, piece.data(), piece.size())) > 0;)
        content.append(piece.data(), static_cast<std::size_t>(length));
    return content;
}

// A process that has been started, with its output in memory.
class Process
{
public:
    explicit Process(const Words& words, User user = User::Self)
        : out_(memfd_create("out", MFD_CLOEXEC)), err_(memfd_create("err", MFD_CLOEXEC))
    {
        std::vector<char*> arguments;
        for (const std::string& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        pid_ = fork();
        if (pid_ != 0)
            return;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), 0);
        dup2(out_, 1);
        dup2(err_, 2);
        if (user == User::Ordinary && (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0))
            _exit(99);
        execv(arguments[0], arguments.data());
        _exit(98);
    }
    ~Process()
    {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        close(out_);
        close(err_);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t pid() const { return pid_; }
    std::string out() const { return content_of(out_); }

    // Waits until the output holds this many lines.
    void wait_for_lines(std::ptrdiff_t lines) const
    {
        for (int i = 0; i < 1000; ++i) {
            const std::string text = out();
            if (std::count(text.begin(), text.end(), '\n') >= lines)
                return;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        FAIL() << "no " << lines << " lines in: " << out();
    }

    Ended wait()
    {
        int status = 0;
        while (waitpid(pid_, &status, 0) < 0 && errno == EINTR)
            continue;
        pid_ = 0;
        Ended ended {.out = content_of(out_), .err = content_of(err_)};
        if (WIFEXITED(status))
            ended.status = WEXITSTATUS(status);
        else
            ended.signal = WTERMSIG(status);
        return ended;
    }

private:
    int out_;
    int err_;
    pid_t pid_ = 0;
};

Words in_world(const Words& program)
{
    Words words {EMULATOR, "run", "--"};
    words.insert(words.end(), program.begin(), program.end());
    return words;
}

Ended run(const Words& program, User user = User::Self)
{
    return Process(in_world(program), user).wait();
}

Ended shell(const std::string& script)
{
    return run({"/bin/sh", "-c", script});
}

bool alive(pid_t pid)
{
    // A zombie has ended, whoever is to reap it.
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string number;
    std::string name;
    std::string state;
    return stat >> number >> name >> state && state != "Z";
}

void expect_gone(pid_t pid)
{
    for (int i = 0; i < 500 && alive(pid); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_FALSE(alive(pid)) << pid;
}

// Without and with the run-time linker, as the user who runs the tests and as an ordinary one.
struct Client
{
    std::string name;
    std::string path;
    User user;
};

void PrintTo(const Client& client, std::ostream* out)
{
    *out << client.name;
}

class Clients : public testing::TestWithParam<Client>
{
protected:
    void SetUp() override
    {
        if (GetParam().user == User::Self)
            return;
        if (geteuid() != 0)
            GTEST_SKIP() << "only root can become another user";
        if (Process({"/bin/sh", "-c", "test -x '" EMULATOR "'"}, User::Ordinary).wait().status != 0)
            GTEST_SKIP() << "the build tree is out of other users' reach";
    }

    Ended client(const Words& verb) const
    {
        Words words {GetParam().path};
        words.insert(words.end(), verb.begin(), verb.end());
        return run(words, GetParam().user);
    }
};

TEST_P(Clients, ReadASettingOnBothDevices)
{
    for (const char* verb : {"get", "get-upgrade"}) {
        const Ended ended = client({verb});
        EXPECT_EQ(ended.status, 0) << ended.err;
        EXPECT_EQ(ended.out, "4\n");
    }
}

TEST_P(Clients, SeeNoDeviceUnderAnotherName)
{
    EXPECT_EQ(client({"get-relative"}).out, "get ENOENT\n");
}

TEST_P(Clients, MayHaveTheirPathAtTheEndOfAPage)
{
    EXPECT_EQ(client({"path-at-the-end-of-a-page"}).out, "4\n");
}

TEST_P(Clients, GetEfaultForBadPointersAndEnobufsForTooLittleRoom)
{
    const Ended ended = client({"bad-pointers"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "envelope EFAULT\ninput EFAULT\noutput EFAULT\nroom ENOBUFS\n");
}

TEST_P(Clients, GetEnottyForNumbersThatTheModuleDoesNotKnow)
{
    for (const char* number : {"70", "105", "150", "255", "-1"})
        EXPECT_EQ(client({"ioctl", number}).out, "ioctl ENOTTY\n") << number;
}

TEST_P(Clients, MayDuplicateAndInheritTheDescriptor)
{
    EXPECT_EQ(client({"dup"}).out, "dup ok\n");
    EXPECT_EQ(client({"inherit"}).out, "inherited ok\n");
}

TEST_P(Clients, GetADescriptorThatIsClosedOnExecIfTheyAskForIt)
{
    EXPECT_EQ(client({"close-on-exec"}).out, "0 1\n");
}

TEST_P(Clients, MayOpenTheDeviceByOpenat2)
{
    EXPECT_EQ(client({"openat2"}).out, "openat2 ok\n");
}

TEST_P(Clients, MayCallFromManyThreads)
{
    EXPECT_EQ(client({"threads"}).out, "0 failures\n");
}

TEST_P(Clients, HaveTheirOtherFilesUntouched)
{
    EXPECT_EQ(client({"other-files"}).out, "untouched\n");
}

INSTANTIATE_TEST_SUITE_P(Kinds, Clients,
    testing::Values(Client {"Dynamic", DYNAMIC_CLIENT, User::Self}, Client {"Static", STATIC_CLIENT, User::Self},
        Client {"DynamicAsOrdinaryUser", DYNAMIC_CLIENT, User::Ordinary},
        Client {"StaticAsOrdinaryUser", STATIC_CLIENT, User::Ordinary}),
    [](const auto& client) { return client.param.name; });

TEST(World, IsSharedByAllProcessesInIt)
{
    const Ended ended = shell(
        DYNAMIC_CLIENT " set 9; (" STATIC_CLIENT " get | cat) ; " STATIC_CLIENT " set 10; exec " DYNAMIC_CLIENT " get");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "set ok\n9\nset ok\n10\n");
}

TEST(World, IsNewInEveryRun)
{
    EXPECT_EQ(run({DYNAMIC_CLIENT, "set", "9"}).status, 0);
    EXPECT_EQ(run({DYNAMIC_CLIENT, "get"}).out, "4\n");
}

TEST(World, ServesWhatTheProgramLeavesRunning)
{
    // The child outlives its parent, waits until the emulator has noticed, and uses the device.
    const Ended ended = shell("(sleep 0.3; " DYNAMIC_CLIENT " get) & exit 5");
    EXPECT_EQ(ended.status, 5);
    EXPECT_EQ(ended.out, "4\n");
}

TEST(World, GivesTheProgramItsStandardStreamsAndNoOtherDescriptors)
{
    const Words program {"/bin/sh", "-c", "echo /proc/self/fd/*; echo to-err >&2"};
    const Ended ended = run(program);
    EXPECT_EQ(ended.out, Process(program).wait().out);
    EXPECT_EQ(ended.err, "to-err\n");
}

TEST(World, LeavesSignalsAsTheyWere)
{
    const Ended ended = run({"/bin/grep", "-E", "^Sig(Blk|Ign)", "/proc/self/status"});
    EXPECT_EQ(ended.out, Process({"/bin/grep", "-E", "^Sig(Blk|Ign)", "/proc/self/status"}).wait().out);
}

TEST(ExitStatus, IsTheProgramsOwn)
{
    for (const int status : {0, 1, 42, 125, 255})
        EXPECT_EQ(shell("exit " + std::to_string(status)).status, status);
}

TEST(ExitStatus, IsTheSignalThatEndedTheProgram)
{
    for (const int signal : {SIGTERM, SIGKILL, SIGSEGV, SIGABRT, SIGUSR1}) {
        const Ended ended = shell("kill -" + std::to_string(signal) + " $$");
        EXPECT_EQ(ended.signal, signal);
    }
}

TEST(ExitStatus, Is127WhenTheProgramIsNotFound)
{
    const Ended ended = run({"/no/such/program"});
    EXPECT_EQ(ended.status, 127);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot run '/no/such/program': No such file or directory\n");
}

TEST(ExitStatus, Is126WhenTheProgramCannotBeInvoked)
{
    const Ended ended = run({"/dev"});
    EXPECT_EQ(ended.status, 126);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot run '/dev': Permission denied\n");
}

TEST(ExitStatus, Is125WhenTheEmulatorFails)
{
    for (const Words& wrong : std::vector<Words> {{EMULATOR}, {EMULATOR, "fly"}, {EMULATOR, "run"},
             {EMULATOR, "run", "--"}, {EMULATOR, "run", "--wings", "--", "/bin/true"},
             {EMULATOR, "run", "--trace", "/no/such/folder/file", "--", "/bin/true"}}) {
        const Ended ended = Process(wrong).wait();
        EXPECT_EQ(ended.status, 125) << testing::PrintToString(wrong);
        EXPECT_THAT(ended.err, StartsWith("lumozeph-emulator: "));
    }
}

TEST(ExitStatus, Is125InsideAnotherWorld)
{
    const Ended ended = run({EMULATOR, "run", "--", "/bin/true"});
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot run inside another emulated world\n");
}

TEST(Signals, ArePassedOnToTheProgram)
{
    Process process(
        in_world({"/bin/sh", "-c", "trap 'echo heard; exit 7' TERM; echo ready; while :; do sleep 0.05; done"}));
    process.wait_for_lines(1);
    kill(process.pid(), SIGTERM);
    const Ended ended = process.wait();
    EXPECT_EQ(ended.status, 7);
    EXPECT_EQ(ended.out, "ready\nheard\n");
}

TEST(Signals, ThatEndTheProgramEndWhatItHasStarted)
{
    Process process(in_world({"/bin/sh", "-c", "sleep 1000 & echo $!; setsid sleep 1000 & echo $!; wait"}));
    process.wait_for_lines(2);
    kill(process.pid(), SIGTERM);
    const Ended ended = process.wait();
    EXPECT_EQ(ended.signal, SIGTERM);
    std::istringstream pids(ended.out);
    for (pid_t pid = 0; pids >> pid;)
        expect_gone(pid);
}

TEST(Signals, AfterTheProgramHasEndedEndWhatItLeft)
{
    Process process(in_world({"/bin/sh", "-c", "sleep 1000 & echo $!; exit 3"}));
    process.wait_for_lines(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    kill(process.pid(), SIGTERM);
    const Ended ended = process.wait();
    EXPECT_EQ(ended.status, 3);
    expect_gone(std::stoi(ended.out));
}

TEST(Signals, ThatKillTheEmulatorKillTheProgram)
{
    Process process(in_world({"/bin/sh", "-c", "echo $$; exec sleep 1000"}));
    process.wait_for_lines(1);
    const pid_t program = std::stoi(process.out());
    kill(process.pid(), SIGKILL);
    EXPECT_EQ(process.wait().signal, SIGKILL);
    expect_gone(program);
}

TEST(Trace, IsALineOfJsonForEachCommand)
{
    const Ended ended = Process({EMULATOR, "run", "--trace", "-", "--", DYNAMIC_CLIENT, "set", "9"}).wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(
        ended.err, testing::MatchesRegex(
                       "\\{\"pid\":[0-9]+,\"command\":10,\"inLen\":4,\"room\":0,\"errno\":0,\"replyLen\":0\\}\n"));
}

TEST(Trace, TellsOfCommandsThatFail)
{
    const Ended ended = Process({EMULATOR, "run", "--trace", "-", "--", DYNAMIC_CLIENT, "ioctl", "70"}).wait();
    EXPECT_THAT(ended.err, HasSubstr("\"command\":70,\"inLen\":0,\"room\":4,\"errno\":25,\"replyLen\":0}"));
}

TEST(Options, LenientHasTheModuleAcceptWhatItRefusesOtherwise)
{
    EXPECT_EQ(run({DYNAMIC_CLIENT, "endpoint-of-no-bridge"}).out, "endpoint ENOENT\n");
    EXPECT_EQ(Process({EMULATOR, "run", "--lenient", "--", DYNAMIC_CLIENT, "endpoint-of-no-bridge"}).wait().out,
        "endpoint ok\n");
}

TEST(Options, TheClockIsRealOrManual)
{
    EXPECT_EQ(Process({EMULATOR, "run", "--clock", "manual", "--", DYNAMIC_CLIENT, "get"}).wait().out, "4\n");
    const Ended ended = Process({EMULATOR, "run", "--clock", "broken", "--", DYNAMIC_CLIENT, "get"}).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.err, HasSubstr("broken"));
}

TEST(States, AreLoadedAndSaved)
{
    std::string first = testing::TempDir() + "state-XXXXXX";
    std::string second = testing::TempDir() + "state-XXXXXX";
    close(mkstemp(first.data()));
    close(mkstemp(second.data()));
    const auto run_with = [](const Words& options, const Words& program) {
        Words words {EMULATOR, "run"};
        words.insert(words.end(), options.begin(), options.end());
        words.emplace_back("--");
        words.insert(words.end(), program.begin(), program.end());
        return Process(words).wait();
    };
    EXPECT_EQ(run_with({"--save", first}, {DYNAMIC_CLIENT, "set", "9"}).status, 0);
    EXPECT_EQ(run_with({"--load", first, "--save", second}, {DYNAMIC_CLIENT, "get"}).out, "9\n");
    EXPECT_EQ(run_with({"--load", second, "--in-process"}, {DYNAMIC_CLIENT, "get"}).out, "9\n");
    for (const char* in_process : {"--lenient", "--in-process"}) {
        std::ofstream(first) << "{\n  \"loglevel\": 1\n}\n";
        const Ended ended = run_with({"--load", first, in_process}, {DYNAMIC_CLIENT, "get"});
        EXPECT_EQ(ended.status, 125);
        EXPECT_THAT(ended.err, HasSubstr(first + ":2:3: expected one of logLevel"));
        EXPECT_EQ(ended.out, "");
    }
    EXPECT_EQ(run_with({"--load", "/no/such/file"}, {DYNAMIC_CLIENT, "get"}).status, 125);
    EXPECT_EQ(run_with({"--save", "/no/such/file"}, {DYNAMIC_CLIENT, "get"}).status, 125);
    unlink(first.c_str());
    unlink(second.c_str());
}

TEST(Options, HelpAndVersionExitWith0)
{
    const Ended help = Process({EMULATOR, "--help"}).wait();
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, HasSubstr("run"));
    EXPECT_EQ(Process({EMULATOR, "run", "--help"}).wait().status, 0);
    const Ended version = Process({EMULATOR, "--version"}).wait();
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "lumozeph-emulator " LUMOZEPH_VERSION "\n");
}

TEST(Options, CheckSaysWhetherTheMachineWillDo)
{
    const Ended ended = Process({EMULATOR, "check"}).wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "this machine can run the emulator\n");
}

} // namespace
