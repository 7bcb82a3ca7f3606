// `lumozeph-emulator world`: what is asked of a world that is there.
#pragma once

#include "emulator/supervisor/world_state.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace emulator {

class WorldCommand
{
public:
    explicit WorldCommand(CLI::App& app);
    WorldCommand(const WorldCommand&) = delete;
    WorldCommand& operator=(const WorldCommand&) = delete;

    bool is_asked_for() const { return command_->parsed(); }

    // Returns an exit status. Throws where the emulator itself fails.
    int run() const;

private:
    using Verb = std::function<int(const WorldState&)>;

    CLI::App* add(const char* name, const char* what, Verb verb);
    CLI::App* add_to(CLI::App& parent, const char* name, const char* what, Verb verb);
    void add_faults();
    void add_journal();
    CLI::App* add_with_file(const char* name, const char* what, Verb verb);

    int get(const WorldState& state) const;
    int diff(const WorldState& state) const;
    std::string content() const;

    CLI::App* command_;
    std::vector<std::pair<CLI::App*, Verb>> verbs_;
    std::string world_;
    std::string pointer_;
    std::string file_;
    std::string seconds_;
    std::string fault_;
    TraceFormat format_ = TraceFormat::Text;
};

} // namespace emulator
