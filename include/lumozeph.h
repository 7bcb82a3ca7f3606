/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * lumozeph: reads and changes the state of the host's kernel-resident distributed router and layer-2 bridge.
 *
 * Conventions. What is said here holds for every function; a function's own comment names only what differs.
 *
 *  1. Result. Every function returns 0 on success and -1 on failure, with the reason in errno. After a success, errno
 *     means nothing. Nothing is logged, and nothing is retried, not even after a signal (EINTR).
 *  2. errno.
 *       EINVAL   a required argument is null, or a value is rejected; the module has not been contacted;
 *       ENOMEM   the library could not allocate memory;
 *       EBADMSG  the module's reply is shorter than the one record that is read, or a list ends in a fragment of a
 *                record. A length of 2 GiB or more counts as a negative one, which is shorter than any record;
 *       other    as open(2) or ioctl(2) on the module's device left it: ENOENT, EACCES or another from the open,
 *                whatever the module answers from the ioctl.
 *     The module itself may answer EINVAL, ENOMEM and EBADMSG, too: errno alone does not tell who rejected a call. If
 *     the ioctl fails and the close that follows it fails, too, errno is that of the close. After an ioctl that has
 *     succeeded, a close that fails is no failure.
 *  3. Null. A pointer argument must not be null unless its description says what null means there. "null: EINVAL" is
 *     rejected before anything else happens. Where null is not mentioned, it is not tested, and the program's behaviour
 *     is undefined.
 *  4. Ownership. Arguments are read, or filled, during the call only. A function that stores a pointer through an "out"
 *     argument hands over memory of the C allocator, to be given to the Release function that its comment names, or to
 *     free() where it says so. Nothing else frees it, and the library keeps no reference. Release functions accept
 *     null, and always return 0.
 *  5. Out pointers on failure. Single reads: untouched while nothing has been allocated for the caller (null argument,
 *     failed reply buffer, failed device call); null when the result could not be allocated or the reply was too short.
 *     List reads: null after every failure that follows the null checks. A list is never returned partly filled.
 *  6. Lists. {count, records}: records always has room for as many as the list's macro LUMOZEPH_..._MAX says,
 *     zero-filled past count. What the module reports beyond that is ignored without an error, so that a list that is
 *     exactly full may have been longer. A reply of no bytes, or of a negative length, is an empty list: count 0, and
 *     an array. A read allocates the room of a full list twice, however much there is to read, and frees one of the two
 *     before it returns.
 *  7. Byte order. Integers are in host byte order and are passed on as they stand, both ways. MAC addresses are six
 *     bytes in wire order. An IPv6 address is sixteen bytes in wire order; as an argument it is two 64-bit words that
 *     hold those bytes unchanged, the first eight in the first word. The four bytes of an IPv4 address or mask are
 *     passed on as the caller holds them; where this project turns text into them, or them into text, they are in
 *     network order, as inet_pton(3) stores them. Whether a mask value is a mask or a prefix length is up to the
 *     module.
 *  8. Texts. Plain bytes ended by NUL. A text that goes into a field of N bytes is cut, without an error, to its first
 *     N - 1 bytes: "at most 63 bytes" at an argument says that N is 64. "Unterminated at N bytes" says that all N bytes
 *     are used, and that a text of N or more bytes arrives without a NUL. A text that comes out of a field is cut to
 *     N - 1 bytes as well: it always ends in NUL, with zero bytes after it.
 *  9. Instance key. A router instance is named by its name or by its UUID in text form (lower-case hexadecimal digits,
 *     8-4-4-4-12), at most 63 bytes. The module tells the two apart.
 * 10. Threads. The library has no state: every call opens the device, issues one command and closes the device.
 *     (LUMOZEPH_GetRoutesv6 does so twice; Release functions and LUMOZEPHGetUuidOrName do not touch the device.) Calls
 *     from any number of threads are independent; their order is the module's business. A call blocks as long as the
 *     module does. The device's descriptor is not close-on-exec: a program that another thread starts meanwhile may
 *     inherit it. A thread that is cancelled within a call may leave behind what the call had opened and allocated.
 * 11. Environment. The device is /pelt/devices/char/zephdriver/kola_lumo or, if USE_UPGRADE_DEV is set in the
 *     environment, to whatever value, /pelt/devices/char/zephdriver/kola_lumo_ugrade. The variable is looked up on
 *     every call that opens the device, with getenv(3): no other thread may change the environment meanwhile.
 * 12. Records. Every record is packed: its fields lie where the comment behind them says, in bytes from its beginning,
 *     unaligned where that is so. The holders of lists, and LumoVtepTable, are not packed. Read and write a packed
 *     number, also one in an array, by value or with memcpy(3), never through a pointer or a reference of its type; a
 *     range-based for over an array of numbers is such a reference. (Of the pointer, gcc and g++ warn: "taking address
 *     of packed member"; clang and clang++ do so, too, but not where the way to the number leads through the records
 *     of a list or an array. g++ refuses the reference, unless it is const: "cannot bind packed field"; clang++ says
 *     nothing.)
 *     Texts, single bytes and records within records have no alignment, and may be pointed to. Fields whose meaning is
 *     the module's alone are called value, text, data, block, bytes or the like, and are numbered in the order in which
 *     they lie. Bytes that are "not copied" are zero, whatever the module sent. A count that is "as reported" is what
 *     the module says, and may be larger than its table: compare it before use. The length that the module reports is
 *     believed; where the module does not report one, it is that of the whole room. What the module has not written of
 *     it is undefined in the record, list or block. A reply longer than the one record of a single read is no error.
 * 13. Raw replies. A function that fills a buffer of the caller's needs the room that it names. What the module wrote,
 *     also before it failed, is neither checked nor counted, and its layout is the module's; bytes that the module did
 *     not write keep what they held.
 *
 * The library runs on 64-bit little-endian hosts.
 *
 * Each chapter below begins with its name. Its example is in a file of that name; so are, but for channel, its source
 * and the emulator's side of it.
 */
#ifndef LUMOZEPH_H
#define LUMOZEPH_H

#include <stdint.h>

#if defined(__SIZEOF_POINTER__) && defined(__BYTE_ORDER__) && defined(__ORDER_LITTLE_ENDIAN__)
#if __SIZEOF_POINTER__ != 8 || __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "lumozeph runs on 64-bit little-endian hosts only"
#endif
#endif

/** The first number of the release that this header is of. */
#define LUMOZEPH_VERSION_MAJOR 1
/** Its second number. */
#define LUMOZEPH_VERSION_MINOR 0
/** Its third number. */
#define LUMOZEPH_VERSION_PATCH 0
/** All three as one number, for comparisons: 10203 is 1.2.3. */
#define LUMOZEPH_VERSION_NUMBER (LUMOZEPH_VERSION_MAJOR * 10000 + LUMOZEPH_VERSION_MINOR * 100 + LUMOZEPH_VERSION_PATCH)

