/* Adds an ARP entry, reads the table of its LIF, and deletes it. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    static char table[LUMOZEPH_ARP_TABLE_SIZE];
    const uint32_t address = inet_addr("10.0.0.1");
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetArp(
            address, "02:00:00:00:00:01", "uplink", "blue") != 0 ||
        LUMOZEPH_GetArps("blue", "uplink", table) != 0) {
        perror("add 10.0.0.1");
        return 1;
    }
    /* in the emulator's layout, whose first entry this is */
    char text[INET_ADDRSTRLEN];
    printf("%s %.64s %.18s\n",
        inet_ntop(AF_INET, table, text, sizeof text), &table[16],
        &table[80]);
    if (LUMOZEPH_DelArp(address, "uplink", "blue") != 0) {
        perror("delete 10.0.0.1");
        return 1;
    }
    return 0;
}

/* prints:
 * 10.0.0.1 uplink 02:00:00:00:00:01
 */
