// A million commands, chosen at random among things that have few names, so that they meet: whatever is sent, the model
// stays consistent.
#include "emulator/model/addresses.h"
#include "emulator/model/lif_users.h"
#include "emulator/model/state.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/state/state_file.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <map>
#include <random>
#include <set>

using namespace emulator;
using namespace emulator::protocol;

namespace {

constexpr std::uint32_t plenty_of_room = 0x7fffffff;

class Commands
{
public:
    explicit Commands(std::uint32_t seed) : random_(seed)
    {
        for (const Command* command : commands_by_number)
            if (command != nullptr)
                all_.push_back(command);
    }

    // What takes much away at once is rare.
    const Command& next()
    {
        const std::set<std::string_view> rare {"DelLumoInstance", "GenericFlush", "BridgeDel", "DelPolicyTable",
            "FlushBridgeEndpointOn", "FlushBridgeEndpointOff", "DelLif", "SetBridgeLifOff", "DisableLif"};
        const Command* command = nullptr;
        do
            command = all_[below(all_.size())];
        while (rare.contains(command->name) && below(10) != 0);
        return *command;
    }

    std::vector<std::byte> input(const Command& command)
    {
        std::vector<std::byte> bytes(command.input.size);
        fill(command.input, bytes);
        return bytes;
    }

    std::size_t below(std::size_t end) { return random_() % end; }

private:
    template <class Value, std::size_t Count>
    Value one_of(const Value (&values)[Count])
    {
        return values[below(Count)];
    }

    void fill(const Layout& layout, std::span<std::byte> bytes)
    {
        for (const Field* field : layout.fields)
            fill(*field, bytes.subspan(field->offset, field->width));
    }

    void fill(const Field& field, std::span<std::byte> bytes)
    {
        const auto put = [&](const void* value, std::size_t size) {
            std::memcpy(bytes.data(), value, std::min(size, bytes.size()));
        };
        const auto put_number = [&](std::uint64_t value) { put(&value, bytes.size()); };
        switch (field.kind) {
        case Kind::Text: {
            const std::string text = field.name == "mac" ? one_of(macs_) : one_of(names_);
            put(text.data(), text.size());
            break;
        }
        case Kind::Ipv4: {
            const std::uint32_t address = field.name == "mask" ? one_of(masks_) : one_of(addresses_);
            put(&address, sizeof address);
            break;
        }
        case Kind::Ipv6:
            bytes[0] = std::byte {static_cast<std::uint8_t>(one_of({0x00, 0x20, 0xfe}))};
            bytes[1] = std::byte {static_cast<std::uint8_t>(bytes[0] == std::byte {0xfe} ? 0x80 : 0)};
            bytes[15] = static_cast<std::byte>(below(2));
            break;
        case Kind::Table:
            for (std::size_t at = 0; at + field.entry->size <= bytes.size(); at += field.entry->size)
                fill(*field.entry, bytes.subspan(at, field.entry->size));
            break;
        case Kind::Mac:
        case Kind::Bytes:
            bytes[0] = static_cast<std::byte>(below(4));
            break;
        case Kind::Number:
        case Kind::SignedNumber:
        case Kind::Flag:
            put_number(field.name == "prefixLen" ? one_of({0ul, 8ul, 64ul, 128ul, 200ul})
                       : field.name == "mtu"     ? one_of({0ul, 1280ul, 1ul})
                                                 : below(4));
            break;
        }
    }

    static constexpr const char* names_[] = {"", "one", "two", "three", "four", "a b%", "{\xff"};
    static constexpr const char* macs_[] = {"02:00:00:00:00:01", "02:00:00:00:00:0A", "02:00:00:00:00:0a", "02", ""};
    static constexpr std::uint32_t masks_[] = {0, 0xff, 0xffff, 0xffffff, 0xffffffff, 0xff00ff};
    static constexpr std::uint32_t addresses_[] = {0, 0x0a, 0x010a, 0x0100000a, 0x0200000a, 0x0101010a, 0xffffffff};

