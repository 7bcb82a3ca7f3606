// What every operation sends and gets, stated once more, independently of src/: what the library is compared with, and
// what everything iterates that calls each operation. Without the C++ run-time library, which one of the programs that
// use it must not have.
#pragma once

#include "operations/layout.h"
#include "operations/request.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <type_traits>
#include <utility>

namespace operations {

// What an operation gets, and how it hands it over.
enum class Shape
{
    Send,          // nothing
    ResultSend,    // 88 bytes for the module's own result, if the caller has room for them
    SetValue,      // nothing; the input is 4 bytes
    GetValue,      // 4 bytes; there is no input
    Bare,          // nothing; there is no input
    RawRead,       // what the module writes, straight into the caller's buffer
    BufferedRead,  // the same, through a buffer of the library's
    SingleRead,    // a record
    ListRead,      // a list of records
    ListWorker,    // the same, in a list that the caller has allocated
    CountedTable,  // a table whose length its first word says
    CountedArrays, // a block of arrays whose length one word says
    CountedBlock,  // a block whose size another command's reply says, and the number of its entries
    CountedRead,   // into the caller's buffer, of which it says the size, and the number of entries
};

// What becomes of a list's holder when the device call fails.
enum class Holder
{
    Freed,
    LeftAllocated
};

// What a piece at the end of a list that is shorter than a record is.
enum class Fragment
{
    Rejected,
    DecodedAsRecord
};

// What the bytes of a request hold that no field covers.
enum class Remainder
{
    Cleared,
    Uncleared
};

// So many of one character.
template <std::size_t Length, char Character>
inline constexpr auto characters = [] {
    std::array<char, Length + 1> text {};
    text.fill(Character);
    text[Length] = '\0';
    return text;
}();
template <std::size_t Length, char Character>
inline constexpr const char* text_of = characters<Length, Character>.data();

// An argument of a call, as data.
struct Argument
{
    enum class Kind : std::uint8_t
    {
        Null,
        Text,
        Number,
        Block, // a pointer to something that the operation reads
        Out,   // where it puts what it gets
        Count  // where it counts that
    };

    Kind kind = Kind::Null;
    const void* at = nullptr;
    std::uint64_t number = 0; // of a block: its size

    constexpr Argument(std::nullptr_t) {}
    constexpr Argument(const char* text) : kind(Kind::Text), at(text) {}
    template <std::integral Type>
    constexpr Argument(Type value) : kind(Kind::Number), number(static_cast<std::uint64_t>(value))
    {}
    constexpr Argument(Kind what, const void* where, std::uint64_t size) : kind(what), at(where), number(size) {}
};

inline constexpr Argument out {Argument::Kind::Out, nullptr, 0};
inline constexpr Argument count {Argument::Kind::Count, nullptr, 0};

template <class Type>
constexpr Argument block(const Type& object)
{
    return {Argument::Kind::Block, &object, sizeof object};
}

// Where a call puts what it gets.
struct Targets
{
    void* out = nullptr;
    std::uint32_t* count = nullptr;
};

// A parameter of an exported function: what may be an argument for it.
struct Parameter
{
    bool is_pointer;
    bool is_const; // what it points to
    bool is_text;
    std::uint64_t largest; // number, also as a negative one in 64 bits
    std::uint64_t smallest;
};

template <class Type>
constexpr Parameter parameter()
{
    if constexpr (std::is_pointer_v<Type>) {
        using Pointee = std::remove_pointer_t<Type>;
        return {true, std::is_const_v<Pointee>, std::is_same_v<std::remove_const_t<Pointee>, char>, 0, 0};
    } else {
        using Limits = std::numeric_limits<Type>;
        return {
            false, false, false, static_cast<std::uint64_t>(Limits::max()), static_cast<std::uint64_t>(Limits::min())};
    }
}

constexpr bool fits(const Argument& argument, const Parameter& parameter)
{
    switch (argument.kind) {
    case Argument::Kind::Null:
        return parameter.is_pointer;
    case Argument::Kind::Text:
        return parameter.is_pointer && parameter.is_const && parameter.is_text;
    case Argument::Kind::Number:
        return !parameter.is_pointer && (argument.number <= parameter.largest ||
                                            (parameter.smallest != 0 && argument.number >= parameter.smallest));
    case Argument::Kind::Block:
        return parameter.is_pointer && parameter.is_const && !parameter.is_text;
    case Argument::Kind::Out:
    case Argument::Kind::Count:
        return parameter.is_pointer && !parameter.is_const;
    }
    return false;
}

template <class Type>
Type converted(const Argument& argument, const Targets& targets)
{
    if constexpr (!std::is_pointer_v<Type>)
        return static_cast<Type>(argument.number);
    else if constexpr (std::is_const_v<std::remove_pointer_t<Type>>)
        return static_cast<Type>(argument.at);
    else if (argument.kind == Argument::Kind::Count)
        return reinterpret_cast<Type>(targets.count);
    else
        return argument.kind == Argument::Kind::Null ? nullptr : static_cast<Type>(targets.out);
}

// An exported function, with its types put aside.
struct Function
{
    const char* name;
    std::int32_t (*call)(const Argument* arguments, const Targets& targets);
    std::span<const Parameter> parameters;
};

template <auto Exported>
struct Typed;

template <class... Parameters, std::int32_t (*Exported)(Parameters...)>
struct Typed<Exported>
{
    static constexpr std::array<Parameter, sizeof...(Parameters)> parameters {parameter<Parameters>()...};

