/* Lists those of a bridge's ports that two values select. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoBridgePortList* ports = NULL;
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0 ||
        LUMOZEPH_GetBridgePorts("", "br0", 1, 2, &ports) != 0) {
        perror("ports of br0");
        return 1;
    }
    for (int32_t i = 0; i < ports->count; ++i)
        printf("%" PRIu64 "\n", ports->records[i].value1);
    LUMOZEPH_ReleaseBridgePorts(ports);
    return 0;
}
