// Programs that are recorded, and run on what was recorded.
#include "emulator/tests/in_mode.h"

using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

// A recording, and what the emulator's verbs say of it.
class RecordingFile
{
protected:
    std::string file() const { return folder_.path() / "recording"; }
    Ended say(const std::string& verb) const { return Process({EMULATOR, verb, file()}).wait(); }

private:
    Folder folder_ {0700};
};

class Recorded : public InMode, protected RecordingFile
{
protected:
    Ended record(const std::string& script) const
    {
        return Process(in_world({"/bin/sh", "-c", script}, {"--record", file()})).wait();
    }
    Ended replay(const std::string& script, const Words& options = {}) const
    {
        Words words {EMULATOR, "replay", "--mode", GetParam(), file()};
        words.insert(words.end(), options.begin(), options.end());
        words.insert(words.end(), {"--", "/bin/sh", "-c", script});
        return Process(words).wait();
    }
};
INSTANTIATE_TEST_SUITE_P(Modes, Recorded, modes, [](const auto& mode) { return mode.param; });

TEST_P(Recorded, WorldsCanBeLookedAtLater)
{
    EXPECT_EQ(record(set + get + DYNAMIC_CLIENT " list-routes nowhere").out, "set ok\n9\nroutes ENOENT\n");
    EXPECT_THAT(say("decode").out, MatchesRegex(".* device_client_d SetLogLevel.level=9. = 0 <.*>\n"
                                                ".* device_client_d GetLogLevel.. = 0, .level=9. <.*>\n"
                                                ".*GetRoutes.instance=\"nowhere\". = -1 ENOENT .*\n"));
    EXPECT_EQ(say("decode").status, 0);
}

TEST_P(Recorded, ProgramsRunOnWhatWasRecorded)
{
    record(set + get);
    const Ended same = replay(set + get + "exit 3");
    EXPECT_EQ(same.out, "set ok\n9\n");
    EXPECT_EQ(same.err, "");
    EXPECT_EQ(same.status, 3);
    EXPECT_EQ(replay(set + get + "kill -9 $$").signal, SIGKILL);
}

TEST_P(Recorded, ProgramsThatDifferAreToldFrom)
{
    record(set + get);
    const Ended other = replay(DYNAMIC_CLIENT " set 8; " + get);
    EXPECT_EQ(other.out, "set EIO\nget EIO\n");
    EXPECT_EQ(other.err, "lumozeph-emulator: call 1, SetLogLevel, differs:\n  level: recorded 9, now 8\n");
    EXPECT_EQ(other.status, 123);
    EXPECT_EQ(replay(set).err, "lumozeph-emulator: call 2, GetLogLevel, was not made\n");
    const Ended matching = replay(get + get + set + "exit 3", {"--matching"});
    EXPECT_EQ(matching.out, "9\n9\nset ok\n");
    EXPECT_EQ(matching.status, 3);
}

TEST_P(Recorded, ProgramsThatCannotRunAreNotSaidToDiffer)
{
    record(set);
    for (const auto& [program, status] : {std::pair("/no/such/program", 127), std::pair("/", 126)}) {
        const Ended ended = Process({EMULATOR, "replay", "--mode", GetParam(), file(), "--", program}).wait();
        EXPECT_EQ(ended.status, status);
        EXPECT_THAT(ended.err, MatchesRegex(std::string("lumozeph-emulator: cannot run '") + program + "': [^\n]*\n"));
    }
    EXPECT_EQ(replay("exit 127").status, 123);
}

TEST_P(Recorded, LongRepliesAreWhole)
{
    const std::string list = DYNAMIC_CLIENT " list-routes blue | cut -c1-9";
    Process(in_world({"/bin/sh", "-c", list}, {"--record", file(), "--load", WORLDS "/host.json"})).wait();
    EXPECT_GT(std::filesystem::file_size(file()), 8000U * 668);
    EXPECT_EQ(replay(list).out, "routes ok\n");
    EXPECT_THAT(say("decode").out, HasSubstr(", 7996 more]"));
    const Ended compared = Process({EMULATOR, "compare", "--load", WORLDS "/host.json", file()}).wait();
    EXPECT_EQ(compared.out, "0 of 1 calls differ\n");
}

