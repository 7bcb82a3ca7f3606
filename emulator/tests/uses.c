/*
 * The ways in which programs look at, open, pass, reopen, poll, lock, map and close a device, one after the other, on
 * the device that is named. Prints a line for each: its name, its result and its errno.
 */
#define _GNU_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <linux/io_uring.h>
#include <poll.h>
#include <signal.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/epoll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/select.h>
#include <sys/sendfile.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

static const char* device; /* its path */
static char folder[4096];  /* where it is */
static const char* name;   /* its name there */

/* Whether a descriptor is one of a character device that can be read and written. */
static long is_device(int descriptor)
{
    struct stat found;
    if (descriptor < 0)
        return -1;
    if (fstat(descriptor, &found) != 0 || !S_ISCHR(found.st_mode))
        return -2;
    close(descriptor);
    return (long)(found.st_rdev == makedev(1, 3));
}

static int opened(void)
{
    return open(device, O_RDWR | O_CLOEXEC);
}

static long use_stat(void)
{
    struct stat found;
    return stat(device, &found) == 0 ? (long)found.st_mode : -1;
}

static long use_lstat(void)
{
    struct stat found;
    return lstat(device, &found) == 0 ? (long)found.st_rdev : -1;
}

static long use_statx(void)
{
    struct statx found;
    return statx(AT_FDCWD, device, 0, STATX_BASIC_STATS, &found) == 0 ? (long)(found.stx_size + found.stx_nlink) : -1;
}

static long use_access(void)
{
    return access(device, R_OK | W_OK);
}

static long use_access_to_execute(void)
{
    return access(device, X_OK);
}

static long use_readlink(void)
{
    char target[10];
    return readlink(device, target, sizeof target);
}

static long use_realpath(void)
{
    char* const path = realpath(device, NULL);
    const long same = path != NULL && strcmp(path, device) == 0;
    free(path);
    return same;
}

static long use_getxattr(void)
{
    char value[10];
    return getxattr(device, "user.none", value, sizeof value);
}

static long use_chdir(void)
{
    return chdir(device);
}

static long use_exec(void)
{
    return execl(device, device, (char*)NULL);
}

static long use_mkdir(void)
{
    return mkdir(device, 0755);
}

static long use_rmdir(void)
{
    return rmdir(device);
}

static long open_for_reading(void)
{
    return is_device(open(device, O_RDONLY));
}

static long open_for_writing(void)
{
    return is_device(open(device, O_WRONLY));
}

static long open_for_both(void)
{
    return is_device(opened());
}

static long open_as_directory(void)
{
    return open(device, O_RDONLY | O_DIRECTORY);
}

static long open_exclusively(void)
{
    return open(device, O_RDWR | O_CREAT | O_EXCL, 0600);
}

static long open_created(void)
{
    return is_device(open(device, O_RDWR | O_CREAT | O_TRUNC, 0600));
}

static long open_without_following(void)
{
    return is_device(open(device, O_RDWR | O_NOFOLLOW));
}

static long open_directly(void)
{
    return open(device, O_RDWR | O_DIRECT);
}

static long open_path_only(void)
{
    const int path = open(device, O_PATH);
    const long result = path < 0 ? -1 : ioctl(path, 200, NULL);
    close(path);
    return result;
}

static long open_in_its_folder(void)
{
    const int where = open(folder, O_RDONLY | O_DIRECTORY);
    const long result = is_device(openat(where, name, O_RDWR));
    close(where);
    return result;
}

static long open_beneath_its_folder(void)
{
    const uint64_t how[3] = {O_RDWR, 0, 8}; /* RESOLVE_BENEATH */
    const int where = open(folder, O_RDONLY | O_DIRECTORY);
    const long result = is_device((int)syscall(437, where, name, how, sizeof how));
    close(where);
    return result;
}

static long open_by_another_spelling(void)
{
    char path[8192];
    snprintf(path, sizeof path, "/%s/.//%s", folder, name);
    return is_device(open(path, O_RDWR));
}

static long open_by_a_link(void)
{
    char path[] = "/tmp/lumozeph-link-XXXXXX";
    long result = 0;
    close(mkstemp(path));
    unlink(path);
    result = symlink(device, path) == 0 ? is_device(open(path, O_RDWR)) : -1;
    unlink(path);
    return result;
}

static long reopened(int flags)
{
    char path[64];
    const int first = opened();
    long result = 0;
    snprintf(path, sizeof path, "/proc/self/fd/%d", first);
    result = is_device(open(path, flags));
    close(first);
    return result;
}

static long reopen_by_proc(void)
{
    return reopened(O_RDWR);
}

static long where_it_is_open(void)
{
    char path[64];
    char target[4096] = "";
    const int first = opened();
    snprintf(path, sizeof path, "/proc/self/fd/%d", first);
    if (readlink(path, target, sizeof target - 1) < 0)
        return -1;
    close(first);
    return strcmp(target, device) == 0;
}

