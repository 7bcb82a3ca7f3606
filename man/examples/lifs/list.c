/* Lists an instance's routed LIFs with their IPv4 addresses. */
#include <arpa/inet.h>
#include <lumozeph_inline.h>

int main(void)
{
    LumoLifList* lifs = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", inet_addr("10.0.0.2"),
            inet_addr("255.255.255.0"), 0, 0, 0, 0, "blue", NULL) != 0 ||
        LUMOZEPH_GetLifs("blue", &lifs) != 0) {
        perror("LIFs of blue");
        return 1;
    }
    for (int32_t i = 0; i < lifs->count; ++i) {
        const LumoLifInfo* lif = &lifs->records[i];
        /* a packed field: by value, never its address */
        const uint32_t address = lif->ipAddr;
        char text[INET_ADDRSTRLEN];
        printf("%s %s/%d\n", lif->lifName,
            inet_ntop(AF_INET, &address, text, sizeof text),
            lumozeph_length_of_mask(lif->ipMask));
    }
    LUMOZEPH_ReleaseLifs(lifs);
    return 0;
}

/* prints:
 * uplink 10.0.0.2/24
 */
