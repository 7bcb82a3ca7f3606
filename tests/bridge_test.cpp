// Bridges: instances, networks, ports, forwarding table, clusters, nodes, endpoints and BFD sessions.
#include "lumozeph.h"
#include "support/layouts.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;
using testing::ElementsAre;

namespace {

const Layout& instance = layouts::bridge_instance;
const Layout& network = layouts::bridge_network;
const Layout& port = layouts::bridge_port;
const Layout& fdb_entry = layouts::fdb_entry;
const Layout& cluster = layouts::cluster;
const Layout& node = layouts::cluster_node;
const Layout& endpoint = layouts::endpoint;
const Layout& bfd_session = layouts::bfd_session;

const std::vector<SingleRead> single_reads {
    {"GetBridgeInstance", 62, instance, Record().text(0, "bridge"),
        [](void** out) { return LUMOZEPH_GetBridgeInstance("bridge", as<LumoBridgeInstanceInfo>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeInstance)},
    {"GetBridgeInstanceWithALongKey", 62, instance, Record().text(0, Bytes(63, 'b')),
        [](void** out) { return LUMOZEPH_GetBridgeInstance(Bytes(64, 'b').c_str(), as<LumoBridgeInstanceInfo>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeInstance)},
};

INSTANTIATE_TEST_SUITE_P(Bridge, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

// Kept: every bridge list leaves its holder allocated when the device call fails.
const std::vector<ListRead> list_reads {
    {"GetBridgeInstances", 61, instance, 4096, 1609728, Record(),
        [](void** out) { return LUMOZEPH_GetBridgeInstances(as<LumoBridgeInstanceList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeInstances), Holder::LeftAllocated},
    // Kept: of the two texts that are copied into the key, the second is sent.
    {"GetBridgeNetworksSendsTheSecondKey", 63, network, 32768, 4358144, Record().text(0, "k"),
        [](void** out) { return LUMOZEPH_GetBridgeNetworks("f", "k", as<LumoBridgeNetworkList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeNetworks), Holder::LeftAllocated},
    {"GetBridgePortsSendsTheSecondKey", 64, port, 32768, 4784128,
        Record().text(0, "k").u32(68, 65535).u32(72, 0x01020304).u32(76, 1),
        [](void** out) {
            return LUMOZEPH_GetBridgePorts("a longer first", "k", 65535, 0x01020304, as<LumoBridgePortList>(out));
        },
        releasing(LUMOZEPH_ReleaseBridgePorts), Holder::LeftAllocated},
    {"GetBridgeFdbEntries", 65, fdb_entry, 4096, 81920,
        Record().text(0, "bridge").u32(68, 0xfffe).u32(72, 0x01020304).u32(76, 1),
        [](void** out) {
            return LUMOZEPH_GetBridgeFdbEntries("bridge", 0xfffe, 0x01020304, as<LumoBridgeFdbList>(out));
        },
        releasing(LUMOZEPH_ReleaseBridgeFdbEntries), Holder::LeftAllocated},
    // Kept: the idents of clusters, nodes and endpoints get no NUL.
    {"GetBridgeClusters", 89, cluster, 10, 1830, Record().text(0, "cluster"),
        [](void** out) { return LUMOZEPH_GetBridgeClusters("cluster", as<LumoBridgeClusterList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeClusters), Holder::LeftAllocated},
    {"GetBridgeClustersOfAll", 89, cluster, 10, 1830, Record(),
        [](void** out) { return LUMOZEPH_GetBridgeClusters(nullptr, as<LumoBridgeClusterList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeClusters), Holder::LeftAllocated},
    {"GetBridgeClusterNodes", 92, node, 100, 7100, Record().text(0, Bytes(63, 'c')),
        [](void** out) {
            return LUMOZEPH_GetBridgeClusterNodes(Bytes(64, 'c').c_str(), as<LumoBridgeClusterNodeList>(out));
        },
        releasing(LUMOZEPH_ReleaseBridgeClusterNodes), Holder::LeftAllocated},
    {"GetBridgeClusterNodesOfAll", 92, node, 100, 7100, Record(),
        [](void** out) { return LUMOZEPH_GetBridgeClusterNodes(nullptr, as<LumoBridgeClusterNodeList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeClusterNodes), Holder::LeftAllocated},
    {"GetBridgeEndpoints", 95, endpoint, 28672, 6737920, Record().text(0, "bridge"),
        [](void** out) { return LUMOZEPH_GetBridgeEndpoints("bridge", as<LumoBridgeEndpointList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeEndpoints), Holder::LeftAllocated},
    {"GetBridgeEndpointsOfAll", 95, endpoint, 28672, 6737920, Record(),
        [](void** out) { return LUMOZEPH_GetBridgeEndpoints(nullptr, as<LumoBridgeEndpointList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeEndpoints), Holder::LeftAllocated},
    {"GetBridgeBFDSessions", 96, bfd_session, 2867200, 111820800, Record().text(0, "bridge"),
        [](void** out) { return LUMOZEPH_GetBridgeBFDSessions("bridge", as<LumoBridgeBfdSessionList>(out)); },
        releasing(LUMOZEPH_ReleaseBridgeBFDSessions), Holder::LeftAllocated},
};

INSTANTIATE_TEST_SUITE_P(Bridge, ListReads, testing::ValuesIn(list_reads), NameOfRow());

// The exported workers fill a list of the caller's.
struct Worker
{
    std::string name;
    unsigned long command;
    Bytes request;
    std::function<std::int32_t(void*)> fill;
    std::function<std::int32_t(void*)> release;
};

const std::vector<Worker> workers {
    {"Instances", 61, Record(),
        [](void* list) { return LUMOZEPHGetBridgeInstances(static_cast<LumoBridgeInstanceList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgeInstances)},
    {"Networks", 63, Record().text(0, "k"),
        [](void* list) { return LUMOZEPHGetBridgeNetworks("f", "k", static_cast<LumoBridgeNetworkList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgeNetworks)},
    {"Ports", 64, Record().text(0, "k").u32(68, 1).u32(72, 2).u32(76, 1),
        [](void* list) { return LUMOZEPHGetBridgePorts("f", "k", 1, 2, static_cast<LumoBridgePortList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgePorts)},
    {"FdbEntries", 65, Record().text(0, "k").u32(68, 1).u32(72, 2).u32(76, 1),
        [](void* list) { return LUMOZEPHGetBridgeFdbEntries("k", 1, 2, static_cast<LumoBridgeFdbList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgeFdbEntries)},
    {"Clusters", 89, Record().text(0, "k"),
        [](void* list) { return LUMOZEPHGetBridgeClusters("k", static_cast<LumoBridgeClusterList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgeClusters)},
    {"ClusterNodes", 92, Record(),
        [](void* list) {
            return LUMOZEPHGetBridgeClusterNodes(nullptr, static_cast<LumoBridgeClusterNodeList*>(list));
        },
        releasing(LUMOZEPH_ReleaseBridgeClusterNodes)},
    {"Endpoints", 95, Record().text(0, "k"),
        [](void* list) { return LUMOZEPHGetBridgeEndpoints("k", static_cast<LumoBridgeEndpointList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgeEndpoints)},
    {"BFDSessions", 96, Record().text(0, "k"),
        [](void* list) { return LUMOZEPHGetBridgeBFDSessions("k", static_cast<LumoBridgeBfdSessionList*>(list)); },
        releasing(LUMOZEPH_ReleaseBridgeBFDSessions)},
};

void PrintTo(const Worker& row, std::ostream* out)
{
    *out << row.name;
}

class ListWorkers : public testing::TestWithParam<Worker>
{
protected:
    const Worker& row = GetParam();
    void* list = nullptr;

    // The holder is block #1.
    Call fill(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] {
            list = calloc(1, 16);
            return row.fill(list);
        });
    }
};

TEST_P(ListWorkers, FillTheCallersList)
{
    const Call call = fill(replies({}));
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).number, row.command);
    EXPECT_EQ(call.sent.at(0).input, row.request);
    EXPECT_EQ(call.blocks_left.size(), 2u);
    EXPECT_EQ(row.release(list), 0);
}

// Kept: the holder is the caller's, and yet the worker frees it.
TEST_P(ListWorkers, FreeTheCallersListWhenTheyFail)
{
    const Call no_reply = fill({}, {.failing_allocation = 2});
    EXPECT_THAT(no_reply, Fails(ENOMEM));
    EXPECT_EQ(no_reply.events.back(), "free(#1)");
    EXPECT_THAT(no_reply, LeavesNothingAllocated());
    const Call no_array = fill(replies({}), {.failing_allocation = 3});
    EXPECT_THAT(no_array, Fails(ENOMEM));
    EXPECT_THAT(no_array, LeavesNothingAllocated());
    const Call fragment = fill(reports("x", 1));
    EXPECT_THAT(fragment, Fails(EBADMSG));
    EXPECT_THAT(fragment, LeavesNothingAllocated());
}

// Kept: but not when the device call fails.
TEST_P(ListWorkers, LeaveTheCallersListAloneWhenTheDeviceFails)
{
    const Call call = fill(fails(EPERM));
    EXPECT_THAT(call, Fails(EPERM));
    EXPECT_THAT(call.blocks_left, ElementsAre("#1: calloc(1, 16)"));
    free_left(call);
}

INSTANTIATE_TEST_SUITE_P(Bridge, ListWorkers, testing::ValuesIn(workers), NameOfRow());

constexpr std::uint8_t mac[6] = {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};
const Bytes mac_bytes("\xa1\xa2\xa3\xa4\xa5\xa6");
const Bytes block(64, '\xbb');

Record transport()
{
    return Record().text(64, "text1").text(128, "text2").text(192, "text3").u32(208, 0x01020304).text(212, block);
}

const std::vector<Send> sends {
    {"BridgeAdd", 53, Record().text(0, "bridge").u32(64, 0x01020304),
        [] { return LUMOZEPH_BridgeAdd("bridge", 0x01020304); }},
    {"BridgeDel", 54, Record().text(0, "bridge").u32(64, 0x01020304),
        [] { return LUMOZEPH_BridgeDel("bridge", 0x01020304); }},
    // Kept: one byte, where the other commands have four.
    {"BridgeEnableSendsOneByte", 55, Record().text(0, "bridge").u8(64, 255),
        [] { return LUMOZEPH_BridgeEnable("bridge", 255); }},
    {"BridgeDisableSendsOneByte", 56, Record().text(0, "bridge").u8(64, 254),
        [] { return LUMOZEPH_BridgeDisable("bridge", 254); }},
    {"BridgeSetHAAdminState", 118, Record().text(0, "bridge").u32(64, 0x01020304),
        [] { return LUMOZEPH_BridgeSetHAAdminState("bridge", 0x01020304); }},
    // Kept: the number is the caller's.
    {"BridgeSetConfigSendsTheCallersNumber", 70, Record().text(0, "bridge").u32(104, 0x01020304),
        [] { return LUMOZEPH_BridgeSetConfig("bridge", 70, 0x01020304); }},
    {"BridgeAddWithALongKey", 53, Record().text(0, Bytes(63, 'b')),
        [] { return LUMOZEPH_BridgeAdd(Bytes(64, 'b').c_str(), 0); }},

    {"BridgeSetFdbEntry", 66,
        Record()
            .text(0, "bridge")
            .u32(68, 0x01020304)
            .u32(72, 0x11121314)
            .u32(76, 1)
            .u32(80, 0x21222324)
            .text(84, "00:11:22:33:44:55")
            .u8(102, 0x31)
            .u32(104, 1),
        [] {
            return LUMOZEPH_BridgeSetFdbEntry("bridge", "00:11:22:33:44:55", 0x01020304, 0x11121314, 0x21222324, 0x31);
        }},
    {"BridgeSetFdbEntryWithoutMac", 66, Record().text(0, "b").u32(76, 1).u32(104, 1),
        [] { return LUMOZEPH_BridgeSetFdbEntry("b", nullptr, 0, 0, 0, 0); }},
    {"BridgeSetFdbEntryWithMacCutAt17", 66, Record().text(0, "b").u32(76, 1).text(84, "12345678901234567").u32(104, 1),
        [] { return LUMOZEPH_BridgeSetFdbEntry("b", "12345678901234567890", 0, 0, 0, 0); }},
    {"BridgeClearFdbTable", 67, Record().text(0, "bridge").u32(68, 0x01020304).u32(72, 0x11121314).u32(76, 1),
        [] { return LUMOZEPH_BridgeClearFdbTable("bridge", 0x01020304, 0x11121314); }},
    {"AddPmac", 74, Record().u32(64, 0x01020304).text(68, mac_bytes), [] { return LUMOZEPH_AddPmac(0x01020304, mac); }},
    {"AddPmacWithoutMac", 74, Record().u32(64, 0x01020304), [] { return LUMOZEPH_AddPmac(0x01020304, nullptr); }},
    {"DelPmac", 75, Record().text(68, mac_bytes), [] { return LUMOZEPH_DelPmac(mac); }},
    {"DelPmacWithoutMac", 75, Record(), [] { return LUMOZEPH_DelPmac(nullptr); }},

    {"BridgeClusterSetOn", 90, Record().text(0, "cluster"), [] { return LUMOZEPH_BridgeClusterSet("cluster", 1); }},
    {"BridgeClusterSetOnByAnySwitch", 90, Record().text(0, "cluster"),
        [] { return LUMOZEPH_BridgeClusterSet("cluster", -128); }},
    {"BridgeClusterSetOff", 91, Record().text(0, "cluster"), [] { return LUMOZEPH_BridgeClusterSet("cluster", 0); }},
    {"BridgeClusterNodeSetOn", 93, Record().text(0, "cluster").text(64, "node").text(128, mac_bytes),
        [] { return LUMOZEPH_BridgeClusterNodeSet("cluster", "node", mac, 1); }},
    {"BridgeClusterNodeSetOnByAnySwitch", 93,
        Record().text(0, Bytes(63, 'c')).text(64, Bytes(63, 'n')).text(128, mac_bytes),
        [] { return LUMOZEPH_BridgeClusterNodeSet(Bytes(64, 'c').c_str(), Bytes(64, 'n').c_str(), mac, -1); }},
    // Kept: the MAC address is not sent when the node is removed.
    {"BridgeClusterNodeSetOffSendsNoMac", 94, Record().text(0, "cluster").text(64, "node"),
        [] { return LUMOZEPH_BridgeClusterNodeSet("cluster", "node", mac, 0); }},
    {"BridgeClusterNodeSetOffReadsNoMac", 94, Record().text(0, "cluster").text(64, "node"),
        [] { return LUMOZEPH_BridgeClusterNodeSet("cluster", "node", reinterpret_cast<const std::uint8_t*>(1), 0); }},
    {"BridgeLocalTransportNodeSetOn", 100, transport(),
        [] { return LUMOZEPH_BridgeLocalTransportNodeSet("text1", "text2", "text3", 0x01020304, block.data(), 1); }},
    {"BridgeLocalTransportNodeSetOff", 101, transport(),
        [] { return LUMOZEPH_BridgeLocalTransportNodeSet("text1", "text2", "text3", 0x01020304, block.data(), 0); }},
    {"BridgeLocalTransportNodeSetWithLongTexts", 100,
        Record().text(64, Bytes(63, '1')).text(128, Bytes(63, '2')).text(192, Bytes(15, '3')).text(212, block),
        [] {
            return LUMOZEPH_BridgeLocalTransportNodeSet(
                Bytes(64, '1').c_str(), Bytes(64, '2').c_str(), Bytes(20, '3').c_str(), 0, block.data(), 127);
        }},
    {"FlushBridgeClusterOn", 103, Record().text(0, "cluster"),
        [] { return LUMOZEPH_FlushBridgeCluster("cluster", 1); }},
    {"FlushBridgeClusterOff", 104, Record().text(0, "cluster"),
        [] { return LUMOZEPH_FlushBridgeCluster("cluster", 0); }},
    {"FlushAllBridgeClusters", 103, Record(), [] { return LUMOZEPH_FlushBridgeCluster(nullptr, -1); }},
    {"SetBridgeClusterDebug", 107, Record().text(0, "cluster").u8(64, 255),
        [] { return LUMOZEPH_SetBridgeClusterDebug("cluster", 255); }},
    {"SetBridgeClusterDebugOfAll", 107, Record().u8(64, 3), [] { return LUMOZEPH_SetBridgeClusterDebug(nullptr, 3); }},
    {"BridgeClusterBfdHAProfileSet", 106,
        Record().text(0, "cluster").u8(64, 255).u32(68, 0x01020304).u32(72, 0x11121314),
        [] { return LUMOZEPH_BridgeClusterBfdHAProfileSet("cluster", 255, 0x01020304, 0x11121314); }},

    // Kept: the key lies at 192 and the first field stays empty.
    {"AddBridgeEndpointHasItsKeyAt192", 45,
        Record()
            .text(64, "text1")
            .text(128, "name")
            .text(192, "key")
            .text(256, "text2")
            .u32(352, 0x01020304)
            .u32(356, 0x11121314)
            .u16(528, 0x2122)
            .text(530, "text3")
            .u8(594, 0x31)
            .u8(595, 0x41),
        [] {
            return LUMOZEPH_AddBridgeEndpoint(
                "key", "text1", "name", 0x01020304, 0x11121314, "text2", 0x2122, 0x31, "text3", 0x41);
        }},
    {"AddBridgeEndpointWithLongTexts", 45,
        Record()
            .text(64, Bytes(63, '1'))
            .text(128, Bytes(63, 'n'))
            .text(192, Bytes(63, 'k'))
            .text(256, Bytes(63, '2'))
            .text(530, Bytes(63, '3')),
        [] {
            return LUMOZEPH_AddBridgeEndpoint(Bytes(64, 'k').c_str(), Bytes(64, '1').c_str(), Bytes(64, 'n').c_str(), 0,
                0, Bytes(64, '2').c_str(), 0, 0, Bytes(64, '3').c_str(), 0);
        }},
    {"DelBridgeEndpoint", 46, Record().text(128, "name").text(192, "key"),
        [] { return LUMOZEPH_DelBridgeEndpoint("key", "name"); }},
    {"FlushBridgeEndpointOn", 47, Record(), [] { return LUMOZEPH_FlushBridgeEndpoint(1); }},
    {"FlushBridgeEndpointOnByAnySwitch", 47, Record(), [] { return LUMOZEPH_FlushBridgeEndpoint(-1); }},
    {"FlushBridgeEndpointOff", 48, Record(), [] { return LUMOZEPH_FlushBridgeEndpoint(0); }},
    {"SetBridgeRepMode", 49, Record().text(0, "bridge").u32(108, 0x01020304),
        [] { return LUMOZEPH_SetBridgeRepMode("bridge", 0x01020304); }},
    {"PlumbBFDPortConnection", 97, Record().text(64, "port").text(128, "text").text(144, mac_bytes),
        [] { return LUMOZEPH_PlumbBFDPortConnection("port", "text", mac); }},
    {"PlumbBFDPortConnectionWithoutMac", 97, Record().text(64, Bytes(63, 'p')).text(128, Bytes(15, 't')),
        [] { return LUMOZEPH_PlumbBFDPortConnection(Bytes(64, 'p').c_str(), Bytes(20, 't').c_str(), nullptr); }},
    {"UnPlumbBFDPortConnection", 98, Record().text(64, "port"),
        [] { return LUMOZEPH_UnPlumbBFDPortConnection("port"); }},
};

INSTANTIATE_TEST_SUITE_P(Bridge, Sends, testing::ValuesIn(sends), NameOfRow());

const std::vector<RawRead> raw_reads {
    {"DumpFLTable", 72, Record().u16(64, 0xfffe), 426080,
        [](void* buffer) { return LUMOZEPH_DumpFLTable(0xfffe, buffer); }},
    {"GetPmac", 73, Record(), 131072, [](void* buffer) { return LUMOZEPH_GetPmac(buffer); }},
    // Kept: the key lies at 192 and the first field stays empty.
    {"GetBeStatsHasItsKeyAt192", 50, Record().text(192, "key"), 146,
        [](void* buffer) { return LUMOZEPH_GetBeStats("key", buffer); }},
    {"GetBeStatusHasItsKeyAt192", 51, Record().text(192, Bytes(63, 'k')), 229,
        [](void* buffer) { return LUMOZEPH_GetBeStatus(Bytes(64, 'k').c_str(), buffer); }},
    {"GetLocaleId", 86, Record(), 16, [](void* buffer) { return LUMOZEPH_GetLocaleId(buffer); }},
    {"BridgeGetLocalTransportNode", 102, Record().u32(276, 0x01020304), 2048,
        [](void* buffer) { return LUMOZEPH_BridgeGetLocalTransportNode(buffer, 0x01020304); }},
    {"GetBFDPortConnections", 99, Record(), 131072,
        [](void* buffer) { return LUMOZEPH_GetBFDPortConnections(buffer); }},
};

INSTANTIATE_TEST_SUITE_P(Bridge, RawReads, testing::ValuesIn(raw_reads), NameOfRow());

TEST(Bridge, NeedsAKeyToBeRead)
{
    LumoBridgeInstanceInfo* out = reinterpret_cast<LumoBridgeInstanceInfo*>(elsewhere);
    expect_rejected([&] { return LUMOZEPH_GetBridgeInstance(nullptr, &out); });
    EXPECT_EQ(out, reinterpret_cast<LumoBridgeInstanceInfo*>(elsewhere));
}

TEST(Bridge, ConfigNumbersAreSentUnchecked)
{
    for (const std::int32_t command : {0, 68, 105, 161, INT32_MAX, -1, INT32_MIN}) {
        ScriptedDevice device;
        const Call call = observe(device, [&] { return LUMOZEPH_BridgeSetConfig("bridge", command, 1); });
        EXPECT_THAT(call, Succeeds());
        EXPECT_EQ(call.sent.at(0).number, static_cast<unsigned long>(static_cast<long>(command)));
        EXPECT_EQ(call.sent.at(0).out_len, 0u);
    }
}

// Kept: a network record that stands alone can be released, though no function returns one.
TEST(Bridge, ANetworkRecordThatStandsAloneIsReleased)
{
    ScriptedDevice device;
    const Call call = observe(
        device, [] { return LUMOZEPH_ReleaseBridgeNetwork(static_cast<LumoBridgeNetworkInfo*>(calloc(1, 133))); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("calloc(1, 133) = #1", "free(#1)"));
    EXPECT_THAT(observe(device, [] { return LUMOZEPH_ReleaseBridgeNetwork(nullptr); }), DoesNothing());
}

TEST(Bridge, FdbValuesShareAWord)
{
    Bytes reply(20, '\0');
    reply.replace(0, 6, mac_bytes);
    put(reply, 6, 0x0102, 2);
    put(reply, 8, 0x44332211, 4);
    put(reply, 12, 0x51525354, 4);
    put(reply, 16, 0x61626364, 4);
    ScriptedDevice device(replies(reply));
    LumoBridgeFdbList* list = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetBridgeFdbEntries("b", 1, 2, &list); }), Succeeds());
    const LumoBridgeFdbEntry entry = list->records[0];
    LUMOZEPH_ReleaseBridgeFdbEntries(list);
    EXPECT_EQ(+entry.mac[5], 0xa6);
    EXPECT_EQ(+entry.value1, 0x0102);
    EXPECT_EQ(entry.value2 + 0u, 0x332211u);
    EXPECT_EQ(entry.value3 + 0u, 0x44u);
    EXPECT_EQ(+entry.value4, 0x51525354u);
    EXPECT_EQ(+entry.value5, 0x61626364u);
}

TEST(Bridge, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, name), 12u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, value3), 76u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, text1), 84u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, text2), 212u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, value5), 305u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, value6), 309u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, data), 313u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value3), 12u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value4), 14u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value5), 18u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value7), 24u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value8), 28u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, data), 29u);
    EXPECT_EQ(offsetof(LumoBridgePortInfo, value4), 14u);
    EXPECT_EQ(offsetof(LumoBridgePortInfo, data), 18u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value1), 72u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, block), 76u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value2), 172u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value5), 178u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value6), 179u);
    EXPECT_EQ(offsetof(LumoBridgeClusterNodeInfo, value1), 64u);
    EXPECT_EQ(offsetof(LumoBridgeClusterNodeInfo, value2), 68u);
    EXPECT_EQ(offsetof(LumoBridgeClusterNodeInfo, value3), 70u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, ident), 64u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value1), 128u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value2), 130u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value3), 131u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value4), 135u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, block), 139u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, addr1), 2u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, addr2), 8u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value2), 14u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value3), 18u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value4), 19u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value5), 23u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value6), 31u);
}

