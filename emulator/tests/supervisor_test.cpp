// The emulator's program, run as a user runs it.
#include "emulator/tests/in_mode.h"

#include <poll.h>
#include <pty.h>
#include <sys/stat.h>

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

namespace {

// Without and with the run-time linker, as the user who runs the tests and as an ordinary one.
struct Client
{
    std::string mode;
    std::string name;
    std::string path;
    User user;
};

void PrintTo(const Client& client, std::ostream* out)
{
    *out << client.mode << client.name;
}

class Clients : public testing::TestWithParam<Client>
{
protected:
    void SetUp() override
    {
        if (GetParam().user == User::Ordinary && geteuid() != 0)
            GTEST_SKIP() << "only root can become another user";
        if (GetParam().user == User::Ordinary &&
            Process({"/bin/sh", "-c", "test -x '" EMULATOR "'"}, User::Ordinary).wait().status != 0)
            GTEST_SKIP() << "the build tree is out of other users' reach";
        if (const std::string why = refusal_of(GetParam().mode, GetParam().user); !why.empty())
            GTEST_SKIP() << why;
    }

    Ended client(const Words& verb) const
    {
        Words words {GetParam().path};
        words.insert(words.end(), verb.begin(), verb.end());
        return Process(in_world({"--mode", GetParam().mode}, words), GetParam().user).wait();
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

TEST_P(Clients, MayGiveNumbersWhoseUpperHalvesTheKernelIgnores)
{
    EXPECT_EQ(client({"ioctl", "0x700000009"}).out, "ioctl ok\n");
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

std::vector<Client> clients()
{
    std::vector<Client> all;
    for (const char* mode : {"namespaces", "injection"})
        for (const auto& [user, suffix] : {std::pair(User::Self, ""), std::pair(User::Ordinary, "AsOrdinaryUser")}) {
            all.push_back({mode, std::string("Dynamic") + suffix, DYNAMIC_CLIENT, user});
            all.push_back({mode, std::string("Static") + suffix, STATIC_CLIENT, user});
        }
    return all;
}

INSTANTIATE_TEST_SUITE_P(Kinds, Clients, testing::ValuesIn(clients()),
    [](const auto& client) { return client.param.mode + client.param.name; });

class World : public InMode
{};
INSTANTIATE_TEST_SUITE_P(Modes, World, modes, [](const auto& mode) { return mode.param; });

TEST_P(World, IsSharedByAllProcessesInIt)
{
    const Ended ended = shell(
        DYNAMIC_CLIENT " set 9; (" STATIC_CLIENT " get | cat) ; " STATIC_CLIENT " set 10; exec " DYNAMIC_CLIENT " get");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "set ok\n9\nset ok\n10\n");
}

TEST_P(World, IsNewInEveryRun)
{
    EXPECT_EQ(run({DYNAMIC_CLIENT, "set", "9"}).status, 0);
    EXPECT_EQ(run({DYNAMIC_CLIENT, "get"}).out, "4\n");
}

TEST_P(World, EndsWithItsProgram)
{
    MarkedWorld world(in_world({"/bin/bash", "-c",
        "exec 4>&1 3< <(exec sh -c 'trap \"echo asked >&4; exit\" TERM; echo ready; while :; do sleep 0.01; done');"
        "setsid sleep 1000 & read -r line <&3; exit 5"}));
    const Ended ended = world.process().wait();
    EXPECT_EQ(ended.status, 5);
    EXPECT_EQ(ended.out, "asked\n");
    world.expect_gone();
}

TEST_P(World, KillsWhoDoesNotEndWhenAsked)
{
    const auto before = std::chrono::steady_clock::now();
    MarkedWorld world(
        in_world({"/bin/bash", "-c", "exec 3< <(trap '' TERM; echo ready; exec sleep 1000); read -r line <&3; exit 5"},
            {"--grace", "0.5"}));
    EXPECT_EQ(world.process().wait().status, 5);
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
    world.expect_gone();
}

TEST_P(World, WaitsForWhatTheProgramLeavesRunningIfAsked)
{
    // The child outlives its parent, waits until the emulator has noticed, and uses the device.
    const Ended ended =
        Process(in_world({"/bin/sh", "-c", "(sleep 0.3; " DYNAMIC_CLIENT " get) & exit 5"}, {"--linger"})).wait();
    EXPECT_EQ(ended.status, 5);
    EXPECT_EQ(ended.out, "4\n");
}

TEST_P(World, EndsWhenItsTimeIsOver)
{
    MarkedWorld world(in_world({"/bin/sh", "-c", "setsid sleep 1000 & sleep 1000"}, {"--timeout", "0.3"}));
    EXPECT_EQ(world.process().wait().status, 124);
    world.expect_gone();

    const Words leaving {"/bin/sh", "-c", "sleep 1000 & exit 5"};
    EXPECT_EQ(Process(in_world(leaving, {"--linger", "--timeout", "0.3"})).wait().status, 5);
}

TEST_P(World, TellsPrograms)
{
    EXPECT_THAT(shell("echo $LUMOZEPH_WORLD").out, MatchesRegex("run-[0-9]+\n"));
}

TEST_P(World, GivesTheProgramItsStandardStreamsAndNoOtherDescriptors)
{
    const Words program {"/bin/sh", "-c", "echo /proc/self/fd/*; echo to-err >&2"};
    const Ended ended = run(program);
    EXPECT_EQ(ended.out, Process(program).wait().out);
    EXPECT_EQ(ended.err, "to-err\n");
}

TEST_P(World, LeavesSignalsAsTheyWere)
{
    const Ended ended = run({"/bin/grep", "-E", "^Sig(Blk|Ign)", "/proc/self/status"});
    EXPECT_EQ(ended.out, Process({"/bin/grep", "-E", "^Sig(Blk|Ign)", "/proc/self/status"}).wait().out);
}

class NamespacesWorld : public testing::Test
{
protected:
    void SetUp() override
    {
        if (const std::string why = refusal_of("namespaces"); !why.empty())
            GTEST_SKIP() << why;
    }

    static Ended shell(const std::string& script)
    {
        return Process(in_world({"--mode", "namespaces"}, {"/bin/sh", "-c", script})).wait();
    }
};

constexpr const char* folder = "/pelt/devices/char/zephdriver";

TEST_F(NamespacesWorld, ShowsTheDeviceToWhoeverLooks)
{
    const Ended ended =
        shell(std::string("cd ") + folder +
              " && ls && test -c kola_lumo && test -r kola_lumo && test -w kola_lumo && test ! -L kola_lumo &&"
              " stat -c %F kola_lumo_ugrade && readlink -f ../zephdriver/kola_lumo");
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_EQ(
        ended.out, "kola_lumo\nkola_lumo_ugrade\ncharacter special file\n/pelt/devices/char/zephdriver/kola_lumo\n");
}

TEST_F(NamespacesWorld, OpensTheDeviceByAnySpelling)
{
    for (const char* path :
        {"//pelt/devices/char/zephdriver/kola_lumo", "/pelt/./devices/char/zephdriver/../zephdriver/kola_lumo",
            "kola_lumo", "/proc/self/root/pelt/devices/char/zephdriver/kola_lumo", "/proc/self/cwd/kola_lumo",
            "/dev/fd/3", "/proc/self/fd/3", "/tmp/../pelt/devices/char/zephdriver/kola_lumo_ugrade"}) {
        const Ended ended =
            shell(std::string("cd ") + folder + " && exec 3<>kola_lumo && exec " DYNAMIC_CLIENT " get-at " + path);
        EXPECT_EQ(ended.out, "4\n") << path;
    }
    EXPECT_EQ(shell("link=$(mktemp -u) && ln -s /pelt/devices/char/zephdriver/kola_lumo $link && " DYNAMIC_CLIENT
                    " get-at $link; rm $link")
                  .out,
        "4\n");
}

TEST_F(NamespacesWorld, LeavesTheNullDeviceAlone)
{
    const Ended ended =
        shell("chmod 600 /pelt/devices/char/zephdriver/kola_lumo; rm -f /pelt/devices/char/zephdriver/kola_lumo;"
              " echo text > /pelt/file");
    EXPECT_NE(ended.status, 0);
    struct stat null
    {};
    ASSERT_EQ(stat("/dev/null", &null), 0);
    EXPECT_EQ(null.st_mode & 07777, 0666U);
}

TEST_F(NamespacesWorld, ShowsAllOtherFilesAsTheyAre)
{
    // The root's own entries are mounts and copies of links: types, targets and what is in them are compared.
    const Words look {"/bin/sh", "-c",
        "umask 027; pwd; umask; for entry in /* /.[!.]*; do [ $entry = /pelt ] || [ $entry = /proc ] || stat -c '%N "
        "%F' $entry; done; "
        "ls -A /usr/bin /etc | cksum; cksum /etc/passwd"};
    const Ended inside = Process(in_world({"--mode", "namespaces"}, look)).wait();
    EXPECT_EQ(inside.status, 0);
    EXPECT_EQ(inside.out, Process(look).wait().out);
}

TEST_F(NamespacesWorld, OpensOtherFilesWithoutTheSupervisor)
{
    MarkedWorld world(in_world({"--mode", "namespaces"},
        {"/bin/sh", "-c", "echo ready; sleep 0.3; echo text >/dev/null && cat /dev/null && echo opened; sleep 1000"}));
    world.process().wait_for_lines(1);
    kill(world.supervisor(), SIGSTOP);
    world.process().wait_for_lines(2);
    EXPECT_EQ(world.process().out(), "ready\nopened\n");
}

// Gives whatever follows mounts of its own, which are copies of the world's.
Words apart()
{
    Words all {"unshare -Urm", "unshare -Urm --propagation unchanged", "bwrap --dev-bind / /",
        "bwrap --unshare-user --unshare-pid --dev-bind / / --proc /proc"};
    if (geteuid() == 0)
        all.emplace_back("unshare -m");
    return all;
}

TEST_F(NamespacesWorld, ServesProgramsThatHaveMountsOfTheirOwn)
{
    for (const std::string& start : apart()) {
        EXPECT_EQ(shell("exec " + start + " " DYNAMIC_CLIENT " create").out, "create ok\n") << start;
        EXPECT_EQ(
            shell("exec 3<>/pelt/devices/char/zephdriver/kola_lumo; exec " + start + " " DYNAMIC_CLIENT " create-on 3")
                .out,
            "create ok\n")
            << start;
    }
}

TEST_F(NamespacesWorld, ServesTheDeviceWhereOthersHaveMountedIt)
{
    const Ended ended =
        shell("place=$(mktemp) && unshare -Urm sh -c 'mount --bind "
              "/pelt/devices/char/zephdriver/kola_lumo $0 && exec " DYNAMIC_CLIENT " create $0' $place; "
              "rm $place");
    EXPECT_EQ(ended.out, "create ok\n") << ended.err;
}

TEST_F(NamespacesWorld, HasNoAnswerWhereItCannotTellTheDeviceFromAnother)
{
    const Ended null = shell("place=$(mktemp) && unshare -Urm sh -c 'mount --bind /dev/null $0 && exec " DYNAMIC_CLIENT
                             " create $0' $place; rm $place");
    EXPECT_EQ(null.out, "create EIO\n") << null.err;
    if (geteuid() == 0) {
        const Ended changed = shell("exec unshare -m sh -c 'mount -o remount,bind,rw,suid,exec,symfollow "
                                    "/pelt/devices/char/zephdriver/kola_lumo && exec " DYNAMIC_CLIENT " create'");
        EXPECT_EQ(changed.out, "create EIO\n") << changed.err;
    }
}

TEST_F(NamespacesWorld, HasNoAnswerForADescriptorOfAnotherWorld)
{
    MarkedWorld other(in_world({"--mode", "namespaces"}, {"/bin/sh", "-c", "echo ready; exec sleep 1000"}));
    other.process().wait_for_lines(1);
    const std::string inside = "/proc/" + std::to_string(only_child_of(other.supervisor())) + "/root";
    const Ended ended =
        Process({"/bin/bash", "-c", "exec 3<>\"$0\" && exec \"$@\"", inside + "/pelt/devices/char/zephdriver/kola_lumo",
                    EMULATOR, "run", "--mode", "namespaces", "--", DYNAMIC_CLIENT, "create-on", "3"})
            .wait();
    EXPECT_EQ(ended.out, "create EIO\n") << ended.err;
}

TEST_P(World, GivesOutADeviceAndNotAFile)
{
    const Ended ended = run({DYNAMIC_CLIENT, "is-device"});
    EXPECT_EQ(ended.out,
        "write-only ok\ndirectory ENOTDIR\nexclusive EEXIST\nnon-blocking ok\ncharacter device\nempty\n"
        "epoll EPERM\n");
}

TEST_P(World, ServesProgramsThatMayNotBeRead)
{
    const bool capable = geteuid() == 0 || GetParam() == "namespaces";
    EXPECT_EQ(run({DYNAMIC_CLIENT, "undumpable"}).out, capable ? "create ok\n" : "open EIO\n");
    if (geteuid() == 0) {
        EXPECT_EQ(run({DYNAMIC_CLIENT, "drop-user"}).out, "create ok\n");
    }
}

TEST_P(World, ServesOrdinaryUsersProgramsThatMayNotBeReadOrSaysThatItCannot)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    if (const std::string why = refusal_of(GetParam(), User::Ordinary); !why.empty())
        GTEST_SKIP() << why;
    const std::string undumpable = Process(in_world({DYNAMIC_CLIENT, "undumpable"}), User::Ordinary).wait().out;
    EXPECT_EQ(undumpable, GetParam() == "namespaces" ? "create ok\n" : "open EIO\n");

    const Folder folder_of_all(0755);
    const std::string unreadable = folder_of_all.path() / "client";
    std::filesystem::copy(STATIC_CLIENT, unreadable);
    std::filesystem::permissions(unreadable, std::filesystem::perms(0711));
    const std::string refused = Process(in_world({unreadable, "create"}), User::Ordinary).wait().out;
    EXPECT_EQ(refused, GetParam() == "namespaces" ? "create EIO\n" : "open EIO\n");
}

TEST_P(World, ServesWhoHasGivenUpTracingAndTheUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    Words words {"/usr/bin/setpriv", "--bounding-set", "-sys_ptrace", "--inh-caps", "-sys_ptrace"};
    const Words program = in_world({DYNAMIC_CLIENT, "drop-user"});
    words.insert(words.end(), program.begin(), program.end());
    const Ended ended = Process(words).wait();
    if (ended.err.starts_with("lumozeph-emulator: cannot make namespaces"))
        GTEST_SKIP() << "without these privileges a user namespace is needed: " << ended.err;
    EXPECT_EQ(ended.out, GetParam() == "namespaces" ? "create ok\n" : "open EIO\n");
}

TEST_P(World, HasNoAnswerForProgramsOf32Bits)
{
    const Ended ended = run({DYNAMIC_CLIENT, "32-bits"});
    if (ended.signal == SIGSEGV || ended.out == "untouched ENOSYS\n" || ended.status == 2)
        GTEST_SKIP() << "the machine does not run them";
    EXPECT_EQ(ended.out, "untouched EIO\n");
}

TEST_P(World, IsNotHeldUpByAClientWhoseMemoryNeverComes)
{
    Process process(in_world({"/bin/bash", "-c",
        "exec 3< <(exec " DYNAMIC_CLIENT " hang); read -r line <&3; echo \"$line\"; sleep 0.2;"
        "for i in 1 2 3; do " DYNAMIC_CLIENT " get; done; kill $!; wait; exit 0"}));
    process.wait_for_lines(1);
    if (process.out().starts_with("userfaultfd"))
        GTEST_SKIP() << process.out();
    process.wait_for_lines(4);
    EXPECT_EQ(process.out(), "hanging\n4\n4\n4\n");
    EXPECT_EQ(process.wait().status, 0);
}

TEST_P(World, ServesTheHandlersOfItsClientsFaults)
{
    const Ended ended = run({DYNAMIC_CLIENT, "handled-fault"});
    if (ended.out.starts_with("userfaultfd"))
        GTEST_SKIP() << ended.out;
    EXPECT_EQ(ended.out, "handler ok\nioctl ok\n");
}

TEST_P(World, RunsWithFewDescriptorsOrSaysThatItNeedsMore)
{
    Words words {"/bin/sh", "-c", "ulimit -n $0; exec \"$@\"", ""};
    const Words program = in_world({DYNAMIC_CLIENT, "get"});
    words.insert(words.end(), program.begin(), program.end());
    bool served = false;
    for (int limit = 4; limit < 40; ++limit) {
        words[3] = std::to_string(limit);
        const Ended ended = Process(words).wait();
        if (ended.status == 0) {
            EXPECT_EQ(ended.out, "4\n") << limit;
        } else if (ended.err.starts_with("lumozeph-emulator: ")) {
            EXPECT_THAT(ended.err, HasSubstr("more descriptors are needed: see ulimit -n")) << limit;
        }
        served = ended.status == 0;
    }
    EXPECT_TRUE(served);
}

// The same for limits of other kinds, and for root and ordinary users.
TEST_P(World, RunsUnderLimitsOrSaysWhyNot)
{
    Words limits {"-l 0", "-c 0", "-t 60"};
    // Sanitizers need more themselves.
    if (!INSTRUMENTED)
        limits.insert(limits.end(), {"-f 0", "-u 1", "-v 20000", "-d 1000"});
    for (const std::string& limit : limits)
        for (const User user : {User::Self, User::Ordinary}) {
            if (user == User::Ordinary && (geteuid() != 0 || !refusal_of(GetParam(), user).empty()))
                continue;
            Words words {"/bin/bash", "-c", "set -o pipefail; (ulimit $0; exec \"$@\" 2>&1) | cat", limit};
            const Words program = in_world({STATIC_CLIENT, "get"});
            words.insert(words.end(), program.begin(), program.end());
            const Ended ended = Process(words, user).wait();
            if (ended.status == 0) {
                EXPECT_EQ(ended.out, "4\n") << limit;
            } else {
                EXPECT_EQ(ended.status, 125) << limit;
                EXPECT_THAT(
                    ended.out, MatchesRegex("lumozeph-emulator: cannot [^:]*: [^:]* .more [a-z ]* are needed: see "
                                            "ulimit [^\n]*\n"))
                    << limit;
            }
        }
}

TEST_P(World, RunsWithoutStandardStreamsAndTerminal)
{
    Words words {"/usr/bin/setsid", "-w", "/bin/bash", "-c", "exec \"$@\" <&- >&- 2>&-", ""};
    const Words program = in_world({DYNAMIC_CLIENT, "create"});
    words.insert(words.end(), program.begin(), program.end());
    EXPECT_EQ(Process(words).wait().status, 0);
}

// A machine whose mounts differ from this one's by what a script does.
class OtherMounts : public InMode
{
protected:
    static Ended run_after(const std::string& script, const Words& program, User user)
    {
        const std::string become = user == User::Self ? "" : "setpriv --reuid 65534 --regid 65534 --clear-groups ";
        Words words {"/usr/bin/unshare", "-m", "/bin/sh", "-c", script + " && exec " + become + "\"$@\"", ""};
        const Words all = in_world(program);
        words.insert(words.end(), all.begin(), all.end());
        return Process(words).wait();
    }

