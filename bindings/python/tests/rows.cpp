// Prints the tables of operations/ as JSON: every call of each operation, what it must send, and replies with what must
// reach the caller of them. Bytes are hexadecimal.
#include "operations/operations.h"
#include "operations/reply.h"

#include <cstdio>
#include <cstring>
#include <string_view>

using namespace operations;

namespace {

constexpr std::size_t records_of_a_reply = 3;

constexpr const char* names_of_shapes[] {"Send", "ResultSend", "SetValue", "GetValue", "Bare", "RawRead",
    "BufferedRead", "SingleRead", "ListRead", "ListWorker", "CountedTable", "CountedArrays", "CountedBlock",
    "CountedRead"};

// Puts commas between what is printed of one list or object.
class Separated
{
public:
    void next()
    {
        if (!is_first_)
            std::fputs(",\n", stdout);
        is_first_ = false;
    }

private:
    bool is_first_ = true;
};

void print_bytes(std::string_view bytes)
{
    std::putchar('"');
    for (const char byte : bytes)
        std::printf("%02x", static_cast<unsigned char>(byte));
    std::putchar('"');
}

void print(const Argument& argument)
{
    switch (argument.kind) {
    case Argument::Kind::Null:
        std::printf(R"({"kind": "null"})");
        break;
    case Argument::Kind::Text:
        std::printf(R"({"kind": "text", "value": )");
        print_bytes(static_cast<const char*>(argument.at));
        std::putchar('}');
        break;
    case Argument::Kind::Number:
        std::printf(R"({"kind": "number", "value": %llu})", static_cast<unsigned long long>(argument.number));
        break;
    case Argument::Kind::Block:
        std::printf(R"({"kind": "block", "value": )");
        print_bytes({static_cast<const char*>(argument.at), argument.number});
        std::putchar('}');
        break;
    case Argument::Kind::Out:
    case Argument::Kind::Count:
        std::printf(R"({"kind": "out"})");
        break;
    }
}

void print(const Operation& operation, const Case& one)
{
    std::printf(R"({"name": "%s", "arguments": [)", one.name);
    Separated arguments;
    for (const Argument& argument : one.arguments) {
        arguments.next();
        print(argument);
    }
    std::printf("], \"sent\": ");
    const auto content = one.request.content();
    print_bytes({content.data(), content.size()});
    // Of what is sent, the bytes that must be so.
    std::printf(", \"named\": \"");
    for (std::size_t i = 0; i < content.size(); ++i)
        std::fputs(operation.remainder == Remainder::Cleared || one.request.names(i) ? "ff" : "00", stdout);
    std::printf("\"}");
}

void print(const Layout& layout)
{
    std::printf(R"({"name": "%s", "replies": [)", layout.name);
    Bytes decoded_records[records_of_a_reply];
    Separated replies;
    for (std::size_t i = 0; i < records_of_a_reply; ++i) {
        const Bytes reply = reply_record(layout, i);
        decoded_records[i] = decoded(layout, reply);
        replies.next();
        print_bytes(reply);
    }
    std::printf("], \"records\": [");
    Separated records;
    for (const Bytes& record : decoded_records) {
        records.next();
        print_bytes(record);
    }
    std::printf("]}");
}

void print(const Chapter& chapter, const Operation& operation)
{
    std::printf(
        R"({"chapter": "%s", "function": "%s", "command": %d, "shape": "%s", "input": %u, "room": %u, "cap": %d, )",
        chapter.name, operation.function.name, operation.command,
        names_of_shapes[static_cast<std::size_t>(operation.shape)], input_length(operation), reply_room(operation),
        operation.cap);
    std::printf("\"fragment\": \"%s\", \"layouts\": [",
        operation.fragment == Fragment::Rejected ? "rejected" : "decoded as record");
    Separated layouts;
    for (const Layout& layout : operation.layouts) {
        layouts.next();
        print(layout);
    }
    std::printf("],\n\"cases\": [");
    Separated cases;
    for (const Case& one : operation.cases) {
        cases.next();
        print(operation, one);
    }
    std::printf("]}");
}

} // namespace

int main()
{
    std::putchar('[');
    Separated rows;
    for_each_operation([&](const Chapter& chapter, const Operation& operation) {
        rows.next();
        print(chapter, operation);
    });
    std::puts("]");
}
