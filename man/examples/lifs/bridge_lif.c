/* Adds a bridge LIF to an instance, reads it, and removes it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoLifInfo* lif = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetBridgeLif("cellar", "", 5, 0, 0, "blue", 1) != 0 ||
        LUMOZEPH_GetBridgeLif("blue", "cellar", &lif) != 0) {
        perror("add cellar");
        return 1;
    }
    printf("%s\n", lif->lifName);
    LUMOZEPH_ReleaseLif(lif);
    if (LUMOZEPH_SetBridgeLif("cellar", "", 5, 0, 0, "blue", 0) != 0) {
        perror("remove cellar");
        return 1;
    }
    return 0;
}

/* prints:
 * cellar
 */
