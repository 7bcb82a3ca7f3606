/* Spreads a target's indirection table over four queues, and reads it back. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoRssIndTable table = {{0}, LUMOZEPH_RSS_IND_TABLE_SIZE};
    for (int i = 0; i < LUMOZEPH_RSS_IND_TABLE_SIZE; ++i)
        table.entries[i] = i % 4;
    uint8_t entries[LUMOZEPH_RSS_IND_TABLE_SIZE];
    if (LUMOZEPH_SoftRSSTableSet("uplink", &table) != 0 ||
        LUMOZEPH_SoftRSSGetIndTable("uplink", entries) != 0) {
        perror("indirection table of uplink");
        return 1;
    }
    printf("%d %d %d %d %d\n", entries[0], entries[1], entries[2],
        entries[3], entries[4]);
    return 0;
}

/* prints:
 * 0 1 2 3 0
 */
