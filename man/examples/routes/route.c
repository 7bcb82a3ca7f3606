/* Adds a route with the module's own answer, and deletes it. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    const uint32_t dest = inet_addr("192.168.4.0");
    const uint32_t mask = lumozeph_mask_of_length(24);
    const uint32_t gateway = inet_addr("10.0.0.1");
    LumoCmdResult result;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", inet_addr("10.0.0.2"),
            lumozeph_mask_of_length(24), 0, 0, 0, 0, "blue",
            NULL) != 0 ||
        LUMOZEPH_EnableLif("blue", "uplink") != 0 ||
        LUMOZEPH_SetRoute(
            dest, mask, gateway, NULL, "blue", 0, &result) != 0) {
        perror("add 192.168.4.0/24");
        return 1;
    }
    /* the emulator answers with a number of four bytes and a text */
    printf("%.84s\n", &result.bytes[4]);
    if (LUMOZEPH_DelRoute(dest, mask, gateway, NULL, "blue", NULL) !=
        0) {
        perror("delete 192.168.4.0/24");
        return 1;
    }
    return 0;
}

/* prints:
 * done
 */
