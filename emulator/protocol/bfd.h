// BFD sessions and port connections.
#pragma once

#include "emulator/protocol/bridges.h"

namespace emulator::protocol::bfd {

inline constexpr std::size_t most_sessions = 2867200;

using bridges::key;

namespace session_record {
inline constexpr U16 value1 {"value1", 0};
inline constexpr Mac addr1 {"addr1", 2};
inline constexpr Mac addr2 {"addr2", 8};
inline constexpr U32 value2 {"value2", 14};
inline constexpr U8 value3 {"value3", 18};
inline constexpr U32 value4 {"value4", 19};
inline constexpr U64 value5 {"value5", 23};
inline constexpr U64 value6 {"value6", 31};
inline constexpr Layout layout = fields_in<39, value1, addr1, addr2, value2, value3, value4, value5, value6>;
} // namespace session_record

inline constexpr Text port {"port", 64, 64};
inline constexpr Text text {"text", 128, 16};
inline constexpr Mac mac {"mac", 144};

// What was sent.
namespace record {
inline constexpr Text port {"port", 0, 64};
inline constexpr Text text {"text", 64, 16};
inline constexpr Mac mac {"mac", 80};
inline constexpr Layout layout = fields_in<152, port, text, mac>;
} // namespace record

inline constexpr std::size_t dump_size = 131072;
inline constexpr std::size_t most = dump_size / record::layout.size;

inline constexpr Command commands[] = {
    {96, "GetBridgeBFDSessions", request<key>, list(session_record::layout, most_sessions)},
    {97, "PlumbBFDPortConnection", request<port, text, mac>, no_reply},
    {98, "UnPlumbBFDPortConnection", request<port>, no_reply},
    {99, "GetBFDPortConnections", request<>, list(record::layout, most)},
};

} // namespace emulator::protocol::bfd
