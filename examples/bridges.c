/*
 * Lists, adds and deletes bridges, and switches them on and off.
 *
 *     bridges list
 *     bridges add|delete KEY VALUE
 *     bridges enable|disable KEY VALUE
 *
 * KEY is a bridge's name or UUID; VALUE is handed to the module as it stands. What the numbers of a bridge mean is the
 * module's: the emulator has the VALUE it was added with at value2, at value3 whether it is enabled, and at value6 the
 * number of its forwarding entries.
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
    fputs("usage: bridges list | add|delete|enable|disable KEY VALUE (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "bridges: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int list(void)
{
    struct LumoBridgeInstanceList* bridges = NULL;
    if (LUMOZEPH_GetBridgeInstances(&bridges) != 0)
        return failed("list", "bridges");
    for (int32_t i = 0; i < bridges->count; ++i) {
        const struct LumoBridgeInstanceInfo* bridge = &bridges->records[i];
        printf("%-24s value %" PRIu32 ", %s, forwarding entries: %" PRIu32 "\n", bridge->name, bridge->value2,
            bridge->value3 != 0 ? "enabled" : "disabled", bridge->value6);
    }
    LUMOZEPH_ReleaseBridgeInstances(bridges);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint32_t value = 0;
    int32_t result = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc != 4 || !parse_number(argv[3], &value))
        return usage();
    if (strcmp(verb, "add") == 0)
        result = LUMOZEPH_BridgeAdd(argv[2], value);
    else if (strcmp(verb, "delete") == 0)
        result = LUMOZEPH_BridgeDel(argv[2], value);
    else if (strcmp(verb, "enable") == 0 && value <= UINT8_MAX)
        result = LUMOZEPH_BridgeEnable(argv[2], (uint8_t)value);
    else if (strcmp(verb, "disable") == 0 && value <= UINT8_MAX)
        result = LUMOZEPH_BridgeDisable(argv[2], (uint8_t)value);
    else
        return usage();
    return result == 0 ? 0 : failed(verb, argv[2]);
}
