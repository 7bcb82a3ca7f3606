#include "tool/failures.h"

#include "lumozeph.h"

#include <cerrno>
#include <cstring>
#include <fmt/format.h>

namespace tool {
namespace {

bool is_absence(int error)
{
    return error == ENOENT || error == ENODEV || error == ENXIO;
}

bool is_refusal(int error)
{
    return error == EACCES || error == EPERM;
}

// The errno of an operation that needs nothing but the module.
int error_without_an_object()
{
    std::uint32_t level = 0;
    errno = 0;
    return LUMOZEPH_GetLogLevel(&level) == 0 ? 0 : errno;
}

std::string_view advice(int error)
{
    const bool may_be_the_device = is_absence(error) || is_refusal(error);
    const bool is_the_device = may_be_the_device && error_without_an_object() == error;
    if (is_the_device && is_absence(error))
        return "the device of the module is not there: is the module loaded on this host?";
    if (is_the_device)
        return "this user may not open the device of the module";
    if (is_absence(error))
        return "the module is there, and knows no such object";
    switch (error) {
    case EINVAL:
        return "the values make no sense to the library or to the module";
    case EEXIST:
        return "it is there already";
    case EBUSY:
        return "something still uses it";
    case EBADMSG:
        return "the reply of the module is malformed: do its version and that of the library fit?";
    case ENOTTY:
        return "the module does not know this command: do its version and that of the library fit?";
    default:
        return {};
    }
}

} // namespace

std::string name_of(int error)
{
    const char* const name = strerrorname_np(error);
    return name ? name : fmt::format("{}", error);
}

Failure failure(const std::string& attempt, std::string_view operation, int error)
{
    const std::string reason =
        error == 0 ? "the library gives no reason" : fmt::format("{} ({})", strerrordesc_np(error), name_of(error));
    return {fmt::format("{}: {}", attempt, reason), std::string(operation), error, std::string(advice(error))};
}

} // namespace tool
