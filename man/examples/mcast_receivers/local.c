/* Adds a local receiver, lists those under its value, and deletes it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoLocalRcvrList* receivers = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_AddMRoutingLocalRcvrs("blue", 5, "camera") != 0 ||
        LUMOZEPH_GetMRoutingLocalRcvrs("blue", 5, &receivers) != 0) {
        perror("add camera");
        return 1;
    }
    for (int32_t i = 0; i < receivers->count; ++i)
        puts(receivers->records[i].text1);
    LUMOZEPH_ReleaseMRoutingLocalRcvrs(receivers);
    if (LUMOZEPH_DelMRoutingLocalRcvrs("blue", 5, "camera") != 0) {
        perror("delete camera");
        return 1;
    }
    return 0;
}

/* prints:
 * camera
 */
