// Numbers at random, the same wherever they are asked for.
#pragma once

#include <cstdint>

namespace emulator {

// The number that comes at this place after the seed. Seeds and places that are near each other have nothing in common.
constexpr std::uint64_t chance(std::uint64_t seed, std::uint64_t place)
{
    std::uint64_t number = seed + (place + 1) * 0x9e3779b97f4a7c15;
    number = (number ^ number >> 30) * 0xbf58476d1ce4e5b9;
    number = (number ^ number >> 27) * 0x94d049bb133111eb;
    return number ^ number >> 31;
}

} // namespace emulator
