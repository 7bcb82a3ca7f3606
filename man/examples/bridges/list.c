/* Lists all bridges. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoBridgeInstanceList* bridges = NULL;
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0 ||
        LUMOZEPH_BridgeAdd("br1", 200) != 0 ||
        LUMOZEPH_GetBridgeInstances(&bridges) != 0) {
        perror("bridges");
        return 1;
    }
    for (int32_t i = 0; i < bridges->count; ++i)
        puts(bridges->records[i].name);
    LUMOZEPH_ReleaseBridgeInstances(bridges);
    return 0;
}

/* prints:
 * br0
 * br1
 */
