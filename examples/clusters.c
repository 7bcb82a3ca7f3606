/*
 * Lists the bridge clusters and their nodes, or adds or removes a cluster or a node.
 *
 *     clusters list
 *     clusters add KEY [NODE MAC]
 *     clusters remove KEY [NODE]
 *
 * What lies in a node's record after its name is the module's: the emulator has the MAC address there.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <errno.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: clusters list | add KEY [NODE MAC] | remove KEY [NODE] (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "clusters: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* Six bytes from 02:00:00:00:00:01. */
static bool parse_mac(const char* text, uint8_t mac[6])
{
    return strlen(text) == 17 && strspn(text, "0123456789abcdefABCDEF:") == 17 &&
           sscanf(text, "%2hhx:%2hhx:%2hhx:%2hhx:%2hhx:%2hhx", mac, mac + 1, mac + 2, mac + 3, mac + 4, mac + 5) == 6;
}

/* An ident need not end in NUL. */
static void print_node(const struct LumoBridgeClusterNodeInfo* node)
{
    uint8_t mac[6];
    memcpy(mac, (const uint8_t*)node + sizeof node->ident, sizeof mac);
    printf("  %-22.64s %02x:%02x:%02x:%02x:%02x:%02x\n", node->ident, mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
}

static int list_nodes(const char ident[64])
{
    char key[65] = "";
    struct LumoBridgeClusterNodeList* nodes = NULL;
    memcpy(key, ident, 64);
    if (LUMOZEPH_GetBridgeClusterNodes(key, &nodes) != 0)
        return failed("list nodes of", key);
    puts(key);
    for (int32_t i = 0; i < nodes->count; ++i)
        print_node(&nodes->records[i]);
    LUMOZEPH_ReleaseBridgeClusterNodes(nodes);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int list(void)
{
    struct LumoBridgeClusterList* clusters = NULL;
    int status = 0;
    if (LUMOZEPH_GetBridgeClusters(NULL, &clusters) != 0)
        return failed("list", "clusters");
    for (int32_t i = 0; i < clusters->count && status == 0; ++i)
        status = list_nodes(clusters->records[i].ident);
    LUMOZEPH_ReleaseBridgeClusters(clusters);
    return status;
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint8_t mac[6];

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 3 && strcmp(verb, "add") == 0)
        return LUMOZEPH_BridgeClusterSet(argv[2], 1) == 0 ? 0 : failed("add", argv[2]);
    if (argc == 3 && strcmp(verb, "remove") == 0)
        return LUMOZEPH_BridgeClusterSet(argv[2], 0) == 0 ? 0 : failed("remove", argv[2]);
    if (argc == 5 && strcmp(verb, "add") == 0 && parse_mac(argv[4], mac))
        return LUMOZEPH_BridgeClusterNodeSet(argv[2], argv[3], mac, 1) == 0 ? 0 : failed("add", argv[3]);
    if (argc == 4 && strcmp(verb, "remove") == 0)
        return LUMOZEPH_BridgeClusterNodeSet(argv[2], argv[3], NULL, 0) == 0 ? 0 : failed("remove", argv[3]);
    return usage();
}
