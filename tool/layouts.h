// What raw replies look like. The library leaves that to the module; these are the layouts of the emulated one.
#pragma once

#include "tool/description.h"

#include <string_view>

namespace tool {

enum class Repeated
{
    Once,
    UntilZeros // an entry of nothing but zeros is the first that is not there
};

struct RawLayout
{
    std::string_view operation;
    Repeated repeated;
    Record record;
};

// Null if nothing is known of it.
const RawLayout* find_layout(std::string_view operation);
std::span<const RawLayout> layouts();

} // namespace tool
