#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

namespace {

constexpr uint32_t fl_table_size = 426080;
constexpr uint32_t pmac_table_size = 131072;

} // namespace

int32_t LUMOZEPH_GetBridgeFdbEntries(const char* key, uint16_t value16, uint32_t value32, LumoBridgeFdbList** out)
{
    return get_list(
        out, [&](LumoBridgeFdbList* list) { return LUMOZEPHGetBridgeFdbEntries(key, value16, value32, list); });
}

int32_t LUMOZEPHGetBridgeFdbEntries(const char* key, uint16_t value16, uint32_t value32, LumoBridgeFdbList* list)
{
    return fill_list(Command::GetBridgeFdbEntries,
        Request(instance_key(key), selector1(uint32_t {value16}), selector2(value32), selected), fdb_entries, list);
}

int32_t LUMOZEPH_ReleaseBridgeFdbEntries(LumoBridgeFdbList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_BridgeSetFdbEntry(
    const char* key, const char* mac, uint32_t selector1Value, uint32_t selector2Value, uint32_t value, uint8_t flags)
{
    return send(Command::BridgeSetFdbEntry,
        Request(instance_key(key), selector1(selector1Value), selector2(selector2Value), selected, fdb_value(value),
            fdb_mac_text.if_given(mac), fdb_flags(flags), fdb_set));
}

int32_t LUMOZEPH_BridgeClearFdbTable(const char* key, uint32_t selector1Value, uint32_t selector2Value)
{
    return send(Command::BridgeClearFdbTable,
        Request(instance_key(key), selector1(selector1Value), selector2(selector2Value), selected));
}

int32_t LUMOZEPH_DumpFLTable(uint16_t selector, void* buffer)
{
    return read_raw(Command::DumpFLTable, Request(fl_table_selector(selector)), buffer, fl_table_size);
}

int32_t LUMOZEPH_GetPmac(void* buffer)
{
    return read_raw(Command::GetPmac, Request(), buffer, pmac_table_size);
}

int32_t LUMOZEPH_AddPmac(uint32_t value, const uint8_t* mac)
{
    return send(Command::AddPmac, Request(pmac_value(value), pmac_addr.if_given(mac)));
}

int32_t LUMOZEPH_DelPmac(const uint8_t* mac)
{
    return send(Command::DelPmac, Request(pmac_addr.if_given(mac)));
}
