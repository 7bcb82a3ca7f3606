// Recordings that nobody has made: what is read of them can be printed, written again, compared and replayed.
#include "emulator/recording/comparing.h"
#include "emulator/recording/difference.h"
#include "emulator/recording/recording.h"
#include "emulator/recording/replay.h"
#include "emulator/trace/line.h"
#include "emulator/trace/reply.h"
#include "expect.h"

#include <algorithm>
#include <utility>

using namespace emulator;

namespace {

void expect(bool truth, const char* what)
{
    if (!truth)
        fuzz::fail(what);
}

void print(Event event)
{
    for (const TraceFormat format : {TraceFormat::Text, TraceFormat::Json}) {
        std::string line;
        append_line(line, format, event);
        expect(std::count(line.begin(), line.end(), '\n') == 1 && line.back() == '\n', "it is one line");
        // What is kept of a reply looks as all of it does.
        auto& call = std::get<Call>(event.what);
        std::vector<std::byte> whole = call.reply;
        keep_reply(call, std::move(call.reply));
        std::string other;
        append_line(other, format, event);
        expect(line == other, "what is shown is kept");
        call.reply = std::move(whole);
    }
}

// Whoever asks what was recorded, in order, gets the answers.
void replay(const Recording& recording)
{
    Replay strict(recording, ReplayOrder::Strict);
    Replay matching(recording, ReplayOrder::Matching);
    const Call* before = nullptr;
    for (const Event& event : recording.events) {
        if (!can_be_repeated(event))
            continue;
        const Call& call = std::get<Call>(event.what);
        expect(strict.answer(call).error == *event.error, "the answer is the recorded one");
        expect(matching.answer(call).error == *event.error, "it is found as well as expected");
        if (before != nullptr) {
            const bool differ = !differences_of_requests(*before, call, {"one", "other"}).empty();
            expect(differ == (asked_by(*before) != asked_by(call)), "calls differ in what they ask");
        }
        before = &call;
    }
    expect(strict.difference().empty() && matching.difference().empty(), "nothing differs");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    Recording recording;
    try {
        recording = parse_recording(bytes);
    } catch (const RecordingError&) {
        return 0;
    }
    std::vector<std::byte> again = header_of_recording();
    for (const Event& event : recording.events) {
        const std::vector<std::byte> entry = entry_of(event);
        again.insert(again.end(), entry.begin(), entry.end());
        print(event);
    }
    expect(parse_recording(again).events.size() == recording.events.size(), "it can be written again");
    replay(recording);
    Module module({Strictness::Strict, Clock::Manual});
    compare(recording, module);
    return 0;
}
