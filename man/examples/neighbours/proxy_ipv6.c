/* Lets the router answer for an IPv6 address, and stops that. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    uint8_t address[16];
    uint64_t words[2];
    if (inet_pton(AF_INET6, "2001:db8::77", address) != 1)
        return 1;
    lumozeph_ipv6_to_words(address, words);
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetProxyArpv6(words[0], words[1], "uplink", "blue") !=
            0) {
        perror("answer for 2001:db8::77");
        return 1;
    }
    if (LUMOZEPH_DelProxyArpv6(words[0], words[1], "uplink", "blue") !=
        0) {
        perror("stop answering for 2001:db8::77");
        return 1;
    }
    return 0;
}