TEST_P(Recorded, WorldsAreTestsOfTheModel)
{
    record(set + get);
    const Ended same = say("compare");
    EXPECT_EQ(same.out, "0 of 2 calls differ\n");
    EXPECT_EQ(same.status, 0);
    Process(in_world({"/bin/sh", "-c", get}, {"--record", file(), "--fault", "GetLogLevel=short:3"})).wait();
    const Ended other = say("compare");
    EXPECT_THAT(other.out, HasSubstr("  reply length: recorded 3, the model 4\n  records: recorded 0, the model 1\n"));
    EXPECT_THAT(other.out, HasSubstr("\n1 of 1 calls differ\n"));
    EXPECT_EQ(other.status, 1);
}

TEST_P(Recorded, WhatIsCutIsUsedAsFarAsItGoes)
{
    record(set + get);
    std::filesystem::resize_file(file(), 120);
    const Ended decoded = say("decode");
    EXPECT_THAT(decoded.out, MatchesRegex(".*SetLogLevel.*\n"));
    EXPECT_EQ(decoded.err, "lumozeph-emulator: " + file() +
                               ": entry 2, at byte 116: it ends within an entry; what is before that is used\n");
    EXPECT_EQ(decoded.status, 1);
}

TEST_P(Recorded, SaysWhenItIsNotComplete)
{
    const Ended ended = Process(in_world({DYNAMIC_CLIENT, "get"}, {"--record", "/dev/full"})).wait();
    EXPECT_EQ(ended.out, "4\n");
    EXPECT_EQ(ended.err, "lumozeph-emulator: the recording is not complete: No space left on device\n");
}

// A world is the host.
class PassedThrough : public testing::Test, protected RecordingFile
{
protected:
    void SetUp() override
    {
        if (INSTRUMENTED)
            GTEST_SKIP() << "a sanitizer's library must be loaded first";
        if (const std::string why = refusal_of("namespaces"); !why.empty())
            GTEST_SKIP() << why;
    }

    Ended on_host(const Words& program) const
    {
        Words words {EMULATOR, "record", "--pass-through", file(), "--"};
        words.insert(words.end(), program.begin(), program.end());
        return Process(in_world({"--mode", "namespaces"}, words)).wait();
    }
};

TEST_F(PassedThrough, ProgramsGetWhatTheModuleAnswers)
{
    const std::string script = set + get + DYNAMIC_CLIENT " bad-pointers; " DYNAMIC_CLIENT " other-files; " +
                               DYNAMIC_CLIENT " get-upgrade; exit 3";
    const Ended alone = Process(in_world({"--mode", "namespaces"}, {"/bin/sh", "-c", script})).wait();
    const Ended recorded = on_host({"/bin/sh", "-c", script});
    EXPECT_EQ(recorded.out, alone.out);
    EXPECT_EQ(recorded.err, alone.err);
    EXPECT_EQ(recorded.status, 3);
    EXPECT_THAT(say("decode").out,
        MatchesRegex(".* device_client_d SetLogLevel.level=9. = 0 <.*>\n.*GetLogLevel.. = 0, .level=9. <.*>\n"
                     ".*GetLogLevel.envelope unreadable. = -1 EFAULT .*\n"
                     ".*SetLogLevel.input of 4 bytes unreadable. = -1 EFAULT .*\n"
                     ".*GetLogLevel.. = -1 EFAULT .*\n.*GetLogLevel.. = -1 ENOBUFS .*\n"
                     ".*GetLogLevel.. = 0, .level=9. <.*>\n"));
    EXPECT_EQ(say("compare").out, "0 of 4 calls differ\n");
}

TEST_F(PassedThrough, ManyThreadsAndProcessesWriteOneRecording)
{
    const std::string script = DYNAMIC_CLIENT " threads & " DYNAMIC_CLIENT " threads; wait";
    EXPECT_EQ(on_host({"/bin/sh", "-c", script}).out, "0 failures\n0 failures\n");
    const Ended decoded = say("decode");
    EXPECT_EQ(decoded.status, 0) << decoded.err;
    EXPECT_EQ(std::count(decoded.out.begin(), decoded.out.end(), '\n'), 1600);
}

TEST_F(PassedThrough, StaticProgramsAreRefused)
{
    const Ended ended = on_host({STATIC_CLIENT, "get"});
    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.err, "lumozeph-emulator: cannot record '" STATIC_CLIENT
                         "': it is linked statically; nothing can be preloaded into it\n");
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(PassedThrough, IsAskedForByName)
{
    const Ended ended = Process({EMULATOR, "record", file(), "--", "/bin/true"}).wait();
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.err, HasSubstr("--pass-through is required"));
}

} // namespace
