// What tests of worlds with names share.
#pragma once

#include "emulator/tests/in_mode.h"

// The commands of a user whose XDG_RUNTIME_DIR is a folder of the test's.
class Named : public InMode
{
protected:
    Words emulator(const Words& words) const
    {
        Words all {"/usr/bin/env", "XDG_RUNTIME_DIR=" + runtime_.path().string(), mark_, EMULATOR};
        all.insert(all.end(), words.begin(), words.end());
        return all;
    }

    Ended say(const Words& words) const { return Process(emulator(words)).wait(); }

    Words serve(const std::string& name) const { return emulator({"serve", "--mode", GetParam(), "--world", name}); }

    Ended join(const std::string& name, const Words& program) const
    {
        Words words {"join", name, "--"};
        words.insert(words.end(), program.begin(), program.end());
        return say(words);
    }

    void wait_for(const std::string& name) const
    {
        const std::string line = name + " " + GetParam() + "\n";
        for (int i = 0; i < 500 && say({"list"}).out.find(line) == std::string::npos; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    std::filesystem::path folder() const { return runtime_.path() / "lumozeph-emulator"; }

    void expect_nothing_left() const
    {
        expect_none_with(mark_);
        for (int i = 0; i < 100 && std::filesystem::exists(folder()); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_FALSE(std::filesystem::exists(folder()));
    }

    const std::string mark_ = "LUMOZEPH_TEST=" + std::to_string(getpid());
    Folder runtime_ {0700};
};
