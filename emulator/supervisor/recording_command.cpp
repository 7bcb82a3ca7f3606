#include "emulator/supervisor/recording_command.h"

#include "emulator/recording/comparing.h"
#include "emulator/recording/launch.h"
#include "emulator/state/state_file.h"
#include "emulator/supervisor/document.h"
#include "emulator/supervisor/options.h"
#include "emulator/supervisor/output.h"
#include "emulator/trace/line.h"

#include <fmt/core.h>

namespace emulator {

namespace {

// Beside what main.cpp exits with.
constexpr int differs = 1;
constexpr int replay_differs = 123;

// What is there of it is of use, even if it ends early.
Recording read(const std::string& file)
{
    Recording recording = read_recording(file);
    if (!recording.damage.empty())
        fmt::print(stderr, "lumozeph-emulator: {}: {}; what is before that is used\n", file, recording.damage);
    return recording;
}

} // namespace

RecordingCommand::RecordingCommand(CLI::App& app)
    : decode_(app.add_subcommand("decode", "Print a recording as a trace")),
      compare_(app.add_subcommand("compare", "Ask the emulator's module what was asked in a recording")),
      replay_(app.add_subcommand("replay", "Run a program on a recording: replay FILE -- PROGRAM [ARGS...]")),
      record_(app.add_subcommand("record", "Record a program outside: record --pass-through FILE -- PROGRAM [ARGS...]"))
{
    for (CLI::App* const command : {decode_, compare_, replay_, record_})
        command->add_option("FILE", file_, "The recording")->required();
    choose(decode_->add_option("--format", format_, "How: text or json, an object a line"), "FORMAT", formats);
    compare_->add_option("--load", state_, "Begin with the state that a file describes")->type_name("STATE");
    compare_->add_flag("--lenient", lenient_, "Accept what the module refuses as making no sense");
    compare_->footer("Exits with 0; 1 if an answer differs; 125 if the emulator failed.");
    replay_->add_flag("--matching", matching_, "Let calls come in any order and number");
    choose(replay_->add_option("--mode", mode_, "How the device comes into the world: namespaces or injection"), "MODE",
        modes);
    replay_->footer("Exits as PROGRAM does; with 123 if a call differs from the recording.");
    record_
        ->add_flag("--pass-through", pass_through_, "Let the module of this host answer; in a world, use run --record")
        ->required();
}

bool RecordingCommand::is_asked_for() const
{
    return decode_->parsed() || compare_->parsed() || replay_->parsed() || record_->parsed();
}

int RecordingCommand::run(char** program, int (*execute)(char** program), int (*end_like)(const Ending& ending)) const
{
    if (decode_->parsed())
        return decode();
    if (compare_->parsed())
        return compare();
    if (*program == nullptr)
        throw CLI::RequiredError("-- PROGRAM");
    return replay_->parsed() ? replay(program, execute, end_like) : record_in_process(program, file_, execute);
}

int RecordingCommand::decode() const
{
    const Recording recording = read(file_);
    std::string lines;
    for (const Event& event : recording.events)
        append_line(lines, format_, event);
    print(lines);
    return recording.damage.empty() ? 0 : differs;
}

int RecordingCommand::compare() const
{
    const Recording recording = read(file_);
    Module module({lenient_ ? Strictness::Lenient : Strictness::Strict, Clock::Manual});
    if (!state_.empty())
        load_state(module, state_);
    const Compared compared = emulator::compare(recording, module);
    print(compared.lines);
    print(fmt::format("{} of {} calls differ\n", compared.differ, compared.calls));
    return compared.differ == 0 && recording.damage.empty() ? 0 : differs;
}

int RecordingCommand::replay(
    char** program, int (*execute)(char** program), int (*end_like)(const Ending& ending)) const
{
    Replay replay(read(file_), matching_ ? ReplayOrder::Matching : ReplayOrder::Strict);
    Module unused;
    Faults none;
    const Descriptor difference = document_of("");
    Wishes wishes;
    wishes.mode = mode_;
    wishes.replay = &replay;
    wishes.difference = difference.number();
    const Descriptor never_begun = document_of("");
    const Ending ending = run_in_world(unused, none, wishes, [&] {
        const int status = execute(program);
        write_all(never_begun.number(), program[0]);
        return status;
    });
    const std::string text = text_of(difference);
    // Of what was never run, nothing differs.
    if (text.empty() || !text_of(never_begun).empty())
        return end_like(ending);
    fmt::print(stderr, "lumozeph-emulator: {}", text);
    return replay_differs;
}

} // namespace emulator
