// What describes a command: its number, its input and its reply.
#pragma once

#include "emulator/protocol/request.h"

namespace emulator::protocol {

enum class Shape
{
    Nothing,
    Result,     // one record, if there is room for it
    Record,     // one
    List,       // as many as there are
    EndedList,  // as many as there are, and one of zeros
    CountedList // how many there are, and then these
};

struct Reply
{
    Shape shape = Shape::Nothing;
    Layout record {};     // each of them
    std::size_t most = 0; // records of a list
    Layout head {};       // what precedes the records of a counted list

    constexpr bool is_list() const { return shape >= Shape::List; }
};

struct Command
{
    std::uint32_t number;
    // That of the function that sends it, without its prefix; the first one's, if there are several. On and Off are the
    // two commands of one function, chosen by its switch.
    std::string_view name;
    Layout input;
    Reply reply;
};

inline constexpr Reply no_reply {};

constexpr Reply one(const Layout& record)
{
    return {Shape::Record, record};
}

constexpr Reply list(const Layout& record, std::size_t most)
{
    return {Shape::List, record, most};
}

constexpr Reply ended_list(const Layout& record, std::size_t most)
{
    return {Shape::EndedList, record, most};
}

constexpr Reply counted_list(const Layout& head, const Layout& record, std::size_t most)
{
    return {Shape::CountedList, record, most, head};
}

// What the sets and deletes of routes and policies answer to those who want to know more than success.
namespace result {
inline constexpr U32 code {"code", 0};
inline constexpr Text text {"text", 4, 84};
inline constexpr Layout layout = fields_in<88, code, text>;
} // namespace result

inline constexpr Reply result_if_asked {Shape::Result, result::layout};

} // namespace emulator::protocol
