// Worlds with names, which are shared between shells.
#include "emulator/tests/named.h"

#include <optional>
#include <regex>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

namespace {

INSTANTIATE_TEST_SUITE_P(Modes, Named, modes, [](const auto& mode) { return mode.param; });

TEST_P(Named, WorldsLiveUntilTheyAreStopped)
{
    Process world(serve("shared"));
    wait_for("shared");
    EXPECT_EQ(join("shared", {DYNAMIC_CLIENT, "set", "17"}).out, "set ok\n");
    EXPECT_EQ(join("shared", {STATIC_CLIENT, "get"}).out, "17\n");
    EXPECT_EQ(say({"stop", "shared"}).status, 0);
    EXPECT_EQ(world.wait().status, 0);
    EXPECT_EQ(say({"list"}).out, "");
    expect_nothing_left();
}

TEST_P(Named, WorldsOfAProgramCanBeJoinedWhileItRuns)
{
    Process program(emulator({"run", "--mode", GetParam(), "--world", "mine", "--linger", "--", "/bin/sh", "-c",
        DYNAMIC_CLIENT " set 18; while [ $(" DYNAMIC_CLIENT " get) = 18 ]; do :; done; echo $LUMOZEPH_WORLD; exit 3"}));
    program.wait_for_lines(1);
    EXPECT_EQ(
        join("mine", {"/bin/sh", "-c", "echo $LUMOZEPH_WORLD; exec " DYNAMIC_CLIENT " set 19"}).out, "mine\nset ok\n");
    const Ended ended = program.wait();
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.out, "set ok\nmine\n");
    expect_nothing_left();
}

TEST_P(Named, WorldsSeeTheOpensOfTheirGuests)
{
    Process world(emulator({"serve", "--mode", GetParam(), "--world", "seen", "--opens", "--trace", "-"}));
    wait_for("seen");
    EXPECT_EQ(join("seen", {DYNAMIC_CLIENT, "get"}).out, "4\n");
    EXPECT_EQ(say({"world", "seen", "fault", "add", "open=EACCES"}).status, 0);
    EXPECT_EQ(join("seen", {DYNAMIC_CLIENT, "get"}).out, "get EACCES\n");
    EXPECT_EQ(say({"stop", "seen"}).status, 0);
    EXPECT_THAT(world.wait().err,
        MatchesRegex(".* open.\"/pelt/devices/char/zephdriver/kola_lumo\", O_RDWR. = 0 <.*>\n.* GetLogLevel.*\n"
                     ".* open.* = -1 EACCES .Permission denied. .fault open=EACCES. <.*>\n"));
}

TEST_P(Named, WorldsBeginWithAStateAndLeaveOne)
{
    const std::string state = runtime_.path() / "state";
    std::ofstream(state) << "{\"logLevel\": 3}";
    const Words words {"serve", "--mode", GetParam(), "--world", "kept", "--load", state, "--save", state, "--lenient",
        "--clock", "manual"};
    Process world(emulator(words));
    wait_for("kept");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "get"}).out, "3\n");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "endpoint-of-no-bridge"}).out, "endpoint ok\n");
    EXPECT_EQ(say({"stop", "kept"}).status, 0);
    std::ifstream file(state);
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(file), {}), MatchesRegex(".*logLevel.: 3,.*endpoints.*"));
    EXPECT_EQ(world.wait().status, 0);
}

