/* Reads the log level with the command's own number. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t level = 0;
    LumoEnvelope envelope = {0, NULL, sizeof level, &level};
    if (LUMOZEPHIoctl(9, &envelope) != 0) {
        perror("command 9");
        return 1;
    }
    printf("%" PRIu32 " bytes: %" PRIu32 "\n", envelope.outLen, level);
    return 0;
}

/* prints:
 * 4 bytes: 4
 */
