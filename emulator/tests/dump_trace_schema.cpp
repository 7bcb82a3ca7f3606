// Prints the JSON schema of the lines of traces.
#include "emulator/trace/schema.h"

#include <cstdio>

int main()
{
    std::fputs(emulator::json::print(emulator::schema_of_traces()).c_str(), stdout);
}