// Kept: the count is in units of 235 bytes.
TEST(BeAll, CountsWhatWasWrittenInUnitsOf235)
{
    Bytes buffer(1000, '\x5a');
    for (const auto& [length, expected] :
        std::vector<std::pair<std::int32_t, std::uint32_t>> {{470, 2}, {469, 1}, {0, 0}, {-1, 0xffffffffu / 235}}) {
        ScriptedDevice device(reports("x", length));
        std::uint32_t count = 4711;
        const Call call = observe(device, [&] { return LUMOZEPH_GetBeAll(buffer.data(), 1000, &count); });
        EXPECT_THAT(call, Succeeds());
        EXPECT_EQ(call.events.size(), 4u);
        EXPECT_EQ(call.sent.at(0).number, 52u);
        EXPECT_EQ(call.sent.at(0).input, Bytes(776, '\0'));
        EXPECT_EQ(call.sent.at(0).out_len, 1000u);
        EXPECT_EQ(call.sent.at(0).out_ptr, reinterpret_cast<std::uint64_t>(buffer.data()));
        EXPECT_EQ(count, expected) << length;
    }
}

TEST(BeAll, PassesTheBufferAlsoWhenItHasNoRoom)
{
    char nothing = 0;
    std::uint32_t count = 4711;
    ScriptedDevice device;
    const Call call = observe(device, [&] { return LUMOZEPH_GetBeAll(&nothing, 0, &count); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).out_len, 0u);
    EXPECT_EQ(call.sent.at(0).out_ptr, reinterpret_cast<std::uint64_t>(&nothing));
    EXPECT_EQ(count, 0u);
}

TEST(BeAll, LeavesTheCountUntouchedWhenTheDeviceFails)
{
    char buffer[10];
    std::uint32_t count = 4711;
    ScriptedDevice device(fails(EPERM));
    EXPECT_THAT(observe(device, [&] { return LUMOZEPH_GetBeAll(buffer, 10, &count); }), Fails(EPERM));
    EXPECT_THAT(
        observe(device, {.open_error = ENOENT}, [&] { return LUMOZEPH_GetBeAll(buffer, 10, &count); }), Fails(ENOENT));
    EXPECT_EQ(count, 4711u);
}

} // namespace
