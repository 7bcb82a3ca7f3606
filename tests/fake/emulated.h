// The emulator's model of the module behind the library's calls, in process.
#pragma once

#include "emulator/model/module.h"
#include "fake/system.h"

#include <mutex>

namespace fake {

class EmulatedDevice : public Device
{
public:
    explicit EmulatedDevice(emulator::Settings settings = {}) : module_(settings) {}

    void advance(emulator::Time by)
    {
        const std::lock_guard lock(mutex_);
        module_.advance(by);
    }

    Answer answer(const Sent& sent) override
    {
        const std::lock_guard lock(mutex_);
        const auto answer =
            module_.answer(static_cast<std::uint32_t>(sent.number), std::as_bytes(std::span(sent.input)), sent.out_len);
        return {.error = answer.error,
            .reply = Bytes(reinterpret_cast<const char*>(answer.reply.data()), answer.reply.size())};
    }

private:
    std::mutex mutex_;
    emulator::Module module_;
};

} // namespace fake
