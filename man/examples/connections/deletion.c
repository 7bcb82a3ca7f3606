/* Reads the value of the connection-deletion check. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t value = 0;
    if (LUMOZEPH_LUMODevCheckConnDeletion(&value) != 0) {
        perror("connection-deletion check");
        return 1;
    }
    printf("%" PRIu32 "\n", value);
    return 0;
}

/* prints:
 * 0
 */
