/* Sets the state of an instance's synchronisation with its control plane, and reads it. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoCPSyncState* state = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLumoInstanceCPSyncState("blue", 2) != 0 ||
        LUMOZEPH_GetLumoInstanceCPSyncState("blue", &state) != 0) {
        perror("blue");
        return 1;
    }
    /* in the emulator, the first entry has the state there */
    printf("%" PRIu32 "\n", state->entries[0].value2);
    LUMOZEPH_ReleaseStats(state);
    return 0;
}

/* prints:
 * 2
 */
