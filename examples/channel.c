/*
 * Sends the module a command by its number and dumps the reply.
 *
 *     channel COMMAND ROOM [KEY]
 *
 * ROOM is the room for the reply in bytes. The input is a request record with the instance key KEY, a name or UUID, and
 * zeros otherwise; without KEY, there is no input. What a command does with either is the module's business: send no
 * number whose meaning you do not know.
 * Exits 0 on success, 1 when something fails, 2 on wrong usage.
 */
#include <ctype.h>
#include <errno.h>
#include <lumozeph.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int usage(void)
{
    fputs("usage: channel COMMAND ROOM [KEY] (names: up to 63 bytes)\n", stderr);
    return 2;
}

/* Says what was tried, on what, and why it failed. */
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    fprintf(stderr, "channel: %s %s: %s%s\n", what, name, strerror(error), hint);
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

/* Sixteen bytes a line, in hexadecimal and as text. */
static void dump(const unsigned char* bytes, size_t length)
{
    for (size_t line = 0; line < length; line += 16) {
        printf("%4zx ", line);
        for (size_t i = line; i < line + 16; ++i) {
            if (i < length)
                printf(" %02x", bytes[i]);
            else
                printf("   ");
        }
        printf("  ");
        for (size_t i = line; i < line + 16 && i < length; ++i)
            putchar(isprint(bytes[i]) ? bytes[i] : '.');
        putchar('\n');
    }
}

static int ask(int32_t command, const char* name, uint32_t room, const char* key)
{
    char request[776] = {0};
    unsigned char* reply = calloc(1, room);
    struct LumoEnvelope envelope = {0, NULL, room, reply};
    int status = 0;
    if (key != NULL) {
        LUMOZEPHGetUuidOrName(key, request);
        envelope.inLen = sizeof request;
        envelope.inPtr = request;
    }
    if ((reply == NULL && room > 0) || LUMOZEPHIoctl(command, &envelope) != 0)
        status = failed("command", name);
    else /* the module says how much it wrote, but we know how much there can be */
        dump(reply, envelope.outLen < room ? envelope.outLen : room);
    free(reply);
    if (status == 0 && (fflush(stdout) != 0 || ferror(stdout)))
        status = failed("write", "to standard output");
    return status;
}

int main(int argc, char** argv)
{
    uint32_t command = 0;
    uint32_t room = 0;

    for (int i = 1; i < argc; ++i)
        if (strlen(argv[i]) > 63) /* would be cut without an error, and name something else */
            return usage();
    if ((argc == 3 || argc == 4) && parse_number(argv[1], &command) && command <= INT32_MAX &&
        parse_number(argv[2], &room))
        return ask((int32_t)command, argv[1], room, argv[3]);
    return usage();
}
