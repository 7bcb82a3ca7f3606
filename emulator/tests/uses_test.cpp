// What programs do with the device in a world, beside the same on a character device outside.
#include "emulator/tests/in_mode.h"

#include <map>
#include <set>

namespace {

using Results = std::map<std::string, std::string>;

Results results_of(const Ended& ended)
{
    EXPECT_EQ(ended.status, 0) << ended.err;
    Results results;
    std::istringstream lines(ended.out);
    std::string way;
    for (std::string result; lines >> way && std::getline(lines, result);)
        results[way] = result;
    return results;
}

// The ways that have another result, with their reasons.
const std::map<std::string, std::set<std::string>> differences {
    {"namespaces",
        {
            // The node is another's and its folder is the world's: neither can be changed.
            "use_chmod",
            "use_rmdir",
        }},
    {"injection",
        {
            // The device is in no directory.
            "open_as_directory",
            "open_beneath_its_folder",
            "open_by_a_link",
            "open_by_another_spelling",
            "open_in_its_folder",
            "use_access",
            "use_access_to_execute",
            "use_chdir",
            "use_chmod",
            "use_exec",
            "use_getxattr",
            "use_inotify",
            "use_lstat",
            "use_mkdir",
            "use_readlink",
            "use_realpath",
            "use_rmdir",
            "use_stat",
            "use_statx",
            "where_it_is_open",
            // Only opens for writing wait for the supervisor, and not those of a ring.
            "open_by_ring",
            "open_for_reading",
        }},
};

class Uses : public InMode
{};
INSTANTIATE_TEST_SUITE_P(Modes, Uses, modes, [](const auto& mode) { return mode.param; });

TEST_P(Uses, HaveTheResultsThatTheyHaveOnACharacterDevice)
{
    const Results outside = results_of(Process({USES, "/dev/null"}).wait());
    const Results inside = results_of(run({USES, "/pelt/devices/char/zephdriver/kola_lumo"}));
    EXPECT_GE(outside.size(), 40U);
    ASSERT_EQ(outside.size(), inside.size());
    for (const auto& [way, result] : outside) {
        if (differences.at(GetParam()).count(way) == 0) {
            EXPECT_EQ(inside.at(way), result) << way;
        } else {
            EXPECT_NE(inside.at(way), result) << way;
        }
    }
}

} // namespace
