/* Lists an instance's bridge LIFs; there is none at first. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoLifList* lifs = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_GetBridgeLifs("blue", &lifs) != 0) {
        perror("bridge LIFs of blue");
        return 1;
    }
    printf("%" PRId32 "\n", lifs->count);
    LUMOZEPH_ReleaseLifs(lifs);
    return 0;
}

/* prints:
 * 0
 */
