/**
 * @file
 * small: what a header looks like.
 *
 *  1. errno.
 *       EINVAL   a required argument is null;
 *       ENOMEM   the library could not allocate memory;
 *       EBADMSG  the reply is too short;
 *       other    as the module's device left it.
 *     The module may answer these, too.
 *  2. Instance key. A router is named by a text, at most 63 bytes.
 *
 * What follows are chapters.
 */
#ifndef LUMOZEPH_H
#define LUMOZEPH_H

#include <stdint.h>

/** Major number. */
#define LUMOZEPH_VERSION_MAJOR 4
/** Minor number. */
#define LUMOZEPH_VERSION_MINOR 5
/** Patch number. */
#define LUMOZEPH_VERSION_PATCH 6
#define LUMOZEPH_PACKED __attribute__((packed))
#define LUMOZEPH_NONNULL(...) __attribute__((nonnull(__VA_ARGS__)))

typedef struct LumoHop LumoHop;
typedef struct LumoHopList LumoHopList;
typedef struct LumoAnswer LumoAnswer;

/* ------------------------------------------------------------------------------------------------------------------ *
 * hops: Where packets go
 *
 * A hop is as good as another.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Hops in a list at most. */
#define LUMOZEPH_HOPS_MAX (2 * 10)
/** Room for the table, in bytes. */
#define LUMOZEPH_TABLE_SIZE 4096

/**
 * One hop. Which values arrive depends on the first:
 *   0      none
 *   other  all, with
 *          the rest
 */
struct LumoHop
{
    uint8_t value1;       /**< 0 */
    uint32_t hopAddress;  /**< 1: IPv4 address */
    char text2[16];       /**< 5: not necessarily terminated */
    uint32_t value3 : 24; /**< 21: the low bits */
    uint32_t value4 : 8;  /**< 24 */
    uint16_t wordCount;   /**< 25: as reported */
    uint32_t words[4];    /**< 27: zero past wordCount */
    uint8_t uncopied[2];  /**< 43: not copied */
} LUMOZEPH_PACKED;

/** Hops. */
struct LumoHopList
{
    int32_t count;    /**< hops in records */
    LumoHop* records; /**< room for LUMOZEPH_HOPS_MAX */
};

/** What the module answers. */
struct LumoAnswer
{
    uint8_t bytes[8]; /**< 0 */
} LUMOZEPH_PACKED;

/**
 * Adds a hop. It is the last one.
 *
 * @param instance     its key; null: EINVAL
 * @param word1        the address's first eight bytes
 * @param word2        the address's last eight bytes
 * @param address      IPv4
 * @param mask         the mask value of address
 * @param mac          6 bytes; null: none
 * @param kind         passed on as it stands
 * @param text         at most 15 bytes, ignored unless kind is 4; null: EINVAL if kind is 4, and otherwise none
 * @param on           not 0: adds; 0: removes
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_AddHop(const char* instance, uint64_t word1, uint64_t word2, uint32_t address, uint32_t mask,
    const uint8_t* mac, uint32_t kind, const char* text, uint8_t on, LumoAnswer* result);

/**
 * Reads all hops.
 *
 * First it asks how many there are.
 *
 * Then it reads them, as LUMOZEPH_ReadTable does.
 *
 * @param instance  its key, unterminated at 64 bytes
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseHops
 * @errno ENOMEM   also if there are too many
 * @errno EBADMSG  never
 */
int32_t LUMOZEPH_GetHops(const char* instance, LumoHopList** out) LUMOZEPH_NONNULL(1, 2);

/**
 * Reads all hops into a list of the caller's: the worker of LUMOZEPH_GetHops.
 *
 * @param instance      its key
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseHops
 */
int32_t LUMOZEPHGetHops(const char* instance, LumoHopList* list) LUMOZEPH_NONNULL(1, 2);

/**
 * Frees a list of LUMOZEPH_GetHops or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseHops(LumoHopList* list);

/**
 * Reads the table.
 *
 * @param[out] buffer  room for LUMOZEPH_TABLE_SIZE bytes
 */
int32_t LUMOZEPH_ReadTable(void* buffer) LUMOZEPH_NONNULL(1);

/** Forgets all hops. */
int32_t LUMOZEPH_Forget(void);

#endif
