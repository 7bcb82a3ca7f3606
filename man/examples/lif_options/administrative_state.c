/* Brings a LIF up, and takes it down again. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_EnableLif("blue", "uplink") != 0) {
        perror("bring uplink up");
        return 1;
    }
    if (LUMOZEPH_DisableLif("blue", "uplink") != 0) {
        perror("take uplink down");
        return 1;
    }
    return 0;
}
