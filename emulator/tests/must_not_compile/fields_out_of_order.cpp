// Fields in another order than that in which they lie. Diagnosed: fields_overlap_or_are_out_of_order
#include "emulator/protocol/request.h"

using namespace emulator::protocol;

inline constexpr U32 first_value {"value1", 64};
inline constexpr U32 second_value {"value2", 68};
#ifdef WRONG
constexpr Layout input = request<second_value, first_value>;
#else
constexpr Layout input = request<first_value, second_value>;
#endif
