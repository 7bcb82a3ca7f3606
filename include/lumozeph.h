/* SPDX-License-Identifier: Apache-2.0 */
/*
 * lumozeph: reads and changes the state of the host's kernel-resident distributed router and layer-2 bridge.
 *
 * Conventions. What is said here holds for every function; a function's own comment names only what differs.
 *
 *  1. Result. Every function returns 0 on success and -1 on failure, with the reason in errno. Nothing is logged,
 * nothing is retried.
 *  2. errno.
 *       EINVAL   a required argument is null or a value is rejected; the module has not been contacted;
 *       ENOMEM   the library could not allocate memory; set by the library whatever the allocator left behind;
 *       EBADMSG  the module's reply is shorter than one record, or a list ends in a fragment of a record;
 *       other    as open(2) or ioctl(2) on the module's device left it, passed through unchanged (ENOENT and EACCES
 * from the open; whatever the module answers from the ioctl).
 *  3. Null. A pointer argument must not be null unless its function says "or null". Where a null argument is rejected,
 *     the function says EINVAL; where it says nothing, null is not tested and the program's behaviour is undefined.
 *  4. Ownership. Arguments are read, or filled, during the call only. A function that stores a pointer through an "out"
 *     argument hands over memory of the C allocator, to be given to the Release function that its comment names (or to
 *     free() where it says so). Nothing else frees it, and the library keeps no reference. Release functions accept
 * null.
 *  5. Out pointers on failure. Single reads: untouched while nothing has been allocated for the caller (null argument,
 *     failed reply buffer, failed device call); null when the result could not be allocated or the reply was too short.
 *     List reads: null after every failure that follows the null checks. A list is never returned partly filled.
 *  6. Lists. {count, records}: records always has room for the family's full cap, zero-filled past count. What the
 * module reports beyond the cap is ignored without an error.
 *  7. Byte order. Integers are in host byte order and are passed on as they stand, both ways. MAC addresses are six
 *     bytes in wire order. An IPv6 address is sixteen bytes in wire order; as an argument it is two 64-bit words
 * holding those bytes unchanged, the first eight in the first word. IPv4 addresses and masks are 32-bit values that the
 *     library hands to the module as the caller holds them.
 *  8. Texts. Plain bytes ended by NUL. A text that goes into a field of N bytes is cut, without an error, to its first
 *     N - 1 bytes, and a text that comes out of one always ends in NUL, with zero bytes after it. "Unterminated" at an
 *     argument means that all N bytes are used and a text of N or more bytes arrives without a NUL.
 *  9. Instance key. A router instance is named by its name or by its UUID in text form (lower-case hexadecimal digits,
 *     8-4-4-4-12), at most 63 bytes. The module tells the two apart.
 * 10. Threads. The library has no state: every call opens the device, issues one command and closes the device. Calls
 * from any number of threads are independent; their order is the module's business.
 * 11. Environment. If USE_UPGRADE_DEV is set, to whatever value, a call uses the module's upgrade device. It is looked
 * up on every call.
 * 12. Records. Every record is packed: fields lie where the comment before them says, unaligned where that is so. Take
 *     the address of such a field only as a pointer to bytes. Fields that the library does not interpret are called
 *     value, text, data or bytes and numbered in the order in which they lie; "not copied" bytes are zero whatever the
 *     module sent.
 */
#ifndef LUMOZEPH_H
#define LUMOZEPH_H

#include <stdint.h>

