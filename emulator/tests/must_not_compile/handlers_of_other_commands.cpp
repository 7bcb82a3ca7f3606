// Handlers that are not those of the commands described. Diagnosed: handlers_are_not_those_of_the_commands
#include "emulator/model/handlers.h"

using namespace emulator;

#ifdef WRONG
#define SECOND "GetRoutes"
#else
#define SECOND "DelRoute"
#endif

int answer(Exchange&);

constexpr protocol::Command commands[] = {{34, "SetRoute", {}, {}}, {35, "DelRoute", {}, {}}};
constexpr Handler answers[] = {{"SetRoute", answer}, {SECOND, answer}};
constexpr Handlers routes(commands, answers);
