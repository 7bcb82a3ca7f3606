// Parts of documents and changes to them: JSON Pointer (RFC 6901), JSON Patch (RFC 6902), JSON Merge Patch (RFC 7386).
#pragma once

#include "emulator/state/json.h"

namespace emulator::json {

// Null if there is nothing.
const Value* at(const Value& document, const std::string& pointer);

// Both throw an Error, which says what of the patch cannot be done; the document is then in parts as it was.
void patch(Value& document, const Value& operations);
void merge(Value& document, const Value& changes);

// The operations that make one document of the other.
Value difference(const Value& from, const Value& to);

} // namespace emulator::json
