// `lumozeph-emulator decode`, `compare`, `replay` and `record`: what is done with recordings.
#pragma once

#include "emulator/recording/replay.h"
#include "emulator/supervisor/world.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

namespace emulator {

class RecordingCommand
{
public:
    explicit RecordingCommand(CLI::App& app);
    RecordingCommand(const RecordingCommand&) = delete;
    RecordingCommand& operator=(const RecordingCommand&) = delete;

    bool is_asked_for() const;

    // program: what is behind "--"; execute: executes it, and returns if it cannot; end_like: ends as a program has ended.
    // Returns an exit status. Throws where the emulator itself fails.
    int run(char** program, int (*execute)(char** program), int (*end_like)(const Ending& ending)) const;

private:
    int decode() const;
    int compare() const;
    int replay(char** program, int (*execute)(char** program), int (*end_like)(const Ending& ending)) const;

    CLI::App* decode_;
    CLI::App* compare_;
    CLI::App* replay_;
    CLI::App* record_;
    std::string file_;
    std::string state_;
    TraceFormat format_ = TraceFormat::Text;
    std::optional<Mode> mode_;
    bool matching_ = false;
    bool lenient_ = false;
    bool pass_through_ = false;
};

} // namespace emulator
