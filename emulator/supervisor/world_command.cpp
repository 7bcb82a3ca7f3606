#include "emulator/supervisor/world_command.h"

#include "emulator/state/patch.h"
#include "emulator/state/replaced_file.h"
#include "emulator/state/state_file.h"
#include "emulator/supervisor/options.h"
#include "emulator/supervisor/output.h"

#include <algorithm>
#include <fmt/core.h>

namespace emulator {

namespace {

// Beside what main.cpp exits with.
constexpr int negative = 1; // nothing is there, or states differ
constexpr int refused = 2;

} // namespace

WorldCommand::WorldCommand(CLI::App& app)
    : command_(app.add_subcommand(
          "world", "Read and change a world's state and faults, and see what was asked of it: world NAME get"))
{
    command_->add_option("NAME", world_, "The world's name")->required();
    command_->require_subcommand(1);
    command_->footer(
        "Exits with 0; 1 if there is nothing at POINTER, or states differ; 2 if what FILE, SECONDS or SPEC\n"
        "says makes no sense, and then nothing has changed; 125 if the emulator failed.");
    add("get", "Print the state, or what is at a JSON pointer in it", [this](const WorldState& state) {
        return get(state);
    })->add_option("POINTER", pointer_, "Such as /instances/blue/lifs");
    add_with_file("patch", "Apply the operations of a JSON patch, all or none", [this](const WorldState& state) {
        state.patch(content());
        return 0;
    });
    add_with_file("merge", "Apply a JSON merge patch", [this](const WorldState& state) {
        state.merge(content());
        return 0;
    });
    add_with_file("load", "Put the state that a file describes in the place of all", [this](const WorldState& state) {
        state.replace(content());
        return 0;
    });
    add_with_file("save", "Write the state to a file", [this](const WorldState& state) {
        ReplacedFile(file_).replace(state.read());
        return 0;
    });
    add("reset", "Begin anew with nothing", [](const WorldState& state) {
        state.replace("{}");
        return 0;
    });
    add_with_file("diff", "Print the JSON patch that makes the world's state of a file's",
        [this](const WorldState& state) { return diff(state); });
    add("advance", "Let time pass for the module",
        [this](const WorldState& state) {
            state.advance(seconds_);
            return 0;
        })
        ->add_option("SECONDS", seconds_, "How much, beside what passes by itself")
        ->required();
    add_faults();
    add_journal();
}

CLI::App* WorldCommand::add(const char* name, const char* what, Verb verb)
{
    return add_to(*command_, name, what, std::move(verb));
}

CLI::App* WorldCommand::add_to(CLI::App& parent, const char* name, const char* what, Verb verb)
{
    CLI::App* const added = parent.add_subcommand(name, what);
    verbs_.emplace_back(added, std::move(verb));
    return added;
}

void WorldCommand::add_faults()
{
    CLI::App* const faults = command_->add_subcommand("fault", "Have commands go wrong: world NAME fault add SPEC");
    faults->require_subcommand(1);
    add_to(*faults, "add", "Add a fault, such as GetLifs#2=ENODEV",
        [this](const WorldState& state) {
            state.add_fault(fault_);
            return 0;
        })
        ->add_option("SPEC", fault_, "Which commands, and what becomes of them")
        ->required();
    add_to(*faults, "list", "Print the faults that there are", [](const WorldState& state) {
        print(state.faults());
        return 0;
    });
    add_to(*faults, "clear", "Take all away", [](const WorldState& state) {
        state.clear_faults();
        return 0;
    });
}

void WorldCommand::add_journal()
{
    CLI::App* const journal =
        add("journal", "Print what was asked of the module, and answered", [this](const WorldState& state) {
            print(state.journal(format_));
            return 0;
        });
    choose(journal->add_option("--format", format_, "How: text or json, an object a line"), "FORMAT", formats);
}

CLI::App* WorldCommand::add_with_file(const char* name, const char* what, Verb verb)
{
    CLI::App* const added = add(name, what, std::move(verb));
    added->add_option("FILE", file_, "A JSON document")->required();
    return added;
}

int WorldCommand::run() const
{
    const auto verb = std::find_if(verbs_.begin(), verbs_.end(), [](const auto& one) { return one.first->parsed(); });
    try {
        return verb->second(WorldState(world_));
    } catch (const Refusal& refusal) {
        fmt::print(stderr, "lumozeph-emulator: {}{}\n", file_.empty() ? "" : file_ + ":", refusal.what());
        return refused;
    }
}

int WorldCommand::get(const WorldState& state) const
{
    if (!pointer_.empty() && pointer_[0] != '/')
        throw Refusal(fmt::format("expected a JSON pointer, which begins with a slash, not '{}'", pointer_));
    const json::Value document = json::parse(state.read());
    const json::Value* const found = json::at(document, pointer_);
    if (found == nullptr) {
        fmt::print(stderr, "lumozeph-emulator: there is nothing at '{}'\n", pointer_);
        return negative;
    }
    print(json::print(*found));
    return 0;
}

int WorldCommand::diff(const WorldState& state) const
{
    const std::string operations = state.difference_from(content());
    print(operations);
    return json::parse(operations).array()->empty() ? 0 : negative;
}

std::string WorldCommand::content() const
{
    return read_file(file_);
}

} // namespace emulator
