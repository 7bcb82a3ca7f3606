/* Switches to statistics level 2, unless it is higher already. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t level = 0;
    if (LUMOZEPH_GetStatsLevel(&level) != 0 ||
        (level < 2 && LUMOZEPH_SetStatsLevel(2) != 0)) {
        perror("statistics level");
        return 1;
    }
    return 0;
}
