/* Adds an IPv6 address to a LIF, lists its addresses, and removes it. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    uint8_t address[16];
    uint64_t words[2];
    LumoLifInfo* lif = NULL;
    if (inet_pton(AF_INET6, "2001:db8::2", address) != 1)
        return 1;
    lumozeph_ipv6_to_words(address, words);
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetLifIpv6("blue", "uplink", words[0], words[1], 64) !=
            0 ||
        LUMOZEPH_GetLif("blue", "uplink", &lif) != 0) {
        perror("add 2001:db8::2 to uplink");
        return 1;
    }
    for (uint32_t i = 0; i < lumozeph_ipv6_addrs(lif); ++i) {
        char text[INET6_ADDRSTRLEN];
        puts(inet_ntop(
            AF_INET6, lif->ipv6Addrs[i].address, text, sizeof text));
    }
    LUMOZEPH_ReleaseLif(lif);
    if (LUMOZEPH_DelLifIpv6("blue", "uplink", words[0], words[1], 64) !=
        0) {
        perror("remove 2001:db8::2 from uplink");
        return 1;
    }
    return 0;
}

/* prints:
 * 2001:db8::2
 */
