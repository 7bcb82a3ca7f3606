/*
 * Lists, sets and deletes the ARP entries and IPv6 neighbours of a router instance.
 *
 *     neighbours INSTANCE list [LIF]
 *     neighbours INSTANCE set LIF ADDRESS MAC
 *     neighbours INSTANCE delete LIF ADDRESS
 *
 * The layout of the tables is the module's. This program reads them as the emulator writes them: entries of 114 bytes,
 * the address first, the LIF at 16, the MAC address as text at 80, at 98 whether it is a proxy entry, and a 1 at 99.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
#include <errno.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: neighbours INSTANCE list [LIF] | set LIF ADDRESS MAC | delete LIF ADDRESS (names: up to 63 bytes)\n",
        stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "neighbours: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

static void print_table(int family, const char* table, size_t size)
{
    char address[INET6_ADDRSTRLEN];
    for (const char* entry = table; table + size - entry >= 114 && entry[99] == 1; entry += 114)
        printf("%-24s %.18s dev %.64s%s\n", inet_ntop(family, entry, address, sizeof address), entry + 80, entry + 16,
            entry[98] != 0 ? " proxy" : "");
}

/* The module does not say how much it wrote: what it leaves must be zero. */
static int list(const char* instance, const char* lif)
{
    const size_t size = 7471104;
    char* tables = calloc(2, size);
    int status = 0;
    if (tables == NULL || LUMOZEPH_GetArps(instance, lif, tables) != 0 ||
        LUMOZEPH_GetArpsv6(instance, lif, tables + size) != 0) {
        status = failed("list", instance);
    } else {
        print_table(AF_INET, tables, size);
        print_table(AF_INET6, tables + size, size);
    }
    free(tables);
    if (status == 0 && (fflush(stdout) != 0 || ferror(stdout)))
        status = failed("write", "to standard output");
    return status;
}

/* Sets the entry, or deletes it if there is no MAC address. */
static int change(const char* instance, const char* lif, const char* text, const char* mac)
{
    uint32_t ipv4 = 0;
    uint64_t ipv6[2];
    int32_t result = 0;
    if (inet_pton(AF_INET, text, &ipv4) == 1)
        result = mac != NULL ? LUMOZEPH_SetArp(ipv4, mac, lif, instance) : LUMOZEPH_DelArp(ipv4, lif, instance);
    else if (inet_pton(AF_INET6, text, ipv6) == 1)
        result = mac != NULL ? LUMOZEPH_SetArpv6(ipv6[0], ipv6[1], mac, lif, instance)
                             : LUMOZEPH_DelArpv6(ipv6[0], ipv6[1], lif, instance);
    else
        return usage();
    return result == 0 ? 0 : failed(mac != NULL ? "set" : "delete", text);
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if ((argc == 3 || argc == 4) && strcmp(verb, "list") == 0)
        return list(argv[1], argc == 4 ? argv[3] : NULL);
    if (argc == 6 && strcmp(verb, "set") == 0 && strlen(argv[5]) == 17 &&
        strspn(argv[5], "0123456789abcdefABCDEF:") == 17)
        return change(argv[1], argv[3], argv[4], argv[5]);
    if (argc == 5 && strcmp(verb, "delete") == 0)
        return change(argv[1], argv[3], argv[4], NULL);
    return usage();
}
