// A module in the same process that fails at random: in a program that is linked with this, or started with it preloaded,
// a quarter of the calls fail with an errno, half of these after they have done their work, and some replies are cut
// short. LUMOZEPH_FAULTS is the seed. It begins with an instance, and says at the end what there is then, without faults.
#include "emulator/model/module.h"
#include "operations/envelope.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <lumozeph.hpp>
#include <mutex>
#include <random>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

enum class Fault
{
    None,
    Before,
    After,
    ShortReply
};

class FaultyModule
{
public:
    FaultyModule()
    {
        const std::uint8_t mac[6] {2, 0, 0, 0, 0, 1};
        if (LUMOZEPH_SetLumoInstance("blue", 0, nullptr, 0) != 0 ||
            LUMOZEPH_SetLif("uplink", "", 0x0100000a, 0x00ffffff, 0, 0, 0, 0, "blue", mac) != 0 ||
            LUMOZEPH_SetLif("stray", "", 0x0100010a, 0x00ffffff, 0, 0, 0, 0, "blue", mac) != 0 ||
            LUMOZEPH_EnableLif("blue", "uplink") != 0 ||
            LUMOZEPH_SetRoute(0x000200c0, 0x00ffffff, 0x0200000a, nullptr, "blue", 4711, nullptr) != 0 ||
            LUMOZEPH_BridgeAdd("br0", 0) != 0)
            std::abort();
        faults_ = true;
    }
    ~FaultyModule()
    {
        faults_ = false;
        for (const auto& instance : lumozeph::get_instances())
            report(instance.instanceKey);
        for (const auto& bridge : lumozeph::get_bridge_instances())
            std::printf("bridge %s\n", bridge.name);
        std::fflush(stdout);
    }
    FaultyModule(const FaultyModule&) = delete;
    FaultyModule& operator=(const FaultyModule&) = delete;

    int answer(std::uint32_t command, void* argument)
    {
        const std::lock_guard lock(mutex_);
        const operations::Envelope envelope = operations::read_envelope(argument);
        const Fault fault = faults_ ? next() : Fault::None;
        if (fault == Fault::Before)
            return fail();
        auto answer = module_.answer(command, std::as_bytes(std::span(envelope.in, envelope.in_len)), envelope.room);
        if (answer.error != 0) {
            errno = answer.error;
            return -1;
        }
        if (fault == Fault::After)
            return fail();
        if (fault == Fault::ShortReply && !answer.reply.empty())
            answer.reply.resize(answer.reply.size() - 1);
        if (!answer.reply.empty())
            std::memcpy(envelope.out, answer.reply.data(), answer.reply.size());
        operations::report_length(argument, static_cast<std::uint32_t>(answer.reply.size()));
        return 0;
    }

private:
    Fault next()
    {
        switch (random_() % 8) {
        case 0:
            return Fault::Before;
        case 1:
            return Fault::After;
        case 2:
            return Fault::ShortReply;
        default:
            return Fault::None;
        }
    }

    int fail()
    {
        constexpr int errors[] {EINTR, EIO, ENOMEM, EBADMSG, EAGAIN, ENOENT, EINVAL, ENODEV};
        errno = errors[random_() % std::size(errors)];
        return -1;
    }

    static void report(const char* instance)
    {
        for (const auto& lif : lumozeph::get_lifs(instance))
            std::printf("lif %s %s %s\n", instance, lif.lifName,
                to_string(lumozeph::ipv4_prefix(lumozeph::ipv4(lif.ipAddr), lumozeph::ipv4_mask(lif.ipMask))).c_str());
        for (const auto& route : lumozeph::get_routes(instance))
            for (const auto& hop : lumozeph::next_hops(route))
                std::printf("route %s %s %s\n", instance,
                    to_string(
                        lumozeph::ipv4_prefix(lumozeph::ipv4(route.routeDest), lumozeph::ipv4_mask(route.routeMask)))
                        .c_str(),
                    to_string(lumozeph::ipv4(hop.nextHopAddr)).c_str());
    }

    std::mutex mutex_;
    emulator::Module module_;
    std::minstd_rand random_ {static_cast<unsigned>(std::atoi(std::getenv("LUMOZEPH_FAULTS")))};
    bool faults_ = false;
};

FaultyModule& module()
{
    static FaultyModule* const faulty = [] {
        static std::aligned_storage_t<sizeof(FaultyModule), alignof(FaultyModule)> place;
        return reinterpret_cast<FaultyModule*>(&place);
    }();
    return *faulty;
}

// Is there before main and goes after it. Its own calls arrive while it is made.
struct Lifetime
{
    Lifetime() { new (&module()) FaultyModule; }
    ~Lifetime() { module().~FaultyModule(); }
} lifetime;

// The descriptor of the device that this thread has opened and not used yet: a call uses one once.
thread_local int device = -1;

} // namespace

extern "C" {

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const bool is_device = std::strncmp(path, "/pelt/", 6) == 0;
    const int descriptor = static_cast<int>(syscall(SYS_openat, AT_FDCWD, is_device ? "/dev/null" : path, flags, mode));
    if (is_device)
        device = descriptor;
    return descriptor;
}

int ioctl(int descriptor, unsigned long number, ...) noexcept
{
    va_list arguments;
    va_start(arguments, number);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (descriptor != device)
        return static_cast<int>(syscall(SYS_ioctl, descriptor, number, argument));
    device = -1;
    return module().answer(static_cast<std::uint32_t>(number), argument);
}

} // extern "C"
