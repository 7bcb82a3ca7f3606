/*
 * Lists the multicast receivers of a router instance under a value, and adds and deletes local ones.
 *
 *     mcast_receivers INSTANCE VALUE list
 *     mcast_receivers INSTANCE VALUE add|delete TEXT
 *
 * TEXT names the local receiver. The layout of a remote one is the module's: the emulator has its key first and its
 * hardware address at 4.
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
    fputs("usage: mcast_receivers INSTANCE VALUE list | add|delete TEXT (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "mcast_receivers: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int list_local(const char* instance, uint32_t value)
{
    struct LumoLocalRcvrList* receivers = NULL;
    if (LUMOZEPH_GetMRoutingLocalRcvrs(instance, value, &receivers) != 0)
        return failed("list local receivers of", instance);
    for (int32_t i = 0; i < receivers->count; ++i)
        printf("local %s\n", receivers->records[i].text1);
    LUMOZEPH_ReleaseMRoutingLocalRcvrs(receivers);
    return 0;
}

static int list_remote(const char* instance, uint32_t value)
{
    struct LumoVtepTable* table = NULL;
    errno = EOVERFLOW; /* one failure sets no errno: a table that is too large */
    if (LUMOZEPH_GetMRoutingRemoteRcvrs(instance, value, &table) != 0)
        return failed("list remote receivers of", instance);
    for (uint32_t i = 0; i < table->count && i < 2048; ++i) {
        const uint8_t* bytes = table->records[i].bytes;
        uint32_t key = 0;
        memcpy(&key, bytes, sizeof key);
        printf("remote %" PRIu32 " %02x:%02x:%02x:%02x:%02x:%02x\n", key, bytes[4], bytes[5], bytes[6], bytes[7],
            bytes[8], bytes[9]);
    }
    if (table->count == 0)
        free(table->records); /* which the Release function leaves to us */
    LUMOZEPH_ReleaseVTEPTable(table);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 3 ? argv[3] : "";
    uint32_t value = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc < 4 || !parse_number(argv[2], &value))
        return usage();
    if (argc == 4 && strcmp(verb, "list") == 0)
        return list_local(argv[1], value) == 0 ? list_remote(argv[1], value) : 1;
    if (argc == 5 && strcmp(verb, "add") == 0)
        return LUMOZEPH_AddMRoutingLocalRcvrs(argv[1], value, argv[4]) == 0 ? 0 : failed("add", argv[4]);
    if (argc == 5 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelMRoutingLocalRcvrs(argv[1], value, argv[4]) == 0 ? 0 : failed("delete", argv[4]);
    return usage();
}
