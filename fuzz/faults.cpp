// Texts that are said to be faults: each strikes commands or opens, or is refused with the column of what is wrong.
#include "expect.h"

#include "emulator/faults/faults.h"
#include "emulator/protocol/commands.h"

#include <cctype>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::now_reading("fault");
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    emulator::Faults faults(0, emulator::Opens::Seen);
    try {
        faults.add(text);
    } catch (const emulator::FaultError& error) {
        constexpr std::string_view beginning = "column ";
        const std::string what = error.what();
        const std::size_t column =
            what.starts_with(beginning) ? std::strtoul(what.c_str() + beginning.size(), nullptr, 10) : 0;
        if (column < 1 || column > size + 1)
            fuzz::fail("a refusal without a column: " + what);
        return 0;
    }
    fuzz::expect_bytes("the list", faults.list(), std::string(text) + "\n");
    const emulator::Fault fault = emulator::parse_fault(text);
    fuzz::expect_equal("whether it is of something", fault.commands.empty() && !fault.is_of_opens, 0);
    for (const std::uint32_t number : fault.commands)
        faults.of_command(number);
    faults.of_open();
    return 0;
}
