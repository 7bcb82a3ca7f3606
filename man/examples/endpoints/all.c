/* Reads the bridge endpoints in the form of the module, as many as there is room for. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    static char buffer[64 * LUMOZEPH_BE_SIZE];
    uint32_t count = 0;
    if (LUMOZEPH_AddBridgeEndpoint(
            "east", "", "port-1", 100, 0, "", 0, 0, "", 0) != 0 ||
        LUMOZEPH_GetBeAll(buffer, sizeof buffer, &count) != 0) {
        perror("bridge endpoints");
        return 1;
    }
    /* the count is as reported: also more than there is room for */
    if (count > sizeof buffer / LUMOZEPH_BE_SIZE)
        count = sizeof buffer / LUMOZEPH_BE_SIZE;
    printf("%" PRIu32 "\n", count);
    return 0;
}

/* prints:
 * 1
 */
