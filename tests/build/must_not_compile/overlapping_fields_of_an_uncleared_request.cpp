// The same in a request that is not cleared. Diagnosed: two fields of one request overlap
#include "channel/fields.h"

#ifdef WRONG
constexpr std::size_t second = 63;
#else
constexpr std::size_t second = 64;
#endif

constexpr lumo::Bytes<second, 6> address;

lumo::Request request(const char* key, const void* bytes)
{
    return lumo::Request(lumo::Request::Remainder::Uncleared, lumo::instance_key(key), address(bytes));
}
