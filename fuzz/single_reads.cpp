// Reads of one decoded record.
#include "lumozeph.h"
#include "reads.h"

#include <cerrno>

namespace fuzz {

namespace {

struct SingleRead
{
    std::string name;
    std::vector<world::Layout> layouts;
    std::function<std::int32_t(void**)> read;
    std::function<std::int32_t(void*)> release;
};

template <class Record>
SingleRead single(const std::string& name, const std::vector<world::Layout>& layouts,
    std::type_identity_t<std::int32_t (*)(Record**)> read, std::int32_t (*release)(Record*))
{
    return {name, layouts, storing<Record>(read), releasing(release)};
}

std::int32_t release_stats(LumoStats* record)
{
    return LUMOZEPH_ReleaseStats(record);
}

std::int32_t release_sync_state(LumoCPSyncState* record)
{
    return LUMOZEPH_ReleaseStats(record);
}

const std::vector<world::Layout> stats {world::layouts::stats_of_kind_0, world::layouts::stats_of_kind_1,
    world::layouts::stats_of_kind_3, world::layouts::stats_of_no_kind};

const std::vector<SingleRead> rows {
    single(
        "GetInstance", one_of(world::layouts::instance),
        [](LumoInstanceInfo** out) { return LUMOZEPH_GetInstance("inst", out); }, LUMOZEPH_ReleaseInstance),
    single(
        "GetLumoInstanceCPStats", stats, [](LumoStats** out) { return LUMOZEPH_GetLumoInstanceCPStats("inst", out); },
        release_stats),
    single(
        "GetLifStats", stats, [](LumoStats** out) { return LUMOZEPH_GetLifStats("inst", "lif", out); }, release_stats),
    single(
        "GetLifStatsCached", stats, [](LumoStats** out) { return LUMOZEPH_GetLifStatsCached("inst", "lif", out); },
        release_stats),
    single(
        "GetLumoDiStats", stats, [](LumoStats** out) { return LUMOZEPH_GetLumoDiStats(out); }, release_stats),
    single(
        "GetLumoInstanceCPSyncState", one_of(world::layouts::sync_state),
        [](LumoCPSyncState** out) { return LUMOZEPH_GetLumoInstanceCPSyncState("inst", out); }, release_sync_state),
    single(
        "GetLif", one_of(world::layouts::lif), [](LumoLifInfo** out) { return LUMOZEPH_GetLif("inst", "lif", out); },
        LUMOZEPH_ReleaseLif),
    single(
        "GetBridgeLif", one_of(world::layouts::lif),
        [](LumoLifInfo** out) { return LUMOZEPH_GetBridgeLif("inst", "lif", out); }, LUMOZEPH_ReleaseLif),
    single(
        "GetResolveRoute", one_of(world::layouts::route),
        [](LumoRouteInfo** out) { return LUMOZEPH_GetResolveRoute("inst", 1, 2, 3, out); }, LUMOZEPH_ReleaseRoute),
    single(
        "GetLifPolicyTableRef", one_of(world::layouts::policy_table_ref),
        [](LumoLifPolicyTableRef** out) { return LUMOZEPH_GetLifPolicyTableRef("inst", "lif", out); },
        LUMOZEPH_ReleaseLifPolicyTableRef),
    single(
        "GetBridgeInstance", one_of(world::layouts::bridge_instance),
        [](LumoBridgeInstanceInfo** out) { return LUMOZEPH_GetBridgeInstance("bridge", out); },
        LUMOZEPH_ReleaseBridgeInstance),
    single(
        "GetMRoutingDomain", one_of(world::layouts::mcast_domain),
        [](LumoMcastDomainInfo** out) { return LUMOZEPH_GetMRoutingDomain("inst", out); },
        LUMOZEPH_ReleaseMRoutingDomainData),
};

void run(const SingleRead& row, Input& input)
{
    const std::size_t size = row.layouts.front().size;
    System system(input, {Looks::AtWholeRecords, size});
    void* out = elsewhere;
    const Ended ended = system.call([&] { return row.read(&out); });

    const Reply& reply = system.reply();
    if (system.refused() == 1) {
        expect_failure(ended, ENOMEM);
        expect_equal("out", out, elsewhere);
    } else if (reply.error() != 0) {
        expect_failure(ended, reply.error());
        expect_equal("out", out, elsewhere);
    } else if (system.refused() == 2) {
        expect_failure(ended, ENOMEM);
        expect_equal("out", out, nullptr);
    } else if (static_cast<std::int32_t>(system.exchanges().at(0).reported) < static_cast<std::int32_t>(size)) {
        expect_failure(ended, EBADMSG);
        expect_equal("out", out, nullptr);
    } else {
        expect_success(ended);
        expect_record(row.layouts, out, reply.content(0, size));
        expect_success(system.call([&] { return row.release(out); }));
    }
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    fuzz::run(choose(fuzz::rows, input), input);
    return 0;
}
