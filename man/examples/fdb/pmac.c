/* Adds a PMAC, reads the table, and deletes it. */
#include <lumozeph_inline.h>

int main(void)
{
    static uint8_t table[LUMOZEPH_PMAC_TABLE_SIZE];
    uint8_t mac[LUMOZEPH_MAC_SIZE];
    char text[LUMOZEPH_MAC_TEXT_SIZE];
    if (lumozeph_mac_from_text("02:00:00:00:00:01", mac) != 0)
        return 1;
    if (LUMOZEPH_AddPmac(5, mac) != 0 || LUMOZEPH_GetPmac(table) != 0) {
        perror("add 02:00:00:00:00:01");
        return 1;
    }
    /* in the emulator's layout: the first entry's address */
    puts(lumozeph_mac_to_text(table, text));
    if (LUMOZEPH_DelPmac(mac) != 0) {
        perror("delete 02:00:00:00:00:01");
        return 1;
    }
    return 0;
}

/* prints:
 * 02:00:00:00:00:01
 */
