#include "emulator/supervisor/output.h"

#include "emulator/supervisor/failure.h"

#include <unistd.h>

namespace emulator {

void print(std::string_view text)
{
    if (!write_all(STDOUT_FILENO, text))
        fail("cannot write to the standard output");
}

} // namespace emulator
