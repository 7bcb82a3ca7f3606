// Many clients at once, some of whom are killed, and calls that make no sense. Takes minutes.
#include "emulator/tests/in_mode.h"

#include <random>

namespace {

class Stress : public InMode
{
protected:
    void TearDown() override
    {
        std::ifstream mounts("/proc/self/mountinfo");
        const std::string all {std::istreambuf_iterator<char>(mounts), {}};
        EXPECT_EQ(all.find("/pelt/devices"), std::string::npos);
    }

    // Clients that are busy until they are told to stop.
    Words clients() const
    {
        return in_world({"/bin/sh", "-c",
            "busy() { while [ ! -e " + stop().string() +
                " ]; do " STRESS " busy 1 $1 || [ $? -eq 137 ] || echo failed; done; }\n"
                "echo ready; for i in 1 2 3 4 5 6 7 8; do busy $i & done; wait; " DYNAMIC_CLIENT " get"});
    }

    std::filesystem::path stop() const { return folder_.path() / "stop"; }

    // Kills one of the processes of this name that belong to the world; nobody if there is none.
    bool kill_one(const std::string& mark, const std::string& name)
    {
        std::vector<pid_t> found;
        for (const pid_t process : processes_with(mark)) {
            std::string its_name;
            std::ifstream("/proc/" + std::to_string(process) + "/comm") >> its_name;
            if (its_name == name)
                found.push_back(process);
        }
        return !found.empty() && kill(found[random_() % found.size()], SIGKILL) == 0;
    }

    const Folder folder_ {0700};
    std::mt19937 random_ {1};
};
INSTANTIATE_TEST_SUITE_P(Modes, Stress, modes, [](const auto& mode) { return mode.param; });

TEST_P(Stress, KilledClientsTakeNothingAlong)
{
    MarkedWorld world(clients());
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    int kills = 0;
    for (int i = 0; i < 5000 && (kills < 200 || std::chrono::steady_clock::now() < end); ++i) {
        kills += kill_one(world.mark(), "stress_client") ? 1 : 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(random_() % 100));
    }
    EXPECT_GE(kills, 200);
    std::ofstream(stop()).flush();
    const Ended ended = world.process().wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out.substr(ended.out.find('\n') + 1), "4\n");
    world.expect_gone();
}

TEST_P(Stress, KilledEmulatorsLeaveNothing)
{
    for (int i = 0; i < 200; ++i) {
        MarkedWorld world(clients());
        std::this_thread::sleep_for(std::chrono::milliseconds(random_() % 150));
        bool killed = false;
        for (int tries = 0; !killed && tries < 1000; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            killed = kill_one(world.mark(), "lumozeph-emulat");
        }
        const Ended ended = world.process().wait();
        ASSERT_TRUE(killed) << ended.err;
        world.expect_gone();
        if (HasFailure())
            return;
    }
}

long resident_memory_of(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    long kilobytes = 0;
    for (std::string word; status >> word;)
        if (word == "VmRSS:" && status >> kilobytes)
            break;
    return kilobytes;
}

TEST_P(Stress, CallsThatMakeNoSenseDoNoHarm)
{
    // What AddressSanitizer keeps aside is no growth.
    Words words = in_world({"/bin/sh", "-c",
        STRESS " garbage 100000; echo some; sleep 1; " STRESS " garbage 200000; echo all; sleep 1; exec " DYNAMIC_CLIENT
               " ioctl 9"});
    words.insert(words.begin(), "ASAN_OPTIONS=quarantine_size_mb=1:thread_local_quarantine_size_kb=64");
    MarkedWorld world(words);
    world.process().wait_for_lines(1);
    const long before = resident_memory_of(world.supervisor());
    world.process().wait_for_lines(2);
    EXPECT_LT(resident_memory_of(world.supervisor()), before + 16384);
    const Ended ended = world.process().wait();
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_EQ(ended.out, "some\nall\nioctl ok\n");
}

TEST_P(Stress, SlowAnswersHoldUpNoOpens)
{
    const Ended ended = run({STRESS, "slow", "300"});
    std::istringstream means(ended.out);
    double answer = 0;
    double open = 0;
    ASSERT_TRUE(means >> answer >> open) << ended.out;
    // Without this, each would wait for most of an answer.
    EXPECT_LT(open, std::max(answer / 3, 2000.0)) << answer;
}

} // namespace
