/*
 * Lists the logical interfaces (LIFs) of a router instance, or adds or deletes one.
 *
 *     lifs INSTANCE list
 *     lifs INSTANCE add NAME
 *     lifs INSTANCE delete NAME
 *
 * A LIF that exists loses its address when it is added again. That its first flag says whether it is up, and lifValue4
 * the MTU that it tells IPv6 hosts, is how the emulator has it.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: lifs INSTANCE list | add NAME | delete NAME (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "lifs: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* 10.0.0.0/24, or 10.0.0.0/255.0.255.0 if the mask is no prefix. */
static void print_network(uint32_t address, uint32_t mask)
{
    char text[INET_ADDRSTRLEN];
    uint32_t bits = ntohl(mask);
    int length = 0;
    for (; (bits & 0x80000000U) != 0; bits <<= 1)
        ++length;
    printf(" %s/", inet_ntop(AF_INET, &address, text, sizeof text));
    if (bits == 0)
        printf("%d", length);
    else
        printf("%s", inet_ntop(AF_INET, &mask, text, sizeof text));
}

static void print_lif(const struct LumoLifInfo* lif)
{
    const uint8_t* mac = lif->lifMac;
    printf("%-16s %-4s %02x:%02x:%02x:%02x:%02x:%02x mtu %" PRIu32, lif->lifName, lif->lifFlags[0] != 0 ? "up" : "down",
        mac[0], mac[1], mac[2], mac[3], mac[4], mac[5], lif->lifValue4);
    if (lif->ipAddr != 0)
        print_network(lif->ipAddr, lif->ipMask);
    for (uint32_t i = 0; i < lif->ipv6Count && i < 10; ++i) {
        const struct LumoLifIpv6Addr* ipv6 = &lif->ipv6Addrs[i];
        char text[INET6_ADDRSTRLEN];
        printf(" %s/%" PRIu32, inet_ntop(AF_INET6, ipv6->address, text, sizeof text), ipv6->prefixLen);
    }
    putchar('\n');
}

static int list(const char* instance)
{
    struct LumoLifList* lifs = NULL;
    if (LUMOZEPH_GetLifs(instance, &lifs) != 0)
        return failed("list", instance);
    for (int32_t i = 0; i < lifs->count; ++i)
        print_lif(&lifs->records[i]);
    LUMOZEPH_ReleaseLifs(lifs);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 3 && strcmp(verb, "list") == 0)
        return list(argv[1]);
    if (argc == 4 && strcmp(verb, "add") == 0)
        return LUMOZEPH_SetLif(argv[3], "", 0, 0, 0, 0, 0, 0, argv[1], NULL) == 0 ? 0 : failed("add", argv[3]);
    if (argc == 4 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelLif(argv[3], "", argv[1]) == 0 ? 0 : failed("delete", argv[3]);
    return usage();
}