// A lock on the folder of a user's worlds, as one holds who makes or ends a world.
class FolderLock
{
public:
    explicit FolderLock(const std::filesystem::path& folder) : number_(open(folder.c_str(), O_RDONLY | O_DIRECTORY))
    {
        flock(number_, LOCK_EX);
    }
    ~FolderLock() { close(number_); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // Until somebody else waits for it.
    void wait_for_others() const
    {
        struct stat found
        {};
        fstat(number_, &found);
        const std::string waiting = "-> FLOCK .*:" + std::to_string(found.st_ino) + " ";
        for (int i = 0; i < 4000; ++i) {
            std::ifstream locks("/proc/locks");
            for (std::string line; std::getline(locks, line);)
                if (std::regex_search(line, std::regex(waiting)))
                    return;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        FAIL() << "nobody waits for the lock";
    }

private:
    int number_;
};

TEST_P(Named, WorldsThatEndLeaveTheFolderToThoseWhoHaveMadeItAnew)
{
    Process world(emulator({"run", "--mode", GetParam(), "--world", "old", "--", "/bin/sleep", "1000"}));
    wait_for("old");
    std::optional<FolderLock> before(folder());
    kill(world.pid(), SIGTERM);
    before->wait_for_others();
    std::filesystem::remove_all(folder());
    std::filesystem::create_directory(folder());
    std::filesystem::permissions(folder(), std::filesystem::perms(0700));
    {
        const FolderLock anew(folder());
        before.reset();
        anew.wait_for_others();
        EXPECT_TRUE(std::filesystem::exists(folder()));
    }
    EXPECT_EQ(world.wait().signal, SIGTERM);
    expect_nothing_left();
}

// A world whose time passes when it is told to, and what is asked of its state.
class NamedStates : public Named
{
protected:
    void SetUp() override
    {
        Named::SetUp();
        if (IsSkipped())
            return;
        world_.emplace(emulator({"serve", "--mode", GetParam(), "--world", "kept", "--clock", "manual"}));
        wait_for("kept");
    }
    void TearDown() override
    {
        if (!world_)
            return;
        EXPECT_EQ(say({"stop", "kept"}).status, 0);
        EXPECT_EQ(world_->wait().status, 0);
    }

    Ended ask(const Words& verb) const
    {
        Words words {"world", "kept"};
        words.insert(words.end(), verb.begin(), verb.end());
        return say(words);
    }
    std::string get(const std::string& pointer = "") const { return ask({"get", pointer}).out; }

    // A file with this content, which the next one replaces.
    std::string file(const std::string& content) const
    {
        const std::string path = runtime_.path() / "document";
        std::ofstream(path) << content;
        return path;
    }

private:
    std::optional<Process> world_;
};
INSTANTIATE_TEST_SUITE_P(Modes, NamedStates, modes, [](const auto& mode) { return mode.param; });

TEST_P(NamedStates, AreReadAsAWholeAndInParts)
{
    EXPECT_EQ(get(), "{}\n");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "set", "9"}).status, 0);
    EXPECT_EQ(get("/logLevel"), "9\n");
    EXPECT_THAT(get(), StartsWith("{\n  \"logLevel\": 9,\n"));
    const Ended no_pointer = ask({"get", "logLevel"});
    EXPECT_EQ(no_pointer.status, 2);
    EXPECT_EQ(
        no_pointer.err, "lumozeph-emulator: expected a JSON pointer, which begins with a slash, not 'logLevel'\n");
    for (const char* pointer : {"/txDispQueueSize", "/~2"}) {
        const Ended ended = ask({"get", pointer});
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(ended.err, std::string("lumozeph-emulator: there is nothing at '") + pointer + "'\n");
    }
}

TEST_P(NamedStates, AreChangedWhileProgramsGoOn)
{
    EXPECT_EQ(ask({"merge", file("{\"logLevel\": 7, \"instances\": {\"blue\": {\"value1\": 1}}}")}).status, 0);
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "get"}).out, "7\n");
    EXPECT_EQ(ask({"merge", file("{\"instances\": {\"blue\": {\"value2\": 2}}}")}).status, 0);
    EXPECT_EQ(get("/instances/blue/value1"), "1\n");
    EXPECT_EQ(get("/instances/blue/value2"), "2\n");
    EXPECT_EQ(ask({"patch", file("[{\"op\": \"remove\", \"path\": \"/instances/blue\"},"
                                 " {\"op\": \"replace\", \"path\": \"/logLevel\", \"value\": 8}]")})
                  .status,
        0);
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "get"}).out, "8\n");
    EXPECT_EQ(ask({"get", "/instances/blue"}).status, 1);
    EXPECT_EQ(ask({"load", file("{\"logLevel\": 2}")}).status, 0);
    EXPECT_EQ(get(), "{\n  \"logLevel\": 2\n}\n");
    EXPECT_EQ(ask({"reset"}).status, 0);
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "get"}).out, "4\n");
}

