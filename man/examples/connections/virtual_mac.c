/* Prints the virtual MAC address that goes with a name. */
#include <lumozeph_inline.h>

int main(void)
{
    uint8_t mac[LUMOZEPH_MAC_SIZE] = {0};
    char text[LUMOZEPH_MAC_TEXT_SIZE];
    if (LUMOZEPH_GetVMAC("port-1", mac) != 0) {
        perror("virtual MAC address of port-1");
        return 1;
    }
    puts(lumozeph_mac_to_text(mac, text));
    return 0;
}

/* prints:
 * 02:00:a0:f0:77:57
 */
