// Port connections.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::connections {

inline constexpr Text name {"name", 64, 64};
inline constexpr Text text1 {"text1", 128, 16};
inline constexpr Text text2 {"text2", 144, 18};
inline constexpr Text text3 {"text3", 162, 32};
inline constexpr Text text4 {"text4", 194, 256};

// What was sent, as far as there is room.
namespace record {
inline constexpr Text name {"name", 0, 64};
inline constexpr Text text1 {"text1", 64, 16};
inline constexpr Text text2 {"text2", 80, 18};
inline constexpr Text text3 {"text3", 98, 32};
inline constexpr UnterminatedText text4 {"text4", 130, 22};
inline constexpr Layout layout = fields_in<152, name, text1, text2, text3, text4>;
} // namespace record

inline constexpr std::size_t dump_size = 131072;
inline constexpr std::size_t most = dump_size / record::layout.size;

inline constexpr Mac mac {"mac", 0};
inline constexpr U32 value {"value", 0};

inline constexpr Command commands[] = {
    {15, "PlumbLumoConnection", request<name, text1, text2, text3, text4>, no_reply},
    {16, "UnPlumbLumoConnection", request<name>, no_reply},
    {17, "GetConnections", request<>, list(record::layout, most)},
    {18, "GetConnection", request<name>, one(record::layout)},
    {85, "LUMODevCheckConnDeletion", no_input, one(bare<value>)},
    {149, "GetVMAC", request<name>, one(bare<mac>)},
};

} // namespace emulator::protocol::connections
