/*
 * Lists, adds and deletes the interface policies of a router instance: entries shaped like routes, kept under a kind.
 *
 *     lif_policies INSTANCE list KIND [TEXT]
 *     lif_policies INSTANCE add|delete DEST MASK GATEWAY LIF KIND [TEXT]
 *
 * KIND is a digit; kind 4 needs TEXT, which names what the policy applies to.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <arpa/inet.h>
#include <errno.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <string.h>

static int usage(void)
{
    fprintf(stderr, "usage: lif_policies INSTANCE list KIND [TEXT] (names: up to 63 bytes)\n"
                    "       lif_policies INSTANCE add|delete DEST MASK GATEWAY LIF KIND [TEXT]\n");
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "lif_policies: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

static bool parse_kind(const char* text, const char* applies_to, int32_t* kind)
{
    *kind = text[0] - '0';
    return *kind >= 0 && *kind <= 9 && text[1] == '\0' && (*kind != 4 || applies_to != NULL);
}

static void print_ipv4(const char* before, uint32_t address)
{
    char text[INET_ADDRSTRLEN];
    printf("%s%s", before, inet_ntop(AF_INET, &address, text, sizeof text));
}

/* The record is that of a route. */
static void print_policy(const struct LumoRouteInfo* policy)
{
    print_ipv4("", policy->routeDest);
    print_ipv4(" mask ", policy->routeMask);
    for (int i = 0; i < policy->nextHopCount && i < 8; ++i) {
        print_ipv4(" via ", policy->nextHops[i].nextHopAddr);
        if (policy->nextHops[i].nextHopLifName[0] != '\0')
            printf(" dev %s", policy->nextHops[i].nextHopLifName);
    }
    putchar('\n');
}

static int list(const char* instance, int32_t kind, const char* text)
{
    struct LumoRouteList* policies = NULL;
    if (LUMOZEPH_GetLifPolicies(instance, (uint32_t)kind, text, &policies) != 0)
        return failed("list", instance);
    for (int32_t i = 0; i < policies->count; ++i)
        print_policy(&policies->records[i]);
    LUMOZEPH_ReleaseRoutes(policies);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";
    uint32_t dest = 0;
    uint32_t mask = 0;
    uint32_t gateway = 0;
    int32_t kind = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if ((argc == 4 || argc == 5) && strcmp(verb, "list") == 0 && parse_kind(argv[3], argv[4], &kind))
        return list(argv[1], kind, argv[4]);
    if (argc < 8 || argc > 9 || (strcmp(verb, "add") != 0 && strcmp(verb, "delete") != 0) ||
        inet_pton(AF_INET, argv[3], &dest) != 1 || inet_pton(AF_INET, argv[4], &mask) != 1 ||
        inet_pton(AF_INET, argv[5], &gateway) != 1 || !parse_kind(argv[7], argv[8], &kind))
        return usage();
    if ((strcmp(verb, "add") == 0 ? LUMOZEPH_SetLifPolicy : LUMOZEPH_DelLifPolicy)(
            kind, argv[8], dest, mask, gateway, argv[6], argv[1], 0, NULL) != 0)
        return failed(verb, argv[3]);
    return 0;
}
