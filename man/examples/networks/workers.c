/* Reads a bridge's networks and ports into lists that the program has allocated itself. */
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    LumoBridgeNetworkList* networks = calloc(1, sizeof *networks);
    LumoBridgePortList* ports = calloc(1, sizeof *ports);
    if (networks == NULL || ports == NULL ||
        LUMOZEPH_BridgeAdd("br0", 100) != 0) {
        perror("create br0");
        free(networks);
        free(ports);
        return 1;
    }
    if (LUMOZEPHGetBridgeNetworks("", "br0", networks) != 0 ||
        LUMOZEPHGetBridgePorts("", "br0", 1, 2, ports) != 0) {
        /* a failed call may have freed its list: the program ends */
        perror("read br0");
        return 1;
    }
    if (networks->count == 0 && ports->count == 0)
        puts("br0 is empty");
    LUMOZEPH_ReleaseBridgeNetworks(networks);
    LUMOZEPH_ReleaseBridgePorts(ports);
    return 0;
}

/* prints:
 * br0 is empty
 */
