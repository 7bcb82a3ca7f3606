// What operations get: who frees it, how far it reaches, and what of it is at its cap.
#include "fake/matchers.h"
#include "operations/reply.h"

#include <lumozeph.hpp>
#include <numeric>
#include <ranges>
#include <span>

using namespace fake;
using testing::ElementsAre;

namespace {

Bytes number(std::uint32_t value)
{
    Bytes bytes(4, '\0');
    operations::put(bytes, 0, value, 4);
    return bytes;
}

// So many interfaces, with what stands at an offset of each.
Bytes lifs(std::size_t count, std::size_t offset = 0, const Bytes& with = {})
{
    Bytes records;
    for (std::size_t i = 0; i < count; ++i)
        records += Bytes(576, '\0').replace(offset, with.size(), with);
    return records;
}

std::int32_t done(const std::function<void()>& work)
{
    work();
    return 0;
}

const System small {.kept_content = 4096};

TEST(Lists, AreRanges)
{
    static_assert(std::ranges::contiguous_range<lumozeph::lif_list> && std::ranges::sized_range<lumozeph::lif_list>);
    ScriptedDevice device(replies(lifs(3, 128, number(7))));
    observe(device, [] {
        return done([] {
            std::uint32_t sum = 0;
            for (auto& l : lumozeph::get_lifs("blue"))
                sum += l.ipAddr;
            EXPECT_EQ(sum, 21u);
        });
    });
    device.next(replies(lifs(3)));
    observe(device, [] {
        return done([] {
            auto list = lumozeph::get_lifs("blue");
            EXPECT_EQ(list.size(), 3u);
            EXPECT_FALSE(list.empty());
            EXPECT_EQ(list.end() - list.begin(), 3);
            EXPECT_EQ(&list[2], list.data() + 2);
            EXPECT_EQ(list.span().size(), 3u);
            EXPECT_EQ(std::as_const(list).span().data(), list.data());
            list[0].lifValue1 = 5;
            EXPECT_EQ(std::as_const(list)[0].lifValue1, 5u);
        });
    });
}

TEST(Lists, SayWhetherTheyAreAtTheirCap)
{
    for (const std::size_t count : {std::size_t {0}, std::size_t {9}, std::size_t {10}, std::size_t {11}}) {
        ScriptedDevice device(replies(Bytes(count * 183, '\1')));
        observe(device, [count] {
            return done([count] {
                const auto clusters = lumozeph::get_bridge_clusters();
                EXPECT_EQ(clusters.size(), std::min<std::size_t>(count, 10));
                EXPECT_EQ(clusters.truncated(), count >= 10);
            });
        });
    }
}

TEST(Lists, AreFreedOnceWhereverTheyGo)
{
    ScriptedDevice device(replies(lifs(2)));
    device.next(replies(lifs(1))).next(fails(EIO));
    const Call call = observe(device, small, [] {
        return done([] {
            lumozeph::lif_list first = lumozeph::get_lifs("blue");
            lumozeph::lif_list second = std::move(first);
            EXPECT_TRUE(first.empty()); // NOLINT(bugprone-use-after-move): it is empty.
            EXPECT_EQ(second.size(), 2u);
            first = lumozeph::get_lifs("blue");
            std::swap(first, second);
            EXPECT_EQ(first.size(), 2u);
            EXPECT_EQ(second.size(), 1u);
            second = std::move(first);
            EXPECT_EQ(second.size(), 2u);
            EXPECT_EQ(lumozeph::try_get_lifs("blue", second).value(), EIO);
            EXPECT_TRUE(second.empty());
        });
    });
    EXPECT_THAT(call, LeavesNothingAllocated());
}

TEST(Records, AreFreedOnceWhereverTheyGo)
{
    ScriptedDevice device(replies(lifs(1, 128, number(1))));
    device.next(replies(lifs(1, 128, number(2)))).next(replies(lifs(1, 128, number(3)))).next(fails(EIO));
    const Call call = observe(device, [] {
        return done([] {
            auto first = lumozeph::get_lif("blue", "uplink");
            auto second = lumozeph::get_lif("blue", "uplink");
            EXPECT_EQ(first->ipAddr, 1u);
            second = std::move(first);
            EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): it is empty.
            EXPECT_EQ((*second).ipAddr, 1u);
            const lumozeph::lif_info copy = *lumozeph::get_lif("blue", "uplink");
            EXPECT_EQ(copy.ipAddr, 3u);
            EXPECT_EQ(lumozeph::try_get_lif("blue", "uplink", second).value(), EIO);
            EXPECT_EQ(second.get(), nullptr);
        });
    });
    EXPECT_THAT(call, LeavesNothingAllocated());
}

TEST(Records, AreGivenAway)
{
    ScriptedDevice device(replies(lifs(1)));
    lumozeph::lif_info* record = nullptr;
    const Call call =
        observe(device, [&] { return done([&] { record = lumozeph::get_lif("blue", "uplink").release(); }); });
    EXPECT_EQ(call.blocks_left.size(), 1u);
    lumozeph::owned_lif_info(record).reset();
}

