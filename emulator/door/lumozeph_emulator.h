/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The emulated module inside the program itself: liblumozeph-emulator, preloaded or linked, answers this process's calls
 * of the module's device. With these functions a program, a test above all, has a say in the module of its process.
 *
 * Every process has a module of its own. A child that is forked goes on with a copy of its parent's, and a program that
 * is executed begins with a new one.
 *
 * The functions may be called from any thread. They return 0 on success and -1 on failure, with the reason in errno:
 * ENOMEM if memory could not be allocated, EDEADLK if they are called by a watcher.
 */
#ifndef LUMOZEPH_EMULATOR_H
#define LUMOZEPH_EMULATOR_H

#include <stdint.h>

#if defined(__cplusplus)
extern "C" {
#endif

#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

/** A command that the module has answered. What it points at is there during the watcher's call only. */
struct LumoEmulatorCommand
{
    uint32_t number;      /**< the ioctl's request */
    int32_t error;        /**< 0, or the errno that the module answers */
    const void* input;    /**< what was sent */
    uint32_t inputLength; /**< in bytes */
    uint32_t room;        /**< the room for the reply, in bytes */
    const void* reply;    /**< what the module replies; there is nothing if it answers an error */
    uint32_t replyLength; /**< in bytes */
};

/**
 * Is shown each command.
 *
 * It is called in the thread that has issued the command, before the reply arrives there, for one command at a time in
 * the order in which the module answers them. It must return, and cannot use the device itself: inside it, every call of
 * the device fails with EDEADLK.
 *
 * @param command  what was asked and answered
 * @param context  what was passed to lumozeph_emulator_watch()
 */
typedef void (*LumoEmulatorWatcher)(const struct LumoEmulatorCommand* command, void* context);

/**
 * Puts a new module in the place of this process's: what was set is forgotten. Descriptors of the device stay open, and
 * the watcher stays. The new module accepts what makes no sense if the environment now has
 * LUMOZEPH_EMULATOR_LENIENT, with any text but none, and its time stands still until it is advanced if
 * LUMOZEPH_EMULATOR_CLOCK is "manual". If LUMOZEPH_EMULATOR_STATE names a file, the module begins with what it
 * describes. There are only those faults left that are in LUMOZEPH_EMULATOR_FAULTS, with spaces between them; what
 * is at random in faults comes of the number in LUMOZEPH_EMULATOR_SEED. The program ends if the file or a fault
 * makes no sense. The same holds for the first module and the environment at its time.
 *
 * @return  0, or -1 with the reason in errno
 */
int32_t lumozeph_emulator_reset(void);

/**
 * Puts a new module in the place of this process's, with the state that a file describes. What is wrong with the file is said
 * on standard error, with its line and column, and then nothing has changed.
 *
 * @param path  a JSON file, as lumozeph_emulator_save() writes it or shorter
 * @return      0, or -1 with the reason in errno: EINVAL if the file cannot be read or says something else
 */
int32_t lumozeph_emulator_load(const char* path);

/**
 * Writes the state of this process's module to a file, from which lumozeph_emulator_load() makes the same again.
 *
 * @param path  the file, which is replaced
 * @return      0, or -1 with the reason in errno: EIO if the file cannot be written
 */
int32_t lumozeph_emulator_save(const char* path);

/**
 * Lets the module's time pass, beside what passes by itself. What takes time has then happened: connections have come up,
 * counters have moved on, and what was learned has been forgotten.
 *
 * @param nanoseconds  how much, up to 100 years in all
 * @return             0, or -1 with the reason in errno: EINVAL if that is longer, and then no time has passed
 */
int32_t lumozeph_emulator_advance(uint64_t nanoseconds);

/**
 * Has every command shown from now on. When this returns, the watcher that was there before is not running and is not
 * called again.
 *
 * @param watcher  null: none
 * @param context  passed to the watcher as it is
 * @return         0, or -1 with the reason in errno
 */
int32_t lumozeph_emulator_watch(LumoEmulatorWatcher watcher, void* context);

/**
 * Has commands go wrong from now on. What is wrong with the text is said on standard error, with its column, and then
 * nothing has changed.
 *
 * "GetLifs=ENODEV" has every GetLifs fail with ENODEV, without the module hearing of it. In the place of the name there
 * may be a pattern with asterisks, the command's number or any; "#2" behind it, "#3-5" or "#3-" say which of these
 * commands, counted from now on, and "%0.01" with what probability. In the place of the errno there may be:
 *
 * - short:100, the reply is cut to so many bytes; fragment, it ends in the middle of a record; long, it is said to be
 *   longer than the room; garbage, it is bytes at random; count:255, the counts in it are this number,
 * - delay:50ms, the command waits before it takes place; hang, it waits until the process ends. Other threads go on.
 *
 * Where several faults strike one command, their delays add up, and of the others the first one counts.
 *
 * @param fault  the text
 * @return       0, or -1 with the reason in errno: EINVAL if the text makes no sense
 */
int32_t lumozeph_emulator_add_fault(const char* fault);

/**
 * Takes away all faults. Commands that wait go on waiting.
 *
 * @return  0, or -1 with the reason in errno
 */
int32_t lumozeph_emulator_clear_faults(void);

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#if defined(__cplusplus)
}
#endif

#endif
