// How a failed call is told: as an exception that names the operation, or as a code.
#pragma once

#include <cerrno>
#include <cstdint>
#include <system_error>

namespace lumozeph {

/** A call that failed: code() is its errno, operation() its name here, and what() says both. */
class error : public std::system_error
{
public:
    error(std::error_code code, const char* operation) : std::system_error(code, operation), operation_(operation) {}

    /** The name of the operation, which is that of its function: "get_lifs". */
    const char* operation() const noexcept { return operation_; }

private:
    const char* operation_;
};

namespace detail {

// Why the call before has failed. The one failure that leaves errno as it was is told as EOVERFLOW, to be no success.
inline std::error_code failure() noexcept
{
    return {errno != 0 ? errno : EOVERFLOW, std::system_category()};
}

inline std::error_code rejected() noexcept
{
    return {EINVAL, std::system_category()};
}

inline std::error_code code_of(std::int32_t result) noexcept
{
    return result == 0 ? std::error_code() : failure();
}

[[noreturn, gnu::cold, gnu::noinline]] inline void fail(const char* operation)
{
    throw error(failure(), operation);
}

inline void check(std::int32_t result, const char* operation)
{
    if (result != 0)
        fail(operation);
}

inline void check(std::error_code code, const char* operation)
{
    if (code)
        throw error(code, operation);
}

} // namespace detail

} // namespace lumozeph
