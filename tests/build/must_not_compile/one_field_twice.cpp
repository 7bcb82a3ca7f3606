// A field that is given twice. Diagnosed: two fields of one request overlap
#include "channel/request.h"

constexpr lumo::Text<64, 64> first;
#ifdef WRONG
constexpr lumo::Text<64, 64> second;
#else
constexpr lumo::Text<128, 64> second;
#endif

lumo::Request request(const char* text)
{
    return lumo::Request(first(text), second.if_given(text));
}
