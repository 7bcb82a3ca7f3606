// The reads that are like no other, and the texts that the library takes apart itself.
#include "operations/reply.h"
#include "system.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <lumozeph.h>

namespace fuzz {

namespace {

struct OddRead
{
    std::string_view name;
    void (*run)(Input&);
};

// Two commands: the first one's reply chooses the room of the second.
void read_routes6(Input& input)
{
    constexpr std::uint32_t entry = 776;
    System system(input, {Looks::Nowhere, entry, 2});
    void* block = elsewhere;
    std::uint32_t count = 4711;
    const Ended ended = system.call([&] { return LUMOZEPH_GetRoutesv6("inst", &block, &count); });

    const Reply& counted = system.reply(0);
    const Reply& read = system.reply(1);
    std::int32_t reported = 0;
    const std::string written = counted.content(0, counted.written(sizeof reported));
    std::memcpy(&reported, written.data(), written.size());
    if (counted.error() != 0 || reported >= 30000) {
        expect_failure(ended, ENOMEM);
        expect_equal("block", block, elsewhere);
        expect_equal("count", count, 4711);
        expect_equal("allocations", system.allocations(), 0);
        return;
    }
    if (system.refused() != 0) {
        expect_failure(ended, ENOMEM);
        expect_equal("block", block, nullptr);
        expect_equal("count", count, 4711);
        return;
    }
    const std::uint32_t room = (reported < 8000 ? 8000 : 30000) * entry;
    if (read.error() != 0) {
        expect_failure(ended, read.error());
        expect_equal("count", count, room / entry);
        return;
    }
    expect_success(ended);
    expect_equal("room", system.exchanges().at(1).room, room);
    expect_equal("count", count, system.exchanges().at(1).reported / entry);
    const std::size_t size = read.written(room);
    expect_bytes("routes", {static_cast<const char*>(block), size}, read.content(0, size));
    system.call([&] {
        free(block);
        return 0;
    });
}

// A table whose length its first word says, in arithmetic of 32 bits.
void read_vtep_table(Input& input)
{
    constexpr std::uint32_t entry = 68;
    constexpr std::size_t most = 2048;
    System system(input, {Looks::AtTheRoom, entry});
    LumoVtepTable* out = static_cast<LumoVtepTable*>(elsewhere);
    const Ended ended = system.call([&] { return LUMOZEPH_GetMRoutingRemoteRcvrs("inst", 1, &out); });

    const Reply& reply = system.reply();
    if (system.refused() == 1) {
        expect_failure(ended, ENOMEM);
        return expect_equal("out", out, elsewhere);
    }
    if (reply.error() != 0) {
        expect_failure(ended, reply.error());
        return expect_equal("out", out, elsewhere);
    }
    const std::string first = reply.content(0, 4);
    std::uint32_t count;
    std::memcpy(&count, first.data(), sizeof count);
    const std::uint64_t length = std::uint64_t {count} * entry;
    const std::int32_t reported = static_cast<std::int32_t>(system.exchanges().at(0).reported);
    if (ended.result != 0) {
        if (system.refused() != 0)
            expect_failure(ended, ENOMEM);
        else if (reported < 4 || reported < static_cast<std::int32_t>(count * entry + 4))
            expect_failure(ended, EBADMSG);
        else if (length + 4 > INT32_MAX)
            expect_failure(ended, untouched);
        else
            fail("fails for no reason");
        return expect_equal("out", out, nullptr);
    }
    expect_equal("refused allocation", system.refused(), 0);
    if (static_cast<std::int64_t>(length) + 4 > reported)
        fail("has more entries than the reply");
    expect_equal("count", out->count, count);
    const std::size_t there = std::min<std::size_t>(count, most) * entry;
    expect_bytes("entries", {reinterpret_cast<const char*>(out->records), there}, reply.content(4, there));
    for (const std::size_t index : {most, std::size_t {count} - 1})
        if (index >= most && index < count)
            expect_bytes("an entry behind the reply", {reinterpret_cast<const char*>(out->records[index].bytes), entry},
                std::string(entry, '\0'));
    expect_success(system.call([&] { return LUMOZEPH_ReleaseVTEPTable(out); }));
    if (count == 0)
        system.expect_left(0);
}

// Arrays of which a count says how many entries are copied. They may run into what follows them.
void read_rss_stats(Input& input)
{
    constexpr std::size_t size = 804;
    System system(input, {Looks::AtTheRoom, size});
    LumoRssStats* out = static_cast<LumoRssStats*>(elsewhere);
    const Ended ended = system.call([&] { return LUMOZEPH_SoftRSSGetStats("target", &out); });

    const Reply& reply = system.reply();
    if (system.refused() == 1 || reply.error() != 0) {
        expect_failure(ended, system.refused() == 1 ? ENOMEM : reply.error());
        return expect_equal("out", out, elsewhere);
    }
    if (system.refused() == 2) {
        expect_failure(ended, ENOMEM);
        return expect_equal("out", out, nullptr);
    }
    expect_success(ended);
    const std::string sent = reply.content(0, size);
    std::uint32_t count;
    std::memcpy(&count, sent.data() + 4, sizeof count);
    std::string expected(size, filler);
    expected.replace(4, 4, sent, 4, 4);
    for (std::size_t i = 0; i < std::min(count, 59u); ++i) {
        expected.replace(8 + 4 * i, 4, sent, 8 + 4 * i, 4);
        for (const std::size_t array : {76u, 204u, 332u})
            expected.replace(array + 8 * i, 8, sent, array + 8 * i, 8);
    }
    expect_bytes("statistics", {reinterpret_cast<const char*>(out), size}, expected);
    system.call([&] {
        free(out);
        return 0;
    });
}

// Through a buffer that goes to the caller whatever became of the call.
void read_rss_tunables(Input& input)
{
    constexpr std::size_t size = 12;
    System system(input, {Looks::AtTheRoom, size});
    const Buffer tunables(size);
    std::memset(tunables.data(), 'b', size);
    const Ended ended = system.call(
        [&] { return LUMOZEPH_SoftRSSGetTunables("target", reinterpret_cast<LumoRssTunables*>(tunables.data())); });
    if (system.refused() != 0) {
        expect_failure(ended, ENOMEM);
        return expect_bytes("tunables", tunables.content(0, size), std::string(size, 'b'));
    }
    if (system.reply().error() != 0) {
        expect_failure(ended, system.reply().error());
        return expect_bytes("tunables", tunables.content(0, size), std::string(size, filler));
    }
    expect_success(ended);
    expect_bytes("tunables", tunables.content(0, size), system.reply().content(0, size));
}

void read_rss_table(Input& input)
{
    constexpr std::size_t size = 128;
    System system(input, {Looks::AtTheRoom, size});
    const Buffer entries(size);
    const Ended ended = system.call(
        [&] { return LUMOZEPH_SoftRSSGetIndTable("target", reinterpret_cast<std::uint8_t*>(entries.data())); });
    if (system.refused() != 0 || system.reply().error() != 0) {
        expect_failure(ended, system.refused() != 0 ? ENOMEM : system.reply().error());
        return expect_bytes("entries", entries.content(0, size), std::string(size, filler));
    }
    expect_success(ended);
    expect_bytes("entries", entries.content(0, size), system.reply().content(0, size));
}

// A step behind its NUL is seen.
Buffer terminated(std::string_view text)
{
    return Buffer(std::string(text.substr(0, text.find('\0'))) + '\0');
}

// A list of addresses, which no two parsers accept. Where the input says so, one of them does.
void configure_dhcp_relay(Input& input)
{
    const std::string_view answers = input.bytes(input.byte());
    const std::string_view text = input.bytes(input.byte());
    System system(input, {Looks::Nowhere, 1});
    system.script_inet_pton(answers);
    const Buffer servers = terminated(text);
    const std::string before(servers.content(0, servers.size()));
    const Ended ended = system.call([&] { return LUMOZEPH_ConfigureLifDhcpRelay("inst", "lif", servers.data()); });

    for (std::size_t i = 0; i < before.size(); ++i)
        if (servers.data()[i] != before[i] && (before[i] != ',' || servers.data()[i] != '\0'))
            fail("changes something else than a comma");
    expect_equal("allocations", system.allocations(), 0);
    if (system.exchanges().empty() && system.reply().open_error() == 0)
        return expect_failure(ended, EINVAL);
    if (ended.result != 0)
        return expect_failure(ended, ended.error == EINVAL ? EINVAL : system.reply().error());

    const std::string& request = system.exchanges().at(0).input;
    const std::uint64_t count = operations::get(request, 364, 4);
    expect_equal("servers", static_cast<std::int64_t>(count), 1 + std::count(before.begin(), before.end(), ','));
    if (count > 8)
        fail("sends more servers than the request has room for");
    for (std::size_t i = 0; i < 8; ++i) {
        const std::string server = request.substr(368 + 20 * i, 20);
        const std::uint64_t family = operations::get(server, 16, 4);
        // An address that neither parser could judge is sent as none.
        if (i >= count || family == 0)
            expect_bytes("a server without an address", server, std::string(20, '\0'));
        else if (family != 1 && family != 3)
            fail("sends a server of no family");
    }
    expect_bytes("behind the servers", {request.data() + 528, 248}, std::string(248, '\0'));
}

void make_key(Input& input)
{
    const Buffer text = terminated(input.rest());
    const Buffer key(64);
    Input nothing(nullptr, 0);
    System system(nothing, {Looks::Nowhere, 1});
    expect_success(system.call([&] { return LUMOZEPHGetUuidOrName(text.data(), key.data()); }));
    std::string expected(text.content(0, std::min<std::size_t>(text.size() - 1, 63)));
    expected.resize(64, '\0');
    expect_bytes("key", key.content(0, 64), expected);
}

constexpr OddRead rows[] {
    {"GetRoutesv6", read_routes6},
    {"GetMRoutingRemoteRcvrs", read_vtep_table},
    {"SoftRSSGetStats", read_rss_stats},
    {"SoftRSSGetTunables", read_rss_tunables},
    {"SoftRSSGetIndTable", read_rss_table},
    {"ConfigureLifDhcpRelay", configure_dhcp_relay},
    {"GetUuidOrName", make_key},
};

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const fuzz::OddRead& read = fuzz::rows[input.byte() % std::size(fuzz::rows)];
    fuzz::now_reading(read.name);
    read.run(input);
    return 0;
}
