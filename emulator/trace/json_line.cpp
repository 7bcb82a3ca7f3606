#include "emulator/trace/line.h"
#include "emulator/trace/reply.h"

#include "emulator/state/json.h"
#include "emulator/state/notation.h"

#include <cstring>
#include <ctime>
#include <span>
#include <string_view>

namespace emulator {

using namespace protocol;

namespace {

constexpr TraceFormat as_json = TraceFormat::Json;

template <std::integral Number>
void append_member(std::string& out, std::string_view name, Number number)
{
    out.append(",\"").append(name).append("\":");
    append_number(out, number);
}

void append_member(std::string& out, std::string_view name, std::string_view text)
{
    out.append(",\"").append(name).append("\":");
    json::append_text(out, text);
}

// Its digits, which need no escaping.
void append_bytes(std::string& out, std::string_view name, std::span<const std::byte> bytes)
{
    out.append(",\"").append(name).append("\":\"").append(notation::of_bytes(bytes)).push_back('"');
}

void append_object(std::string& out, const char* name, const Layout& layout, std::span<const std::byte> bytes)
{
    out.append(name);
    append_record(out, as_json, layout, bytes);
}

// Of RFC 3339.
void append_time(std::string& out, std::chrono::system_clock::time_point time)
{
    const auto since = std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
    const std::time_t seconds = since / 1000000;
    std::tm day {};
    gmtime_r(&seconds, &day);
    char date[32];
    out.append(date, std::strftime(date, sizeof date, "%FT%T.", &day));
    append_digits(out, static_cast<std::uint64_t>(since % 1000000), 6);
    out.push_back('Z');
}

void append_request(std::string& out, const Command* command, const Call& call)
{
    if (call.readable == Readable::Nothing) {
        append_member(out, "unreadable", "envelope");
        return;
    }
    append_member(out, "inLength", call.in_len);
    append_member(out, "room", call.room);
    if (call.readable == Readable::Envelope) {
        append_member(out, "unreadable", "input");
    } else if (command != nullptr && call.in_len == command->input.size) {
        out.append(",\"request\":{");
        append_fields(out, as_json, command->input, call.input);
        out.push_back('}');
    } else {
        append_bytes(out, "input", call.input);
    }
}

void append_reply(std::string& out, const Command& command, const Call& call)
{
    const Reply& described = command.reply;
    append_member(out, "replyLength", call.reply_len);
    if (described.shape == Shape::Nothing)
        return;
    const ReplyParts parts = parts_of(described, call.reply_size);
    const std::span<const std::byte> reply(call.reply);
    const char* const comma = parts.head > 0 ? "," : "";
    out.append(",\"reply\":{");
    if (parts.head > 0)
        append_object(out, "\"head\":", described.head, reply);
    out.append(comma).append("\"records\":[");
    for (std::size_t i = 0; i < parts.shown; ++i)
        append_object(out, i > 0 ? "," : "", described.record, reply.subspan(parts.head + i * described.record.size));
    out.push_back(']');
    append_member(out, "count", parts.records);
    if (parts.rest > 0) {
        append_member(out, "restLength", parts.rest);
        append_bytes(out, "rest", rest_of(call, described, parts));
    }
    out.push_back('}');
}

void append_call(std::string& out, const Call& call, const Event& event)
{
    const Command* const command = command_of(call.number);
    append_member(out, "order", call.order);
    append_member(out, "number", call.number);
    if (command != nullptr)
        append_member(out, "command", command->name);
    append_request(out, command, call);
    if (event.error == 0 && command != nullptr)
        append_reply(out, *command, call);
}

void append_error(std::string& out, const std::optional<int>& error)
{
    if (!error) {
        out.append(",\"unanswered\":true");
        return;
    }
    append_member(out, "errno", *error);
    if (const char* const name = *error != 0 ? strerrorname_np(*error) : nullptr; name != nullptr)
        append_member(out, "error", name);
}

} // namespace

void append_json_line(std::string& out, const Event& event)
{
    out.append("{\"time\":\"");
    append_time(out, event.begun);
    out.push_back('"');
    append_member(out, "process", event.caller.process);
    append_member(out, "thread", event.caller.thread);
    append_member(out, "program", event.caller.program);
    if (const Call* const call = std::get_if<Call>(&event.what)) {
        append_call(out, *call, event);
    } else {
        append_member(out, "open", std::get<Opening>(event.what).path);
        append_member(out, "flags", std::get<Opening>(event.what).flags);
    }
    append_error(out, event.error);
    if (!event.faults.empty())
        append_member(out, "faults", event.faults);
    append_member(out, "duration", event.took / std::chrono::seconds(1));
    out.push_back('.');
    append_digits(
        out, static_cast<std::uint64_t>(event.took % std::chrono::seconds(1) / std::chrono::nanoseconds(1)), 9);
    out.append("}\n");
}

} // namespace emulator
