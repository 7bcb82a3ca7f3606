// The result of an operation that failed before or after its device call.
#pragma once

#include <cerrno>
#include <cstdint>

namespace lumo {

// The one place where the library sets errno. A failed device call keeps the errno of the system call instead.
inline int32_t fail(int error)
{
    errno = error;
    return -1;
}

template <class... Pointers>
constexpr bool any_null(const Pointers*... arguments)
{
    return (... || (arguments == nullptr));
}

} // namespace lumo