TEST_P(NamedStates, StayAsTheyAreIfAChangeMakesNoSense)
{
    EXPECT_EQ(ask({"load", file("{\"logLevel\": 3}")}).status, 0);
    const std::string before = get();
    struct Change
    {
        const char* verb;
        const char* document;
        const char* mistake;
    };
    for (const auto& [verb, document, mistake] : {
             Change {"load", "{\n  \"loglevel\": 1}", ":2:3: expected one of logLevel"},
             {"load", "{\"logLevel\": 1", ":1:15: expected"},
             {"load",
                 "{\"logLevel\": 1, \"instances\": {\"a\": {\"routes\": {\"10.0.0.0/8\": {\"nextHops\": {\"::\": "
                 "{}}}}}}}",
                 ":1:76: expected an IPv4 address"},
             {"merge", "{\"logLevel\": 5,\n \"bridges\": 1}", ":2:13: expected"},
             {"patch", "{}", ":1:1: expected an array of operations"},
             {"patch",
                 "[{\"op\": \"replace\", \"path\": \"/logLevel\", \"value\": 5},\n"
                 " {\"op\": \"test\", \"path\": \"/logLevel\", \"value\": 6}]",
                 ":2:"},
             {"diff", "{\"bridges\": 1}", ":1:13: expected"},
         }) {
        const std::string path = file(document);
        const Ended ended = ask({verb, path});
        EXPECT_EQ(ended.status, 2) << document;
        EXPECT_THAT(ended.err, StartsWith("lumozeph-emulator: " + path + mistake));
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(get(), before);
    }
    EXPECT_EQ(ask({"load", "/no/such/file"}).status, 125);
    EXPECT_EQ(ask({"save", "/no/such/file"}).status, 125);
    EXPECT_EQ(get(), before);
}

TEST_P(NamedStates, LeaveAFileAsItWasIfTheyCannotBeSaved)
{
    EXPECT_EQ(ask({"merge", file("{\"instances\": {\"i{1..1000}\": {}}}")}).status, 0);
    const std::string kept = file("kept");
    Words limited {"/bin/sh", "-c", "ulimit -f 8; exec \"$@\"", "sh"};
    for (const std::string& word : emulator({"world", "kept", "save", kept}))
        limited.push_back(word);
    const Ended ended = Process(limited).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot write '" + kept + "': File too large\n");
    EXPECT_EQ(content_of(std::filesystem::path(kept)), "kept");
    for (const auto& left : std::filesystem::directory_iterator(runtime_.path()))
        EXPECT_NE(left.path().filename().string()[0], '.') << left.path();
}

TEST_P(NamedStates, DifferByAPatchThatMakesOneOfTheOther)
{
    const std::string one =
        "{\"logLevel\": 3, \"instances\": {\"a/b\": {\"lifs\": {\"lif{1..3}\": {\"enabled\": true}}}}}";
    EXPECT_EQ(ask({"load", file(one)}).status, 0);
    const Ended same = ask({"diff", file(one)});
    EXPECT_EQ(same.status, 0) << same.out;
    EXPECT_EQ(same.out, "[]\n");

    const std::string another =
        "{\"bridges\": {\"br0\": {}}, \"instances\": {\"a/b\": {\"lifs\": {\"lif{2..9}\": {}}}}}";
    const Ended difference = ask({"diff", file(another)});
    EXPECT_EQ(difference.status, 1);
    const std::string goal = get();
    EXPECT_EQ(ask({"load", file(another)}).status, 0);
    EXPECT_NE(get(), goal);
    EXPECT_EQ(ask({"patch", file(difference.out)}).status, 0);
    EXPECT_EQ(ask({"diff", file(goal)}).out, "[]\n");
}

TEST_P(NamedStates, MayBeLarge)
{
    const std::string large = "{\"instances\": {\"large\": {\"lifs\": {\"lif{1..9999}\": {}}}}}";
    EXPECT_EQ(ask({"load", file(large)}).status, 0);
    const std::string saved = runtime_.path() / "saved";
    EXPECT_EQ(ask({"save", saved}).status, 0);
    EXPECT_GT(std::filesystem::file_size(saved), 100000U);
    const Words validate {"/usr/bin/python3", "-c",
        "import json, jsonschema, sys; jsonschema.validate(*(json.load(open(one)) for one in sys.argv[1:]))", saved,
        STATE_SCHEMA};
    EXPECT_EQ(Process(validate).wait().err, "");
    EXPECT_EQ(ask({"load", saved}).status, 0);
    EXPECT_EQ(ask({"diff", saved}).status, 0);
}

