/*
 * Lists, sets and deletes policy tables, and the references from a logical interface (LIF) to them.
 *
 *     policy_tables list
 *     policy_tables set NUMBER NAME
 *     policy_tables delete NUMBER
 *     policy_tables refs INSTANCE LIF
 *     policy_tables refer INSTANCE LIF REFERENCE
 *
 * A REFERENCE is 48 hexadecimal digits: its 24 bytes have a meaning to the module only.
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
    fprintf(stderr, "usage: policy_tables list | set NUMBER NAME | delete NUMBER (names: up to 63 bytes)\n"
                    "       policy_tables refs INSTANCE LIF | refer INSTANCE LIF REFERENCE\n");
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "policy_tables: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int list(void)
{
    struct LumoPolicyTableList* tables = NULL;
    if (LUMOZEPH_GetPolicyTable(&tables) != 0)
        return failed("list", "policy tables");
    for (int32_t i = 0; i < tables->count; ++i)
        printf("%" PRIu32 " %s\n", tables->records[i].policyTableId, tables->records[i].policyTableName);
    LUMOZEPH_ReleaseAllPolicyTable(tables);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int list_references(const char* instance, const char* lif)
{
    struct LumoLifPolicyTableRef* references = NULL;
    if (LUMOZEPH_GetLifPolicyTableRef(instance, lif, &references) != 0)
        return failed("list references of", lif);
    for (int i = 0; i < references->refCount && i < 20; ++i)
        for (int k = 0; k < 24; ++k)
            printf("%02x%s", references->refs[i].bytes[k], k < 23 ? "" : "\n");
    LUMOZEPH_ReleaseLifPolicyTableRef(references);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int refer(const char* instance, const char* lif, const char* digits)
{
    struct LumoPolicyTableRefEntry reference;
    for (int i = 0; i < 24; ++i)
        sscanf(digits + 2 * i, "%2hhx", &reference.bytes[i]);
    return LUMOZEPH_SetLifPolicyTableRef(instance, lif, 1, &reference, NULL) == 0 ? 0 : failed("set reference of", lif);
}

int main(int argc, char** argv)
{
    const char* verb = argc > 1 ? argv[1] : "";
    uint32_t number = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if (argc == 2 && strcmp(verb, "list") == 0)
        return list();
    if (argc == 4 && strcmp(verb, "set") == 0 && parse_number(argv[2], &number))
        return LUMOZEPH_SetPolicyTable(number, argv[3], NULL) == 0 ? 0 : failed("set", argv[2]);
    if (argc == 3 && strcmp(verb, "delete") == 0 && parse_number(argv[2], &number))
        return LUMOZEPH_DelPolicyTable(number, NULL) == 0 ? 0 : failed("delete", argv[2]);
    if (argc == 4 && strcmp(verb, "refs") == 0)
        return list_references(argv[2], argv[3]);
    if (argc == 5 && strcmp(verb, "refer") == 0 && strlen(argv[4]) == 48 &&
        strspn(argv[4], "0123456789abcdefABCDEF") == 48)
        return refer(argv[2], argv[3], argv[4]);
    return usage();
}
