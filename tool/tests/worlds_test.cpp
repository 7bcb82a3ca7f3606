// Random states are brought back after random changes, in the module of this process.
#include "tool/mistakes.h"
#include "tool/reply.h"
#include "tool/state/applying.h"
#include "tool/state/checking.h"
#include "tool/state/difference.h"
#include "tool/state/plan.h"
#include "tool/state/reading.h"

#include "emulator/door/lumozeph_emulator.h"
#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <random>

using namespace tool;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr AddressOrder order = AddressOrder::Network;

// With names that keys and JSON must be careful with.
constexpr const char* lif_names[] {"eth0", "a b", "-", "50%/x", "\xff\"\n"};

class World
{
public:
    explicit World(unsigned seed) : _random(seed) { lumozeph_emulator_reset(); }

    void build()
    {
        for (unsigned i = 40 + below(120); i > 0; --i)
            set();
    }

    void change()
    {
        for (unsigned i = 1 + below(60); i > 0; --i)
            if (below(3) == 0)
                remove();
            else
                set();
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(_random() % end); }
    std::string number(unsigned end) { return std::to_string(below(end)); }
    std::string name(const char* prefix, unsigned end) { return prefix + number(end); }
    std::string mac() { return fmt::format("02:00:00:00:00:{:02x}", below(6)); }

    // What makes no sense in this world is refused, which is as well.
    static void call(std::string_view operation, const std::vector<Given>& given)
    {
        const Operation& found = *find_operation(operation);
        Arguments arguments = arguments_of(found, given, Completeness::OrElseNothing, order);
        Reply reply;
        static_cast<void>(found.call(arguments, reply));
    }

    // LIFs keep their networks, so that gateways do.
    struct Lif
    {
        std::string instance;
        std::string name;
        std::string network;  // without its last byte
        std::string network6; // without its last word
    };

    Lif lif()
    {
        const unsigned instance = below(3);
        const unsigned which = below(std::size(lif_names));
        return {fmt::format("i{}", instance), lif_names[which], fmt::format("10.{}.{}.", instance, which),
            fmt::format("2001:db8:{}:{}::", instance, which)};
    }

    std::string next_hop_of(const Lif& lif) { return below(4) == 0 ? "" : lif.name; }

    void set()
    {
        switch (below(8)) {
        case 0:
            return set_module();
        case 1:
            return set_tables();
        case 2:
            return set_bridges();
        case 3:
            return set_instances();
        case 4:
            return set_options();
        case 5:
            return set_routes();
        case 6:
            return set_neighbours();
        default:
            return set_lifs();
        }
    }

    void set_module()
    {
        switch (below(7)) {
        case 0:
            return call("SetLogLevel", {{"level", number(9)}});
        case 1:
            return call("SetTxDispQueueSize", {{"size", number(2000)}});
        case 2:
            return call("PlumbLumoConnection",
                {{"name", name("c", 3)}, {"text1", name("a", 2)}, {"text2", name("b", 2)}, {"text4", name("d", 2)}});
        case 3:
            return call("PlumbBFDPortConnection", {{"port", name("p", 3)}, {"text", name("t", 2)}, {"mac", mac()}});
        case 4:
            return call("AddPmac", {{"value", number(5)}, {"mac", mac()}});
        case 5:
            return call("CPActivate", {{"value", number(3)}});
        default:
            return call("BridgeLocalTransportNodeSet",
                {{"text1", name("t", 2)}, {"value", number(3)}, {"block", std::string(128, below(2) == 0 ? '0' : 'a')},
                    {"on", "1"}});
        }
    }

    void set_tables()
    {
        const std::string table = number(3);
        if (below(2) == 0)
            return call("SetPolicyTable", {{"table", table}, {"name", name("t", 3)}});
        call("SetPolicy", {{"table", table}, {"key1", number(3)}, {"key2", number(2)}, {"value", number(3)}});
    }

    void set_bridges()
    {
        const std::string bridge = name("b", 3);
        const std::string cluster = name("k", 3);
        switch (below(10)) {
        case 0:
            return call("BridgeAdd", {{"key", bridge}, {"value", number(3)}});
        case 1:
            return call(below(3) == 0 ? "BridgeDisable" : "BridgeEnable", {{"key", bridge}});
        case 2:
            return call("BridgeSetHAAdminState", {{"key", bridge}, {"state", number(3)}});
        case 3:
            return call("SetBridgeRepMode", {{"key", bridge}, {"mode", number(3)}});
        case 4:
            return call(
                "BridgeSetFdbEntry", {{"key", bridge}, {"mac", mac()}, {"value", number(3)}, {"flags", number(3)}});
        case 5:
            return call("BridgeClusterSet", {{"key", cluster}, {"on", "1"}});
        case 6:
            return call(
                "BridgeClusterNodeSet", {{"key", cluster}, {"node", name("n", 3)}, {"mac", mac()}, {"on", "1"}});
        case 7:
            return call("BridgeClusterBfdHAProfileSet",
                {{"key", cluster}, {"flag", number(2)}, {"value1", number(3)}, {"value2", number(3)}});
        case 8:
            return call("SetBridgeClusterDebug", {{"key", cluster}, {"level", number(4)}});
        default:
            return call("AddBridgeEndpoint",
                {{"key", name("e", 4)}, {"text1", below(2) == 0 ? bridge : ""}, {"name", name("n", 2)},
                    {"value1", number(3)}, {"value3", number(3)}, {"flag1", number(2)}, {"flag2", number(2)}});
        }
    }

