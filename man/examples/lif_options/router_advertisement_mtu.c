/* Sets the MTU that a LIF tells IPv6 hosts, which fails for a LIF that is not there. */
#include <errno.h>
#include <lumozeph_inline.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0) {
        perror("create blue");
        return 1;
    }
    if (LUMOZEPH_RAMTUSetv6("blue", "uplink", 1400) != 0) {
        char reason[80];
        printf("MTU of uplink: %s\n",
            lumozeph_reason(errno, reason, sizeof reason));
    }
    return 0;
}

/* prints:
 * MTU of uplink: the module knows no such object
 */
