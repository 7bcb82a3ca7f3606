/* Configures multicast routing for an instance, and reads its domain. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoMcastDomainInfo* domain = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetMcastRouting("blue", "cameras", 1, 2, 3, 4) != 0 ||
        LUMOZEPH_GetMRoutingDomain("blue", &domain) != 0) {
        perror("multicast domain of blue");
        return 1;
    }
    printf("%s %" PRIu64 "\n", domain->text1, domain->value1);
    LUMOZEPH_ReleaseMRoutingDomainData(domain);
    return 0;
}

/* prints:
 * cameras 1
 */
