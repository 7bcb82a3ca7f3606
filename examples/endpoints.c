/*
 * Lists, adds and deletes bridge endpoints.
 *
 *     endpoints list
 *     endpoints add KEY NAME VALUE
 *     endpoints delete KEY NAME
 *
 * VALUE is handed to the module as it stands. What lies in an endpoint's block is the module's: the emulator has the
 * name there. The list takes 13 MB of memory, however few endpoints there are.
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
    fputs("usage: endpoints list | add KEY NAME VALUE | delete KEY NAME (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "endpoints: %s %s: %s%s\n", what, name, strerror(error), hint);
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

/* Neither text need end in NUL. */
static int list(void)
{
    struct LumoBridgeEndpointList* endpoints = NULL;
    if (LUMOZEPH_GetBridgeEndpoints(NULL, &endpoints) != 0)
        return failed("list", "endpoints");
    for (int32_t i = 0; i < endpoints->count; ++i) {
        const struct LumoBridgeEndpointInfo* endpoint = &endpoints->records[i];
        printf("%-24.64s %-24.64s %" PRIu32 "\n", endpoint->ident, (const char*)endpoint->block, endpoint->value3);
    }
    LUMOZEPH_ReleaseBridgeEndpoints(endpoints);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint32_t value = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 5 && strcmp(verb, "add") == 0 && parse_number(argv[4], &value))
        return LUMOZEPH_AddBridgeEndpoint(argv[2], "", argv[3], value, 0, "", 0, 0, "", 0) == 0
                   ? 0
                   : failed("add", argv[2]);
    if (argc == 4 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelBridgeEndpoint(argv[2], argv[3]) == 0 ? 0 : failed("delete", argv[2]);
    return usage();
}
