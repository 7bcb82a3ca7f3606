/* Counts what an instance and its control plane say to each other from now on. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoStats* stats = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_ResetLumoInstanceCPStats("blue") != 0 ||
        LUMOZEPH_GetLumoInstanceCPStats("blue", &stats) != 0) {
        perror("blue");
        return 1;
    }
    for (int i = 0; i < LUMOZEPH_STATS_COUNTERS; ++i)
        if (stats->counters[i] != 0)
            printf("counter %d: %" PRIu64 "\n", i, stats->counters[i]);
    LUMOZEPH_ReleaseStats(stats);
    return 0;
}
