// The reads of BFD sessions, whose room is 111 MB: apart, so that they do not slow down the other lists.
#include "list_reads.h"
#include "lumozeph.h"

namespace fuzz {

namespace {

const std::vector<ListRead> rows {
    list(
        "GetBridgeBFDSessions", world::layouts::bfd_session, 2867200, Holder::LeftAllocated,
        [](LumoBridgeBfdSessionList** out) { return LUMOZEPH_GetBridgeBFDSessions("key", out); },
        LUMOZEPH_ReleaseBridgeBFDSessions),
    worker(
        "LUMOZEPHGetBridgeBFDSessions", world::layouts::bfd_session, 2867200,
        [](LumoBridgeBfdSessionList* list) { return LUMOZEPHGetBridgeBFDSessions(nullptr, list); },
        LUMOZEPH_ReleaseBridgeBFDSessions),
};

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    fuzz::run(choose(fuzz::rows, input), input);
    return 0;
}
