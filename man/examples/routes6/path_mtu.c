/* Clears the path-MTU table. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_PMTUTableCearv6() != 0) {
        perror("clear the path-MTU table");
        return 1;
    }
    return 0;
}
