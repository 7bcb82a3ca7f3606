/*
 * Answers in the place of a device, in programs that are linked with this file: a module that fills every reply with
 * the letter A, so that counts are past their tables and texts do not end, and that claims to have written even more.
 */
#define _LARGEFILE64_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <lumozeph.h>
#include <stdarg.h>
#include <string.h>
#include <sys/ioctl.h>

enum
{
    all_lifs = 21,
    one_lif = 22,
    lif_stats = 23,
    all_routes = 36,
    arps = 40,
    networks = 63,
    ports = 64,
    clusters = 89,
    cluster_nodes = 92,
    endpoints = 95,
    bfd_sessions = 96,
    routes6 = 114,
    route6_count = 115,
    neighbours = 116,
    local_receivers = 128,
    remote_receivers = 129,
    lif_policies = 140
};

/* A list has one record. */
static uint32_t reply_size(unsigned long command, uint32_t room)
{
    switch (command) {
    case all_lifs:
        return sizeof(struct LumoLifInfo);
    case all_routes:
    case lif_policies:
        return sizeof(struct LumoRouteInfo);
    case networks:
        return sizeof(struct LumoBridgeNetworkInfo);
    case ports:
        return sizeof(struct LumoBridgePortInfo);
    case clusters:
        return sizeof(struct LumoBridgeClusterInfo);
    case cluster_nodes:
        return sizeof(struct LumoBridgeClusterNodeInfo);
    case endpoints:
        return sizeof(struct LumoBridgeEndpointInfo);
    case bfd_sessions:
        return sizeof(struct LumoBridgeBfdSessionInfo);
    case local_receivers:
        return sizeof(struct LumoLocalRcvrInfo);
    case routes6:
        return 776;
    default:
        return room;
    }
}

static void put_number(uint8_t* at, uint32_t number)
{
    memcpy(at, &number, sizeof number);
}

/* The first counter grows; the second is zeroed before the third read. */
static void count(uint8_t* record)
{
    static uint32_t reads;
    static const uint8_t second[] = {7, 12, 3};
    memset(record, 0, sizeof(struct LumoStats));
    put_number(record, 1);
    put_number(record + 4, 1000 * reads);
    put_number(record + 12, second[reads % 3]);
    ++reads;
}

/* An IPv4 server, an IPv6 server, and six of a family that is neither. */
static void put_servers(uint8_t* record)
{
    static const uint8_t ipv4[] = {10, 0, 0, 1};
    static const uint8_t ipv6[16] = {0x20, 0x01, 0x0d, 0xb8, [15] = 1};
    uint8_t* server = record + 166;
    memcpy(server, ipv4, sizeof ipv4);
    put_number(server + 16, 1);
    memcpy(server + 20, ipv6, sizeof ipv6);
    put_number(server + 36, 3);
}

int open64(const char* path, int flags, ...)
{
    (void)path; /* the examples open nothing else */
    return open("/dev/null", flags);
}

int ioctl(int device, unsigned long command, ...)
{
    struct LumoEnvelope* envelope = NULL;
    uint8_t* reply = NULL;
    uint32_t size = 0;
    va_list arguments;
    (void)device;
    va_start(arguments, command);
    envelope = va_arg(arguments, struct LumoEnvelope*);
    va_end(arguments);

    /* The routes are counted and gone before they are listed. */
    if (command == routes6 && strcmp(envelope->inPtr, "gone") == 0) {
        errno = ENODEV;
        return -1;
    }
    reply = envelope->outPtr;
    size = reply_size(command, envelope->outLen);
    if (size > 0)
        memset(reply, 'A', size);
    if (command == one_lif)
        put_servers(reply);
    else if (command == lif_stats)
        count(reply);
    else if (command == arps || command == neighbours)
        memset(reply, 1, size);
    else if (command == route6_count || command == remote_receivers)
        put_number(reply, 1);
    envelope->outLen = size < envelope->outLen ? size : INT32_MAX;
    return 0;
}