TEST_P(NamedStates, MoveOnWhenTimePasses)
{
    const std::string counting = "{\"statistics\": {\"0\": {\"value\": 1, \"rate\": 10}}}";
    EXPECT_EQ(ask({"load", file(counting)}).status, 0);
    EXPECT_EQ(ask({"advance", "2.5"}).status, 0);
    EXPECT_EQ(get("/statistics/0/value"), "26\n");
    for (const char* seconds : {"soon", "1e3", "2,5", "3155760001", "3155760000.1"}) {
        const Ended ended = ask({"advance", seconds});
        EXPECT_EQ(ended.status, 2) << seconds;
        EXPECT_EQ(
            ended.err, std::string("lumozeph-emulator: '") + seconds + "' is no number of seconds, up to a century\n");
    }
    EXPECT_EQ(get("/statistics/0/value"), "26\n");
    const Ended beyond = ask({"advance", "3155760000"});
    EXPECT_EQ(beyond.status, 2);
    EXPECT_EQ(beyond.err, "lumozeph-emulator: no more than a century can pass in all\n");
    EXPECT_EQ(get("/statistics/0/value"), "26\n");
}

TEST_P(NamedStates, HaveFaultsBesideThem)
{
    EXPECT_EQ(ask({"fault", "list"}).out, "");
    EXPECT_EQ(ask({"fault", "add", "SetLogLevel=EBUSY"}).status, 0);
    EXPECT_EQ(ask({"fault", "add", "Get*#2-3=ENODEV"}).status, 0);
    EXPECT_EQ(ask({"fault", "list"}).out, "SetLogLevel=EBUSY\nGet*#2-3=ENODEV\n");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "set", "9"}).out, "set EBUSY\n");
    EXPECT_EQ(get(), "{}\n");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "get"}).out, "4\n");
    EXPECT_EQ(join("kept", {STATIC_CLIENT, "get"}).out, "get ENODEV\n");
    EXPECT_EQ(ask({"reset"}).status, 0);
    EXPECT_EQ(join("kept", {STATIC_CLIENT, "get"}).out, "get ENODEV\n");
    EXPECT_EQ(ask({"fault", "clear"}).status, 0);
    EXPECT_EQ(ask({"fault", "list"}).out, "");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "set", "9"}).out, "set ok\n");
    EXPECT_EQ(join("kept", {DYNAMIC_CLIENT, "get"}).out, "9\n");
}

TEST_P(NamedStates, HaveNoFaultsThatMakeNoSense)
{
    EXPECT_EQ(ask({"fault", "add", "GetLifs=EIO"}).status, 0);
    for (const auto& [fault, why] : {
             std::pair("GetLifs#2=EFAULTY", "column 11 of 'GetLifs#2=EFAULTY': expected an errno such as EIO, "),
             {"SetLif=long",
                 "column 8 of 'SetLif=long': expected an errno, delay:TIME or hang: the command has no reply"},
             {"open=EACCES", "column 1 of 'open=EACCES': opens can be at fault in a world with --opens only"},
             {"", "column 1 of '': expected the name or number of a command, any or open\n"},
         }) {
        const Ended ended = ask({"fault", "add", fault});
        EXPECT_EQ(ended.status, 2) << fault;
        EXPECT_THAT(ended.err, StartsWith(std::string("lumozeph-emulator: ") + why));
        EXPECT_EQ(ended.out, "");
    }
    // Longer than any message.
    const Ended lengthy = ask({"fault", "add", "GetLifs=EIO" + std::string(5000, '#')});
    EXPECT_EQ(lengthy.status, 2);
    EXPECT_THAT(lengthy.err, StartsWith("lumozeph-emulator: column 12 of 'GetLifs=EIO###"));
    EXPECT_EQ(ask({"fault", "list"}).out, "GetLifs=EIO\n");
    for (const Words& verb : {Words {"fault"}, {"fault", "add"}, {"fault", "list", "all"}, {"fault", "mend"}})
        EXPECT_EQ(ask(verb).status, 125);
    EXPECT_EQ(say({"world", "none", "fault", "clear"}).status, 125);
}

