// BFD sessions and port connections.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::array<std::uint8_t, 6> mac {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};

constexpr Layout bfd_session {.size = 39};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetBridgeBFDSessions),
        .command = 96,
        .shape = Shape::ListRead,
        .room = 111820800,
        .layouts = {bfd_session},
        .cap = 2867200,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeBFDSessions),
        .cases = {{"GetBridgeBFDSessions", {"bridge", out}, Request().text(0, "bridge")}}},
    {.function = NAMED(LUMOZEPHGetBridgeBFDSessions),
        .command = 96,
        .shape = Shape::ListWorker,
        .room = 111820800,
        .layouts = {bfd_session},
        .cap = 2867200,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeBFDSessions),
        .cases = {{"GetBridgeBFDSessionsWorker", {"k", out}, Request().text(0, "k")}}},
    {.function = NAMED(LUMOZEPH_PlumbBFDPortConnection),
        .command = 97,
        .shape = Shape::Send,
        .cases = {{"PlumbBFDPortConnection", {"port", "text", block(mac)},
                      Request().text(64, "port").text(128, "text").bytes(144, mac)},
            {"PlumbBFDPortConnectionWithoutMac", {text_of<64, 'p'>, text_of<20, 't'>, nullptr},
                Request().text(64, text_of<63, 'p'>).text(128, text_of<15, 't'>)}}},
    {.function = NAMED(LUMOZEPH_UnPlumbBFDPortConnection),
        .command = 98,
        .shape = Shape::Send,
        .cases = {{"UnPlumbBFDPortConnection", {"port"}, Request().text(64, "port")}}},
    {.function = NAMED(LUMOZEPH_GetBFDPortConnections),
        .command = 99,
        .shape = Shape::RawRead,
        .room = 131072,
        .cases = {{"GetBFDPortConnections", {out}}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter bfd {"bfd", rows};

} // namespace operations
