// The door in a program that is linked with it.
#include "emulator/door/descriptors.h"
#include "emulator/door/lumozeph_emulator.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <lumozeph.h>
#include <poll.h>
#include <string>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

// What open becomes in a program that is compiled with _FORTIFY_SOURCE.
extern "C" int __open_2(const char*, int);
extern "C" int __open64_2(const char*, int);
extern "C" int __openat_2(int, const char*, int);
extern "C" int __openat64_2(int, const char*, int);

using testing::ElementsAre;

namespace {

constexpr const char* normal = "/pelt/devices/char/zephdriver/kola_lumo";
constexpr const char* upgrade = "/pelt/devices/char/zephdriver/kola_lumo_ugrade";

constexpr unsigned long get_log_level = 9;
constexpr unsigned long set_log_level = 10;

// How a call ended: what it returned, or errno by name.
template <class Result>
std::string ended(Result result)
{
    return result == static_cast<Result>(-1) ? strerrorname_np(errno) : std::to_string(result);
}

// A descriptor that is closed when it goes out of scope.
class Open
{
public:
    explicit Open(const char* path = normal, int flags = O_RDWR) : number_(open(path, flags)) {}
    ~Open() { close(number_); }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    operator int() const { return number_; }

private:
    int number_;
};

int get(int device, void* value, std::uint32_t room = 4)
{
    LumoEnvelope envelope {0, nullptr, room, value};
    return ioctl(device, get_log_level, &envelope);
}

int set(int device, std::uint32_t value)
{
    LumoEnvelope envelope {sizeof value, &value, 0, nullptr};
    return ioctl(device, set_log_level, &envelope);
}

std::uint32_t log_level()
{
    std::uint32_t value = 0;
    EXPECT_EQ(LUMOZEPH_GetLogLevel(&value), 0);
    return value;
}

// The exit status of a function in a child.
int in_child(const std::function<int()>& function)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(function());
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

class Fresh : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(lumozeph_emulator_reset(), 0); }
    void TearDown() override
    {
        ASSERT_EQ(lumozeph_emulator_watch(nullptr, nullptr), 0);
        // Every test has closed what it opened.
        EXPECT_EQ(Open(), emulator::Descriptors::first);
    }
};

using Opens = Fresh;
using Descriptors = Fresh;
using Numbers = Fresh;
using OtherFiles = Fresh;
using Status = Fresh;
using Commands = Fresh;
using Threads = Fresh;
using Processes = Fresh;
using Watchers = Fresh;
using Faults = Fresh;
using Reset = Fresh;

TEST_F(Opens, FindTheDeviceUnderBothPathsInAnySpelling)
{
    for (const char* path : {normal, upgrade, "//pelt///devices/char/zephdriver//kola_lumo",
             "/./pelt/././/devices/char/zephdriver/./kola_lumo", "/pelt/devices/char/./zephdriver/kola_lumo_ugrade"}) {
        const Open device(path);
        EXPECT_GE(device, emulator::Descriptors::first) << path;
    }
}

TEST_F(Opens, FindNoDeviceUnderOtherPaths)
{
    for (const char* path : {"kola_lumo", "pelt/devices/char/zephdriver/kola_lumo", "/pelt/devices/char/zephdriver",
             "/pelt/devices/char/zephdriver/kola_lum", "/pelt/devices/char/zephdriver/kola_lumo_",
             "/pelt/devices/char/zephdriver/kola_lumo_ugrade2", "/pelt/devices/char/zephdriver/kola_lumo/",
             "/.pelt/devices/char/zephdriver/kola_lumo", "/pelt/devices/char/zephdriver/.kola_lumo", "", "/"})
        EXPECT_THAT(ended(open(path, O_RDWR)), testing::AnyOf("ENOENT", "EISDIR")) << path;
}

TEST_F(Opens, HaveManyNames)
{
    std::vector<int> devices {open(normal, O_RDWR), open64(normal, O_RDWR), openat(AT_FDCWD, normal, O_RDWR),
        openat64(-1, normal, O_RDWR), __open_2(normal, O_RDWR), __open64_2(normal, O_RDWR),
        __openat_2(AT_FDCWD, normal, O_RDWR), __openat64_2(AT_FDCWD, normal, O_RDWR)};
    std::uint32_t value = 0;
    for (const int device : devices) {
        EXPECT_EQ(get(device, &value), 0);
        EXPECT_EQ(value, 4u);
        EXPECT_EQ(close(device), 0);
    }
}

// Those that programs know by a name: the kernel sets one more.
constexpr int named_flags = O_ACCMODE | O_CREAT | O_EXCL | O_NOCTTY | O_TRUNC | O_APPEND | O_NONBLOCK | O_SYNC |
                            O_DIRECT | O_DIRECTORY | O_NOFOLLOW | O_NOATIME | O_CLOEXEC | O_PATH;

