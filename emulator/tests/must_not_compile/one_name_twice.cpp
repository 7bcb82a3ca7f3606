// Two fields of one record with the same name. Diagnosed: two_fields_have_one_name
#include "emulator/protocol/layout.h"

using namespace emulator::protocol;

#ifdef WRONG
#define SECOND "value1"
#else
#define SECOND "value2"
#endif

inline constexpr U32 first_value {"value1", 0};
inline constexpr U32 second_value {SECOND, 4};
constexpr Layout record = fields_in<8, first_value, second_value>;
