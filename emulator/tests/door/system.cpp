// Stands in for the system under the library's tests: what the library calls goes through the door, whichever device the
// test names.
#include "fake/system.h"

#include "emulator/door/descriptors.h"
#include "emulator/door/lumozeph_emulator.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string_view>
#include <unistd.h>

namespace fake {

namespace {

// Test suites of a lenient module are called so.
class NewModuleForEachTest : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo& test) override
    {
        const bool lenient = std::string_view(test.test_suite_name()).starts_with("Lenient");
        setenv("LUMOZEPH_EMULATOR_LENIENT", lenient ? "1" : "", 1);
        ASSERT_EQ(lumozeph_emulator_reset(), 0);
    }
};

[[maybe_unused]] const bool listening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new NewModuleForEachTest);
    return true;
}();

// New descriptors get the lowest number that is free.
int open_descriptors()
{
    const int next = open("/pelt/devices/char/zephdriver/kola_lumo", O_RDWR | O_CLOEXEC);
    close(next);
    return next - emulator::Descriptors::first;
}

} // namespace

Call observe(Device&, const std::function<std::int32_t()>& function)
{
    Call call;
    const int before = open_descriptors();
    errno = untouched;
    call.result = function();
    call.error = errno;
    call.descriptors_left = open_descriptors() - before;
    return call;
}

Installed::Installed(Device&) {}
Installed::~Installed() = default;

} // namespace fake
