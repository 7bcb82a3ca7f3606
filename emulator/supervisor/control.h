// How worlds with names are found and spoken to.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/link.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace emulator {

// In a folder of the user's, which is refused if it is not the user's alone: under XDG_RUNTIME_DIR, or else under /tmp.

// The socket of a world that this process makes.
class ControlSocket
{
public:
    // Throws if a world has the name already, or the name will not do.
    explicit ControlSocket(const std::string& name);

    int listener() const { return listener_.number(); }

    // Leaves the socket to the other processes of the world.
    void close() { listener_ = Descriptor(); }

    // When the world has ended; whoever of the world's processes is the last.
    void remove() const;

private:
    std::filesystem::path path_;
    Descriptor listener_;
};

// A connection to a world. None if there is no such world.
std::optional<Link> connect_to(const std::string& name);

// Whether the other end of a connection belongs to the same user.
bool is_same_user(const Link& link);

std::vector<std::string> names_of_worlds();

} // namespace emulator
