/* Lists the bridge endpoints, and flushes them. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoBridgeEndpointList* endpoints = NULL;
    if (LUMOZEPH_AddBridgeEndpoint(
            "east", "", "port-1", 100, 0, "", 0, 0, "", 0) != 0 ||
        LUMOZEPH_GetBridgeEndpoints(NULL, &endpoints) != 0) {
        perror("bridge endpoints");
        return 1;
    }
    /* an ident is not necessarily terminated */
    for (int32_t i = 0; i < endpoints->count; ++i)
        printf("%.64s\n", endpoints->records[i].ident);
    LUMOZEPH_ReleaseBridgeEndpoints(endpoints);
    if (LUMOZEPH_FlushBridgeEndpoint(1) != 0) {
        perror("flush the bridge endpoints");
        return 1;
    }
    return 0;
}

/* prints:
 * east
 */
