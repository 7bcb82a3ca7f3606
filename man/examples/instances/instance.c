/* Creates a router instance, reads it back, and deletes it. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoInstanceInfo* instance = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_GetInstance("blue", &instance) != 0) {
        perror("create blue");
        return 1;
    }
    printf("%s %" PRIu32 "\n", instance->instanceKey, instance->value1);
    LUMOZEPH_ReleaseInstance(instance);
    if (LUMOZEPH_DelLumoInstance("blue") != 0) {
        perror("delete blue");
        return 1;
    }
    return 0;
}

/* prints:
 * blue 100
 */