static long open_by_ring(void)
{
    struct io_uring_params parameters = {0};
    const int ring = (int)syscall(__NR_io_uring_setup, 2, &parameters);
    long result = 0;
    if (ring < 0)
        return -1;
    char* const submission = mmap(NULL, parameters.sq_off.array + 2 * sizeof(uint32_t), PROT_READ | PROT_WRITE,
        MAP_SHARED | MAP_POPULATE, ring, IORING_OFF_SQ_RING);
    struct io_uring_sqe* const entry =
        mmap(NULL, 2 * sizeof *entry, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, ring, IORING_OFF_SQES);
    char* const completion = mmap(NULL, parameters.cq_off.cqes + 4 * sizeof(struct io_uring_cqe),
        PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, ring, IORING_OFF_CQ_RING);
    memset(entry, 0, sizeof *entry);
    entry->opcode = IORING_OP_OPENAT;
    entry->fd = AT_FDCWD;
    entry->addr = (uintptr_t)device;
    entry->open_flags = O_RDWR;
    *(uint32_t*)(submission + parameters.sq_off.array) = 0;
    __atomic_store_n((uint32_t*)(submission + parameters.sq_off.tail), 1, __ATOMIC_RELEASE);
    if (syscall(__NR_io_uring_enter, ring, 1, 1, IORING_ENTER_GETEVENTS, NULL, 0) != 1)
        return -1;
    result = ((struct io_uring_cqe*)(completion + parameters.cq_off.cqes))->res;
    close(ring);
    errno = result < 0 ? (int)-result : 0;
    return result < 0 ? -1 : is_device((int)result);
}

static long pass_to_a_child(void)
{
    const int first = opened();
    int status = 0;
    const pid_t child = fork();
    if (child == 0)
        _exit((int)is_device(dup(first)));
    waitpid(child, &status, 0);
    close(first);
    return WEXITSTATUS(status);
}

static long pass_by_socket(void)
{
    int ends[2];
    char byte = 0;
    struct iovec data = {&byte, 1};
    union
    {
        char bytes[CMSG_SPACE(sizeof(int))];
        struct cmsghdr header;
    } control;
    struct msghdr message = {
        .msg_iov = &data, .msg_iovlen = 1, .msg_control = &control, .msg_controllen = sizeof control};
    const int first = opened();
    int passed = -1;
    socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
    control.header.cmsg_level = SOL_SOCKET;
    control.header.cmsg_type = SCM_RIGHTS;
    control.header.cmsg_len = CMSG_LEN(sizeof first);
    memcpy(CMSG_DATA(&control.header), &first, sizeof first);
    if (sendmsg(ends[0], &message, 0) != 1 || recvmsg(ends[1], &message, 0) != 1)
        return -1;
    memcpy(&passed, CMSG_DATA(&control.header), sizeof passed);
    close(ends[0]);
    close(ends[1]);
    close(first);
    return is_device(passed);
}

static long duplicate_elsewhere(void)
{
    const int first = opened();
    const long result = dup3(first, 100, O_CLOEXEC);
    close(first);
    return result == 100 ? is_device(100) : -1;
}

/* Each of these uses one descriptor of the device. */
static long use_read(int file)
{
    char bytes[10];
    return read(file, bytes, sizeof bytes);
}

static long use_write(int file)
{
    return write(file, "text", 4);
}

static long use_writev(int file)
{
    struct iovec data = {folder, 3};
    return pwritev(file, &data, 1, 1000);
}

static long use_seek(int file)
{
    return lseek(file, 100, SEEK_SET);
}

static long use_truncate(int file)
{
    return ftruncate(file, 100);
}

static long use_allocate(int file)
{
    return fallocate(file, 0, 0, 100);
}

static long use_sync(int file)
{
    return fsync(file);
}

static long use_poll(int file)
{
    struct pollfd polled = {file, POLLIN | POLLOUT, 0};
    return poll(&polled, 1, 0) == 1 ? polled.revents : -1;
}

static long use_select(int file)
{
    fd_set set;
    struct timeval none = {0, 0};
    FD_ZERO(&set);
    FD_SET(file, &set);
    return select(file + 1, &set, NULL, NULL, &none);
}

static long use_epoll(int file)
{
    struct epoll_event event = {.events = EPOLLIN};
    const int queue = epoll_create1(0);
    const long result = epoll_ctl(queue, EPOLL_CTL_ADD, file, &event);
    close(queue);
    return result;
}

static long use_flock(int file)
{
    return flock(file, LOCK_EX);
}

static long use_flock_twice(int file)
{
    const int other = opened();
    const long result = flock(file, LOCK_EX) == 0 ? flock(other, LOCK_EX | LOCK_NB) : -2;
    close(other);
    return result;
}

static long use_record_lock(int file)
{
    struct flock lock = {.l_type = F_WRLCK, .l_whence = SEEK_SET};
    return fcntl(file, F_SETLK, &lock);
}

static long use_lease(int file)
{
    return fcntl(file, F_SETLEASE, F_RDLCK);
}

static long use_map_shared(int file)
{
    void* const mapped = mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    return mapped == MAP_FAILED ? -1 : munmap(mapped, 4096);
}

