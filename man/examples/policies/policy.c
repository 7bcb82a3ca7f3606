/* Sets a policy, counts those of its table, and deletes it. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t count = 0;
    if (LUMOZEPH_SetPolicyTable(7, "voice", NULL) != 0 ||
        LUMOZEPH_SetPolicy(7, 1, 2, 300, NULL) != 0 ||
        LUMOZEPH_GetPolicyCount(7, &count) != 0) {
        perror("set policy 1 2 of table 7");
        return 1;
    }
    printf("%" PRIu32 "\n", count);
    if (LUMOZEPH_DelPolicy(7, 1, 2, NULL) != 0) {
        perror("delete policy 1 2 of table 7");
        return 1;
    }
    return 0;
}

/* prints:
 * 1
 */
