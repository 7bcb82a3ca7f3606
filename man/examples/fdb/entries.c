/* Sets a forwarding entry of a bridge's network, lists them, and clears the table. */
#include <lumozeph_inline.h>

int main(void)
{
    LumoBridgeFdbList* entries = NULL;
    if (LUMOZEPH_BridgeAdd("br0", 100) != 0 ||
        LUMOZEPH_BridgeSetFdbEntry(
            "br0", "02:00:00:00:00:01", 1, 2, 5, 0) != 0 ||
        LUMOZEPH_GetBridgeFdbEntries("br0", 1, 2, &entries) != 0) {
        perror("forwarding table of br0");
        return 1;
    }
    for (int32_t i = 0; i < entries->count; ++i) {
        char text[LUMOZEPH_MAC_TEXT_SIZE];
        puts(lumozeph_mac_to_text(entries->records[i].mac, text));
    }
    LUMOZEPH_ReleaseBridgeFdbEntries(entries);
    if (LUMOZEPH_BridgeClearFdbTable("br0", 1, 2) != 0) {
        perror("clear the forwarding table of br0");
        return 1;
    }
    return 0;
}

/* prints:
 * 02:00:00:00:00:01
 */
