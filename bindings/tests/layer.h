// A layer for another language, as something that the tables of operations/ can call, by the names of functions in C.
#pragma once

#include "shapes/rows.h"

#include <lumozeph.h>
#include <map>
#include <span>
#include <string>

namespace layer {

// What an operation has got, as bytes.
struct Got
{
    std::string bytes {};
    std::size_t count = 0;
};

template <class Type>
std::string bytes_of(const Type* first, std::size_t count = 1)
{
    return first == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(first), count * sizeof *first);
}

struct Outcome
{
    fake::Call call;
    int error = 0; // 0: success
    Got got;
    std::string answer;
    std::string operation; // that failed, where the form says it
};

enum class Failure
{
    NamesOperation,
    IsErrnoAlone
};

// One way of calling the layer's operations: releases what it gets, and says how it ended in the last argument. The
// second one is where the module's answer goes, or null.
struct Form
{
    void (*call)(const shapes::Row& row, LumoCmdResult* answer, Outcome& outcome);
    Failure failure;
};

// Each program of tests defines these for its layer.
std::span<const Form> forms();
// What each operation is called there, by the name of its function in C.
const std::map<std::string, std::string>& names();

} // namespace layer
