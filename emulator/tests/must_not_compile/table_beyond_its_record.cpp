// A table of more entries than its record has room for. Diagnosed: a_field_lies_outside
#include "emulator/protocol/layout.h"

using namespace emulator::protocol;

#ifdef WRONG
constexpr std::size_t entries = 4;
#else
constexpr std::size_t entries = 3;
#endif

inline constexpr Table values {"values", 4, elements<U64>, entries};
constexpr Layout record = fields_in<28, values>;
