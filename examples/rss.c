/*
 * Shows how software receive-side scaling (RSS) spreads a target's traffic, or spreads it over so many queues in turn.
 *
 *     rss TARGET show
 *     rss TARGET spread QUEUES
 *
 * TARGET is a name that the module knows. That an entry of the indirection table is the number of a queue is what this
 * program assumes.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <ctype.h>
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: rss TARGET show | spread QUEUES (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "rss: %s %s: %s%s\n", what, name, strerror(error), hint);
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

/* Entries past the count are undefined. */
static void print_stats(const struct LumoRssStats* stats)
{
    printf("ENTRY WORD COUNTER1 COUNTER2 COUNTER3\n");
    for (uint32_t i = 0; i < stats->rssEntryCount && i < 16; ++i)
        printf("%5" PRIu32 " %4" PRIu32 " %8" PRIu64 " %8" PRIu64 " %8" PRIu64 "\n", i, stats->rssWord[i],
            stats->rssCounter1[i], stats->rssCounter2[i], stats->rssCounter3[i]);
}

static int show(const char* target)
{
    struct LumoRssStats* stats = NULL;
    uint8_t entries[128];
    if (LUMOZEPH_SoftRSSGetIndTable(target, entries) != 0)
        return failed("read table of", target);
    if (LUMOZEPH_SoftRSSGetStats(target, &stats) != 0)
        return failed("read statistics of", target);
    for (int i = 0; i < 128; ++i)
        printf("%d%c", entries[i], i % 32 == 31 ? '\n' : ' ');
    print_stats(stats);
    free(stats); /* there is no Release function for it */
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int spread(const char* target, uint32_t queues)
{
    struct LumoRssIndTable table = {{0}, sizeof table.entries};
    for (uint32_t i = 0; i < sizeof table.entries; ++i)
        table.entries[i] = (uint8_t)(i % queues);
    return LUMOZEPH_SoftRSSTableSet(target, &table) == 0 ? 0 : failed("set table of", target);
}

int main(int argc, char** argv)
{
    uint32_t queues = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 3 && strcmp(argv[2], "show") == 0)
        return show(argv[1]);
    if (argc == 4 && strcmp(argv[2], "spread") == 0 && parse_number(argv[3], &queues) && queues > 0 && queues <= 128)
        return spread(argv[1], queues);
    return usage();
}