    void set_instances()
    {
        const std::string instance = name("i", 3);
        switch (below(7)) {
        case 0:
            return call("SetLumoInstance",
                {{"instance", instance}, {"value1", number(3)}, {"text", name("t", 3)}, {"value2", number(3)}});
        case 1:
            return call(
                "SetLumoInstanceTunables", {{"instance", instance}, {"tunables", name("t", 3)}, {"value", number(3)}});
        case 2:
            return call("SetMcastRouting", {{"instance", instance}, {"name", name("m", 2)}, {"value3", number(3)}});
        case 3:
            return call("AddMRoutingMRouter", {{"instance", instance}, {"value", std::to_string(1 + below(3))}});
        case 4:
            return call("AddMRoutingLocalRcvrs",
                {{"instance", instance}, {"value", number(3)}, {"text", lif_names[below(std::size(lif_names))]}});
        case 5:
            return call("AddMRoutingRemoteRcvrs", {{"instance", instance}, {"value", number(3)}, {"key", number(3)},
                                                      {"hwAddr", mac()}, {"value1", number(2)}});
        default:
            call("SetCPIp", {{"instance", instance}, {"address", fmt::format("10.9.9.{}", below(3))}});
            return call("SetLumoInstanceCPSyncState", {{"instance", instance}, {"state", number(3)}});
        }
    }

    void set_lifs()
    {
        const Lif one = lif();
        const std::vector<Given> key {{"instance", one.instance}, {"lif", one.name}};
        if (below(4) == 0) {
            call("SetBridgeLif", {key[0], key[1], {"auxName", below(2) == 0 ? name("b", 3) : ""}, {"paramA", number(3)},
                                     {"diValue", number(3)}, {"add", "1"}});
            return call("SetLifIp", {key[0], key[1], {"address", one.network + "2"}, {"mask", "24"}});
        }
        call("SetLif",
            {key[0], key[1], {"auxName", name("x", 2)}, {"address", one.network + std::to_string(1 + below(3))},
                {"mask", "24"}, {"mac", mac()}, {"paramB", number(2)}, {"paramC", number(2)}});
        call("EnableLif", key);
    }

    void set_options()
    {
        const Lif one = lif();
        const std::vector<Given> key {{"instance", one.instance}, {"lif", one.name}};
        switch (below(8)) {
        case 0:
            return call("SetLifDIIp", {key[0], key[1], {"address", fmt::format("10.8.8.{}", below(3))}});
        case 1:
            return call(below(3) == 0 ? "DelLifVxlanCP" : "SetLifVxlanCP", key);
        case 2:
            return call("SetLifMcastRouting", {key[0], key[1], {"on", number(2)}});
        case 3:
            return call("RAMTUSetv6", {key[0], key[1], {"mtu", below(3) == 0 ? "0" : "1400"}});
        case 4:
            return call("SetLifPolicyTableRef",
                {key[0], key[1], {"entries", fmt::format(R"([{{"bytes":"0{}0000{:042}"}}])", below(3), below(2))}});
        case 5:
            return call(below(2) == 0 ? "DisableLif" : "EnableLif", key);
        default:
            return call("SetLifIpv6",
                {key[0], key[1], {"address", one.network6 + number(12)}, {"prefixLen", below(2) == 0 ? "64" : "80"}});
        }
    }

    void set_routes()
    {
        const Lif one = lif();
        const unsigned network = below(4);
        if (below(3) == 0)
            return call(
                "SetRoutev6", {{"instance", one.instance}, {"dest", fmt::format("2001:db9:{}::", network)},
                                  {"prefixLen", "48"}, {"gateway", one.network6 + "fe"}, {"lif", next_hop_of(one)}});
        call("SetRoute", {{"instance", one.instance}, {"dest", fmt::format("172.16.{}.0", network)}, {"mask", "24"},
                             {"gateway", one.network + std::to_string(250 + below(5))}, {"lif", next_hop_of(one)},
                             {"param", number(3)}});
    }

    void set_neighbours()
    {
        const Lif one = lif();
        const std::string address = one.network + std::to_string(100 + below(3));
        const std::string address6 = one.network6 + number(3);
        const std::vector<Given> key {{"instance", one.instance}, {"lif", one.name}};
        switch (below(4)) {
        case 0:
            return call("SetArp", {key[0], key[1], {"address", address}, {"mac", mac()}});
        case 1:
            return call("SetProxyArp", {key[0], key[1], {"address", address}});
        case 2:
            return call("SetArpv6", {key[0], key[1], {"address", address6}, {"mac", mac()}});
        default:
            return call("SetProxyArpv6", {key[0], key[1], {"address", address6}});
        }
    }

