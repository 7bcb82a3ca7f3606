// Files that are said to be states, by the tool and by the emulator: what is accepted is brought back by what is written
// of it, and what is refused, with a place.
#include "expect.h"
#include "vast.h"

#include "emulator/state/patch.h"
#include "emulator/state/state_file.h"
#include "tool/mistakes.h"
#include "tool/state/checking.h"
#include "tool/state/difference.h"
#include "tool/state/document.h"
#include "tool/state/plan.h"

#include <cctype>
#include <string>

namespace fuzz {

namespace {

void expect_place(std::string_view refusal)
{
    const bool has_place = !refusal.empty() && std::isdigit(static_cast<unsigned char>(refusal.front())) != 0;
    if (!has_place)
        fail(std::string("a refusal without a place: ").append(refusal));
}

void read_by_tool(std::string_view text)
{
    constexpr auto order = tool::AddressOrder::Network;
    try {
        const tool::Value document = tool::checked(tool::parse_document(text, "file"), "file");
        const std::string printed = tool::print_document(document, tool::Spacing::Indented);
        if (!(tool::checked(tool::parse_document(printed, "file"), "file") == document))
            fail("another document is written");
        const tool::Value nothing = tool::checked(tool::parse_document(R"({"format":1})", "file"), "file");
        for (const tool::Call& call : tool::plan_of(nothing, tool::without_statistics(document), order).calls)
            tool::words_of(call);
        if (!tool::plan_of(document, document, order).calls.empty())
            fail("what is there is to be made");
        tool::text_of(tool::differences(nothing, document));
        tool::patch_of(tool::differences(document, nothing));
    } catch (const tool::Misuse& misuse) {
        const std::string_view what = misuse.what();
        if (!what.starts_with("file:"))
            fail(std::string("a refusal without its file: ").append(what));
        expect_place(what.substr(5));
    }
}

void read_by_emulator(std::string_view text)
{
    emulator::Settings settings;
    settings.clock = emulator::Clock::Manual;
    emulator::Module module(settings);
    try {
        const emulator::json::Value document = emulator::json::parse(text);
        emulator::json::Value merged = emulator::json::parse("{}");
        emulator::json::merge(merged, document);
        emulator::json::print(merged);
        emulator::json::at(document, "/instances");
        emulator::set_state(module, document);
    } catch (const emulator::json::Error& error) {
        return expect_place(error.what());
    }
    const std::string saved = emulator::json::print(emulator::state_of(module));
    emulator::Module again(settings);
    emulator::set_state(again, emulator::json::parse(saved));
    const std::string brought_back = emulator::json::print(emulator::state_of(again));
    expect_bytes("the state", brought_back, saved);
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::now_reading("state file");
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (text.find("\"format\"") != std::string_view::npos)
        fuzz::read_by_tool(text);
    else if (!fuzz::is_vast(text))
        fuzz::read_by_emulator(text);
    return 0;
}
