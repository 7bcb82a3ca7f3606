/*
 * Speaks to the device by itself, with literal numbers, to test the emulator without the library. Each verb prints one
 * line and exits with 0 if what it tried was possible.
 */
#define _GNU_SOURCE
#include "device.h"

#include <errno.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <linux/userfaultfd.h>
#include <pthread.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/epoll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

static int report(const char* what, int result)
{
    if (result >= 0)
        printf("%s ok\n", what);
    else
        printf("%s %s\n", what, strerrorname_np(errno));
    return result >= 0 ? 0 : 1;
}

static int get_on(int device, uint32_t* value)
{
    struct envelope envelope = {0, NULL, sizeof *value, value};
    const int result = ioctl(device, 9, &envelope);
    if (result >= 0 && envelope.out_len != 4)
        abort();
    return result;
}

static int set_on(int device, uint32_t value)
{
    struct envelope envelope = {sizeof value, &value, 0, NULL};
    return ioctl(device, 10, &envelope);
}

static int get(const char* path)
{
    uint32_t value = 0;
    const int device = open(path, O_RDWR);
    if (device < 0 || get_on(device, &value) < 0)
        return report("get", -1);
    printf("%u\n", value);
    return 0;
}

static int set(uint32_t value)
{
    const int device = open(NORMAL, O_RDWR);
    return report("set", device < 0 ? -1 : set_on(device, value));
}

static int numbered_ioctl(unsigned long number)
{
    uint32_t value = 0;
    struct envelope envelope = {0, NULL, sizeof value, &value};
    return report("ioctl", ioctl(open(NORMAL, O_RDWR), number, &envelope));
}

static int list_routes(const char* instance)
{
    static char routes[8000 * 668];
    char request[776] = {0};
    struct envelope envelope = {sizeof request, request, sizeof routes, routes};
    memcpy(request, instance, strlen(instance));
    return report("routes", ioctl(open(NORMAL, O_RDWR), 36, &envelope));
}

