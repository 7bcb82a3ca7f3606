// What options of command lines may say.
#pragma once

#include "emulator/supervisor/world.h"

#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <cstdint>
#include <fmt/format.h>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

namespace emulator {

// The better one first.
constexpr std::array<std::pair<const char*, Mode>, 2> modes {
    {{"namespaces", Mode::Namespaces}, {"injection", Mode::Injection}}};

constexpr std::array<std::pair<const char*, TraceFormat>, 2> formats {
    {{"text", TraceFormat::Text}, {"json", TraceFormat::Json}}};

constexpr std::array<std::pair<const char*, Clock>, 2> clocks {{{"real", Clock::Real}, {"manual", Clock::Manual}}};

// type: what stands for the words in the help.
template <class Choice>
CLI::Option* choose(CLI::Option* option, const char* type, const std::array<std::pair<const char*, Choice>, 2>& choices)
{
    const auto read = [choices](std::string& word) -> std::string {
        for (const auto& [name, choice] : choices)
            if (word == name) {
                word = std::to_string(static_cast<int>(choice));
                return {};
            }
        return fmt::format("expected {} or {}, not '{}'", choices[0].first, choices[1].first, word);
    };
    return option->type_name(type)->transform(CLI::Validator(read, ""));
}

inline CLI::Option* take_number(CLI::Option* option)
{
    const auto check = [](const std::string& word) -> std::string {
        std::uint64_t number = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (error == std::errc() && end == word.data() + word.size())
            return {};
        return fmt::format("expected a number from 0 to {}, not '{}'", std::numeric_limits<std::uint64_t>::max(), word);
    };
    return option->type_name("NUMBER")->check(check);
}

inline CLI::Option* take_seconds(CLI::Option* option)
{
    const auto check = [](const std::string& word) -> std::string {
        constexpr double most = 1e6;
        double seconds = -1;
        const bool is_number = CLI::detail::lexical_cast(word, seconds);
        return is_number && seconds >= 0 && seconds <= most
                   ? std::string()
                   : fmt::format("expected seconds from 0 to {:.0f}, not '{}'", most, word);
    };
    return option->type_name("SECONDS")->check(check);
}

} // namespace emulator
