// Arguments for any operation.
#pragma once

#include "tool/description.h"

#include <string>

namespace tool {

// A value that the parameter may have.
inline std::string sample(const Parameter& parameter)
{
    switch (parameter.input) {
    case Input::Text:
        return "x";
    case Input::Number:
    case Input::SignedNumber:
        return "1";
    case Input::Ipv4:
        return "10.0.0.1";
    case Input::Ipv6Word:
        return "2001:db8::1";
    case Input::Mac:
        return "02:00:00:00:00:01";
    case Input::Bytes:
        return std::string(2 * parameter.size, '0');
    case Input::Record:
        return "{}";
    case Input::Records:
        return "[]";
    }
    return {};
}

} // namespace tool
