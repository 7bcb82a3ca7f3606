/* Lists the policies of a table. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoPolicyList* policies = NULL;
    if (LUMOZEPH_SetPolicyTable(7, "voice", NULL) != 0 ||
        LUMOZEPH_SetPolicy(7, 1, 2, 300, NULL) != 0 ||
        LUMOZEPH_SetPolicy(7, 1, 3, 400, NULL) != 0 ||
        LUMOZEPH_GetPolicy(7, &policies) != 0) {
        perror("policies of table 7");
        return 1;
    }
    for (int32_t i = 0; i < policies->count; ++i) {
        const LumoPolicyInfo* policy = &policies->records[i];
        printf("%" PRIu32 " %" PRIu32 ": %" PRIu32 "\n", policy->value2,
            policy->value3, policy->value4);
    }
    LUMOZEPH_ReleaseAllPolicy(policies);
    return 0;
}

/* prints:
 * 1 2: 300
 * 1 3: 400
 */
