/*
 * Lists, adds and deletes the IPv6 routes of a router instance.
 *
 *     routes6 INSTANCE list
 *     routes6 INSTANCE add|delete PREFIX/LENGTH GATEWAY [LIF]
 *
 * Routes arrive as entries of 776 bytes, which the module lays out. This program reads them as the emulator has them:
 * as the requests that add them.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
#include <errno.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: routes6 INSTANCE list | add|delete PREFIX/LENGTH GATEWAY [LIF] (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "routes6: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* The sixteen bytes of the address as they are, and the length. */
static bool parse_network(const char* text, uint64_t address[2], uint32_t* length)
{
    char host[INET6_ADDRSTRLEN];
    char digits[4];
    char rest = '\0';
    if (sscanf(text, "%45[^/]/%3[0-9]%c", host, digits, &rest) != 2)
        return false;
    *length = (uint32_t)strtoul(digits, NULL, 10);
    return inet_pton(AF_INET6, host, address) == 1 && *length <= 128;
}

static void print_route(const char* entry)
{
    char prefix[INET6_ADDRSTRLEN];
    char gateway[INET6_ADDRSTRLEN];
    inet_ntop(AF_INET6, entry + 68, prefix, sizeof prefix);
    inet_ntop(AF_INET6, entry + 101, gateway, sizeof gateway);
    printf("%s/%d via %s", prefix, (unsigned char)entry[84], gateway);
    if (entry[117] != '\0')
        printf(" dev %.64s", entry + 117);
    putchar('\n');
}

static int list(const char* instance)
{
    void* block = NULL;
    uint32_t count = 0;
    if (LUMOZEPH_GetRoutesv6(instance, &block, &count) != 0) {
        /* Whatever block is now, there is nothing in it, and nothing to free. */
        if (errno != ENOMEM)
            return failed("list", instance);
        fprintf(stderr, "routes6: list %s: %s (or no such instance, no module, too many routes)\n", instance,
            strerror(ENOMEM));
        return 1;
    }
    for (uint32_t i = 0; i < count && i < 8000; ++i) /* for more, the block need not have room */
        print_route((const char*)block + (size_t)i * 776);
    free(block);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";
    uint64_t dest[2];
    uint64_t gateway[2];
    uint32_t length = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 3 && strcmp(verb, "list") == 0)
        return list(argv[1]);
    if (argc < 5 || argc > 6 || (strcmp(verb, "add") != 0 && strcmp(verb, "delete") != 0) ||
        !parse_network(argv[3], dest, &length) || inet_pton(AF_INET6, argv[4], gateway) != 1)
        return usage();
    if ((strcmp(verb, "add") == 0 ? LUMOZEPH_SetRoutev6 : LUMOZEPH_DelRoutev6)(
            dest[0], dest[1], length, gateway[0], gateway[1], argc > 5 ? argv[5] : NULL, argv[1]) != 0)
        return failed(verb, argv[3]);
    return 0;
}
