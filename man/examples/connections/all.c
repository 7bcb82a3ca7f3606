/* Counts the port connections: records of one size, ended by one without a name. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    static char buffer[LUMOZEPH_CONNECTIONS_SIZE];
    if (LUMOZEPH_PlumbLumoConnection(
            "port-1", "first", 0, NULL, NULL, NULL) != 0 ||
        LUMOZEPH_PlumbLumoConnection(
            "port-2", "second", 0, NULL, NULL, NULL) != 0 ||
        LUMOZEPH_GetConnections(buffer) != 0) {
        perror("connections");
        return 1;
    }
    size_t count = 0;
    while ((count + 1) * LUMOZEPH_CONNECTION_SIZE <= sizeof buffer &&
           buffer[count * LUMOZEPH_CONNECTION_SIZE] != '\0')
        ++count;
    printf("%zu\n", count);
    return 0;
}

/* prints:
 * 2
 */
