// Reads straight into the caller's buffer, and the result areas of sets and deletes.
#include "lumozeph.h"
#include "reads.h"

namespace fuzz {

namespace {

struct RawRead
{
    std::string name;
    std::size_t room;
    std::function<std::int32_t(char*)> read;
};

// The operation zeroes the area before the call.
struct ResultSend
{
    std::string name;
    std::function<std::int32_t(LumoCmdResult*)> send;
};

std::uint32_t* number(char* buffer)
{
    return reinterpret_cast<std::uint32_t*>(buffer);
}

const std::vector<RawRead> raw_reads {
    {"GetConnections", 131072, LUMOZEPH_GetConnections},
    {"GetConnection", 152, [](char* buffer) { return LUMOZEPH_GetConnection("name", buffer); }},
    {"GetVMAC", 6, [](char* buffer) { return LUMOZEPH_GetVMAC("name", reinterpret_cast<std::uint8_t*>(buffer)); }},
    {"PerformFullSyncSave", 4, [](char* buffer) { return LUMOZEPH_PerformFullSyncSave(1, number(buffer)); }},
    {"GetFullSyncSaveStatus", 4, [](char* buffer) { return LUMOZEPH_GetFullSyncSaveStatus(number(buffer)); }},
    {"GetArps", 7471104, [](char* buffer) { return LUMOZEPH_GetArps("inst", "lif", buffer); }},
    {"GetProxyArps", 7471104, [](char* buffer) { return LUMOZEPH_GetProxyArps("inst", nullptr, buffer); }},
    {"GetArpsv6", 7471104, [](char* buffer) { return LUMOZEPH_GetArpsv6("inst", "lif", buffer); }},
    {"DumpFLTable", 426080, [](char* buffer) { return LUMOZEPH_DumpFLTable(1, buffer); }},
    {"GetPmac", 131072, LUMOZEPH_GetPmac},
    {"GetBeStats", 146, [](char* buffer) { return LUMOZEPH_GetBeStats("key", buffer); }},
    {"GetBeStatus", 229, [](char* buffer) { return LUMOZEPH_GetBeStatus("key", buffer); }},
    {"GetLocaleId", 16, LUMOZEPH_GetLocaleId},
    {"BridgeGetLocalTransportNode", 2048, [](char* buffer) { return LUMOZEPH_BridgeGetLocalTransportNode(buffer, 1); }},
    {"GetBFDPortConnections", 131072, LUMOZEPH_GetBFDPortConnections},
    {"GetMRoutingReplicationIP", 4,
        [](char* buffer) { return LUMOZEPH_GetMRoutingReplicationIP("inst", 1, number(buffer)); }},
    {"GetMRoutingMRouterIP", 4, [](char* buffer) { return LUMOZEPH_GetMRoutingMRouterIP("inst", 1, number(buffer)); }},
};

const std::vector<ResultSend> result_sends {
    {"SetRoute", [](LumoCmdResult* result) { return LUMOZEPH_SetRoute(1, 2, 3, "lif", "inst", 4, result); }},
    {"DelRoute", [](LumoCmdResult* result) { return LUMOZEPH_DelRoute(1, 2, 3, "lif", "inst", result); }},
    {"SetLifPolicy",
        [](LumoCmdResult* result) { return LUMOZEPH_SetLifPolicy(4, "text", 1, 2, 3, "lif", "inst", 4, result); }},
    {"DelLifPolicy",
        [](LumoCmdResult* result) { return LUMOZEPH_DelLifPolicy(4, "text", 1, 2, 3, "lif", "inst", 4, result); }},
    {"SetPolicy", [](LumoCmdResult* result) { return LUMOZEPH_SetPolicy(1, 2, 3, 4, result); }},
    {"DelPolicy", [](LumoCmdResult* result) { return LUMOZEPH_DelPolicy(1, 2, 3, result); }},
    {"SetPolicyTable", [](LumoCmdResult* result) { return LUMOZEPH_SetPolicyTable(1, "name", result); }},
    {"DelPolicyTable", [](LumoCmdResult* result) { return LUMOZEPH_DelPolicyTable(1, result); }},
    {"SetLifPolicyTableRef",
        [](LumoCmdResult* result) { return LUMOZEPH_SetLifPolicyTableRef("inst", "lif", 0, nullptr, result); }},
    {"DelLifPolicyTableRef",
        [](LumoCmdResult* result) { return LUMOZEPH_DelLifPolicyTableRef("inst", "lif", result); }},
};

// The reply lies at the beginning of the buffer, and behind it is what was there before.
void expect_written(const System& system, const Ended& ended, const Buffer& buffer, char behind)
{
    const Reply& reply = system.reply();
    if (reply.error() != 0)
        expect_failure(ended, reply.error());
    else
        expect_success(ended);
    const std::size_t written = reply.error() != 0 ? 0 : reply.written(buffer.size());
    expect_bytes("what was written", buffer.content(0, written), reply.content(0, written));
    const std::size_t more = std::min<std::size_t>(buffer.size() - written, 256);
    expect_bytes("what lies behind", buffer.content(written, more), std::string(more, behind));
    expect_equal("allocations", system.allocations(), 0);
}

void run(const RawRead& row, Input& input)
{
    System system(input, {Looks::Nowhere, row.room});
    const Buffer buffer(row.room);
    const Ended ended = system.call([&] { return row.read(buffer.data()); });
    expect_written(system, ended, buffer, buffer.fresh());
    if (system.reply().open_error() == 0)
        expect_equal("room", system.exchanges().at(0).room, static_cast<std::int64_t>(row.room));
}

void run(const ResultSend& row, Input& input)
{
    System system(input, {Looks::Nowhere, sizeof(LumoCmdResult)});
    const Buffer area(sizeof(LumoCmdResult));
    const Ended ended = system.call([&] { return row.send(reinterpret_cast<LumoCmdResult*>(area.data())); });
    expect_written(system, ended, area, '\0');
}

// The one buffer whose size the caller says.
void read_all_endpoints(Input& input)
{
    constexpr std::uint32_t unit = 235;
    now_reading("GetBeAll");
    const Buffer buffer(input.half());
    System system(input, {Looks::Nowhere, unit});
    std::uint32_t count = 4711;
    const Ended ended = system.call(
        [&] { return LUMOZEPH_GetBeAll(buffer.data(), static_cast<std::uint32_t>(buffer.size()), &count); });
    expect_written(system, ended, buffer, buffer.fresh());
    expect_equal("count", count, ended.result == 0 ? system.exchanges().at(0).reported / unit : 4711);
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    switch (input.byte() % 3) {
    case 0:
        fuzz::run(choose(fuzz::raw_reads, input), input);
        break;
    case 1:
        fuzz::run(choose(fuzz::result_sends, input), input);
        break;
    default:
        fuzz::read_all_endpoints(input);
    }
    return 0;
}
