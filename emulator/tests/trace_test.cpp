// Lines of traces: each kind of field, and each kind of reply.
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/trace/journal.h"
#include "emulator/trace/line.h"
#include "emulator/trace/reply.h"
#include "emulator/trace/summary.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <gmock/gmock.h>
#include <utility>

using namespace emulator;
using namespace emulator::protocol;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

using Octets = std::vector<std::byte>;

Octets octets(std::size_t size, unsigned char value = 0)
{
    return Octets(size, std::byte {value});
}

Event event_of(std::uint32_t number, Octets input, std::optional<int> error = 0, Octets reply = {})
{
    Call call {.order = 7, .number = number, .readable = Readable::Input};
    call.in_len = static_cast<std::uint32_t>(input.size());
    call.room = 3;
    call.input = std::move(input);
    call.reply_len = static_cast<std::uint32_t>(reply.size());
    keep_reply(call, std::move(reply));
    return {.begun = std::chrono::system_clock::time_point(std::chrono::microseconds(1700000000123456)),
        .took = std::chrono::nanoseconds(2000012345),
        .caller = {12, 13, "agent"},
        .what = std::move(call),
        .error = error};
}

std::string line(TraceFormat format, const Event& event)
{
    std::string out;
    append_line(out, format, event);
    return out;
}

// Without what is the same for all.
std::string text(const Event& event)
{
    const std::string whole = line(TraceFormat::Text, event);
    const std::string begin = "12/13 agent ";
    const std::string end = " <2.000012>\n";
    EXPECT_THAT(whole, testing::EndsWith(end));
    const std::size_t from = whole.find(begin) + begin.size();
    return whole.substr(from, whole.size() - end.size() - from);
}

std::string json(const Event& event)
{
    const std::string whole = line(TraceFormat::Json, event);
    const std::string begin =
        "{\"time\":\"2023-11-14T22:13:20.123456Z\",\"process\":12,\"thread\":13,\"program\":\"agent\","
        "\"order\":7,\"number\":";
    const std::string end = ",\"duration\":2.000012345}\n";
    EXPECT_THAT(whole, testing::StartsWith(begin));
    EXPECT_THAT(whole, testing::EndsWith(end));
    return whole.substr(begin.size(), whole.size() - begin.size() - end.size());
}

TEST(TraceLine, SaysWhenAndWho)
{
    setenv("TZ", "UTC", 1);
    tzset();
    Event event = event_of(42, {});
    EXPECT_EQ(line(TraceFormat::Text, event), "22:13:20.123456 12/13 agent PreUnload() = 0 <2.000012>\n");
    event.caller = {12, 12, "a b\n\x1b"};
    EXPECT_EQ(line(TraceFormat::Text, event), "22:13:20.123456 12 a?b?? PreUnload() = 0 <2.000012>\n");
    EXPECT_THAT(line(TraceFormat::Json, event), HasSubstr("\"program\":\"a b\\u000a\\u001b\""));
}

TEST(TraceLine, ShowsEachFieldOfARequest)
{
    Octets input = octets(request_size);
    const Record record {std::span(input)};
    record[lifs::instance] = "blue";
    record[lifs::lif] = "say \"\xff\"";
    record[lifs::address] = 0x0100000a;
    record[lifs::mac] = {std::byte {2}, {}, {}, {}, {}, std::byte {0xfe}};
    record[lifs::param_a] = 4000000000;
    const Event event = event_of(19, input);
    EXPECT_EQ(text(event),
        "SetLif(instance=\"blue\", auxName=\"\", lif=\"say \\\"\\udcff\\\"\", address=10.0.0.1, "
        "mask=0.0.0.0, diAddress=0.0.0.0, mac=02:00:00:00:00:fe, paramA=4000000000, paramB=0, paramC=0) = 0");
    EXPECT_EQ(json(event),
        "19,\"command\":\"SetLif\",\"inLength\":776,\"room\":3,\"request\":{\"instance\":\"blue\","
        "\"auxName\":\"\",\"lif\":\"say \\\"\\udcff\\\"\",\"address\":\"10.0.0.1\",\"mask\":\"0.0.0.0\","
        "\"diAddress\":\"0.0.0.0\",\"mac\":\"02:00:00:00:00:fe\",\"paramA\":4000000000,\"paramB\":0,"
        "\"paramC\":0},\"replyLength\":0,\"errno\":0");
}

