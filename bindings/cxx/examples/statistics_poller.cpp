// Shows by how much the counters of the logical interfaces (LIFs) of an instance grow.
//
//     statistics_poller INSTANCE MILLISECONDS COUNT
//
// Reads them COUNT times, every so many milliseconds, and prints what has changed since the last time. A LIF that cannot
// be read is told and tried again. Exits 0 if every LIF was read in the end, 1 if not, 2 on wrong usage.
#include <array>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <lumozeph.hpp>
#include <map>
#include <thread>

namespace {

using Counters = std::array<std::uint64_t, LUMOZEPH_STATS_COUNTERS>;

// A counter that is less than before has been zeroed in between.
void print_growth(const std::string& lif, const Counters& before, const Counters& now)
{
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != before[i])
            std::cout << lif << ": counter " << i << " +" << (now[i] > before[i] ? now[i] - before[i] : now[i]) << '\n';
}

class Poller
{
public:
    explicit Poller(std::string instance) : instance_(std::move(instance)) {}

    // Whether all could be read.
    bool poll()
    {
        bool complete = true;
        lumozeph::lif_list lifs;
        if (const std::error_code code = lumozeph::try_get_lifs(instance_, lifs))
            return failed("the list", code);
        for (const auto& lif : lifs)
            complete = poll(std::string(lumozeph::text(lif.lifName))) && complete;
        std::cout << lifs.size() << " interfaces" << std::endl;
        return complete;
    }

private:
    bool poll(const std::string& lif)
    {
        if (const std::error_code code = lumozeph::try_get_lif_stats(instance_, lif, stats_))
            return failed(lif, code);
        Counters now;
        std::memcpy(now.data(), stats_->counters, sizeof now);
        if (const auto [known, is_new] = known_.try_emplace(lif, now); !is_new) {
            print_growth(lif, known->second, now);
            known->second = now;
        }
        return true;
    }

    static bool failed(const std::string& what, std::error_code code)
    {
        std::cerr << "statistics_poller: " << what << ": " << code.message() << '\n';
        return false;
    }

    std::string instance_;
    std::map<std::string, Counters> known_;
    lumozeph::owned_stats stats_;
};

} // namespace

int main(int argc, char** argv)
{
    const int milliseconds = argc == 4 ? std::atoi(argv[2]) : 0;
    const int count = argc == 4 ? std::atoi(argv[3]) : 0;
    if (milliseconds <= 0 || count <= 0) {
        std::cerr << "usage: statistics_poller INSTANCE MILLISECONDS COUNT\n";
        return 2;
    }
    Poller poller(argv[1]);
    bool complete = false;
    auto next = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        std::this_thread::sleep_until(next);
        next += std::chrono::milliseconds(milliseconds);
        complete = poller.poll();
    }
    return complete && std::cout ? 0 : 1;
}
