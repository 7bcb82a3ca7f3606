/* Gives a LIF another IPv4 address. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    const uint32_t before = inet_addr("10.0.0.2");
    const uint32_t after = inet_addr("10.0.1.2");
    const uint32_t mask = lumozeph_mask_of_length(24);
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif(
            "uplink", "", before, mask, 0, 0, 0, 0, "blue", NULL) != 0) {
        perror("create uplink");
        return 1;
    }
    if (LUMOZEPH_DelLifIp("blue", "uplink", before, mask) != 0) {
        perror("remove 10.0.0.2/24 from uplink");
        return 1;
    }
    if (LUMOZEPH_SetLifIp("blue", "uplink", after, mask) != 0) {
        perror("set 10.0.1.2/24 on uplink");
        return 1;
    }
    return 0;
}
