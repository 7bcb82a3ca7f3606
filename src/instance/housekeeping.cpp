#include "channel/read.h"
#include "instance/fields.h"
#include "lumozeph.h"

using namespace lumo;

// Kept: the bytes lie in the order of the fourth, the second and the third argument.
int32_t LUMOZEPH_GenericFlush(
    uint32_t value1, uint8_t value2, uint8_t value3, uint8_t value4, const char* text, uint32_t value5)
{
    return send(Command::GenericFlush, Request(flush_value1(value1), flush_value4(value4), flush_value2(value2),
                                           flush_value3(value3), flush_text.if_given(text), flush_value5(value5)));
}

int32_t LUMOZEPH_PreUnload()
{
    return send(Command::PreUnload, no_input);
}

int32_t LUMOZEPH_PerformFullSyncSave(uint8_t value, uint32_t* result)
{
    return read_raw(Command::PerformFullSyncSave, Request(sync_save_arg(value)), result, sizeof *result);
}

int32_t LUMOZEPH_GetFullSyncSaveStatus(uint32_t* status)
{
    return read_raw(Command::GetFullSyncSaveStatus, Request(), status, sizeof *status);
}