/* What a parser that is no compiler may define as nothing. */
#if !defined(LUMOZEPH_PACKED)
#define LUMOZEPH_PACKED __attribute__((packed))
#endif
#if !defined(LUMOZEPH_NONNULL)
#define LUMOZEPH_NONNULL(...) __attribute__((nonnull(__VA_ARGS__)))
#endif
#if !defined(LUMOZEPH_RECORD_SIZE)
#if defined(__cplusplus)
#define LUMOZEPH_RECORD_SIZE(type, size)                                                                               \
    static_assert(sizeof(struct type) == (size), "struct " #type " is " #size " bytes")
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define LUMOZEPH_RECORD_SIZE(type, size)                                                                               \
    _Static_assert(sizeof(struct type) == (size), "struct " #type " is " #size " bytes")
#else
#define LUMOZEPH_RECORD_SIZE(type, size) typedef char type##_size_holds[sizeof(struct type) == (size) ? 1 : -1]
#endif
#endif

#if defined(__cplusplus)
extern "C" {
#endif

#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

/* In C, too, each record and list has a name without struct. */
#if !defined(__cplusplus)
typedef struct LumoEnvelope LumoEnvelope;
typedef struct LumoInstanceInfo LumoInstanceInfo;
typedef struct LumoInstanceList LumoInstanceList;
typedef struct LumoStats LumoStats;
typedef struct LumoCPSyncStateEntry LumoCPSyncStateEntry;
typedef struct LumoCPSyncState LumoCPSyncState;
typedef struct LumoLifIpv6Addr LumoLifIpv6Addr;
typedef struct LumoDhcpRelayServer LumoDhcpRelayServer;
typedef struct LumoDhcpRelay LumoDhcpRelay;
typedef struct LumoLifInfo LumoLifInfo;
typedef struct LumoLifList LumoLifList;
typedef struct LumoCmdResult LumoCmdResult;
typedef struct LumoNextHop LumoNextHop;
typedef struct LumoRouteInfo LumoRouteInfo;
typedef struct LumoRouteList LumoRouteList;
typedef struct LumoPolicyInfo LumoPolicyInfo;
typedef struct LumoPolicyList LumoPolicyList;
typedef struct LumoPolicyTableInfo LumoPolicyTableInfo;
typedef struct LumoPolicyTableList LumoPolicyTableList;
typedef struct LumoPolicyTableRefEntry LumoPolicyTableRefEntry;
typedef struct LumoLifPolicyTableRef LumoLifPolicyTableRef;
typedef struct LumoBridgeInstanceInfo LumoBridgeInstanceInfo;
typedef struct LumoBridgeInstanceList LumoBridgeInstanceList;
typedef struct LumoBridgeNetworkInfo LumoBridgeNetworkInfo;
typedef struct LumoBridgeNetworkList LumoBridgeNetworkList;
typedef struct LumoBridgePortInfo LumoBridgePortInfo;
typedef struct LumoBridgePortList LumoBridgePortList;
typedef struct LumoBridgeFdbEntry LumoBridgeFdbEntry;
typedef struct LumoBridgeFdbList LumoBridgeFdbList;
typedef struct LumoBridgeClusterInfo LumoBridgeClusterInfo;
typedef struct LumoBridgeClusterList LumoBridgeClusterList;
typedef struct LumoBridgeClusterNodeInfo LumoBridgeClusterNodeInfo;
typedef struct LumoBridgeClusterNodeList LumoBridgeClusterNodeList;
typedef struct LumoBridgeEndpointInfo LumoBridgeEndpointInfo;
typedef struct LumoBridgeEndpointList LumoBridgeEndpointList;
typedef struct LumoBridgeBfdSessionInfo LumoBridgeBfdSessionInfo;
typedef struct LumoBridgeBfdSessionList LumoBridgeBfdSessionList;
typedef struct LumoMcastDomainInfo LumoMcastDomainInfo;
typedef struct LumoLocalRcvrInfo LumoLocalRcvrInfo;
typedef struct LumoLocalRcvrList LumoLocalRcvrList;
typedef struct LumoVtepEntry LumoVtepEntry;
typedef struct LumoVtepTable LumoVtepTable;
typedef struct LumoMcastGroupInfo LumoMcastGroupInfo;
typedef struct LumoMcastGroupList LumoMcastGroupList;
typedef struct LumoRssStats LumoRssStats;
typedef struct LumoRssTunables LumoRssTunables;
typedef struct LumoRssIndTable LumoRssIndTable;
#endif

/* ------------------------------------------------------------------------------------------------------------------ *
 * channel: The device call and the instance key
 * ------------------------------------------------------------------------------------------------------------------ */

/** Size of a request record, in bytes. */
#define LUMOZEPH_REQUEST_SIZE 776
/** Size of an instance key with its NUL, in bytes. */
#define LUMOZEPH_KEY_SIZE 64
/** Size of a MAC address, in bytes. */
#define LUMOZEPH_MAC_SIZE 6

/** What one ioctl carries to the module and back. */
struct LumoEnvelope
{
    uint32_t inLen;    /**< 0: bytes at inPtr; 776 for a request record */
    const void* inPtr; /**< 4: the command's input, or null */
    uint32_t outLen;   /**< 12: room at outPtr in bytes; the module stores the number of bytes it wrote */
    void* outPtr;      /**< 16: where the module writes its reply, or null */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoEnvelope, 24);

/**
 * Issues one command.
 *
 * Opens the module's device read-write, calls ioctl with the command number and the envelope, and closes the device.
 * For tools that speak to the module directly; every other function that opens the device goes through it. Sets no
 * errno of its own. Of what ioctl returns, only the sign is looked at: a result above 0 is a success, too.
 *
 * @param command           passed to ioctl sign-extended and unchecked
 * @param[in,out] envelope  handed to the module, which rewrites outLen; null: handed to it, too
 */
int32_t LUMOZEPHIoctl(int32_t command, LumoEnvelope* envelope);

/**
 * Turns a name or a UUID text into the instance key that requests carry.
 *
 * Always returns 0. The text may already lie in the key.
 *
 * @param text      a name or a UUID text, at most 63 bytes; used as it stands, whether or not it is a well-formed UUID
 * @param[out] key  64 bytes, filled with the first 63 bytes of text and zero bytes after them
 */
int32_t LUMOZEPHGetUuidOrName(const char* text, char key[64]) LUMOZEPH_NONNULL(1, 2);

/* ------------------------------------------------------------------------------------------------------------------ *
 * instances: Router instances
 * ------------------------------------------------------------------------------------------------------------------ */

/** Instances in a list at most. */
#define LUMOZEPH_INSTANCES_MAX 1000

/** One router instance as the module reports it. */
struct LumoInstanceInfo
{
    char instanceKey[64]; /**< 0: the instance's key text */
    uint32_t value1;      /**< 64: value1 of LUMOZEPH_SetLumoInstance */
    uint32_t value2;      /**< 68 */
    uint16_t value3;      /**< 72: zeroed by LUMOZEPH_ReleaseInstances */
    uint16_t value4;      /**< 74: zeroed by LUMOZEPH_ReleaseInstances */
    uint16_t value5;      /**< 76: zeroed by LUMOZEPH_ReleaseInstances */
    uint32_t value6;      /**< 78 */
    uint32_t value7;      /**< 82 */
    uint32_t value8;      /**< 86 */
    uint8_t value9;       /**< 90 */
    uint16_t value10;     /**< 91 */
    uint8_t uncopied[2];  /**< 93: not copied */
    uint8_t value11;      /**< 95 */
    uint8_t value12;      /**< 96 */
    uint8_t bytes1[13];   /**< 97 */
    uint32_t words[4];    /**< 110 */
    uint32_t value13;     /**< 126 */
    uint16_t value14;     /**< 130 */
    uint8_t value15;      /**< 132 */
    uint16_t value16;     /**< 133 */
    uint8_t value17;      /**< 135 */
    char text2[64];       /**< 136 */
    uint16_t value18;     /**< 200 */
    uint8_t bytes2[32];   /**< 202 */
    uint64_t value19;     /**< 234 */
    uint32_t value20;     /**< 242 */
    uint8_t value21;      /**< 246 */
    uint32_t value22;     /**< 247 */
    uint32_t value23;     /**< 251 */
    uint8_t value24;      /**< 255 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoInstanceInfo, 256);

/** Router instances. */
struct LumoInstanceList
{
    int32_t count;             /**< instances in records */
    LumoInstanceInfo* records; /**< room for LUMOZEPH_INSTANCES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoInstanceList, 16);

/**
 * Creates an instance, or updates it if it exists.
 *
 * @param instance  its key; null: EINVAL
 * @param value1    comes back as LumoInstanceInfo.value1
 * @param text      unterminated at 18 bytes; null: none
 * @param value2    passed on as it stands
 */
int32_t LUMOZEPH_SetLumoInstance(const char* instance, uint32_t value1, const char* text, uint32_t value2);

/**
 * Deletes an instance.
 *
 * @param instance  its key; null: EINVAL
 */
int32_t LUMOZEPH_DelLumoInstance(const char* instance);

/**
 * Sets an instance's tunables.
 *
 * @param instance  its key; null: EINVAL
 * @param tunables  at most 63 bytes
 * @param value     passed on as it stands
 */
int32_t LUMOZEPH_SetLumoInstanceTunables(const char* instance, const char* tunables, uint32_t value)
    LUMOZEPH_NONNULL(2);

/**
 * Reads one instance.
 *
 * @param instance  its key; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseInstance
 */
int32_t LUMOZEPH_GetInstance(const char* instance, LumoInstanceInfo** out) LUMOZEPH_NONNULL(2);

/**
 * Reads all instances.
 *
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseInstances
 */
int32_t LUMOZEPH_GetInstances(LumoInstanceList** out) LUMOZEPH_NONNULL(1);

/**
 * Frees a record of LUMOZEPH_GetInstance.
 *
 * @param instance  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseInstance(LumoInstanceInfo* instance);

/**
 * Frees a list of LUMOZEPH_GetInstances.
 *
 * Zeroes value3, value4 and value5 of each of its records before that.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseInstances(LumoInstanceList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * levels: Runtime levels and queue tunables
 *
 * Four module-wide 32-bit settings. The library checks no range; the module owns the values. The length that the module
 * reports is not looked at: if it answers a read with fewer than four bytes, the rest of the value is undefined.
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Reads the log level.
 *
 * @param[out] level  the level, untouched on failure; null: EINVAL
 */
int32_t LUMOZEPH_GetLogLevel(uint32_t* level);

/**
 * Sets the log level.
 *
 * @param level  the level; what levels there are is the module's
 */
int32_t LUMOZEPH_SetLogLevel(uint32_t level);

/**
 * Reads the extended log level.
 *
 * @param[out] level  the level, untouched on failure; null: EINVAL
 */
int32_t LUMOZEPH_GetExtendedLogLevel(uint32_t* level);

/**
 * Sets the extended log level.
 *
 * @param level  the level; what levels there are is the module's
 */
int32_t LUMOZEPH_SetExtendedLogLevel(uint32_t level);

/**
 * Reads the statistics level.
 *
 * @param[out] level  the level, untouched on failure; null: EINVAL
 */
int32_t LUMOZEPH_GetStatsLevel(uint32_t* level);

/**
 * Sets the statistics level.
 *
 * @param level  the level; what levels there are is the module's
 */
int32_t LUMOZEPH_SetStatsLevel(uint32_t level);

/**
 * Reads the size of the transmit dispatch queue.
 *
 * @param[out] size  the size, in the module's unit, untouched on failure; null: EINVAL
 */
int32_t LUMOZEPH_GetTxDispQueueSize(uint32_t* size);

/**
 * Sets the size of the transmit dispatch queue.
 *
 * @param size  the size, in the module's unit
 */
int32_t LUMOZEPH_SetTxDispQueueSize(uint32_t size);

/* ------------------------------------------------------------------------------------------------------------------ *
 * stats: Statistics
 *
 * All reads give one record, whose counters its first word chooses.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Counters in a record. */
#define LUMOZEPH_STATS_COUNTERS 100

/**
 * Counters. Which of them arrive depends on statsKind; all others are zero. By statsKind, as indices into counters:
 *   0      0 to 27, but not 8
 *   1      0 to 99, but not 71 and 77; 84 repeats 83
 *   3      1 to 19
 *   other  none
 */
struct LumoStats
{
    uint32_t statsKind;     /**< 0: chooses the counters */
    uint64_t counters[100]; /**< 4 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoStats, 804);

/**
 * Reads the counters of an instance's control-plane traffic.
 *
 * @param instance  its key; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLumoInstanceCPStats(const char* instance, LumoStats** out) LUMOZEPH_NONNULL(2);

/**
 * Resets the counters of an instance's control-plane traffic.
 *
 * @param instance  its key; null: EINVAL
 */
int32_t LUMOZEPH_ResetLumoInstanceCPStats(const char* instance);

/**
 * Reads a LIF's counters.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLifStats(const char* instance, const char* lif, LumoStats** out) LUMOZEPH_NONNULL(2, 3);

/**
 * Reads a LIF's counters as the module has cached them.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLifStatsCached(const char* instance, const char* lif, LumoStats** out) LUMOZEPH_NONNULL(2, 3);

/**
 * Resets a LIF's counters.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes
 */
int32_t LUMOZEPH_ResetLifStats(const char* instance, const char* lif) LUMOZEPH_NONNULL(2);

/**
 * Reads the counters of distributed interfaces, of the module as a whole.
 *
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLumoDiStats(LumoStats** out) LUMOZEPH_NONNULL(1);

/** Resets the counters of distributed interfaces, of the module as a whole. */
int32_t LUMOZEPH_ResetLumoDiStats(void);

/**
 * Frees a record of LUMOZEPH_GetLumoInstanceCPStats, LUMOZEPH_GetLifStats, LUMOZEPH_GetLifStatsCached,
 * LUMOZEPH_GetLumoDiStats or LUMOZEPH_GetLumoInstanceCPSyncState.
 *
 * @param record  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseStats(void* record);

/* ------------------------------------------------------------------------------------------------------------------ *
 * control_plane: Control-plane attachment
 * ------------------------------------------------------------------------------------------------------------------ */

/** Entries of a synchronisation state. */
#define LUMOZEPH_CP_SYNC_STATE_ENTRIES 5

/** One entry of a synchronisation state. */
struct LumoCPSyncStateEntry
{
    uint64_t value1;      /**< 0 */
    uint32_t value2;      /**< 8 */
    uint32_t value3;      /**< 12 */
    uint32_t value4;      /**< 16 */
    uint32_t value5;      /**< 20 */
    uint32_t value6;      /**< 24 */
    uint64_t values7[8];  /**< 28 */
    uint8_t uncopied[8];  /**< 92: not copied */
    uint64_t values8[23]; /**< 100 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoCPSyncStateEntry, 284);

/** The state of an instance's synchronisation with its control plane. */
struct LumoCPSyncState
{
    LumoCPSyncStateEntry entries[5]; /**< 0 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoCPSyncState, 1420);

/**
 * Activates the module's control-plane connection.
 *
 * @param value  passed on as it stands
 */
int32_t LUMOZEPH_CPActivate(uint32_t value);

/**
 * Sets an instance's control-plane address.
 *
 * @param instance  its key; null: EINVAL
 * @param address   IPv4
 */
int32_t LUMOZEPH_SetCPIp(const char* instance, uint32_t address);

/**
 * Reads an instance's synchronisation state.
 *
 * @param instance  its key; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLumoInstanceCPSyncState(const char* instance, LumoCPSyncState** out) LUMOZEPH_NONNULL(2);

/**
 * Sets an instance's synchronisation state.
 *
 * @param instance  its key; null: EINVAL
 * @param state     passed on as it stands
 */
int32_t LUMOZEPH_SetLumoInstanceCPSyncState(const char* instance, uint32_t state);

/* ------------------------------------------------------------------------------------------------------------------ *
 * connections: Port connections
 *
 * A connection is named by a text of at most 63 bytes. None of these functions names an instance.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Room for all connections, in bytes. */
#define LUMOZEPH_CONNECTIONS_SIZE 131072
/** Room for one connection, in bytes. */
#define LUMOZEPH_CONNECTION_SIZE 152

/**
 * Reads all connections.
 *
 * @param[out] buffer  room for LUMOZEPH_CONNECTIONS_SIZE bytes
 */
int32_t LUMOZEPH_GetConnections(void* buffer) LUMOZEPH_NONNULL(1);

/**
 * Reads one connection.
 *
 * @param name         its name, at most 63 bytes
 * @param[out] buffer  room for LUMOZEPH_CONNECTION_SIZE bytes
 */
int32_t LUMOZEPH_GetConnection(const char* name, void* buffer) LUMOZEPH_NONNULL(1, 2);

/**
 * Reads the virtual MAC address that goes with a name.
 *
 * @param name      the name, at most 63 bytes
 * @param[out] mac  room for LUMOZEPH_MAC_SIZE bytes
 */
int32_t LUMOZEPH_GetVMAC(const char* name, uint8_t* mac) LUMOZEPH_NONNULL(1, 2);

/**
 * Plumbs a connection.
 *
 * @param name     its name, at most 63 bytes
 * @param text1    at most 15 bytes
 * @param ignored  not sent
 * @param text2    at most 17 bytes; null: none
 * @param text3    at most 31 bytes; null: none
 * @param text4    at most 255 bytes; null: none
 */
int32_t LUMOZEPH_PlumbLumoConnection(const char* name, const char* text1, uint32_t ignored, const char* text2,
    const char* text3, const char* text4) LUMOZEPH_NONNULL(1, 2);

/**
 * Unplumbs a connection.
 *
 * @param name  its name, at most 63 bytes
 */
int32_t LUMOZEPH_UnPlumbLumoConnection(const char* name) LUMOZEPH_NONNULL(1);

/**
 * Reads the value of the module's connection-deletion check.
 *
 * The length that the module reports is not looked at: if it answers with fewer than four bytes, the rest of the value
 * is undefined.
 *
 * @param[out] value  the value, untouched on failure
 */
int32_t LUMOZEPH_LUMODevCheckConnDeletion(uint32_t* value) LUMOZEPH_NONNULL(1);

/* ------------------------------------------------------------------------------------------------------------------ *
 * housekeeping: Flush, full-sync save and preparation for unloading
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Sends the module's generic flush.
 *
 * What is flushed, and what the values and the text have to do with it, is the module's.
 *
 * @param value1  passed on as it stands
 * @param value2  passed on as it stands
 * @param value3  passed on as it stands
 * @param value4  passed on as it stands
 * @param text    at most 63 bytes; null: none
 * @param value5  passed on as it stands
 */
int32_t LUMOZEPH_GenericFlush(
    uint32_t value1, uint8_t value2, uint8_t value3, uint8_t value4, const char* text, uint32_t value5);

/** Prepares the module for being unloaded. */
int32_t LUMOZEPH_PreUnload(void);

/**
 * Starts a full-sync save of the whole module.
 *
 * @param value        passed on as it stands
 * @param[out] result  written by the module itself, also before it fails; bytes that it does not write stay as they
 *                     were
 */
int32_t LUMOZEPH_PerformFullSyncSave(uint8_t value, uint32_t* result) LUMOZEPH_NONNULL(2);

/**
 * Reads the status of the full-sync save.
 *
 * @param[out] status  written by the module itself, also before it fails; bytes that it does not write stay as they
 *                     were
 */
int32_t LUMOZEPH_GetFullSyncSaveStatus(uint32_t* status) LUMOZEPH_NONNULL(1);

/* ------------------------------------------------------------------------------------------------------------------ *
 * lifs: Logical interfaces
 *
 * A router instance owns logical interfaces (LIFs): routed interfaces, and bridge LIFs, which attach a bridge to it. A
 * LIF is named by its instance's key and its own name, at most 63 bytes.
 * ------------------------------------------------------------------------------------------------------------------ */

/** LIFs in a list at most. */
#define LUMOZEPH_LIFS_MAX 10000
/** Room of LumoLifInfo.ipv6Addrs. */
#define LUMOZEPH_LIF_IPV6_ADDRS_MAX 10
/** Room of LumoDhcpRelay.servers. */
#define LUMOZEPH_DHCP_RELAY_SERVERS_MAX 8

/** One IPv6 address of a LIF. */
struct LumoLifIpv6Addr
{
    uint8_t address[16]; /**< 0 */
    uint32_t prefixLen;  /**< 16: in bits */
    uint8_t value;       /**< 20 */
    uint8_t uncopied[3]; /**< 21: not copied */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLifIpv6Addr, 24);

/** One DHCP server that a LIF relays to. */
struct LumoDhcpRelayServer
{
    uint8_t address[16]; /**< 0: in wire order; IPv4 in the first 4 bytes, the others as sent */
    uint32_t family;     /**< 16: 1 for IPv4, 3 for IPv6 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoDhcpRelayServer, 20);

/** The DHCP servers that a LIF relays to, byte for byte as the module sent them. */
struct LumoDhcpRelay
{
    uint32_t relayCount;            /**< 0: servers that count, as reported */
    LumoDhcpRelayServer servers[8]; /**< 4: past relayCount as the module sent them, not zeroed */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoDhcpRelay, 164);

/** One logical interface as the module reports it. */
struct LumoLifInfo
{
    char lifName[64];              /**< 0 */
    char lifSecondName[64];        /**< 64 */
    uint32_t ipAddr;               /**< 128: IPv4 address */
    uint32_t ipMask;               /**< 132: its mask value */
    uint32_t diIp;                 /**< 136: designated-instance address, IPv4 */
    uint8_t lifMac[6];             /**< 140 */
    uint32_t lifValue1;            /**< 146 */
    uint32_t lifValue2;            /**< 150 */
    uint32_t lifValue3;            /**< 154 */
    uint8_t lifFlags[4];           /**< 158 */
    LumoDhcpRelay dhcpRelay;       /**< 162 */
    LumoLifIpv6Addr ipv6Addrs[10]; /**< 326: zero past ipv6Count */
    uint32_t ipv6Count;            /**< 566: as reported */
    uint8_t lifState1;             /**< 570 */
    uint8_t lifState2;             /**< 571 */
    uint32_t lifValue4;            /**< 572 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLifInfo, 576);

/** Logical interfaces. */
struct LumoLifList
{
    int32_t count;        /**< LIFs in records */
    LumoLifInfo* records; /**< room for LUMOZEPH_LIFS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoLifList, 16);

/**
 * Creates a LIF.
 *
 * @param lif        its name, at most 63 bytes
 * @param auxName    its second name, at most 63 bytes
 * @param address    IPv4
 * @param mask       the mask value of address
 * @param paramA     passed on as it stands
 * @param paramB     passed on as it stands
 * @param diAddress  designated-instance address, IPv4
 * @param paramC     passed on as it stands
 * @param instance   the instance's key; null: EINVAL
 * @param mac        6 bytes; null: none, which sends six zero bytes
 */
int32_t LUMOZEPH_SetLif(const char* lif, const char* auxName, uint32_t address, uint32_t mask, uint32_t paramA,
    uint32_t paramB, uint32_t diAddress, uint32_t paramC, const char* instance, const uint8_t* mac)
    LUMOZEPH_NONNULL(1, 2);

/**
 * Removes a LIF.
 *
 * @param lif       its name, at most 63 bytes
 * @param auxName   its second name, at most 63 bytes
 * @param instance  the instance's key; null: EINVAL
 */
int32_t LUMOZEPH_DelLif(const char* lif, const char* auxName, const char* instance) LUMOZEPH_NONNULL(1, 2);

/**
 * Adds a bridge LIF, or removes it.
 *
 * The same values are sent in both cases.
 *
 * @param lif       its name, at most 63 bytes
 * @param auxName   its second name, at most 63 bytes
 * @param paramA    passed on as it stands
 * @param paramB    passed on as it stands
 * @param diValue   passed on as it stands, where a routed LIF has its designated-instance address
 * @param instance  the instance's key
 * @param add       not 0: adds; 0: removes
 */
int32_t LUMOZEPH_SetBridgeLif(const char* lif, const char* auxName, uint32_t paramA, uint32_t paramB, uint32_t diValue,
    const char* instance, int add) LUMOZEPH_NONNULL(1, 2, 6);

/**
 * Reads one routed LIF.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseLif
 */
int32_t LUMOZEPH_GetLif(const char* instance, const char* lif, LumoLifInfo** out) LUMOZEPH_NONNULL(3);

/**
 * Reads one bridge LIF.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseLif
 */
int32_t LUMOZEPH_GetBridgeLif(const char* instance, const char* lif, LumoLifInfo** out) LUMOZEPH_NONNULL(3);

/**
 * Reads an instance's routed LIFs.
 *
 * @param instance  its key
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseLifs
 */
int32_t LUMOZEPH_GetLifs(const char* instance, LumoLifList** out) LUMOZEPH_NONNULL(1, 2);

/**
 * Reads an instance's bridge LIFs.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param instance  its key
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseLifs
 */
int32_t LUMOZEPH_GetBridgeLifs(const char* instance, LumoLifList** out) LUMOZEPH_NONNULL(1, 2);

/**
 * Frees a record of LUMOZEPH_GetLif or LUMOZEPH_GetBridgeLif.
 *
 * @param lif  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseLif(LumoLifInfo* lif);

/**
 * Frees a list of LUMOZEPH_GetLifs or LUMOZEPH_GetBridgeLifs.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseLifs(LumoLifList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * lif_options: Interface addressing and options
 *
 * Each function but the last changes one property of a LIF that exists. No value is range-checked.
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Sets a LIF's IPv4 address.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param address   IPv4
 * @param mask      the mask value of address
 */
int32_t LUMOZEPH_SetLifIp(const char* instance, const char* lif, uint32_t address, uint32_t mask);

/**
 * Removes a LIF's IPv4 address.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param address   IPv4
 * @param mask      the mask value of address
 */
int32_t LUMOZEPH_DelLifIp(const char* instance, const char* lif, uint32_t address, uint32_t mask);

/**
 * Sets a LIF's designated-instance address.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param address   IPv4
 */
int32_t LUMOZEPH_SetLifDIIp(const char* instance, const char* lif, uint32_t address);

/**
 * Sets a LIF's VXLAN multicast address.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param address   IPv4
 */
int32_t LUMOZEPH_SetLifVxlanMulticastIp(const char* instance, const char* lif, uint32_t address);

/**
 * Attaches a LIF to the VXLAN control plane.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 */
int32_t LUMOZEPH_SetLifVxlanCP(const char* instance, const char* lif);

/**
 * Detaches a LIF from the VXLAN control plane.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 */
int32_t LUMOZEPH_DelLifVxlanCP(const char* instance, const char* lif);

/**
 * Sets a LIF's administrative state to up.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 */
int32_t LUMOZEPH_EnableLif(const char* instance, const char* lif);

/**
 * Sets a LIF's administrative state to down.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 */
int32_t LUMOZEPH_DisableLif(const char* instance, const char* lif);

/**
 * Switches multicast routing on a LIF on or off.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param on        not 0: on; 0: off
 */
int32_t LUMOZEPH_SetLifMcastRouting(const char* instance, const char* lif, uint8_t on);

/**
 * Sets the MTU that a LIF advertises in IPv6 router advertisements.
 *
 * @param instance  the instance's key
 * @param lif       the LIF's name, at most 63 bytes
 * @param mtu       in bytes
 */
int32_t LUMOZEPH_RAMTUSetv6(const char* instance, const char* lif, uint32_t mtu) LUMOZEPH_NONNULL(1, 2);

/**
 * Adds an IPv6 address to a LIF.
 *
 * @param instance   the instance's key, unterminated at 64 bytes; null: EINVAL
 * @param lif        the LIF's name, unterminated at 64 bytes; null: EINVAL
 * @param word1      the address's first eight bytes
 * @param word2      the address's last eight bytes
 * @param prefixLen  in bits; only its low byte is sent
 */
int32_t LUMOZEPH_SetLifIpv6(const char* instance, const char* lif, uint64_t word1, uint64_t word2, uint32_t prefixLen);

/**
 * Removes an IPv6 address from a LIF.
 *
 * @param instance   the instance's key, unterminated at 64 bytes; null: EINVAL
 * @param lif        the LIF's name, unterminated at 64 bytes; null: EINVAL
 * @param word1      the address's first eight bytes
 * @param word2      the address's last eight bytes
 * @param prefixLen  in bits; only its low byte is sent
 */
int32_t LUMOZEPH_DelLifIpv6(const char* instance, const char* lif, uint64_t word1, uint64_t word2, uint32_t prefixLen);

/**
 * Configures multicast routing for an instance as a whole.
 *
 * @param instance  its key; null: EINVAL
 * @param name      at most 63 bytes
 * @param value1    passed on as it stands
 * @param value2    passed on as it stands
 * @param value3    passed on as it stands
 * @param value4    passed on as it stands
 */
int32_t LUMOZEPH_SetMcastRouting(const char* instance, const char* name, uint32_t value1, uint32_t value2,
    uint16_t value3, uint8_t value4) LUMOZEPH_NONNULL(2);

/* ------------------------------------------------------------------------------------------------------------------ *
 * dhcp_relay: DHCP relay
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Replaces the DHCP servers that a LIF relays to.
 *
 * As it stands, only the empty list can be configured: a server is accepted only if its text is well-formed both as an
 * IPv4 and as an IPv6 address, which none is.
 *
 * @param instance         the instance's key; null: EINVAL
 * @param lif              the LIF's name, at most 63 bytes; null: EINVAL
 * @param[in,out] servers  addresses separated by commas, in writable memory: EINVAL, and the commas that were passed,
 *                         in practice the first one, are overwritten with NUL; null: no servers
 * @errno EINVAL  also if servers is not null
 */
int32_t LUMOZEPH_ConfigureLifDhcpRelay(const char* instance, const char* lif, char* servers);

/* ------------------------------------------------------------------------------------------------------------------ *
 * routes: IPv4 routes
 * ------------------------------------------------------------------------------------------------------------------ */

/** Routes, or interface policies, in a list at most. */
#define LUMOZEPH_ROUTES_MAX 8000
/** Room of LumoRouteInfo.nextHops. */
#define LUMOZEPH_NEXT_HOPS_MAX 8
/** Size of the module's own answer to a set or a delete, in bytes. */
#define LUMOZEPH_CMD_RESULT_SIZE 88

/**
 * The module's own answer to setting or deleting an IPv4 route, an interface policy, a policy, a policy table or the
 * references to one, for a caller that asks for it. What it says, and in which layout, is the module's. The library
 * zeroes it before the call, unless an argument is rejected, and never reads it.
 */
struct LumoCmdResult
{
    uint8_t bytes[88]; /**< 0 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoCmdResult, 88);

/** One next hop of a route. */
struct LumoNextHop
{
    uint8_t uncopied[4];     /**< 0: not copied */
    uint32_t nextHopAddr;    /**< 4: IPv4 address */
    char nextHopLifName[64]; /**< 8: the outgoing LIF */
    uint8_t nextHopValue[8]; /**< 72 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoNextHop, 80);

/** One route, or one interface policy, as the module reports it. */
struct LumoRouteInfo
{
    uint32_t routeDest;      /**< 0: IPv4 address of the destination network */
    uint32_t routeMask;      /**< 4: its mask value */
    uint32_t routeValue1;    /**< 8 */
    uint32_t routeValue2;    /**< 12 */
    uint8_t routeFlags;      /**< 16 */
    uint8_t nextHopCount;    /**< 17: as reported */
    uint8_t uncopied[2];     /**< 18: not copied */
    uint8_t routeValue3[8];  /**< 20 */
    LumoNextHop nextHops[8]; /**< 28: zero past nextHopCount */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRouteInfo, 668);

/** Routes, or interface policies. */
struct LumoRouteList
{
    int32_t count;          /**< routes in records */
    LumoRouteInfo* records; /**< room for LUMOZEPH_ROUTES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoRouteList, 16);

/**
 * Adds an IPv4 route.
 *
 * @param dest         IPv4 address of the destination network
 * @param mask         the mask value of dest
 * @param gateway      IPv4 address of the next hop
 * @param lif          name of the outgoing LIF, at most 63 bytes; null: none
 * @param instance     the instance's key; null: EINVAL
 * @param param        passed on as it stands
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_SetRoute(uint32_t dest, uint32_t mask, uint32_t gateway, const char* lif, const char* instance,
    uint32_t param, LumoCmdResult* result);

/**
 * Deletes an IPv4 route.
 *
 * @param dest         IPv4 address of the destination network
 * @param mask         the mask value of dest
 * @param gateway      IPv4 address of the next hop
 * @param lif          name of the outgoing LIF, at most 63 bytes; null: none
 * @param instance     the instance's key; null: EINVAL
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_DelRoute(
    uint32_t dest, uint32_t mask, uint32_t gateway, const char* lif, const char* instance, LumoCmdResult* result);

/**
 * Reads an instance's routes.
 *
 * @param instance  its key
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseRoutes
 */
int32_t LUMOZEPH_GetRoutes(const char* instance, LumoRouteList** out) LUMOZEPH_NONNULL(1, 2);

/**
 * Asks the module which route it uses for a destination.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param dest      IPv4 address of the destination
 * @param mask      a mask value
 * @param param     passed on as it stands
 * @param[out] out  the route; free it with LUMOZEPH_ReleaseRoute
 */
int32_t LUMOZEPH_GetResolveRoute(
    const char* instance, uint32_t dest, uint32_t mask, uint32_t param, LumoRouteInfo** out) LUMOZEPH_NONNULL(5);

/**
 * Frees a record of LUMOZEPH_GetResolveRoute.
 *
 * @param route  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseRoute(LumoRouteInfo* route);

/**
 * Frees a list of LUMOZEPH_GetRoutes or LUMOZEPH_GetLifPolicies.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseRoutes(LumoRouteList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * routes6: IPv6 routes and path MTU
 * ------------------------------------------------------------------------------------------------------------------ */

/** Size of an entry of LUMOZEPH_GetRoutesv6, in bytes. */
#define LUMOZEPH_ROUTE6_SIZE 776

/**
 * Adds an IPv6 route.
 *
 * @param dest1      the destination prefix's first eight bytes
 * @param dest2      the destination prefix's last eight bytes
 * @param prefixLen  in bits; only its low byte is sent
 * @param gateway1   the next hop's first eight bytes
 * @param gateway2   the next hop's last eight bytes
 * @param lif        name of the outgoing LIF, unterminated at 64 bytes; null: none
 * @param instance   the instance's key, unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_SetRoutev6(uint64_t dest1, uint64_t dest2, uint32_t prefixLen, uint64_t gateway1, uint64_t gateway2,
    const char* lif, const char* instance);

/**
 * Deletes an IPv6 route.
 *
 * @param dest1      the destination prefix's first eight bytes
 * @param dest2      the destination prefix's last eight bytes
 * @param prefixLen  in bits; only its low byte is sent
 * @param gateway1   the next hop's first eight bytes
 * @param gateway2   the next hop's last eight bytes
 * @param lif        name of the outgoing LIF, unterminated at 64 bytes; null: none
 * @param instance   the instance's key, unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_DelRoutev6(uint64_t dest1, uint64_t dest2, uint32_t prefixLen, uint64_t gateway1, uint64_t gateway2,
    const char* lif, const char* instance);

/**
 * Reads an instance's IPv6 routes as the module lays them out, in entries of LUMOZEPH_ROUTE6_SIZE bytes.
 *
 * Sends two commands: the first asks how many routes there are, by which the block gets room for 8000 entries if there
 * are fewer than that, or else for 30000 (a number of 2^31 or more counts as a negative one, which is fewer than 8000);
 * the second reads them. The caller does not learn which: count is what the
 * module reports, and may be larger than the room if the module is not well behaved. Only the first 8000 entries are
 * sure to lie in the block. What the module has not written of them is undefined.
 *
 * @param instance    its key, unterminated at 64 bytes
 * @param[out] block  the entries; free them with free(). Null if the block could not be allocated, untouched if the
 *                    call failed before that; if the second command failed, a pointer to memory that has been freed
 * @param[out] count  the bytes that the module reports, as an unsigned number, divided by LUMOZEPH_ROUTE6_SIZE, rounded
 *                    down. Stored after the second command also if that failed, when it means nothing; untouched before
 *                    that
 * @errno ENOMEM  also if the first command fails, whatever it failed of (without a device, too), and if there are 30000
 *                routes or more, but fewer than 2^31; nothing is allocated then
 */
int32_t LUMOZEPH_GetRoutesv6(const char* instance, void** block, uint32_t* count) LUMOZEPH_NONNULL(1, 2, 3);

/** Clears the module-wide IPv6 path-MTU table. */
int32_t LUMOZEPH_PMTUTableCearv6(void);

/* ------------------------------------------------------------------------------------------------------------------ *
 * neighbours: ARP entries, IPv6 neighbours and proxy entries
 *
 * A proxy entry is an address that the router answers for. ARP entries and proxy entries of IPv4 are read apart; there
 * is no read of the proxy entries of IPv6.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Room for a table of neighbours, in bytes. */
#define LUMOZEPH_ARP_TABLE_SIZE 7471104

/**
 * Adds an ARP entry.
 *
 * @param address   IPv4
 * @param mac       the MAC address as text, at most 17 bytes
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key; null: EINVAL
 */
int32_t LUMOZEPH_SetArp(uint32_t address, const char* mac, const char* lif, const char* instance)
    LUMOZEPH_NONNULL(2, 3);

/**
 * Deletes an ARP entry.
 *
 * @param address   IPv4
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key; null: EINVAL
 */
int32_t LUMOZEPH_DelArp(uint32_t address, const char* lif, const char* instance) LUMOZEPH_NONNULL(2);

/**
 * Adds a proxy entry of IPv4.
 *
 * @param address   IPv4
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key; null: EINVAL
 */
int32_t LUMOZEPH_SetProxyArp(uint32_t address, const char* lif, const char* instance) LUMOZEPH_NONNULL(2);

/**
 * Deletes a proxy entry of IPv4.
 *
 * @param address   IPv4
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key; null: EINVAL
 */
int32_t LUMOZEPH_DelProxyArp(uint32_t address, const char* lif, const char* instance) LUMOZEPH_NONNULL(2);

/**
 * Reads the ARP entries of a LIF, or of a whole instance.
 *
 * @param instance     the instance's key
 * @param lif          the LIF's name, at most 63 bytes; null: those of the whole instance
 * @param[out] buffer  room for LUMOZEPH_ARP_TABLE_SIZE bytes
 */
int32_t LUMOZEPH_GetArps(const char* instance, const char* lif, void* buffer) LUMOZEPH_NONNULL(1, 3);

/**
 * Reads the proxy entries of IPv4 of a LIF, or of a whole instance.
 *
 * @param instance     the instance's key
 * @param lif          the LIF's name, at most 63 bytes; null: those of the whole instance
 * @param[out] buffer  room for LUMOZEPH_ARP_TABLE_SIZE bytes
 */
int32_t LUMOZEPH_GetProxyArps(const char* instance, const char* lif, void* buffer) LUMOZEPH_NONNULL(1, 3);

/**
 * Clears the ARP table of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key
 * @param lif       the LIF's name, at most 63 bytes; null: that of the whole instance
 */
int32_t LUMOZEPH_ClearArp(const char* instance, const char* lif) LUMOZEPH_NONNULL(1);

/**
 * Clears the IPv6 neighbours of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key
 * @param lif       the LIF's name, at most 63 bytes; null: those of the whole instance
 */
int32_t LUMOZEPH_ClearArpv6(const char* instance, const char* lif) LUMOZEPH_NONNULL(1);

/**
 * Adds an IPv6 neighbour.
 *
 * @param word1     the address's first eight bytes
 * @param word2     the address's last eight bytes
 * @param mac       the MAC address as text, unterminated at 18 bytes
 * @param lif       name of the LIF that the neighbour is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_SetArpv6(uint64_t word1, uint64_t word2, const char* mac, const char* lif, const char* instance)
    LUMOZEPH_NONNULL(3, 4);

/**
 * Deletes an IPv6 neighbour.
 *
 * @param word1     the address's first eight bytes
 * @param word2     the address's last eight bytes
 * @param lif       name of the LIF that the neighbour is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_DelArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance) LUMOZEPH_NONNULL(3);

/**
 * Adds a proxy entry of IPv6.
 *
 * @param word1     the address's first eight bytes
 * @param word2     the address's last eight bytes
 * @param lif       name of the LIF that the entry is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_SetProxyArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance)
    LUMOZEPH_NONNULL(3);

/**
 * Deletes a proxy entry of IPv6.
 *
 * @param word1     the address's first eight bytes
 * @param word2     the address's last eight bytes
 * @param lif       name of the LIF that the entry is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_DelProxyArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance)
    LUMOZEPH_NONNULL(3);

/**
 * Reads the IPv6 neighbours of a LIF, or of a whole instance.
 *
 * @param instance     the instance's key, unterminated at 64 bytes
 * @param lif          the LIF's name, unterminated at 64 bytes; null: those of the whole instance
 * @param[out] buffer  room for LUMOZEPH_ARP_TABLE_SIZE bytes
 */
int32_t LUMOZEPH_GetArpsv6(const char* instance, const char* lif, void* buffer) LUMOZEPH_NONNULL(1, 3);

/* ------------------------------------------------------------------------------------------------------------------ *
 * lif_policies: Interface policies
 *
 * Route-shaped entries kept under a policy kind; kind 4 carries a text that names what the policy applies to.
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Adds an interface policy.
 *
 * @param kind         the policy's kind
 * @param text         at most 63 bytes, ignored unless kind is 4; null: EINVAL if kind is 4, and otherwise none
 * @param dest         IPv4 address of the destination network
 * @param mask         the mask value of dest
 * @param gateway      IPv4 address of the next hop
 * @param lif          name of the LIF, at most 63 bytes; null: none
 * @param instance     the instance's key; null: EINVAL
 * @param param        passed on as it stands
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_SetLifPolicy(int32_t kind, const char* text, uint32_t dest, uint32_t mask, uint32_t gateway,
    const char* lif, const char* instance, uint32_t param, LumoCmdResult* result);

/**
 * Deletes an interface policy.
 *
 * @param kind         the policy's kind
 * @param text         at most 63 bytes, ignored unless kind is 4; null: EINVAL if kind is 4, and otherwise none
 * @param dest         IPv4 address of the destination network
 * @param mask         the mask value of dest
 * @param gateway      IPv4 address of the next hop
 * @param lif          name of the LIF, at most 63 bytes; null: none
 * @param instance     the instance's key; null: EINVAL
 * @param param        passed on as it stands
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_DelLifPolicy(int32_t kind, const char* text, uint32_t dest, uint32_t mask, uint32_t gateway,
    const char* lif, const char* instance, uint32_t param, LumoCmdResult* result);

/**
 * Reads an instance's interface policies of one kind, as route records.
 *
 * @param instance  its key
 * @param kind      the policies' kind
 * @param text      at most 63 bytes, sent whatever the kind; null: EINVAL if kind is 4, and otherwise none
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseRoutes. Untouched if text is rejected
 */
int32_t LUMOZEPH_GetLifPolicies(const char* instance, uint32_t kind, const char* text, LumoRouteList** out)
    LUMOZEPH_NONNULL(1, 4);

/* ------------------------------------------------------------------------------------------------------------------ *
 * policies: Policies
 *
 * Policies lie in policy tables, which are numbered and belong to the module as a whole, not to an instance. A policy
 * is named by two numbers within its table.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Policies in a list at most. */
#define LUMOZEPH_POLICIES_MAX 1000

/** One policy as the module reports it. */
struct LumoPolicyInfo
{
    uint32_t value1; /**< 0 */
    uint32_t value2; /**< 4 */
    uint32_t value3; /**< 8 */
    uint32_t value4; /**< 12 */
    uint32_t value5; /**< 16 */
    uint64_t value6; /**< 20 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoPolicyInfo, 28);

/** Policies. */
struct LumoPolicyList
{
    int32_t count;           /**< policies in records */
    LumoPolicyInfo* records; /**< room for LUMOZEPH_POLICIES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoPolicyList, 16);

/**
 * Reads the policies of one table.
 *
 * @param table     the table's number
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseAllPolicy
 */
int32_t LUMOZEPH_GetPolicy(uint32_t table, LumoPolicyList** out) LUMOZEPH_NONNULL(2);

/**
 * Counts the policies of one table.
 *
 * Of the request, 768 bytes are sent as the stack held them. If the module's reply is too short (EBADMSG), 4 bytes stay
 * allocated.
 *
 * @param table       the table's number
 * @param[out] count  the number of policies, untouched on failure
 * @errno ENOMEM   the library could not allocate memory for the module's reply
 * @errno EBADMSG  the module's reply is shorter than 4 bytes
 */
int32_t LUMOZEPH_GetPolicyCount(uint32_t table, uint32_t* count) LUMOZEPH_NONNULL(2);

/**
 * Sets a policy.
 *
 * @param table        the table's number
 * @param key1         first of the two numbers that name the policy
 * @param key2         second of them
 * @param value        stored with the policy
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_SetPolicy(uint32_t table, uint32_t key1, uint32_t key2, uint32_t value, LumoCmdResult* result);

/**
 * Deletes a policy.
 *
 * @param table        the table's number
 * @param key1         first of the two numbers that name the policy
 * @param key2         second of them
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_DelPolicy(uint32_t table, uint32_t key1, uint32_t key2, LumoCmdResult* result);

/**
 * Frees a list of LUMOZEPH_GetPolicy.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseAllPolicy(LumoPolicyList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * policy_tables: Policy tables, and the references from interfaces to them
 * ------------------------------------------------------------------------------------------------------------------ */

/** Policy tables in a list at most. */
#define LUMOZEPH_POLICY_TABLES_MAX 1000
/** Room of LumoLifPolicyTableRef.refs, and references that can be set at most. */
#define LUMOZEPH_POLICY_TABLE_REFS_MAX 20

/** One policy table as the module reports it. */
struct LumoPolicyTableInfo
{
    uint32_t policyTableId;   /**< 0: the table's number */
    char policyTableName[64]; /**< 4 */
    uint32_t value1;          /**< 68 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoPolicyTableInfo, 72);

/** Policy tables. */
struct LumoPolicyTableList
{
    int32_t count;                /**< tables in records */
    LumoPolicyTableInfo* records; /**< room for LUMOZEPH_POLICY_TABLES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoPolicyTableList, 16);

/** One reference to a policy table, as the module lays it out. */
struct LumoPolicyTableRefEntry
{
    uint8_t bytes[24]; /**< 0 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoPolicyTableRefEntry, 24);

/** The references from one LIF to policy tables. */
struct LumoLifPolicyTableRef
{
    char text1[64];                   /**< 0 */
    uint16_t refCount;                /**< 64: as reported */
    LumoPolicyTableRefEntry refs[20]; /**< 66: zero past refCount */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLifPolicyTableRef, 546);

/**
 * Reads the policy tables.
 *
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseAllPolicyTable
 */
int32_t LUMOZEPH_GetPolicyTable(LumoPolicyTableList** out) LUMOZEPH_NONNULL(1);

/**
 * Creates a policy table.
 *
 * @param table        its number
 * @param name         its name, at most 63 bytes
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_SetPolicyTable(uint32_t table, const char* name, LumoCmdResult* result) LUMOZEPH_NONNULL(2);

/**
 * Deletes a policy table.
 *
 * @param table        its number
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_DelPolicyTable(uint32_t table, LumoCmdResult* result);

/**
 * Frees a list of LUMOZEPH_GetPolicyTable.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseAllPolicyTable(LumoPolicyTableList* list);

/**
 * Reads a LIF's references to policy tables.
 *
 * @param instance  the instance's key; null: EINVAL
 * @param lif       the LIF's name, at most 63 bytes; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseLifPolicyTableRef
 */
int32_t LUMOZEPH_GetLifPolicyTableRef(const char* instance, const char* lif, LumoLifPolicyTableRef** out)
    LUMOZEPH_NONNULL(3);

/**
 * Sets a LIF's references to policy tables.
 *
 * @param instance     the instance's key; null: EINVAL
 * @param lif          the LIF's name, at most 63 bytes; null: EINVAL
 * @param count        at most LUMOZEPH_POLICY_TABLE_REFS_MAX. A larger number is itself sent, but of its entries only
 *                     what fits into the request
 * @param entries      count of them; may be null if count is 0
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_SetLifPolicyTableRef(const char* instance, const char* lif, uint16_t count,
    const LumoPolicyTableRefEntry* entries, LumoCmdResult* result);

/**
 * Deletes a LIF's references to policy tables.
 *
 * @param instance     the instance's key; null: EINVAL
 * @param lif          the LIF's name, at most 63 bytes; null: EINVAL
 * @param[out] result  the module's answer; null: it is not asked for
 */
int32_t LUMOZEPH_DelLifPolicyTableRef(const char* instance, const char* lif, LumoCmdResult* result);

/**
 * Frees a record of LUMOZEPH_GetLifPolicyTableRef.
 *
 * @param ref  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseLifPolicyTableRef(LumoLifPolicyTableRef* ref);

/* ------------------------------------------------------------------------------------------------------------------ *
 * bridges: Bridges
 *
 * Layer-2 bridges, named by an instance key as router instances are.
 *
 * The list reads of this chapter and of networks, fdb, clusters, endpoints and bfd come in two forms.
 * LUMOZEPH_GetBridge... allocates the list and hands it over. Its worker, LUMOZEPHGetBridge... without the underscore,
 * fills a list of 16 zeroed bytes that the caller has allocated with calloc(3). After a success, that list is freed
 * with the Release function of its pair. If the worker fails, it has freed the list, except when the device call
 * failed: then the list is untouched and still the caller's. After the same failure of the first form, 16 bytes stay
 * allocated.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Bridges in a list at most. */
#define LUMOZEPH_BRIDGES_MAX 4096

/** One bridge as the module reports it. */
struct LumoBridgeInstanceInfo
{
    uint64_t value1;      /**< 0 */
    uint32_t value2;      /**< 8 */
    char name[64];        /**< 12: the bridge's name */
    uint32_t value3;      /**< 76 */
    uint32_t value4;      /**< 80 */
    char text1[128];      /**< 84 */
    char text2[81];       /**< 212 */
    uint8_t uncopied[12]; /**< 293: not copied */
    uint32_t value5;      /**< 305 */
    uint32_t value6;      /**< 309 */
    uint64_t data[10];    /**< 313 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeInstanceInfo, 393);

/** Bridges. */
struct LumoBridgeInstanceList
{
    int32_t count;                   /**< bridges in records */
    LumoBridgeInstanceInfo* records; /**< room for LUMOZEPH_BRIDGES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeInstanceList, 16);

/**
 * Reads one bridge.
 *
 * @param key       its key; null: EINVAL
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseBridgeInstance
 */
int32_t LUMOZEPH_GetBridgeInstance(const char* key, LumoBridgeInstanceInfo** out) LUMOZEPH_NONNULL(2);

/**
 * Reads all bridges.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeInstances
 */
int32_t LUMOZEPH_GetBridgeInstances(LumoBridgeInstanceList** out) LUMOZEPH_NONNULL(1);

/**
 * Reads all bridges into a list of the caller's: the worker of LUMOZEPH_GetBridgeInstances.
 *
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeInstances. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeInstances(LumoBridgeInstanceList* list) LUMOZEPH_NONNULL(1);

/**
 * Frees a record of LUMOZEPH_GetBridgeInstance.
 *
 * @param bridge  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeInstance(LumoBridgeInstanceInfo* bridge);

/**
 * Frees a list of LUMOZEPH_GetBridgeInstances or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeInstances(LumoBridgeInstanceList* list);

/**
 * Creates a bridge.
 *
 * @param key    its key
 * @param value  passed on as it stands
 */
int32_t LUMOZEPH_BridgeAdd(const char* key, uint32_t value) LUMOZEPH_NONNULL(1);

/**
 * Removes a bridge.
 *
 * @param key    its key
 * @param value  passed on as it stands
 */
int32_t LUMOZEPH_BridgeDel(const char* key, uint32_t value) LUMOZEPH_NONNULL(1);

/**
 * Switches a bridge on.
 *
 * @param key    its key
 * @param value  one byte, passed on as it stands; it does not choose between on and off
 */
int32_t LUMOZEPH_BridgeEnable(const char* key, uint8_t value) LUMOZEPH_NONNULL(1);

/**
 * Switches a bridge off.
 *
 * @param key    its key
 * @param value  one byte, passed on as it stands; it does not choose between on and off
 */
int32_t LUMOZEPH_BridgeDisable(const char* key, uint8_t value) LUMOZEPH_NONNULL(1);

/**
 * Sets a bridge's high-availability administrative state.
 *
 * @param key    its key
 * @param state  passed on as it stands
 */
int32_t LUMOZEPH_BridgeSetHAAdminState(const char* key, uint32_t state) LUMOZEPH_NONNULL(1);

/**
 * Sets a bridge's replication mode.
 *
 * @param key   its key
 * @param mode  passed on as it stands
 */
int32_t LUMOZEPH_SetBridgeRepMode(const char* key, uint32_t mode) LUMOZEPH_NONNULL(1);

/**
 * Sets one numeric setting of a bridge, which the command number chooses.
 *
 * The number is sent unchecked, also that of a command of another chapter. No room is offered for a reply.
 *
 * @param key      the bridge's key
 * @param command  the number that is sent, sign-extended
 * @param value    passed on as it stands
 */
int32_t LUMOZEPH_BridgeSetConfig(const char* key, int32_t command, uint32_t value) LUMOZEPH_NONNULL(1);

/* ------------------------------------------------------------------------------------------------------------------ *
 * networks: Bridge networks and ports
 * ------------------------------------------------------------------------------------------------------------------ */

/** Networks in a list at most. */
#define LUMOZEPH_BRIDGE_NETWORKS_MAX 32768
/** Ports in a list at most. */
#define LUMOZEPH_BRIDGE_PORTS_MAX 32768

/** One network of a bridge as the module reports it. */
struct LumoBridgeNetworkInfo
{
    uint64_t value1;     /**< 0 */
    uint32_t value2;     /**< 8 */
    uint16_t value3;     /**< 12 */
    uint32_t value4;     /**< 14 */
    uint16_t value5;     /**< 18 */
    uint32_t value6;     /**< 20 */
    uint32_t value7;     /**< 24 */
    uint8_t value8;      /**< 28 */
    uint64_t data[12];   /**< 29 */
    uint8_t uncopied[8]; /**< 125: not copied */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeNetworkInfo, 133);

/** Networks of a bridge. */
struct LumoBridgeNetworkList
{
    int32_t count;                  /**< networks in records */
    LumoBridgeNetworkInfo* records; /**< room for LUMOZEPH_BRIDGE_NETWORKS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeNetworkList, 16);

/** One port of a bridge as the module reports it. */
struct LumoBridgePortInfo
{
    uint64_t value1;   /**< 0 */
    uint32_t value2;   /**< 8 */
    uint16_t value3;   /**< 12 */
    uint32_t value4;   /**< 14 */
    uint64_t data[16]; /**< 18 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgePortInfo, 146);

/** Ports of a bridge. */
struct LumoBridgePortList
{
    int32_t count;               /**< ports in records */
    LumoBridgePortInfo* records; /**< room for LUMOZEPH_BRIDGE_PORTS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgePortList, 16);

/**
 * Reads a bridge's networks.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param firstKey  a text that is read and not sent
 * @param key       the bridge's key
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeNetworks
 */
int32_t LUMOZEPH_GetBridgeNetworks(const char* firstKey, const char* key, LumoBridgeNetworkList** out)
    LUMOZEPH_NONNULL(1, 2, 3);

/**
 * Reads a bridge's networks into a list of the caller's: the worker of LUMOZEPH_GetBridgeNetworks.
 *
 * @param firstKey      a text that is read and not sent
 * @param key           the bridge's key
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeNetworks. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeNetworks(const char* firstKey, const char* key, LumoBridgeNetworkList* list)
    LUMOZEPH_NONNULL(1, 2, 3);

/**
 * Reads a bridge's ports.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param firstKey  a text that is read and not sent
 * @param key       the bridge's key
 * @param value16   first of the two values that select the ports; sent as 32 bits
 * @param value32   second of them
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgePorts
 */
int32_t LUMOZEPH_GetBridgePorts(const char* firstKey, const char* key, uint16_t value16, uint32_t value32,
    LumoBridgePortList** out) LUMOZEPH_NONNULL(1, 2, 5);

/**
 * Reads a bridge's ports into a list of the caller's: the worker of LUMOZEPH_GetBridgePorts.
 *
 * @param firstKey      a text that is read and not sent
 * @param key           the bridge's key
 * @param value16       first of the two values that select the ports; sent as 32 bits
 * @param value32       second of them
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgePorts. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgePorts(const char* firstKey, const char* key, uint16_t value16, uint32_t value32,
    LumoBridgePortList* list) LUMOZEPH_NONNULL(1, 2, 5);

/**
 * Frees a network record that stands alone. No function returns one.
 *
 * @param network  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeNetwork(LumoBridgeNetworkInfo* network);

/**
 * Frees a list of LUMOZEPH_GetBridgeNetworks or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeNetworks(LumoBridgeNetworkList* list);

/**
 * Frees a list of LUMOZEPH_GetBridgePorts or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgePorts(LumoBridgePortList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * fdb: Forwarding table, FL table and PMACs
 *
 * Read, set and clear of a forwarding table have two selectors, whose meaning is the module's. The first one has 16
 * bits in the read and 32 in the set and the clear; all send it as 32.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Entries of a forwarding table in a list at most. */
#define LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX 4096
/** Room for the FL table, in bytes. */
#define LUMOZEPH_FL_TABLE_SIZE 426080
/** Room for the PMAC table, in bytes. */
#define LUMOZEPH_PMAC_TABLE_SIZE 131072

/** One entry of a bridge's forwarding table as the module reports it. */
struct LumoBridgeFdbEntry
{
    uint8_t mac[6];       /**< 0 */
    uint16_t value1;      /**< 6 */
    uint32_t value2 : 24; /**< 8: the low 24 bits of the 32-bit word there */
    uint32_t value3 : 8;  /**< 11: its top byte */
    uint32_t value4;      /**< 12 */
    uint32_t value5;      /**< 16 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeFdbEntry, 20);

/** Entries of a bridge's forwarding table. */
struct LumoBridgeFdbList
{
    int32_t count;               /**< entries in records */
    LumoBridgeFdbEntry* records; /**< room for LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeFdbList, 16);

/**
 * Reads entries of a bridge's forwarding table.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key       the bridge's key
 * @param value16   first selector
 * @param value32   second selector
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeFdbEntries
 */
int32_t LUMOZEPH_GetBridgeFdbEntries(const char* key, uint16_t value16, uint32_t value32, LumoBridgeFdbList** out)
    LUMOZEPH_NONNULL(1, 4);

/**
 * Reads entries of a bridge's forwarding table into a list of the caller's: the worker of LUMOZEPH_GetBridgeFdbEntries.
 *
 * @param key           the bridge's key
 * @param value16       first selector
 * @param value32       second selector
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeFdbEntries. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeFdbEntries(const char* key, uint16_t value16, uint32_t value32, LumoBridgeFdbList* list)
    LUMOZEPH_NONNULL(1, 4);

/**
 * Frees a list of LUMOZEPH_GetBridgeFdbEntries or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeFdbEntries(LumoBridgeFdbList* list);

/**
 * Sets an entry of a bridge's forwarding table.
 *
 * @param key        the bridge's key
 * @param mac        the MAC address as text, at most 17 bytes; null: none
 * @param selector1  first selector
 * @param selector2  second selector
 * @param value      passed on as it stands
 * @param flags      passed on as they stand
 */
int32_t LUMOZEPH_BridgeSetFdbEntry(const char* key, const char* mac, uint32_t selector1, uint32_t selector2,
    uint32_t value, uint8_t flags) LUMOZEPH_NONNULL(1);

/**
 * Clears a bridge's forwarding table.
 *
 * @param key        the bridge's key
 * @param selector1  first selector
 * @param selector2  second selector
 */
int32_t LUMOZEPH_BridgeClearFdbTable(const char* key, uint32_t selector1, uint32_t selector2) LUMOZEPH_NONNULL(1);

/**
 * Reads the module's FL table.
 *
 * @param selector     passed on as it stands
 * @param[out] buffer  room for LUMOZEPH_FL_TABLE_SIZE bytes
 */
int32_t LUMOZEPH_DumpFLTable(uint16_t selector, void* buffer) LUMOZEPH_NONNULL(2);

/**
 * Reads the PMAC table.
 *
 * @param[out] buffer  room for LUMOZEPH_PMAC_TABLE_SIZE bytes
 */
int32_t LUMOZEPH_GetPmac(void* buffer) LUMOZEPH_NONNULL(1);

/**
 * Adds a PMAC.
 *
 * @param value  passed on as it stands
 * @param mac    6 bytes; null: none, which sends six zero bytes
 */
int32_t LUMOZEPH_AddPmac(uint32_t value, const uint8_t* mac);

/**
 * Deletes a PMAC.
 *
 * @param mac  6 bytes; null: none, which sends six zero bytes
 */
int32_t LUMOZEPH_DelPmac(const uint8_t* mac);

/* ------------------------------------------------------------------------------------------------------------------ *
 * clusters: Bridge clusters, their nodes and the local transport node
 *
 * Clusters are named by an instance key, as bridges are. The pairs of list read and worker are as with bridges.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Clusters in a list at most. */
#define LUMOZEPH_BRIDGE_CLUSTERS_MAX 10
/** Nodes in a list at most. */
#define LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX 100
/** Room for the locale identifier, in bytes. */
#define LUMOZEPH_LOCALE_ID_SIZE 16
/** Room for the local transport node, in bytes. */
#define LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE 2048
/** Size of the block that a local transport node is set with, in bytes. */
#define LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE 64

/** One cluster as the module reports it. */
struct LumoBridgeClusterInfo
{
    char ident[64];      /**< 0: as the module sent it, not necessarily terminated */
    uint8_t uncopied[8]; /**< 64: not copied */
    uint32_t value1;     /**< 72 */
    uint8_t block[96];   /**< 76 */
    uint16_t value2;     /**< 172 */
    uint16_t value3;     /**< 174 */
    uint16_t value4;     /**< 176 */
    uint8_t value5;      /**< 178 */
    uint32_t value6;     /**< 179 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterInfo, 183);

/** Clusters. */
struct LumoBridgeClusterList
{
    int32_t count;                  /**< clusters in records */
    LumoBridgeClusterInfo* records; /**< room for LUMOZEPH_BRIDGE_CLUSTERS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterList, 16);

/** One node of a cluster as the module reports it. */
struct LumoBridgeClusterNodeInfo
{
    char ident[64];  /**< 0: as the module sent it, not necessarily terminated */
    uint32_t value1; /**< 64 */
    uint16_t value2; /**< 68 */
    uint8_t value3;  /**< 70 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterNodeInfo, 71);

/** Nodes of clusters. */
struct LumoBridgeClusterNodeList
{
    int32_t count;                      /**< nodes in records */
    LumoBridgeClusterNodeInfo* records; /**< room for LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterNodeList, 16);

/**
 * Reads the locale identifier.
 *
 * @param[out] buffer  room for LUMOZEPH_LOCALE_ID_SIZE bytes
 */
int32_t LUMOZEPH_GetLocaleId(void* buffer) LUMOZEPH_NONNULL(1);

/**
 * Reads clusters.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key       an instance key; null: no key is sent
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeClusters
 */
int32_t LUMOZEPH_GetBridgeClusters(const char* key, LumoBridgeClusterList** out) LUMOZEPH_NONNULL(2);

/**
 * Reads clusters into a list of the caller's: the worker of LUMOZEPH_GetBridgeClusters.
 *
 * @param key           an instance key; null: no key is sent
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeClusters. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeClusters(const char* key, LumoBridgeClusterList* list) LUMOZEPH_NONNULL(2);

/**
 * Frees a list of LUMOZEPH_GetBridgeClusters or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeClusters(LumoBridgeClusterList* list);

/**
 * Sets a cluster, or removes it.
 *
 * @param key  its key
 * @param on   not 0: sets; 0: removes
 */
int32_t LUMOZEPH_BridgeClusterSet(const char* key, int8_t on) LUMOZEPH_NONNULL(1);

/**
 * Reads nodes of clusters.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key       an instance key; null: no key is sent
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeClusterNodes
 */
int32_t LUMOZEPH_GetBridgeClusterNodes(const char* key, LumoBridgeClusterNodeList** out) LUMOZEPH_NONNULL(2);

/**
 * Reads nodes of clusters into a list of the caller's: the worker of LUMOZEPH_GetBridgeClusterNodes.
 *
 * @param key           an instance key; null: no key is sent
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeClusterNodes. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeClusterNodes(const char* key, LumoBridgeClusterNodeList* list) LUMOZEPH_NONNULL(2);

/**
 * Frees a list of LUMOZEPH_GetBridgeClusterNodes or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeClusterNodes(LumoBridgeClusterNodeList* list);

/**
 * Sets a node of a cluster, or removes it.
 *
 * @param key   the cluster's key
 * @param node  the node's name, at most 63 bytes
 * @param mac   6 bytes; null or any other pointer if on is 0, when it is neither read nor sent
 * @param on    not 0: sets; 0: removes
 */
int32_t LUMOZEPH_BridgeClusterNodeSet(const char* key, const char* node, const uint8_t* mac, int8_t on)
    LUMOZEPH_NONNULL(1, 2);

/**
 * Sets the local transport node.
 *
 * @param text1  at most 63 bytes
 * @param text2  at most 63 bytes
 * @param text3  at most 15 bytes
 * @param value  passed on as it stands
 * @param block  LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE bytes, sent as they stand
 * @param on     not 0, or 0: chooses between two commands of the module, which are sent the same values
 */
int32_t LUMOZEPH_BridgeLocalTransportNodeSet(const char* text1, const char* text2, const char* text3, uint32_t value,
    const void* block, int8_t on) LUMOZEPH_NONNULL(1, 2, 3, 5);

/**
 * Reads the local transport node.
 *
 * @param[out] buffer  room for LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE bytes
 * @param selector     passed on as it stands
 */
int32_t LUMOZEPH_BridgeGetLocalTransportNode(void* buffer, uint32_t selector) LUMOZEPH_NONNULL(1);

/**
 * Flushes a cluster.
 *
 * @param key  its key; null: no key is sent
 * @param on   not 0, or 0: chooses between two commands of the module
 */
int32_t LUMOZEPH_FlushBridgeCluster(const char* key, int8_t on);

/**
 * Sets the debug level of a cluster.
 *
 * @param key    its key; null: no key is sent
 * @param level  passed on as it stands
 */
int32_t LUMOZEPH_SetBridgeClusterDebug(const char* key, uint8_t level);

/**
 * Sets the BFD high-availability profile of a cluster.
 *
 * @param key     its key
 * @param flag    passed on as it stands
 * @param value1  passed on as it stands
 * @param value2  passed on as it stands
 */
int32_t LUMOZEPH_BridgeClusterBfdHAProfileSet(const char* key, uint8_t flag, uint32_t value1, uint32_t value2)
    LUMOZEPH_NONNULL(1);

/* ------------------------------------------------------------------------------------------------------------------ *
 * endpoints: Bridge endpoints
 *
 * The pair of list read and worker is as with bridges; each allocates 6737920 bytes twice.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Endpoints in a list at most. */
#define LUMOZEPH_BRIDGE_ENDPOINTS_MAX 28672
/** Room for the statistics of an endpoint, in bytes: the size of LumoBridgePortInfo. */
#define LUMOZEPH_BE_STATS_SIZE 146
/** Room for the status of an endpoint, in bytes. */
#define LUMOZEPH_BE_STATUS_SIZE 229
/** The unit in which LUMOZEPH_GetBeAll counts, in bytes: the size of LumoBridgeEndpointInfo. */
#define LUMOZEPH_BE_SIZE 235

/** One bridge endpoint as the module reports it. */
struct LumoBridgeEndpointInfo
{
    uint8_t uncopied[64]; /**< 0: not copied */
    char ident[64];       /**< 64: as the module sent it, not necessarily terminated */
    uint16_t value1;      /**< 128 */
    uint8_t value2;       /**< 130 */
    uint32_t value3;      /**< 131 */
    uint32_t value4;      /**< 135 */
    uint8_t block[96];    /**< 139 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeEndpointInfo, 235);

/** Bridge endpoints. */
struct LumoBridgeEndpointList
{
    int32_t count;                   /**< endpoints in records */
    LumoBridgeEndpointInfo* records; /**< room for LUMOZEPH_BRIDGE_ENDPOINTS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeEndpointList, 16);

/**
 * Adds a bridge endpoint.
 *
 * @param key     its key, at most 63 bytes
 * @param text1   at most 63 bytes
 * @param name    its name, at most 63 bytes
 * @param value1  passed on as it stands
 * @param value2  passed on as it stands
 * @param text2   at most 63 bytes
 * @param value3  passed on as it stands
 * @param flag1   passed on as it stands
 * @param text3   at most 63 bytes
 * @param flag2   passed on as it stands
 */
int32_t LUMOZEPH_AddBridgeEndpoint(const char* key, const char* text1, const char* name, uint32_t value1,
    uint32_t value2, const char* text2, uint16_t value3, uint8_t flag1, const char* text3, uint8_t flag2)
    LUMOZEPH_NONNULL(1, 2, 3, 6, 9);

/**
 * Deletes a bridge endpoint.
 *
 * @param key   its key, at most 63 bytes
 * @param name  its name, at most 63 bytes
 */
int32_t LUMOZEPH_DelBridgeEndpoint(const char* key, const char* name) LUMOZEPH_NONNULL(1, 2);

/**
 * Flushes the bridge endpoints.
 *
 * @param on  not 0, or 0: chooses between two commands of the module
 */
int32_t LUMOZEPH_FlushBridgeEndpoint(int8_t on);

/**
 * Reads bridge endpoints.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key       an instance key; null: no key is sent
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeEndpoints
 */
int32_t LUMOZEPH_GetBridgeEndpoints(const char* key, LumoBridgeEndpointList** out) LUMOZEPH_NONNULL(2);

/**
 * Reads bridge endpoints into a list of the caller's: the worker of LUMOZEPH_GetBridgeEndpoints.
 *
 * @param key           an instance key; null: no key is sent
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeEndpoints. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeEndpoints(const char* key, LumoBridgeEndpointList* list) LUMOZEPH_NONNULL(2);

/**
 * Frees a list of LUMOZEPH_GetBridgeEndpoints or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeEndpoints(LumoBridgeEndpointList* list);

/**
 * Reads the statistics of a bridge endpoint.
 *
 * @param key          its key, at most 63 bytes
 * @param[out] buffer  room for LUMOZEPH_BE_STATS_SIZE bytes
 */
int32_t LUMOZEPH_GetBeStats(const char* key, void* buffer) LUMOZEPH_NONNULL(1, 2);

/**
 * Reads the status of a bridge endpoint.
 *
 * @param key          its key, at most 63 bytes
 * @param[out] buffer  room for LUMOZEPH_BE_STATUS_SIZE bytes
 */
int32_t LUMOZEPH_GetBeStatus(const char* key, void* buffer) LUMOZEPH_NONNULL(1, 2);

/**
 * Reads all bridge endpoints as the module lays them out.
 *
 * @param[out] buffer  room for size bytes; may be null if size is 0
 * @param size         bytes at buffer
 * @param[out] count   the bytes that the module reports, as an unsigned number and also if they are more than size,
 *                     divided by LUMOZEPH_BE_SIZE, rounded down; untouched on failure
 */
int32_t LUMOZEPH_GetBeAll(void* buffer, uint32_t size, uint32_t* count) LUMOZEPH_NONNULL(3);

/* ------------------------------------------------------------------------------------------------------------------ *
 * bfd: BFD sessions and port connections
 *
 * The pair of list read and worker is as with bridges. It is the largest list there is: each allocates 111820800 bytes
 * twice.
 * ------------------------------------------------------------------------------------------------------------------ */

/** BFD sessions in a list at most. */
#define LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX 2867200
/** Room for the port connections for BFD, in bytes. */
#define LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE 131072

/** One BFD session as the module reports it. */
struct LumoBridgeBfdSessionInfo
{
    uint16_t value1;  /**< 0 */
    uint8_t addr1[6]; /**< 2: an address of 6 bytes */
    uint8_t addr2[6]; /**< 8: an address of 6 bytes */
    uint32_t value2;  /**< 14 */
    uint8_t value3;   /**< 18 */
    uint32_t value4;  /**< 19 */
    uint64_t value5;  /**< 23 */
    uint64_t value6;  /**< 31 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeBfdSessionInfo, 39);

/** BFD sessions. */
struct LumoBridgeBfdSessionList
{
    int32_t count;                     /**< sessions in records */
    LumoBridgeBfdSessionInfo* records; /**< room for LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeBfdSessionList, 16);

/**
 * Reads BFD sessions.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key       an instance key; null: no key is sent
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseBridgeBFDSessions
 */
int32_t LUMOZEPH_GetBridgeBFDSessions(const char* key, LumoBridgeBfdSessionList** out) LUMOZEPH_NONNULL(2);

/**
 * Reads BFD sessions into a list of the caller's: the worker of LUMOZEPH_GetBridgeBFDSessions.
 *
 * @param key           an instance key; null: no key is sent
 * @param[in,out] list  16 zeroed bytes from calloc(3); free it with LUMOZEPH_ReleaseBridgeBFDSessions. After a
 *                      failure it has been freed, unless the device call failed
 */
int32_t LUMOZEPHGetBridgeBFDSessions(const char* key, LumoBridgeBfdSessionList* list) LUMOZEPH_NONNULL(2);

/**
 * Frees a list of LUMOZEPH_GetBridgeBFDSessions or of its worker.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseBridgeBFDSessions(LumoBridgeBfdSessionList* list);

/**
 * Plumbs a port connection for BFD.
 *
 * @param port  the port's name, at most 63 bytes
 * @param text  at most 15 bytes
 * @param mac   6 bytes; null: none, which sends six zero bytes
 */
int32_t LUMOZEPH_PlumbBFDPortConnection(const char* port, const char* text, const uint8_t* mac) LUMOZEPH_NONNULL(1, 2);

/**
 * Unplumbs a port connection for BFD.
 *
 * @param port  the port's name, at most 63 bytes
 */
int32_t LUMOZEPH_UnPlumbBFDPortConnection(const char* port) LUMOZEPH_NONNULL(1);

/**
 * Reads the port connections for BFD.
 *
 * @param[out] buffer  room for LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE bytes
 */
int32_t LUMOZEPH_GetBFDPortConnections(void* buffer) LUMOZEPH_NONNULL(1);

/* ------------------------------------------------------------------------------------------------------------------ *
 * mcast_receivers: Multicast domain and receivers
 *
 * Receivers are kept under a 32-bit value of their instance.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Local receivers in a list at most. */
#define LUMOZEPH_LOCAL_RCVRS_MAX 512
/** Tunnel endpoints in a table at most, if the module is well behaved. */
#define LUMOZEPH_VTEPS_MAX 2048

/** An instance's multicast domain as the module reports it. */
struct LumoMcastDomainInfo
{
    char text1[64];  /**< 0 */
    char text2[48];  /**< 64 */
    uint64_t value1; /**< 112 */
    uint64_t value2; /**< 120 */
    uint64_t value3; /**< 128 */
    uint64_t value4; /**< 136 */
    uint32_t value5; /**< 144 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoMcastDomainInfo, 148);

/** One local receiver as the module reports it. */
struct LumoLocalRcvrInfo
{
    char text1[64];  /**< 0 */
    uint32_t value1; /**< 64 */
    uint32_t value2; /**< 68 */
    uint64_t value3; /**< 72 */
    uint64_t value4; /**< 80 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLocalRcvrInfo, 88);

/** Local receivers. */
struct LumoLocalRcvrList
{
    int32_t count;              /**< receivers in records */
    LumoLocalRcvrInfo* records; /**< room for LUMOZEPH_LOCAL_RCVRS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoLocalRcvrList, 16);

/** One tunnel endpoint, as the module lays it out. */
struct LumoVtepEntry
{
    uint8_t bytes[68]; /**< 0 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoVtepEntry, 68);

/** Tunnel endpoints. */
struct LumoVtepTable
{
    uint32_t count;         /**< entries in records */
    LumoVtepEntry* records; /**< exactly count of them; those after LUMOZEPH_VTEPS_MAX are zero */
};
LUMOZEPH_RECORD_SIZE(LumoVtepTable, 16);

/**
 * Reads an instance's multicast domain.
 *
 * @param instance  its key
 * @param[out] out  the record; free it with LUMOZEPH_ReleaseMRoutingDomainData
 */
int32_t LUMOZEPH_GetMRoutingDomain(const char* instance, LumoMcastDomainInfo** out) LUMOZEPH_NONNULL(1, 2);

/**
 * Frees a record of LUMOZEPH_GetMRoutingDomain.
 *
 * @param domain  the record; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseMRoutingDomainData(LumoMcastDomainInfo* domain);

/**
 * Reads an instance's local receivers under a value.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param instance  its key
 * @param value     the value
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseMRoutingLocalRcvrs
 */
int32_t LUMOZEPH_GetMRoutingLocalRcvrs(const char* instance, uint32_t value, LumoLocalRcvrList** out)
    LUMOZEPH_NONNULL(1, 3);

/**
 * Adds a local receiver.
 *
 * @param instance  the instance's key
 * @param value     the value that the receiver is under
 * @param text      at most 63 bytes; null: none
 */
int32_t LUMOZEPH_AddMRoutingLocalRcvrs(const char* instance, uint32_t value, const char* text) LUMOZEPH_NONNULL(1);

/**
 * Deletes a local receiver.
 *
 * @param instance  the instance's key
 * @param value     the value that the receiver is under
 * @param text      at most 63 bytes; null: none
 */
int32_t LUMOZEPH_DelMRoutingLocalRcvrs(const char* instance, uint32_t value, const char* text) LUMOZEPH_NONNULL(1);

/**
 * Frees a list of LUMOZEPH_GetMRoutingLocalRcvrs.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseMRoutingLocalRcvrs(LumoLocalRcvrList* list);

/**
 * Reads an instance's remote receivers under a value.
 *
 * @param instance  its key
 * @param value     the value
 * @param[out] out  the table; free it with LUMOZEPH_ReleaseVTEPTable. Untouched when the reply buffer or the device
 *                  call fails, null after every later failure
 * @errno EBADMSG  the reply has no count, or is shorter than its count and the entries that this announces: a length
 *                 that is computed in 32 bits and compared as signed, so that of 2 GiB or more not every reply that is
 *                 too short is found
 * @errno none     errno is not set: the entries that the count announces are 2 GiB or more, and neither EBADMSG nor
 *                 ENOMEM has come first
 */
int32_t LUMOZEPH_GetMRoutingRemoteRcvrs(const char* instance, uint32_t value, LumoVtepTable** out)
    LUMOZEPH_NONNULL(1, 3);

/**
 * Adds a remote receiver.
 *
 * @param instance  the instance's key
 * @param value     the value that the receiver is under
 * @param key       the receiver's key
 * @param hwAddr    6 bytes
 * @param value1    passed on as it stands
 * @param value2    passed on as it stands
 */
int32_t LUMOZEPH_AddMRoutingRemoteRcvrs(const char* instance, uint32_t value, uint32_t key, const uint8_t* hwAddr,
    uint32_t value1, uint32_t value2) LUMOZEPH_NONNULL(1, 4);

/**
 * Deletes a remote receiver.
 *
 * Of the request, 704 bytes are sent as the stack held them.
 *
 * @param instance  the instance's key
 * @param value     the value that the receiver is under
 * @param key       the receiver's key
 */
int32_t LUMOZEPH_DelMRoutingRemoteRcvrs(const char* instance, uint32_t value, uint32_t key) LUMOZEPH_NONNULL(1);

/**
 * Frees a table of LUMOZEPH_GetMRoutingRemoteRcvrs.
 *
 * The array of a table whose count is 0 stays allocated: give it to free() before.
 *
 * @param table  the table; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseVTEPTable(LumoVtepTable* table);

/* ------------------------------------------------------------------------------------------------------------------ *
 * mcast_groups: Multicast groups, replication and router addresses
 * ------------------------------------------------------------------------------------------------------------------ */

/** Multicast groups in a list at most. */
#define LUMOZEPH_MCAST_GROUPS_MAX 4096

/** One multicast group as the module reports it. */
struct LumoMcastGroupInfo
{
    uint32_t value1; /**< 0 */
    uint32_t value2; /**< 4 */
    uint32_t value3; /**< 8 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoMcastGroupInfo, 12);

/** Multicast groups. */
struct LumoMcastGroupList
{
    int32_t count;               /**< groups in records */
    LumoMcastGroupInfo* records; /**< room for LUMOZEPH_MCAST_GROUPS_MAX */
};
LUMOZEPH_RECORD_SIZE(LumoMcastGroupList, 16);

/**
 * Reads an instance's multicast groups.
 *
 * A fragment at the end of the module's reply is no error: it counts as a group, whose missing bytes are undefined. If
 * the device call fails, 16 bytes stay allocated. EBADMSG can only be the module's own answer.
 *
 * @param instance  its key
 * @param[out] out  the list; free it with LUMOZEPH_ReleaseMRoutingMcastGroups
 * @errno EBADMSG  never
 */
int32_t LUMOZEPH_GetMRoutingAllMcastGroups(const char* instance, LumoMcastGroupList** out) LUMOZEPH_NONNULL(1, 2);

/**
 * Frees a list of LUMOZEPH_GetMRoutingAllMcastGroups.
 *
 * @param list  the list; null: nothing happens
 */
int32_t LUMOZEPH_ReleaseMRoutingMcastGroups(LumoMcastGroupList* list);

/**
 * Reads an instance's replication address under a value.
 *
 * @param instance      its key
 * @param value         the value
 * @param[out] address  IPv4, written by the module itself, also before it fails; bytes that it does not write stay as
 *                      they were
 */
int32_t LUMOZEPH_GetMRoutingReplicationIP(const char* instance, uint32_t value, uint32_t* address)
    LUMOZEPH_NONNULL(1, 3);

/**
 * Reads the address of an instance's multicast router under a value.
 *
 * @param instance      its key
 * @param value         the value
 * @param[out] address  IPv4, written by the module itself, also before it fails; bytes that it does not write stay as
 *                      they were
 */
int32_t LUMOZEPH_GetMRoutingMRouterIP(const char* instance, uint32_t value, uint32_t* address) LUMOZEPH_NONNULL(1, 3);

/**
 * Adds a multicast router to an instance.
 *
 * @param instance  its key
 * @param value     passed on as it stands
 */
int32_t LUMOZEPH_AddMRoutingMRouter(const char* instance, uint32_t value) LUMOZEPH_NONNULL(1);

/**
 * Removes an instance's multicast router.
 *
 * @param instance  its key
 */
int32_t LUMOZEPH_DelMRoutingMRouter(const char* instance) LUMOZEPH_NONNULL(1);

/* ------------------------------------------------------------------------------------------------------------------ *
 * rss: Software receive-side scaling
 *
 * A target is named by a text of at most 63 bytes. The lengths that the module reports are not looked at: what it does
 * not write of a reply is undefined.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Entries of each array of LumoRssStats. */
#define LUMOZEPH_RSS_ENTRIES_MAX 16
/** Size of an indirection table, in bytes and in entries. */
#define LUMOZEPH_RSS_IND_TABLE_SIZE 128

/** Statistics of a target. What is "not copied", and entries past rssEntryCount, are undefined here. */
struct LumoRssStats
{
    uint8_t uncopied1[4];     /**< 0: not copied, undefined */
    uint32_t rssEntryCount;   /**< 4: as reported */
    uint32_t rssWord[16];     /**< 8: undefined past rssEntryCount */
    uint8_t uncopied2[4];     /**< 72: not copied, undefined */
    uint64_t rssCounter1[16]; /**< 76: undefined past rssEntryCount */
    uint64_t rssCounter2[16]; /**< 204: undefined past rssEntryCount */
    uint64_t rssCounter3[16]; /**< 332: undefined past rssEntryCount */
    uint8_t uncopied3[344];   /**< 460: not copied, undefined */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRssStats, 804);

/** Tunables of a target. */
struct LumoRssTunables
{
    uint64_t value1; /**< 0: read and set */
    uint32_t value2; /**< 8: only read */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRssTunables, 12);

/** An indirection table that is to be set. */
struct LumoRssIndTable
{
    uint8_t entries[128]; /**< 0 */
    int32_t size;         /**< 128: entries to send, at most 128; none if it is 0 or negative */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRssIndTable, 132);

/**
 * Reads a target's statistics.
 *
 * A reply that is too short is no error. EBADMSG can only be the module's own answer.
 *
 * @param target    its name, at most 63 bytes; null: EINVAL
 * @param[out] out  the record; free it with free()
 * @errno EBADMSG  never
 */
int32_t LUMOZEPH_SoftRSSGetStats(const char* target, LumoRssStats** out) LUMOZEPH_NONNULL(2);

/**
 * Resets a target's statistics.
 *
 * @param target  its name, at most 63 bytes; null: EINVAL
 */
int32_t LUMOZEPH_SoftRSSStatsReset(const char* target);

/**
 * Reads a target's tunables.
 *
 * @param target         its name, at most 63 bytes; null: EINVAL
 * @param[out] tunables  undefined if the device call fails, untouched after every other failure
 * @errno ENOMEM  the library could not allocate memory for the module's reply
 */
int32_t LUMOZEPH_SoftRSSGetTunables(const char* target, LumoRssTunables* tunables) LUMOZEPH_NONNULL(2);

/**
 * Sets a target's tunables: value1 only.
 *
 * @param target    its name, at most 63 bytes; null: EINVAL
 * @param tunables  value1 of which is sent
 */
int32_t LUMOZEPH_SoftRSSSetTunables(const char* target, const LumoRssTunables* tunables) LUMOZEPH_NONNULL(2);

/**
 * Reads a target's indirection table.
 *
 * @param target        its name, at most 63 bytes; null: EINVAL
 * @param[out] entries  room for LUMOZEPH_RSS_IND_TABLE_SIZE bytes, all of which are overwritten, also where the module
 *                      writes fewer; untouched on failure
 * @errno ENOMEM  the library could not allocate memory for the module's reply
 */
int32_t LUMOZEPH_SoftRSSGetIndTable(const char* target, uint8_t* entries) LUMOZEPH_NONNULL(2);

/**
 * Sets a target's indirection table.
 *
 * The size is sent as it stands, also a negative one.
 *
 * @param target  its name, at most 63 bytes; null: EINVAL
 * @param table   the table; its size must not exceed 128, or the call reads and sends what lies behind its entries
 */
int32_t LUMOZEPH_SoftRSSTableSet(const char* target, const LumoRssIndTable* table) LUMOZEPH_NONNULL(2);

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#if defined(__cplusplus)
}
#endif

#endif
