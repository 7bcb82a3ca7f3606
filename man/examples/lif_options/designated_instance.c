/* Sets the address of a LIF's designated instance. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoLifInfo* lif = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetLifDIIp("blue", "uplink", inet_addr("10.0.0.9")) !=
            0 ||
        LUMOZEPH_GetLif("blue", "uplink", &lif) != 0) {
        perror("designated instance of uplink");
        return 1;
    }
    const uint32_t address = lif->diIp;
    char text[INET_ADDRSTRLEN];
    puts(inet_ntop(AF_INET, &address, text, sizeof text));
    LUMOZEPH_ReleaseLif(lif);
    return 0;
}

/* prints:
 * 10.0.0.9
 */
