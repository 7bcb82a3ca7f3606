// Software receive-side scaling. Any name is a target; the model counts nothing.
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::int32_t table_size = 128;

std::string target_name(const Exchange& exchange)
{
    return exchange.request.text(64, 64);
}

template <int (*Answer)(Exchange&, RssTarget&)>
int on_target(Exchange& exchange)
{
    const std::string name = target_name(exchange);
    return name.empty() ? EINVAL : Answer(exchange, exchange.state.rss_targets[name]);
}

int get_stats(Exchange& exchange, RssTarget&)
{
    constexpr std::uint32_t queues = 16;
    Record(exchange.reply, 804).u32(4, queues);
    return 0;
}

int reset_stats(Exchange&, RssTarget&)
{
    return 0;
}

int get_tunables(Exchange& exchange, RssTarget& target)
{
    Record(exchange.reply, 12).bytes(0, target.tunables);
    return 0;
}

int set_tunables(Exchange& exchange, RssTarget& target)
{
    target.tunables = exchange.request.bytes<8>(128);
    return 0;
}

int get_table(Exchange& exchange, RssTarget& target)
{
    Record(exchange.reply, table_size).bytes(0, target.table);
    return 0;
}

// Entries beyond the size sent keep what they had.
int set_table(Exchange& exchange, RssTarget& target)
{
    const auto size = static_cast<std::int32_t>(exchange.request.u32(256));
    if (size < 0 || size > table_size)
        return EINVAL;
    std::ranges::copy(exchange.request.from(128, static_cast<std::size_t>(size)), target.table.begin());
    return 0;
}

constexpr Handler answers[] = {
    {153, request_record, on_target<get_stats>},
    {154, request_record, on_target<reset_stats>},
    {155, request_record, on_target<get_tunables>},
    {156, request_record, on_target<set_tunables>},
    {157, request_record, on_target<get_table>},
    {158, request_record, on_target<set_table>},
};

} // namespace

const std::span<const Handler> handlers::rss = answers;

} // namespace emulator
