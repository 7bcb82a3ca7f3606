#include "emulator/supervisor/control.h"

#include "emulator/supervisor/failure.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace emulator {

namespace fs = std::filesystem;

namespace {

// What holds a socket for each of the user's worlds.
fs::path control_folder()
{
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    return runtime != nullptr && *runtime == '/' ? fs::path(runtime) / "lumozeph-emulator"
                                                 : fs::path(fmt::format("/tmp/lumozeph-emulator-{}", geteuid()));
}

void check_name(const std::string& name)
{
    const auto fits = [](char letter) {
        return std::isalnum(static_cast<unsigned char>(letter)) != 0 || std::strchr("._-", letter) != nullptr;
    };
    if (name.empty() || name.size() > 64 || name.front() == '.' || name.front() == '-' ||
        !std::all_of(name.begin(), name.end(), fits))
        throw std::runtime_error(
            fmt::format("'{}' cannot be the name of a world: up to 64 letters, digits, '.', '_' and '-', "
                        "beginning with neither '.' nor '-'",
                name));
}

sockaddr_un address_of(const fs::path& path)
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof address.sun_path)
        throw std::runtime_error(fmt::format("the path of the socket is too long: {}", path.native()));
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

Descriptor new_socket()
{
    Descriptor made(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (!made)
        fail("cannot make a socket");
    return made;
}

std::optional<Link> connect_to_socket(const fs::path& path)
{
    const sockaddr_un address = address_of(path);
    Descriptor made = new_socket();
    if (connect(made.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return std::nullopt;
    return Link(std::move(made));
}

// The folder, where one process at a time looks for dead sockets and makes new ones. None if it is not there.
Descriptor locked(const fs::path& folder)
{
    for (;;) {
        Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!opened && errno == ENOENT)
            return {};
        struct stat held
        {};
        if (!opened || fstat(opened.number(), &held) != 0 || held.st_uid != geteuid() || (held.st_mode & 077) != 0)
            throw std::runtime_error(fmt::format("{} is not a folder of this user alone", folder.native()));
        if (flock(opened.number(), LOCK_EX) != 0)
            fail(fmt::format("cannot lock {}", folder.native()));
        // Whoever has held it before may have left it empty, and removed it.
        struct stat there
        {};
        if (stat(folder.c_str(), &there) == 0 && there.st_dev == held.st_dev && there.st_ino == held.st_ino)
            return opened;
    }
}

// The same, made if need be.
Descriptor locked_or_made(const fs::path& folder)
{
    for (;;) {
        if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
            fail(fmt::format("cannot make {}", folder.native()));
        if (Descriptor lock = locked(folder))
            return lock;
    }
}

} // namespace

ControlSocket::ControlSocket(const std::string& name)
{
    check_name(name);
    const fs::path folder = control_folder();
    path_ = folder / name;
    const sockaddr_un address = address_of(path_);
    const Descriptor lock = locked_or_made(folder);
    if (connect_to_socket(path_))
        throw std::runtime_error(fmt::format("there is a world '{}' already", name));
    unlink(path_.c_str());
    listener_ = new_socket();
    if (bind(listener_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        chmod(path_.c_str(), 0600) != 0 || listen(listener_.number(), SOMAXCONN) != 0)
        fail(fmt::format("cannot listen on {}", path_.native()));
}

void ControlSocket::remove() const
{
    const Descriptor lock = locked(path_.parent_path());
    if (!lock)
        return;
    // Another world may have taken the name over since.
    if (!connect_to_socket(path_))
        unlink(path_.c_str());
    rmdir(path_.parent_path().c_str());
}

std::optional<Link> connect_to(const std::string& name)
{
    check_name(name);
    const fs::path folder = control_folder();
    return locked(folder) ? connect_to_socket(folder / name) : std::nullopt;
}

bool is_same_user(const Link& link)
{
    ucred other {};
    socklen_t length = sizeof other;
    return getsockopt(link.descriptor(), SOL_SOCKET, SO_PEERCRED, &other, &length) == 0 && other.uid == geteuid();
}

std::vector<std::string> names_of_worlds()
{
    const fs::path folder = control_folder();
    const Descriptor lock = locked(folder);
    std::vector<std::string> names;
    if (!lock)
        return names;
    for (const auto& entry : fs::directory_iterator(folder))
        if (connect_to_socket(entry.path()))
            names.push_back(entry.path().filename());
        else
            unlink(entry.path().c_str()); // All processes of its world were killed at once.
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace emulator
