/* Compiled as C and as C++ against an installed library: links, runs, and finds no module. */
#include <errno.h>
#include <lumozeph_inline.h>
#include <string.h>

int main(void)
{
    uint32_t level = 0;
    LumoInstanceList* list = 0;
    char text[80];
    if (LUMOZEPH_GetLogLevel(&level) != -1 || errno != ENOENT)
        return 1;
    if (LUMOZEPH_GetInstances(&list) != -1 || errno != ENOENT || list != 0)
        return 2;
    if (strstr(lumozeph_reason(errno, text, sizeof text), "not loaded") == 0)
        return 3;
    return LUMOZEPH_ReleaseInstances(list);
}