TEST(TraceLine, ShowsFlagsSignedNumbersBytesAndIpv6)
{
    Octets rss = octets(request_size);
    const Record table {std::span(rss)};
    table[rss::target] = "t";
    table[rss::entries] = {std::byte {0xab}};
    table[rss::size] = -2;
    EXPECT_EQ(text(event_of(158, rss)), "SoftRSSTableSet(target=\"t\", entries=ab(00*127), size=-2) = 0");
    EXPECT_THAT(json(event_of(158, rss)), HasSubstr("\"entries\":\"ab" + std::string(254, '0') + "\",\"size\":-2}"));

    Octets lif = octets(request_size);
    Record {std::span(lif)}[stats::cached] = true;
    EXPECT_THAT(text(event_of(23, lif)), HasSubstr("cached=true"));
    EXPECT_THAT(json(event_of(23, lif)), HasSubstr("\"cached\":true"));

    Octets route = octets(request_size);
    Record {std::span(route)}[routes6::dest] = {std::byte {0x20}, std::byte {0x01}, std::byte {0x0d}, std::byte {0xb8}};
    EXPECT_THAT(text(event_of(110, route)), HasSubstr("2001:db8::"));
    EXPECT_THAT(json(event_of(110, route)), HasSubstr("\"2001:db8::\""));
}

TEST(TraceLine, ShowsTablesUpToTheirLastEntry)
{
    Octets reply = octets(stats::record::layout.size);
    const Record counters {std::span(reply)};
    counters[stats::record::kind] = 3;
    counters[stats::record::counters][1][element<U64>] = 17;
    EXPECT_EQ(
        text(event_of(43, octets(request_size), 0, reply)), "GetLumoDiStats() = 0, {statsKind=3, counters=[0, 17]}");
    EXPECT_THAT(json(event_of(43, octets(request_size), 0, reply)),
        HasSubstr("\"reply\":{\"records\":[{\"statsKind\":3,\"counters\":[0,17]}],\"count\":1}"));

    Octets lif = octets(lifs::record::layout.size);
    const Record named {std::span(lif)};
    named[lifs::record::name] = "a";
    named[lifs::record::ipv6][0][lifs::ipv6_entry::prefix_len] = 64;
    EXPECT_THAT(text(event_of(22, octets(request_size), 0, lif)),
        HasSubstr("dhcpRelay.servers=[], ipv6Addrs=[{address=::, prefixLen=64, value=0}], ipv6Count=0"));
}

TEST(TraceLine, ShowsTheFirstRecordsOfAList)
{
    const std::size_t each = fdb::pmac_record::layout.size;
    Octets reply = octets(6 * each);
    for (std::size_t i = 0; i < 6; ++i)
        reply[i * each + 6] = static_cast<std::byte>(i);
    const Event six = event_of(73, octets(request_size), 0, reply);
    EXPECT_EQ(std::get<Call>(six.what).reply.size(), 4 * each);
    EXPECT_EQ(text(six), "GetPmac() = 0, [{mac=00:00:00:00:00:00, value=0}, {mac=00:00:00:00:00:00, value=1}, "
                         "{mac=00:00:00:00:00:00, value=2}, {mac=00:00:00:00:00:00, value=3}, 2 more]");
    EXPECT_THAT(json(six), MatchesRegex(".*\"value\":3\\}\\],\"count\":6\\},\"errno\":0"));
    EXPECT_EQ(text(event_of(73, octets(request_size))), "GetPmac() = 0, []");
    reply.resize(each + 2);
    EXPECT_EQ(text(event_of(73, octets(request_size), 0, reply)),
        "GetPmac() = 0, [{mac=00:00:00:00:00:00, value=0}], 2 bytes: 0000");
}

TEST(TraceLine, ShowsTheHeadOfACountedList)
{
    Octets reply = octets(4 + mcast_receivers::remote_record::layout.size);
    Record {std::span(reply)}[mcast_receivers::count] = 1;
    const Event event = event_of(129, octets(request_size), 0, reply);
    EXPECT_EQ(text(event), "GetMRoutingRemoteRcvrs(instance=\"\", value=0) = 0, {count=1}, "
                           "[{key=0, hwAddr=00:00:00:00:00:00, value1=0, value2=0}]");
    EXPECT_THAT(json(event), HasSubstr("\"reply\":{\"head\":{\"count\":1},\"records\":[{\"key\":0,"));
    EXPECT_EQ(text(event_of(129, octets(request_size), 0, octets(3, 0xee))),
        "GetMRoutingRemoteRcvrs(instance=\"\", value=0) = 0, [], 3 bytes: eeeeee");
}

