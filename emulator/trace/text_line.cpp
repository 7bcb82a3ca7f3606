#include "emulator/trace/line.h"
#include "emulator/trace/reply.h"

#include "emulator/state/json.h"
#include "emulator/state/notation.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <span>
#include <utility>

namespace emulator {

using namespace protocol;

namespace {

constexpr TraceFormat text = TraceFormat::Text;
using std::chrono::nanoseconds;

void append_time(std::string& out, std::chrono::system_clock::time_point time)
{
    const auto since = std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
    const std::time_t seconds = since / 1000000;
    std::tm day {};
    localtime_r(&seconds, &day);
    append_digits(out, static_cast<std::uint64_t>(day.tm_hour), 2);
    out.push_back(':');
    append_digits(out, static_cast<std::uint64_t>(day.tm_min), 2);
    out.push_back(':');
    append_digits(out, static_cast<std::uint64_t>(day.tm_sec), 2);
    out.push_back('.');
    append_digits(out, static_cast<std::uint64_t>(since % 1000000), 6);
}

// Whatever a program is called, it takes one word on one line.
void append_caller(std::string& out, const Caller& caller)
{
    append_number(out, caller.process);
    if (caller.thread != caller.process) {
        out.push_back('/');
        append_number(out, caller.thread);
    }
    out.push_back(' ');
    if (caller.program.empty())
        out.push_back('?');
    for (const char letter : caller.program)
        out.push_back(letter > ' ' && letter < 0x7f ? letter : '?');
}

void append_bytes(std::string& out, std::span<const std::byte> bytes, std::size_t all)
{
    const std::size_t shown = std::min({bytes.size(), all, bytes_shown});
    out.append(notation::of_bytes(bytes.first(shown))).append(shown < all ? "..." : "");
}

void append_request(std::string& out, const Command* command, const Call& call)
{
    if (call.readable == Readable::Nothing) {
        out.append("envelope unreadable");
    } else if (call.readable == Readable::Envelope) {
        out.append("input of ");
        append_number(out, call.in_len);
        out.append(" bytes unreadable");
    } else if (command != nullptr && call.in_len == command->input.size) {
        append_fields(out, text, command->input, call.input);
    } else if (command != nullptr || call.in_len > 0) {
        out.append("input of ");
        append_number(out, call.in_len);
        out.append(call.in_len > 0 ? " bytes: " : " bytes");
        append_bytes(out, call.input, call.in_len);
    }
}

void append_records(std::string& out, const Reply& described, const ReplyParts& parts, const Call& call)
{
    const bool is_list = described.is_list();
    out.append(is_list ? ", [" : "");
    for (std::size_t i = 0; i < parts.shown; ++i) {
        out.append(i > 0 || !is_list ? ", " : "");
        const auto from = parts.head + i * described.record.size;
        append_record(out, text, described.record, std::span(call.reply).subspan(from, described.record.size));
    }
    if (parts.records > parts.shown) {
        out.append(", ");
        append_number(out, parts.records - parts.shown);
        out.append(" more");
    }
    out.append(is_list ? "]" : "");
}

void append_reply(std::string& out, const Command& command, const Call& call)
{
    const Reply& described = command.reply;
    const ReplyParts parts = parts_of(described, call.reply_size);
    if (parts.head > 0) {
        out.append(", ");
        append_record(out, text, described.head, call.reply);
    }
    if (described.shape != Shape::Nothing)
        append_records(out, described, parts, call);
    if (parts.rest > 0) {
        out.append(", ");
        append_number(out, parts.rest);
        out.append(" bytes: ");
        append_bytes(out, rest_of(call, described, parts), parts.rest);
    }
    if (call.reply_len != call.reply_size) {
        out.append(", said to be ");
        append_number(out, call.reply_len);
        out.append(" bytes");
    }
}

void append_error(std::string& out, int error)
{
    const char* const name = strerrorname_np(error);
    out.append("-1 ");
    if (name == nullptr) {
        append_number(out, error);
        return;
    }
    out.append(name).append(" (").append(strerrordesc_np(error)).push_back(')');
}

void append_call(std::string& out, const Call& call, const std::optional<int>& error)
{
    const Command* const command = command_of(call.number);
    out.append(name_of_command(call.number));
    out.push_back('(');
    append_request(out, command, call);
    out.append(") = ");
    if (!error) {
        out.push_back('?');
    } else if (*error != 0) {
        append_error(out, *error);
        if (*error == ENOBUFS) {
            out.append(", room for ");
            append_number(out, call.room);
            out.append(" bytes");
        }
    } else {
        out.push_back('0');
        if (command != nullptr)
            append_reply(out, *command, call);
    }
}

void append_flags(std::string& out, std::uint64_t flags)
{
    constexpr std::array access {"O_RDONLY", "O_WRONLY", "O_RDWR", "O_ACCMODE"};
    constexpr std::array names {std::pair(O_CREAT, "O_CREAT"), std::pair(O_EXCL, "O_EXCL"),
        std::pair(O_NOCTTY, "O_NOCTTY"), std::pair(O_TRUNC, "O_TRUNC"), std::pair(O_APPEND, "O_APPEND"),
        std::pair(O_NONBLOCK, "O_NONBLOCK"), std::pair(O_NOFOLLOW, "O_NOFOLLOW"), std::pair(O_CLOEXEC, "O_CLOEXEC")};
    out.append(access[flags & O_ACCMODE]);
    std::uint64_t rest = flags & ~std::uint64_t {O_ACCMODE};
    for (const auto& [flag, name] : names) {
        if ((rest & static_cast<std::uint64_t>(flag)) == 0)
            continue;
        out.append("|").append(name);
        rest &= ~static_cast<std::uint64_t>(flag);
    }
    if (rest != 0) {
        out.append("|0");
        char digits[24];
        out.append(digits, std::to_chars(digits, digits + sizeof digits, rest, 8).ptr);
    }
}

void append_opening(std::string& out, const Opening& opening, const std::optional<int>& error)
{
    out.append("open(");
    json::append_text(out, opening.path);
    out.append(", ");
    append_flags(out, opening.flags);
    out.append(") = ");
    if (!error)
        out.push_back('?');
    else if (*error != 0)
        append_error(out, *error);
    else
        out.push_back('0');
}

} // namespace

void append_text_line(std::string& out, const Event& event)
{
    append_time(out, event.begun);
    out.push_back(' ');
    append_caller(out, event.caller);
    out.push_back(' ');
    if (const Call* const call = std::get_if<Call>(&event.what))
        append_call(out, *call, event.error);
    else
        append_opening(out, std::get<Opening>(event.what), event.error);
    if (!event.faults.empty())
        out.append(" (fault ").append(event.faults).append(")");
    out.append(" <");
    append_number(out, event.took / std::chrono::seconds(1));
    out.push_back('.');
    append_digits(
        out, static_cast<std::uint64_t>(event.took % std::chrono::seconds(1) / std::chrono::microseconds(1)), 6);
    out.append(">\n");
}

} // namespace emulator
