/* Prepares the module for being unloaded. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_PreUnload() != 0) {
        perror("prepare for unloading");
        return 1;
    }
    return 0;
}
