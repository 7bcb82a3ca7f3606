/* Configures multicast routing for an instance, and switches it on for one of its LIFs. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0) {
        perror("create uplink");
        return 1;
    }
    if (LUMOZEPH_SetMcastRouting("blue", "cameras", 1, 0, 0, 0) != 0 ||
        LUMOZEPH_SetLifMcastRouting("blue", "uplink", 1) != 0) {
        perror("multicast routing on uplink");
        return 1;
    }
    return 0;
}