TEST(CountedArrays, EndWhereTheRecordDoes)
{
    lumozeph::lif_info lif {};
    lumozeph::route_info route {};
    lumozeph::dhcp_relay relay {};
    lumozeph::lif_policy_table_ref ref {};
    const auto sizes = [&](std::uint32_t count) {
        lif.ipv6Count = count;
        route.nextHopCount = static_cast<std::uint8_t>(count);
        relay.relayCount = count;
        ref.refCount = static_cast<std::uint16_t>(count);
        return std::array {lumozeph::ipv6_addrs(lif).size(), lumozeph::next_hops(route).size(),
            lumozeph::servers(relay).size(), lumozeph::refs(ref).size()};
    };
    EXPECT_THAT(sizes(0), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(sizes(5), ElementsAre(5, 5, 5, 5));
    EXPECT_THAT(sizes(0xffffffff), ElementsAre(10, 8, 8, 20));
    EXPECT_EQ(lumozeph::next_hops(route).begin(), route.nextHops);
}

TEST(CountedArrays, OfNumbersAreReadWhereTheyLie)
{
    lumozeph::rss_stats stats {};
    stats.rssEntryCount = 3;
    for (std::uint64_t i = 0; i < 16; ++i) {
        stats.rssWord[i] = static_cast<std::uint32_t>(10 + i);
        stats.rssCounter3[i] = 100 + i;
    }
    const auto words = lumozeph::rss_word(stats);
    EXPECT_THAT(std::vector<std::uint32_t>(words.begin(), words.end()), ElementsAre(10, 11, 12));
    EXPECT_EQ(words[2], 12u);
    const auto counters = lumozeph::rss_counter3(stats);
    EXPECT_EQ(std::accumulate(counters.begin(), counters.end(), std::uint64_t {0}), 303u);
    stats.rssEntryCount = 17;
    EXPECT_EQ(lumozeph::rss_counter1(stats).size(), 16u);
}

// The second command reports so many entries; the first tells how many there are.
std::size_t routes_of(std::uint32_t reported, const std::function<void(const lumozeph::route_v6_block&)>& look)
{
    ScriptedDevice device(replies(number(std::min(reported, 29999u))));
    device.next(reports(Bytes(776, '\1'), static_cast<std::int32_t>(reported * 776)));
    std::size_t size = 0;
    const Call call = observe(device, small, [&] {
        return done([&] {
            const auto routes = lumozeph::get_routes_v6("blue");
            look(routes);
            size = routes.size();
        });
    });
    EXPECT_THAT(call, LeavesNothingAllocated());
    return size;
}

TEST(Routes6, AreAsManyAsAreSureToBeThere)
{
    EXPECT_EQ(routes_of(1,
                  [](const auto& routes) {
                      EXPECT_EQ(routes[0].size(), 776u);
                      EXPECT_EQ(routes[0][775], std::byte {1});
                      EXPECT_FALSE(routes.truncated());
                  }),
        1u);
    EXPECT_EQ(routes_of(8000, [](const auto& routes) { EXPECT_FALSE(routes.truncated()); }), 8000u);
    EXPECT_EQ(routes_of(9000,
                  [](const auto& routes) {
                      EXPECT_TRUE(routes.truncated());
                      EXPECT_EQ(routes.reported(), 9000u);
                      EXPECT_EQ(routes.all().size(), 9000u);
                  }),
        8000u);
    EXPECT_EQ(routes_of(40000, [](const auto& routes) { EXPECT_EQ(routes.all().size(), 30000u); }), 8000u);
}

TEST(Entries, AreAsManyAsTheBufferHolds)
{
    ScriptedDevice device(reports(Bytes(1000, '\1'), 235 * 7));
    observe(device, [] {
        return done([] {
            std::vector<std::byte> buffer(1000);
            const auto all = lumozeph::get_be_all(buffer);
            EXPECT_EQ(all.size(), 4u);
            EXPECT_EQ(all.reported(), 7u);
            EXPECT_TRUE(all.truncated());
            EXPECT_EQ(all[3].data(), buffer.data() + std::size_t {3} * 235);
        });
    });
}

// What C would follow or read beyond is rejected before the call.
TEST(Arguments, ThatCWouldReadBeyondAreRejected)
{
    ScriptedDevice device;
    const Call call = observe(device, [] {
        return done([] {
            lumozeph::rss_ind_table table {};
            table.size = 129;
            EXPECT_EQ(lumozeph::try_soft_rss_table_set("t", table).value(), EINVAL);
            EXPECT_THROW(lumozeph::soft_rss_table_set("t", table), lumozeph::error);
            const lumozeph::bridge_cluster_node_set_arguments node {
                .key = "c", .node = "n", .on = lumozeph::switched::on};
            EXPECT_EQ(lumozeph::try_bridge_cluster_node_set(node).value(), EINVAL);
            EXPECT_THROW(lumozeph::bridge_cluster_node_set(node), lumozeph::error);
        });
    });
    EXPECT_THAT(call, DoesNothing());
}

TEST(Errors, AreSystemErrorsThatNameTheOperation)
{
    ScriptedDevice device(fails(ENOENT));
    observe(device, [] {
        return done([] {
            try {
                lumozeph::get_lifs("blue");
                ADD_FAILURE() << "no exception";
            } catch (const std::system_error& error) {
                EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
                EXPECT_STREQ(error.what(), "get_lifs: No such file or directory");
            }
        });
    });
}

} // namespace
