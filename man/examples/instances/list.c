/* Lists all router instances. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLumoInstance("green", 200, NULL, 0) != 0) {
        perror("create instances");
        return 1;
    }
    LumoInstanceList* instances = NULL;
    if (LUMOZEPH_GetInstances(&instances) != 0) {
        perror("list instances");
        return 1;
    }
    for (int32_t i = 0; i < instances->count; ++i)
        printf("%s %" PRIu32 "\n", instances->records[i].instanceKey,
            instances->records[i].value1);
    LUMOZEPH_ReleaseInstances(instances);
    return 0;
}

/* prints:
 * blue 100
 * green 200
 */
