// What the public header says of operations and records, as data: made from api/lumozeph.json by the build.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tool {

class Arguments;
class Reply;
struct Record;

// What stands in a member of a record.
enum class Form : std::uint8_t
{
    Text,
    Number,
    SignedNumber,
    Ipv4, // an address or a mask
    Ipv6,
    Ip, // of the family that another member says
    Mac,
    Bytes,
    Records
};

struct Member
{
    std::string_view name;
    std::string_view kind; // as api/lumozeph.json has it
    Form form;
    std::uint16_t offset;
    std::uint16_t width;  // of one element, in bytes
    std::uint16_t length; // how many elements an array has; 0: it is none
    // The member that says how many elements are in use, or which family an address is of; -1: none.
    int depends_on;
    const Record* record; // which the elements are
};

struct Record
{
    std::string_view name;
    std::size_t size;
    std::span<const Member> members;

    const Member* find(std::string_view member) const;
};

// How an argument is written.
enum class Input : std::uint8_t
{
    Text,
    Number,
    SignedNumber,
    Ipv4,     // an address or a mask
    Ipv6Word, // the address, for both of its words
    Mac,
    Bytes,  // hexadecimal, as many as its size
    Record, // a JSON object
    Records // a JSON array, which also says the count
};

struct Parameter
{
    std::string_view name;
    std::string_view kind;
    std::string_view summary;
    Input input;
    std::uint16_t size; // of the number in bytes, of the bytes, of one record
    bool may_be_left_out;
    int partner;              // the address's other word, the count of the records; -1: none
    std::string_view address; // of which this is a word
    const Record* record;
};

// What an operation answers with.
enum class Answer : std::uint8_t
{
    Nothing,
    Value,
    Record,
    List,
    Bytes,
    Entries // bytes in a known number of pieces of the same size
};

struct Operation
{
    std::string_view name; // without the prefix of the header
    std::string_view chapter;
    std::string_view brief;
    std::span<const Parameter> parameters;
    Answer answer;
    std::string_view result; // the name of the parameter that it is stored through
    Form form;               // of a value
    const Record* record;
    std::size_t cap; // of a list, or of bytes
    std::int32_t (*call)(Arguments&, Reply&);

    int position(std::string_view parameter) const; // -1: none
};

inline constexpr std::string_view function_prefix = "LUMOZEPH_";

std::span<const Operation> operations();
const Operation* find_operation(std::string_view name);
std::string_view without_prefix(std::string_view function);
// The same, but that the name may have the prefix of the header.
const Operation* find_function(std::string_view name);
std::span<const Record* const> records();

} // namespace tool
