#include "tool/json_writer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace tool {

void JsonWriter::begin(char bracket)
{
    next();
    _output.write({&bracket, 1});
    ++_depth;
    _is_first = true;
}

void JsonWriter::end(char bracket)
{
    --_depth;
    if (!_is_first)
        new_line();
    _output.write({&bracket, 1});
    _is_first = false;
}

void JsonWriter::next()
{
    if (_after_key) {
        _after_key = false;
    } else {
        if (!_is_first)
            _output.write(",");
        if (_depth > 0)
            new_line();
    }
    _is_first = false;
}

void JsonWriter::new_line()
{
    if (_layout == Layout::Indented)
        _output.format("\n{:{}}", "", 2 * _depth);
}

// Names are bytes to the module: what is not UTF-8 in them becomes U+FFFD.
void JsonWriter::text(std::string_view value)
{
    const auto is_plain = [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; };
    if (std::all_of(value.begin(), value.end(), is_plain))
        _output.format("\"{}\"", value);
    else
        _output.write(nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

} // namespace tool