TEST(TraceLine, ShowsBytesWhereTheLengthIsAnother)
{
    EXPECT_EQ(text(event_of(10, octets(2, 0xab), EINVAL)),
        "SetLogLevel(input of 2 bytes: abab) = -1 EINVAL (Invalid argument)");
    EXPECT_EQ(text(event_of(10, {}, EINVAL)), "SetLogLevel(input of 0 bytes) = -1 EINVAL (Invalid argument)");
    EXPECT_EQ(
        text(event_of(10, octets(65, 1), EINVAL)), "SetLogLevel(input of 65 bytes: " + [] {
            std::string digits;
            for (int i = 0; i < 64; ++i)
                digits += "01";
            return digits;
        }() + "...) = -1 EINVAL (Invalid argument)");
    EXPECT_EQ(json(event_of(10, octets(2, 0xab), EINVAL)), "10,\"command\":\"SetLogLevel\",\"inLength\":2,\"room\":3,"
                                                           "\"input\":\"abab\",\"errno\":22,\"error\":\"EINVAL\"");
}

TEST(TraceLine, ShowsCommandsThatThereAreNot)
{
    EXPECT_EQ(text(event_of(70, {}, ENOTTY)), "70() = -1 ENOTTY (Inappropriate ioctl for device)");
    EXPECT_EQ(text(event_of(4711, octets(1), ENOTTY)),
        "4711(input of 1 bytes: 00) = -1 ENOTTY (Inappropriate ioctl for device)");
    EXPECT_EQ(json(event_of(70, {}, ENOTTY)),
        "70,\"inLength\":0,\"room\":3,\"input\":\"\",\"errno\":25,\"error\":\"ENOTTY\"");
}

TEST(TraceLine, NamesErrors)
{
    EXPECT_EQ(
        text(event_of(9, {}, ENOBUFS)), "GetLogLevel() = -1 ENOBUFS (No buffer space available), room for 3 bytes");
    EXPECT_EQ(text(event_of(9, {}, 9999)), "GetLogLevel() = -1 9999");
    EXPECT_THAT(json(event_of(9, {}, 9999)), HasSubstr(",\"errno\":9999"));
    EXPECT_THAT(json(event_of(9, {}, 9999)), testing::Not(HasSubstr("error")));
}

TEST(TraceLine, SaysWhatIsNeverAnsweredAndWhatStruck)
{
    Event event = event_of(9, {}, std::nullopt);
    event.faults = "9=hang";
    EXPECT_EQ(text(event), "GetLogLevel() = ? (fault 9=hang)");
    EXPECT_THAT(json(event), MatchesRegex(".*\"request\":\\{\\},\"unanswered\":true,\"faults\":\"9=hang\""));
}

TEST(TraceLine, TellsOfOpens)
{
    Event event = event_of(9, {});
    event.what = Opening {"/device", 02000002 | 040000000};
    EXPECT_EQ(text(event), "open(\"/device\", O_RDWR|O_CLOEXEC|040000000) = 0");
    event.error = EACCES;
    EXPECT_THAT(text(event), testing::EndsWith(" = -1 EACCES (Permission denied)"));
    EXPECT_THAT(line(TraceFormat::Json, event),
        HasSubstr("\"open\":\"/device\",\"flags\":8912898,\"errno\":13,\"error\":\"EACCES\""));
}

TEST(TraceSummary, CountsByCommand)
{
    Summary summary;
    Event quick = event_of(9, {}, 0, octets(4));
    quick.took = std::chrono::microseconds(1500);
    summary.count(quick);
    summary.count(quick);
    summary.count(event_of(10, octets(2), EINVAL));
    EXPECT_EQ(summary.table(), "    calls    errors   bytes sent     received      seconds   us/call  command\n"
                               "        1         1            2            0     2.000012 2000012.3  SetLogLevel\n"
                               "        2         0            0            8     0.003000    1500.0  GetLogLevel\n"
                               "        3         1            2            8     2.003012  667670.8  total\n");
}

TEST(TraceJournal, RemembersTheLastEvents)
{
    Journal journal(2);
    EXPECT_EQ(journal.lines(TraceFormat::Text), "");
    for (const std::uint32_t number : {9U, 11U, 13U})
        journal.add(std::make_shared<const Event>(event_of(number, {})));
    EXPECT_THAT(journal.lines(TraceFormat::Text),
        MatchesRegex("\\+\\+\\+ forgotten: 1 \\+\\+\\+\n[^\n]*GetExtendedLogLevel[^\n]*\n[^\n]*GetStatsLevel[^\n]*\n"));
    EXPECT_THAT(journal.lines(TraceFormat::Json), testing::StartsWith("{\"forgotten\":1}\n{"));
}

TEST(TraceJournal, RemembersFewLargeEvents)
{
    Journal journal(100000);
    for (int i = 0; i < 5000; ++i)
        journal.add(std::make_shared<const Event>(event_of(10, octets(4096), EINVAL)));
    const std::string lines = journal.lines(TraceFormat::Json);
    EXPECT_THAT(lines.substr(0, 20), MatchesRegex(".\"forgotten\":[0-9]+.\n.*"));
    EXPECT_GT(std::count(lines.begin(), lines.end(), '\n'), 3000);
}

} // namespace
