/* Adds a remote receiver, reads those under its value, and deletes it. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    const uint8_t mac[LUMOZEPH_MAC_SIZE] = {0x02, 0, 0, 0, 0, 0x01};
    LumoVtepTable* receivers = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_AddMRoutingRemoteRcvrs("blue", 5, 9, mac, 0, 0) != 0 ||
        LUMOZEPH_GetMRoutingRemoteRcvrs("blue", 5, &receivers) != 0) {
        perror("add remote receiver 9");
        return 1;
    }
    printf("%" PRIu32 "\n", receivers->count);
    /* an array without entries is not freed by the release */
    if (receivers->count == 0)
        free(receivers->records);
    LUMOZEPH_ReleaseVTEPTable(receivers);
    if (LUMOZEPH_DelMRoutingRemoteRcvrs("blue", 5, 9) != 0) {
        perror("delete remote receiver 9");
        return 1;
    }
    return 0;
}

/* prints:
 * 1
 */
