/* Sets two properties of a bridge, switches it on, and off again. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0 ||
        LUMOZEPH_BridgeSetHAAdminState("br0", 1) != 0 ||
        LUMOZEPH_SetBridgeRepMode("br0", 2) != 0) {
        perror("settings of br0");
        return 1;
    }
    if (LUMOZEPH_BridgeEnable("br0", 0) != 0 ||
        LUMOZEPH_BridgeDisable("br0", 0) != 0) {
        perror("switch br0 on and off");
        return 1;
    }
    return 0;
}
