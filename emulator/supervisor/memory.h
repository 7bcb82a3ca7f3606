// The memory of a process in the world.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace emulator {

class Memory
{
public:
    explicit Memory(pid_t process) : process_(process) {}

    bool read(std::uint64_t address, std::span<std::byte> into) const
    {
        return into.empty() || read_some(address, into) == into.size();
    }

    struct Piece
    {
        std::uint64_t address;
        std::span<const std::byte> bytes;
    };

    bool write(const std::array<Piece, 2>& pieces) const
    {
        std::array<iovec, 2> local;
        std::array<iovec, 2> remote;
        std::size_t size = 0;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const auto& [address, bytes] = pieces[i];
            local[i] = {const_cast<std::byte*>(bytes.data()), bytes.size()};
            remote[i] = {at(bytes.empty() ? 0 : address), bytes.size()};
            size += bytes.size();
        }
        return process_vm_writev(process_, local.data(), local.size(), remote.data(), remote.size(), 0) ==
               static_cast<ssize_t>(size);
    }

    // As much as can be read: what lies on the page after the last readable one is left out.
    std::size_t read_some(std::uint64_t address, std::span<std::byte> into) const
    {
        static const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
        const std::size_t first = std::min<std::size_t>(into.size(), page - address % page);
        const iovec local {into.data(), into.size()};
        const std::array<iovec, 2> remote {{{at(address), first}, {at(address + first), into.size() - first}}};
        const ssize_t length = process_vm_readv(process_, &local, 1, remote.data(), remote.size(), 0);
        return length < 0 ? 0 : static_cast<std::size_t>(length);
    }

private:
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an address in another process
    static void* at(std::uint64_t address) { return reinterpret_cast<void*>(address); }

    pid_t process_;
};

} // namespace emulator
