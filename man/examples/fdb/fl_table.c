/* Says whether the FL table holds anything. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    static char table[LUMOZEPH_FL_TABLE_SIZE];
    if (LUMOZEPH_DumpFLTable(0, table) != 0) {
        perror("FL table");
        return 1;
    }
    size_t used = sizeof table;
    while (used > 0 && table[used - 1] == 0)
        --used;
    puts(used == 0 ? "empty" : "in use");
    return 0;
}

/* prints:
 * empty
 */
