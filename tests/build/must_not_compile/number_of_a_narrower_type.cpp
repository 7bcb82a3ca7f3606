// A number that would be extended. Diagnosed: no match
#include "channel/request.h"

constexpr lumo::Number<64, uint32_t> value;

#ifdef WRONG
using Argument = uint8_t;
#else
using Argument = uint32_t;
#endif

lumo::Request request(Argument argument)
{
    return lumo::Request(value(argument));
}
