// Every field of a LIF, read as a program in C reads it.
#pragma once

#include <cstdint>
#include <cstring>
#include <lumozeph_inline.h>

namespace fields {

inline std::uint64_t sum_of(const std::uint8_t* bytes, std::size_t size)
{
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < size; ++i)
        sum += bytes[i];
    return sum;
}

inline std::uint64_t sum_of(const LumoLifInfo& lif)
{
    std::uint64_t sum = strnlen(lif.lifName, 64) + strnlen(lif.lifSecondName, 64);
    sum += std::uint64_t {lif.ipAddr} + lif.ipMask + lif.diIp + lif.lifValue1 + lif.lifValue2 + lif.lifValue3;
    sum += sum_of(lif.lifMac, 6) + sum_of(lif.lifFlags, 4);
    return sum + lif.lifState1 + lif.lifState2 + lif.lifValue4;
}

inline std::uint64_t sum_of(const LumoLifIpv6Addr& address)
{
    return sum_of(address.address, 16) + address.prefixLen + address.value;
}

inline std::uint64_t sum_of(const LumoDhcpRelayServer& server)
{
    return sum_of(server.address, 16) + server.family;
}

} // namespace fields
