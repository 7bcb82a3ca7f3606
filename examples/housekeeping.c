/*
 * Starts a full-sync save of the module and shows its result and its status.
 *
 *     housekeeping save VALUE
 *     housekeeping status
 *
 * VALUE is handed to the module as it stands. What the numbers mean is the module's: the emulator counts the saves.
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
    fputs("usage: housekeeping save VALUE | status (VALUE: at most 255)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "housekeeping: %s %s: %s%s\n", what, name, strerror(error), hint);
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

static int show_status(void)
{
    uint32_t status = 0; /* the module need not write it */
    if (LUMOZEPH_GetFullSyncSaveStatus(&status) != 0)
        return failed("read status of", "full-sync save");
    printf("status %" PRIu32 "\n", status);
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : failed("write", "to standard output");
}

static int save(uint8_t value)
{
    uint32_t result = 0; /* the module need not write it */
    if (LUMOZEPH_PerformFullSyncSave(value, &result) != 0)
        return failed("start", "full-sync save");
    printf("result %" PRIu32 "\n", result);
    return show_status();
}

int main(int argc, char** argv)
{
    uint32_t value = 0;

    if (argc == 3 && strcmp(argv[1], "save") == 0 && parse_number(argv[2], &value) && value <= UINT8_MAX)
        return save((uint8_t)value);
    if (argc == 2 && strcmp(argv[1], "status") == 0)
        return show_status();
    return usage();
}
