/* Asks which route the module uses for a destination. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    LumoRouteInfo* route = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", inet_addr("10.0.0.2"),
            lumozeph_mask_of_length(24), 0, 0, 0, 0, "blue",
            NULL) != 0 ||
        LUMOZEPH_EnableLif("blue", "uplink") != 0 ||
        LUMOZEPH_SetRoute(
            0, 0, inet_addr("10.0.0.1"), NULL, "blue", 0, NULL) != 0) {
        perror("default route of blue");
        return 1;
    }
    if (LUMOZEPH_GetResolveRoute("blue", inet_addr("198.51.100.7"),
            lumozeph_mask_of_length(32), 0, &route) != 0) {
        perror("route to 198.51.100.7");
        return 1;
    }
    for (uint32_t hop = 0; hop < lumozeph_next_hops(route); ++hop) {
        const uint32_t gateway = route->nextHops[hop].nextHopAddr;
        char text[INET_ADDRSTRLEN];
        printf(
            "via %s\n", inet_ntop(AF_INET, &gateway, text, sizeof text));
    }
    LUMOZEPH_ReleaseRoute(route);
    return 0;
}

/* prints:
 * via 10.0.0.1
 */
