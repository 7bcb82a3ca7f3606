/* Adds an interface policy of kind 4, the kind that needs a text. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    const uint32_t gateway = inet_addr("192.0.2.1");
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0) {
        perror("create blue");
        return 1;
    }
    if (LUMOZEPH_SetLifPolicy(
            4, NULL, 0, 0, gateway, NULL, "blue", 0, NULL) != 0)
        perror("without a text");
    if (LUMOZEPH_SetLifPolicy(
            4, "voice", 0, 0, gateway, NULL, "blue", 0, NULL) != 0) {
        perror("with a text");
        return 1;
    }
    return 0;
}

/* prints:
 * without a text: Invalid argument
 */