TEST_P(NamedStates, CanBeAskedForInTheWorld)
{
    const Ended ended =
        join("kept", {"/bin/sh", "-c", DYNAMIC_CLIENT " set 6 && " EMULATOR " world $LUMOZEPH_WORLD get /logLevel"});
    EXPECT_EQ(ended.out, "set ok\n6\n") << ended.err;
}

TEST_P(NamedStates, AreThoseOfWorldsThatAreThere)
{
    for (const Words& words : {Words {"world"}, {"world", "kept"}, {"world", "kept", "get", "/a", "/b"},
             {"world", "none", "get"}, {"world", "a/b", "get"}})
        EXPECT_EQ(say(words).status, 125);
    EXPECT_EQ(say({"world", "none", "get"}).err, "lumozeph-emulator: there is no world 'none'\n");
}

TEST_P(Named, WorldsEndByASignal)
{
    Process world(serve("ending"));
    wait_for("ending");
    kill(world.pid(), SIGTERM);
    EXPECT_EQ(world.wait().status, 0);
    expect_nothing_left();
}

TEST_P(Named, WorldsTakeTheirGuestsAlong)
{
    Process world(serve("short"));
    wait_for("short");
    Process guest(emulator({"join", "short", "--", "/bin/sh", "-c",
        "trap 'echo asked; exit 4' TERM; echo ready; "
        "while :; do sleep 0.01; done"}));
    guest.wait_for_lines(1);
    if (GetParam() == "namespaces") {
        EXPECT_EQ(say({"stop", "short"}).status, 0);
        const Ended ended = guest.wait();
        EXPECT_EQ(ended.status, 4);
        EXPECT_EQ(ended.out, "ready\nasked\n");
    } else {
        kill(world.pid(), SIGKILL);
        EXPECT_EQ(guest.wait().signal, SIGKILL);
    }
    world.wait();
    expect_nothing_left();
}

TEST_P(Named, GuestsEndAsTheirProgramsAndHearSignals)
{
    Process world(serve("host"));
    wait_for("host");
    EXPECT_EQ(join("host", {"/bin/sh", "-c", "exit 9"}).status, 9);
    EXPECT_EQ(join("host", {"/bin/sh", "-c", "kill -USR1 $$"}).signal, SIGUSR1);
    EXPECT_EQ(join("host", {"/no/such/program"}).status, 127);
    EXPECT_EQ(join("host", {"/bin/pwd"}).out, std::filesystem::current_path().string() + "\n");
    Process guest(emulator({"join", "host", "--", "/bin/sh", "-c",
        "trap 'echo heard; exit 7' TERM; echo ready; while :; do sleep 0.05; done"}));
    guest.wait_for_lines(1);
    kill(guest.pid(), SIGTERM);
    const Ended ended = guest.wait();
    EXPECT_EQ(ended.status, 7);
    EXPECT_EQ(ended.out, "ready\nheard\n");
    Process killed(emulator({"join", "host", "--", "/bin/sh", "-c", "echo $$; exec sleep 1000"}));
    killed.wait_for_lines(1);
    kill(killed.pid(), SIGKILL);
    EXPECT_EQ(join("host", {DYNAMIC_CLIENT, "get"}).out, "4\n");
    EXPECT_EQ(say({"stop", "host"}).status, 0);
    world.wait();
    expect_nothing_left();
}

TEST_P(Named, WorldsHaveOneNameEach)
{
    Process world(serve("one"));
    wait_for("one");
    const Ended second = Process(serve("one")).wait();
    EXPECT_EQ(second.status, 125);
    EXPECT_EQ(second.err, "lumozeph-emulator: there is a world 'one' already\n");
    for (const std::string& name : Words {"", ".", "..", "a/b", "-x", "a b", std::string(65, 'a')})
        EXPECT_EQ(say({"serve", "--world", name}).status, 125) << name;
    EXPECT_EQ(say({"join", "two", "--", "/bin/true"}).err, "lumozeph-emulator: there is no world 'two'\n");
    EXPECT_EQ(say({"stop", "two"}).status, 125);
}

