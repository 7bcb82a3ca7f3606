/* Lets the router answer for an address, looks whether it does, and stops that. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    static char table[LUMOZEPH_ARP_TABLE_SIZE];
    const uint32_t address = inet_addr("10.0.0.77");
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetProxyArp(address, "uplink", "blue") != 0 ||
        LUMOZEPH_GetProxyArps("blue", NULL, table) != 0) {
        perror("answer for 10.0.0.77");
        return 1;
    }
    char text[INET_ADDRSTRLEN];
    /* in the emulator's layout: the first entry's address */
    puts(inet_ntop(AF_INET, table, text, sizeof text));
    if (LUMOZEPH_DelProxyArp(address, "uplink", "blue") != 0) {
        perror("stop answering for 10.0.0.77");
        return 1;
    }
    return 0;
}

/* prints:
 * 10.0.0.77
 */
