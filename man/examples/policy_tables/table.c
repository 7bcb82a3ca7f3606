/* Creates a policy table, lists all of them, and deletes it. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoPolicyTableList* tables = NULL;
    if (LUMOZEPH_SetPolicyTable(7, "voice", NULL) != 0 ||
        LUMOZEPH_GetPolicyTable(&tables) != 0) {
        perror("create table 7");
        return 1;
    }
    for (int32_t i = 0; i < tables->count; ++i)
        printf("%" PRIu32 " %s\n", tables->records[i].policyTableId,
            tables->records[i].policyTableName);
    LUMOZEPH_ReleaseAllPolicyTable(tables);
    if (LUMOZEPH_DelPolicyTable(7, NULL) != 0) {
        perror("delete table 7");
        return 1;
    }
    return 0;
}

/* prints:
 * 7 voice
 */
