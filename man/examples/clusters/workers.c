/* Reads all clusters and all nodes into lists that the program has allocated itself. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    LumoBridgeClusterList* clusters = calloc(1, sizeof *clusters);
    if (clusters == NULL ||
        LUMOZEPHGetBridgeClusters(NULL, clusters) != 0) {
        perror("clusters");
        return 1;
    }
    LumoBridgeClusterNodeList* nodes = calloc(1, sizeof *nodes);
    if (nodes == NULL ||
        LUMOZEPHGetBridgeClusterNodes(NULL, nodes) != 0) {
        perror("nodes");
        LUMOZEPH_ReleaseBridgeClusters(clusters);
        return 1;
    }
    printf("%" PRId32 " clusters, %" PRId32 " nodes\n", clusters->count,
        nodes->count);
    LUMOZEPH_ReleaseBridgeClusters(clusters);
    LUMOZEPH_ReleaseBridgeClusterNodes(nodes);
    return 0;
}

/* prints:
 * 0 clusters, 0 nodes
 */