    void remove()
    {
        const Lif one = lif();
        const std::vector<Given> key {{"instance", one.instance}, {"lif", one.name}};
        switch (below(14)) {
        case 0:
            return call("DelLumoInstance", {{"instance", one.instance}});
        case 1:
        case 2:
            return call("DelLif", key);
        case 3:
            return call("SetBridgeLif", {key[0], key[1], {"add", "0"}});
        case 4:
            return call("BridgeDel", {{"key", name("b", 3)}});
        case 5:
            return call("BridgeClusterSet", {{"key", name("k", 3)}, {"on", "0"}});
        case 6:
            return call("DelPolicyTable", {{"table", number(3)}});
        case 7:
            return call("ClearArp", {{"instance", one.instance}});
        case 8:
            return call("DelBridgeEndpoint", {{"key", name("e", 4)}});
        case 9:
            return call("DelMRoutingMRouter", {{"instance", one.instance}});
        case 10:
            return call("BridgeLocalTransportNodeSet", {{"block", std::string(128, '0')}, {"on", "0"}});
        case 11:
            return call("BridgeClearFdbTable", {{"key", name("b", 3)}});
        case 12:
            return call("DelLifPolicyTableRef", key);
        default:
            return call("UnPlumbLumoConnection", {{"name", name("c", 3)}});
        }
    }

    std::mt19937 _random;
};

Value state()
{
    return read_state({}, order);
}

std::string shown_differences(const Value& from, const Value& to)
{
    return text_of(differences(from, to));
}

unsigned worlds()
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
    const char* const said = std::getenv("WORLDS");
    return said ? static_cast<unsigned>(std::strtoul(said, nullptr, 10)) : 50;
}

TEST(worlds, are_brought_back)
{
    std::size_t calls = 0;
    for (unsigned seed = 0; seed < worlds(); ++seed) {
        SCOPED_TRACE(fmt::format("seed {}", seed));
        World world(seed);
        world.build();
        const Value before = state();
        world.change();
        HostModule module(order);
        const Outcome outcome = carry_out(module, plan_of(state(), before, order), before, order);
        ASSERT_FALSE(outcome.why_not) << outcome.why_not->what();
        calls += outcome.done.size();
        ASSERT_EQ(shown_differences(before, state()), "");
        ASSERT_THAT(plan_of(state(), before, order).calls, IsEmpty());
    }
    // As many as there are changes to be undone.
    EXPECT_GT(calls, std::size_t {8} * worlds());
}

TEST(worlds, are_what_their_files_say)
{
    for (unsigned seed = 0; seed < worlds(); ++seed) {
        World(seed).build();
        const Value saved = read_state({"", Statistics::Included}, order);
        const std::string text = print_document(saved, Spacing::Indented);
        ASSERT_TRUE(checked(parse_document(text, "file"), "file") == saved) << text;
        ASSERT_EQ(print_document(read_state({"", Statistics::Included}, order), Spacing::Indented), text);
    }
}

// Fails at one of its calls, and perhaps at all after it.
class Failing : public HostModule
{
public:
    explicit Failing(unsigned which) : HostModule(order), _left(which) {}
    bool stays = false;

    void call(const Call& call) override
    {
        if (_left == 0 || --_left > 0)
            return HostModule::call(call);
        _left = stays ? 1 : 0;
        throw Failure("it failed", std::string(call.operation->name), EIO, "");
    }

private:
    unsigned _left;
};

TEST(worlds, are_rolled_back)
{
    for (unsigned seed = 0; seed < worlds(); ++seed) {
        SCOPED_TRACE(fmt::format("seed {}", seed));
        World world(seed);
        world.build();
        const Value before = state();
        world.change();
        const Value wanted = state();
        HostModule host(order);
        carry_out(host, plan_of(wanted, before, order), before, order);
        const Plan plan = plan_of(state(), wanted, order);
        if (plan.calls.empty())
            continue;
        Failing module(1 + seed % static_cast<unsigned>(plan.calls.size()));
        const Outcome outcome = carry_out(module, plan, wanted, order);
        ASSERT_TRUE(outcome.why_not);
        ASSERT_EQ(outcome.done.size() + outcome.not_done.size(), plan.calls.size());
        const Remains remains = roll_back(module, before, {}, order);
        ASSERT_THAT(remains.left, IsEmpty());
        ASSERT_FALSE(remains.why_unknown);
        ASSERT_EQ(shown_differences(before, state()), "");
    }
}

TEST(worlds, say_what_is_left_where_rolling_back_fails)
{
    World world(1);
    world.build();
    const Value wanted = state();
    World(2).build();
    const Value before = state();
    const Plan plan = plan_of(before, wanted, order);
    Failing module(static_cast<unsigned>(plan.calls.size()));
    module.stays = true;
    ASSERT_TRUE(carry_out(module, plan, wanted, order).why_not);
    EXPECT_THAT(roll_back(module, before, {}, order).left, Not(IsEmpty()));
}

} // namespace
