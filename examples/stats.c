/*
 * Shows by how much the counters of a logical interface (LIF) grow.
 *
 *     stats INSTANCE LIF MILLISECONDS COUNT
 *
 * Reads them every so many milliseconds, and prints COUNT times what has changed since the last time.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#define _POSIX_C_SOURCE 200809L
#include <ctype.h>
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

static int usage(void)
{
    fputs("usage: stats INSTANCE LIF MILLISECONDS COUNT (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "stats: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* A number in decimal. */
static bool parse_number(const char* text, uint32_t* value)
{
    char* end = NULL;
    const unsigned long long number = strtoull(text, &end, 10);
    *value = (uint32_t)number;
    return isdigit((unsigned char)text[0]) && *end == '\0' && number <= UINT32_MAX;
}

static int32_t read_counters(const char* instance, const char* lif, uint64_t counters[100])
{
    struct LumoStats* stats = NULL;
    if (LUMOZEPH_GetLifStats(instance, lif, &stats) != 0)
        return -1;
    memcpy(counters, stats->counters, sizeof stats->counters);
    return LUMOZEPH_ReleaseStats(stats);
}

/* A counter that is less than before has been zeroed in between. */
static void print_growth(const uint64_t before[100], const uint64_t now[100])
{
    int changed = 0;
    for (int i = 0; i < 100; ++i)
        if (now[i] != before[i])
            printf("%scounter %d +%" PRIu64, changed++ > 0 ? ", " : "", i,
                now[i] > before[i] ? now[i] - before[i] : now[i]);
    puts(changed > 0 ? "" : "no change");
}

/* Waits from one point in time to the next, so that the time that reads take does not add up. */
static int watch(const char* instance, const char* lif, uint32_t milliseconds, uint32_t count)
{
    uint64_t counters[2][100];
    struct timespec next;
    if (read_counters(instance, lif, counters[0]) != 0)
        return failed("read counters of", lif);
    clock_gettime(CLOCK_MONOTONIC, &next);
    for (uint32_t i = 0; i < count; ++i) {
        next.tv_sec += milliseconds / 1000;
        next.tv_nsec += (long)(milliseconds % 1000) * 1000000;
        next.tv_sec += next.tv_nsec / 1000000000;
        next.tv_nsec %= 1000000000;
        while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &next, NULL) == EINTR)
            continue;
        if (read_counters(instance, lif, counters[(i + 1) % 2]) != 0)
            return failed("read counters of", lif);
        print_growth(counters[i % 2], counters[(i + 1) % 2]);
        if (fflush(stdout) != 0)
            return failed("write", "to standard output");
    }
    return 0;
}

int main(int argc, char** argv)
{
    uint32_t milliseconds = 0;
    uint32_t count = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 5 && parse_number(argv[3], &milliseconds) && parse_number(argv[4], &count))
        return watch(argv[1], argv[2], milliseconds, count);
    return usage();
}
