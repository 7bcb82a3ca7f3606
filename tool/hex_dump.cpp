#include "tool/hex_dump.h"

#include <algorithm>

namespace tool {

void print_bytes(Output& output, std::span<const std::byte> bytes)
{
    constexpr std::size_t on_a_line = 16;
    bool is_repeated = false;
    for (std::size_t at = 0; at < bytes.size(); at += on_a_line) {
        const auto line = bytes.subspan(at, std::min(on_a_line, bytes.size() - at));
        if (at > 0 && line.size() == on_a_line && std::ranges::equal(line, bytes.subspan(at - on_a_line, on_a_line))) {
            output.write(is_repeated ? "" : "*\n");
            is_repeated = true;
            continue;
        }
        is_repeated = false;
        output.format("{:08x} ", at);
        for (std::size_t i = 0; i < on_a_line; ++i) {
            output.write(i % 8 == 0 ? " " : "");
            if (i < line.size())
                output.format("{:02x} ", line[i]);
            else
                output.write("   ");
        }
        output.write(" |");
        for (const std::byte byte : line) {
            const char c = static_cast<char>(byte);
            output.format("{}", c >= ' ' && c <= '~' ? c : '.');
        }
        output.write("|\n");
    }
    output.format("{:08x}\n", bytes.size());
}

} // namespace tool
