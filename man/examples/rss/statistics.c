/* Zeroes a target's statistics, and reads them. */
#include <inttypes.h>
#include <lumozeph_inline.h>

int main(void)
{
    LumoRssStats* stats = NULL;
    if (LUMOZEPH_SoftRSSStatsReset("uplink") != 0 ||
        LUMOZEPH_SoftRSSGetStats("uplink", &stats) != 0) {
        perror("statistics of uplink");
        return 1;
    }
    printf("%" PRIu32 " entries\n", lumozeph_rss_entries(stats));
    free(stats);
    return 0;
}

/* prints:
 * 16 entries
 */
