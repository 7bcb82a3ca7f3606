/*
 * Shows the DHCP servers that a logical interface (LIF) relays to, or removes them all.
 *
 *     dhcp_relay INSTANCE LIF
 *     dhcp_relay INSTANCE LIF clear
 *
 * There is no way to add a server: LUMOZEPH_ConfigureLifDhcpRelay refuses every address, so that only the empty list,
 * which is a null pointer, can be sent.
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
    fputs("usage: dhcp_relay INSTANCE LIF [clear] (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "dhcp_relay: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

static void print_server(const struct LumoDhcpRelayServer* server)
{
    char text[INET6_ADDRSTRLEN];
    if (server->family == 1)
        puts(inet_ntop(AF_INET, server->address, text, sizeof text));
    else if (server->family == 3)
        puts(inet_ntop(AF_INET6, server->address, text, sizeof text));
    else
        printf("a server of family %" PRIu32 "\n", server->family);
}

static int show(const char* instance, const char* lif)
{
    struct LumoLifInfo* info = NULL;
    if (LUMOZEPH_GetLif(instance, lif, &info) != 0)
        return failed("show", lif);
    printf("servers: %" PRIu32 "\n", info->dhcpRelay.relayCount);
    for (uint32_t i = 0; i < info->dhcpRelay.relayCount && i < 8; ++i)
        print_server(&info->dhcpRelay.servers[i]);
    LUMOZEPH_ReleaseLif(info);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 3)
        return show(argv[1], argv[2]);
    if (argc == 4 && strcmp(argv[3], "clear") == 0)
        return LUMOZEPH_ConfigureLifDhcpRelay(argv[1], argv[2], NULL) == 0 ? 0 : failed("clear", argv[2]);
    return usage();
}
