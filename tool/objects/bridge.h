#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb bridge_verbs[] {
    {.words = "bridge list",
        .operation = "GetBridgeInstances",
        .form = "",
        .fields = "name,text1,text2,value1,value2,value3,value4,value5,value6",
        .key = "name"},
    {.words = "bridge show", .operation = "GetBridgeInstance", .form = "<key>"},
    {.words = "bridge add", .operation = "BridgeAdd", .form = "<key> [value <value>]"},
    {.words = "bridge delete", .operation = "BridgeDel", .form = "<key> [value <value>]"},
    {.words = "bridge enable", .operation = "BridgeEnable", .form = "<key> [value <value>]"},
    {.words = "bridge disable", .operation = "BridgeDisable", .form = "<key> [value <value>]"},
    {.words = "bridge ha", .operation = "BridgeSetHAAdminState", .form = "<key> <state>"},
    {.words = "bridge replication", .operation = "SetBridgeRepMode", .form = "<key> <mode>"},
    {.words = "bridge configure", .operation = "BridgeSetConfig", .form = "<key> <command> <value>"},
    {.words = "bridge network list",
        .operation = "GetBridgeNetworks",
        .form = "<key>",
        .fields = "value1,value2,value3,value4,value5,value6,value7,value8",
        .key = "value1"},
    {.words = "bridge port list",
        .operation = "GetBridgePorts",
        .form = "<key> [value16 <value16>] [value32 <value32>]",
        .fields = "value1,value2,value3,value4",
        .key = "value1"},
    {.words = "bridge lif list",
        .operation = "GetBridgeLifs",
        .form = "<instance>",
        .fields = "lifName,ipAddr,ipMask,lifMac,ipv6Addrs,lifState1,lifState2",
        .key = "lifName"},
    {.words = "bridge lif show", .operation = "GetBridgeLif", .form = "<instance> <lif>"},
    {.words = "bridge lif add",
        .operation = "SetBridgeLif",
        .form = "<instance> <lif> [name <auxName>] [paramA <paramA>] [paramB <paramB>] [di <diValue>]",
        .implied = "add=1"},
    {.words = "bridge lif delete",
        .operation = "SetBridgeLif",
        .form = "<instance> <lif> [name <auxName>] [paramA <paramA>] [paramB <paramB>] [di <diValue>]",
        .implied = "add=0"},
};

inline constexpr Object bridge {"bridge", "Bridges, their networks, ports and LIFs", bridge_verbs};

} // namespace tool::objects
