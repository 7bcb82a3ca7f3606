// Messages on the socket of a world: those about its module get one answer each, whatever they say and pass.
#include "expect.h"
#include "input.h"
#include "vast.h"

#include "emulator/supervisor/document.h"
#include "emulator/supervisor/world_state.h"

#include <array>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace fuzz {

namespace {

using emulator::Link;
using emulator::Word;

// A word, a number and a text, as a client sends them.
std::string message_in(Input& input)
{
    struct
    {
        Word word;
        int number;
    } head {};
    head.word = static_cast<Word>(input.byte() % 32);
    head.number = static_cast<int>(input.word());
    std::string message(reinterpret_cast<const char*>(&head), sizeof head);
    return message.append(input.bytes(input.byte()));
}

// With a document, something else that is open, or nothing.
void send(const Link& link, Input& input)
{
    const std::uint8_t kind = input.byte();
    if (kind % 4 == 0) {
        const std::string_view bytes = input.bytes(input.byte());
        ::send(link.descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    } else if (kind % 4 == 1) {
        const std::string message = message_in(input);
        ::send(link.descriptor(), message.data(), message.size(), MSG_NOSIGNAL);
    } else if (kind % 4 == 2) {
        link.pass(static_cast<Word>(input.byte() % 32), link.descriptor());
    } else {
        const auto word = static_cast<Word>(input.byte() % 32);
        link.pass(word, emulator::document_of(input.bytes(input.half())).number());
    }
}

void expect_answer(const Link& link)
{
    const auto answer = link.receive();
    if (!answer)
        fail("no answer");
    if (answer->word != Word::Ready && answer->word != Word::Refused && answer->word != Word::Failed)
        fail("an answer that is none");
    if (answer->word != Word::Ready && answer->text.empty())
        fail("a refusal without a reason");
    std::array<char, 1> more {};
    if (recv(link.descriptor(), more.data(), more.size(), MSG_DONTWAIT) >= 0)
        fail("more than one answer");
}

void run(Input& input)
{
    emulator::Settings settings;
    settings.clock = emulator::Clock::Manual;
    emulator::Module module(settings);
    emulator::Faults faults;
    emulator::Witness witness({.journal = 4});
    emulator::SharedModule shared(module, faults, witness);
    for (int i = 0; i < 4; ++i) {
        // A message that is no message ends the connection.
        const auto [client, world] = Link::pair();
        send(client, input);
        shutdown(client.descriptor(), SHUT_WR);
        const auto message = world.receive();
        if (!message || !emulator::is_about_module(message->word))
            continue;
        emulator::answer_about_module(shared, *message, world);
        expect_answer(client);
    }
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::now_reading("control message");
    if (fuzz::is_vast({reinterpret_cast<const char*>(data), size}))
        return 0;
    fuzz::Input input(data, size);
    fuzz::run(input);
    return 0;
}
