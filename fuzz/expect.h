// What a run must end as. A run that does not is a crash to the fuzzer, which keeps its input.
#pragma once

#include <cstdint>
#include <string_view>

namespace fuzz {

// The read that the run is about, for what is printed when it fails.
void now_reading(std::string_view name);

[[noreturn]] void fail(std::string_view what);

void expect_equal(std::string_view what, std::int64_t is, std::int64_t should_be);
void expect_equal(std::string_view what, const void* is, const void* should_be);
void expect_bytes(std::string_view what, std::string_view is, std::string_view should_be);

// How a call ended: result and errno together.
struct Ended
{
    std::int32_t result;
    int error;
};

// errno before every call: a value that nothing here sets.
inline constexpr int untouched = 133;

void expect_success(const Ended& ended);
void expect_failure(const Ended& ended, int error);

// Where an out pointer pointed before the call.
inline void* const elsewhere = reinterpret_cast<void*>(0x5a5a);

} // namespace fuzz
