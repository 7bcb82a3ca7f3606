#include "emulator/door/launch.h"

#include "emulator/door/preload.h"
#include "emulator/faults/faults.h"
#include "emulator/state/state_file.h"

#include <filesystem>
#include <fmt/format.h>
#include <string>

namespace emulator {

namespace {

#define DOOR "liblumozeph-emulator.so." LUMOZEPH_EMULATOR_SOVERSION
constexpr Preloaded door {
    "door/" DOOR, LUMOZEPH_LIBRARIES_FROM_PROGRAM "/" DOOR, "run", " in process", "without --in-process it can"};
#undef DOOR

} // namespace

int run_in_process(char** program, const Inside& inside, int (*execute)(char** program))
{
    preload(door, program);
    if (inside.settings.strictness == Strictness::Lenient)
        set_environment("LUMOZEPH_EMULATOR_LENIENT", "1");
    if (!inside.state.empty()) {
        Module module(inside.settings);
        load_state(module, inside.state); // which is refused here and not in the program
        set_environment("LUMOZEPH_EMULATOR_STATE", std::filesystem::absolute(inside.state));
    }
    if (inside.settings.clock == Clock::Manual)
        set_environment("LUMOZEPH_EMULATOR_CLOCK", "manual");
    if (!inside.faults.empty()) {
        Faults faults;
        for (const std::string& fault : inside.faults)
            faults.add(fault); // as above
        set_environment("LUMOZEPH_EMULATOR_FAULTS", fmt::format("{}", fmt::join(inside.faults, " ")));
        set_environment("LUMOZEPH_EMULATOR_SEED", std::to_string(inside.seed));
    }
    return execute(program);
}

} // namespace emulator
