#include "channel/read.h"
#include "instance/fields.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_PerformFullSyncSave(uint8_t value, uint32_t* result)
{
    return read_raw(Command::PerformFullSyncSave, Request(sync_save_arg(value)), result, sizeof *result);
}

int32_t LUMOZEPH_GetFullSyncSaveStatus(uint32_t* status)
{
    return read_raw(Command::GetFullSyncSaveStatus, Request(), status, sizeof *status);
}
