/* Reads forwarding entries into a list that the program has allocated itself. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0) {
        perror("create br0");
        return 1;
    }
    LumoBridgeFdbList* entries = calloc(1, sizeof *entries);
    if (entries == NULL ||
        LUMOZEPHGetBridgeFdbEntries("br0", 1, 2, entries) != 0) {
        /* the list is freed, unless the device call failed */
        perror("forwarding table of br0");
        return 1;
    }
    printf("%" PRId32 " entries\n", entries->count);
    LUMOZEPH_ReleaseBridgeFdbEntries(entries);
    return 0;
}

/* prints:
 * 0 entries
 */
