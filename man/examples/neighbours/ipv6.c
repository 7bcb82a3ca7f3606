/* Adds an IPv6 neighbour, reads the table of its LIF, and deletes it. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    static char table[LUMOZEPH_ARP_TABLE_SIZE];
    uint8_t address[16];
    uint64_t words[2];
    if (inet_pton(AF_INET6, "2001:db8::1", address) != 1)
        return 1;
    lumozeph_ipv6_to_words(address, words);
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetArpv6(words[0], words[1], "02:00:00:00:00:01",
            "uplink", "blue") != 0 ||
        LUMOZEPH_GetArpsv6("blue", "uplink", table) != 0) {
        perror("add 2001:db8::1");
        return 1;
    }
    /* in the emulator's layout, whose first entry this is */
    char text[INET6_ADDRSTRLEN];
    printf("%s %.18s\n", inet_ntop(AF_INET6, table, text, sizeof text),
        &table[80]);
    if (LUMOZEPH_DelArpv6(words[0], words[1], "uplink", "blue") != 0) {
        perror("delete 2001:db8::1");
        return 1;
    }
    return 0;
}

/* prints:
 * 2001:db8::1 02:00:00:00:00:01
 */
