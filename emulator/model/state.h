// What the module keeps, and how its commands are described.
#pragma once

#include "emulator/model/wire.h"

#include <cerrno>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace emulator {

struct Instance
{
    std::string name;
    std::string uuid;
    std::uint32_t value1 = 0;
    std::string text;
    std::uint32_t value2 = 0;
    std::string tunables;
    std::uint32_t tunables_value = 0;
};

struct State
{
    std::uint32_t log_level = 4;
    std::uint32_t extended_log_level = 0;
    std::uint32_t stats_level = 1;
    std::uint32_t tx_disp_queue_size = 1024;

    std::vector<Instance> instances; // in the order in which they were created
    std::uint64_t instances_created = 0;

    // By name or by UUID text; null if there is none.
    Instance* find_instance(const std::string& key);
};

// One command on its way through the module.
struct Exchange
{
    State& state;
    Request request;
    std::uint32_t room;
    std::vector<std::byte> reply;
};

inline constexpr std::size_t request_record = 776;

struct Command
{
    std::uint32_t number;
    std::size_t input; // the length of the input that the command demands
    int (*answer)(Exchange& exchange);
};

// The commands of each family, by rising number.
std::span<const Command> setting_commands();
std::span<const Command> instance_commands();

} // namespace emulator