// The other one is a character device that is there everywhere.
TEST_F(Opens, TakeFlagsAsADeviceDoes)
{
    for (const int flags : {O_RDONLY, O_WRONLY, O_RDWR, O_RDWR | O_NONBLOCK, O_RDWR | O_APPEND, O_RDWR | O_TRUNC,
             O_RDWR | O_NOCTTY, O_RDWR | O_SYNC, O_RDWR | O_NOFOLLOW, O_RDWR | O_CLOEXEC, O_DIRECTORY,
             O_RDWR | O_DIRECT, O_RDWR | O_CREAT, O_RDWR | O_CREAT | O_EXCL, O_PATH, O_PATH | O_CLOEXEC}) {
        const int other = open("/dev/null", flags, 0600);
        const std::string other_ended = other < 0 ? ended(other) : "opened";
        const int device = open(normal, flags, 0600);
        EXPECT_EQ(device < 0 ? ended(device) : "opened", other_ended) << std::oct << flags;
        if (device >= 0) {
            EXPECT_EQ(fcntl(device, F_GETFL) & named_flags, fcntl(other, F_GETFL) & named_flags) << std::oct << flags;
            EXPECT_EQ(fcntl(device, F_GETFD), fcntl(other, F_GETFD)) << std::oct << flags;
            close(device);
        }
        close(other);
    }
}

TEST_F(Opens, FailWhenThereAreTooManyDescriptors)
{
    std::vector<int> devices;
    for (int i = 0; i < emulator::Descriptors::most; ++i) {
        devices.push_back(open(normal, O_RDWR));
        ASSERT_GE(devices.back(), 0) << i;
    }
    EXPECT_EQ(ended(open(normal, O_RDWR)), "EMFILE");
    EXPECT_EQ(ended(dup(devices[0])), "EMFILE");
    EXPECT_EQ(close(devices[7]), 0);
    EXPECT_EQ(open(normal, O_RDWR), devices[7]);
    EXPECT_TRUE(std::all_of(devices.begin(), devices.end(), [](int device) { return close(device) == 0; }));
}

TEST_F(Opens, LeaveErrnoAloneWhenTheySucceed)
{
    errno = ENOTBLK;
    std::uint32_t value = 0;
    {
        const Open device;
        EXPECT_EQ(get(device, &value), 0);
    }
    EXPECT_EQ(errno, ENOTBLK);
}

TEST_F(Descriptors, AreClosedOnce)
{
    const int device = open(normal, O_RDWR);
    std::uint32_t value = 0;
    EXPECT_EQ(close(device), 0);
    EXPECT_EQ(ended(close(device)), "EBADF");
    EXPECT_EQ(ended(get(device, &value)), "EBADF");
    EXPECT_EQ(ended(dup(device)), "EBADF");
    EXPECT_EQ(ended(fcntl(device, F_GETFD)), "EBADF");
    EXPECT_EQ(ended(fcntl(device, F_GETFL)), "EBADF");
    struct stat status = {};
    EXPECT_EQ(ended(fstat(device, &status)), "EBADF");
}

