// Control-plane attachment, port connections, housekeeping and full-sync save.
#include "lumozeph.h"
#include "support/layouts.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;

namespace {

const Layout& sync_state = layouts::sync_state;

const std::vector<SingleRead> single_reads {
    {"GetLumoInstanceCPSyncState", 87, sync_state, Record().text(0, "inst"),
        [](void** out) { return LUMOZEPH_GetLumoInstanceCPSyncState("inst", as<LumoCPSyncState>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
};

INSTANTIATE_TEST_SUITE_P(ControlPlane, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

const std::vector<Send> sends {
    {"SetCPIp", 8, Record().text(0, "inst").u32(136, 0x01020304), [] { return LUMOZEPH_SetCPIp("inst", 0x01020304); }},
    {"SetLumoInstanceCPSyncState", 88, Record().text(0, "inst").u32(64, 0x01020304),
        [] { return LUMOZEPH_SetLumoInstanceCPSyncState("inst", 0x01020304); }},
    {"Plumb", 15, Record().text(64, "name").text(128, "text1").text(144, "text2").text(162, "text3").text(194, "text4"),
        // Kept: the third argument is not sent.
        [] { return LUMOZEPH_PlumbLumoConnection("name", "text1", 0xffffffff, "text2", "text3", "text4"); }},
    {"PlumbWithoutOptionalTexts", 15, Record().text(64, "name").text(128, "text1"),
        [] { return LUMOZEPH_PlumbLumoConnection("name", "text1", 1, nullptr, nullptr, nullptr); }},
    {"PlumbWithLongTexts", 15,
        Record()
            .text(64, Bytes(63, 'n'))
            .text(128, Bytes(15, '1'))
            .text(144, Bytes(17, '2'))
            .text(162, Bytes(31, '3'))
            .text(194, Bytes(255, '4')),
        [] {
            return LUMOZEPH_PlumbLumoConnection(Bytes(64, 'n').c_str(), Bytes(16, '1').c_str(), 0,
                Bytes(18, '2').c_str(), Bytes(32, '3').c_str(), Bytes(256, '4').c_str());
        }},
    {"UnPlumb", 16, Record().text(64, "name"), [] { return LUMOZEPH_UnPlumbLumoConnection("name"); }},
    {"UnPlumbWithANameOf64", 16, Record().text(64, Bytes(63, 'n')),
        [] { return LUMOZEPH_UnPlumbLumoConnection(Bytes(64, 'n').c_str()); }},
    // Kept: the bytes lie in the order of the fourth, the second and the third argument.
    {"GenericFlushCrossesItsBytes", 80,
        Record().u32(64, 0x01020304).u8(68, 3).u8(69, 1).u8(70, 2).text(71, "text").u32(136, 0x11121314),
        [] { return LUMOZEPH_GenericFlush(0x01020304, 1, 2, 3, "text", 0x11121314); }},
    {"GenericFlushWithoutText", 80, Record().u32(64, 1).u8(68, 4).u8(69, 2).u8(70, 3).u32(136, 5),
        [] { return LUMOZEPH_GenericFlush(1, 2, 3, 4, nullptr, 5); }},
    {"GenericFlushWithALongText", 80, Record().text(71, Bytes(63, 't')),
        [] { return LUMOZEPH_GenericFlush(0, 0, 0, 0, Bytes(70, 't').c_str(), 0); }},
};

INSTANTIATE_TEST_SUITE_P(Module, Sends, testing::ValuesIn(sends), NameOfRow());

const std::vector<RawRead> raw_reads {
    {"GetConnections", 17, Record(), 131072, [](void* buffer) { return LUMOZEPH_GetConnections(buffer); }},
    {"GetConnection", 18, Record().text(64, "name"), 152,
        [](void* buffer) { return LUMOZEPH_GetConnection("name", buffer); }},
    {"GetConnectionWithANameOf64", 18, Record().text(64, Bytes(63, 'n')), 152,
        [](void* buffer) { return LUMOZEPH_GetConnection(Bytes(64, 'n').c_str(), buffer); }},
    {"GetVMAC", 149, Record().text(64, "name"), 6,
        [](void* buffer) { return LUMOZEPH_GetVMAC("name", static_cast<std::uint8_t*>(buffer)); }},
    {"PerformFullSyncSave", 123, Record().u8(64, 255), 4,
        [](void* buffer) { return LUMOZEPH_PerformFullSyncSave(255, static_cast<std::uint32_t*>(buffer)); }},
    {"GetFullSyncSaveStatus", 124, Record(), 4,
        [](void* buffer) { return LUMOZEPH_GetFullSyncSaveStatus(static_cast<std::uint32_t*>(buffer)); }},
};

INSTANTIATE_TEST_SUITE_P(Module, RawReads, testing::ValuesIn(raw_reads), NameOfRow());

TEST(ControlPlane, OfAnInstanceNeedsItsKey)
{
    LumoCPSyncState* out = reinterpret_cast<LumoCPSyncState*>(elsewhere);
    expect_rejected([] { return LUMOZEPH_SetCPIp(nullptr, 1); });
    expect_rejected([] { return LUMOZEPH_SetLumoInstanceCPSyncState(nullptr, 1); });
    expect_rejected([&] { return LUMOZEPH_GetLumoInstanceCPSyncState(nullptr, &out); });
    EXPECT_EQ(out, reinterpret_cast<LumoCPSyncState*>(elsewhere));
}

TEST(ControlPlane, IsActivatedWithABareValue)
{
    ScriptedDevice device;
    const Call call = observe(device, [] { return LUMOZEPH_CPActivate(0x89abcdef); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events.size(), 4u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, 7u);
    EXPECT_EQ(call.sent[0].in_len, 4u);
    EXPECT_EQ(call.sent[0].input, Bytes("\xef\xcd\xab\x89", 4));
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, [] { return LUMOZEPH_CPActivate(1); }), Fails(EPERM));
}

TEST(ControlPlane, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(1420, '\0');
    const std::size_t fourth = 3 * 284;
    put(reply, fourth + 0, 0x0102030405060708, 8);
    for (std::size_t i = 0; i < 5; ++i)
        put(reply, fourth + 8 + 4 * i, 0x11121310 + i, 4);
    for (std::size_t i = 0; i < 8; ++i)
        put(reply, fourth + 28 + 8 * i, 0x2122232425262700 + i, 8);
    put(reply, fourth + 92, 0x3132333435363738, 8);
    for (std::size_t i = 0; i < 23; ++i)
        put(reply, fourth + 100 + 8 * i, 0x4142434445464700 + i, 8);
    ScriptedDevice device(replies(reply));
    LumoCPSyncState* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetLumoInstanceCPSyncState("inst", &out); }), Succeeds());
    const LumoCPSyncStateEntry entry = out->entries[3];
    LUMOZEPH_ReleaseStats(out);
    EXPECT_EQ(+entry.value1, 0x0102030405060708u);
    EXPECT_EQ(+entry.value2, 0x11121310u);
    EXPECT_EQ(+entry.value3, 0x11121311u);
    EXPECT_EQ(+entry.value4, 0x11121312u);
    EXPECT_EQ(+entry.value5, 0x11121313u);
    EXPECT_EQ(+entry.value6, 0x11121314u);
    EXPECT_EQ(+entry.values7[0], 0x2122232425262700u);
    EXPECT_EQ(+entry.values7[7], 0x2122232425262707u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(entry.uncopied), 8), Bytes(8, '\0'));
    EXPECT_EQ(+entry.values8[0], 0x4142434445464700u);
    EXPECT_EQ(+entry.values8[22], 0x4142434445464716u);
}

TEST(ConnectionDeletionCheck, IsReadLikeALevel)
{
    ScriptedDevice device(reports({"\x01\x02\x03\x04", 4}, 0));
    std::uint32_t value = 0;
    const Call call = observe(device, [&] { return LUMOZEPH_LUMODevCheckConnDeletion(&value); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(value, 0x04030201u);
    EXPECT_EQ(call.events.size(), 4u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, 85u);
    EXPECT_EQ(call.sent[0].in_len, 0u);
    EXPECT_EQ(call.sent[0].in_ptr, 0u);
    EXPECT_EQ(call.sent[0].out_len, 4u);
    EXPECT_NE(call.sent[0].out_ptr, reinterpret_cast<std::uint64_t>(&value));

    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, [&] { return LUMOZEPH_LUMODevCheckConnDeletion(&value); }), Fails(EPERM));
    EXPECT_EQ(value, 0x04030201u);
}

TEST(PreUnload, SendsAnEnvelopeOfZeros)
{
    expect_empty_envelope(42, [] { return LUMOZEPH_PreUnload(); });
}

} // namespace
