// Preloaded into a program, makes its parents slow: children have gone on for long when fork returns.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <time.h>
#include <unistd.h>

pid_t fork(void)
{
    pid_t (*real)(void);
    *(void**)&real = dlsym(RTLD_NEXT, "fork");
    const pid_t child = real();
    if (child > 0) {
        const struct timespec pause = {0, 300000000};
        nanosleep(&pause, NULL);
    }
    return child;
}
