// What a world tells of the commands in it.
#include "emulator/tests/named.h"

#include <map>
#include <set>

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

namespace {

class Trace : public InMode
{};
INSTANTIATE_TEST_SUITE_P(Modes, Trace, modes, [](const auto& mode) { return mode.param; });

// Time, process and program, and in the end how long it took.
const std::string who = "[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6} [0-9]+ device_client_d ";
const std::string took = " <[0-9]+\\.[0-9]{6}>\n";

TEST_P(Trace, IsALineForEachCommand)
{
    const std::string script = DYNAMIC_CLIENT " set 9; " DYNAMIC_CLIENT " get";
    const Ended ended = Process(in_world({"/bin/sh", "-c", script}, {"--trace", "-"})).wait();
    EXPECT_EQ(ended.out, "set ok\n9\n");
    EXPECT_THAT(ended.err, MatchesRegex(who + "SetLogLevel\\(level=9\\) = 0" + took + who +
                                        "GetLogLevel\\(\\) = 0, \\{level=9\\}" + took));
}

TEST_P(Trace, MayBeJson)
{
    const Ended ended =
        Process(in_world({DYNAMIC_CLIENT, "set", "9"}, {"--trace", "-", "--trace-format", "json"})).wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.err,
        MatchesRegex("\\{\"time\":\"[-0-9T:.]+Z\",\"process\":[0-9]+,\"thread\":[0-9]+,\"program\":\"device_client_d\","
                     "\"order\":1,\"number\":10,\"command\":\"SetLogLevel\",\"inLength\":4,\"room\":0,"
                     "\"request\":\\{\"level\":9\\},\"replyLength\":0,\"errno\":0,\"duration\":0\\.[0-9]{9}\\}\n"));
}

TEST_P(Trace, TellsOfCommandsThatFail)
{
    const Words options {"--trace", "-"};
    EXPECT_THAT(Process(in_world({DYNAMIC_CLIENT, "ioctl", "70"}, options)).wait().err,
        MatchesRegex(who + "70\\(\\) = -1 ENOTTY .Inappropriate ioctl for device." + took));
    EXPECT_THAT(Process(in_world({DYNAMIC_CLIENT, "bad-pointers"}, options)).wait().err,
        MatchesRegex(who + "GetLogLevel.envelope unreadable. = -1 EFAULT .Bad address." + took +         //
                     who + "SetLogLevel.input of 4 bytes unreadable. = -1 EFAULT .Bad address." + took + //
                     who + "GetLogLevel.. = -1 EFAULT .Bad address." + took +                            //
                     who + "GetLogLevel.. = -1 ENOBUFS .No buffer space available., room for 3 bytes" + took));
}

TEST_P(Trace, TellsWhoHasAsked)
{
    // The same process executes the client.
    const Ended ended =
        Process(in_world({"/bin/sh", "-c", "echo $$; exec " STATIC_CLIENT " get"}, {"--trace", "-"})).wait();
    const std::string process = ended.out.substr(0, ended.out.find('\n'));
    EXPECT_THAT(ended.err, HasSubstr(" " + process + " device_client_s GetLogLevel() = 0"));

    const Ended threads = Process(in_world({DYNAMIC_CLIENT, "threads"}, {"--trace", "-"})).wait();
    std::set<std::string> callers;
    std::istringstream lines(threads.err);
    for (std::string time, caller, rest; lines >> time >> caller && std::getline(lines, rest);)
        callers.insert(caller);
    EXPECT_EQ(callers.size(), 4U);
    EXPECT_THAT(callers, testing::Each(MatchesRegex("[0-9]+/[0-9]+")));
}

TEST_P(Trace, ShowsTheFirstRecordsOfLongReplies)
{
    const Ended ended =
        Process(in_world({DYNAMIC_CLIENT, "list-routes", "blue"}, {"--trace", "-", "--load", WORLDS "/host.json"}))
            .wait();
    EXPECT_EQ(ended.out, "routes ok\n");
    EXPECT_THAT(ended.err, HasSubstr(" GetRoutes(instance=\"blue\") = 0, [{routeDest="));
    EXPECT_THAT(ended.err, HasSubstr(", nextHopCount=1, routeValue3=(00*8), nextHops=[{nextHopAddr=192.0.2.1, "
                                     "nextHopLifName=\"uplink\", nextHopValue=(00*8)}]}, "));
    EXPECT_THAT(ended.err, MatchesRegex(".*\\}, 7996 more\\]" + took));
}

