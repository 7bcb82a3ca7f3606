// Router instances.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::instances {

inline constexpr std::size_t most = 1000;

using addressed::instance;

inline constexpr U32 value1 {"value1", 64};
inline constexpr Text text {"text", 140, 18};
inline constexpr U32 value2 {"value2", 160};

inline constexpr Text tunables {"tunables", 68, 64};
inline constexpr U32 tunables_value {"value", 132};

namespace record {
inline constexpr Text name {"instanceKey", 0, 64};
inline constexpr U32 value1 {"value1", 64};
inline constexpr U32 value2 {"value2", 68};
inline constexpr U16 value3 {"value3", 72};
inline constexpr U16 value4 {"value4", 74};
inline constexpr U16 value5 {"value5", 76};
inline constexpr U32 tunables_value {"value6", 78};
inline constexpr U32 value7 {"value7", 82};
inline constexpr U32 value8 {"value8", 86};
inline constexpr U8 value9 {"value9", 90};
inline constexpr U16 value10 {"value10", 91};
inline constexpr U8 value11 {"value11", 95};
inline constexpr U8 value12 {"value12", 96};
inline constexpr UnterminatedText text {"bytes1", 97, 13};
inline constexpr Table words {"words", 110, elements<U32>, 4};
inline constexpr U32 value13 {"value13", 126};
inline constexpr U16 value14 {"value14", 130};
inline constexpr U8 value15 {"value15", 132};
inline constexpr U16 value16 {"value16", 133};
inline constexpr U8 value17 {"value17", 135};
inline constexpr Text uuid {"text2", 136, 64};
inline constexpr U16 value18 {"value18", 200};
inline constexpr Text tunables {"bytes2", 202, 32};
inline constexpr U64 value19 {"value19", 234};
inline constexpr U32 value20 {"value20", 242};
inline constexpr U8 value21 {"value21", 246};
inline constexpr U32 value22 {"value22", 247};
inline constexpr U32 value23 {"value23", 251};
inline constexpr U8 value24 {"value24", 255};
inline constexpr Layout layout = fields_in<256, name, value1, value2, value3, value4, value5, tunables_value, value7,
    value8, value9, value10, value11, value12, text, words, value13, value14, value15, value16, value17, uuid, value18,
    tunables, value19, value20, value21, value22, value23, value24>;
} // namespace record

inline constexpr Command commands[] = {
    {0, "GetInstances", request<>, list(record::layout, most)},
    {1, "GetInstance", request<instance>, one(record::layout)},
    {2, "SetLumoInstance", request<instance, value1, text, value2>, no_reply},
    {3, "DelLumoInstance", request<instance>, no_reply},
    {4, "SetLumoInstanceTunables", request<instance, tunables, tunables_value>, no_reply},
};

} // namespace emulator::protocol::instances
