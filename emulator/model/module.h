// A model of the kernel module: takes one command at a time and keeps what it was told.
#pragma once

#include "emulator/model/time.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace emulator {

struct Answer
{
    int error = 0;                // 0 or an errno value
    std::vector<std::byte> reply; // empty when there is an error
    // What is said to be the length of the reply, where that is not so.
    std::optional<std::uint32_t> reported {};

    std::uint32_t length() const { return reported.value_or(static_cast<std::uint32_t>(reply.size())); }
};

struct State;

// What the module does with what makes no sense, or is to be in use before it is there.
enum class Strictness
{
    Strict, // refuses it
    Lenient // takes it, for programs that do not mind yet
};

struct Settings
{
    Strictness strictness = Strictness::Strict;
    Clock clock = Clock::Real;
};

class Module
{
public:
    explicit Module(Settings settings = {});
    ~Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    // number: the request of the ioctl; input: the bytes that the envelope's inPtr and inLen name; room: its outLen.
    Answer answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room);

    // Lets time pass, more than what has passed by itself if the clock is a real one.
    // False, and nothing has changed, if that would be longer than the longest time in all.
    bool advance(Time by);

    // For those who read or write all of it (emulator/state/).
    State& state();
    void replace(std::unique_ptr<State> state);

private:
    std::unique_ptr<State> state_;
};

} // namespace emulator
