/* Lists an instance's multicast groups. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoMcastGroupList* groups = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_AddMRoutingLocalRcvrs("blue", 5, "camera") != 0 ||
        LUMOZEPH_GetMRoutingAllMcastGroups("blue", &groups) != 0) {
        perror("multicast groups of blue");
        return 1;
    }
    for (int32_t i = 0; i < groups->count; ++i)
        printf("%" PRIu32 "\n", groups->records[i].value1);
    LUMOZEPH_ReleaseMRoutingMcastGroups(groups);
    return 0;
}

/* prints:
 * 5
 */
