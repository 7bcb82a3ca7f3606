// Shows the module's run-time settings, or sets one.
//
//     levels
//     levels NAME VALUE
//
// Exits 0 on success, 1 when something fails, 2 on wrong usage.
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <iostream>
#include <lumozeph.h>
#include <string_view>
#include <system_error>

struct Setting
{
    const char* name;
    std::int32_t (*get)(std::uint32_t*);
    std::int32_t (*set)(std::uint32_t);
};

static constexpr Setting settings[] = {
    {"log", LUMOZEPH_GetLogLevel, LUMOZEPH_SetLogLevel},
    {"extended-log", LUMOZEPH_GetExtendedLogLevel, LUMOZEPH_SetExtendedLogLevel},
    {"statistics", LUMOZEPH_GetStatsLevel, LUMOZEPH_SetStatsLevel},
    {"transmit-queue", LUMOZEPH_GetTxDispQueueSize, LUMOZEPH_SetTxDispQueueSize},
};

static int usage()
{
    std::cerr << "usage: levels [NAME VALUE]\nNAME is one of:";
    for (const Setting& setting : settings)
        std::cerr << ' ' << setting.name;
    std::cerr << '\n';
    return 2;
}

// Says what was tried, on what, and why it failed.
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    std::cerr << "levels: " << what << ' ' << name << ": " << std::strerror(error) << hint << '\n';
    return 1;
}

static int show_all()
{
    for (const Setting& setting : settings) {
        std::uint32_t value = 0;
        if (setting.get(&value) != 0)
            return failed("read", setting.name);
        std::cout << std::left << std::setw(16) << setting.name << value << '\n';
    }
    return std::cout.flush() ? 0 : failed("write", "to standard output");
}

static int set(std::string_view name, std::string_view text)
{
    std::uint32_t value = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    if (parsed.ec != std::errc {} || parsed.ptr != text.data() + text.size())
        return usage();
    for (const Setting& setting : settings)
        if (setting.name == name)
            return setting.set(value) == 0 ? 0 : failed("set", setting.name);
    return usage();
}

int main(int argc, char** argv)
{
    if (argc == 1)
        return show_all();
    if (argc == 3)
        return set(argv[1], argv[2]);
    return usage();
}
