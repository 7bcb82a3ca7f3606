/* Forgets all neighbours of an instance, of both families. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_ClearArp("blue", NULL) != 0 ||
        LUMOZEPH_ClearArpv6("blue", NULL) != 0) {
        perror("clear the neighbours of blue");
        return 1;
    }
    return 0;
}
