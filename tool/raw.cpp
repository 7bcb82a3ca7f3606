#include "tool/raw.h"

#include "lumozeph.h"
#include "tool/dry_run.h"
#include "tool/failures.h"
#include "tool/files.h"
#include "tool/hex_dump.h"
#include "tool/json_writer.h"
#include "tool/mistakes.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace tool {
namespace {

struct RawExchange
{
    RawExchange(std::string what, std::uint32_t room)
        : request(std::move(what)),
          reply(room), envelope {static_cast<std::uint32_t>(request.size()), request.empty() ? nullptr : request.data(),
                           room, reply.empty() ? nullptr : reply.data()}
    {}

    std::string request;
    std::vector<std::byte> reply;
    LumoEnvelope envelope;
};

void print_reply(std::span<const std::byte> reply, const Manner& manner, Output& output)
{
    if (manner.raw)
        return output.write({reinterpret_cast<const char*>(reply.data()), reply.size()});
    if (manner.style == Style::Text)
        return reply.empty() ? void() : print_bytes(output, reply);
    JsonWriter json(output, manner.style == Style::Json ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented);
    json.begin_object();
    json.key("reply");
    json.string(bytes_text(reply));
    json.end_object();
    output.write("\n");
}

} // namespace

void issue(const RawCommand& command, Sending sending, const Manner& manner, Output& output)
{
    // As ioctl(2) counts them; the library has the same bits with a sign.
    const auto number = static_cast<std::int32_t>(parse_number(command.number, sizeof(std::uint32_t)));
    const std::string request = command.request_file.empty() ? "" : contents_of(command.request_file);
    if (sending == Sending::OnlyShown)
        return show_command({number, request, command.reply_size}, manner, output);
    const auto exchange = std::make_shared<RawExchange>(request, command.reply_size);
    call([&] { return "raw " + command.number; }, "Ioctl",
        [number, exchange] { return LUMOZEPHIoctl(number, &exchange->envelope); });
    // What the module reports may be more than the room that it had.
    const std::size_t length = std::min<std::size_t>(exchange->envelope.outLen, exchange->reply.size());
    print_reply({exchange->reply.data(), length}, manner, output);
    output.flush();
}

} // namespace tool