#if defined(__cplusplus)
#define LUMOZEPH_RECORD_SIZE(type, size)                                                                               \
    static_assert(sizeof(struct type) == (size), "struct " #type " is " #size " bytes")
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define LUMOZEPH_RECORD_SIZE(type, size)                                                                               \
    _Static_assert(sizeof(struct type) == (size), "struct " #type " is " #size " bytes")
#else
#define LUMOZEPH_RECORD_SIZE(type, size) typedef char type##_size_holds[sizeof(struct type) == (size) ? 1 : -1]
#endif

#define LUMOZEPH_PACKED __attribute__((packed))

#if defined(__cplusplus)
extern "C" {
#endif

#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

/* ------------------------------------------------------------------------------------------------------------------ *
 * 1. Channel
 * ------------------------------------------------------------------------------------------------------------------ */

/* What one ioctl carries to the module and back. */
struct LumoEnvelope
{
    uint32_t inLen;    /* 0: bytes at inPtr; 776 for a request record */
    const void* inPtr; /* 4: the command's input, or null */
    uint32_t outLen;   /* 12: room at outPtr in bytes; the module stores the number of bytes it wrote */
    void* outPtr;      /* 16: where the module writes its reply, or null */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoEnvelope, 24);

/*
 * Issues one command: opens the module's device read-write, calls ioctl with the command number and the envelope, and
 * closes the device. For tools that speak to the module directly; every other function goes through it.
 *
 * command   passed to ioctl sign-extended and unchecked
 * envelope  handed to the module, which rewrites outLen
 *
 * Sets no errno of its own.
 */
int32_t LUMOZEPHIoctl(int32_t command, struct LumoEnvelope* envelope);

/*
 * Turns a name or a UUID text into the instance key that requests carry.
 *
 * text  a name or a UUID text; used as it stands, whether or not it is a well-formed UUID
 * key   64 bytes, filled with the first 63 bytes of text and zero bytes after them
 *
 * Always returns 0.
 */
int32_t LUMOZEPHGetUuidOrName(const char* text, char key[64]);

/* ------------------------------------------------------------------------------------------------------------------ *
 * 2. Router instances
 * ------------------------------------------------------------------------------------------------------------------ */

/* One router instance as the module reports it. */
struct LumoInstanceInfo
{
    char instanceKey[64]; /* 0: the instance's key text */
    uint32_t value1;      /* 64: the value given to LUMOZEPH_SetLumoInstance */
    uint32_t value2;      /* 68 */
    uint16_t value3;      /* 72: zeroed by LUMOZEPH_ReleaseInstances */
    uint16_t value4;      /* 74: zeroed by LUMOZEPH_ReleaseInstances */
    uint16_t value5;      /* 76: zeroed by LUMOZEPH_ReleaseInstances */
    uint32_t value6;      /* 78 */
    uint32_t value7;      /* 82 */
    uint32_t value8;      /* 86 */
    uint8_t value9;       /* 90 */
    uint16_t value10;     /* 91 */
    uint8_t uncopied[2];  /* 93: not copied */
    uint8_t value11;      /* 95 */
    uint8_t value12;      /* 96 */
    uint8_t bytes1[13];   /* 97 */
    uint32_t words[4];    /* 110 */
    uint32_t value13;     /* 126 */
    uint16_t value14;     /* 130 */
    uint8_t value15;      /* 132 */
    uint16_t value16;     /* 133 */
    uint8_t value17;      /* 135 */
    char text2[64];       /* 136 */
    uint16_t value18;     /* 200 */
    uint8_t bytes2[32];   /* 202 */
    uint64_t value19;     /* 234 */
    uint32_t value20;     /* 242 */
    uint8_t value21;      /* 246 */
    uint32_t value22;     /* 247 */
    uint32_t value23;     /* 251 */
    uint8_t value24;      /* 255 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoInstanceInfo, 256);

struct LumoInstanceList
{
    int32_t count;                    /* instances in records */
    struct LumoInstanceInfo* records; /* room for 1000 */
};
LUMOZEPH_RECORD_SIZE(LumoInstanceList, 16);

/*
 * Creates an instance, or updates it if it exists.
 *
 * instance  its key; null: EINVAL
 * value1    comes back as LumoInstanceInfo.value1
 * text      at most 18 bytes, unterminated at 18; or null for none
 * value2    passed on as it stands
 */
int32_t LUMOZEPH_SetLumoInstance(const char* instance, uint32_t value1, const char* text, uint32_t value2);

/* Deletes an instance. A null key: EINVAL. */
int32_t LUMOZEPH_DelLumoInstance(const char* instance);

/*
 * Sets an instance's tunables.
 *
 * instance  its key; null: EINVAL
 * tunables  at most 63 bytes
 * value     passed on as it stands
 */
int32_t LUMOZEPH_SetLumoInstanceTunables(const char* instance, const char* tunables, uint32_t value);

/*
 * Reads one instance.
 *
 * instance  its key; null: EINVAL
 * out       receives the record; free it with LUMOZEPH_ReleaseInstance
 */
int32_t LUMOZEPH_GetInstance(const char* instance, struct LumoInstanceInfo** out);

/*
 * Reads all instances, at most 1000.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseInstances
 */
int32_t LUMOZEPH_GetInstances(struct LumoInstanceList** out);

/* Frees a record of LUMOZEPH_GetInstance, or null. */
int32_t LUMOZEPH_ReleaseInstance(struct LumoInstanceInfo* instance);

/* Frees a list of LUMOZEPH_GetInstances, or null. Zeroes value3, value4 and value5 of each record before that. */
int32_t LUMOZEPH_ReleaseInstances(struct LumoInstanceList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * 3. Runtime levels and queue tunables
 *
 * Four module-wide 32-bit settings. The library checks no range; the module owns the values. A read with a null address
 * gives EINVAL; a failed read leaves the caller's value untouched. The length that the module reports is not looked at:
 * if it answers with fewer than four bytes, the rest of the value is undefined.
 * ------------------------------------------------------------------------------------------------------------------ */

/* The log level. */
int32_t LUMOZEPH_GetLogLevel(uint32_t* level);
int32_t LUMOZEPH_SetLogLevel(uint32_t level);

/* The extended log level. */
int32_t LUMOZEPH_GetExtendedLogLevel(uint32_t* level);
int32_t LUMOZEPH_SetExtendedLogLevel(uint32_t level);

/* The statistics level. */
int32_t LUMOZEPH_GetStatsLevel(uint32_t* level);
int32_t LUMOZEPH_SetStatsLevel(uint32_t level);

/* The size of the transmit dispatch queue. */
int32_t LUMOZEPH_GetTxDispQueueSize(uint32_t* size);
int32_t LUMOZEPH_SetTxDispQueueSize(uint32_t size);

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#if defined(__cplusplus)
}
#endif

#endif