    static std::int32_t call(const Argument* arguments, const Targets& targets)
    {
        return call(arguments, targets, std::index_sequence_for<Parameters...> {});
    }

private:
    template <std::size_t... Index>
    static std::int32_t call([[maybe_unused]] const Argument* arguments, [[maybe_unused]] const Targets& targets,
        std::index_sequence<Index...>)
    {
        return Exported(converted<Parameters>(arguments[Index], targets)...);
    }
};

template <auto Exported>
constexpr Function function(const char* name)
{
    return {name, Typed<Exported>::call, Typed<Exported>::parameters};
}

// The function that frees what another one has handed out. Without a name: free() does.
struct Release
{
    const char* name = nullptr;
    std::int32_t (*call)(void*) = nullptr;
};

template <auto Exported>
struct TypedRelease;

template <class Type, std::int32_t (*Exported)(Type*)>
struct TypedRelease<Exported>
{
    static std::int32_t call(void* pointer) { return Exported(static_cast<Type*>(pointer)); }
};

template <auto Exported>
constexpr Release release(const char* name)
{
    return {name, TypedRelease<Exported>::call};
}

// An exported function is named once, as itself and as a text.
#define NAMED(exported) (::operations::function<exported>(#exported))
#define RELEASED_BY(exported) (::operations::release<exported>(#exported))

// One call of an operation, and the request that it must send.
struct Case
{
    const char* name;
    Few<Argument> arguments;
    Request request {};
};

// An operation that sends two numbers, chosen by its switch argument, is two of these.
struct Operation
{
    Function function;
    std::int32_t command;
    Shape shape;
    std::uint32_t room = 0; // for the reply, in bytes
    Few<Layout> layouts {}; // of a record of the reply; the first one that has its pinned numbers
    std::int32_t cap = 0;   // of a list
    Holder on_device_error = Holder::Freed;
    Fragment fragment = Fragment::Rejected;
    Remainder remainder = Remainder::Cleared;
    Release release {};
    Few<std::size_t> required {}; // parameters, counted from 0: a null argument is rejected
    Few<Case> cases;
};

constexpr std::uint32_t input_length(const Operation& operation)
{
    switch (operation.shape) {
    case Shape::SetValue:
        return 4;
    case Shape::GetValue:
    case Shape::Bare:
        return 0;
    default:
        return request_size;
    }
}

// The room that is offered, where the caller has some for it.
constexpr std::uint32_t reply_room(const Operation& operation)
{
    switch (operation.shape) {
    case Shape::ResultSend:
        return 88;
    case Shape::GetValue:
        return 4;
    default:
        return operation.room;
    }
}

// The result is memory that the caller has to free.
constexpr bool hands_out(const Operation& operation)
{
    switch (operation.shape) {
    case Shape::SingleRead:
    case Shape::ListRead:
    case Shape::CountedTable:
    case Shape::CountedArrays:
    case Shape::CountedBlock:
        return true;
    default:
        return false;
    }
}

// The caller's own memory, into which the operation puts what it gets: so many bytes.
constexpr std::size_t target_size(const Operation& operation)
{
    return hands_out(operation) || operation.shape == Shape::ListWorker ? 0 : reply_room(operation);
}

constexpr bool is_list(const Operation& operation)
{
    return operation.shape == Shape::ListRead || operation.shape == Shape::ListWorker;
}

// What of a row says the same as another part of it.
constexpr bool is_consistent(const Operation& operation)
{
    const std::size_t records = is_list(operation) ? static_cast<std::size_t>(operation.cap) : 1;
    for (const Layout& layout : operation.layouts)
        if (records * layout.size != operation.room)
            return false;
    for (const std::size_t index : operation.required)
        if (index >= operation.function.parameters.size() || !operation.function.parameters[index].is_pointer)
            return false;
    for (const Case& one : operation.cases) {
        if (one.arguments.size() != operation.function.parameters.size())
            return false;
        for (std::size_t i = 0; i < one.arguments.size(); ++i)
            if (!fits(one.arguments.begin()[i], operation.function.parameters[i]))
                return false;
    }
    return operation.cases.size() > 0;
}

template <std::size_t Count>
constexpr bool are_consistent(const Operation (&operations)[Count])
{
    for (const Operation& operation : operations)
        if (!is_consistent(operation))
            return false;
    return true;
}

inline std::int32_t call(const Operation& operation, const Case& one, const Targets& targets)
{
    return operation.function.call(one.arguments.begin(), targets);
}

} // namespace operations
