// Two fields of one request that share bytes. Diagnosed: two fields of one request overlap
#include "channel/request.h"

#ifdef WRONG
constexpr std::size_t second = 66;
#else
constexpr std::size_t second = 68;
#endif

constexpr lumo::Number<64, uint32_t> first_value;
constexpr lumo::Number<second, uint16_t> second_value;

lumo::Request request()
{
    return lumo::Request(first_value(uint32_t {1}), second_value(uint16_t {2}));
}
