// The threads that serve a listener.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/server.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>

namespace emulator {

// One thread waits for a call and answers it. Only if that takes long, because the memory of whoever called is slow to
// be had, another one takes its place: to wake a second thread for every call would cost more than to answer it.
class Crew : public std::enable_shared_from_this<Crew>
{
public:
    // The threads keep the crew. They end when nobody is left to call.
    static void serve(SharedModule& module, const Device& device, Descriptor listener);

private:
    Crew(SharedModule& module, const Device& device, Descriptor listener);

    bool add_thread();
    void work();
    void wait_for_turn(std::unique_lock<std::mutex>& lock);
    bool everybody_has_left() const;
    void watch();
    void relieve();

    SharedModule& module_;
    const Device& device_;
    Descriptor listener_;
    std::mutex mutex_;
    std::condition_variable vacant_;   // no thread waits for calls
    std::condition_variable received_; // a call, after a while without any
    std::uint64_t turn_ = 0;           // counts the threads that have taken the first place
    std::uint64_t calls_ = 0;          // counts the calls
    bool taken_ = false;               // a thread has the first place
    bool answering_ = false;           // and answers a call
    bool watched_ = true;
    bool over_ = false;
    int idle_ = 0; // threads that wait for the first place
};

} // namespace emulator
