/* Sets the local transport node, reads it, and removes it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    const uint8_t block[LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE] = {0};
    static char node[LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE];
    if (LUMOZEPH_BridgeLocalTransportNodeSet(
            "node-1", "east", "vtep", 0, block, 1) != 0 ||
        LUMOZEPH_BridgeGetLocalTransportNode(node, 0) != 0) {
        perror("set the local transport node");
        return 1;
    }
    /* in the emulator's layout: the first text */
    printf("%.63s\n", node);
    if (LUMOZEPH_BridgeLocalTransportNodeSet(
            "node-1", "east", "vtep", 0, block, 0) != 0) {
        perror("remove the local transport node");
        return 1;
    }
    return 0;
}

/* prints:
 * node-1
 */
