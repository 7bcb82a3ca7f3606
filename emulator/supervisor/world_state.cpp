#include "emulator/supervisor/world_state.h"

#include "emulator/state/notation.h"
#include "emulator/state/patch.h"
#include "emulator/state/state_file.h"
#include "emulator/supervisor/control.h"
#include "emulator/supervisor/document.h"

#include <fmt/format.h>
#include <utility>

namespace emulator {

namespace {

Link link_to(const std::string& world)
{
    std::optional<Link> link = connect_to(world);
    if (!link)
        throw std::runtime_error(fmt::format("there is no world '{}'", world));
    return std::move(*link);
}

// What a document says in the way in which a module says it.
json::Value as_saved(const json::Value& document, const Settings& settings)
{
    Module another(settings);
    set_state(another, document);
    return state_of(another);
}

// What the module's state is to be.
json::Value changed(Module& module, Word how, json::Value document)
{
    if (how == Word::Replace)
        return document;
    json::Value state = state_of(module);
    if (how == Word::Patch)
        json::patch(state, document);
    else
        json::merge(state, document);
    return state;
}

void pass(const Link& link, const std::string& text)
{
    link.pass(Word::Ready, document_of(text).number());
}

bool is_about_faults(Word word)
{
    return word == Word::Fault || word == Word::Faults || word == Word::Unfault;
}

void answer_about_faults(Faults& faults, const Message& asked, const Link& link)
{
    switch (asked.word) {
    case Word::Faults:
        pass(link, faults.list());
        return;
    case Word::Fault:
        faults.add(text_of(asked.passed));
        break;
    default:
        faults.clear();
    }
    link.send(Word::Ready);
}

void answer_about_state(Module& module, const Message& asked, const Link& link)
{
    if (asked.word == Word::Read) {
        pass(link, json::print(state_of(module)));
        return;
    }
    if (asked.word == Word::Advance) {
        const auto by = notation::time(asked.text);
        if (!by)
            throw Refusal(fmt::format("'{}' is no number of seconds, up to a century", asked.text));
        if (!module.advance(*by))
            throw Refusal("no more than a century can pass in all");
        link.send(Word::Ready);
        return;
    }
    json::Value document = json::parse(text_of(asked.passed));
    if (asked.word == Word::Compare) {
        pass(link, json::print(json::difference(as_saved(document, module.state().settings), state_of(module))));
        return;
    }
    set_state(module, changed(module, asked.word, std::move(document)));
    link.send(Word::Ready);
}

} // namespace

WorldState::WorldState(const std::string& world) : link_(link_to(world)) {}

std::string WorldState::read() const
{
    link_.send(Word::Read);
    return text_of(answer().passed);
}

std::string WorldState::difference_from(const std::string& state) const
{
    link_.pass(Word::Compare, document_of(state).number());
    return text_of(answer().passed);
}

void WorldState::advance(const std::string& seconds) const
{
    link_.send(Word::Advance, 0, seconds);
    answer();
}

void WorldState::clear_faults() const
{
    link_.send(Word::Unfault);
    answer();
}

std::string WorldState::faults() const
{
    link_.send(Word::Faults);
    return text_of(answer().passed);
}

std::string WorldState::journal(TraceFormat format) const
{
    link_.send(Word::Journal, static_cast<int>(format));
    return text_of(answer().passed);
}

void WorldState::change(Word how, const std::string& document) const
{
    link_.pass(how, document_of(document).number());
    answer();
}

Message WorldState::answer() const
{
    auto message = link_.receive();
    if (!message)
        throw std::runtime_error("the world has ended");
    if (message->word == Word::Refused)
        throw Refusal(message->text);
    if (message->word != Word::Ready)
        throw std::runtime_error(message->text);
    return std::move(*message);
}

bool is_about_module(Word word)
{
    switch (word) {
    case Word::Read:
    case Word::Replace:
    case Word::Patch:
    case Word::Merge:
    case Word::Compare:
    case Word::Advance:
    case Word::Journal:
        return true;
    default:
        return is_about_faults(word);
    }
}

void answer_about_module(SharedModule& module, const Message& asked, const Link& link)
{
    try {
        if (asked.word == Word::Journal)
            pass(link, module.witness().journal(static_cast<TraceFormat>(asked.number)));
        else if (is_about_faults(asked.word))
            module.use_faults([&](Faults& used) { answer_about_faults(used, asked, link); });
        else
            module.use([&](Module& used) { answer_about_state(used, asked, link); });
    } catch (const FaultError& refusal) {
        link.send(Word::Refused, 0, refusal.what());
    } catch (const json::Error& refusal) {
        link.send(Word::Refused, 0, refusal.what());
    } catch (const Refusal& refusal) {
        link.send(Word::Refused, 0, refusal.what());
    } catch (const std::exception& failure) {
        link.send(Word::Failed, 0, failure.what());
    }
}

} // namespace emulator
