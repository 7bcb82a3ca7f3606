// A field whose last byte lies behind the 776 of the request. Diagnosed: a field lies inside the request record
#include "channel/request.h"

#ifdef WRONG
constexpr std::size_t chosen_offset = 773;
#else
constexpr std::size_t chosen_offset = 772;
#endif

constexpr lumo::Number<chosen_offset, uint32_t> value;

lumo::Request request()
{
    return lumo::Request(value(uint32_t {1}));
}
