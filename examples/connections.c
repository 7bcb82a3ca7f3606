/*
 * Lists, plumbs and unplumbs port connections.
 *
 *     connections list
 *     connections plumb NAME TEXT
 *     connections unplumb NAME
 *     connections mac NAME
 *
 * The layout of the list is the module's. This program reads it as the emulator writes it: records of 152 bytes,
 * the name first and the text of at most 15 bytes at 64.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: connections list | plumb NAME TEXT | unplumb NAME | mac NAME (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "connections: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* The module does not say how much it wrote: what it leaves must be zero. */
static int list(void)
{
    const size_t size = 131072;
    char* table = calloc(1, size);
    if (table == NULL || LUMOZEPH_GetConnections(table) != 0) {
        const int status = failed("list", "connections");
        free(table);
        return status;
    }
    for (const char* record = table; table + size - record >= 152 && record[0] != '\0'; record += 152)
        printf("%-24.64s %.16s\n", record, record + 64);
    free(table);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int unplumb(const char* name)
{
    uint32_t check = 0;
    if (LUMOZEPH_UnPlumbLumoConnection(name) != 0)
        return failed("unplumb", name);
    if (LUMOZEPH_LUMODevCheckConnDeletion(&check) != 0)
        return failed("check deletion of", name);
    printf("deletion check: %" PRIu32 "\n", check);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int mac(const char* name)
{
    uint8_t bytes[6] = {0};
    if (LUMOZEPH_GetVMAC(name, bytes) != 0)
        return failed("read MAC address of", name);
    printf("%02x:%02x:%02x:%02x:%02x:%02x\n", bytes[0], bytes[1], bytes[2], bytes[3], bytes[4], bytes[5]);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 4 && strcmp(verb, "plumb") == 0 && strlen(argv[3]) < 16)
        return LUMOZEPH_PlumbLumoConnection(argv[2], argv[3], 0, NULL, NULL, NULL) == 0 ? 0 : failed("plumb", argv[2]);
    if (argc == 3 && strcmp(verb, "unplumb") == 0)
        return unplumb(argv[2]);
    if (argc == 3 && strcmp(verb, "mac") == 0)
        return mac(argv[2]);
    return usage();
}