static int bad_pointers(void)
{
    char* const page = mmap(NULL, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    const int device = open(NORMAL, O_RDWR);
    uint32_t value = 0;
    struct envelope bad_in = {4, page, 0, NULL};
    struct envelope bad_out = {0, NULL, 4, page};
    struct envelope no_room = {0, NULL, 3, &value};
    int failures = 0;
    failures += report("envelope", ioctl(device, 9, page));
    failures += report("input", ioctl(device, 10, &bad_in));
    failures += report("output", ioctl(device, 9, &bad_out));
    failures += report("room", ioctl(device, 9, &no_room));
    return failures == 4 ? 0 : 1;
}

/* The path ends where the readable memory ends. */
static int path_at_the_end_of_a_page(void)
{
    char* const pages = mmap(NULL, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    char* const path = pages + 4096 - sizeof NORMAL;
    mprotect(pages + 4096, 4096, PROT_NONE);
    memcpy(path, NORMAL, sizeof NORMAL);
    return get(path);
}

static int duplicated(void)
{
    uint32_t value = 0;
    const int device = open(NORMAL, O_RDWR);
    const int copy = dup(device);
    close(device);
    return report("dup", get_on(copy, &value));
}

/* The descriptor goes through a fork and an exec. */
static int inherited(char* self)
{
    const int device = open(NORMAL, O_RDWR);
    char number[16];
    snprintf(number, sizeof number, "%d", device);
    execl(self, self, "get-on", number, (char*)NULL);
    return 1;
}

static int close_on_exec(void)
{
    const int kept = open(NORMAL, O_RDWR);
    const int closed = open(NORMAL, O_RDWR | O_CLOEXEC);
    printf("%d %d\n", fcntl(kept, F_GETFD), fcntl(closed, F_GETFD));
    return 0;
}

static void* set_many(void* argument)
{
    int i = 0;
    for (i = 0; i < 200; ++i) {
        const int device = open(NORMAL, O_RDWR);
        if (device < 0 || set_on(device, 7) < 0)
            return argument;
        close(device);
    }
    return NULL;
}

static int threads(void)
{
    pthread_t thread[4];
    void* failed = NULL;
    int failures = 0;
    int i = 0;
    for (i = 0; i < 4; ++i)
        pthread_create(&thread[i], NULL, set_many, &failures);
    for (i = 0; i < 4; ++i) {
        pthread_join(thread[i], &failed);
        failures += failed != NULL;
    }
    printf("%d failures\n", failures);
    return failures;
}

static int other_files(const char* self)
{
    int block_size = 0;
    const int file = open(self, O_RDONLY | O_CLOEXEC);
    const int got = ioctl(file, FIGETBSZ, &block_size);
    printf("%s\n", got == 0 && block_size > 0 ? "untouched" : "touched");
    return got;
}

static int by_openat2(void)
{
    const uint64_t how[3] = {O_RDWR | O_CLOEXEC, 0, 0};
    uint32_t value = 0;
    const long device = syscall(437, AT_FDCWD, NORMAL, how, sizeof how);
    return report("openat2", device < 0 ? -1 : get_on((int)device, &value));
}

/* An endpoint, under the key "key", of a bridge that is not there. */
static int endpoint_of_no_bridge(void)
{
    char request[776] = {0};
    struct envelope envelope = {sizeof request, request, 0, NULL};
    strcpy(request + 64, "no bridge");
    strcpy(request + 192, "key");
    return report("endpoint", ioctl(open(NORMAL, O_RDWR), 45, &envelope));
}

/* A command whose number the kernel itself knows for every file, as what writes a block size where it is told. */
static int create_instance_on(int device)
{
    static unsigned char request[776] = "instance";
    struct envelope envelope = {sizeof request, request, 0, NULL};
    const int result = ioctl(device, 2, &envelope);
    if (envelope.in_len != sizeof request)
        printf("overwritten ");
    return report("create", result);
}

static int create_instance(const char* path)
{
    const int device = open(path, O_RDWR);
    return device < 0 ? report("open", -1) : create_instance_on(device);
}

static int undumpable(void)
{
    return prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0 ? create_instance(NORMAL) : 1;
}

static int drop_user(void)
{
    return setuid(65534) == 0 ? create_instance(NORMAL) : 1;
}

/* What opens of a device with these flags give. */
static void try_open(const char* what, int flags)
{
    const int device = open(NORMAL, flags, 0600);
    if (device >= 0)
        printf("%s %s\n", what, (fcntl(device, F_GETFL) & O_ACCMODE) == (flags & O_ACCMODE) ? "ok" : "other access");
    else
        report(what, -1);
    close(device);
}

static int is_device(void)
{
    struct epoll_event event = {.events = EPOLLIN};
    const int one = open(NORMAL, O_RDWR);
    const int other = open(NORMAL, O_RDWR);
    struct stat found;
    try_open("write-only", O_WRONLY);
    try_open("directory", O_RDWR | O_DIRECTORY);
    try_open("exclusive", O_RDWR | O_CREAT | O_EXCL);
    try_open("non-blocking", O_RDWR | O_NONBLOCK);
    printf("%s\n", fstat(one, &found) == 0 && S_ISCHR(found.st_mode) ? "character device" : "no device");
    printf("%s\n", flock(one, LOCK_EX) == 0 && write(one, "abc", 3) == 3 && lseek(other, 0, SEEK_CUR) == 0 &&
                           fstat(one, &found) == 0 && found.st_size == 0
                       ? "empty"
                       : "keeps what is written");
    return report("epoll", epoll_ctl(epoll_create1(0), EPOLL_CTL_ADD, one, &event)) == 1 ? 0 : 1;
}

/* A page that is not there until a handler says so, or a null pointer with errno. */
static void* missing_page(int* handler)
{
    struct uffdio_api api = {.api = UFFD_API};
    struct uffdio_register range = {.mode = UFFDIO_REGISTER_MODE_MISSING};
    char* const page = mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    *handler = (int)syscall(SYS_userfaultfd, O_CLOEXEC);
    range.range.start = (uintptr_t)page;
    range.range.len = 4096;
    return *handler >= 0 && ioctl(*handler, UFFDIO_API, &api) == 0 && ioctl(*handler, UFFDIO_REGISTER, &range) == 0
               ? page
               : NULL;
}

/* Calls with an envelope that never comes. */
static int hang(void)
{
    int handler = -1;
    void* const page = missing_page(&handler);
    const int device = open(NORMAL, O_RDWR);
    if (page == NULL)
        return report("userfaultfd", -1);
    printf("hanging\n");
    fflush(stdout);
    return report("ioctl", ioctl(device, 9, page));
}

/* The envelope comes when its handler has opened a file and asked the device. */
static void* handle_fault(void* argument)
{
    static char zeros[4096];
    struct uffd_msg message;
    const int handler = *(int*)argument;
    struct uffdio_copy copy = {.src = (uintptr_t)zeros, .len = 4096};
    uint32_t value = 0;
    if (read(handler, &message, sizeof message) != sizeof message)
        return NULL;
    copy.dst = message.arg.pagefault.address & ~(uint64_t)4095;
    close(open("/dev/null", O_RDWR));
    report("handler", get_on(open(NORMAL, O_RDWR), &value));
    ioctl(handler, UFFDIO_COPY, &copy);
    return NULL;
}

static int handled_fault(void)
{
    int handler = -1;
    pthread_t thread;
    void* const page = missing_page(&handler);
    const int device = open(NORMAL, O_RDWR);
    int result = 0;
    if (page == NULL)
        return report("userfaultfd", -1);
    pthread_create(&thread, NULL, handle_fault, &handler);
    result = ioctl(device, 42, page);
    pthread_join(thread, NULL);
    return report("ioctl", result);
}

#ifdef __x86_64__
/* The same call as programs of 32 bits make it. */
static int by_32_bits(void)
{
    unsigned char* const low = mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_32BIT, -1, 0);
    long result = 54; /* ioctl */
    const long device = open(NORMAL, O_RDWR);
    __asm__ volatile("int $0x80" : "+a"(result) : "b"(device), "c"(2L), "d"(low) : "memory");
    errno = (int)-result;
    return report(low[0] == 0 && low[1] == 0 ? "untouched" : "touched", result < 0 ? -1 : 0);
}
#endif

int main(int argc, char** argv)
{
    const char* const verb = argc > 1 ? argv[1] : "";
    uint32_t value = 0;
    if (strcmp(verb, "get") == 0)
        return get(NORMAL);
    if (strcmp(verb, "get-upgrade") == 0)
        return get(UPGRADE);
    if (strcmp(verb, "get-relative") == 0)
        return get("kola_lumo");
    if (strcmp(verb, "get-on") == 0)
        return report("inherited", get_on(atoi(argv[2]), &value));
    if (strcmp(verb, "create-on") == 0)
        return create_instance_on(atoi(argv[2]));
    if (strcmp(verb, "set") == 0)
        return set((uint32_t)strtoul(argv[2], NULL, 0));
    if (strcmp(verb, "ioctl") == 0)
        return numbered_ioctl((unsigned long)strtol(argv[2], NULL, 0));
    if (strcmp(verb, "list-routes") == 0)
        return list_routes(argv[2]);
    if (strcmp(verb, "bad-pointers") == 0)
        return bad_pointers();
    if (strcmp(verb, "path-at-the-end-of-a-page") == 0)
        return path_at_the_end_of_a_page();
    if (strcmp(verb, "dup") == 0)
        return duplicated();
    if (strcmp(verb, "inherit") == 0)
        return inherited(argv[0]);
    if (strcmp(verb, "close-on-exec") == 0)
        return close_on_exec();
    if (strcmp(verb, "threads") == 0)
        return threads();
    if (strcmp(verb, "other-files") == 0)
        return other_files(argv[0]);
    if (strcmp(verb, "endpoint-of-no-bridge") == 0)
        return endpoint_of_no_bridge();
    if (strcmp(verb, "openat2") == 0)
        return by_openat2();
    if (strcmp(verb, "get-at") == 0)
        return get(argv[2]);
    if (strcmp(verb, "create") == 0)
        return create_instance(argc > 2 ? argv[2] : NORMAL);
    if (strcmp(verb, "undumpable") == 0)
        return undumpable();
    if (strcmp(verb, "drop-user") == 0)
        return drop_user();
    if (strcmp(verb, "is-device") == 0)
        return is_device();
    if (strcmp(verb, "hang") == 0)
        return hang();
    if (strcmp(verb, "handled-fault") == 0)
        return handled_fault();
#ifdef __x86_64__
    if (strcmp(verb, "32-bits") == 0)
        return by_32_bits();
#endif
    return 2;
}
