/* Shows the kind of the counters of distributed interfaces, and zeroes them. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoStats* stats = NULL;
    if (LUMOZEPH_GetLumoDiStats(&stats) != 0) {
        perror("read the counters");
        return 1;
    }
    printf("kind %" PRIu32 "\n", stats->statsKind);
    LUMOZEPH_ReleaseStats(stats);
    if (LUMOZEPH_ResetLumoDiStats() != 0) {
        perror("zero the counters");
        return 1;
    }
    return 0;
}

/* prints:
 * kind 3
 */
