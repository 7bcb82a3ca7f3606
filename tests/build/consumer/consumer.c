/* Compiled as C and as C++ against an installed library: links, runs, and finds no module. */
#include <errno.h>
#include <lumozeph.h>

int main(void)
{
    uint32_t level = 0;
    struct LumoInstanceList* list = 0;
    if (LUMOZEPH_GetLogLevel(&level) != -1 || errno != ENOENT)
        return 1;
    if (LUMOZEPH_GetInstances(&list) != -1 || errno != ENOENT || list != 0)
        return 2;
    return LUMOZEPH_ReleaseInstances(list);
}
