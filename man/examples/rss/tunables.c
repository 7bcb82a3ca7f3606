/* Sets the tunable of a target that can be set, and reads both. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    /* the second is only read */
    const LumoRssTunables wanted = {8, 0};
    LumoRssTunables tunables;
    if (LUMOZEPH_SoftRSSSetTunables("uplink", &wanted) != 0 ||
        LUMOZEPH_SoftRSSGetTunables("uplink", &tunables) != 0) {
        perror("tunables of uplink");
        return 1;
    }
    printf(
        "%" PRIu64 " %" PRIu32 "\n", tunables.value1, tunables.value2);
    return 0;
}

/* prints:
 * 8 0
 */
