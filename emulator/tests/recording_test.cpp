// Recordings, what they say when something is wrong with them, and what is done with them.
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/recording/comparing.h"
#include "emulator/recording/difference.h"
#include "emulator/recording/entry.h"
#include "emulator/recording/recording.h"
#include "emulator/recording/replay.h"
#include "emulator/trace/line.h"

#include <cerrno>
#include <cstring>
#include <gmock/gmock.h>
#include <utility>

using namespace emulator;
using namespace emulator::protocol;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Octets = std::vector<std::byte>;

Octets level(std::uint32_t number)
{
    Octets bytes(4);
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

Event event_of(std::uint32_t number, Octets input, std::optional<int> error, Octets reply = {})
{
    Call call {.order = 1, .number = number, .readable = Readable::Input};
    call.in_len = static_cast<std::uint32_t>(input.size());
    call.in_ptr = 0x1234567890;
    call.out_ptr = 0x9876543210;
    call.room = 4;
    call.input = std::move(input);
    call.reply_size = reply.size();
    call.reply_len = static_cast<std::uint32_t>(reply.size());
    call.reply = std::move(reply);
    return {.begun = std::chrono::system_clock::time_point(std::chrono::seconds(1700000000)),
        .took = std::chrono::nanoseconds(1234),
        .caller = {7, 8, "agent"},
        .what = std::move(call),
        .error = error};
}

Event set(std::uint32_t number)
{
    return event_of(10, level(number), 0);
}

Event get(std::uint32_t number)
{
    return event_of(9, {}, 0, level(number));
}

Octets bytes_of(const std::vector<Event>& events)
{
    Octets bytes = header_of_recording();
    for (const Event& event : events) {
        const Octets entry = entry_of(event);
        bytes.insert(bytes.end(), entry.begin(), entry.end());
    }
    return bytes;
}

Recording recording_of(const std::vector<Event>& events)
{
    return parse_recording(bytes_of(events));
}

const Call& call_in(const Event& event)
{
    return std::get<Call>(event.what);
}

std::string line_of(const Event& event)
{
    std::string line;
    append_line(line, TraceFormat::Json, event);
    return line;
}

TEST(Recordings, HoldAllThatIsKnown)
{
    Event long_reply = get(4);
    std::get<Call>(long_reply.what).reply_len = 8;
    Event unanswered = event_of(9, {}, std::nullopt);
    Event unreadable = event_of(9, {}, EFAULT);
    std::get<Call>(unreadable.what).readable = Readable::Nothing;
    const std::vector<Event> events {
        set(9), get(9), event_of(70, level(1), ENOTTY), long_reply, unanswered, unreadable};
    const Recording recording = recording_of(events);
    EXPECT_EQ(recording.damage, "");
    ASSERT_EQ(recording.events.size(), events.size());
    for (std::size_t i = 0; i < events.size(); ++i) {
        Event expected = events[i];
        std::get<Call>(expected.what).order = i + 1;
        EXPECT_EQ(line_of(recording.events[i]), line_of(expected));
        EXPECT_EQ(call_in(recording.events[i]).in_ptr, 0x1234567890U);
        EXPECT_EQ(call_in(recording.events[i]).out_ptr, 0x9876543210U);
        EXPECT_EQ(call_in(recording.events[i]).reply, call_in(expected).reply);
    }
}

TEST(Recordings, HoldNoOpens)
{
    Event open = get(4);
    open.what = Opening {"/device", 0};
    EXPECT_THAT(entry_of(open), IsEmpty());
}

TEST(Recordings, AreReadUpToWhereTheyAreCut)
{
    const Octets whole = bytes_of({set(9), get(9)});
    const std::size_t header = header_of_recording().size();
    const std::size_t first = header + entry_of(set(9)).size();
    for (std::size_t size = header; size <= whole.size(); ++size) {
        const Recording recording = parse_recording(std::span(whole).first(size));
        EXPECT_EQ(recording.events.size(), size < first ? 0U : size < whole.size() ? 1U : 2U) << size;
        EXPECT_EQ(recording.damage.empty(), size == header || size == first || size == whole.size()) << size;
    }
    EXPECT_EQ(parse_recording(std::span(whole).first(first + 5)).damage,
        "entry 2, at byte " + std::to_string(first) + ": it ends within an entry");
}

TEST(Recordings, AreReadUpToWhatMakesNoSense)
{
    const Octets whole = bytes_of({set(9), get(9)});
    const std::size_t second = header_of_recording().size() + entry_of(set(9)).size();
    const auto damaged = [&](const Field& field, std::uint32_t number) {
        Octets bytes = whole;
        std::memcpy(bytes.data() + second + field.offset, &number, sizeof number);
        const Recording recording = parse_recording(bytes);
        EXPECT_EQ(recording.events.size(), 1U);
        return recording.damage;
    };
    const std::string begin = "entry 2, at byte " + std::to_string(second) + ": ";
    EXPECT_EQ(damaged(recording::entry::length, 0), begin + "the entry's lengths contradict each other");
    EXPECT_EQ(damaged(recording::entry::reply_size, ~0U), begin + "the entry's lengths contradict each other");
    EXPECT_EQ(damaged(recording::entry::input_size, 4), begin + "the entry's lengths contradict each other");
    EXPECT_EQ(damaged(recording::entry::in_len, 4), begin + "the entry's input is not of its length");
    const Field last_half {"begun", recording::entry::begun.offset + 4, 4, Kind::Number};
    EXPECT_EQ(damaged(last_half, ~0U), begin + "the entry's times are beyond all reason");
}

TEST(Recordings, AreOfAVersion)
{
    Octets bytes = header_of_recording();
    EXPECT_THAT(parse_recording(bytes).events, IsEmpty());
    bytes[12] = std::byte {2};
    EXPECT_THAT([&] { parse_recording(bytes); },
        testing::ThrowsMessage<RecordingError>("this is a recording of version 2; only version 1 can be read"));
    bytes[0] = std::byte {'L'};
    EXPECT_THAT([&] { parse_recording(bytes); }, testing::ThrowsMessage<RecordingError>("this is no recording"));
    EXPECT_THROW(parse_recording({}), RecordingError);
    EXPECT_THAT(
        [] { read_recording("/dev/null"); }, testing::ThrowsMessage<RecordingError>("/dev/null: this is no recording"));
}

constexpr Sides sides {"was", "is"};

TEST(Differences, AreOfFields)
{
    Octets one(request_size);
    Octets other(request_size);
    Record {std::span(other)}[routes::dest] = 10;
    Record {std::span(other)}[routes::lif] = "uplink";
    other[700] = std::byte {1}; // where no field is
    EXPECT_THAT(differences_of_requests(call_in(event_of(34, one, 0)), call_in(event_of(34, other, 0)), sides),
        ElementsAre("dest: was 0.0.0.0, is 10.0.0.0", "lif: was \"\", is \"uplink\""));
    EXPECT_THAT(differences_of_requests(call_in(get(1)), call_in(set(1)), sides),
        ElementsAre("command: was GetLogLevel, is SetLogLevel"));
    EXPECT_THAT(differences_of_requests(call_in(set(1)), call_in(event_of(10, Octets(2), 0)), sides),
        ElementsAre("input length: was 4, is 2", "input: was 01000000, is 0000"));
}

TEST(Differences, AreBetweenCallsThatAskSomethingElse)
{
    Octets bytes(request_size);
    const Call one = call_in(event_of(34, bytes, 0));
    bytes[700] = std::byte {1}; // where no field is
    EXPECT_EQ(asked_by(one), asked_by(call_in(event_of(34, bytes, 0))));
    EXPECT_NE(asked_by(one), asked_by(call_in(event_of(35, bytes, 0))));
    EXPECT_NE(asked_by(one), asked_by(call_in(event_of(34, Octets(request_size + 1), 0))));
    Call roomy = one;
    ++roomy.room;
    EXPECT_NE(asked_by(one), asked_by(roomy));
    Record {std::span(bytes)}[routes::lif] = "uplink";
    EXPECT_NE(asked_by(one), asked_by(call_in(event_of(34, bytes, 0))));
    EXPECT_NE(
        asked_by(call_in(event_of(10, Octets(2), 0))), asked_by(call_in(event_of(10, Octets(2, std::byte {1}), 0))));
}

TEST(Differences, AreOfReplies)
{
    Octets one(2 * routes::record::layout.size);
    Octets other = one;
    const std::span second = std::span(other).subspan(routes::record::layout.size);
    Record {second}[routes::record::next_hops][1][routes::next_hop::lif] = "uplink";
    EXPECT_THAT(differences_of_answers(36, {0, one}, {0, other}, sides),
        ElementsAre("[1].nextHops[1].nextHopLifName: was \"\", is \"uplink\""));
    other.resize(routes::record::layout.size + 1);
    EXPECT_THAT(differences_of_answers(36, {0, one}, {0, other}, sides),
        ElementsAre("reply length: was 1336, is 669", "records: was 2, is 1", "rest: was , is 00"));
    EXPECT_THAT(differences_of_answers(36, {0, one}, {ENODEV, {}}, sides), ElementsAre("errno: was 0, is ENODEV"));
    EXPECT_THAT(differences_of_answers(36, {EIO, {}}, {EIO, {}}, sides), IsEmpty());
}

TEST(Replays, AnswerAsRecorded)
{
    Replay replay(recording_of({set(9), get(9), event_of(70, {}, ENOTTY)}), ReplayOrder::Strict);
    EXPECT_EQ(replay.answer(call_in(set(9))).error, 0);
    EXPECT_EQ(replay.answer(call_in(get(0))).reply, level(9));
    EXPECT_EQ(replay.answer(call_in(event_of(70, {}, 0))).error, ENOTTY);
    EXPECT_EQ(replay.difference(), "");
    EXPECT_EQ(replay.answer(call_in(get(0))).error, EIO);
    EXPECT_EQ(replay.difference(), "call 4, GetLogLevel, differs:\n  it is not in the recording\n");
}

TEST(Replays, SayWhatDiffersFirst)
{
    Replay replay(recording_of({set(9), get(9)}), ReplayOrder::Strict);
    EXPECT_EQ(replay.difference(), "call 1, SetLogLevel, was not made\n");
    EXPECT_EQ(replay.answer(call_in(set(8))).error, EIO);
    EXPECT_EQ(replay.answer(call_in(get(9))).error, EIO);
    EXPECT_EQ(replay.difference(), "call 1, SetLogLevel, differs:\n  level: recorded 9, now 8\n");
}

TEST(Replays, FindCallsInAnyOrderIfAsked)
{
    Replay replay(recording_of({get(1), set(9), get(9)}), ReplayOrder::Matching);
    EXPECT_EQ(replay.answer(call_in(set(9))).error, 0);
    EXPECT_EQ(replay.answer(call_in(get(0))).reply, level(1));
    EXPECT_EQ(replay.answer(call_in(get(0))).reply, level(9));
    EXPECT_EQ(replay.answer(call_in(get(0))).reply, level(9));
    EXPECT_EQ(replay.difference(), "");
    EXPECT_EQ(replay.answer(call_in(set(8))).error, EIO);
    EXPECT_EQ(replay.answer(call_in(get(0))).error, 0);
    EXPECT_EQ(replay.difference(), "call 5, SetLogLevel, differs:\n  level: recorded 9, now 8\n");
    EXPECT_EQ(replay.answer(call_in(event_of(42, {}, 0))).error, EIO);
}

TEST(Replays, FindCallsInALargeRecordingWithoutGoingThroughIt)
{
    constexpr std::uint32_t many = 20000;
    Recording recording;
    for (std::uint32_t i = 0; i < many; ++i) {
        recording.events.push_back(set(i));
        recording.events.push_back(get(i));
    }
    Replay replay(recording, ReplayOrder::Matching);
    for (std::uint32_t i = 0; i < many; ++i) {
        ASSERT_EQ(replay.answer(call_in(set(many - 1 - i))).error, 0);
        ASSERT_EQ(replay.answer(call_in(get(0))).reply, level(i));
    }
    EXPECT_EQ(replay.difference(), "");
}

TEST(Replays, LeaveOutWhatNeverArrived)
{
    Event unreadable = event_of(9, {}, EFAULT);
    std::get<Call>(unreadable.what).readable = Readable::Envelope;
    Replay replay(recording_of({unreadable, event_of(9, {}, std::nullopt), get(7)}), ReplayOrder::Strict);
    EXPECT_EQ(replay.answer(call_in(get(0))).reply, level(7));
    EXPECT_EQ(replay.difference(), "");
}

TEST(Comparing, TellsWhereTheModelAnswersOtherwise)
{
    Module module({Strictness::Strict, Clock::Manual});
    const Compared same = compare(recording_of({get(4), set(9), get(9), event_of(10, Octets(2), EINVAL)}), module);
    EXPECT_EQ(same.calls, 4U);
    EXPECT_EQ(same.differ, 0U);
    EXPECT_EQ(same.lines, "");

    Module another({Strictness::Strict, Clock::Manual});
    const Compared other = compare(recording_of({get(3), event_of(10, level(9), EPERM), get(9)}), another);
    EXPECT_EQ(other.differ, 2U);
    EXPECT_THAT(other.lines, testing::MatchesRegex("1: .*GetLogLevel.*\n  level: recorded 3, the model 4\n"
                                                   "2: .*SetLogLevel.*\n  errno: recorded EPERM, the model 0\n"));
}

TEST(Comparing, LeavesOutWhatOnlyTheCallerIsToBlameFor)
{
    Module module({Strictness::Strict, Clock::Manual});
    EXPECT_EQ(compare(recording_of({event_of(10, level(9), EFAULT), get(9)}), module).differ, 0U);
}

} // namespace
