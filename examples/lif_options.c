/*
 * Brings a logical interface (LIF) up with its addresses and the MTU that it tells IPv6 hosts, or takes it down.
 *
 *     lif_options INSTANCE LIF up MTU ADDRESS/LENGTH...
 *     lif_options INSTANCE LIF down
 *
 * A LIF has one IPv4 address, of which the last one stands, and up to ten IPv6 addresses.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
#include <ctype.h>
#include <errno.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

struct address
{
    bool is_ipv6;
    uint32_t ipv4;
    uint64_t ipv6[2];
    uint32_t length;
};

static int usage(void)
{
    fputs("usage: lif_options INSTANCE LIF up MTU ADDRESS/LENGTH... | down (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "lif_options: %s %s: %s%s\n", what, name, strerror(error), hint);
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

/* inet_pton leaves both kinds of addresses as the library takes them. */
static bool parse_address(const char* text, struct address* address)
{
    char host[INET6_ADDRSTRLEN];
    char digits[4];
    char rest = '\0';
    if (sscanf(text, "%45[^/]/%3[0-9]%c", host, digits, &rest) != 2)
        return false;
    address->length = (uint32_t)strtoul(digits, NULL, 10);
    address->is_ipv6 = inet_pton(AF_INET6, host, address->ipv6) == 1;
    if (address->is_ipv6)
        return address->length <= 128;
    return inet_pton(AF_INET, host, &address->ipv4) == 1 && address->length <= 32;
}

static int32_t set_address(const char* instance, const char* lif, const struct address* to)
{
    if (to->is_ipv6)
        return LUMOZEPH_SetLifIpv6(instance, lif, to->ipv6[0], to->ipv6[1], to->length);
    return LUMOZEPH_SetLifIp(instance, lif, to->ipv4, to->length == 0 ? 0 : htonl(UINT32_MAX << (32 - to->length)));
}

static int bring_up(const char* instance, const char* lif, uint32_t mtu, int count, char** texts)
{
    struct address address;
    for (int i = 0; i < count; ++i) /* before anything is changed */
        if (!parse_address(texts[i], &address))
            return usage();
    for (int i = 0; i < count; ++i)
        if (parse_address(texts[i], &address) && set_address(instance, lif, &address) != 0)
            return failed("set address of", lif);
    if (LUMOZEPH_RAMTUSetv6(instance, lif, mtu) != 0)
        return failed("set MTU of", lif);
    return LUMOZEPH_EnableLif(instance, lif) == 0 ? 0 : failed("bring up", lif);
}

int main(int argc, char** argv)
{
    uint32_t mtu = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc > 5 && strcmp(argv[3], "up") == 0 && parse_number(argv[4], &mtu))
        return bring_up(argv[1], argv[2], mtu, argc - 5, argv + 5);
    if (argc == 4 && strcmp(argv[3], "down") == 0)
        return LUMOZEPH_DisableLif(argv[1], argv[2]) == 0 ? 0 : failed("take down", argv[2]);
    return usage();
}
