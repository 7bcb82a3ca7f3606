#include "emulator/door/memory.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <sys/uio.h>
#include <unistd.h>

namespace emulator {

namespace {

constexpr std::uint64_t page_size = 4096; // the smallest that there is: larger pages are several of these

void* pointer(std::uint64_t address)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an address that came in an envelope
    return reinterpret_cast<void*>(address);
}

// Pages that were there, one in each place.
class Pages
{
public:
    // Of ranges that reach into a third page, the kernel is asked each time: it costs little beside the copy.
    bool hold(std::uint64_t address, std::size_t size) const
    {
        const std::uint64_t first = address / page_size;
        const std::uint64_t last = (address + size - 1) / page_size;
        return last - first < 2 && at(first) == first && at(last) == last;
    }

    void add(std::uint64_t address, std::size_t size)
    {
        const std::uint64_t first = address / page_size;
        const std::uint64_t last = (address + size - 1) / page_size;
        if (last - first < 2)
            places_[first % places_.size()] = first, places_[last % places_.size()] = last;
    }

private:
    std::uint64_t at(std::uint64_t page) const { return places_[page % places_.size()]; }

    std::array<std::uint64_t, 32> places_ {};
};

// Of this thread. The first page of all is never there: an empty place holds none.
[[gnu::tls_model("initial-exec")]] constinit thread_local Pages readable;
[[gnu::tls_model("initial-exec")]] constinit thread_local Pages writable;

// Whether the kernel copies memory for us. Some sandboxes and emulated kernels do not: then bad pointers end the program,
// as they do in any function.
constinit std::atomic<bool> kernel_copies = true;

enum class Copied
{
    Yes,
    No,
    Unknown
};

// Moves bytes between our memory and the address in one system call, which answers EFAULT where a move of our own would
// be a fault.
template <auto copy>
Copied by_kernel(void* own, std::uint64_t address, std::size_t size)
{
    if (!kernel_copies.load(std::memory_order_relaxed))
        return Copied::Unknown;
    const int error_before = errno;
    const iovec local {own, size};
    const iovec remote {pointer(address), size};
    const ssize_t length = copy(getpid(), &local, 1, &remote, 1, 0);
    const int error = length < 0 ? errno : 0;
    errno = error_before;
    if (error == 0 || error == EFAULT)
        return length == static_cast<ssize_t>(size) ? Copied::Yes : Copied::No;
    kernel_copies.store(false, std::memory_order_relaxed);
    return Copied::Unknown;
}

template <auto copy>
bool transfer(Pages& pages, void* own, std::uint64_t address, std::size_t size, const auto& directly)
{
    if (size == 0)
        return true;
    if (address < page_size || address + size < address)
        return false;
    if (!pages.hold(address, size)) {
        const Copied copied = by_kernel<copy>(own, address, size);
        if (copied == Copied::Yes)
            pages.add(address, size);
        if (copied != Copied::Unknown)
            return copied == Copied::Yes;
    }
    directly();
    return true;
}

} // namespace

bool read_memory(std::uint64_t address, std::span<std::byte> into)
{
    return transfer<process_vm_readv>(
        readable, into.data(), address, into.size(), [&] { std::memcpy(into.data(), pointer(address), into.size()); });
}

bool write_memory(std::uint64_t address, std::span<const std::byte> bytes)
{
    return transfer<process_vm_writev>(writable, const_cast<std::byte*>(bytes.data()), address, bytes.size(),
        [&] { std::memcpy(pointer(address), bytes.data(), bytes.size()); });
}

} // namespace emulator
