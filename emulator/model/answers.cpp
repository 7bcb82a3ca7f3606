#include "emulator/model/answers.h"

#include "emulator/model/find.h"
#include "emulator/protocol/command.h"

namespace emulator {

using namespace protocol;

int accepted(Exchange&)
{
    return 0;
}

int accepted_for_instance(Exchange& exchange)
{
    return instance_of(exchange) == nullptr ? ENOENT : 0;
}

int accepted_for_bridge(Exchange& exchange)
{
    return bridge_of(exchange) == nullptr ? ENOENT : 0;
}

int done(Exchange& exchange)
{
    if (exchange.room >= result::layout.size)
        exchange.add(result::layout)[result::text] = "done";
    return 0;
}

} // namespace emulator
