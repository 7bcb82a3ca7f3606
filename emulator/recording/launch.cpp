#include "emulator/recording/launch.h"

#include "emulator/door/preload.h"
#include "emulator/recording/recording.h"
#include "emulator/state/replaced_file.h"

#include <filesystem>

namespace emulator {

namespace {

constexpr Preloaded recorder {"recording/recorder.so", LUMOZEPH_LIBRARIES_FROM_PROGRAM "/lumozeph/recorder.so",
    "record", "", "nothing can be preloaded into it"};

} // namespace

int record_in_process(char** program, const std::string& file, int (*execute)(char** program))
{
    preload(recorder, program);
    const std::vector<std::byte> header = header_of_recording();
    ReplacedFile(file).replace({reinterpret_cast<const char*>(header.data()), header.size()});
    set_environment("LUMOZEPH_RECORDING", std::filesystem::absolute(file));
    return execute(program);
}

} // namespace emulator
