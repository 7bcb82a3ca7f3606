#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb cluster_verbs[] {
    {.words = "cluster list",
        .operation = "GetBridgeClusters",
        .form = "[<key>]",
        .fields = "ident,value1,value2,value3,value4,value5,value6",
        .key = "ident"},
    {.words = "cluster add", .operation = "BridgeClusterSet", .form = "<key>", .implied = "on=1"},
    {.words = "cluster delete", .operation = "BridgeClusterSet", .form = "<key>", .implied = "on=0"},
    {.words = "cluster flush", .operation = "FlushBridgeCluster", .form = "<key> [on <on>]"},
    {.words = "cluster debug", .operation = "SetBridgeClusterDebug", .form = "<key> <level>"},
    {.words = "cluster bfd-profile",
        .operation = "BridgeClusterBfdHAProfileSet",
        .form = "<key> [flag <flag>] [value1 <value1>] [value2 <value2>]"},
    {.words = "cluster locale", .operation = "GetLocaleId", .form = ""},
    {.words = "cluster node list", .operation = "GetBridgeClusterNodes", .form = "[<key>]", .key = "ident"},
    {.words = "cluster node add",
        .operation = "BridgeClusterNodeSet",
        .form = "<key> <node> mac <mac>",
        .implied = "on=1"},
    {.words = "cluster node delete", .operation = "BridgeClusterNodeSet", .form = "<key> <node>", .implied = "on=0"},
    {.words = "cluster transport show", .operation = "BridgeGetLocalTransportNode", .form = "[<selector>]"},
    {.words = "cluster transport set",
        .operation = "BridgeLocalTransportNodeSet",
        .form = "block <block> [text1 <text1>] [text2 <text2>] [text3 <text3>] [value <value>]",
        .implied = "on=1"},
    {.words = "cluster transport delete",
        .operation = "BridgeLocalTransportNodeSet",
        .form = "block <block> [text1 <text1>] [text2 <text2>] [text3 <text3>] [value <value>]",
        .implied = "on=0"},
};

inline constexpr Object cluster {"cluster", "Bridge clusters, their nodes and the local transport node", cluster_verbs};

} // namespace tool::objects
