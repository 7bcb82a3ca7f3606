// What differs between two documents.
#pragma once

#include "tool/state/document.h"
#include "tool/state/shape.h"

#include <string>
#include <vector>

namespace tool {

using Path = std::vector<std::string>;

struct Difference
{
    Path path;
    const Value* from; // null: it is not there
    const Value* to;
};

// The values stay those of the documents.
std::vector<Difference> differences(const Value& from, const Value& to);

// Of the state, what the document speaks of: it says everything of a collection that it names, and of an object those
// members that it has.
Value part_spoken_of(const Value& state, const Value& document);

// The document without what is the module's own, and whether it has any of it.
Value without_statistics(const Value& document);
bool has_statistics(const Value& document);

// As a person reads them: -, + and ~ are what is taken away, added and changed.
std::string text_of(const std::vector<Difference>& differences);
std::string text_of(const Path& path);
// Of either document, what differs.
Value part_before(const std::vector<Difference>& differences);
Value part_after(const std::vector<Difference>& differences);
// As JSON patch and pointers have it.
Value patch_of(const std::vector<Difference>& differences);
std::string pointer_to(const Path& path);

// What is not said when something is added.
bool is_zero(const Value& value);

} // namespace tool