std::string open_of(const std::string& path, const std::string& flags, const std::string& program = "[a-z_0-9]+")
{
    return "[0-9:.]+ [0-9]+ " + program + " open." + "\"" + path + "\", " + flags + ". = 0" + took;
}

constexpr const char* normal = "/pelt/devices/char/zephdriver/kola_lumo";
constexpr const char* upgrade = "/pelt/devices/char/zephdriver/kola_lumo_ugrade";

TEST_P(Trace, TellsOfOpensIfAsked)
{
    const Words options {"--opens", "--trace", "-"};
    const Ended ended = Process(in_world({DYNAMIC_CLIENT, "get-upgrade"}, options)).wait();
    EXPECT_EQ(ended.out, "4\n");
    EXPECT_THAT(ended.err, MatchesRegex(open_of(upgrade, "O_RDWR") + who + "GetLogLevel.*\\{level=4\\}" + took));

    const std::string script = std::string("exec 3<") + normal + " 4>>" + normal + "; cat <&3; cat /dev/null";
    const Ended others = Process(in_world({"/bin/sh", "-c", script}, options)).wait();
    EXPECT_EQ(others.status, 0);
    EXPECT_THAT(others.err,
        MatchesRegex(open_of(normal, "O_RDONLY", "sh") + open_of(normal, "O_WRONLY.O_CREAT.O_APPEND", "sh")));
}

TEST(NamespacesTrace, TellsOfOpensByAnySpelling)
{
    if (const std::string why = refusal_of("namespaces"); !why.empty())
        GTEST_SKIP() << why;
    const std::string script =
        std::string("cd /pelt/devices/char/zephdriver; true <kola_lumo; link=$(mktemp -u); ln -s ") + normal +
        " $link; true <$link; rm $link; true <kola_lumo_nothing; true <../zephdriver/kola_lumo_ugrade; "
        "cd /; true <//pelt/../pelt/./devices/char/zephdriver/kola_lumo; /usr/bin/python3 -c 'import os; "
        "os.open(\"kola_lumo\", os.O_RDWR, dir_fd=os.open(\"/pelt/devices/char/zephdriver\", 0))'";
    const Ended ended = Process(::in_world({"--mode", "namespaces", "--opens", "--trace", "-"},
                                    {"/bin/sh", "-c", "(" + script + ") 2>/dev/null"}))
                            .wait();
    EXPECT_THAT(ended.err,
        MatchesRegex(open_of(normal, "O_RDONLY") + open_of(normal, "O_RDONLY") + open_of(upgrade, "O_RDONLY") +
                     open_of(normal, "O_RDONLY") + open_of(normal, "O_RDWR.O_CLOEXEC")));
}

// Commands enough to fill any pipe.
const Words many_commands {"/bin/sh", "-c", "for i in 1 2 3; do " DYNAMIC_CLIENT " threads; done"};
const std::string none_failed = "0 failures\n0 failures\n0 failures\n";

TEST_P(Trace, MayEndBeforeTheWorld)
{
    const Ended ended = Process({"/bin/bash", "-c", "exec \"$@\" --trace >(exit) -- " DYNAMIC_CLIENT " threads", "",
                                    EMULATOR, "run", "--mode", GetParam()})
                            .wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "0 failures\n");
}

TEST_P(Trace, MayStandStill)
{
    std::array<int, 2> ends {};
    ASSERT_EQ(pipe(ends.data()), 0);
    const auto before = std::chrono::steady_clock::now();
    const Ended ended =
        Process(in_world(many_commands, {"--grace", "0.5", "--trace", "/proc/self/fd/" + std::to_string(ends[1])}))
            .wait();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(10));
    EXPECT_EQ(ended.out, none_failed);
    EXPECT_THAT(ended.err, HasSubstr("lines lost from the trace: "));
    close(ends[0]);
    close(ends[1]);
}

TEST_P(Trace, SaysWhatItLost)
{
    const Ended ended = Process(in_world(many_commands, {"--trace", "/dev/full"})).wait();
    EXPECT_EQ(ended.out, none_failed);
    EXPECT_EQ(ended.err, "lumozeph-emulator: lines lost from the trace: 2400 (No space left on device)\n");
}

TEST_P(Trace, MayGrowTooLarge)
{
    const Folder folder_of_trace(0700);
    Words words {"/bin/bash", "-c", "(ulimit -f 1; exec \"$@\" 2>&1) | cat", ""};
    const Words program = in_world({DYNAMIC_CLIENT, "threads"}, {"--trace", folder_of_trace.path() / "trace"});
    words.insert(words.end(), program.begin(), program.end());
    EXPECT_THAT(Process(words).wait().out,
        MatchesRegex("0 failures\nlumozeph-emulator: lines lost from the trace: [0-9]+ .File too large.\n"));
}

