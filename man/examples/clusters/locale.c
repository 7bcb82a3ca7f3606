/* Prints the locale identifier. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint8_t id[LUMOZEPH_LOCALE_ID_SIZE] = {0};
    if (LUMOZEPH_GetLocaleId(id) != 0) {
        perror("locale identifier");
        return 1;
    }
    for (int i = 0; i < LUMOZEPH_LOCALE_ID_SIZE; ++i)
        printf("%02x", id[i]);
    putchar('\n');
    return 0;
}

/* prints:
 * 000102030405060708090a0b0c0d0e0f
 */
