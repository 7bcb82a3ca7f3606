/* Starts a full-sync save, and reads its status. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t result = 0;
    uint32_t status = 0;
    if (LUMOZEPH_PerformFullSyncSave(1, &result) != 0 ||
        LUMOZEPH_GetFullSyncSaveStatus(&status) != 0) {
        perror("full-sync save");
        return 1;
    }
    printf("result %" PRIu32 ", status %" PRIu32 "\n", result, status);
    return 0;
}

/* prints:
 * result 1, status 1
 */
