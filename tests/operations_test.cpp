// Every operation of the tables, whatever its shape: the number and the lengths of what it sends.
#include "shapes/rows.h"

#include <lumozeph.h>
#include <map>
#include <set>

using namespace operations;
using shapes::Row;

namespace {

class Operations : public testing::TestWithParam<Row>
{};

std::vector<Row> all_rows()
{
    std::vector<Row> rows;
    for_each_operation([&](const Chapter& chapter, const Operation& operation) {
        for (const Case& one : operation.cases)
            rows.push_back({&chapter, &operation, &one, nullptr});
    });
    return rows;
}

// Only the IPv6 routes send two commands, the second when the first has succeeded: how many they are.
constexpr int count_of_routes6 = 115;
constexpr int routes6_themselves = 114;

TEST_P(Operations, SendTheirNumberTheirRequestAndTheirRoom)
{
    const Row& row = GetParam();
    std::vector<char> memory(std::max<std::size_t>(target_size(*row.operation), sizeof(void*)));
    std::uint32_t count = 0;
    void* target = memory.data();
    fake::ScriptedDevice device;
    std::vector<fake::Sent> sent;
    if (row.command() == routes6_themselves)
        device.next(fake::replies(fake::Bytes(4, '\0')));
    device.next(fake::fails(EPERM));
    const fake::Call call = observe(device, [&] {
        if (row.operation->shape == Shape::ListWorker)
            target = calloc(1, 16);
        return row.call(target, &count);
    });
    free_left(call);
    EXPECT_EQ(call.result, -1);
    ASSERT_EQ(call.sent.size(), row.command() == routes6_themselves ? 2u : 1u);
    if (row.command() == routes6_themselves) {
        EXPECT_EQ(call.sent[0].number, static_cast<unsigned long>(count_of_routes6));
        EXPECT_EQ(call.sent[0].input, row.one->request.content());
        EXPECT_EQ(call.sent[0].out_len, 4u);
    }
    const fake::Sent& last = call.sent.back();
    EXPECT_EQ(last.number, static_cast<unsigned long>(row.command()));
    EXPECT_EQ(last.in_len, input_length(*row.operation));
    EXPECT_EQ(last.in_ptr == 0, last.in_len == 0);
    if (last.in_len == request_size) {
        for (std::size_t i = 0; i < request_size; ++i)
            if (row.operation->remainder == Remainder::Cleared || row.one->request.names(i)) {
                ASSERT_EQ(last.input[i], row.one->request.content()[i]) << "byte " << i;
            }
    }
    EXPECT_EQ(last.out_len, reply_room(*row.operation));
    EXPECT_EQ(last.out_ptr == 0, last.out_len == 0);
}

INSTANTIATE_TEST_SUITE_P(, Operations, testing::ValuesIn(all_rows()), shapes::NameOfRow());

std::set<std::string> senders()
{
    std::set<std::string> names;
    for_each_operation([&](const Chapter&, const Operation& operation) { names.insert(operation.function.name); });
    return names;
}

// Functions are added, and never removed: 180 were the first.
TEST(Tables, HaveTheFunctionsThatSendCommands)
{
    EXPECT_GE(senders().size(), 154u);
}

TEST(Tables, HaveTheFunctionsThatSendNothing)
{
    std::set<std::string> silent(std::begin(without_row), std::end(without_row));
    for_each_operation([&](const Chapter&, const Operation& operation) {
        if (operation.release.name != nullptr)
            silent.insert(operation.release.name);
    });
    EXPECT_GE(silent.size(), 26u);
    for (const std::string& sender : senders())
        EXPECT_EQ(silent.count(sender), 0u) << sender;
}

// What the header's macros say of the reads, by their names.
const std::map<std::string_view, std::uint32_t> caps {
    {"LUMOZEPH_GetInstances", LUMOZEPH_INSTANCES_MAX},
    {"LUMOZEPH_GetLifs", LUMOZEPH_LIFS_MAX},
    {"LUMOZEPH_GetBridgeLifs", LUMOZEPH_LIFS_MAX},
    {"LUMOZEPH_GetRoutes", LUMOZEPH_ROUTES_MAX},
    {"LUMOZEPH_GetLifPolicies", LUMOZEPH_ROUTES_MAX},
    {"LUMOZEPH_GetPolicy", LUMOZEPH_POLICIES_MAX},
    {"LUMOZEPH_GetPolicyTable", LUMOZEPH_POLICY_TABLES_MAX},
    {"LUMOZEPH_GetBridgeInstances", LUMOZEPH_BRIDGES_MAX},
    {"LUMOZEPH_GetBridgeNetworks", LUMOZEPH_BRIDGE_NETWORKS_MAX},
    {"LUMOZEPH_GetBridgePorts", LUMOZEPH_BRIDGE_PORTS_MAX},
    {"LUMOZEPH_GetBridgeFdbEntries", LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX},
    {"LUMOZEPH_GetBridgeClusters", LUMOZEPH_BRIDGE_CLUSTERS_MAX},
    {"LUMOZEPH_GetBridgeClusterNodes", LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX},
    {"LUMOZEPH_GetBridgeEndpoints", LUMOZEPH_BRIDGE_ENDPOINTS_MAX},
    {"LUMOZEPH_GetBridgeBFDSessions", LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX},
    {"LUMOZEPH_GetMRoutingLocalRcvrs", LUMOZEPH_LOCAL_RCVRS_MAX},
    {"LUMOZEPH_GetMRoutingAllMcastGroups", LUMOZEPH_MCAST_GROUPS_MAX},
};
const std::map<std::string_view, std::uint32_t> sizes {
    {"LUMOZEPH_GetConnections", LUMOZEPH_CONNECTIONS_SIZE},
    {"LUMOZEPH_GetConnection", LUMOZEPH_CONNECTION_SIZE},
    {"LUMOZEPH_GetVMAC", LUMOZEPH_MAC_SIZE},
    {"LUMOZEPH_GetArps", LUMOZEPH_ARP_TABLE_SIZE},
    {"LUMOZEPH_GetProxyArps", LUMOZEPH_ARP_TABLE_SIZE},
    {"LUMOZEPH_GetArpsv6", LUMOZEPH_ARP_TABLE_SIZE},
    {"LUMOZEPH_DumpFLTable", LUMOZEPH_FL_TABLE_SIZE},
    {"LUMOZEPH_GetPmac", LUMOZEPH_PMAC_TABLE_SIZE},
    {"LUMOZEPH_GetLocaleId", LUMOZEPH_LOCALE_ID_SIZE},
    {"LUMOZEPH_BridgeGetLocalTransportNode", LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE},
    {"LUMOZEPH_GetBeStats", LUMOZEPH_BE_STATS_SIZE},
    {"LUMOZEPH_GetBeStatus", LUMOZEPH_BE_STATUS_SIZE},
    {"LUMOZEPH_GetBFDPortConnections", LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE},
    {"LUMOZEPH_SoftRSSGetIndTable", LUMOZEPH_RSS_IND_TABLE_SIZE},
};

TEST(Tables, AgreeWithTheHeadersCapsAndSizes)
{
    std::size_t lists = 0;
    std::size_t buffers = 0;
    for_each_operation([&](const Chapter&, const Operation& operation) {
        if (operation.shape == Shape::ListRead) {
            ASSERT_EQ(caps.count(operation.function.name), 1u) << operation.function.name;
            EXPECT_EQ(caps.at(operation.function.name), static_cast<std::uint32_t>(operation.cap));
            ++lists;
        }
        if (const auto size = sizes.find(operation.function.name); size != sizes.end()) {
            EXPECT_EQ(size->second, operation.room) << operation.function.name;
            ++buffers;
        }
    });
    EXPECT_EQ(lists, caps.size());
    EXPECT_EQ(buffers, sizes.size());
}

TEST(Tables, NameEachCaseOnce)
{
    std::set<std::string> names;
    std::size_t cases = 0;
    for_each_case([&](const Operation&, const Case& one) {
        names.insert(one.name);
        ++cases;
    });
    EXPECT_EQ(names.size(), cases);
}

TEST(Tables, HaveEveryCommandButThoseOfTheGaps)
{
    const std::set<int> gaps {68, 69, 70, 71, 76, 77, 78, 79, 81, 82, 83, 84, 105, 150};
    std::set<int> sent {count_of_routes6};
    for_each_operation([&](const Chapter&, const Operation& operation) {
        // The one function that takes a number.
        if (std::string_view(operation.function.name) != "LUMOZEPH_BridgeSetConfig")
            sent.insert(operation.command);
    });
    for (int command = 0; command <= *sent.rbegin(); ++command)
        EXPECT_NE(sent.count(command), gaps.count(command)) << command;
    EXPECT_GE(*sent.rbegin(), 160);
}

} // namespace
