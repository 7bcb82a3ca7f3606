/* Creates a LIF with an address, reads it back, and removes it. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    const uint8_t mac[LUMOZEPH_MAC_SIZE] = {0x02, 0, 0, 0, 0, 0x01};
    const uint32_t mask = lumozeph_mask_of_length(24);
    uint32_t address = 0;
    LumoLifInfo* lif = NULL;
    if (inet_pton(AF_INET, "10.0.0.2", &address) != 1)
        return 1;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif(
            "uplink", "", address, mask, 0, 0, 0, 0, "blue", mac) != 0 ||
        LUMOZEPH_GetLif("blue", "uplink", &lif) != 0) {
        perror("create uplink");
        return 1;
    }
    char text[LUMOZEPH_MAC_TEXT_SIZE];
    printf("%s %s\n", lif->lifName,
        lumozeph_mac_to_text(lif->lifMac, text));
    LUMOZEPH_ReleaseLif(lif);
    if (LUMOZEPH_DelLif("uplink", "", "blue") != 0) {
        perror("remove uplink");
        return 1;
    }
    return 0;
}

/* prints:
 * uplink 02:00:00:00:00:01
 */
