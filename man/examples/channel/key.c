/* Puts an instance's name into a request, in the form that requests carry it. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    char request[LUMOZEPH_REQUEST_SIZE] = {0};
    LUMOZEPHGetUuidOrName("blue", request);
    printf("%.*s\n", LUMOZEPH_KEY_SIZE, request);
    return 0;
}

/* prints:
 * blue
 */
