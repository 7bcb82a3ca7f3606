// A field that goes on where the request has ended. Diagnosed: a_field_lies_outside
#include "emulator/protocol/request.h"

using namespace emulator::protocol;

#ifdef WRONG
constexpr std::size_t offset = 773;
#else
constexpr std::size_t offset = 772;
#endif

inline constexpr U32 last_value {"value", offset};
constexpr Layout input = request<last_value>;
