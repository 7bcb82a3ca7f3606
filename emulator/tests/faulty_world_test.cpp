// Worlds in which commands go wrong.
#include "emulator/tests/in_mode.h"

using std::chrono::milliseconds;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

class FaultyWorld : public InMode
{
protected:
    static Ended run(const Words& options, const std::string& script)
    {
        return Process(in_world({"/bin/sh", "-c", script}, options)).wait();
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, FaultyWorld, modes, [](const auto& mode) { return mode.param; });

TEST_P(FaultyWorld, AnswersWithWhatIsAskedFor)
{
    const Ended ended = run({"--fault", "SetLogLevel#1=EBUSY", "--fault", "9#3=ENODEV", "--fault", "GetLogLevel#4=EIO"},
        set + get + set + STATIC_CLIENT " get; " + get + get + get);
    EXPECT_EQ(ended.out, "set EBUSY\n4\nset ok\n9\nget ENODEV\nget EIO\n9\n");
    EXPECT_EQ(ended.err, "");
}

TEST_P(FaultyWorld, TracesWhatItAnswers)
{
    // The client aborts where the length is not what it expects.
    const Ended ended = run({"--trace", "-", "--fault", "SetLogLevel=EBUSY", "--fault", "GetLogLevel#2=short:3",
                                "--fault", "GetLogLevel#3=long"},
        "exec 2>/dev/null; ulimit -c 0; " + set + get + get + get + "exit 0");
    EXPECT_EQ(ended.out, "set EBUSY\n4\n");
    EXPECT_THAT(ended.err,
        MatchesRegex(".*SetLogLevel.level=9. = -1 EBUSY .Device or resource busy. .fault SetLogLevel=EBUSY. <.*>\n"
                     ".*GetLogLevel.. = 0, .level=4. <.*>\n"
                     ".*GetLogLevel.. = 0, 3 bytes: 040000 .fault GetLogLevel#2=short:3. <.*>\n"
                     ".*GetLogLevel.. = 0, .level=4., said to be 8 bytes .fault GetLogLevel#3=long. <.*>\n"));
}

TEST_P(FaultyWorld, TracesWhatIsNeverAnswered)
{
    const Ended ended = run({"--trace", "-", "--fault", "GetLogLevel=delay:1ms", "--fault", "GetLogLevel=hang"},
        DYNAMIC_CLIENT " get & sleep 0.3; kill $!; wait $!; " + set);
    EXPECT_EQ(ended.out, "set ok\n");
    EXPECT_THAT(ended.err,
        MatchesRegex(".*GetLogLevel.. = [?] .fault GetLogLevel=delay:1ms GetLogLevel=hang. <.*>\n.*SetLogLevel.*\n"));
}

TEST_P(FaultyWorld, IsAtRandomAsItsSeedSays)
{
    const std::string script = "for i in 1 2 3 4 5 6 7 8 9 10 11 12; do " + get + "done; exit 0";
    const auto outcome = [&](const std::string& seed) {
        return run({"--fault", "any%0.5=EIO", "--seed", seed}, script).out;
    };
    const std::string once = outcome("1");
    EXPECT_THAT(once, HasSubstr("get EIO\n"));
    EXPECT_THAT(once, HasSubstr("4\n"));
    EXPECT_EQ(outcome("1"), once);
    EXPECT_NE(outcome("2"), once);
}

TEST_P(FaultyWorld, TracesWhatTheEndOfTheWorldCutsOff)
{
    const Ended ended =
        run({"--timeout", "0.3", "--grace", "0.1", "--fault", "GetLogLevel=delay:60s", "--trace", "-", "--summary"},
            DYNAMIC_CLIENT " get");
    EXPECT_EQ(ended.status, 124);
    EXPECT_THAT(ended.err, HasSubstr("device_client_d GetLogLevel() = ? (fault GetLogLevel=delay:60s) <"));
    EXPECT_THAT(ended.err, testing::ContainsRegex("\n +1 +0 +0 +0 +[0-9.]+ +[0-9.]+ +GetLogLevel\n"));
}

TEST_P(FaultyWorld, RefusesOpens)
{
    const Ended ended = run({"--opens", "--fault", "open#2=EACCES"}, get + get + get);
    EXPECT_EQ(ended.out, "4\nget EACCES\n4\n");
    const Ended traced = run({"--opens", "--trace", "-", "--fault", "open=ENXIO"}, get);
    EXPECT_EQ(traced.out, "get ENXIO\n");
    EXPECT_THAT(traced.err,
        MatchesRegex(
            ".* open.\".*/kola_lumo\", O_RDWR. = -1 ENXIO .No such device or address. .fault open=ENXIO. <.*>\n"));
}

TEST_P(FaultyWorld, DelaysCommandsAndOpens)
{
    for (const char* fault : {"9=delay:300ms", "open=delay:300ms"}) {
        const auto before = std::chrono::steady_clock::now();
        EXPECT_EQ(run({"--opens", "--fault", fault}, get).out, "4\n");
        EXPECT_GE(std::chrono::steady_clock::now() - before, milliseconds(300)) << fault;
    }
}

TEST_P(FaultyWorld, IsNotHeldUpByDelays)
{
    // Each of four takes a second; all of them, not much longer.
    const auto before = std::chrono::steady_clock::now();
    const Ended ended =
        run({"--fault", "GetLogLevel=delay:1s"}, "for i in 1 2 3 4; do " DYNAMIC_CLIENT " get & done; " + set + "wait");
    EXPECT_LT(std::chrono::steady_clock::now() - before, milliseconds(3500));
    // What is delayed takes place later.
    EXPECT_EQ(ended.out, "set ok\n9\n9\n9\n9\n");
}

TEST_P(FaultyWorld, IsNotHeldUpByWhatHangs)
{
    for (const char* fault : {"GetLogLevel#1=hang", "open#1=hang"}) {
        // Those who hang can be killed.
        const Ended ended = run({"--opens", "--fault", fault},
            DYNAMIC_CLIENT " get & sleep 0.3; " + set + get + "kill $!; wait $!; echo $?");
        EXPECT_EQ(ended.out, "set ok\n9\n143\n") << fault;
    }
}

TEST_P(FaultyWorld, HoldsWhatHangsUntilItEnds)
{
    for (const char* fault : {"GetLogLevel=hang", "GetLogLevel=delay:1000s", "open=hang"}) {
        MarkedWorld world(
            in_world({"/bin/sh", "-c", "for i in 1 2 3 4 5 6 7 8; do " STATIC_CLIENT " get & done; sleep 0.3; exit 5"},
                {"--opens", "--fault", fault}));
        const Ended ended = world.process().wait();
        EXPECT_EQ(ended.status, 5) << fault;
        EXPECT_EQ(ended.out, "");
        world.expect_gone();
    }
}

TEST_P(FaultyWorld, IsNotMadeOfFaultsThatMakeNoSense)
{
    const Ended ended = run({"--fault", "GetLifs=EIO", "--fault", "GetLifs#0=EIO"}, "echo run");
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(
        ended.err, "lumozeph-emulator: column 9 of 'GetLifs#0=EIO': expected which of these commands, from 1 on\n");
    EXPECT_EQ(run({"--fault", "open=EACCES"}, "echo run").err,
        "lumozeph-emulator: column 1 of 'open=EACCES': opens can be at fault in a world with --opens only: elsewhere "
        "they "
        "are not seen\n");
    for (const char* seed : {"-1", "18446744073709551616", "1.5", ""}) {
        const Ended wrong = run({"--seed", seed}, "echo run");
        EXPECT_EQ(wrong.status, 125);
        EXPECT_THAT(wrong.err,
            testing::StartsWith("lumozeph-emulator: --seed: expected a number from 0 to 18446744073709551615, not '" +
                                std::string(seed) + "'\n"));
    }
}

} // namespace
