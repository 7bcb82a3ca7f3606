// What a service manager is told.
#pragma once

namespace emulator {

// Tells whoever has set NOTIFY_SOCKET, as sd_notify(3) does, that the service is ready.
void notify_readiness();

} // namespace emulator
