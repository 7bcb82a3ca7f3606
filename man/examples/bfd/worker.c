/* Reads the BFD sessions into a list that the program has allocated itself. */
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    LumoBridgeBfdSessionList* sessions = calloc(1, sizeof *sessions);
    if (sessions == NULL ||
        LUMOZEPHGetBridgeBFDSessions(NULL, sessions) != 0) {
        perror("BFD sessions");
        return 1;
    }
    printf("%" PRId32 " sessions\n", sessions->count);
    LUMOZEPH_ReleaseBridgeBFDSessions(sessions);
    return 0;
}

/* prints:
 * 0 sessions
 */
