// Standard output: a failure to write is never overlooked.
#pragma once

#include <fmt/format.h>
#include <string_view>

namespace tool {

class Output
{
public:
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void write(std::string_view text)
    {
        _buffer.append(text);
        drain_if_large();
    }

    template <class... Values>
    void format(fmt::format_string<Values...> form, Values&&... values)
    {
        fmt::format_to(fmt::appender(_buffer), form, std::forward<Values>(values)...);
        drain_if_large();
    }

    // Throws Failure.
    void flush();

private:
    void drain_if_large()
    {
        if (_buffer.size() >= large)
            flush();
    }

    static constexpr std::size_t large = 65536;
    fmt::memory_buffer _buffer;
};

} // namespace tool
