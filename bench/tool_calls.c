/* What lumozephctl stands on: the calls alone, by a program that prints nothing.
   usage: tool_calls [routes | sessions | add ROUTES] */
#include <lumozeph.h>

#include <stdint.h>
#include <stdlib.h>
#include <string.h>

static int read_routes(void)
{
    LumoRouteList* routes = NULL;
    return LUMOZEPH_GetRoutes("x", &routes) == 0 ? LUMOZEPH_ReleaseRoutes(routes) : -1;
}

static int read_sessions(void)
{
    LumoBridgeBfdSessionList* sessions = NULL;
    return LUMOZEPH_GetBridgeBFDSessions("x", &sessions) == 0 ? LUMOZEPH_ReleaseBridgeBFDSessions(sessions) : -1;
}

/* 11.0.0.0/24 and those behind it, to another instance, in the order of the network. */
static int add_routes(long count)
{
    for (long i = 0; i < count; ++i) {
        const uint8_t destination[4] = {11, (uint8_t)(i >> 8), (uint8_t)i, 0};
        const uint8_t mask[4] = {255, 255, 255, 0};
        const uint8_t gateway[4] = {10, 0, 0, 1};
        uint32_t words[3];
        memcpy(&words[0], destination, sizeof destination);
        memcpy(&words[1], mask, sizeof mask);
        memcpy(&words[2], gateway, sizeof gateway);
        if (LUMOZEPH_SetRoute(words[0], words[1], words[2], "x", "y", 0, NULL) != 0)
            return -1;
    }
    return 0;
}

int main(int argc, char** argv)
{
    int status = 0;
    if (argc == 2 && strcmp(argv[1], "routes") == 0)
        status = read_routes();
    else if (argc == 2 && strcmp(argv[1], "sessions") == 0)
        status = read_sessions();
    else if (argc == 3 && strcmp(argv[1], "add") == 0)
        status = add_routes(strtol(argv[2], NULL, 10));
    return status == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
