// A field of no width. Diagnosed: a field lies inside the request record
#include "channel/request.h"

#ifdef WRONG
constexpr std::size_t chosen_width = 0;
#else
constexpr std::size_t chosen_width = 1;
#endif

constexpr lumo::Bytes<64, chosen_width> block;

lumo::Request request(const void* bytes)
{
    return lumo::Request(block(bytes));
}
