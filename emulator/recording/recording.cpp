#include "emulator/recording/recording.h"

#include "emulator/protocol/access.h"
#include "emulator/protocol/envelope.h"
#include "emulator/recording/entry.h"
#include "emulator/state/state_file.h"

#include <algorithm>

namespace emulator {

using namespace recording;

namespace {

using Octets = std::span<const std::byte>;
using std::chrono::nanoseconds;

// In the year 2116: what can be added to any other.
constexpr std::uint64_t latest = std::uint64_t {1} << 62;

Event event_in(const Input& fixed, Octets input, Octets reply, std::uint64_t order)
{
    Call call {.order = order, .number = fixed[entry::number]};
    call.readable = static_cast<Readable>(std::min<std::uint8_t>(fixed[entry::readable], 2));
    call.in_len = fixed[entry::in_len];
    call.in_ptr = fixed[entry::in_ptr];
    call.room = fixed[entry::room];
    call.out_ptr = fixed[entry::out_ptr];
    call.input.assign(input.begin(), input.end());
    call.reply_len = fixed[entry::out_len];
    call.reply_size = reply.size();
    call.reply.assign(reply.begin(), reply.end());
    Event event {.what = std::move(call)};
    event.begun = std::chrono::system_clock::time_point(nanoseconds(static_cast<std::int64_t>(fixed[entry::begun])));
    event.took = nanoseconds(static_cast<std::int64_t>(fixed[entry::took]));
    event.caller = {fixed[entry::process], fixed[entry::thread], fixed[entry::program]};
    if (fixed[entry::answered])
        event.error = static_cast<int>(fixed[entry::error]);
    return event;
}

// Why there is no entry; nothing if there is one.
std::string why_none(Octets rest)
{
    const std::size_t fixed = entry::layout.size;
    if (rest.size() < fixed)
        return "it ends within an entry";
    const Input in(rest);
    const std::uint64_t sum = std::uint64_t {fixed} + in[entry::input_size] + in[entry::reply_size];
    if (in[entry::length] != sum || in[entry::input_size] > std::min(in[entry::in_len], longest_input))
        return "the entry's lengths contradict each other";
    // A call of the wrong length is recorded as it is; one whose input was read has all of it.
    if (in[entry::readable] >= 2 && in[entry::input_size] != std::min(in[entry::in_len], longest_input))
        return "the entry's input is not of its length";
    if (in[entry::begun] > latest || in[entry::took] > latest)
        return "the entry's times are beyond all reason";
    return sum > rest.size() ? "it ends within an entry" : "";
}

} // namespace

Recording parse_recording(Octets bytes)
{
    if (bytes.size() < header::layout.size || Input(bytes)[header::magic] != magic)
        throw RecordingError("this is no recording");
    if (const std::uint32_t found = Input(bytes)[header::version]; found != recording::version)
        throw RecordingError("this is a recording of version " + std::to_string(found) + "; only version " +
                             std::to_string(recording::version) + " can be read");
    Recording made;
    Octets rest = bytes.subspan(header::layout.size);
    while (!rest.empty()) {
        if (const std::string why = why_none(rest); !why.empty()) {
            made.damage = "entry " + std::to_string(made.events.size() + 1) + ", at byte " +
                          std::to_string(bytes.size() - rest.size()) + ": " + why;
            break;
        }
        const Input fixed(rest);
        const Octets input = rest.subspan(entry::layout.size, fixed[entry::input_size]);
        const Octets reply = rest.subspan(entry::layout.size + input.size(), fixed[entry::reply_size]);
        made.events.push_back(event_in(fixed, input, reply, made.events.size() + 1));
        rest = rest.subspan(fixed[entry::length]);
    }
    return made;
}

Recording read_recording(const std::string& path)
{
    const std::string text = read_file(path);
    try {
        return parse_recording(std::as_bytes(std::span(text)));
    } catch (const RecordingError& error) {
        throw RecordingError(path + ": " + error.what());
    }
}

std::vector<std::byte> header_of_recording()
{
    std::vector<std::byte> bytes(header::layout.size);
    const Record made {std::span(bytes)};
    made[header::magic] = magic;
    made[header::version] = recording::version;
    return bytes;
}

std::vector<std::byte> entry_of(const Event& event)
{
    const Call* const call = std::get_if<Call>(&event.what);
    if (call == nullptr)
        return {};
    std::vector<std::byte> bytes(entry::layout.size);
    bytes.reserve(bytes.size() + call->input.size() + call->reply.size());
    const Record made {std::span(bytes)};
    made[entry::length] = static_cast<std::uint32_t>(bytes.size() + call->input.size() + call->reply.size());
    made[entry::number] = call->number;
    made[entry::begun] =
        static_cast<std::uint64_t>(std::chrono::duration_cast<nanoseconds>(event.begun.time_since_epoch()).count());
    made[entry::took] = static_cast<std::uint64_t>(event.took.count());
    made[entry::process] = event.caller.process;
    made[entry::thread] = event.caller.thread;
    made[entry::program] = event.caller.program;
    made[entry::in_len] = call->in_len;
    made[entry::in_ptr] = call->in_ptr;
    made[entry::room] = call->room;
    made[entry::out_ptr] = call->out_ptr;
    made[entry::error] = static_cast<std::uint32_t>(event.error.value_or(0));
    made[entry::out_len] = call->reply_len;
    made[entry::input_size] = static_cast<std::uint32_t>(call->input.size());
    made[entry::reply_size] = static_cast<std::uint32_t>(call->reply.size());
    made[entry::readable] = static_cast<std::uint8_t>(call->readable);
    made[entry::answered] = event.error.has_value();
    bytes.insert(bytes.end(), call->input.begin(), call->input.end());
    bytes.insert(bytes.end(), call->reply.begin(), call->reply.end());
    return bytes;
}

} // namespace emulator
