/*
 * Creates, lists, reads, tunes and deletes router instances.
 *
 *     instances list
 *     instances show KEY
 *     instances set KEY VALUE
 *     instances tune KEY TUNABLES VALUE
 *     instances delete KEY
 *
 * KEY is an instance's name or UUID. Exits 0 on success, 1 when the module refuses, 2 on wrong usage.
 */
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: instances list | show KEY | set KEY VALUE | tune KEY TUNABLES VALUE | delete KEY\n", stderr);
    return 2;
}

/* Says why a call failed, in terms of what the user asked for. */
static int failed(const char* what, const char* key)
{
    const int error = errno;
    if (error == ENOENT && key != NULL)
        fprintf(stderr, "instances: %s %s: no such instance, or no module on this host\n", what, key);
    else
        fprintf(
            stderr, "instances: %s%s%s: %s\n", what, key != NULL ? " " : "", key != NULL ? key : "", strerror(error));
    return 1;
}

static int parse(const char* text, uint32_t* value)
{
    char* end = NULL;
    unsigned long parsed = 0;
    errno = 0;
    parsed = strtoul(text, &end, 0);
    if (errno != 0 || end == text || *end != '\0' || parsed > UINT32_MAX)
        return -1;
    *value = (uint32_t)parsed;
    return 0;
}

static void print_heading(void)
{
    printf("%-24s %-38s %12s\n", "INSTANCE", "UUID", "VALUE");
}

static void print_instance(const struct LumoInstanceInfo* instance)
{
    printf("%-24s %-38s %12" PRIu32 "\n", instance->instanceKey, instance->text2, instance->value1);
}

static int list(void)
{
    struct LumoInstanceList* instances = NULL;
    int32_t i = 0;
    if (LUMOZEPH_GetInstances(&instances) != 0)
        return failed("list", NULL);
    print_heading();
    for (i = 0; i < instances->count; ++i)
        print_instance(&instances->records[i]);
    LUMOZEPH_ReleaseInstances(instances);
    return 0;
}

static int show(const char* key)
{
    struct LumoInstanceInfo* instance = NULL;
    if (LUMOZEPH_GetInstance(key, &instance) != 0)
        return failed("show", key);
    print_heading();
    print_instance(instance);
    LUMOZEPH_ReleaseInstance(instance);
    return 0;
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint32_t value = 0;

    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 3 && strcmp(verb, "show") == 0)
        return show(argv[2]);
    if (argc == 4 && strcmp(verb, "set") == 0 && parse(argv[3], &value) == 0)
        return LUMOZEPH_SetLumoInstance(argv[2], value, NULL, 0) == 0 ? 0 : failed("set", argv[2]);
    if (argc == 5 && strcmp(verb, "tune") == 0 && parse(argv[4], &value) == 0)
        return LUMOZEPH_SetLumoInstanceTunables(argv[2], argv[3], value) == 0 ? 0 : failed("tune", argv[2]);
    if (argc == 3 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelLumoInstance(argv[2]) == 0 ? 0 : failed("delete", argv[2]);
    return usage();
}
