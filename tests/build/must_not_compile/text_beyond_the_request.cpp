// A text that does not fit behind its offset. Diagnosed: a field lies inside the request record
#include "channel/request.h"

#ifdef WRONG
constexpr std::size_t chosen_width = 65;
#else
constexpr std::size_t chosen_width = 64;
#endif

constexpr lumo::Text<712, chosen_width> name;

lumo::Request request(const char* text)
{
    return lumo::Request(name(text));
}
