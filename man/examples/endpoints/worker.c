/* Reads the bridge endpoints into a list that the program has allocated itself. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    LumoBridgeEndpointList* endpoints = calloc(1, sizeof *endpoints);
    if (endpoints == NULL ||
        LUMOZEPHGetBridgeEndpoints(NULL, endpoints) != 0) {
        perror("bridge endpoints");
        return 1;
    }
    printf("%" PRId32 " endpoints\n", endpoints->count);
    LUMOZEPH_ReleaseBridgeEndpoints(endpoints);
    return 0;
}

/* prints:
 * 0 endpoints
 */
