// Flush, full-sync save and preparation for unloading.
#include "emulator/protocol/housekeeping.h"

#include "emulator/model/answers.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

int save(Exchange& exchange)
{
    exchange.add<housekeeping::saved>(++exchange.state.saves);
    return 0;
}

int save_status(Exchange& exchange)
{
    exchange.add<housekeeping::status>(exchange.state.saves);
    return 0;
}

constexpr Handler answers[] = {
    {"PreUnload", accepted},
    {"GenericFlush", accepted},
    {"PerformFullSyncSave", save},
    {"GetFullSyncSaveStatus", save_status},
};

} // namespace

const Handlers handlers::housekeeping(housekeeping::commands, answers);

} // namespace emulator
