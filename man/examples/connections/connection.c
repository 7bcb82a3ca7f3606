/* Plumbs a port connection, reads it back, and unplumbs it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    char connection[LUMOZEPH_CONNECTION_SIZE] = {0};
    if (LUMOZEPH_PlumbLumoConnection("port-1", "first", 0,
            "02:00:00:00:00:01", NULL, NULL) != 0 ||
        LUMOZEPH_GetConnection("port-1", connection) != 0) {
        perror("plumb port-1");
        return 1;
    }
    printf("%.63s\n", connection);
    if (LUMOZEPH_UnPlumbLumoConnection("port-1") != 0) {
        perror("unplumb port-1");
        return 1;
    }
    return 0;
}

/* prints:
 * port-1
 */
