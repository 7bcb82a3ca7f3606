/*
 * Lists the multicast groups of a router instance, or shows, adds or deletes its multicast router.
 *
 *     mcast_groups INSTANCE list
 *     mcast_groups INSTANCE show|add ADDRESS
 *     mcast_groups INSTANCE delete
 *
 * What the numbers of a group mean is the module's: the emulator has its value, the number of its local and that of its
 * remote receivers. The library takes a router under a value, which for the emulator is its address.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: mcast_groups INSTANCE list | show|add ADDRESS | delete (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "mcast_groups: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

static int list(const char* instance)
{
    struct LumoMcastGroupList* groups = NULL;
    if (LUMOZEPH_GetMRoutingAllMcastGroups(instance, &groups) != 0)
        return failed("list", instance);
    for (int32_t i = 0; i < groups->count; ++i) {
        const struct LumoMcastGroupInfo* group = &groups->records[i];
        printf("%" PRIu32 ": %" PRIu32 " local, %" PRIu32 " remote\n", group->value1, group->value2, group->value3);
    }
    LUMOZEPH_ReleaseMRoutingMcastGroups(groups);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static void print_address(const char* name, uint32_t address)
{
    char text[INET_ADDRSTRLEN];
    printf("%s %s\n", name, inet_ntop(AF_INET, &address, text, sizeof text));
}

static int show(const char* instance, uint32_t value)
{
    uint32_t router = 0; /* the module need not write them */
    uint32_t replication = 0;
    if (LUMOZEPH_GetMRoutingMRouterIP(instance, value, &router) != 0)
        return failed("show router of", instance);
    if (LUMOZEPH_GetMRoutingReplicationIP(instance, value, &replication) != 0)
        return failed("show replication address of", instance);
    print_address("router", router);
    print_address("replication", replication);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";
    uint32_t address = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 3 && strcmp(verb, "list") == 0)
        return list(argv[1]);
    if (argc == 3 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelMRoutingMRouter(argv[1]) == 0 ? 0 : failed("delete router of", argv[1]);
    if (argc != 4 || inet_pton(AF_INET, argv[3], &address) != 1)
        return usage();
    if (strcmp(verb, "add") == 0)
        return LUMOZEPH_AddMRoutingMRouter(argv[1], address) == 0 ? 0 : failed("add router to", argv[1]);
    if (strcmp(verb, "show") == 0)
        return show(argv[1], address);
    return usage();
}
