#include "emulator/model/answers.h"

#include "emulator/model/find.h"

namespace emulator {

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
    constexpr std::size_t result_size = 88;
    if (exchange.room >= result_size)
        Record(exchange.reply, result_size).u32(0, 0).text(4, 84, "done");
    return 0;
}

} // namespace emulator
