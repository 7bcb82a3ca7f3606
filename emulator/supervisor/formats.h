// The words by which formats are chosen on command lines.
#pragma once

#include "emulator/trace/fields.h"

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace emulator {

inline CLI::Option* choose_format(CLI::Option* option)
{
    return option->type_name("FORMAT")->transform(CLI::Transformer(
        std::map<std::string, TraceFormat> {{"text", TraceFormat::Text}, {"json", TraceFormat::Json}}));
}

} // namespace emulator
