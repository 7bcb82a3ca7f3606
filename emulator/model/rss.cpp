// Software receive-side scaling. Any name is a target.
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

// One of which nothing was set is as it was at first.
template <int (*Answer)(Exchange&, const RssTarget&)>
int read(Exchange& exchange)
{
    const std::string name = target_name(exchange);
    if (name.empty())
        return EINVAL;
    const auto found = exchange.state.rss_targets.find(name);
    return Answer(exchange, found == exchange.state.rss_targets.end() ? RssTarget {} : found->second);
}

template <int (*Change)(const Exchange&, RssTarget&)>
int change(Exchange& exchange)
{
    const std::string name = target_name(exchange);
    if (name.empty())
        return EINVAL;
    const auto found = exchange.state.rss_targets.find(name);
    RssTarget changed = found == exchange.state.rss_targets.end() ? RssTarget {} : found->second;
    const int error = Change(exchange, changed);
    if (error == 0)
        exchange.state.rss_targets.insert_or_assign(name, changed);
    return error;
}

int get_stats(Exchange& exchange, const RssTarget& target)
{
    namespace to = rss::stats_record;
    const Record record = exchange.add(to::layout);
    record[to::queues] = rss::most_queues;
    for (std::size_t queue = 0; queue < rss::most_queues; ++queue)
        record[to::word][queue][element<U32>] = target.words[queue];
    const Table* const columns[] = {&to::counter1, &to::counter2, &to::counter3};
    for (const auto& [place, counter] : target.counters)
        record[*columns[place / rss::most_queues]][place % rss::most_queues][element<U64>] =
            counter.at(exchange.state.stopwatch.now());
    return 0;
}

int reset_stats(Exchange& exchange)
{
    const std::string name = target_name(exchange);
    if (name.empty())
        return EINVAL;
    if (const auto found = exchange.state.rss_targets.find(name); found != exchange.state.rss_targets.end())
        found->second.counters.reset(exchange.state.stopwatch.now());
    return 0;
}

int get_tunables(Exchange& exchange, const RssTarget& target)
{
    exchange.add(rss::tunables_record::layout)[rss::tunables_record::value1] = target.tunables;
    return 0;
}

int set_tunables(const Exchange& exchange, RssTarget& target)
{
    target.tunables = exchange.request[rss::tunables_value];
    return 0;
}

int get_table(Exchange& exchange, const RssTarget& target)
{
    exchange.add<rss::table>(target.table);
    return 0;
}

// Entries beyond the size sent keep what they had.
int set_table(const Exchange& exchange, RssTarget& target)
{
    const std::int32_t size = exchange.request[rss::size];
    if (size < 0 || static_cast<std::size_t>(size) > rss::table_size)
        return EINVAL;
    const auto entries = exchange.request[rss::entries];
    std::copy_n(entries.begin(), size, target.table.begin());
    return 0;
}

constexpr Handler answers[] = {
    {"SoftRSSGetStats", read<get_stats>},
    {"SoftRSSStatsReset", reset_stats},
    {"SoftRSSGetTunables", read<get_tunables>},
    {"SoftRSSSetTunables", change<set_tunables>},
    {"SoftRSSGetIndTable", read<get_table>},
    {"SoftRSSTableSet", change<set_table>},
};

} // namespace

const Handlers handlers::rss(rss::commands, answers);

} // namespace emulator
