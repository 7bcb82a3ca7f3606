// Bridge endpoints.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;

namespace {

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

TEST(Endpoint, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, ident), 64u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value1), 128u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value2), 130u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value3), 131u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, value4), 135u);
    EXPECT_EQ(offsetof(LumoBridgeEndpointInfo, block), 139u);
}

} // namespace
