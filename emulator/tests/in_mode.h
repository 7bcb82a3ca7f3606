// What tests of a world's modes share.
#pragma once

#include "emulator/tests/processes.h"

// A folder that goes with the test.
class Folder
{
public:
    explicit Folder(mode_t mode)
    {
        std::string name = std::filesystem::temp_directory_path() / "lumozeph-test-XXXXXX";
        path_ = mkdtemp(name.data());
        std::filesystem::permissions(path_, std::filesystem::perms(mode));
    }
    ~Folder()
    {
        // Others may be leaving it just now.
        std::error_code error;
        for (int i = 0; i < 100 && std::filesystem::exists(path_); ++i)
            std::filesystem::remove_all(path_, error);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// Lines of a script.
inline const std::string set = DYNAMIC_CLIENT " set 9; ";
inline const std::string get = DYNAMIC_CLIENT " get; ";

inline const auto modes = testing::Values("namespaces", "injection");

// In each mode that the machine offers.
class InMode : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        if (const std::string why = refusal_of(GetParam()); !why.empty())
            GTEST_SKIP() << why;
    }

    static Words in_world(const Words& program, const Words& options = {})
    {
        Words all {"--mode", GetParam()};
        all.insert(all.end(), options.begin(), options.end());
        return ::in_world(all, program);
    }
    static Ended run(const Words& program) { return Process(in_world(program)).wait(); }
    static Ended shell(const std::string& script) { return run({"/bin/sh", "-c", script}); }
};

inline pid_t only_child_of(pid_t pid)
{
    const std::string process = std::to_string(pid);
    std::ifstream children("/proc/" + process + "/task/" + process + "/children");
    pid_t child = 0;
    children >> child;
    return child;
}

// A program in a world that can be told from all others, on the outside as well.
class MarkedWorld
{
public:
    explicit MarkedWorld(const Words& world) : process_(marked(world)) {}

    Process& process() { return process_; }
    void expect_gone() const { expect_none_with(mark()); }
    pid_t supervisor() const { return only_child_of(process_.pid()); }

    static std::string mark() { return "LUMOZEPH_TEST=" + std::to_string(getpid()); }

private:
    static Words marked(const Words& world)
    {
        Words words {"/usr/bin/env", mark()};
        words.insert(words.end(), world.begin(), world.end());
        return words;
    }

    Process process_;
};