TEST_P(Trace, NumbersCommandsInTheOrderOfTheirApplication)
{
    const Ended ended =
        Process(in_world({DYNAMIC_CLIENT, "threads"}, {"--trace", "-", "--trace-format", "json"})).wait();
    std::istringstream lines(ended.err);
    std::set<std::string> orders;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t begin = line.find("\"order\":");
        orders.insert(line.substr(begin, line.find(',', begin) - begin));
    }
    EXPECT_EQ(orders.size(), 800U);
    EXPECT_EQ(orders.count("\"order\":800"), 1U);
}

TEST_P(Trace, SumsUpInTheEnd)
{
    const std::string script = DYNAMIC_CLIENT " set 9; " DYNAMIC_CLIENT " get; " DYNAMIC_CLIENT " ioctl 70";
    const Ended ended =
        Process(in_world({"/bin/sh", "-c", script}, {"--summary", "--fault", "GetLogLevel=EIO"})).wait();
    std::map<std::string, std::vector<std::string>> rows;
    std::istringstream lines(ended.err);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        const std::vector<std::string> row {std::istream_iterator<std::string>(words), {}};
        ASSERT_FALSE(row.empty());
        rows[row.back()] = row;
    }
    const auto counts = [&](const std::string& name) {
        const auto& row = rows[name];
        return row.size() < 4 ? "none" : row[0] + " " + row[1] + " " + row[2] + " " + row[3];
    };
    EXPECT_EQ(counts("SetLogLevel"), "1 0 4 0");
    EXPECT_EQ(counts("GetLogLevel"), "1 1 0 0");
    EXPECT_EQ(counts("unknown"), "1 1 0 0");
    EXPECT_EQ(counts("total"), "3 2 4 0");
    EXPECT_EQ(rows.size(), 5U);
}

class JournalOfWorld : public Named
{
protected:
    std::string journal(const std::string& world, const std::string& format = "text") const
    {
        const Ended ended = say({"world", world, "journal", "--format", format});
        EXPECT_EQ(ended.status, 0) << ended.err;
        return ended.out;
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, JournalOfWorld, modes, [](const auto& mode) { return mode.param; });

TEST_P(JournalOfWorld, SaysWhatWasAsked)
{
    Process world(serve("asked"));
    wait_for("asked");
    EXPECT_EQ(journal("asked"), "");
    EXPECT_EQ(join("asked", {DYNAMIC_CLIENT, "set", "9"}).out, "set ok\n");
    EXPECT_EQ(join("asked", {DYNAMIC_CLIENT, "get"}).out, "9\n");
    EXPECT_THAT(journal("asked"), MatchesRegex(who + "SetLogLevel.level=9. = 0" + took + who + "GetLogLevel.*" + took));
    EXPECT_THAT(journal("asked", "json"), HasSubstr("\"command\":\"SetLogLevel\""));
    EXPECT_EQ(say({"stop", "asked"}).status, 0);
    world.wait();
}

TEST_P(JournalOfWorld, SaysWhenItHasForgotten)
{
    Process world(emulator({"serve", "--mode", GetParam(), "--world", "short", "--journal", "3"}));
    wait_for("short");
    EXPECT_EQ(join("short", {"/bin/sh", "-c", "for i in 1 2 3 4 5; do " DYNAMIC_CLIENT " set $i; done"}).status, 0);
    EXPECT_THAT(
        journal("short"), MatchesRegex("\\+\\+\\+ forgotten: 2 \\+\\+\\+\n.*level=3.*\n.*level=4.*\n.*level=5.*\n"));
    EXPECT_THAT(journal("short", "json"), testing::StartsWith("{\"forgotten\":2}\n{"));
    EXPECT_EQ(say({"stop", "short"}).status, 0);
    world.wait();
}

TEST_P(JournalOfWorld, SaysThatItRemembersNothing)
{
    Process world(emulator({"serve", "--mode", GetParam(), "--world", "none", "--journal", "0"}));
    wait_for("none");
    EXPECT_EQ(journal("none"), "");
    EXPECT_EQ(join("none", {DYNAMIC_CLIENT, "get"}).status, 0);
    EXPECT_EQ(journal("none"), "+++ forgotten: 1 +++\n");
    EXPECT_EQ(say({"stop", "none"}).status, 0);
    world.wait();
}

} // namespace