TEST_P(Named, WorldsCannotBeJoinedFromAnother)
{
    Process world(serve("outer"));
    wait_for("outer");
    const Ended ended = Process(in_world(emulator({"join", "outer", "--", "/bin/true"}))).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.err, StartsWith("lumozeph-emulator: cannot run inside another emulated world"));
}

TEST_P(Named, WorldsCannotBeServedFromAnother)
{
    const Ended ended = Process(in_world(serve("inner"))).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.err, StartsWith("lumozeph-emulator: cannot run inside another emulated world"));
    expect_nothing_left();
}

TEST_P(Named, WorldsLeaveNothingWhenTheirProcessesAreKilled)
{
    {
        Process world(serve("killed"));
        wait_for("killed");
        Process guest(emulator({"join", "killed", "--", "/bin/sleep", "1000"}));
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        kill(world.pid(), SIGKILL);
        expect_nothing_left();
    }
    Process world(serve("killed"));
    wait_for("killed");
    kill(only_child_of(world.pid()), SIGKILL);
    EXPECT_EQ(world.wait().status, 125);
    expect_nothing_left();
}

TEST_P(Named, WorldsBelongToTheirUserAlone)
{
    Process world(serve("private"));
    wait_for("private");
    struct stat found
    {};
    ASSERT_EQ(stat(folder().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0700U);
    EXPECT_EQ(found.st_uid, geteuid());
    ASSERT_EQ(stat((folder() / "private").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0600U);
    // Another user may not be able to reach the program.
    if (geteuid() != 0 || !refusal_of(GetParam(), User::Ordinary).empty())
        return;
    std::filesystem::permissions(runtime_.path(), std::filesystem::perms(0755));
    const Ended other = Process(emulator({"join", "private", "--", "/bin/true"}), User::Ordinary).wait();
    EXPECT_EQ(other.status, 125);
    const auto refusal = MatchesRegex("lumozeph-emulator: .*/lumozeph-emulator is not a folder of this user alone\n");
    EXPECT_THAT(other.err, refusal);
    EXPECT_THAT(Process(emulator({"world", "private", "get"}), User::Ordinary).wait().err, refusal);
}

TEST_P(Named, WorldsAreNotMadeInFoldersThatOthersMayWrite)
{
    std::filesystem::create_directory(folder());
    std::filesystem::permissions(folder(), std::filesystem::perms(0777));
    EXPECT_THAT(Process(serve("open")).wait().err, HasSubstr("is not a folder of this user alone"));
    std::filesystem::remove(folder());
    std::filesystem::create_directory(runtime_.path() / "elsewhere");
    std::filesystem::permissions(runtime_.path() / "elsewhere", std::filesystem::perms(0700));
    std::filesystem::create_symlink("elsewhere", folder());
    EXPECT_THAT(Process(serve("linked")).wait().err, HasSubstr("is not a folder of this user alone"));
}

TEST_P(Named, WorldsLieUnderTmpWithoutARuntimeFolder)
{
    const std::string name = "test-" + std::to_string(getpid()) + GetParam();
    Process world({"/usr/bin/env", "-u", "XDG_RUNTIME_DIR", EMULATOR, "serve", "--mode", GetParam(), "--world", name});
    const std::filesystem::path expected = "/tmp/lumozeph-emulator-" + std::to_string(geteuid()) + "/" + name;
    for (int i = 0; i < 500 && !std::filesystem::is_socket(expected); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(std::filesystem::is_socket(expected));
    kill(world.pid(), SIGTERM);
    world.wait();
    EXPECT_FALSE(std::filesystem::exists(expected));
}

TEST_P(Named, WorldsTellAServiceManagerThatTheyAreReady)
{
    const int manager = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const std::string path = runtime_.path() / "notify";
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(manager, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    Words words = serve("service");
    words.insert(words.begin() + 1, "NOTIFY_SOCKET=" + path);
    Process world(words);
    std::array<char, 100> told {};
    const ssize_t length = recv(manager, told.data(), told.size(), 0);
    EXPECT_EQ(std::string(told.data(), static_cast<std::size_t>(length)), "READY=1");
    EXPECT_EQ(join("service", {DYNAMIC_CLIENT, "get"}).out, "4\n");
    close(manager);
}

} // namespace
