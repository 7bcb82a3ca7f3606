#include "channel/read.h"
#include "lumozeph.h"
#include "rss/fields.h"

using namespace lumo;

namespace {

// As many entries as fit between the last of the arrays and the end of the block. With as many, the copies have covered
// everything behind the first word, so that more would add nothing.
constexpr uint32_t most_entries = (sizeof(LumoRssStats) - offsetof(LumoRssStats, rssCounter3)) / sizeof(uint64_t);

void copy_entries(char* to, const char* from, std::size_t offset, std::size_t length)
{
    std::memcpy(to + offset, from + offset, length);
}

} // namespace

int32_t LUMOZEPH_SoftRSSGetStats(const char* target, LumoRssStats** out)
{
    if (any_null(target))
        return fail(EINVAL);
    ReplyBuffer reply(sizeof(LumoRssStats));
    if (!reply.allocated())
        return fail(ENOMEM);
    if (reply.receive(Command::SoftRSSGetStats, Request(rss_target_name(target))) != 0)
        return reply.fail(errno);

    // Kept: neither is the block cleared nor the reported length looked at.
    LumoRssStats* stats = static_cast<LumoRssStats*>(malloc(sizeof(LumoRssStats)));
    *out = stats;
    if (stats == nullptr)
        return reply.fail(ENOMEM);
    char* block = reinterpret_cast<char*>(stats);
    uint32_t count;
    std::memcpy(&count, reply.bytes() + offsetof(LumoRssStats, rssEntryCount), sizeof count);
    // Kept: the count is passed on as it is and may exceed the arrays, whose entries then run into what follows them.
    const uint32_t entries = std::min(count, most_entries);
    copy_entries(block, reply.bytes(), offsetof(LumoRssStats, rssEntryCount), sizeof count);
    copy_entries(block, reply.bytes(), offsetof(LumoRssStats, rssWord), entries * sizeof(uint32_t));
    copy_entries(block, reply.bytes(), offsetof(LumoRssStats, rssCounter1), entries * sizeof(uint64_t));
    copy_entries(block, reply.bytes(), offsetof(LumoRssStats, rssCounter2), entries * sizeof(uint64_t));
    copy_entries(block, reply.bytes(), offsetof(LumoRssStats, rssCounter3), entries * sizeof(uint64_t));
    return 0;
}

int32_t LUMOZEPH_SoftRSSStatsReset(const char* target)
{
    if (any_null(target))
        return fail(EINVAL);
    return send(Command::SoftRSSStatsReset, Request(rss_target_name(target)));
}

int32_t LUMOZEPH_SoftRSSGetTunables(const char* target, LumoRssTunables* tunables)
{
    if (any_null(target))
        return fail(EINVAL);
    ReplyBuffer reply(sizeof *tunables);
    if (!reply.allocated())
        return fail(ENOMEM);
    // Kept: what the buffer holds goes to the caller also when the device call fails.
    const int32_t result = reply.receive(Command::SoftRSSGetTunables, Request(rss_target_name(target)));
    std::memcpy(tunables, reply.bytes(), sizeof *tunables);
    return result != 0 ? reply.fail(errno) : 0;
}

// Kept: value2 is read and never set.
int32_t LUMOZEPH_SoftRSSSetTunables(const char* target, const LumoRssTunables* tunables)
{
    if (any_null(target))
        return fail(EINVAL);
    return send(Command::SoftRSSSetTunables, Request(rss_target_name(target), rss_tunables(tunables)));
}

int32_t LUMOZEPH_SoftRSSGetIndTable(const char* target, uint8_t* entries)
{
    if (any_null(target))
        return fail(EINVAL);
    ReplyBuffer reply(sizeof(LumoRssIndTable::entries));
    if (!reply.allocated())
        return fail(ENOMEM);
    if (reply.receive(Command::SoftRSSGetIndTable, Request(rss_target_name(target))) != 0)
        return reply.fail(errno);
    std::memcpy(entries, reply.bytes(), sizeof(LumoRssIndTable::entries));
    return 0;
}

// Kept: the size is stored before the entries, which overwrite it when there are more than the table has.
int32_t LUMOZEPH_SoftRSSTableSet(const char* target, const LumoRssIndTable* table)
{
    if (any_null(target))
        return fail(EINVAL);
    const int32_t size = table->size;
    return send(Command::SoftRSSTableSet, Request(rss_target_name(target), rss_ind_table_size(size),
                                              rss_ind_table(table, static_cast<std::size_t>(std::max(size, 0)))));
}
