/* Plumbs a port connection for BFD, reads it back, and unplumbs it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    static char buffer[LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE];
    const uint8_t mac[LUMOZEPH_MAC_SIZE] = {0x02, 0, 0, 0, 0, 0x01};
    if (LUMOZEPH_PlumbBFDPortConnection("port-1", "first", mac) != 0 ||
        LUMOZEPH_GetBFDPortConnections(buffer) != 0) {
        perror("plumb port-1 for BFD");
        return 1;
    }
    /* in the emulator's layout: the first connection's port */
    printf("%.63s\n", buffer);
    if (LUMOZEPH_UnPlumbBFDPortConnection("port-1") != 0) {
        perror("unplumb port-1 for BFD");
        return 1;
    }
    return 0;
}

/* prints:
 * port-1
 */
