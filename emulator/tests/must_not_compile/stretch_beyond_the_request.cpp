// A stretch of the request that goes on where the request has ended. Diagnosed: a_field_lies_outside
#include "emulator/protocol/request.h"

using namespace emulator::protocol;

#ifdef WRONG
constexpr std::size_t width = 585;
#else
constexpr std::size_t width = 584;
#endif

constexpr auto sent = stretch<width>(addressed::lif);
