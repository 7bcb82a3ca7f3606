/* Removes the DHCP servers of a LIF; an address, of whatever family, is refused. */
#include <errno.h>
#include <inttypes.h>
#include <lumozeph_inline.h>

int main(void)
{
    char server[] = "10.0.0.53";
    LumoLifInfo* lif = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_ConfigureLifDhcpRelay("blue", "uplink", NULL) != 0 ||
        LUMOZEPH_GetLif("blue", "uplink", &lif) != 0) {
        perror("remove the servers of uplink");
        return 1;
    }
    printf("%" PRIu32 " servers\n",
        lumozeph_relay_servers(&lif->dhcpRelay));
    LUMOZEPH_ReleaseLif(lif);
    if (LUMOZEPH_ConfigureLifDhcpRelay("blue", "uplink", server) != 0)
        printf("%s: %s\n", server, strerror(errno));
    return 0;
}

/* prints:
 * 0 servers
 * 10.0.0.53: Invalid argument
 */
