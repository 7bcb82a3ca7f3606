// Programs started by tests, and what becomes of them.
#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <grp.h>
#include <iterator>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

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

inline std::string content_of(int file)
{
    std::string content;
    std::array<char, 4096> piece {};
    lseek(file, 0, SEEK_SET);
    for (ssize_t length = 0; (length = read(file, piece.data(), piece.size())) > 0;)
        content.append(piece.data(), static_cast<std::size_t>(length));
    return content;
}

inline std::string content_of(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A process that has been started, with its output in memory.
class Process
{
public:
    explicit Process(const Words& words, User user = User::Self)
        : out_(memfd_create("out", MFD_CLOEXEC)), err_(memfd_create("err", MFD_CLOEXEC))
    {
        // Those who share an offset of a file in memory and write at the same time would write to the same place.
        fcntl(out_, F_SETFL, O_APPEND);
        fcntl(err_, F_SETFL, O_APPEND);
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

    // Waits until the output holds this many lines: long, as machines may be busy.
    void wait_for_lines(std::ptrdiff_t lines) const
    {
        for (int i = 0; i < 4000; ++i) {
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

// Why the machine refuses worlds of this mode to this user; empty if it does not.
inline std::string refusal_of(const std::string& mode, User user = User::Self)
{
    std::istringstream lines(Process({EMULATOR, "check"}, user).wait().out);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(mode + ": "))
            return line.ends_with(": works") ? "" : line;
    return mode + ": not spoken of";
}

inline Words in_world(const Words& options, const Words& program)
{
    Words words {EMULATOR, "run"};
    words.insert(words.end(), options.begin(), options.end());
    words.emplace_back("--");
    words.insert(words.end(), program.begin(), program.end());
    return words;
}

// The processes that were started with this variable in their environment, in whatever namespace they are. A zombie has
// ended, whoever is to reap it.
inline std::vector<pid_t> processes_with(const std::string& variable)
{
    const std::string whole = variable + '\0';
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (!std::all_of(name.begin(), name.end(), [](char letter) { return std::isdigit(letter) != 0; }))
            continue;
        std::ifstream environment(entry.path() / "environ");
        const std::string text {std::istreambuf_iterator<char>(environment), {}};
        if (text.find(whole) != std::string::npos)
            found.push_back(std::stoi(name));
    }
    return found;
}

inline void expect_none_with(const std::string& variable)
{
    for (int i = 0; i < 500 && !processes_with(variable).empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_THAT(processes_with(variable), testing::IsEmpty());
}
