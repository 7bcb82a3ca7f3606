// Programs run with the module preloaded, as a user runs them.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <elf.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

// A sanitizer's run-time library wants to be loaded before the door.
const std::string tolerant = "ASAN_OPTIONS=verify_asan_link_order=0 ";
const std::string in_process = tolerant + EMULATOR " run --in-process -- ";
const std::string in_world = tolerant + EMULATOR " run -- ";

struct Ended
{
    std::string output; // of both streams
    int status = -1;
    bool operator==(const Ended&) const = default;
};

void PrintTo(const Ended& ended, std::ostream* out)
{
    *out << "status " << ended.status << ", output:\n" << ended.output;
}

Ended shell(const std::string& script)
{
    std::FILE* const pipe = popen(("{ " + script + "\n} 2>&1 </dev/null").c_str(), "re");
    if (pipe == nullptr)
        return {};
    Ended ended;
    std::array<char, 4096> piece {};
    for (std::size_t length = 0; (length = std::fread(piece.data(), 1, piece.size(), pipe)) > 0;)
        ended.output.append(piece.data(), length);
    const int status = pclose(pipe);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return ended;
}

// A folder that goes with the test.
class Scratch
{
public:
    Scratch()
    {
        std::string name = (fs::temp_directory_path() / "in-process-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    ~Scratch() { fs::remove_all(path_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }

    std::string program(const std::string& name, const std::string& content) const
    {
        std::ofstream(file(name)) << content;
        chmod(file(name).c_str(), 0755);
        return file(name);
    }

private:
    fs::path path_;
};

class Clients : public testing::TestWithParam<const char*>
{};

TEST_P(Clients, SeeWhatTheySeeInAWorld)
{
    const std::string client = std::string(DYNAMIC_CLIENT " ") + GetParam();
    const Ended ended = shell(in_process + client);
    EXPECT_EQ(ended, shell(in_world + client));
    EXPECT_NE(ended.output, "");
}

INSTANTIATE_TEST_SUITE_P(Verbs, Clients,
    testing::Values("get", "get-upgrade", "get-relative", "set 9", "ioctl 9", "ioctl 70", "ioctl 105", "ioctl 150",
        "ioctl 255", "ioctl -1", "bad-pointers", "path-at-the-end-of-a-page", "dup", "close-on-exec", "threads",
        "other-files"),
    [](const auto& verb) {
        std::string name = verb.param;
        for (char& c : name)
            if (std::isalnum(static_cast<unsigned char>(c)) == 0)
                c = '_';
        return name;
    });

TEST(Door, IsNotThereForSystemCallsThatPassLibcBy)
{
    EXPECT_EQ(shell(in_process + DYNAMIC_CLIENT " openat2"), (Ended {"openat2 ENOENT\n", 1}));
}

TEST(Door, KeepsItsDescriptorsFromProgramsThatAreExecuted)
{
    EXPECT_EQ(shell(in_process + DYNAMIC_CLIENT " inherit"), (Ended {"inherited EBADF\n", 1}));
}

TEST(Door, IsThereForChildrenEachWithAModuleOfItsOwn)
{
    EXPECT_EQ(shell(in_process + "/bin/sh -c '" DYNAMIC_CLIENT " set 9; " DYNAMIC_CLIENT " get'"),
        (Ended {"set ok\n4\n", 0}));
}

TEST(Door, IsLenientIfAskedToBe)
{
    const std::string client = DYNAMIC_CLIENT " endpoint-of-no-bridge";
    EXPECT_EQ(shell(in_process + client), (Ended {"endpoint ENOENT\n", 1}));
    EXPECT_EQ(shell(tolerant + EMULATOR " run --lenient --in-process -- " + client), (Ended {"endpoint ok\n", 0}));
    EXPECT_EQ(shell("LUMOZEPH_EMULATOR_LENIENT=1 " + in_process + client), (Ended {"endpoint ok\n", 0}));
    EXPECT_EQ(shell("LUMOZEPH_EMULATOR_LENIENT= " + in_process + client), (Ended {"endpoint ENOENT\n", 1}));
}

TEST(Door, IsAtFaultIfAskedToBe)
{
    const std::string run = tolerant + EMULATOR " run --in-process ";
    const std::string twice = " -- /bin/sh -c '" DYNAMIC_CLIENT " set 9; exec " DYNAMIC_CLIENT " get'";
    EXPECT_EQ(
        shell(run + "--fault 'Set*=EBUSY' --fault any%0.5=EIO --seed 3" + twice).output.substr(0, 10), "set EBUSY\n");
    EXPECT_EQ(shell(run + "--fault 'Set*=EBUSY' --fault 9=ENODEV" + twice), (Ended {"set EBUSY\nget ENODEV\n", 1}));
    EXPECT_EQ(shell("LUMOZEPH_EMULATOR_FAULTS='Set*=EBUSY 9=ENODEV' " + in_process + DYNAMIC_CLIENT " get"),
        (Ended {"get ENODEV\n", 1}));
    EXPECT_EQ(shell(run + "--fault 'Set*=EBUSI'" + twice),
        (Ended {"lumozeph-emulator: column 6 of 'Set*=EBUSI': expected an errno such as EIO, short:BYTES, fragment, "
                "long, garbage, count:NUMBER, delay:TIME or hang\n",
            125}));
    const Ended opens = shell(run + "--fault open=EACCES" + twice);
    EXPECT_EQ(opens.status, 125);
    EXPECT_THAT(opens.output, HasSubstr("opens can be at fault in a world with --opens only"));
    const Ended wrong = shell("LUMOZEPH_EMULATOR_FAULTS=get=EIO " + in_process + DYNAMIC_CLIENT " get");
    EXPECT_NE(wrong.status, 0);
    EXPECT_THAT(wrong.output, HasSubstr("lumozeph-emulator: column 1 of 'get=EIO': expected"));
}

TEST(Door, WorksInsideAWorld)
{
    EXPECT_EQ(shell(in_world + EMULATOR " run --in-process -- " DYNAMIC_CLIENT " get"), (Ended {"4\n", 0}));
}

TEST(Door, ComesBeforeWhatIsPreloadedAlready)
{
    const Ended ended = shell("LD_PRELOAD=libdl.so.2 " + in_process + "/bin/sh -c 'echo \"$LD_PRELOAD\"'");
    EXPECT_THAT(ended.output, testing::MatchesRegex(".*/liblumozeph-emulator\\.so\\.[0-9.]+:libdl\\.so\\.2\n"));
}

TEST(ExitStatus, IsTheProgramsOwn)
{
    EXPECT_EQ(shell(in_process + "/bin/sh -c 'exit 42'").status, 42);
    EXPECT_EQ(shell(in_process + "/bin/sh -c 'kill -TERM $$'").status, 128 + 15);
}

TEST(ExitStatus, TellsWhyNothingWasRun)
{
    EXPECT_EQ(shell(in_process + "/no/such/program"),
        (Ended {"lumozeph-emulator: cannot run '/no/such/program': No such file or directory\n", 127}));
    EXPECT_EQ(shell(in_process + "no-such-program").status, 127);
    EXPECT_EQ(shell(in_process + "/dev"), (Ended {"lumozeph-emulator: cannot run '/dev': Permission denied\n", 126}));
}

TEST(Refused, AreTracesWhichOnlyAWorldWrites)
{
    const Ended ended = shell(EMULATOR " run --in-process --trace - -- /bin/true");
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.output, HasSubstr("--trace"));
}

class RefusedStatic : public testing::Test
{
protected:
    void SetUp() override
    {
        if (INSTRUMENTED)
            GTEST_SKIP() << "there are no static programs in a build with a sanitizer";
    }
};

TEST_F(RefusedStatic, Programs)
{
    EXPECT_EQ(shell(in_process + STATIC_CLIENT " get"),
        (Ended {"lumozeph-emulator: cannot run '" STATIC_CLIENT
                "' in process: it is linked statically; without --in-process it can\n",
            125}));
}

TEST_F(RefusedStatic, ProgramsOfScripts)
{
    const Scratch scratch;
    const Ended ended = shell(in_process + scratch.program("script", "#! " STATIC_CLIENT " get\n"));
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.output, HasSubstr(STATIC_CLIENT "' in process"));
}

