/* Doubles the transmit dispatch queue. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t before = 0;
    uint32_t after = 0;
    if (LUMOZEPH_GetTxDispQueueSize(&before) != 0 ||
        LUMOZEPH_SetTxDispQueueSize(2 * before) != 0 ||
        LUMOZEPH_GetTxDispQueueSize(&after) != 0) {
        perror("transmit dispatch queue");
        return 1;
    }
    printf("from %" PRIu32 " to %" PRIu32 "\n", before, after);
    return 0;
}

/* prints:
 * from 1024 to 2048
 */
