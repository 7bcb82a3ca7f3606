// JSON that is written as it is made, so that a large list takes no memory of its own.
#pragma once

#include "tool/output.h"

#include <concepts>
#include <cstdint>
#include <fmt/format.h>
#include <string_view>

namespace tool {

class JsonWriter
{
public:
    enum class Layout
    {
        OneLine,
        Indented
    };

    JsonWriter(Output& output, Layout layout) : _output(output), _layout(layout) {}

    void begin_object() { begin('{'); }
    void end_object() { end('}'); }
    void begin_array() { begin('['); }
    void end_array() { end(']'); }

    void key(std::string_view name)
    {
        next();
        text(name);
        _output.write(_layout == Layout::Indented ? ": " : ":");
        _after_key = true;
    }

    void string(std::string_view value)
    {
        next();
        text(value);
    }

    template <std::integral Number>
    void number(Number value)
    {
        next();
        _output.format("{}", value);
    }

    void decimal(double value)
    {
        next();
        _output.format("{:.7g}", value);
    }

private:
    void begin(char bracket);
    void end(char bracket);
    // What stands between a value and the one before it.
    void next();
    void text(std::string_view value);
    void new_line();

    Output& _output;
    Layout _layout;
    unsigned _depth = 0;
    bool _is_first = true;
    bool _after_key = false;
};

} // namespace tool
