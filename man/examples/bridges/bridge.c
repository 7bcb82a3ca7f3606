/* Creates a bridge, reads it back, and removes it. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoBridgeInstanceInfo* bridge = NULL;
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0 ||
        LUMOZEPH_GetBridgeInstance("br0", &bridge) != 0) {
        perror("create br0");
        return 1;
    }
    printf("%s %" PRIu32 "\n", bridge->name, bridge->value2);
    LUMOZEPH_ReleaseBridgeInstance(bridge);
    if (LUMOZEPH_BridgeDel("br0", 100) != 0) {
        perror("remove br0");
        return 1;
    }
    return 0;
}

/* prints:
 * br0 100
 */
