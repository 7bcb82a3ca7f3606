/* Adds a multicast router to an instance, reads its address, and removes it. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    /* in the emulator, the value is the router's address */
    const uint32_t value = inet_addr("10.0.0.4");
    uint32_t address = 0;
    uint32_t replication = 0;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_AddMRoutingMRouter("blue", value) != 0 ||
        LUMOZEPH_GetMRoutingMRouterIP("blue", value, &address) != 0 ||
        LUMOZEPH_GetMRoutingReplicationIP("blue", value, &replication) !=
            0) {
        perror("multicast router of blue");
        return 1;
    }
    char text[INET_ADDRSTRLEN];
    printf(
        "router %s\n", inet_ntop(AF_INET, &address, text, sizeof text));
    printf("replication %s\n",
        inet_ntop(AF_INET, &replication, text, sizeof text));
    if (LUMOZEPH_DelMRoutingMRouter("blue") != 0) {
        perror("remove the multicast router of blue");
        return 1;
    }
    return 0;
}

/* prints:
 * router 10.0.0.4
 * replication 0.0.0.0
 */
