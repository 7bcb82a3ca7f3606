// Prints the description of the wire as JSON, for tests that hold it against other descriptions.
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"

#include <array>
#include <cstdio>

using namespace emulator::protocol;

namespace {

// The names of kinds and shapes, in the order in which they are declared.
constexpr std::array kinds {"text", "number", "signed", "ipv4", "ipv6", "mac", "flag", "bytes", "table"};
constexpr std::array shapes {"nothing", "result", "record", "list", "ended_list", "counted_list"};

void print(const Layout& layout);

void print(const Field& field)
{
    std::printf(R"({"name": "%.*s", "offset": %zu, "width": %zu, "kind": "%s")", static_cast<int>(field.name.size()),
        field.name.data(), field.offset, field.width, kinds[static_cast<std::size_t>(field.kind)]);
    if (field.entry != nullptr) {
        std::printf(R"(, "entry": )");
        print(*field.entry);
    }
    std::printf("}");
}

void print(const Layout& layout)
{
    std::printf(R"({"size": %zu, "fields": [)", layout.size);
    const char* separator = "";
    for (const Field* field : layout.fields) {
        std::printf("%s", separator);
        print(*field);
        separator = ", ";
    }
    std::printf("]}");
}

void print(const Command& command)
{
    std::printf(R"({"number": %u, "name": "%.*s", "input": )", command.number, static_cast<int>(command.name.size()),
        command.name.data());
    print(command.input);
    std::printf(R"(, "reply": {"shape": "%s", "most": %zu, "head": )",
        shapes[static_cast<std::size_t>(command.reply.shape)], command.reply.most);
    print(command.reply.head);
    std::printf(R"(, "record": )");
    print(command.reply.record);
    std::printf("}}");
}

} // namespace

int main()
{
    std::printf(R"({"envelope": )");
    print(envelope::layout);
    std::printf(R"(, "chapters": [)");
    const char* separator = "";
    for (const Chapter& chapter : chapters) {
        std::printf(R"(%s{"name": "%.*s", "commands": [)", separator, static_cast<int>(chapter.name.size()),
            chapter.name.data());
        separator = "";
        for (const Command& command : chapter.commands) {
            std::printf("%s", separator);
            print(command);
            separator = ",\n";
        }
        std::printf("]}");
        separator = ",\n";
    }
    std::printf("]}\n");
}
