/* Flushes what the values and the text select; what that is, is the module's. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    if (LUMOZEPH_GenericFlush(1, 0, 0, 0, "blue", 0) != 0) {
        perror("flush");
        return 1;
    }
    return 0;
}
