/* Raises both log levels, and puts them back. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t level = 0;
    uint32_t extended = 0;
    if (LUMOZEPH_GetLogLevel(&level) != 0 ||
        LUMOZEPH_GetExtendedLogLevel(&extended) != 0) {
        perror("read the log levels");
        return 1;
    }
    printf("levels %" PRIu32 " and %" PRIu32 "\n", level, extended);
    if (LUMOZEPH_SetLogLevel(7) != 0 ||
        LUMOZEPH_SetExtendedLogLevel(1) != 0) {
        perror("raise the log levels");
        return 1;
    }
    /* what is to be logged happens here */
    if (LUMOZEPH_SetLogLevel(level) != 0 ||
        LUMOZEPH_SetExtendedLogLevel(extended) != 0) {
        perror("put the log levels back");
        return 1;
    }
    return 0;
}

/* prints:
 * levels 4 and 0
 */
