// Prints the JSON schema of states.
#include "emulator/state/state_file.h"

#include <cstdio>

int main()
{
    std::fputs(emulator::json::print(emulator::schema_of_states()).c_str(), stdout);
}
