// ARP entries, IPv6 neighbours, and proxy entries of both.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t image_size = 7471104;
constexpr std::size_t entry_size = 114;
// An entry of zeros ends the image.
constexpr std::size_t most_entries = image_size / entry_size - 1;

Entry entry_of(const Exchange& exchange)
{
    return exchange.request.u8(596) != 0 ? Entry::Proxy : Entry::Plain;
}

template <Family Of>
Neighbour neighbour_of(const Exchange& exchange)
{
    const Request& request = exchange.request;
    Neighbour neighbour {Of, entry_of(exchange), {}, {}, {}};
    if constexpr (Of == Family::Ipv4) {
        std::ranges::copy(request.bytes<4>(64), neighbour.address.begin());
        neighbour.lif = request.text(192, 64);
        neighbour.mac = request.text(332, 18);
    } else {
        neighbour.address = request.bytes<16>(128);
        neighbour.lif = request.text(64, 64);
        neighbour.mac = request.text(144, 18);
    }
    return neighbour;
}

bool same(const Neighbour& left, const Neighbour& right)
{
    return left.family == right.family && left.entry == right.entry && left.address == right.address &&
           left.lif == right.lif;
}

template <Family Of>
int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    const Neighbour neighbour = neighbour_of<Of>(exchange);
    if (instance == nullptr || instance->find_lif(neighbour.lif) == nullptr)
        return ENOENT;
    auto& all = instance->neighbours;
    const auto existing =
        std::find_if(all.begin(), all.end(), [&](const Neighbour& candidate) { return same(candidate, neighbour); });
    if (existing != all.end())
        *existing = neighbour;
    else if (all.size() == most_entries)
        return ENOSPC;
    else
        all.push_back(neighbour);
    return 0;
}

template <Family Of>
int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Neighbour neighbour = neighbour_of<Of>(exchange);
    const auto removed =
        std::erase_if(instance->neighbours, [&](const Neighbour& candidate) { return same(candidate, neighbour); });
    return removed > 0 ? 0 : ENOENT;
}

// The reads and clears of both families name the interface in the same place, or none for all.
bool on_interface(const Exchange& exchange, const Neighbour& neighbour)
{
    const std::string lif = exchange.request.text(192, 64);
    return lif.empty() || lif == neighbour.lif;
}

template <Family Of>
int dump(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Neighbour& neighbour : instance->neighbours) {
        // Only ARP has a table of its own for proxy entries; that of neighbours holds both.
        const bool asked = Of == Family::Ipv6 || neighbour.entry == entry_of(exchange);
        if (neighbour.family != Of || !asked || !on_interface(exchange, neighbour))
            continue;
        Record(exchange.reply, entry_size)
            .bytes(0, neighbour.address)
            .text(16, 64, neighbour.lif)
            .bytes(80, std::as_bytes(std::span(neighbour.mac)))
            .u8(98, neighbour.entry == Entry::Proxy)
            .u8(99, 1);
    }
    Record(exchange.reply, entry_size);
    return 0;
}

template <Family Of>
int clear(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    std::erase_if(instance->neighbours,
        [&](const Neighbour& neighbour) { return neighbour.family == Of && on_interface(exchange, neighbour); });
    return 0;
}

constexpr Handler answers[] = {
    {38, request_record, set<Family::Ipv4>},
    {39, request_record, remove<Family::Ipv4>},
    {40, request_record, dump<Family::Ipv4>},
    {41, request_record, clear<Family::Ipv4>},
    {112, request_record, set<Family::Ipv6>},
    {113, request_record, remove<Family::Ipv6>},
    {116, request_record, dump<Family::Ipv6>},
    {117, request_record, clear<Family::Ipv6>},
};

} // namespace

const std::span<const Handler> handlers::neighbours = answers;

} // namespace emulator
