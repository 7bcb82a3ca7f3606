/* Lists a bridge's networks, and keeps a copy of the first. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    LumoBridgeNetworkList* networks = NULL;
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0 ||
        LUMOZEPH_GetBridgeNetworks("", "br0", &networks) != 0) {
        perror("networks of br0");
        return 1;
    }
    LumoBridgeNetworkInfo* first =
        networks->count > 0 ? malloc(sizeof *first) : NULL;
    if (first != NULL)
        *first = networks->records[0];
    printf("%" PRId32 " networks\n", networks->count);
    LUMOZEPH_ReleaseBridgeNetworks(networks);
    /* the copy outlives the list */
    LUMOZEPH_ReleaseBridgeNetwork(first);
    return 0;
}

/* prints:
 * 0 networks
 */
