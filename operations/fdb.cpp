// Forwarding table, FL table and PMACs.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::array<std::uint8_t, 6> mac {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};

constexpr Layout fdb_entry {.size = 20};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetBridgeFdbEntries),
        .command = 65,
        .shape = Shape::ListRead,
        .room = 81920,
        .layouts = {fdb_entry},
        .cap = 4096,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeFdbEntries),
        .cases = {{"GetBridgeFdbEntries", {"bridge", 0xfffe, 0x01020304, out},
            Request().text(0, "bridge").u32(68, 0xfffe).u32(72, 0x01020304).u32(76, 1)}}},
    {.function = NAMED(LUMOZEPHGetBridgeFdbEntries),
        .command = 65,
        .shape = Shape::ListWorker,
        .room = 81920,
        .layouts = {fdb_entry},
        .cap = 4096,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeFdbEntries),
        .cases = {{"GetBridgeFdbEntriesWorker", {"k", 1, 2, out},
            Request().text(0, "k").u32(68, 1).u32(72, 2).u32(76, 1)}}},
    {.function = NAMED(LUMOZEPH_BridgeSetFdbEntry),
        .command = 66,
        .shape = Shape::Send,
        .cases = {{"BridgeSetFdbEntry", {"bridge", "00:11:22:33:44:55", 0x01020304, 0x11121314, 0x21222324, 0x31},
                      Request()
                          .text(0, "bridge")
                          .u32(68, 0x01020304)
                          .u32(72, 0x11121314)
                          .u32(76, 1)
                          .u32(80, 0x21222324)
                          .text(84, "00:11:22:33:44:55")
                          .u8(102, 0x31)
                          .u32(104, 1)},
            {"BridgeSetFdbEntryWithoutMac", {"b", nullptr, 0, 0, 0, 0}, Request().text(0, "b").u32(76, 1).u32(104, 1)},
            {"BridgeSetFdbEntryWithMacCutAt17", {"b", "12345678901234567890", 0, 0, 0, 0},
                Request().text(0, "b").u32(76, 1).text(84, "12345678901234567").u32(104, 1)}}},
    {.function = NAMED(LUMOZEPH_BridgeClearFdbTable),
        .command = 67,
        .shape = Shape::Send,
        .cases = {{"BridgeClearFdbTable", {"bridge", 0x01020304, 0x11121314},
            Request().text(0, "bridge").u32(68, 0x01020304).u32(72, 0x11121314).u32(76, 1)}}},
    {.function = NAMED(LUMOZEPH_DumpFLTable),
        .command = 72,
        .shape = Shape::RawRead,
        .room = 426080,
        .cases = {{"DumpFLTable", {0xfffe, out}, Request().u16(64, 0xfffe)}}},
    {.function = NAMED(LUMOZEPH_GetPmac),
        .command = 73,
        .shape = Shape::RawRead,
        .room = 131072,
        .cases = {{"GetPmac", {out}}}},
    {.function = NAMED(LUMOZEPH_AddPmac),
        .command = 74,
        .shape = Shape::Send,
        .cases = {{"AddPmac", {0x01020304, block(mac)}, Request().u32(64, 0x01020304).bytes(68, mac)},
            {"AddPmacWithoutMac", {0x01020304, nullptr}, Request().u32(64, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_DelPmac),
        .command = 75,
        .shape = Shape::Send,
        .cases = {{"DelPmac", {block(mac)}, Request().bytes(68, mac)}, {"DelPmacWithoutMac", {nullptr}}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter fdb {"fdb", rows};

} // namespace operations
