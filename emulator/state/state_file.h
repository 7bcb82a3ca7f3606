// The state of a module as a JSON document, which emulator/state/state.schema.json describes.
#pragma once

#include "emulator/model/module.h"
#include "emulator/state/json.h"

namespace emulator {

json::Value state_of(Module& module);

// Puts what the document says in the place of all that the module keeps. Throws a json::Error, and then nothing has changed.
void set_state(Module& module, const json::Value& document);

// The same with files. What is thrown says what is wrong with which file, and where: FILE:LINE:COLUMN: expected ...
void load_state(Module& module, const std::string& path);
void save_state(Module& module, const std::string& path);
std::string read_file(const std::string& path);

// The JSON schema of such documents.
json::Value schema_of_states();

} // namespace emulator
