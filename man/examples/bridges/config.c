/* Sets a setting of a bridge by its number, if this module knows the number; the emulator does not. */
#include <errno.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0) {
        perror("create br0");
        return 1;
    }
    if (LUMOZEPH_BridgeSetConfig("br0", 70, 1) != 0) {
        if (errno != ENOTTY) {
            perror("setting 70 of br0");
            return 1;
        }
        puts("this module has no setting 70");
    }
    return 0;
}

/* prints:
 * this module has no setting 70
 */
