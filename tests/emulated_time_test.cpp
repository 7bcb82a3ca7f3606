// The library against the emulator's model under a clock that stands still until it is advanced.
#include "fake/emulated.h"
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

class EmulatedTime : public testing::Test
{
protected:
    EmulatedDevice device {{.clock = emulator::Clock::Manual}};

    Call call(const std::function<std::int32_t()>& call) { return observe(device, call); }
    void succeed(const std::function<std::int32_t()>& function) { EXPECT_THAT(call(function), Succeeds()); }

    std::uint64_t counted(const std::function<std::int32_t(LumoStats**)>& read)
    {
        LumoStats* stats = nullptr;
        EXPECT_THAT(call([&] { return read(&stats); }), Succeeds());
        const std::uint64_t count = stats != nullptr ? +stats->counters[1] : 0;
        LUMOZEPH_ReleaseStats(stats);
        return count;
    }
    std::uint64_t done_by_all() { return counted(LUMOZEPH_GetLumoDiStats); }
    std::uint64_t done_for(const char* instance)
    {
        return counted([=](LumoStats** out) { return LUMOZEPH_GetLumoInstanceCPStats(instance, out); });
    }

    std::uint32_t connections_up()
    {
        LumoCPSyncState* state = nullptr;
        succeed([&] { return LUMOZEPH_GetLumoInstanceCPSyncState("blue", &state); });
        const std::uint32_t up = state->entries[0].value6;
        LUMOZEPH_ReleaseStats(state);
        return up;
    }

    struct Session
    {
        int state;
        std::uint64_t seconds;
        bool operator==(const Session&) const = default;
    };

    std::vector<Session> sessions(const char* cluster = nullptr)
    {
        LumoBridgeBfdSessionList* list = nullptr;
        succeed([&] { return LUMOZEPH_GetBridgeBFDSessions(cluster, &list); });
        std::vector<Session> all;
        for (int i = 0; i < list->count; ++i)
            all.push_back({list->records[i].value3, list->records[i].value5});
        LUMOZEPH_ReleaseBridgeBFDSessions(list);
        return all;
    }
};

TEST_F(EmulatedTime, WhatIsSetIsCounted)
{
    succeed([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); });
    succeed([] { return LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", nullptr); });
    succeed([] { return LUMOZEPH_SetLogLevel(3); });
    EXPECT_EQ(done_by_all(), 3u);
    EXPECT_EQ(done_for("blue"), 2u);
    // What fails and what is read are not.
    EXPECT_THAT(call([] { return LUMOZEPH_EnableLif("blue", "no lif"); }), Fails(ENOENT));
    EXPECT_THAT(call([] { return LUMOZEPH_PreUnload(); }), Fails(EBUSY));
    EXPECT_EQ(done_by_all(), 3u);
    succeed([] { return LUMOZEPH_ResetLumoInstanceCPStats("blue"); });
    EXPECT_EQ(done_for("blue"), 0u);
    succeed([] { return LUMOZEPH_ResetLumoDiStats(); });
    EXPECT_EQ(done_by_all(), 0u);
    succeed([] { return LUMOZEPH_DelLumoInstance("blue"); });
    EXPECT_EQ(done_by_all(), 1u);
}

TEST_F(EmulatedTime, AConnectionTakesASecondToComeUp)
{
    succeed([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); });
    succeed([] { return LUMOZEPH_PlumbLumoConnection("port", "text", 0, nullptr, nullptr, nullptr); });
    device.advance(milliseconds(999));
    EXPECT_EQ(connections_up(), 0u);
    device.advance(milliseconds(1));
    EXPECT_EQ(connections_up(), 1u);
    succeed([] { return LUMOZEPH_UnPlumbLumoConnection("port"); });
    EXPECT_EQ(connections_up(), 0u);
}

TEST_F(EmulatedTime, EveryPortHasASessionWithEveryNode)
{
    constexpr std::uint8_t port[6] = {2, 0, 0, 0, 0, 1};
    constexpr std::uint8_t node[6] = {2, 0, 0, 0, 0, 2};
    succeed([] { return LUMOZEPH_BridgeClusterSet("one", 1); });
    succeed([] { return LUMOZEPH_BridgeClusterSet("two", 1); });
    succeed([&] { return LUMOZEPH_BridgeClusterNodeSet("one", "a", node, 1); });
    EXPECT_THAT(sessions(), testing::IsEmpty());
    device.advance(seconds(10));
    succeed([&] { return LUMOZEPH_PlumbBFDPortConnection("port", "text", port); });
    EXPECT_THAT(sessions(), testing::ElementsAre(Session {1, 0}));
    device.advance(seconds(1));
    EXPECT_THAT(sessions(), testing::ElementsAre(Session {2, 1}));
    succeed([&] { return LUMOZEPH_BridgeClusterNodeSet("two", "b", node, 1); });
    device.advance(seconds(1));
    EXPECT_THAT(sessions(), testing::ElementsAre(Session {3, 2}, Session {2, 1}));
    EXPECT_THAT(sessions("two"), testing::ElementsAre(Session {2, 1}));
    EXPECT_THAT(sessions("three"), testing::IsEmpty());
    succeed([] { return LUMOZEPH_BridgeClusterSet("one", 0); });
    EXPECT_THAT(sessions(), testing::SizeIs(1));
    succeed([] { return LUMOZEPH_UnPlumbBFDPortConnection("port"); });
    EXPECT_THAT(sessions(), testing::IsEmpty());
}

} // namespace
