// Two fields of one record that share bytes. Diagnosed: fields_overlap_or_are_out_of_order
#include "emulator/protocol/layout.h"

using namespace emulator::protocol;

#ifdef WRONG
constexpr std::size_t second = 66;
#else
constexpr std::size_t second = 68;
#endif

inline constexpr U32 first_value {"value1", 64};
inline constexpr U16 second_value {"value2", second};
constexpr Layout record = fields_in<72, first_value, second_value>;
