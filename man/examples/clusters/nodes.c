/* Sets a node of a cluster, lists its nodes, and flushes it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    const uint8_t mac[LUMOZEPH_MAC_SIZE] = {0x02, 0, 0, 0, 0, 0x01};
    LumoBridgeClusterNodeList* nodes = NULL;
    if (LUMOZEPH_BridgeClusterSet("east", 1) != 0 ||
        LUMOZEPH_BridgeClusterNodeSet("east", "node-1", mac, 1) != 0 ||
        LUMOZEPH_GetBridgeClusterNodes("east", &nodes) != 0) {
        perror("set node-1 of east");
        return 1;
    }
    for (int32_t i = 0; i < nodes->count; ++i)
        printf("%.64s\n", nodes->records[i].ident);
    LUMOZEPH_ReleaseBridgeClusterNodes(nodes);
    if (LUMOZEPH_FlushBridgeCluster("east", 1) != 0) {
        perror("flush east");
        return 1;
    }
    return 0;
}

/* prints:
 * node-1
 */