static long use_map_private(int file)
{
    void* const mapped = mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE, file, 0);
    return mapped == MAP_FAILED ? -1 : munmap(mapped, 4096);
}

static long use_sendfile(int file)
{
    const int source = open("/proc/self/cmdline", O_RDONLY);
    const long result = sendfile(file, source, NULL, 4);
    close(source);
    return result;
}

static long use_flags(int file)
{
    return fcntl(file, F_GETFL) & (O_ACCMODE | O_APPEND | O_NONBLOCK | O_PATH);
}

static long use_set_flags(int file)
{
    return fcntl(file, F_SETFL, O_NONBLOCK);
}

static long use_chmod(int file)
{
    (void)file;
    return fchmodat(AT_FDCWD, device, 0666, 0);
}

static long use_inotify(int file)
{
    const int watch = inotify_init();
    const long result = inotify_add_watch(watch, device, IN_OPEN);
    (void)file;
    close(watch);
    return result;
}

static long use_terminal_ioctl(int file)
{
    char settings[100];
    return ioctl(file, 0x5401, settings);
}

static long use_close_twice(int file)
{
    const int other = dup(file);
    close(other);
    return close(other);
}

static long use_at_empty_path(int file)
{
    struct stat found;
    return fstatat(file, "", &found, AT_EMPTY_PATH) == 0 ? (long)found.st_mode : -1;
}

static long use_as_directory(int file)
{
    return openat(file, "something", O_RDONLY);
}

struct way
{
    const char* name;
    long (*by_path)(void);
    long (*by_descriptor)(int);
};

#define BY_PATH(function)                                                                                              \
    {                                                                                                                  \
#function, function, NULL                                                                                      \
    }
#define BY_DESCRIPTOR(function)                                                                                        \
    {                                                                                                                  \
#function, NULL, function                                                                                      \
    }

static const struct way ways[] = {BY_PATH(use_stat), BY_PATH(use_lstat), BY_PATH(use_statx), BY_PATH(use_access),
    BY_PATH(use_access_to_execute), BY_PATH(use_readlink), BY_PATH(use_realpath), BY_PATH(use_getxattr),
    BY_PATH(use_chdir), BY_PATH(use_exec), BY_PATH(use_mkdir), BY_PATH(use_rmdir), BY_PATH(open_for_reading),
    BY_PATH(open_for_writing), BY_PATH(open_for_both), BY_PATH(open_as_directory), BY_PATH(open_exclusively),
    BY_PATH(open_created), BY_PATH(open_without_following), BY_PATH(open_directly), BY_PATH(open_path_only),
    BY_PATH(open_in_its_folder), BY_PATH(open_beneath_its_folder), BY_PATH(open_by_another_spelling),
    BY_PATH(open_by_a_link), BY_PATH(reopen_by_proc), BY_PATH(where_it_is_open), BY_PATH(open_by_ring),
    BY_PATH(pass_to_a_child), BY_PATH(pass_by_socket), BY_PATH(duplicate_elsewhere), BY_DESCRIPTOR(use_read),
    BY_DESCRIPTOR(use_write), BY_DESCRIPTOR(use_writev), BY_DESCRIPTOR(use_seek), BY_DESCRIPTOR(use_truncate),
    BY_DESCRIPTOR(use_allocate), BY_DESCRIPTOR(use_sync), BY_DESCRIPTOR(use_poll), BY_DESCRIPTOR(use_select),
    BY_DESCRIPTOR(use_epoll), BY_DESCRIPTOR(use_flock), BY_DESCRIPTOR(use_flock_twice), BY_DESCRIPTOR(use_record_lock),
    BY_DESCRIPTOR(use_lease), BY_DESCRIPTOR(use_map_shared), BY_DESCRIPTOR(use_map_private),
    BY_DESCRIPTOR(use_sendfile), BY_DESCRIPTOR(use_flags), BY_DESCRIPTOR(use_set_flags), BY_DESCRIPTOR(use_chmod),
    BY_DESCRIPTOR(use_inotify), BY_DESCRIPTOR(use_terminal_ioctl), BY_DESCRIPTOR(use_close_twice),
    BY_DESCRIPTOR(use_at_empty_path), BY_DESCRIPTOR(use_as_directory)};

int main(int argc, char** argv)
{
    size_t i = 0;
    if (argc != 2)
        return 2;
    device = argv[1];
    name = strrchr(device, '/') + 1;
    memcpy(folder, device, (size_t)(name - device) - 1);
    for (i = 0; i < sizeof ways / sizeof *ways; ++i) {
        const int file = ways[i].by_path == NULL ? opened() : -1;
        long result = 0;
        errno = 0;
        result = ways[i].by_path != NULL ? ways[i].by_path() : ways[i].by_descriptor(file);
        printf("%s %ld %s\n", ways[i].name, result, result < 0 ? strerrorname_np(errno) : "-");
        fflush(stdout);
        if (file >= 0)
            close(file);
    }
    return 0;
}
