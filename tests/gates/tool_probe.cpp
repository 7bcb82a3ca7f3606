// Shows a list that is there already, as a person or a program wants to see it, and nothing else: for counting what that
// takes.
// usage: tool_probe OPERATION FIELDS text|json RECORDS
#include "tool/output.h"
#include "tool/printer.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

int main(int argc, char** argv)
{
    if (argc != 5)
        return 2;
    const tool::Operation& operation = *tool::find_operation(argv[1]);
    const std::size_t count = std::strtoul(argv[4], nullptr, 10);
    std::vector<std::byte> records(count * operation.record->size);
    tool::Reply reply;
    reply.take(nullptr, records.data(), count, [](void*) {});
    tool::Manner manner;
    manner.style = std::string_view(argv[3]) == "json" ? tool::Style::Json : tool::Style::Text;
    tool::Output output;
    tool::print(output, operation, reply, manner, argv[2]);
    output.flush();
    return 0;
}
