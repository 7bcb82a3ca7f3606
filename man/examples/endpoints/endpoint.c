/* Adds a bridge endpoint, reads its statistics and its status, and deletes it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    char stats[LUMOZEPH_BE_STATS_SIZE] = {0};
    char status[LUMOZEPH_BE_STATUS_SIZE] = {0};
    if (LUMOZEPH_AddBridgeEndpoint(
            "east", "", "port-1", 100, 0, "", 0, 0, "", 0) != 0) {
        perror("add east");
        return 1;
    }
    if (LUMOZEPH_GetBeStats("east", stats) != 0 ||
        LUMOZEPH_GetBeStatus("east", status) != 0) {
        perror("read east");
        return 1;
    }
    if (LUMOZEPH_DelBridgeEndpoint("east", "port-1") != 0) {
        perror("delete east");
        return 1;
    }
    return 0;
}
