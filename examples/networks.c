/*
 * Lists the networks of a bridge, or those of its ports that two numbers select.
 *
 *     networks BRIDGE
 *     networks BRIDGE ports NUMBER16 NUMBER32
 *
 * What the numbers of a record mean is the module's. They are shown as they lie in it.
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
    fputs("usage: networks BRIDGE [ports NUMBER16 NUMBER32] (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "networks: %s %s: %s%s\n", what, name, strerror(error), hint);
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

/* Both lists are asked for with two texts, of which the first is not sent. */
static int list_networks(const char* bridge)
{
    struct LumoBridgeNetworkList* networks = NULL;
    if (LUMOZEPH_GetBridgeNetworks(bridge, bridge, &networks) != 0)
        return failed("list networks of", bridge);
    printf("networks: %" PRId32 "\n", networks->count);
    for (int32_t i = 0; i < networks->count; ++i) {
        const struct LumoBridgeNetworkInfo* network = &networks->records[i];
        printf("%" PRIu64 " %" PRIu32 " %d %" PRIu32 " %d %" PRIu32 " %" PRIu32 " %d\n", network->value1,
            network->value2, network->value3, network->value4, network->value5, network->value6, network->value7,
            network->value8);
    }
    LUMOZEPH_ReleaseBridgeNetworks(networks);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int list_ports(const char* bridge, uint16_t number16, uint32_t number32)
{
    struct LumoBridgePortList* ports = NULL;
    if (LUMOZEPH_GetBridgePorts(bridge, bridge, number16, number32, &ports) != 0)
        return failed("list ports of", bridge);
    printf("ports: %" PRId32 "\n", ports->count);
    for (int32_t i = 0; i < ports->count; ++i) {
        const struct LumoBridgePortInfo* port = &ports->records[i];
        printf("%" PRIu64 " %" PRIu32 " %d %" PRIu32 "\n", port->value1, port->value2, port->value3, port->value4);
    }
    LUMOZEPH_ReleaseBridgePorts(ports);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    uint32_t numbers[2] = {0, 0};

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2)
        return list_networks(argv[1]);
    if (argc == 5 && strcmp(argv[2], "ports") == 0 && parse_number(argv[3], &numbers[0]) && numbers[0] <= UINT16_MAX &&
        parse_number(argv[4], &numbers[1]))
        return list_ports(argv[1], (uint16_t)numbers[0], numbers[1]);
    return usage();
}
