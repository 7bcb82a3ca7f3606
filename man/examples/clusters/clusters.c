/* Sets a cluster with its debug level and its BFD profile, lists all, and removes it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoBridgeClusterList* clusters = NULL;
    if (LUMOZEPH_BridgeClusterSet("east", 1) != 0 ||
        LUMOZEPH_SetBridgeClusterDebug("east", 3) != 0 ||
        LUMOZEPH_BridgeClusterBfdHAProfileSet("east", 1, 500, 3) != 0 ||
        LUMOZEPH_GetBridgeClusters(NULL, &clusters) != 0) {
        perror("set east");
        return 1;
    }
    /* an ident is not necessarily terminated */
    for (int32_t i = 0; i < clusters->count; ++i)
        printf("%.64s\n", clusters->records[i].ident);
    LUMOZEPH_ReleaseBridgeClusters(clusters);
    if (LUMOZEPH_BridgeClusterSet("east", 0) != 0) {
        perror("remove east");
        return 1;
    }
    return 0;
}

/* prints:
 * east
 */
