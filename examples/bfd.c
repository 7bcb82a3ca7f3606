/*
 * Lists the BFD sessions, and plumbs and unplumbs the port connections that they run over.
 *
 *     bfd list
 *     bfd plumb PORT TEXT MAC
 *     bfd unplumb PORT
 *
 * TEXT has at most 15 bytes. What the numbers of a session mean is the module's. The list takes 224 MB of memory,
 * however few sessions there are.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: bfd list | plumb PORT TEXT MAC | unplumb PORT (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "bfd: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* Six bytes from 02:00:00:00:00:01. */
static bool parse_mac(const char* text, uint8_t mac[6])
{
    return strlen(text) == 17 && strspn(text, "0123456789abcdefABCDEF:") == 17 &&
           sscanf(text, "%2hhx:%2hhx:%2hhx:%2hhx:%2hhx:%2hhx", mac, mac + 1, mac + 2, mac + 3, mac + 4, mac + 5) == 6;
}

static void print_mac(const uint8_t mac[6])
{
    printf("%02x:%02x:%02x:%02x:%02x:%02x", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
}

static int list(void)
{
    struct LumoBridgeBfdSessionList* sessions = NULL;
    if (LUMOZEPH_GetBridgeBFDSessions(NULL, &sessions) != 0)
        return failed("list", "BFD sessions");
    printf("sessions: %" PRId32 "\n", sessions->count);
    for (int32_t i = 0; i < sessions->count; ++i) {
        const struct LumoBridgeBfdSessionInfo* session = &sessions->records[i];
        print_mac(session->addr1);
        printf(" - ");
        print_mac(session->addr2);
        printf(" %d %" PRIu32 " %d %" PRIu32 " %" PRIu64 " %" PRIu64 "\n", session->value1, session->value2,
            session->value3, session->value4, session->value5, session->value6);
    }
    LUMOZEPH_ReleaseBridgeBFDSessions(sessions);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint8_t mac[6];

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 5 && strcmp(verb, "plumb") == 0 && strlen(argv[3]) < 16 && parse_mac(argv[4], mac))
        return LUMOZEPH_PlumbBFDPortConnection(argv[2], argv[3], mac) == 0 ? 0 : failed("plumb", argv[2]);
    if (argc == 3 && strcmp(verb, "unplumb") == 0)
        return LUMOZEPH_UnPlumbBFDPortConnection(argv[2]) == 0 ? 0 : failed("unplumb", argv[2]);
    return usage();
}
