#include "emulator/faults/fate.h"

#include "emulator/faults/chance.h"
#include "emulator/faults/counts.h"
#include "emulator/protocol/commands.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <thread>
#include <unistd.h>

namespace emulator {

using namespace protocol;

namespace {

using EffectKind = Effect::Kind;
using Bytes = std::vector<std::byte>;

// The largest reply that there can be.
std::size_t largest(const Reply& reply)
{
    return reply.head.size + (reply.most + 1) * reply.record.size;
}

// Half a record where there is none, as far as there is room for it.
void break_record(Bytes& bytes, const Reply& reply, std::uint32_t room)
{
    const std::size_t half = reply.record.size / 2;
    const bool is_empty = bytes.size() < reply.head.size + reply.record.size;
    bytes.resize(is_empty ? std::min<std::size_t>(reply.head.size + half, room) : bytes.size() - half);
}

// A module that has more to say than there is room for fills the room.
void overfill(Answer& answer, const Reply& reply, std::uint32_t room)
{
    answer.reply.resize(std::max(answer.reply.size(), std::min<std::size_t>(room, largest(reply))));
    const std::uint64_t needed = std::uint64_t {room} + reply.record.size;
    answer.reported =
        static_cast<std::uint32_t>(std::min<std::uint64_t>(needed, std::numeric_limits<std::uint32_t>::max()));
}

void randomise(Bytes& bytes, std::uint64_t seed)
{
    for (std::size_t at = 0; at < bytes.size(); at += sizeof seed) {
        const std::uint64_t number = chance(seed, at);
        std::memcpy(bytes.data() + at, &number, std::min(sizeof number, bytes.size() - at));
    }
}

void set_counts(std::span<std::byte> bytes, const Layout& layout, std::uint64_t number)
{
    for (const Field* field : layout.fields)
        if (is_count(*field, number))
            std::memcpy(bytes.data() + field->offset, &number, field->width);
}

void set_counts(Bytes& bytes, const Reply& reply, std::uint64_t number)
{
    std::span<std::byte> rest(bytes);
    if (rest.size() < reply.head.size)
        return;
    set_counts(rest.first(reply.head.size), reply.head, number);
    for (rest = rest.subspan(reply.head.size); rest.size() >= reply.record.size; rest = rest.subspan(reply.record.size))
        set_counts(rest, reply.record, number);
}

void spoil(Answer& answer, const Fate& fate, const Reply& reply, std::uint32_t room)
{
    const auto& [kind, number] = *fate.effect;
    switch (kind) {
    case EffectKind::Short:
        answer.reply.resize(std::min<std::size_t>(answer.reply.size(), number));
        break;
    case EffectKind::Fragment:
        break_record(answer.reply, reply, room);
        break;
    case EffectKind::Long:
        overfill(answer, reply, room);
        break;
    case EffectKind::Garbage:
        randomise(answer.reply, fate.seed);
        break;
    case EffectKind::Count:
        set_counts(answer.reply, reply, number);
        break;
    default:
        break;
    }
}

} // namespace

int Fate::error() const
{
    return effect && effect->kind == EffectKind::Error ? static_cast<int>(effect->number) : 0;
}

void wait(const Fate& fate)
{
    std::this_thread::sleep_for(fate.delay);
    while (fate.hangs)
        pause();
}

Answer answer(
    Module& module, const Fate& fate, std::uint32_t number, std::span<const std::byte> input, std::uint32_t room)
{
    if (const int error = fate.error(); error != 0)
        return {error, {}};
    Answer answer = module.answer(number, input, room);
    // Faults are of commands that there are.
    if (fate.effect && answer.error == 0)
        spoil(answer, fate, commands_by_number[number]->reply, room);
    return answer;
}

} // namespace emulator
