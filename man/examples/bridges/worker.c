/* Reads all bridges into a list that the program has allocated itself. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    LumoBridgeInstanceList* bridges = calloc(1, sizeof *bridges);
    if (bridges == NULL || LUMOZEPHGetBridgeInstances(bridges) != 0) {
        /* the list is freed, unless the device call failed */
        perror("bridges");
        return 1;
    }
    printf("%" PRId32 "\n", bridges->count);
    LUMOZEPH_ReleaseBridgeInstances(bridges);
    return 0;
}

/* prints:
 * 0
 */