TEST(Scripts, AreRun)
{
    const Scratch scratch;
    const std::string script = scratch.program("script", "#!/bin/sh\n" DYNAMIC_CLIENT " get\n");
    EXPECT_EQ(shell(in_process + script), (Ended {"4\n", 0}));
    EXPECT_EQ(shell("PATH=" + scratch.file("") + ":$PATH " + in_process + "script"), (Ended {"4\n", 0}));
}

TEST(Refused, AreProgramsOfAnotherArchitecture)
{
    const Scratch scratch;
    std::string content(512, '\0');
    std::ifstream("/bin/true", std::ios::binary).read(content.data(), static_cast<std::streamsize>(content.size()));
    content[offsetof(Elf64_Ehdr, e_machine)] = static_cast<char>(EM_S390);
    const Ended ended = shell(in_process + scratch.program("foreign", content));
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.output, HasSubstr("another architecture"));
}

TEST(Refused, AreProgramsThatChangeTheUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can make a program of another user's";
    const Scratch scratch;
    const std::string program = scratch.file("program");
    fs::copy_file(DYNAMIC_CLIENT, program);
    ASSERT_EQ(chown(program.c_str(), 65534, 65534), 0);
    for (const mode_t mode : {04755u, 02755u}) {
        ASSERT_EQ(chmod(program.c_str(), mode), 0);
        EXPECT_EQ(shell(in_process + program + " get"),
            (Ended {
                "lumozeph-emulator: cannot run '" + program + "' in process: it runs with other privileges\n", 125}));
    }
    ASSERT_EQ(chmod(program.c_str(), 0755), 0);
    EXPECT_EQ(shell(in_process + program + " get"), (Ended {"4\n", 0}));
}

TEST(Refused, IsALibraryInAFolderThatTheDynamicLinkerCannotName)
{
    const Scratch scratch;
    const std::string folder = scratch.file("with space");
    fs::create_directories(folder + "/door");
    fs::copy_file(EMULATOR, folder + "/lumozeph-emulator");
    const std::string run = "'" + folder + "/lumozeph-emulator' run --in-process -- /bin/true";
    EXPECT_THAT(shell(run).output, HasSubstr("cannot find 'liblumozeph-emulator.so"));
    fs::copy_file(LIBRARY, folder + "/door/liblumozeph-emulator.so.1");
    const Ended ended = shell(run);
    EXPECT_EQ(ended.status, 125);
    EXPECT_THAT(ended.output, HasSubstr("a space or a colon"));
}

} // namespace
