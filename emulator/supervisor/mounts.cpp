#include "emulator/supervisor/mounts.h"

#include "emulator/protocol/envelope.h"
#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/failure.h"

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <linux/magic.h>
#include <memory>
#include <string>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <vector>

namespace emulator {

namespace {

namespace fs = std::filesystem;

Descriptor directory(const fs::path& path)
{
    Descriptor opened(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened)
        fail(fmt::format("cannot open {}", path.native()));
    return opened;
}

// A copy of what is mounted at a place, with everything below it, that can be mounted elsewhere.
Descriptor copy_of(int folder, const std::string& name)
{
    Descriptor copy(open_tree(folder, name.c_str(),
        OPEN_TREE_CLONE | OPEN_TREE_CLOEXEC | AT_RECURSIVE | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT));
    if (!copy)
        fail(fmt::format("cannot bind {}", name));
    return copy;
}

void attach(const Descriptor& copy, int folder, const std::string& name)
{
    if (move_mount(copy.number(), "", folder, name.c_str(), MOVE_MOUNT_F_EMPTY_PATH) != 0)
        fail(fmt::format("cannot bind {}", name));
}

void make_file(int folder, const std::string& name)
{
    if (!Descriptor(openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644)))
        fail(fmt::format("cannot make {}", name));
}

std::vector<std::string> names_in(int folder)
{
    // The stream takes the descriptor over, but must not share its offset.
    const int own = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(own < 0 ? nullptr : fdopendir(own), closedir);
    if (!stream)
        fail("cannot list a folder");
    std::vector<std::string> names;
    while (const dirent* const entry = readdir(stream.get()))
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    return names;
}

// Makes in one folder what shows an entry of another as it is.
void show(int from, const std::string& name, int in, const Descriptor* covered)
{
    struct stat entry
    {};
    if (fstatat(from, name.c_str(), &entry, AT_SYMLINK_NOFOLLOW) != 0)
        return; // It has gone, or cannot be reached outside either.
    if (S_ISLNK(entry.st_mode)) {
        std::string target(static_cast<std::size_t>(entry.st_size) + 1, '\0');
        const ssize_t length = readlinkat(from, name.c_str(), target.data(), target.size());
        target.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
        if (symlinkat(target.c_str(), in, name.c_str()) != 0)
            fail(fmt::format("cannot make {}", name));
        return;
    }
    if (!S_ISDIR(entry.st_mode))
        make_file(in, name);
    else if (mkdirat(in, name.c_str(), 0755) != 0)
        fail(fmt::format("cannot make {}", name));
    if (covered != nullptr)
        attach(*covered, in, name);
    else
        attach(copy_of(from, name), in, name);
}

void mount_empty(const fs::path& place, mode_t mode)
{
    if (mount("lumozeph-emulator", place.c_str(), "tmpfs", MS_NOSUID | MS_NODEV,
            fmt::format("mode={:o},size=1m", mode & 07777).c_str()) != 0)
        fail(fmt::format("cannot mount a tmpfs on {}", place.native()));
}

mode_t mode_of(const Descriptor& file)
{
    struct stat found
    {};
    fstat(file.number(), &found);
    return found.st_mode;
}

// Puts a folder that shows the entries of this one in its place, so that it can have more.
void cover(const fs::path& place)
{
    const Descriptor below = directory(place);
    mount_empty(place, mode_of(below));
    const Descriptor above = directory(place);
    for (const std::string& name : names_in(below.number()))
        show(below.number(), name, above.number(), nullptr);
}

// The same for the root, whose place nothing can be mounted in: the new one is filled elsewhere and becomes the root.
void cover_root()
{
    const Descriptor below = directory("/");
    const std::vector<std::string> names = names_in(below.number());
    const auto is_folder = [&below](const std::string& name) {
        struct stat entry
        {};
        return fstatat(below.number(), name.c_str(), &entry, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(entry.st_mode);
    };
    const auto stage = std::find_if(names.begin(), names.end(), is_folder);
    if (stage == names.end()) {
        errno = ENOENT;
        fail("cannot find a folder in /");
    }
    const Descriptor covered = copy_of(below.number(), *stage);
    mount_empty("/" + *stage, mode_of(below));
    const Descriptor above = directory("/" + *stage);
    for (const std::string& name : names)
        show(below.number(), name, above.number(), name == *stage ? &covered : nullptr);
    // The old root lies upon the new one, from where it is taken away.
    if (fchdir(above.number()) != 0 || syscall(SYS_pivot_root, ".", ".") != 0 || umount2(".", MNT_DETACH) != 0 ||
        chdir("/") != 0)
        fail("cannot change the root");
}

// What happens to the file in the world must not happen to the null device outside. Copies of the mount have the same
// attributes, which other mounts do not have together.
constexpr std::uint64_t attributes_of_device =
    MOUNT_ATTR_RDONLY | MOUNT_ATTR_NOSUID | MOUNT_ATTR_NOEXEC | MOUNT_ATTR_NOSYMFOLLOW;

// The same in statvfs(3), for the last of which libc has no name.
constexpr unsigned long without_symlinks = 0x2000;
constexpr unsigned long flags_of_device = ST_RDONLY | ST_NOSUID | ST_NOEXEC | without_symlinks;

void protect(const Descriptor& copy)
{
    mount_attr attributes {};
    attributes.attr_set = attributes_of_device;
    if (mount_setattr(copy.number(), "", AT_EMPTY_PATH, &attributes, sizeof attributes) != 0)
        fail("cannot protect the device");
}

Descriptor make_device_file(const fs::path& path)
{
    const Descriptor null = copy_of(AT_FDCWD, "/dev/null");
    struct stat device
    {};
    if (fstat(null.number(), &device) != 0 || !S_ISCHR(device.st_mode) || device.st_rdev != makedev(1, 3))
        throw std::runtime_error("/dev/null is not the null device");
    protect(null);
    attach(null, AT_FDCWD, path);
    Descriptor made(open(path.c_str(), O_PATH | O_CLOEXEC));
    if (mount_of(made.number()) == 0)
        throw std::runtime_error("the kernel does not tell mounts apart");
    return made;
}

bool holds_processes(const char* path)
{
    struct statfs found
    {};
    return statfs(path, &found) == 0 && found.f_type == PROC_SUPER_MAGIC;
}

} // namespace

std::uint64_t mount_of(int descriptor)
{
    struct statx found
    {};
    if (statx(descriptor, "", AT_EMPTY_PATH, STATX_MNT_ID, &found) != 0 || (found.stx_mask & STATX_MNT_ID) == 0)
        return 0;
    return found.stx_mnt_id;
}

bool is_marked_mount(int descriptor)
{
    struct statvfs found
    {};
    return fstatvfs(descriptor, &found) == 0 && (found.f_flag & flags_of_device) == flags_of_device;
}

const char* what_forbids_device_files()
{
    struct statx root
    {};
    if (statx(AT_FDCWD, "/", AT_NO_AUTOMOUNT, 0, &root) != 0 || (root.stx_attributes & STATX_ATTR_MOUNT_ROOT) == 0)
        return "the root directory is not a mount, as in a chroot";
    return nullptr;
}

DeviceFiles make_device_files()
{
    // What is mounted outside appears inside, and nothing the other way.
    if (mount(nullptr, "/", nullptr, MS_REC | MS_SLAVE, nullptr) != 0)
        fail("cannot part from the mounts outside");

    const fs::path folder = fs::path(protocol::normal_path).parent_path();
    fs::path existing = folder;
    while (!fs::is_directory(existing))
        existing = existing.parent_path();
    const auto is_there = [](std::string_view path) { return fs::exists(fs::path(path)); };
    const bool complete = is_there(protocol::normal_path) && is_there(protocol::upgrade_path);
    if (!complete) {
        if (existing == "/")
            cover_root();
        else
            cover(existing);
        fs::create_directories(folder);
        for (const auto path : {protocol::normal_path, protocol::upgrade_path})
            if (!is_there(path))
                make_file(AT_FDCWD, std::string(path));
    }
    DeviceFiles files {{make_device_file(protocol::normal_path), make_device_file(protocol::upgrade_path)},
        Descriptor(open("/dev/null", O_PATH | O_CLOEXEC))};
    // What were written into the new folder would be lost with the world.
    if (!complete && mount(nullptr, existing.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY | MS_NOSUID | MS_NODEV,
                         nullptr) != 0)
        fail("cannot protect the folder of the device");
    if (holds_processes("/proc") && mount("proc", "/proc", "proc", MS_NOSUID | MS_NODEV | MS_NOEXEC, nullptr) != 0)
        fail("cannot mount a new /proc");
    return files;
}

} // namespace emulator
