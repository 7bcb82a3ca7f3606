// Shows routes that are there already, as a person or a program wants to see them, and nothing else: for counting what that
// takes.
// usage: tool_probe text|json ROUTES
#include "tool/output.h"
#include "tool/printer.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const std::size_t count = std::strtoul(argv[2], nullptr, 10);
    const tool::Operation& operation = *tool::find_operation("GetRoutes");
    const tool::Member& address = *operation.record->find("routeDest");
    const std::size_t size = operation.record->size;
    std::vector<std::byte> records(count * size);
    for (std::size_t i = 0; i < count * size; i += size)
        records[i + address.offset] = std::byte {10};
    tool::Reply reply;
    reply.take(nullptr, records.data(), count, [](void*) {});
    tool::Manner manner;
    manner.style = std::string_view(argv[1]) == "json" ? tool::Style::Json : tool::Style::Text;
    tool::Output output;
    tool::print(output, operation, reply, manner, "routeDest,routeMask,nextHops,routeFlags,routeValue1,routeValue2");
    output.flush();
    return 0;
}
