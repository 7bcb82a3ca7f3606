/*
 * Lists, sets and clears the forwarding entries of one network of a bridge.
 *
 *     fdb BRIDGE SELECTOR1 SELECTOR2 list
 *     fdb BRIDGE SELECTOR1 SELECTOR2 set MAC VALUE
 *     fdb BRIDGE SELECTOR1 SELECTOR2 clear
 *
 * The two selectors choose the network. VALUE is handed to the module as it stands; the emulator has it at value4.
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
    fputs("usage: fdb BRIDGE SELECTOR1 SELECTOR2 list | set MAC VALUE | clear (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "fdb: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int list(const char* bridge, uint32_t selector1, uint32_t selector2)
{
    struct LumoBridgeFdbList* entries = NULL;
    if (selector1 > UINT16_MAX)
        return usage();
    if (LUMOZEPH_GetBridgeFdbEntries(bridge, (uint16_t)selector1, selector2, &entries) != 0)
        return failed("list", bridge);
    for (int32_t i = 0; i < entries->count; ++i) {
        const struct LumoBridgeFdbEntry* entry = &entries->records[i];
        const uint8_t* mac = entry->mac;
        printf("%02x:%02x:%02x:%02x:%02x:%02x %" PRIu32 "\n", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5],
            entry->value4);
    }
    LUMOZEPH_ReleaseBridgeFdbEntries(entries);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 4 ? argv[4] : "";
    uint32_t selector1 = 0;
    uint32_t selector2 = 0;
    uint32_t value = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc < 5 || !parse_number(argv[2], &selector1) || !parse_number(argv[3], &selector2))
        return usage();
    if (argc == 5 && strcmp(verb, "list") == 0)
        return list(argv[1], selector1, selector2);
    if (argc == 7 && strcmp(verb, "set") == 0 && strlen(argv[5]) == 17 &&
        strspn(argv[5], "0123456789abcdefABCDEF:") == 17 && parse_number(argv[6], &value))
        return LUMOZEPH_BridgeSetFdbEntry(argv[1], argv[5], selector1, selector2, value, 0) == 0
                   ? 0
                   : failed("set", argv[5]);
    if (argc == 5 && strcmp(verb, "clear") == 0)
        return LUMOZEPH_BridgeClearFdbTable(argv[1], selector1, selector2) == 0 ? 0 : failed("clear", argv[1]);
    return usage();
}
