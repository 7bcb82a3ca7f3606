// Bridge networks and ports. The model's bridges have none.
#include "emulator/model/answers.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

constexpr Handler answers[] = {
    {63, request_record, accepted_for_bridge},
    {64, request_record, accepted_for_bridge},
};

} // namespace

const std::span<const Handler> handlers::networks = answers;

} // namespace emulator