TEST_F(Descriptors, AreCopied)
{
    const int device = open(normal, O_RDWR | O_CLOEXEC);
    const std::array<int, 5> copies {dup(device), fcntl(device, F_DUPFD, 0), fcntl(device, F_DUPFD_CLOEXEC, 0),
        fcntl(device, F_DUPFD, device + 100), dup2(device, device + 50)};
    EXPECT_THAT(copies, ElementsAre(device + 1, device + 2, device + 3, device + 100, device + 50));
    EXPECT_EQ(close(device), 0);
    std::uint32_t value = 0;
    std::vector<int> flags;
    for (const int copy : copies) {
        EXPECT_EQ(get(copy, &value), 0);
        flags.push_back(fcntl(copy, F_GETFD));
    }
    EXPECT_THAT(flags, ElementsAre(0, 0, FD_CLOEXEC, 0, 0));
    EXPECT_EQ(dup3(copies[0], copies[1], O_CLOEXEC), copies[1]);
    EXPECT_EQ(fcntl(copies[1], F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(ended(dup3(copies[0], copies[0], 0)), "EINVAL");
    EXPECT_EQ(ended(dup3(copies[0], copies[1], O_APPEND)), "EINVAL");
    EXPECT_EQ(dup2(copies[0], copies[0]), copies[0]);
    EXPECT_EQ(ended(dup2(device, device)), "EBADF");
    EXPECT_EQ(ended(fcntl(copies[0], F_DUPFD, -1)), "EINVAL");
    for (const int copy : copies)
        EXPECT_EQ(close(copy), 0);
}

TEST_F(Descriptors, ShareTheFlagsOfTheirFileOnly)
{
    const Open device;
    const Open other;
    const int copy = dup(device);
    EXPECT_EQ(fcntl(device, F_SETFL, O_NONBLOCK), 0);
    EXPECT_NE(fcntl(copy, F_GETFL) & O_NONBLOCK, 0);
    EXPECT_EQ(fcntl(copy, F_GETFL) & O_ACCMODE, O_RDWR);
    EXPECT_EQ(fcntl(other, F_GETFL) & O_NONBLOCK, 0);
    EXPECT_EQ(fcntl(device, F_SETFD, FD_CLOEXEC), 0);
    EXPECT_EQ(fcntl(copy, F_GETFD), 0);
    EXPECT_EQ(close(copy), 0);
}

TEST_F(Descriptors, AnswerWhatLinuxAnswersForEveryFile)
{
    const Open device;
    EXPECT_EQ(ioctl(device, FIOCLEX), 0);
    EXPECT_EQ(fcntl(device, F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(ioctl(device, FIONCLEX), 0);
    EXPECT_EQ(fcntl(device, F_GETFD), 0);
    int on = 1;
    EXPECT_EQ(ioctl(device, FIONBIO, &on), 0);
    EXPECT_NE(fcntl(device, F_GETFL) & O_NONBLOCK, 0);
    EXPECT_EQ(ended(ioctl(device, FIONBIO, nullptr)), "EFAULT");
}

TEST_F(Descriptors, ThatOnlyNameAPathTakeNoCommand)
{
    const Open device(normal, O_PATH);
    std::uint32_t value = 0;
    EXPECT_EQ(ended(get(device, &value)), "EBADF");
    EXPECT_EQ(ended(fcntl(device, F_SETFL, O_NONBLOCK)), "EBADF");
}

TEST_F(Descriptors, AreClosedInRanges)
{
    // In a child, where nothing is lost but what it needs no more.
    EXPECT_EQ(in_child([] {
        const int first = open(normal, O_RDWR);
        const int second = open(normal, O_RDWR);
        const int third = open(normal, O_RDWR);
        if (close_range(static_cast<unsigned>(second), ~0U, CLOSE_RANGE_CLOEXEC) != 0)
            return errno == EINVAL || errno == ENOSYS ? 0 : 1; // an older kernel
        if (fcntl(first, F_GETFD) != 0 || fcntl(second, F_GETFD) != FD_CLOEXEC || fcntl(third, F_GETFD) != FD_CLOEXEC)
            return 2;
        if (close_range(static_cast<unsigned>(second), static_cast<unsigned>(second), 0) != 0)
            return 3;
        if (fcntl(first, F_GETFD) < 0 || fcntl(second, F_GETFD) >= 0 || fcntl(third, F_GETFD) < 0)
            return 4;
        closefrom(3);
        return fcntl(first, F_GETFD) < 0 && fcntl(third, F_GETFD) < 0 && fcntl(2, F_GETFD) >= 0 ? 0 : 5;
    }),
        0);
}

// System calls that the door does not answer do not know its numbers.
TEST_F(Numbers, AreBadForWhateverElseTakesADescriptor)
{
    const Open device;
    char byte = 0;
    EXPECT_EQ(ended(read(device, &byte, 1)), "EBADF");
    EXPECT_EQ(ended(write(device, &byte, 1)), "EBADF");
    EXPECT_EQ(ended(lseek(device, 0, SEEK_SET)), "EBADF");
    EXPECT_EQ(ended(isatty(device) - 1), "EBADF");
    EXPECT_EQ(mmap(nullptr, 4096, PROT_READ, MAP_SHARED, device, 0), MAP_FAILED);
    EXPECT_EQ(errno, EBADF);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(ended(fcntl(device, F_SETLK, &lock)), "EBADF");
    pollfd polled {device, POLLIN, 0};
    EXPECT_EQ(poll(&polled, 1, 0), 1);
    EXPECT_EQ(polled.revents, POLLNVAL);
    const int epoll = epoll_create1(EPOLL_CLOEXEC);
    epoll_event event {};
    EXPECT_EQ(ended(epoll_ctl(epoll, EPOLL_CTL_ADD, device, &event)), "EBADF");
    close(epoll);
    EXPECT_EQ(fdopen(device, "r+"), nullptr);
    EXPECT_EQ(errno, EBADF);
    EXPECT_EQ(ended(open(("/proc/self/fd/" + std::to_string(device)).c_str(), O_RDWR)), "ENOENT");
}

TEST_F(Numbers, DoNotMixWithThoseOfTheKernel)
{
    const Open device;
    const Open file("/dev/null");
    EXPECT_EQ(ended(dup2(device, file)), "EBADF");
    EXPECT_EQ(ended(dup2(file, device)), "EBADF");
    EXPECT_EQ(ended(dup3(device, file, 0)), "EBADF");
    EXPECT_EQ(write(file, "x", 1), 1);
    std::uint32_t value = 0;
    EXPECT_EQ(get(device, &value), 0);
}

TEST_F(Numbers, CannotBeSentToAnotherProcess)
{
    const Open device;
    std::array<int, 2> sockets {};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets.data()), 0);
    char byte = 0;
    iovec part {&byte, 1};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control {};
    msghdr message {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    cmsghdr* const header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    const int number = device;
    std::memcpy(CMSG_DATA(header), &number, sizeof number);
    EXPECT_EQ(ended(sendmsg(sockets[0], &message, 0)), "EBADF");
    close(sockets[0]);
    close(sockets[1]);
}

TEST_F(OtherFiles, AreUntouched)
{
    std::string name = testing::TempDir() + "door-XXXXXX";
    const int first = mkstemp(name.data());
    ASSERT_GE(first, 0);
    close(first);
    unlink(name.c_str());
    const mode_t mask = umask(0);
    const int file = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0640);
    umask(mask);
    ASSERT_GE(file, 0);
    struct stat status = {};
    EXPECT_EQ(fstat(file, &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0640u);
    EXPECT_EQ(stat(name.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0640u);
    EXPECT_EQ(access(name.c_str(), F_OK), 0);
    EXPECT_EQ(write(file, "four", 4), 4);
    int waiting = 0;
    EXPECT_EQ(lseek(file, 1, SEEK_SET), 1);
    EXPECT_EQ(ioctl(file, FIONREAD, &waiting), 0);
    EXPECT_EQ(waiting, 3);
    const int copy = dup(file);
    EXPECT_LT(copy, emulator::Descriptors::first);
    EXPECT_EQ(fcntl(copy, F_GETFD), 0);
    EXPECT_EQ(fcntl(copy, F_GETFL) & O_ACCMODE, O_RDWR);
    EXPECT_EQ(dup2(file, copy), copy);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(fcntl(file, F_SETLK, &lock), 0);
    EXPECT_EQ(close(copy), 0);
    EXPECT_EQ(ended(close(copy)), "EBADF");
    EXPECT_EQ(close(file), 0);
    unlink(name.c_str());
    EXPECT_EQ(ended(open(name.c_str(), O_RDONLY)), "ENOENT");
    EXPECT_EQ(ended(close(-1)), "EBADF");
    EXPECT_EQ(ended(ioctl(-1, FIONREAD, &waiting)), "EBADF");
    // Through a pointer, of which the compiler does not know that null is not allowed.
    int (*const volatile opening)(const char*, int, ...) = open;
    EXPECT_EQ(ended(opening(nullptr, O_RDONLY)), "EFAULT");
}

TEST_F(Status, IsThatOfACharacterDevice)
{
    const Open device;
    std::array<struct stat, 5> seen {};
    EXPECT_EQ(stat(normal, &seen[0]), 0);
    EXPECT_EQ(lstat(normal, &seen[1]), 0);
    // A sanitizer's own fstat goes past the door.
    EXPECT_EQ(INSTRUMENTED ? fstatat(device, "", &seen[2], AT_EMPTY_PATH) : fstat(device, &seen[2]), 0);
    EXPECT_EQ(fstatat(AT_FDCWD, normal, &seen[3], 0), 0);
    EXPECT_EQ(fstatat(device, "", &seen[4], AT_EMPTY_PATH), 0);
    for (const struct stat& status : seen) {
        EXPECT_EQ(status.st_mode, S_IFCHR | 0666u);
        EXPECT_EQ(status.st_rdev, seen[0].st_rdev);
        EXPECT_EQ(status.st_ino, seen[0].st_ino);
    }
    struct stat other = {};
    EXPECT_EQ(stat(upgrade, &other), 0);
    EXPECT_NE(other.st_rdev, seen[0].st_rdev);
    struct statx extended = {};
    EXPECT_EQ(statx(AT_FDCWD, normal, 0, STATX_BASIC_STATS, &extended), 0);
    EXPECT_EQ(extended.stx_mode, S_IFCHR | 0666u);
    EXPECT_EQ(makedev(extended.stx_rdev_major, extended.stx_rdev_minor), seen[0].st_rdev);
    EXPECT_EQ(ended(stat("/pelt/devices/char/zephdriver", &other)), "ENOENT");
}

TEST_F(Status, GivesAccessToReadersAndWriters)
{
    EXPECT_EQ(access(normal, F_OK), 0);
    EXPECT_EQ(access(upgrade, R_OK | W_OK), 0);
    EXPECT_EQ(ended(access(normal, X_OK)), "EACCES");
    EXPECT_EQ(ended(access(normal, 8)), "EINVAL");
    EXPECT_EQ(faccessat(AT_FDCWD, normal, R_OK, 0), 0);
    EXPECT_EQ(euidaccess(normal, W_OK), 0);
    EXPECT_EQ(ended(access("/pelt", F_OK)), "ENOENT");
}

// As many pages, of which the second cannot be used.
class Pages
{
public:
    Pages()
        : begin_(
              static_cast<char*>(mmap(nullptr, 2 * size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)))
    {
        mprotect(end(), size, PROT_NONE);
    }
    ~Pages() { munmap(begin_, 2 * size); }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    char* begin() const { return begin_; }
    char* end() const { return begin_ + size; }

private:
    const std::size_t size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    char* begin_;
};

TEST_F(Commands, FailForNullPointers)
{
    const Open device;
    EXPECT_EQ(ended(ioctl(device, get_log_level, nullptr)), "EFAULT");
    LumoEnvelope no_input {4, nullptr, 0, nullptr};
    EXPECT_EQ(ended(ioctl(device, set_log_level, &no_input)), "EFAULT");
    EXPECT_EQ(ended(get(device, nullptr)), "EFAULT");
}

TEST_F(Commands, FailForMemoryThatIsNotThere)
{
    if (CROSS_COMPILED)
        GTEST_SKIP() << "qemu-user has no process_vm_readv(2)";
    const Open device;
    std::uint32_t value = 3;
    const Pages pages;
    EXPECT_EQ(ended(ioctl(device, get_log_level, pages.end())), "EFAULT");
    EXPECT_EQ(ended(ioctl(device, get_log_level, pages.end() - 23)), "EFAULT");
    LumoEnvelope bad_input {4, pages.end() - 3, 0, nullptr};
    EXPECT_EQ(ended(ioctl(device, set_log_level, &bad_input)), "EFAULT");
    EXPECT_EQ(ended(get(device, pages.end() - 3)), "EFAULT");
    EXPECT_EQ(ended(get(device, reinterpret_cast<void*>(~std::uintptr_t {0} - 1))), "EFAULT");
    EXPECT_EQ(get(device, pages.end() - 4), 0);
    std::memcpy(&value, pages.end() - 4, sizeof value);
    EXPECT_EQ(value, 4u);
    // What is known of one page says nothing of its neighbour.
    EXPECT_EQ(ended(get(device, pages.end() - 3)), "EFAULT");
    // Constants can be read, and not written.
    EXPECT_EQ(ended(get(device, const_cast<char*>(normal))), "EFAULT");
    LumoEnvelope constant_input {4, normal, 0, nullptr};
    EXPECT_EQ(ioctl(device, set_log_level, &constant_input), 0);
}

TEST_F(Commands, AreRefusedByTheModuleAsEverywhere)
{
    const Open device;
    std::uint32_t value = 0;
    EXPECT_EQ(ended(get(device, &value, 3)), "ENOBUFS");
    LumoEnvelope envelope {0, nullptr, 4, &value};
    for (const unsigned long number : {70UL, 161UL, 255UL, 0x5401UL, ~0UL})
        EXPECT_EQ(ended(ioctl(device, number, &envelope)), "ENOTTY") << number;
    // The upper half of the number does not count.
    EXPECT_EQ(ioctl(device, (1UL << 32) + get_log_level, &envelope), 0);
    EXPECT_EQ(value, 4u);
    const std::vector<char> much(8192);
    LumoEnvelope too_long {8192, much.data(), 0, nullptr};
    EXPECT_EQ(ended(ioctl(device, set_log_level, &too_long)), "EINVAL");
}

TEST_F(Commands, TellTheLengthOfTheReply)
{
    const Open device;
    std::array<std::uint32_t, 4> values {};
    LumoEnvelope envelope {0, nullptr, sizeof values, values.data()};
    EXPECT_EQ(ioctl(device, get_log_level, &envelope), 0);
    EXPECT_EQ(envelope.outLen + 0u, 4u);
    EXPECT_THAT(values, ElementsAre(4, 0, 0, 0));
}

TEST_F(Commands, FillLargeRooms)
{
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(LUMOZEPH_SetLumoInstance(("instance-" + std::to_string(i)).c_str(), 1, nullptr, 0), 0);
    LumoInstanceList* list = nullptr;
    ASSERT_EQ(LUMOZEPH_GetInstances(&list), 0);
    ASSERT_EQ(list->count, 500);
    EXPECT_STREQ(list->records[499].instanceKey, "instance-499");
    LUMOZEPH_ReleaseInstances(list);
}

// Both devices lead to one module.
TEST_F(Commands, OfBothDevicesMeet)
{
    std::uint32_t value = 0;
    EXPECT_EQ(set(Open(normal), 7), 0);
    EXPECT_EQ(get(Open(upgrade), &value), 0);
    EXPECT_EQ(value, 7u);
}

TEST_F(Threads, MayOpenCopyAndCloseAtOnce)
{
    std::vector<std::thread> threads;
    std::atomic<int> failures {0};
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&failures] {
            for (int i = 0; i < 2000; ++i) {
                const int device = open(normal, O_RDWR);
                const int copy = dup(device);
                std::uint32_t value = 0;
                failures += close(device) != 0;
                failures += get(copy, &value) != 0 || value != 4;
                failures += close(copy) != 0;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

TEST_F(Threads, MayResetAndWatchMeanwhile)
{
    std::atomic<bool> done {false};
    std::atomic<int> failures {0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            while (!done) {
                std::uint32_t value = 0;
                failures += LUMOZEPH_SetLogLevel(5) != 0;
                failures += LUMOZEPH_GetLogLevel(&value) != 0 || (value != 4 && value != 5);
            }
        });
    int seen = 0; // not atomic: one command is shown at a time
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(lumozeph_emulator_reset(), 0);
        EXPECT_EQ(lumozeph_emulator_watch(
                      [](const LumoEmulatorCommand*, void* count) { ++*static_cast<int*>(count); }, &seen),
            0);
        std::this_thread::yield();
    }
    EXPECT_EQ(lumozeph_emulator_watch(nullptr, nullptr), 0);
    const int seen_then = seen;
    EXPECT_EQ(log_level() / 2, 2u);
    EXPECT_EQ(seen, seen_then);
    done = true;
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

TEST_F(Processes, GoOnWithACopyWhenTheyAreForked)
{
    const Open device;
    EXPECT_EQ(set(device, 7), 0);
    EXPECT_EQ(in_child([&device] {
        std::uint32_t value = 0;
        if (get(device, &value) != 0 || value != 7 || log_level() != 7)
            return 1;
        return set(device, 8) == 0 && log_level() == 8 && close(device) == 0 ? 0 : 2;
    }),
        0);
    std::uint32_t value = 0;
    EXPECT_EQ(get(device, &value), 0);
    EXPECT_EQ(value, 7u);
}

TEST_F(Processes, MayBeForkedWhileOtherThreadsCall)
{
    std::atomic<bool> done {false};
    std::vector<std::thread> threads;
    for (int t = 0; t < 3; ++t)
        threads.emplace_back([&done] {
            while (!done)
                LUMOZEPH_SetLogLevel(6);
        });
    for (int i = 0; i < 50; ++i) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            alarm(20);
            std::uint32_t value = 0;
            const Open device;
            _exit(get(device, &value) == 0 && (value == 4 || value == 6) ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    done = true;
    for (std::thread& thread : threads)
        thread.join();
}

TEST_F(Processes, BeginWithANewModuleWhenTheyAreExecuted)
{
    if (CROSS_COMPILED)
        GTEST_SKIP() << "the kernel cannot execute programs of another machine by itself";
    EXPECT_EQ(LUMOZEPH_SetLogLevel(7), 0);
    EXPECT_EQ(in_child([] {
        execl("/proc/self/exe", "emulator_door_tests", "--log-level", nullptr);
        return 99;
    }),
        4);
}

struct Journal
{
    std::vector<std::string> lines;
    std::vector<std::string> inside; // how calls end that a watcher makes

    static void note(const LumoEmulatorCommand* command, void* context)
    {
        auto& journal = *static_cast<Journal*>(context);
        std::uint32_t value = 0;
        if (command->inputLength == sizeof value)
            std::memcpy(&value, command->input, sizeof value);
        if (command->replyLength == sizeof value)
            std::memcpy(&value, command->reply, sizeof value);
        journal.lines.push_back(std::to_string(command->number) + ": " + std::to_string(command->inputLength) + " in " +
                                std::to_string(command->room) + " room " + std::to_string(command->replyLength) +
                                " out, errno " + std::to_string(command->error) + ", " + std::to_string(value));
    }

    static void call(const LumoEmulatorCommand*, void* context)
    {
        auto& inside = static_cast<Journal*>(context)->inside;
        inside.push_back(ended(open(normal, O_RDWR)));
        inside.push_back(ended(close(emulator::Descriptors::first)));
        inside.push_back(ended(lumozeph_emulator_reset()));
        inside.push_back(ended(lumozeph_emulator_advance(1)));
        inside.push_back(ended(lumozeph_emulator_watch(nullptr, nullptr)));
        inside.push_back(ended(lumozeph_emulator_add_fault("any=EIO")));
        inside.push_back(ended(lumozeph_emulator_clear_faults()));
        std::uint32_t value = 0;
        inside.push_back(ended(LUMOZEPH_GetLogLevel(&value)));
        inside.push_back(ended(close(open("/dev/null", O_RDWR))));
    }
};

TEST_F(Watchers, SeeEveryCommandInOrder)
{
    Journal journal;
    ASSERT_EQ(lumozeph_emulator_watch(Journal::note, &journal), 0);
    EXPECT_EQ(LUMOZEPH_SetLogLevel(7), 0);
    EXPECT_EQ(log_level(), 7u);
    LumoEnvelope envelope {};
    EXPECT_EQ(ended(LUMOZEPHIoctl(70, &envelope)), "ENOTTY");
    ASSERT_EQ(lumozeph_emulator_watch(nullptr, nullptr), 0);
    EXPECT_EQ(log_level(), 7u);
    EXPECT_THAT(journal.lines, ElementsAre("10: 4 in 0 room 0 out, errno 0, 7", "9: 0 in 4 room 4 out, errno 0, 7",
                                   "70: 0 in 0 room 0 out, errno " + std::to_string(ENOTTY) + ", 0"));
}

TEST_F(Watchers, CannotUseTheDevice)
{
    Journal journal;
    ASSERT_EQ(lumozeph_emulator_watch(Journal::call, &journal), 0);
    EXPECT_EQ(log_level(), 4u);
    EXPECT_THAT(journal.inside,
        ElementsAre("EDEADLK", "EDEADLK", "EDEADLK", "EDEADLK", "EDEADLK", "EDEADLK", "EDEADLK", "EDEADLK", "0"));
}

TEST_F(Watchers, MayFork)
{
    ASSERT_EQ(lumozeph_emulator_watch(
                  [](const LumoEmulatorCommand*, void*) { EXPECT_EQ(in_child([] { return 5; }), 5); }, nullptr),
        0);
    EXPECT_EQ(log_level(), 4u);
}

// A handler cannot wait for the thread that it interrupts.
TEST_F(Watchers, StandForWhateverASignalInterrupts)
{
    static std::string in_handler;
    struct sigaction action = {};
    action.sa_handler = [](int) { in_handler = ended(open(normal, O_RDWR)); };
    struct sigaction before = {};
    ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
    ASSERT_EQ(lumozeph_emulator_watch([](const LumoEmulatorCommand*, void*) { raise(SIGUSR1); }, nullptr), 0);
    EXPECT_EQ(log_level(), 4u);
    EXPECT_EQ(in_handler, "EDEADLK");
    EXPECT_EQ(sigaction(SIGUSR1, &before, nullptr), 0);
}

TEST_F(Faults, StrikeTheCommandsOfThisProcess)
{
    EXPECT_EQ(lumozeph_emulator_add_fault("SetLogLevel#2=EBUSY"), 0);
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLifs=ENODEV"), 0);
    EXPECT_EQ(LUMOZEPH_SetLogLevel(7), 0);
    EXPECT_EQ(ended(LUMOZEPH_SetLogLevel(8)), "EBUSY");
    EXPECT_EQ(log_level(), 7u);
    LumoLifList* list = nullptr;
    EXPECT_EQ(ended(LUMOZEPH_GetLifs("blue", &list)), "ENODEV");
    EXPECT_EQ(lumozeph_emulator_clear_faults(), 0);
    EXPECT_EQ(ended(LUMOZEPH_GetLifs("blue", &list)), "ENOENT");
}

TEST_F(Faults, ReportTheLengthsOfTheirReplies)
{
    const Open device;
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLogLevel#1=short:1"), 0);
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLogLevel#2=long"), 0);
    std::uint32_t value = 0x01010101;
    LumoEnvelope envelope {0, nullptr, 4, &value};
    EXPECT_EQ(ioctl(device, get_log_level, &envelope), 0);
    EXPECT_EQ(+envelope.outLen, 1u);
    EXPECT_EQ(value, 0x01010104u);
    envelope.outLen = 4;
    EXPECT_EQ(ioctl(device, get_log_level, &envelope), 0);
    EXPECT_EQ(+envelope.outLen, 8u);
    EXPECT_EQ(value, 4u);
}

TEST_F(Faults, AreShownToTheWatcherAsTheyWereAnswered)
{
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLogLevel#1=EIO"), 0);
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLogLevel#2=short:3"), 0);
    Journal journal;
    ASSERT_EQ(lumozeph_emulator_watch(Journal::note, &journal), 0);
    std::uint32_t value = 0;
    EXPECT_EQ(ended(LUMOZEPH_GetLogLevel(&value)), "EIO");
    EXPECT_EQ(LUMOZEPH_GetLogLevel(&value), 0);
    ASSERT_EQ(lumozeph_emulator_watch(nullptr, nullptr), 0);
    EXPECT_THAT(journal.lines, testing::SizeIs(2));
    EXPECT_EQ(journal.lines[0], "9: 0 in 4 room 0 out, errno " + std::to_string(EIO) + ", 0");
    EXPECT_THAT(journal.lines[1], testing::StartsWith("9: 0 in 4 room 3 out, errno 0"));
}

TEST_F(Faults, HoldUpOneThreadAlone)
{
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLogLevel#1=delay:500ms"), 0);
    const auto before = std::chrono::steady_clock::now();
    std::atomic<std::uint32_t> seen {0};
    std::thread waiting([&] { seen = log_level(); });
    while (LUMOZEPH_SetLogLevel(8) == 0 && std::chrono::steady_clock::now() - before < std::chrono::milliseconds(100))
        continue;
    EXPECT_EQ(seen, 0u);
    waiting.join();
    EXPECT_EQ(seen, 8u);
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
}

TEST_F(Faults, MayHangUntilTheProcessEnds)
{
    EXPECT_EQ(in_child([] {
        static std::atomic<int> step {0};
        lumozeph_emulator_add_fault("GetExtendedLogLevel=hang");
        std::thread([] {
            std::uint32_t value = 0;
            step = 1;
            LUMOZEPH_GetExtendedLogLevel(&value);
            step = 2;
        }).detach();
        while (step == 0 || LUMOZEPH_SetLogLevel(8) != 0)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return log_level() == 8 && step == 1 ? 5 : 6;
    }),
        5);
}

TEST_F(Faults, ThatMakeNoSenseAreNotAdded)
{
    EXPECT_EQ(ended(lumozeph_emulator_add_fault("GetLogLevel=EIOU")), "EINVAL");
    EXPECT_EQ(ended(lumozeph_emulator_add_fault("open=EIO")), "EINVAL");
    EXPECT_EQ(ended(lumozeph_emulator_add_fault("")), "EINVAL");
    EXPECT_EQ(log_level(), 4u);
}

TEST_F(Faults, AreThoseOfTheEnvironmentAfterAReset)
{
    EXPECT_EQ(lumozeph_emulator_add_fault("GetLogLevel=EIO"), 0);
    EXPECT_EQ(lumozeph_emulator_reset(), 0);
    EXPECT_EQ(log_level(), 4u);
    setenv("LUMOZEPH_EMULATOR_FAULTS", "GetLogLevel#2=EBUSY  SetLogLevel=EIO", 1);
    EXPECT_EQ(lumozeph_emulator_reset(), 0);
    unsetenv("LUMOZEPH_EMULATOR_FAULTS");
    EXPECT_EQ(log_level(), 4u);
    std::uint32_t value = 0;
    EXPECT_EQ(ended(LUMOZEPH_GetLogLevel(&value)), "EBUSY");
    EXPECT_EQ(ended(LUMOZEPH_SetLogLevel(1)), "EIO");
}

TEST_F(Reset, ForgetsWhatWasSetAndKeepsDescriptors)
{
    const Open device;
    EXPECT_EQ(set(device, 7), 0);
    EXPECT_EQ(LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 0), 0);
    EXPECT_EQ(lumozeph_emulator_reset(), 0);
    std::uint32_t value = 0;
    EXPECT_EQ(get(device, &value), 0);
    EXPECT_EQ(value, 4u);
    LumoInstanceInfo* info = nullptr;
    EXPECT_EQ(ended(LUMOZEPH_GetInstance("blue", &info)), "ENOENT");
}

// What the module of a process takes for up after a second.
std::uint32_t connections_up()
{
    LumoCPSyncState* state = nullptr;
    if (LUMOZEPH_GetLumoInstanceCPSyncState("blue", &state) != 0)
        return 4711;
    const std::uint32_t up = state->entries[0].value6;
    LUMOZEPH_ReleaseStats(state);
    return up;
}

TEST_F(Reset, GoesBackToWhatWasSaved)
{
    std::string path = testing::TempDir() + "state-XXXXXX";
    ::close(mkstemp(path.data()));
    EXPECT_EQ(LUMOZEPH_SetLumoInstance("blue", 7, nullptr, 0), 0);
    EXPECT_EQ(lumozeph_emulator_save(path.c_str()), 0);
    EXPECT_EQ(lumozeph_emulator_reset(), 0);
    EXPECT_EQ(lumozeph_emulator_load(path.c_str()), 0);
    LumoInstanceInfo* info = nullptr;
    ASSERT_EQ(LUMOZEPH_GetInstance("blue", &info), 0);
    EXPECT_EQ(+info->value1, 7u);
    LUMOZEPH_ReleaseInstance(info);

    truncate(path.c_str(), 1);
    EXPECT_EQ(ended(lumozeph_emulator_load(path.c_str())), "EINVAL");
    EXPECT_EQ(ended(lumozeph_emulator_load("/no/such/file")), "EINVAL");
    EXPECT_EQ(ended(lumozeph_emulator_save("/no/such/file")), "EIO");
    EXPECT_EQ(LUMOZEPH_DelLumoInstance("blue"), 0);
    unlink(path.c_str());
}

TEST_F(Reset, TakesTheClockFromTheEnvironment)
{
    constexpr std::uint64_t second = 1000000000;
    setenv("LUMOZEPH_EMULATOR_CLOCK", "manual", 1);
    EXPECT_EQ(lumozeph_emulator_reset(), 0);
    EXPECT_EQ(LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 0), 0);
    EXPECT_EQ(LUMOZEPH_PlumbLumoConnection("port", "", 0, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(lumozeph_emulator_advance(second - 1), 0);
    EXPECT_EQ(connections_up(), 0u);
    EXPECT_EQ(lumozeph_emulator_advance(1), 0);
    EXPECT_EQ(connections_up(), 1u);
    unsetenv("LUMOZEPH_EMULATOR_CLOCK");
    EXPECT_EQ(lumozeph_emulator_reset(), 0);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--log-level") == 0)
        return static_cast<int>(log_level());
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
