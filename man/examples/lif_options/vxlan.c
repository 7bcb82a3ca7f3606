/* Attaches a LIF to the VXLAN control plane with a multicast address, and detaches it. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("overlay", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetLifVxlanMulticastIp(
            "blue", "overlay", inet_addr("239.1.1.1")) != 0 ||
        LUMOZEPH_SetLifVxlanCP("blue", "overlay") != 0) {
        perror("attach overlay");
        return 1;
    }
    if (LUMOZEPH_DelLifVxlanCP("blue", "overlay") != 0) {
        perror("detach overlay");
        return 1;
    }
    return 0;
}
