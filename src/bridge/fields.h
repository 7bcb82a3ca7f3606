// Request fields of bridges.
#pragma once

#include "channel/fields.h"

namespace lumo {

inline constexpr Number<64, uint32_t> bridge_param;
inline constexpr Number<64, uint8_t> bridge_param_byte;
inline constexpr Number<104, uint32_t> config_value;
inline constexpr Number<108, uint32_t> rep_mode;

// Kept: two texts are copied into the key one after the other, so that both are read and the second is sent.
struct TwiceWrittenKey
{
    using Key = decltype(instance_key)::Value;
    struct Value : Extent<Key::begin, Key::end - Key::begin>
    {
        Key first;
        Key second;
        void store(char* record) const
        {
            first.store(record);
            std::memset(record + Key::begin, 0, Key::end - Key::begin);
            second.store(record);
        }
    };

    constexpr Value operator()(const char* first, const char* second) const
    {
        return {{}, instance_key(first), instance_key(second)};
    }
};
inline constexpr TwiceWrittenKey twice_written_key;

// Ports and the forwarding table.
inline constexpr Number<68, uint32_t> selector1;
inline constexpr Number<72, uint32_t> selector2;
inline constexpr Fixed<76, uint32_t {1}> selected;
inline constexpr Number<80, uint32_t> fdb_value;
inline constexpr Text<84, 18> fdb_mac_text;
inline constexpr Number<102, uint8_t> fdb_flags;
inline constexpr Fixed<104, uint32_t {1}> fdb_set;
inline constexpr Number<64, uint16_t> fl_table_selector;
inline constexpr Number<64, uint32_t> pmac_value;
inline constexpr Bytes<68, 6> pmac_addr;

// Clusters and nodes.
inline constexpr Text<64, 64> node_name;
inline constexpr Bytes<128, 6> node_mac;
inline constexpr Number<64, uint8_t> debug_level;
inline constexpr Number<64, uint8_t> bfd_profile_flag;
inline constexpr Number<68, uint32_t> bfd_value1;
inline constexpr Number<72, uint32_t> bfd_value2;
inline constexpr Text<64, 64> transport_name1;
inline constexpr Text<128, 64> transport_name2;
inline constexpr Text<192, 16> transport_text;
inline constexpr Number<208, uint32_t> transport_value;
inline constexpr Bytes<212, 64> transport_block;
inline constexpr Number<276, uint32_t> transport_selector;

// Endpoints.
inline constexpr Text<64, 64> endpoint_text1;
inline constexpr Text<128, 64> endpoint_name;
inline constexpr Text<192, 64> endpoint_key;
inline constexpr Text<256, 64> endpoint_text2;
inline constexpr Number<352, uint32_t> endpoint_value1;
inline constexpr Number<356, uint32_t> endpoint_value2;
inline constexpr Number<528, uint16_t> endpoint_value3;
inline constexpr Text<530, 64> endpoint_text3;
inline constexpr Number<594, uint8_t> endpoint_flag1;
inline constexpr Number<595, uint8_t> endpoint_flag2;

// BFD.
inline constexpr Text<64, 64> bfd_port_name;
inline constexpr Text<128, 16> bfd_port_text;
inline constexpr Bytes<144, 6> bfd_port_mac;

} // namespace lumo
