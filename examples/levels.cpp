// Shows the module's run-time settings, or sets one.
//
//     levels
//     levels NAME VALUE
//
// Exits 0 on success, 1 when the module refuses, 2 on wrong usage.
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <lumozeph.h>
#include <string_view>
#include <system_error>

namespace {

struct Setting
{
    std::string_view name;
    std::int32_t (*get)(std::uint32_t*);
    std::int32_t (*set)(std::uint32_t);
};

constexpr Setting settings[] = {
    {"log", LUMOZEPH_GetLogLevel, LUMOZEPH_SetLogLevel},
    {"extended-log", LUMOZEPH_GetExtendedLogLevel, LUMOZEPH_SetExtendedLogLevel},
    {"statistics", LUMOZEPH_GetStatsLevel, LUMOZEPH_SetStatsLevel},
    {"transmit-queue", LUMOZEPH_GetTxDispQueueSize, LUMOZEPH_SetTxDispQueueSize},
};

int failed(std::string_view name)
{
    std::cerr << "levels: " << name << ": " << std::generic_category().message(errno) << '\n';
    return 1;
}

int usage()
{
    std::cerr << "usage: levels [NAME VALUE]\nNAME is one of:";
    for (const Setting& setting : settings)
        std::cerr << ' ' << setting.name;
    std::cerr << '\n';
    return 2;
}

int show_all()
{
    for (const Setting& setting : settings) {
        std::uint32_t value = 0;
        if (setting.get(&value) != 0)
            return failed(setting.name);
        std::cout << std::left << std::setw(16) << setting.name << value << '\n';
    }
    return 0;
}

int set(std::string_view name, std::string_view text)
{
    std::uint32_t value = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    if (parsed.ec != std::errc {} || parsed.ptr != text.data() + text.size())
        return usage();
    for (const Setting& setting : settings)
        if (setting.name == name)
            return setting.set(value) == 0 ? 0 : failed(name);
    return usage();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1)
        return show_all();
    if (argc == 3)
        return set(argv[1], argv[2]);
    return usage();
}
