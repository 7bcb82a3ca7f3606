#include "emulator/supervisor/recorder.h"

#include "emulator/recording/recording.h"
#include "emulator/supervisor/output.h"

#include <cerrno>
#include <cstring>
#include <fmt/format.h>

namespace emulator {

Recorder::Recorder(int file) : file_(file)
{
    write(header_of_recording());
}

void Recorder::add(const Event& event)
{
    const std::vector<std::byte> entry = entry_of(event);
    const std::lock_guard lock(mutex_);
    write(entry);
}

void Recorder::finish()
{
    const std::lock_guard lock(mutex_);
    if (error_ != 0)
        fmt::print(stderr, "lumozeph-emulator: the recording is not complete: {}\n", std::strerror(error_));
}

void Recorder::write(std::span<const std::byte> bytes)
{
    if (error_ == 0 && !write_all(file_, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}))
        error_ = errno;
}

} // namespace emulator