    void SetUp() override
    {
        InMode::SetUp();
        if (geteuid() != 0)
            GTEST_SKIP() << "only root can mount";
        if (Process({"/usr/bin/unshare", "-m", "/bin/true"}).wait().status != 0)
            GTEST_SKIP() << "nobody can mount apart here, as in a chroot";
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, OtherMounts, modes, [](const auto& mode) { return mode.param; });

TEST_P(OtherMounts, MayBeReadOnly)
{
    for (const User user : {User::Self, User::Ordinary}) {
        const Ended ended =
            run_after("mount --rbind /tmp /tmp && mount -o remount,bind,ro /tmp && mount -o remount,bind,ro /",
                {STATIC_CLIENT, "get"}, user);
        if (user == User::Self || refusal_of(GetParam(), user).empty()) {
            EXPECT_EQ(ended.out, "4\n") << ended.err;
        }
    }
}

TEST_P(OtherMounts, MayLackProcOrTheEmulatorSaysThatItIsNeeded)
{
    if (INSTRUMENTED)
        GTEST_SKIP() << "sanitizers need /proc themselves";
    for (const User user : {User::Self, User::Ordinary}) {
        const Ended ended =
            run_after("umount -l /proc", {"/bin/sh", "-c", "sleep 1000 & exec " STATIC_CLIENT " get"}, user);
        if (GetParam() == "namespaces" && user == User::Self) {
            EXPECT_EQ(ended.out, "4\n") << ended.err;
        } else {
            EXPECT_EQ(ended.status, 125);
            EXPECT_THAT(ended.err, MatchesRegex("lumozeph-emulator: cannot [^\n]*/proc[^\n]*\n"));
        }
    }
}

class ExitStatus : public InMode
{};
INSTANTIATE_TEST_SUITE_P(Modes, ExitStatus, modes, [](const auto& mode) { return mode.param; });

TEST_P(ExitStatus, IsTheProgramsOwn)
{
    for (const int status : {0, 1, 42, 125, 255})
        EXPECT_EQ(shell("exit " + std::to_string(status)).status, status);
}

TEST_P(ExitStatus, IsTheSignalThatEndedTheProgram)
{
    for (const int signal : {SIGTERM, SIGKILL, SIGSEGV, SIGABRT, SIGUSR1}) {
        const Ended ended = shell("kill -" + std::to_string(signal) + " $$");
        EXPECT_EQ(ended.signal, signal);
    }
}

TEST_P(ExitStatus, Is127WhenTheProgramIsNotFound)
{
    const Ended ended = run({"/no/such/program"});
    EXPECT_EQ(ended.status, 127);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot run '/no/such/program': No such file or directory\n");
}

TEST_P(ExitStatus, Is126WhenTheProgramCannotBeInvoked)
{
    const Ended ended = run({"/dev"});
    EXPECT_EQ(ended.status, 126);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot run '/dev': Permission denied\n");
}

TEST_P(ExitStatus, Is125WhenTheEmulatorFails)
{
    for (const Words& wrong :
        std::vector<Words> {{EMULATOR}, {EMULATOR, "fly"}, {EMULATOR, "run"}, {EMULATOR, "run", "--"},
            {EMULATOR, "run", "--wings", "--", "/bin/true"}, {EMULATOR, "run", "--mode", "magic", "--", "/bin/true"},
            {EMULATOR, "run", "--trace", "/no/such/folder/file", "--", "/bin/true"}}) {
        const Ended ended = Process(wrong).wait();
        EXPECT_EQ(ended.status, 125) << testing::PrintToString(wrong);
        EXPECT_THAT(ended.err, StartsWith("lumozeph-emulator: "));
    }
}

TEST_P(ExitStatus, Is125InsideAnotherWorld)
{
    const Ended ended = run({EMULATOR, "run", "--", "/bin/true"});
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err,
        "lumozeph-emulator: cannot run inside another emulated world, or under another program with a seccomp "
        "listener\n");
}

TEST_P(World, LeavesProgramsAModuleOfTheirOwnInProcess)
{
    if (INSTRUMENTED)
        GTEST_SKIP() << "a program of a build with a sanitizer must load that first";
    const Ended ended = run({"/bin/sh", "-c",
        DYNAMIC_CLIENT " set 9; " EMULATOR " run --in-process -- " DYNAMIC_CLIENT " get; exec " DYNAMIC_CLIENT " get"});
    EXPECT_EQ(ended.out, "set ok\n4\n9\n") << ended.err;
}

class Signals : public InMode
{};
INSTANTIATE_TEST_SUITE_P(Modes, Signals, modes, [](const auto& mode) { return mode.param; });

TEST_P(Signals, ArePassedOnToTheProgram)
{
    Process process(
        in_world({"/bin/sh", "-c", "trap 'echo heard; exit 7' TERM; echo ready; while :; do sleep 0.05; done"}));
    process.wait_for_lines(1);
    kill(process.pid(), SIGTERM);
    const Ended ended = process.wait();
    EXPECT_EQ(ended.status, 7);
    EXPECT_EQ(ended.out, "ready\nheard\n");
}

TEST_P(Signals, ThatEndTheProgramEndWhatItHasStarted)
{
    MarkedWorld world(in_world({"/bin/sh", "-c", "sleep 1000 & setsid sleep 1000 & echo ready; wait"}));
    world.process().wait_for_lines(1);
    kill(world.process().pid(), SIGTERM);
    EXPECT_EQ(world.process().wait().signal, SIGTERM);
    world.expect_gone();
}

TEST_P(Signals, AfterTheProgramHasEndedEndWhatItLeft)
{
    MarkedWorld world(in_world({"/bin/sh", "-c", "sleep 1000 & echo ready; exit 3"}, {"--linger"}));
    world.process().wait_for_lines(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    kill(world.process().pid(), SIGTERM);
    EXPECT_EQ(world.process().wait().status, 3);
    world.expect_gone();
}

TEST_P(Signals, ThatAreIgnoredStayIgnored)
{
    MarkedWorld world({"/bin/sh", "-c", "trap '' HUP; exec \"$@\"", "", EMULATOR, "run", "--mode", GetParam(),
        "--linger", "--", "/bin/sh", "-c", "(sleep 0.4; echo left) & echo ready; exit 4"});
    world.process().wait_for_lines(1);
    kill(world.process().pid(), SIGHUP);
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    kill(world.process().pid(), SIGHUP);
    const Ended ended = world.process().wait();
    EXPECT_EQ(ended.status, 4);
    EXPECT_EQ(ended.out, "ready\nleft\n");
}

// A shell with job control on a terminal of its own, to which keys are sent.
class Terminal
{
public:
    Terminal()
    {
        pid_ = forkpty(&keyboard_, nullptr, nullptr, nullptr);
        if (pid_ != 0)
            return;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        setenv("PS1", "", 1);
        execl("/bin/sh", "sh", "-i", "+E", nullptr);
        _exit(98);
    }
    ~Terminal()
    {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
        close(keyboard_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void type(const std::string& keys) const { EXPECT_EQ(write(keyboard_, keys.data(), keys.size()), keys.size()); }

    // Waits until the screen shows this, after all that was waited for before.
    void expect(const std::string& text)
    {
        std::size_t found = std::string::npos;
        for (int i = 0; i < 2000 && (found = screen_.find(text, seen_)) == std::string::npos; ++i) {
            pollfd readable {keyboard_, POLLIN, 0};
            std::array<char, 4096> piece {};
            if (poll(&readable, 1, 10) > 0)
                if (const ssize_t length = read(keyboard_, piece.data(), piece.size()); length > 0)
                    screen_.append(piece.data(), static_cast<std::size_t>(length));
        }
        ASSERT_NE(found, std::string::npos) << "no '" << text << "' in: " << screen_;
        seen_ = found + text.size();
    }

private:
    int keyboard_ = -1;
    pid_t pid_ = -1;
    std::string screen_;
    std::size_t seen_ = 0;
};

std::string command(const Words& words)
{
    std::string line;
    for (const std::string& word : words)
        line += "'" + word + "' ";
    return line;
}

TEST_P(Signals, OfTheTerminalArriveOnce)
{
    Terminal terminal;
    terminal.type("stty -echo; " + command(in_world({"/bin/sh", "-c"})) + "\"" +
                  "n=0; trap 'n=\\$((n+1))' INT; echo ready; read line; sleep 0.3; echo heard-\\$n" +
                  "\"; echo status-$?\n");
    terminal.expect("ready\r\n");
    terminal.type("\x03");
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    terminal.type("\n");
    terminal.expect("heard-1");
    terminal.expect("status-0");
}

TEST_P(Signals, OfTheTerminalStopAndContinueTheWorld)
{
    Terminal terminal;
    terminal.type("stty -echo; " + command(in_world({"/bin/sh", "-c", "echo ready; sleep 1; echo lived; exit 7"})) +
                  "; echo status-$?\n");
    terminal.expect("ready\r\n");
    // A shell that has just forked stops for nobody until its child has become a program.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    terminal.type("\x1a");
    terminal.expect("Stopped");
    terminal.type("fg; echo again-$?\n");
    terminal.expect("lived\r\n");
    terminal.expect("again-7");
}

TEST_P(Signals, OfTheTerminalReachTheJobsOfAShellInTheWorld)
{
    Terminal terminal;
    terminal.type("stty -echo; " + command(in_world({"/bin/sh", "-i"})) + "; echo status-$?\n");
    // What the job itself says comes when it has the terminal.
    terminal.type("sh -c 'echo inside; exec sleep 1000'; echo slept-$?\n");
    terminal.expect("inside\r\n");
    terminal.type("\x03");
    terminal.type("echo still-$?; exit 5\n");
    terminal.expect("still-130");
    terminal.expect("status-5");
    // The outer shell has its terminal again.
    terminal.type("cat; echo read-$?\n");
    terminal.type("line\n\x04");
    terminal.expect("line");
    terminal.expect("read-0");
}

TEST_P(Signals, ThatKillAProcessOfTheEmulatorEndTheWorld)
{
    const Words program {"/bin/sh", "-c", "sleep 1000 & setsid sleep 1000 & echo ready; wait"};
    MarkedWorld first(in_world(program));
    first.process().wait_for_lines(1);
    kill(first.process().pid(), SIGKILL);
    EXPECT_EQ(first.process().wait().signal, SIGKILL);
    first.expect_gone();

    MarkedWorld second(in_world(program));
    second.process().wait_for_lines(1);
    kill(second.supervisor(), SIGKILL);
    const Ended ended = second.process().wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err, "lumozeph-emulator: the supervisor was killed\n");
    second.expect_gone();
}

TEST_F(NamespacesWorld, IsNotMadeIfWhoMakesItIsKilled)
{
    if (INSTRUMENTED)
        GTEST_SKIP() << "the run-time library of a sanitizer must come first";
    Words words = in_world({"--mode", "namespaces"}, {"/bin/true"});
    words.insert(words.begin(), "LD_PRELOAD=" SLOW_FORK);
    MarkedWorld world(words);
    pid_t maker = 0;
    for (int i = 0; i < 1000 && (maker == 0 || only_child_of(maker) == 0); ++i) {
        maker = only_child_of(world.process().pid());
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ASSERT_EQ(kill(maker, SIGKILL), 0);
    const Ended ended = world.process().wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err, "lumozeph-emulator: a process that makes namespaces was killed\n");
    world.expect_gone();
}

TEST_P(Signals, ThatStopTheProgramStopTheEmulatorUntilItGoesOn)
{
    Process process(in_world({"/bin/sh", "-c", "echo ready; kill -STOP $$; echo again; exit 6"}));
    int status = 0;
    ASSERT_EQ(waitpid(process.pid(), &status, WUNTRACED), process.pid());
    EXPECT_TRUE(WIFSTOPPED(status));
    EXPECT_EQ(process.out(), "ready\n");
    kill(process.pid(), SIGCONT);
    const Ended ended = process.wait();
    EXPECT_EQ(ended.status, 6);
    EXPECT_EQ(ended.out, "ready\nagain\n");
}

class Settings : public InMode
{};
INSTANTIATE_TEST_SUITE_P(Modes, Settings, modes, [](const auto& mode) { return mode.param; });

TEST_P(Settings, LenientHasTheModuleAcceptWhatItRefusesOtherwise)
{
    const Words client {DYNAMIC_CLIENT, "endpoint-of-no-bridge"};
    EXPECT_EQ(run(client).out, "endpoint ENOENT\n");
    EXPECT_EQ(Process(in_world(client, {"--lenient"})).wait().out, "endpoint ok\n");
}

TEST_P(Settings, TheClockIsRealOrManual)
{
    const Words client {DYNAMIC_CLIENT, "get"};
    EXPECT_EQ(Process(in_world(client, {"--clock", "real"})).wait().out, "4\n");
    EXPECT_EQ(Process(in_world(client, {"--clock", "manual"})).wait().out, "4\n");
    const Ended ended = Process(in_world(client, {"--clock", "broken"})).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.err, HasSubstr("broken"));
}

class States : public InMode
{
protected:
    static Ended run(const Words& options, const Words& program) { return Process(in_world(program, options)).wait(); }

    const Folder folder_ {0700};
    const std::string first_ = folder_.path() / "first";
    const std::string second_ = folder_.path() / "second";
};
INSTANTIATE_TEST_SUITE_P(Modes, States, modes, [](const auto& mode) { return mode.param; });

TEST_P(States, AreLoadedAndSaved)
{
    EXPECT_EQ(run({"--save", first_}, {DYNAMIC_CLIENT, "set", "9"}).status, 0);
    EXPECT_EQ(run({"--load", first_, "--save", second_}, {DYNAMIC_CLIENT, "get"}).out, "9\n");
    EXPECT_EQ(content_of(second_), content_of(first_));
    EXPECT_EQ(run({"--load", second_, "--save", second_}, {DYNAMIC_CLIENT, "set", "4"}).status, 0);
    EXPECT_THAT(content_of(second_), Not(HasSubstr("logLevel")));
    // An instrumented library would be preloaded before the sanitizer's own.
    const Words in_process {"/usr/bin/env", "ASAN_OPTIONS=verify_asan_link_order=0", EMULATOR, "run", "--load", first_,
        "--in-process", "--", DYNAMIC_CLIENT, "get"};
    EXPECT_EQ(Process(in_process).wait().out, "9\n");
}

TEST_P(States, AreSavedWhateverBecomesOfTheProgram)
{
    const std::string script = "cd / && " DYNAMIC_CLIENT " set 5 && exit 3";
    const Ended ended = run({"--save", first_}, {"/bin/sh", "-c", script});
    EXPECT_EQ(ended.status, 3);
    EXPECT_THAT(content_of(first_), StartsWith("{\n  \"logLevel\": 5,\n"));
}

TEST_P(States, AreSavedWhenWhoeverBeganTheWorldIsKilled)
{
    Process process(in_world({"/bin/sh", "-c", DYNAMIC_CLIENT " set 5; sleep 1000"}, {"--save", first_}));
    process.wait_for_lines(1);
    kill(process.pid(), SIGKILL);
    for (int i = 0; i < 500 && content_of(first_).empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_THAT(content_of(first_), StartsWith("{\n  \"logLevel\": 5,\n"));
}

TEST_P(States, ThatSaySomethingElseAreRefused)
{
    std::ofstream(first_) << "{\n  \"loglevel\": 1\n}\n";
    const Words client {DYNAMIC_CLIENT, "get"};
    for (const Words& words : {in_world(client, {"--load", first_}),
             Words {EMULATOR, "run", "--load", first_, "--in-process", "--", DYNAMIC_CLIENT, "get"}}) {
        const Ended ended = Process(words).wait();
        EXPECT_EQ(ended.status, 125);
        EXPECT_THAT(ended.err, HasSubstr(first_ + ":2:3: expected one of logLevel"));
        EXPECT_EQ(ended.out, "");
    }
    EXPECT_EQ(run({"--load", "/no/such/file"}, client).status, 125);
}

TEST_P(States, ThatCannotBeSavedFailTheEmulator)
{
    const Words client {DYNAMIC_CLIENT, "get"};
    const Ended unwritable = run({"--save", "/no/such/file"}, client);
    EXPECT_EQ(unwritable.status, 125);
    EXPECT_EQ(unwritable.out, "");
    const Ended full = run({"--save", "/dev/full"}, client);
    EXPECT_EQ(full.status, 125);
    EXPECT_EQ(full.out, "4\n");
    EXPECT_EQ(full.err, "lumozeph-emulator: cannot write '/dev/full': No space left on device\n");
}

TEST_P(States, AreSavedUnderTheirNameWhateverBecameOfTheFile)
{
    std::ofstream(first_) << "before";
    std::filesystem::permissions(first_, std::filesystem::perms(0604));
    const std::string script = "mv " + first_ + " " + second_ + " && " DYNAMIC_CLIENT " set 5";
    EXPECT_EQ(run({"--save", first_}, {"/bin/sh", "-c", script}).status, 0);
    EXPECT_EQ(content_of(second_), "before");
    EXPECT_THAT(content_of(first_), HasSubstr("\"logLevel\": 5"));
    EXPECT_EQ(std::filesystem::status(first_).permissions(), std::filesystem::perms(0604));
    // A link stays, and what it leads to is replaced.
    const std::string link = folder_.path() / "link";
    std::filesystem::create_symlink("first", link);
    EXPECT_EQ(run({"--save", link}, {DYNAMIC_CLIENT, "set", "6"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_THAT(content_of(first_), HasSubstr("\"logLevel\": 6"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 3);
}

TEST_P(States, ThatCannotBeSavedLeaveTheFileAsItWas)
{
    std::ofstream(first_) << "kept";
    const std::string state = folder_.path() / "state";
    std::ofstream(state) << "{\"instances\": {\"i{1..1000}\": {}}}";
    Words limited {"/bin/sh", "-c", "ulimit -f 8; exec \"$@\"", "sh"};
    for (const std::string& word : in_world({DYNAMIC_CLIENT, "get"}, {"--load", state, "--save", first_}))
        limited.push_back(word);
    const Ended ended = Process(limited).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot write '" + first_ + "': File too large\n");
    EXPECT_EQ(content_of(first_), "kept");
}

TEST_P(States, ThatGoElsewhereAreWrittenThere)
{
    // As a pipe, which cannot be replaced.
    const Ended ended = Process({"/bin/sh", "-c", "\"$@\" --save /dev/fd/3 -- " DYNAMIC_CLIENT " set 7 3>&1 | cat",
                                    "sh", EMULATOR, "run", "--mode", GetParam()})
                            .wait();
    EXPECT_THAT(ended.out, HasSubstr("\"logLevel\": 7"));
    // In a folder that takes no others, in place.
    if (geteuid() != 0 || !refusal_of(GetParam(), User::Ordinary).empty())
        return;
    std::ofstream(first_) << "before";
    std::filesystem::permissions(first_, std::filesystem::perms(0666));
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
    const Words words = in_world({DYNAMIC_CLIENT, "set", "8"}, {"--save", first_});
    EXPECT_EQ(Process(words, User::Ordinary).wait().status, 0);
    EXPECT_THAT(content_of(first_), HasSubstr("\"logLevel\": 8"));
}

TEST_P(States, NeedAFileOfTheirOwn)
{
    for (const Words& options : {Words {"--save", first_, "--trace", first_},
             Words {"--record", first_, "--save", first_}, Words {"--trace", first_, "--record", first_}}) {
        const Ended ended = run(options, {"/bin/echo", "run"});
        EXPECT_EQ(ended.status, 125);
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(ended.err, "lumozeph-emulator: --trace, --record and --save need files of their own\n");
    }
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

Words with(const std::string& program, Words words)
{
    words.insert(words.begin(), program);
    return words;
}

TEST(Options, ThatSayNothingThatCanBeDoneAreRefused)
{
    const std::vector<std::pair<Words, std::string>> cases {
        {{"run", "--mode", "foo"}, "--mode: expected namespaces or injection, not 'foo'"},
        {{"run", "--clock", "foo"}, "--clock: expected real or manual, not 'foo'"},
        {{"serve", "--trace-format", "xml"}, "--trace-format: expected text or json, not 'xml'"},
        {{"run", "--timeout", "nan"}, "--timeout: expected seconds from 0 to 1000000, not 'nan'"},
        {{"run", "--grace", "inf"}, "--grace: expected seconds from 0 to 1000000, not 'inf'"},
        {{"run", "--grace", "-1"}, "--grace: expected seconds from 0 to 1000000, not '-1'"},
        {{"run", "--journal", "many"}, "--journal: expected a number from 0 to 18446744073709551615, not 'many'"},
        {{"decode", "file", "--format", "xml"}, "--format: expected text or json, not 'xml'"},
        {{"bogus"}, "there is no command 'bogus'"},
        {{"world", "name", "bogus"}, "there is no command 'bogus'"},
        {{"world", "name", "fault", "bogus"}, "there is no command 'bogus'"},
        {{}, "A subcommand is required"},
    };
    for (const auto& [words, message] : cases) {
        const Ended ended = Process(with(EMULATOR, words)).wait();
        EXPECT_EQ(ended.status, 125);
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(ended.err, "lumozeph-emulator: " + message + "\nTry 'lumozeph-emulator --help'.\n");
    }
}

TEST(Options, FailWhereTheirAnswerCannotBeWritten)
{
    for (const char* words : {"--help", "--version", "check", "run --help"}) {
        const std::string script = std::string(EMULATOR " ") + words + " > /dev/full";
        const Ended ended = Process({"/bin/sh", "-c", script}).wait();
        EXPECT_EQ(ended.status, 125) << words;
        EXPECT_THAT(ended.err, StartsWith("lumozeph-emulator: cannot write to the standard output")) << words;
    }
}

TEST(Options, CheckSaysWhetherTheMachineWillDo)
{
    const Ended ended = Process({EMULATOR, "check"}).wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.out,
        MatchesRegex("namespaces: [^\n]+\ninjection: works\nthis machine can run the emulator; it uses [a-z]+\n"));
}

} // namespace
