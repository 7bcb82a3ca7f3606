/* Lists an instance's routes with their next hops. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    LumoRouteList* routes = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", inet_addr("10.0.0.2"),
            lumozeph_mask_of_length(24), 0, 0, 0, 0, "blue",
            NULL) != 0 ||
        LUMOZEPH_EnableLif("blue", "uplink") != 0 ||
        LUMOZEPH_SetRoute(
            0, 0, inet_addr("10.0.0.1"), NULL, "blue", 0, NULL) != 0 ||
        LUMOZEPH_GetRoutes("blue", &routes) != 0) {
        perror("routes of blue");
        return 1;
    }
    for (int32_t i = 0; i < routes->count; ++i) {
        const LumoRouteInfo* route = &routes->records[i];
        const uint32_t dest = route->routeDest;
        char text[INET_ADDRSTRLEN];
        printf("%s/%d", inet_ntop(AF_INET, &dest, text, sizeof text),
            lumozeph_length_of_mask(route->routeMask));
        for (uint32_t hop = 0; hop < lumozeph_next_hops(route); ++hop) {
            const uint32_t gateway = route->nextHops[hop].nextHopAddr;
            printf(" via %s",
                inet_ntop(AF_INET, &gateway, text, sizeof text));
        }
        putchar('\n');
    }
    LUMOZEPH_ReleaseRoutes(routes);
    return 0;
}

/* prints:
 * 10.0.0.0/24 via 0.0.0.0
 * 0.0.0.0/0 via 10.0.0.1
 */
