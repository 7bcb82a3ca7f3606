// Bridge networks and ports. The model's bridges have none.
#include "emulator/protocol/networks.h"

#include "emulator/model/answers.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

constexpr Handler answers[] = {
    {"GetBridgeNetworks", accepted_for_bridge},
    {"GetBridgePorts", accepted_for_bridge},
};

} // namespace

const Handlers handlers::networks(networks::commands, answers);

} // namespace emulator
