/*
 * Attaches a router instance to its control plane, or sets or shows the state of their synchronisation.
 *
 *     control_plane INSTANCE attach ADDRESS VALUE
 *     control_plane INSTANCE state STATE
 *     control_plane INSTANCE show
 *
 * VALUE is what the module is to activate its connection with, and STATE is handed to it as it stands. What the numbers
 * in the synchronisation state mean is the module's: the emulator has the three in value2 to value4 of the first entry.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
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
    fputs("usage: control_plane INSTANCE attach ADDRESS VALUE | state STATE | show (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "control_plane: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int attach(const char* instance, uint32_t address, uint32_t value)
{
    if (LUMOZEPH_SetCPIp(instance, address) != 0)
        return failed("set control plane of", instance);
    return LUMOZEPH_CPActivate(value) == 0 ? 0 : failed("activate control plane for", instance);
}

static int show(const char* instance)
{
    struct LumoCPSyncState* state = NULL;
    if (LUMOZEPH_GetLumoInstanceCPSyncState(instance, &state) != 0)
        return failed("show", instance);
    for (int i = 0; i < 5; ++i) {
        const struct LumoCPSyncStateEntry* entry = &state->entries[i];
        const uint32_t address = entry->value3;
        char text[INET_ADDRSTRLEN];
        printf("entry %d: state %" PRIu32 ", address %s, activated with %" PRIu32 "\n", i, entry->value2,
            inet_ntop(AF_INET, &address, text, sizeof text), entry->value4);
    }
    LUMOZEPH_ReleaseStats(state);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";
    uint32_t address = 0;
    uint32_t value = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 5 && strcmp(verb, "attach") == 0 && inet_pton(AF_INET, argv[3], &address) == 1 &&
        parse_number(argv[4], &value))
        return attach(argv[1], address, value);
    if (argc == 4 && strcmp(verb, "state") == 0 && parse_number(argv[3], &value))
        return LUMOZEPH_SetLumoInstanceCPSyncState(argv[1], value) == 0 ? 0 : failed("set state of", argv[1]);
    if (argc == 3 && strcmp(verb, "show") == 0)
        return show(argv[1]);
    return usage();
}
