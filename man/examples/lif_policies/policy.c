/* Adds an interface policy, lists those of its kind, and deletes it. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    const uint32_t dest = inet_addr("10.0.0.0");
    const uint32_t mask = lumozeph_mask_of_length(8);
    const uint32_t gateway = inet_addr("192.0.2.1");
    LumoRouteList* policies = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetLifPolicy(1, NULL, dest, mask, gateway, "uplink",
            "blue", 0, NULL) != 0 ||
        LUMOZEPH_GetLifPolicies("blue", 1, NULL, &policies) != 0) {
        perror("add a policy of kind 1");
        return 1;
    }
    for (int32_t i = 0; i < policies->count; ++i)
        printf("over %s\n",
            policies->records[i].nextHops[0].nextHopLifName);
    LUMOZEPH_ReleaseRoutes(policies);
    if (LUMOZEPH_DelLifPolicy(1, NULL, dest, mask, gateway, "uplink",
            "blue", 0, NULL) != 0) {
        perror("delete the policy");
        return 1;
    }
    return 0;
}

/* prints:
 * over uplink
 */
