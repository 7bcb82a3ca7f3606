/* Lists the BFD sessions. */
#include <lumozeph_inline.h>

int main(void)
{
    LumoBridgeBfdSessionList* sessions = NULL;
    if (LUMOZEPH_GetBridgeBFDSessions(NULL, &sessions) != 0) {
        perror("BFD sessions");
        return 1;
    }
    for (int32_t i = 0; i < sessions->count; ++i) {
        char text[LUMOZEPH_MAC_TEXT_SIZE];
        puts(lumozeph_mac_to_text(sessions->records[i].addr1, text));
    }
    LUMOZEPH_ReleaseBridgeBFDSessions(sessions);
    return 0;
}
