/* Sets an instance's tunables, and says why it could not. */
#include <errno.h>
#include <lumozeph_inline.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstanceTunables("blue", "fast-path", 1) != 0) {
        char reason[80];
        printf(
            "blue: %s\n", lumozeph_reason(errno, reason, sizeof reason));
    }
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLumoInstanceTunables("blue", "fast-path", 1) != 0) {
        perror("blue");
        return 1;
    }
    return 0;
}

/* prints:
 * blue: the module knows no such object
 */