    std::mt19937 random_;
    std::vector<const Command*> all_;
};

// Whether a collection has no entry twice, and not too many.
template <class Entry>
void check_collection(const Collection<Entry>& all, std::size_t most, const char* what)
{
    ASSERT_LE(all.size(), most) << what;
    std::set<std::decay_t<decltype(std::declval<Entry>().identity())>> seen;
    for (const Entry& entry : all)
        ASSERT_TRUE(seen.insert(entry.identity()).second) << what;
}

template <class Entry>
bool holds(Collection<Entry>& all, const Entry* entry)
{
    return std::any_of(all.begin(), all.end(), [&](const Entry& each) { return &each == entry; });
}

void check_lif(State& state, Instance& instance, Lif& lif)
{
    ASSERT_LE(lif.ipv6.size(), lifs::most_ipv6);
    for (Route* route : lif.routes)
        ASSERT_TRUE(holds(instance.routes, static_cast<const Route*>(route)));
    for (const Route6* route : lif.routes6)
        ASSERT_TRUE(holds(instance.routes6, route));
    for (const LifPolicy* policy : lif.policies)
        ASSERT_TRUE(holds(instance.lif_policies, policy));
    for (const Neighbour* neighbour : lif.neighbours)
        ASSERT_TRUE(holds(instance.neighbours, neighbour));
    for (const PolicyTableRef& ref : lif.policy_table_refs) {
        PolicyTable* const table = state.policy_tables.find(table_of(ref));
        ASSERT_NE(table, nullptr);
        ASSERT_TRUE(table->referring.contains(&lif));
    }
    if (lif.kind == LifKind::Bridge && !lif.aux_name.empty()) {
        Bridge* const bridge = state.bridges.find(lif.aux_name);
        ASSERT_NE(bridge, nullptr);
        ASSERT_TRUE(bridge->lifs.contains(&lif));
    }
}

void check_uses(Instance& instance)
{
    const auto lif = [&](const std::string& name) { return instance.lifs.find(name); };
    for (Route& route : instance.routes) {
        ASSERT_FALSE(route.next_hops.empty());
        ASSERT_LE(route.next_hops.size(), routes::most_next_hops);
        for (const NextHop& hop : route.next_hops)
            if (!hop.lif.empty()) {
                ASSERT_NE(lif(hop.lif), nullptr);
                ASSERT_TRUE(lif(hop.lif)->routes.contains(&route));
            }
    }
    for (const Route6& route : instance.routes6)
        if (!route.lif.empty()) {
            ASSERT_NE(lif(route.lif), nullptr);
            ASSERT_TRUE(lif(route.lif)->routes6.contains(&route));
        }
    for (const LifPolicy& policy : instance.lif_policies)
        if (!policy.next_hop.lif.empty()) {
            ASSERT_NE(lif(policy.next_hop.lif), nullptr);
            ASSERT_TRUE(lif(policy.next_hop.lif)->policies.contains(&policy));
        }
    for (const Neighbour& neighbour : instance.neighbours) {
        ASSERT_NE(lif(neighbour.lif), nullptr);
        ASSERT_TRUE(lif(neighbour.lif)->neighbours.contains(&neighbour));
    }
}

void check_networks(const Instance& instance)
{
    std::map<std::uint32_t, std::size_t> masks;
    std::size_t lifs = 0;
    std::size_t addresses = 0;
    for (const Lif& lif : instance.lifs) {
        if (lif.enabled && lif.address != 0) {
            ++lifs;
            ++masks[lif.mask];
        }
        addresses += lif.enabled ? lif.ipv6.size() : 0;
    }
    for (const Route& route : instance.routes)
        ++masks[route.mask];
    ASSERT_EQ(instance.lifs_on_subnets, lifs);
    ASSERT_EQ(instance.addresses_on_subnets6, addresses);
    ASSERT_EQ(instance.masks.size(), masks.size());
    for (const auto& [mask, count] : instance.masks)
        ASSERT_EQ(count, masks[mask]);
    ASSERT_LE(instance.routes.size() + lifs, routes::most);
    ASSERT_LE(instance.routes6.size() + addresses, routes6::most);
}

void check_instance(State& state, Instance& instance)
{
    check_collection(instance.lifs, lifs::most, "lifs");
    check_collection(instance.routes, routes::most, "routes");
    check_collection(instance.routes6, routes6::most, "routes6");
    check_collection(instance.lif_policies, lif_policies::most, "lif_policies");
    check_collection(instance.neighbours, neighbours::most, "neighbours");
    check_collection(instance.local_receivers, mcast_receivers::most_local, "local receivers");
    check_collection(instance.remote_receivers, mcast_receivers::most_remote, "remote receivers");
    for (Lif& lif : instance.lifs)
        ASSERT_NO_FATAL_FAILURE(check_lif(state, instance, lif));
    ASSERT_NO_FATAL_FAILURE(check_uses(instance));
    ASSERT_NO_FATAL_FAILURE(check_networks(instance));
}

void check(State& state)
{
    check_collection(state.instances, instances::most, "instances");
    check_collection(state.policy_tables, policy_tables::most, "policy tables");
    check_collection(state.bridges, bridges::most, "bridges");
    check_collection(state.endpoints, endpoints::most, "endpoints");
    check_collection(state.connections, connections::most, "connections");
    check_collection(state.bfd_connections, bfd::most, "BFD connections");
    ASSERT_LE(state.clusters.size(), clusters::most);
    ASSERT_LE(state.pmacs.size(), fdb::most_pmacs);
    ASSERT_EQ(state.instances_by_uuid.size(), state.instances.size());
    for (Instance& instance : state.instances) {
        ASSERT_EQ(state.instances_by_uuid.at(instance.uuid), &instance);
        ASSERT_NO_FATAL_FAILURE(check_instance(state, instance));
    }
    for (PolicyTable& table : state.policy_tables)
        check_collection(table.policies, policies::most, "policies");
    for (const Bridge& bridge : state.bridges)
        check_collection(bridge.fdb, fdb::most, "fdb");
    for (const Endpoint& endpoint : state.endpoints)
        if (!endpoint.bridge.empty()) {
            ASSERT_NE(state.bridges.find(endpoint.bridge), nullptr);
            ASSERT_TRUE(state.bridges.find(endpoint.bridge)->endpoints.contains(&endpoint));
        }
}

// What is asked whatever is there: the reads of lists.
void read_everything(Module& module, Commands& commands)
{
    for (const Command* command : commands_by_number) {
        if (command == nullptr || (command->reply.shape != Shape::List && command->reply.shape != Shape::EndedList &&
                                      command->reply.shape != Shape::CountedList))
            continue;
        const std::size_t room = command->reply.head.size + command->reply.record.size * (command->reply.most + 1);
        const Answer answer =
            module.answer(command->number, commands.input(*command), static_cast<std::uint32_t>(room));
        ASSERT_THAT(answer.error, testing::AnyOf(0, ENOENT)) << command->name;
    }
}

bool reads(const Command& command)
{
    return command.reply.shape != Shape::Nothing && command.reply.shape != Shape::Result &&
           command.name != "PerformFullSyncSave";
}

std::string saved(Module& module)
{
    return json::print(state_of(module));
}

void run(std::size_t steps, std::uint32_t seed)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    Commands commands(seed);
    Module module({.clock = Clock::Manual});
    std::map<int, std::size_t> ends;
    for (std::size_t step = 0; step < steps; ++step) {
        const Command& command = commands.next();
        const bool compared = step % 100 == 0;
        const std::string before = compared ? saved(module) : "";
        const Answer answer = module.answer(command.number, commands.input(command), plenty_of_room);
        ++ends[answer.error];
        if (answer.error != 0) {
            ASSERT_TRUE(answer.reply.empty());
        }
        // A call that fails has no effect, and neither has a read.
        if (compared && (answer.error != 0 || reads(command))) {
            ASSERT_EQ(saved(module), before) << command.name;
        }
        ASSERT_NO_FATAL_FAILURE(check(module.state())) << "step " << step << ": " << command.name;
        module.advance(std::chrono::milliseconds(commands.below(100)));
        if (step % 1000 != 0)
            continue;
        ASSERT_NO_FATAL_FAILURE(read_everything(module, commands));
        const std::string text = saved(module);
        Module again({.clock = Clock::Manual});
        ASSERT_NO_THROW(set_state(again, json::parse(text))) << text;
        ASSERT_EQ(saved(again), text);
        // What was loaded goes on as what it was saved from.
        if (commands.below(2) == 0)
            set_state(module, json::parse(text));
    }
    // Most commands do something, and all the reasons why one does not are met.
    EXPECT_GT(ends[0], steps / 4);
    for (const int error : {EINVAL, ENOENT, EEXIST, ESRCH, EADDRNOTAVAIL, ENETUNREACH, ENETDOWN, EBUSY})
        EXPECT_GT(ends[error], 0u) << error;
}

TEST(Random, FiveThousandCommands)
{
    run(5000, 1);
}

// By label and by name: scripts/test leaves it out.
TEST(RandomLong, AMillionCommands)
{
    const char* const seed = std::getenv("SEED");
    run(1000000, seed != nullptr ? static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 0)) : 2);
}

} // namespace
