/*
 * Creates, lists, shows, tunes and deletes router instances.
 *
 *     instances list
 *     instances show KEY
 *     instances set KEY VALUE
 *     instances tune KEY TUNABLES VALUE
 *     instances delete KEY
 *
 * KEY is an instance's name or UUID. That text2 is the UUID is how the emulator has it.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <ctype.h>
#include <errno.h>
#include <inttypes.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fprintf(stderr, "usage: instances list | show KEY | set KEY VALUE | delete KEY (names: up to 63 bytes)\n"
                    "       instances tune KEY TUNABLES VALUE\n");
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "instances: %s %s: %s%s\n", what, name, strerror(error), hint);
    return 1;
}

/* A number in decimal. */
static bool parse_number(const char* text, uint32_t* value)
{
    char* end = NULL;
    const unsigned long long number = strtoull(text, &end, 10);
    *value = (uint32_t)number;
    return isdigit((unsigned char)text[0]) && *end == '\0' && number <= UINT32_MAX;
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
    if (LUMOZEPH_GetInstances(&instances) != 0)
        return failed("list", "instances");
    print_heading();
    for (int32_t i = 0; i < instances->count; ++i)
        print_instance(&instances->records[i]);
    LUMOZEPH_ReleaseInstances(instances);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int show(const char* key)
{
    struct LumoInstanceInfo* instance = NULL;
    if (LUMOZEPH_GetInstance(key, &instance) != 0)
        return failed("show", key);
    print_heading();
    print_instance(instance);
    LUMOZEPH_ReleaseInstance(instance);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint32_t value = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 3 && strcmp(verb, "show") == 0)
        return show(argv[2]);
    if (argc == 4 && strcmp(verb, "set") == 0 && parse_number(argv[3], &value))
        return LUMOZEPH_SetLumoInstance(argv[2], value, NULL, 0) == 0 ? 0 : failed("set", argv[2]);
    if (argc == 5 && strcmp(verb, "tune") == 0 && parse_number(argv[4], &value))
        return LUMOZEPH_SetLumoInstanceTunables(argv[2], argv[3], value) == 0 ? 0 : failed("tune", argv[2]);
    if (argc == 3 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelLumoInstance(argv[2]) == 0 ? 0 : failed("delete", argv[2]);
    return usage();
}
