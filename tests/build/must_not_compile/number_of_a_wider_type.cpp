// A number that would be cut. Diagnosed: no match
#include "channel/request.h"

constexpr lumo::Number<64, uint16_t> value;

#ifdef WRONG
using Argument = uint32_t;
#else
using Argument = uint16_t;
#endif

lumo::Request request(Argument argument)
{
    return lumo::Request(value(argument));
}
