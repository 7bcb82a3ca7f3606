/* Adds an IPv6 route, walks over the entries of all, and deletes it. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    uint8_t bytes[16];
    uint64_t gateway[2];
    void* block = NULL;
    uint32_t count = 0;
    if (inet_pton(AF_INET6, "2001:db8::1", bytes) != 1)
        return 1;
    lumozeph_ipv6_to_words(bytes, gateway);
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetLifIpv6("blue", "uplink", gateway[0], 2, 64) != 0 ||
        LUMOZEPH_EnableLif("blue", "uplink") != 0 ||
        LUMOZEPH_SetRoutev6(
            0, 0, 0, gateway[0], gateway[1], NULL, "blue") != 0 ||
        LUMOZEPH_GetRoutesv6("blue", &block, &count) != 0) {
        /* block is not to be freed then */
        perror("default route of blue");
        return 1;
    }
    /* no more than 8000 are sure to be there */
    for (uint32_t i = 0; i < count && i < 8000; ++i)
        printf("instance %.64s\n", lumozeph_route6(block, i));
    free(block);
    if (LUMOZEPH_DelRoutev6(
            0, 0, 0, gateway[0], gateway[1], NULL, "blue") != 0) {
        perror("delete the default route of blue");
        return 1;
    }
    return 0;
}

/* prints:
 * instance blue
 * instance blue
 */
