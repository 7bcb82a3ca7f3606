#include "emulator/supervisor/check.h"

#include "emulator/faults/faults.h"
#include "emulator/model/module.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/options.h"
#include "emulator/supervisor/output.h"

#include <array>
#include <fcntl.h>
#include <fmt/core.h>
#include <string>
#include <sys/ioctl.h>

namespace emulator {

namespace {

// Asks for a setting, from inside a world. Returns an exit status.
int ask_once()
{
    using namespace protocol;
    const int device = open(normal_path.data(), O_RDWR | O_CLOEXEC);
    std::array<std::byte, levels::level.width> level {};
    std::array<std::byte, envelope::layout.size> bytes {};
    const Record sent(bytes);
    sent[envelope::out_len] = level.size();
    sent[envelope::out_ptr] = reinterpret_cast<std::uintptr_t>(level.data());
    return device >= 0 && ioctl(device, number_of("GetLogLevel"), bytes.data()) >= 0 ? 0 : 1;
}

// Why no world of this kind can be made here; empty if one can.
std::string refusal(Mode mode)
{
    try {
        Module module;
        Faults none;
        Wishes wishes;
        wishes.mode = mode;
        const Ending ending = run_in_world(module, none, wishes, ask_once);
        if (ending.signal == 0 && ending.status == 0)
            return {};
        return "the supervisor may not read the memory of its children";
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

int check()
{
    const char* best = nullptr;
    for (const auto& [name, mode] : modes) {
        const std::string why = refusal(mode);
        print(fmt::format("{}: {}\n", name, why.empty() ? "works" : why));
        if (why.empty() && best == nullptr)
            best = name;
    }
    if (best == nullptr) {
        fmt::print(stderr, "lumozeph-emulator: this machine cannot run the emulator\n");
        return emulator_failed;
    }
    print(fmt::format("this machine can run the emulator; it uses {}\n", best));
    return 0;
}

} // namespace emulator
