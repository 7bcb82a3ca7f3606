/* Refers a LIF to policy tables, reads how many references it has, and deletes them. */
#include <inttypes.h>
#include <lumozeph_inline.h>

int main(void)
{
    /* what is in an entry is the module's; the emulator's begins with a
     * table */
    const LumoPolicyTableRefEntry entries[2] = {{{7}}, {{8}}};
    LumoLifPolicyTableRef* ref = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetLif("uplink", "", 0, 0, 0, 0, 0, 0, "blue", NULL) !=
            0 ||
        LUMOZEPH_SetPolicyTable(7, "voice", NULL) != 0 ||
        LUMOZEPH_SetPolicyTable(8, "video", NULL) != 0 ||
        LUMOZEPH_SetLifPolicyTableRef(
            "blue", "uplink", 2, entries, NULL) != 0 ||
        LUMOZEPH_GetLifPolicyTableRef("blue", "uplink", &ref) != 0) {
        perror("refer uplink to policy tables");
        return 1;
    }
    printf("%" PRIu32 " references\n", lumozeph_policy_table_refs(ref));
    LUMOZEPH_ReleaseLifPolicyTableRef(ref);
    if (LUMOZEPH_DelLifPolicyTableRef("blue", "uplink", NULL) != 0) {
        perror("delete the references of uplink");
        return 1;
    }
    return 0;
}

/* prints:
 * 2 references
 */
