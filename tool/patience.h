// How long a call of the module may take.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace tool {

// While it lives, a call that takes longer is given up.
class Patience
{
public:
    explicit Patience(std::chrono::duration<double> time);
    ~Patience();
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;

    static std::chrono::duration<double> time();
};

struct Called
{
    int result;
    int error; // errno
};

// Whether there are few enough calls that were given up and still go on: each has a thread.
bool can_make_calls();

// What the call returns. Nothing if it cannot be made, or is given up, for want of patience or because what waits for it is ended: it goes on
// by itself then, hence owns what it uses.
std::optional<Called> make_call(std::function<int()> call);

// How many calls that were given up still go on.
unsigned calls_given_up();

} // namespace tool
