// Software receive-side scaling. Any name is a target; the model counts nothing.
#include "emulator/protocol/rss.h"

#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

std::string target_name(const Exchange& exchange)
{
    return exchange.request[rss::target];
}

template <int (*Answer)(Exchange&, RssTarget&)>
int on_target(Exchange& exchange)
{
    const std::string name = target_name(exchange);
    return name.empty() ? EINVAL : Answer(exchange, exchange.state.rss_targets[name]);
}

int get_stats(Exchange& exchange, RssTarget&)
{
    exchange.add(rss::stats_record::layout)[rss::stats_record::queues] = rss::most_queues;
    return 0;
}

int reset_stats(Exchange&, RssTarget&)
{
    return 0;
}

int get_tunables(Exchange& exchange, RssTarget& target)
{
    exchange.add(rss::tunables_record::layout)[rss::tunables_record::value1] = target.tunables;
    return 0;
}

int set_tunables(Exchange& exchange, RssTarget& target)
{
    target.tunables = exchange.request[rss::tunables_value];
    return 0;
}

int get_table(Exchange& exchange, RssTarget& target)
{
    exchange.add<rss::table>(target.table);
    return 0;
}

// Entries beyond the size sent keep what they had.
int set_table(Exchange& exchange, RssTarget& target)
{
    const std::int32_t size = exchange.request[rss::size];
    if (size < 0 || static_cast<std::size_t>(size) > rss::table_size)
        return EINVAL;
    const auto entries = exchange.request[rss::entries];
    std::copy_n(entries.begin(), size, target.table.begin());
    return 0;
}

constexpr Handler answers[] = {
    {"SoftRSSGetStats", on_target<get_stats>},
    {"SoftRSSStatsReset", on_target<reset_stats>},
    {"SoftRSSGetTunables", on_target<get_tunables>},
    {"SoftRSSSetTunables", on_target<set_tunables>},
    {"SoftRSSGetIndTable", on_target<get_table>},
    {"SoftRSSTableSet", on_target<set_table>},
};

} // namespace

const Handlers handlers::rss(rss::commands, answers);

} // namespace emulator
