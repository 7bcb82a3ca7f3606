/* Zeroes a LIF's counters, and compares those that the module has cached with those of now. */
#include <lumozeph.h>
#include <stdio.h>
#include <string.h>

int main(void)
{
    LumoStats* cached = NULL;
    LumoStats* now = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_ResetLifStats("blue", "uplink") != 0) {
        perror("zero the counters of uplink");
        return 1;
    }
    if (LUMOZEPH_GetLifStatsCached("blue", "uplink", &cached) != 0 ||
        LUMOZEPH_GetLifStats("blue", "uplink", &now) != 0) {
        perror("read the counters of uplink");
        LUMOZEPH_ReleaseStats(cached);
        return 1;
    }
    puts(memcmp(cached, now, sizeof *now) == 0 ? "the same"
                                               : "they have changed");
    LUMOZEPH_ReleaseStats(cached);
    LUMOZEPH_ReleaseStats(now);
    return 0;
}

/* prints:
 * the same
 */
