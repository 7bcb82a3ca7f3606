/*
 * Lists, sets and deletes the policies of a policy table.
 *
 *     policies TABLE list
 *     policies TABLE set KEY1 KEY2 VALUE
 *     policies TABLE delete KEY1 KEY2
 *
 * TABLE is a table's number. What the numbers of a policy and the module's answer to a change mean is the module's: the
 * emulator has the keys at value2 and value3, VALUE at value4, and answers with a number and a text.
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
    fputs("usage: policies TABLE list | set KEY1 KEY2 VALUE | delete KEY1 KEY2\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "policies: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int list(uint32_t table, const char* name)
{
    struct LumoPolicyList* policies = NULL;
    if (LUMOZEPH_GetPolicy(table, &policies) != 0)
        return failed("list table", name);
    printf("%10s %10s %10s\n", "KEY1", "KEY2", "VALUE");
    for (int32_t i = 0; i < policies->count; ++i) {
        const struct LumoPolicyInfo* policy = &policies->records[i];
        printf("%10" PRIu32 " %10" PRIu32 " %10" PRIu32 "\n", policy->value2, policy->value3, policy->value4);
    }
    LUMOZEPH_ReleaseAllPolicy(policies);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

/* Shows what the module has to say about a change. */
static int changed(const struct LumoCmdResult* result)
{
    uint32_t number = 0;
    memcpy(&number, result->bytes, sizeof number);
    printf("module: %" PRIu32 " %.84s\n", number, (const char*)result->bytes + sizeof number);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const char* verb = argc > 2 ? argv[2] : "";
    struct LumoCmdResult result;
    uint32_t table = 0;
    uint32_t key1 = 0;
    uint32_t key2 = 0;
    uint32_t value = 0;

    if (argc < 3 || !parse_number(argv[1], &table))
        return usage();
    if (argc == 3 && strcmp(verb, "list") == 0)
        return list(table, argv[1]);
    if (argc < 5 || !parse_number(argv[3], &key1) || !parse_number(argv[4], &key2))
        return usage();
    if (argc == 6 && strcmp(verb, "set") == 0 && parse_number(argv[5], &value))
        return LUMOZEPH_SetPolicy(table, key1, key2, value, &result) == 0 ? changed(&result)
                                                                          : failed("set in table", argv[1]);
    if (argc == 5 && strcmp(verb, "delete") == 0)
        return LUMOZEPH_DelPolicy(table, key1, key2, &result) == 0 ? changed(&result)
                                                                   : failed("delete from table", argv[1]);
    return usage();
}
