/*
 * Keeps the device busy, to find answers that are lost, mixed or stuck.
 *
 *   busy SECONDS SLOT   eight threads: each creates an instance of a name of its own, reads it back and compares
 *   garbage COUNT       calls with random numbers, lengths and pointers; another thread changes what they point at
 *   slow OPENS          one process resolves over many routes, another opens a file for writing; prints the means of
 *                       both in microseconds
 */
#define _GNU_SOURCE
#include "device.h"

#include <arpa/inet.h>
#include <errno.h>
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

enum
{
    get_instance = 1,
    set_instance = 2,
    set_lif = 19,
    set_route = 34,
    resolve_route = 37,
    record_size = 776,
    threads = 8,
    area_size = 65536
};

static time_t end;
static unsigned char* area;
static volatile int over;
static const char* slot;

static int call(unsigned long number, const void* in, uint32_t in_len, void* out, uint32_t out_len)
{
    struct envelope envelope = {in_len, in, out_len, out};
    const int device = open(NORMAL, O_RDWR | O_CLOEXEC);
    const int result = device < 0 ? -1 : ioctl(device, number, &envelope);
    close(device);
    return result < 0 ? -1 : (int)envelope.out_len;
}

static void* keep_busy(void* argument)
{
    unsigned char request[record_size] = {0};
    char reply[4096];
    char own[64];
    snprintf(own, sizeof own, "%s-%d", slot, *(const int*)argument);
    memcpy(request, own, strlen(own));
    if (call(set_instance, request, sizeof request, NULL, 0) < 0)
        return "set";
    do {
        memset(reply, 0, sizeof reply);
        if (call(get_instance, request, sizeof request, reply, sizeof reply) < 0)
            return "get";
        if (strcmp(reply, own) != 0)
            return "another's answer";
    } while (time(NULL) < end);
    return NULL;
}

static int busy(int seconds)
{
    pthread_t thread[threads];
    int number[threads];
    void* failure = NULL;
    int failures = 0;
    int i = 0;
    end = time(NULL) + seconds;
    for (i = 0; i < threads; ++i) {
        number[i] = i;
        pthread_create(&thread[i], NULL, keep_busy, &number[i]);
    }
    for (i = 0; i < threads; ++i) {
        pthread_join(thread[i], &failure);
        if (failure != NULL)
            puts(failure);
        failures += failure != NULL;
    }
    return failures;
}

static uint32_t next(uint32_t* seed)
{
    *seed = *seed * 1664525U + 1013904223U;
    return *seed >> 8;
}

static void* change(void* argument)
{
    uint32_t seed = 7;
    (void)argument;
    while (!over)
        area[next(&seed) % area_size] = (unsigned char)next(&seed);
    return NULL;
}

static uint32_t length(uint32_t* seed)
{
    switch (next(seed) % 6) {
    case 0:
        return record_size;
    case 1:
        return 4;
    case 2:
        return 0;
    case 3:
        return next(seed) << 8;
    default:
        return next(seed) % area_size;
    }
}

static void* pointer(uint32_t* seed)
{
    const uintptr_t anywhere = (uintptr_t)next(seed) << (next(seed) % 40);
    return next(seed) % 8 == 0 ? (void*)anywhere : area + next(seed) % (area_size + 4096);
}

static int garbage(long count)
{
    pthread_t changing;
    uint32_t seed = 1;
    const int device = open(NORMAL, O_RDWR);
    area = mmap(NULL, area_size + 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    mprotect(area + area_size, 4096, PROT_NONE);
    pthread_create(&changing, NULL, change, NULL);
    for (; count > 0; --count) {
        struct envelope envelope = {length(&seed), pointer(&seed), length(&seed), pointer(&seed)};
        /* Replies may overwrite whatever is in the area, and nothing else. */
        if ((unsigned char*)envelope.out < area || (unsigned char*)envelope.out > area + area_size)
            envelope.out = NULL;
        ioctl(device, next(&seed) % 161, next(&seed) % 8 == 0 ? pointer(&seed) : &envelope);
    }
    over = 1;
    pthread_join(changing, NULL);
    return 0;
}

static void set_routes(void)
{
    unsigned char request[record_size] = {0};
    int i = 0;
    memcpy(request, "slow", 4);
    call(set_instance, request, sizeof request, NULL, 0);
    for (i = 0; i < 2000; ++i) {
        snprintf((char*)request + 192, 64, "lif-%d", i);
        call(set_lif, request, sizeof request, NULL, 0);
    }
    memset(request + 192, 0, 64);
    for (i = 0; i < 8000; ++i) {
        const uint32_t destination = htonl(0x0a000000U + (uint32_t)i * 256U);
        const uint32_t mask = htonl(0xffffff00U);
        memcpy(request + 64, &destination, sizeof destination);
        memcpy(request + 68, &mask, sizeof mask);
        snprintf((char*)request + 84, 64, "lif-%d", i % 2000);
        call(set_route, request, sizeof request, NULL, 0);
    }
}

static double microseconds(void)
{
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (double)now.tv_sec * 1e6 + (double)now.tv_nsec / 1e3;
}

static int slow(int opens)
{
    unsigned char request[record_size] = "slow";
    unsigned char reply[record_size];
    volatile struct counter
    {
        long calls;
        double time;
    }* const resolved = mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    double begin = 0;
    double opened = 0;
    pid_t child = 0;
    int i = 0;
    set_routes();
    child = fork();
    while (child == 0) {
        begin = microseconds();
        call(resolve_route, request, sizeof request, reply, sizeof reply);
        resolved->time += microseconds() - begin;
        ++resolved->calls;
    }
    while (resolved->calls == 0)
        usleep(1000);
    for (i = 0; i < opens; ++i) {
        begin = microseconds();
        close(open("/dev/null", O_RDWR));
        opened += microseconds() - begin;
        usleep(1000);
    }
    printf("%.0f %.0f\n", resolved->time / (double)resolved->calls, opened / opens);
    kill(child, SIGKILL);
    return 0;
}

int main(int argc, char** argv)
{
    slot = argc == 4 ? argv[3] : "";
    if (argc == 4 && strcmp(argv[1], "busy") == 0)
        return busy(atoi(argv[2]));
    if (argc == 3 && strcmp(argv[1], "garbage") == 0)
        return garbage(atol(argv[2]));
    if (argc == 3 && strcmp(argv[1], "slow") == 0)
        return slow(atoi(argv[2]));
    return 2;
}
