/* Creates a router instance and finds it again. Compiled as C and as C++. */
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    LumoInstanceList* list = NULL;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 || LUMOZEPH_GetInstances(&list) != 0) {
        perror("program");
        return 1;
    }
    for (int32_t i = 0; i < list->count; ++i)
        printf("%s\n", list->records[i].instanceKey);
    return LUMOZEPH_ReleaseInstances(list);
}
