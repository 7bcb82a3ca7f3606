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
 *
 * Chapters. Each begins with its name. Its source, its tests, its example and the emulator's side of it are in files of
 * that name.
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
 * channel: The device call and the instance key
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
 * instances: Router instances
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
 * levels: Runtime levels and queue tunables
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

/* ------------------------------------------------------------------------------------------------------------------ *
 * stats: Statistics
 *
 * All reads give one record, whose counters the first word chooses.
 * ------------------------------------------------------------------------------------------------------------------ */

/*
 * Counters by statsKind, as indices into counters; all others are zero:
 *   0      0 to 27, but not 8
 *   1      0 to 99, but not 71 and 77; 84 repeats 83
 *   3      1 to 19
 *   other  none
 */
struct LumoStats
{
    uint32_t statsKind;     /* 0 */
    uint64_t counters[100]; /* 4 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoStats, 804);

/*
 * Reads the counters of an instance's control-plane traffic, or zeroes them.
 *
 * instance  null: EINVAL
 * out       receives the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLumoInstanceCPStats(const char* instance, struct LumoStats** out);
int32_t LUMOZEPH_ResetLumoInstanceCPStats(const char* instance);

/*
 * Reads a LIF's counters, those that the module has cached, or zeroes them.
 *
 * instance  null: EINVAL
 * lif       not tested for null
 * out       receives the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLifStats(const char* instance, const char* lif, struct LumoStats** out);
int32_t LUMOZEPH_GetLifStatsCached(const char* instance, const char* lif, struct LumoStats** out);
int32_t LUMOZEPH_ResetLifStats(const char* instance, const char* lif);

/* Reads the counters of distributed interfaces, or zeroes them. Free the record with LUMOZEPH_ReleaseStats. */
int32_t LUMOZEPH_GetLumoDiStats(struct LumoStats** out);
int32_t LUMOZEPH_ResetLumoDiStats(void);

/* Frees a record of one of these reads or of LUMOZEPH_GetLumoInstanceCPSyncState, or null. */
int32_t LUMOZEPH_ReleaseStats(void* record);

/* ------------------------------------------------------------------------------------------------------------------ *
 * control_plane: Control-plane attachment
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoCPSyncStateEntry
{
    uint64_t value1;      /* 0 */
    uint32_t value2;      /* 8 */
    uint32_t value3;      /* 12 */
    uint32_t value4;      /* 16 */
    uint32_t value5;      /* 20 */
    uint32_t value6;      /* 24 */
    uint64_t values7[8];  /* 28 */
    uint8_t uncopied[8];  /* 92: not copied */
    uint64_t values8[23]; /* 100 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoCPSyncStateEntry, 284);

/* The state of an instance's synchronisation with its control plane. */
struct LumoCPSyncState
{
    struct LumoCPSyncStateEntry entries[5];
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoCPSyncState, 1420);

/* Activates the module's control-plane connection. */
int32_t LUMOZEPH_CPActivate(uint32_t value);

/* Sets an instance's control-plane address, IPv4. A null instance: EINVAL. */
int32_t LUMOZEPH_SetCPIp(const char* instance, uint32_t address);

/*
 * Reads an instance's synchronisation state.
 *
 * instance  null: EINVAL
 * out       receives the record; free it with LUMOZEPH_ReleaseStats
 */
int32_t LUMOZEPH_GetLumoInstanceCPSyncState(const char* instance, struct LumoCPSyncState** out);

/* Sets an instance's synchronisation state. A null instance: EINVAL. */
int32_t LUMOZEPH_SetLumoInstanceCPSyncState(const char* instance, uint32_t state);

/* ------------------------------------------------------------------------------------------------------------------ *
 * connections: Port connections
 *
 * None of these names an instance. The reads hand over what the module wrote, neither checked nor counted.
 * ------------------------------------------------------------------------------------------------------------------ */

/* Reads all connections. buffer: room for 131072 bytes. */
int32_t LUMOZEPH_GetConnections(void* buffer);

/* Reads one connection. name: at most 63 bytes; buffer: room for 152 bytes. */
int32_t LUMOZEPH_GetConnection(const char* name, void* buffer);

/* Reads the virtual MAC address that goes with a name of at most 63 bytes. mac: room for 6 bytes. */
int32_t LUMOZEPH_GetVMAC(const char* name, uint8_t* mac);

/*
 * Plumbs a connection.
 *
 * name     at most 63 bytes
 * text1    at most 15 bytes
 * ignored  not sent
 * text2    at most 17 bytes, or null for none
 * text3    at most 31 bytes, or null for none
 * text4    at most 255 bytes, or null for none
 */
int32_t LUMOZEPH_PlumbLumoConnection(
    const char* name, const char* text1, uint32_t ignored, const char* text2, const char* text3, const char* text4);

/* Unplumbs a connection. */
int32_t LUMOZEPH_UnPlumbLumoConnection(const char* name);

/* Reads the module's connection-deletion check. A failed read leaves the value untouched. */
int32_t LUMOZEPH_LUMODevCheckConnDeletion(uint32_t* value);

/* ------------------------------------------------------------------------------------------------------------------ *
 * housekeeping: Flush, full-sync save and preparation for unloading
 * ------------------------------------------------------------------------------------------------------------------ */

/*
 * Flushes what the values select; they are passed on as they stand.
 *
 * text  at most 63 bytes, or null for none
 */
int32_t LUMOZEPH_GenericFlush(
    uint32_t value1, uint8_t value2, uint8_t value3, uint8_t value4, const char* text, uint32_t value5);

/* Prepares the module for being unloaded. */
int32_t LUMOZEPH_PreUnload(void);

/*
 * Starts a full-sync save of the whole module.
 *
 * result  written by the module: where it writes nothing, and on failure, it stays as it was
 */
int32_t LUMOZEPH_PerformFullSyncSave(uint8_t value, uint32_t* result);

/* Reads the status of the last full-sync save. status: as result above. */
int32_t LUMOZEPH_GetFullSyncSaveStatus(uint32_t* status);

/* ------------------------------------------------------------------------------------------------------------------ *
 * lifs: Logical interfaces
 *
 * A router instance owns logical interfaces (LIFs): routed interfaces, and bridge LIFs, which attach a bridge to it. A
 * LIF is named by its instance's key and its own name, at most 63 bytes.
 * ------------------------------------------------------------------------------------------------------------------ */

/* One IPv6 address of a LIF. */
struct LumoLifIpv6Addr
{
    uint8_t address[16]; /* 0 */
    uint32_t prefixLen;  /* 16: in bits */
    uint8_t value;       /* 20 */
    uint8_t uncopied[3]; /* 21: not copied */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLifIpv6Addr, 24);

/* One DHCP server that a LIF relays to. */
struct LumoDhcpRelayServer
{
    uint8_t address[16]; /* 0: in wire order; an IPv4 address in the first 4 bytes, zero bytes after it */
    uint32_t family;     /* 16: 1 for IPv4, 3 for IPv6 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoDhcpRelayServer, 20);

struct LumoDhcpRelay
{
    uint32_t relayCount;                   /* 0: servers that count */
    struct LumoDhcpRelayServer servers[8]; /* 4 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoDhcpRelay, 164);

/* One logical interface as the module reports it. */
struct LumoLifInfo
{
    char lifName[64];                     /* 0 */
    char lifSecondName[64];               /* 64 */
    uint32_t ipAddr;                      /* 128: IPv4 address */
    uint32_t ipMask;                      /* 132: its mask value */
    uint32_t diIp;                        /* 136: designated-instance address */
    uint8_t lifMac[6];                    /* 140 */
    uint32_t lifValue1;                   /* 146 */
    uint32_t lifValue2;                   /* 150 */
    uint32_t lifValue3;                   /* 154 */
    uint8_t lifFlags[4];                  /* 158 */
    struct LumoDhcpRelay dhcpRelay;       /* 162 */
    struct LumoLifIpv6Addr ipv6Addrs[10]; /* 326: zero past ipv6Count */
    uint32_t ipv6Count;                   /* 566: as the module reports it, at most 10 if it is well behaved */
    uint8_t lifState1;                    /* 570 */
    uint8_t lifState2;                    /* 571 */
    uint32_t lifValue4;                   /* 572 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLifInfo, 576);

struct LumoLifList
{
    int32_t count;               /* LIFs in records */
    struct LumoLifInfo* records; /* room for 10000 */
};
LUMOZEPH_RECORD_SIZE(LumoLifList, 16);

/*
 * Creates a LIF, or changes it.
 *
 * lif, auxName            its name and its second name
 * address, mask           IPv4
 * paramA, paramB, paramC  passed on as they stand
 * diAddress               designated-instance address, IPv4
 * instance                null: EINVAL
 * mac                     6 bytes, or null for none
 */
int32_t LUMOZEPH_SetLif(const char* lif, const char* auxName, uint32_t address, uint32_t mask, uint32_t paramA,
    uint32_t paramB, uint32_t diAddress, uint32_t paramC, const char* instance, const uint8_t* mac);

/* Removes a LIF. A null instance: EINVAL. */
int32_t LUMOZEPH_DelLif(const char* lif, const char* auxName, const char* instance);

/*
 * Adds a bridge LIF, or removes it.
 *
 * lif, auxName    its name and its second name
 * paramA, paramB  passed on as they stand
 * diValue         goes where a routed LIF has its designated-instance address
 * instance        the instance's key
 * add             not 0: adds; 0: removes
 */
int32_t LUMOZEPH_SetBridgeLif(const char* lif, const char* auxName, uint32_t paramA, uint32_t paramB, uint32_t diValue,
    const char* instance, int add);

/*
 * Reads one LIF, or one bridge LIF.
 *
 * instance, lif  null: EINVAL
 * out            receives the record; free it with LUMOZEPH_ReleaseLif
 */
int32_t LUMOZEPH_GetLif(const char* instance, const char* lif, struct LumoLifInfo** out);
int32_t LUMOZEPH_GetBridgeLif(const char* instance, const char* lif, struct LumoLifInfo** out);

/*
 * Reads an instance's LIFs, or its bridge LIFs, at most 10000.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseLifs. If the device call of LUMOZEPH_GetBridgeLifs fails, 16
 * bytes stay allocated
 */
int32_t LUMOZEPH_GetLifs(const char* instance, struct LumoLifList** out);
int32_t LUMOZEPH_GetBridgeLifs(const char* instance, struct LumoLifList** out);

/* Frees a record of LUMOZEPH_GetLif or LUMOZEPH_GetBridgeLif, or null. */
int32_t LUMOZEPH_ReleaseLif(struct LumoLifInfo* lif);

/* Frees a list of LUMOZEPH_GetLifs or LUMOZEPH_GetBridgeLifs, or null. */
int32_t LUMOZEPH_ReleaseLifs(struct LumoLifList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * lif_options: Interface addressing and options
 *
 * Each changes one property of a LIF that exists. A null instance or lif gives EINVAL unless the function says
 * otherwise; no value is range-checked.
 * ------------------------------------------------------------------------------------------------------------------ */

/* Sets, or removes, the IPv4 address. The removal carries the mask too. */
int32_t LUMOZEPH_SetLifIp(const char* instance, const char* lif, uint32_t address, uint32_t mask);
int32_t LUMOZEPH_DelLifIp(const char* instance, const char* lif, uint32_t address, uint32_t mask);

/* Sets the designated-instance address, IPv4. */
int32_t LUMOZEPH_SetLifDIIp(const char* instance, const char* lif, uint32_t address);

/* Sets the VXLAN multicast address, IPv4. */
int32_t LUMOZEPH_SetLifVxlanMulticastIp(const char* instance, const char* lif, uint32_t address);

/* Attaches the LIF to the VXLAN control plane, or detaches it. */
int32_t LUMOZEPH_SetLifVxlanCP(const char* instance, const char* lif);
int32_t LUMOZEPH_DelLifVxlanCP(const char* instance, const char* lif);

/* Sets the administrative state to up, or to down. */
int32_t LUMOZEPH_EnableLif(const char* instance, const char* lif);
int32_t LUMOZEPH_DisableLif(const char* instance, const char* lif);

/* Switches multicast routing on the LIF on (not 0) or off (0). */
int32_t LUMOZEPH_SetLifMcastRouting(const char* instance, const char* lif, uint8_t on);

/* Sets the MTU, in bytes, that the LIF advertises in IPv6 router advertisements. Neither text is tested for null. */
int32_t LUMOZEPH_RAMTUSetv6(const char* instance, const char* lif, uint32_t mtu);

/*
 * Adds, or removes, an IPv6 address. The removal carries the prefix length too.
 *
 * instance, lif  unterminated at 64 bytes
 * word1, word2   the address
 * prefixLen      in bits; only its low byte is sent
 */
int32_t LUMOZEPH_SetLifIpv6(const char* instance, const char* lif, uint64_t word1, uint64_t word2, uint32_t prefixLen);
int32_t LUMOZEPH_DelLifIpv6(const char* instance, const char* lif, uint64_t word1, uint64_t word2, uint32_t prefixLen);

/*
 * Configures multicast routing for the instance as a whole.
 *
 * instance          null: EINVAL
 * name              at most 63 bytes; not tested for null
 * value1 to value4  passed on as they stand
 */
int32_t LUMOZEPH_SetMcastRouting(
    const char* instance, const char* name, uint32_t value1, uint32_t value2, uint16_t value3, uint8_t value4);

/* ------------------------------------------------------------------------------------------------------------------ *
 * dhcp_relay: DHCP relay
 * ------------------------------------------------------------------------------------------------------------------ */

/*
 * Replaces the DHCP servers that a LIF relays to. As it stands, only the empty list can be configured: an address is
 * accepted only if it is well-formed both as IPv4 and as IPv6, which none is.
 *
 * instance, lif  null: EINVAL
 * servers        null for no servers; otherwise addresses separated by commas, in writable memory: EINVAL, and the
 * commas that were passed, in practice the first, are overwritten with NUL
 */
int32_t LUMOZEPH_ConfigureLifDhcpRelay(const char* instance, const char* lif, char* servers);

/* ------------------------------------------------------------------------------------------------------------------ *
 * routes: IPv4 routes
 * ------------------------------------------------------------------------------------------------------------------ */

/*
 * What the module has to say about a set or delete of routes and policies, if the caller wants to know. The library
 * zeroes it before the call (unless an argument is rejected) and never reads it.
 */
struct LumoCmdResult
{
    uint8_t bytes[88];
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoCmdResult, 88);

struct LumoNextHop
{
    uint8_t uncopied[4];     /* 0: not copied */
    uint32_t nextHopAddr;    /* 4 */
    char nextHopLifName[64]; /* 8: the outgoing LIF */
    uint8_t nextHopValue[8]; /* 72 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoNextHop, 80);

/* One route, or one interface policy, as the module reports it. */
struct LumoRouteInfo
{
    uint32_t routeDest;             /* 0: destination network address */
    uint32_t routeMask;             /* 4: its mask value */
    uint32_t routeValue1;           /* 8 */
    uint32_t routeValue2;           /* 12 */
    uint8_t routeFlags;             /* 16 */
    uint8_t nextHopCount;           /* 17: as the module reports it, at most 8 if it is well behaved */
    uint8_t uncopied[2];            /* 18: not copied */
    uint8_t routeValue3[8];         /* 20 */
    struct LumoNextHop nextHops[8]; /* 28: zero past nextHopCount */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRouteInfo, 668);

struct LumoRouteList
{
    int32_t count;                 /* routes in records */
    struct LumoRouteInfo* records; /* room for 8000 */
};
LUMOZEPH_RECORD_SIZE(LumoRouteList, 16);

/*
 * Adds a route, or deletes it.
 *
 * dest, mask  the destination network
 * gateway     next-hop address
 * lif         name of the outgoing LIF, or null for none
 * instance    null: EINVAL
 * param       passed on as it stands; the delete has none
 * result      receives the module's answer, or null
 */
int32_t LUMOZEPH_SetRoute(uint32_t dest, uint32_t mask, uint32_t gateway, const char* lif, const char* instance,
    uint32_t param, struct LumoCmdResult* result);
int32_t LUMOZEPH_DelRoute(uint32_t dest, uint32_t mask, uint32_t gateway, const char* lif, const char* instance,
    struct LumoCmdResult* result);

/*
 * Reads an instance's routes, at most 8000.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseRoutes
 */
int32_t LUMOZEPH_GetRoutes(const char* instance, struct LumoRouteList** out);

/*
 * Asks the module which route it uses for a destination.
 *
 * instance    null: EINVAL
 * dest, mask  the destination
 * param       passed on as it stands
 * out         receives the route; free it with LUMOZEPH_ReleaseRoute
 */
int32_t LUMOZEPH_GetResolveRoute(
    const char* instance, uint32_t dest, uint32_t mask, uint32_t param, struct LumoRouteInfo** out);

/* Frees a record of LUMOZEPH_GetResolveRoute, or null. */
int32_t LUMOZEPH_ReleaseRoute(struct LumoRouteInfo* route);

/* Frees a list of LUMOZEPH_GetRoutes or LUMOZEPH_GetLifPolicies, or null. */
int32_t LUMOZEPH_ReleaseRoutes(struct LumoRouteList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * routes6: IPv6 routes and path MTU
 * ------------------------------------------------------------------------------------------------------------------ */

/*
 * Adds a route, or deletes it; the delete carries the same arguments.
 *
 * dest1, dest2        the destination prefix
 * prefixLen           in bits; only its low byte is sent
 * gateway1, gateway2  next-hop address
 * lif                 name of the outgoing LIF, unterminated at 64 bytes; or null for none
 * instance            unterminated at 64 bytes; null: EINVAL
 */
int32_t LUMOZEPH_SetRoutev6(uint64_t dest1, uint64_t dest2, uint32_t prefixLen, uint64_t gateway1, uint64_t gateway2,
    const char* lif, const char* instance);
int32_t LUMOZEPH_DelRoutev6(uint64_t dest1, uint64_t dest2, uint32_t prefixLen, uint64_t gateway1, uint64_t gateway2,
    const char* lif, const char* instance);

/*
 * Reads an instance's routes as the module lays them out: entries of 776 bytes. Sends two commands, the first for the
 * number of routes, by which the block gets room for 8000 entries or for 30000.
 *
 * instance  unterminated at 64 bytes
 * block     receives the entries; free them with free(). Null if the block could not be allocated. If reading the
 * entries fails, the pointer is that of a block that has been freed and must not be used count     receives the number
 * of whole entries in the block, also when reading them fails; untouched before that
 *
 * ENOMEM also for any failure of the first command, and for 30000 routes or more: nothing is allocated then and block
 * is untouched.
 */
int32_t LUMOZEPH_GetRoutesv6(const char* instance, void** block, uint32_t* count);

/* Clears the module-wide IPv6 path-MTU table. */
int32_t LUMOZEPH_PMTUTableCearv6(void);

/* ------------------------------------------------------------------------------------------------------------------ *
 * neighbours: ARP entries, IPv6 neighbours and proxy entries
 *
 * In the functions that set or delete an entry, a null instance gives EINVAL, and lif names the interface the entry is
 * on. In those that read or clear a table, lif or null selects one interface or the whole instance.
 * ------------------------------------------------------------------------------------------------------------------ */

/* Adds an ARP entry. mac: the MAC address as text, at most 17 bytes. */
int32_t LUMOZEPH_SetArp(uint32_t address, const char* mac, const char* lif, const char* instance);
int32_t LUMOZEPH_DelArp(uint32_t address, const char* lif, const char* instance);

/* The same for an address that the router answers for. */
int32_t LUMOZEPH_SetProxyArp(uint32_t address, const char* lif, const char* instance);
int32_t LUMOZEPH_DelProxyArp(uint32_t address, const char* lif, const char* instance);

/*
 * Reads the ARP table, or the proxy entries in it, as the module lays it out.
 *
 * buffer  room for 7471104 bytes. What the module wrote is neither checked nor counted
 */
int32_t LUMOZEPH_GetArps(const char* instance, const char* lif, void* buffer);
int32_t LUMOZEPH_GetProxyArps(const char* instance, const char* lif, void* buffer);

/* Clears the ARP table, or that of IPv6 neighbours. */
int32_t LUMOZEPH_ClearArp(const char* instance, const char* lif);
int32_t LUMOZEPH_ClearArpv6(const char* instance, const char* lif);

/*
 * Adds an IPv6 neighbour.
 *
 * word1, word2   its address
 * mac            the MAC address as text, unterminated at 18 bytes
 * lif, instance  unterminated at 64 bytes
 */
int32_t LUMOZEPH_SetArpv6(uint64_t word1, uint64_t word2, const char* mac, const char* lif, const char* instance);
int32_t LUMOZEPH_DelArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance);

/* The same for an address that the router answers for. */
int32_t LUMOZEPH_SetProxyArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance);
int32_t LUMOZEPH_DelProxyArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance);

/* Reads the IPv6 neighbours as LUMOZEPH_GetArps reads the ARP table. lif, instance: unterminated at 64 bytes. */
int32_t LUMOZEPH_GetArpsv6(const char* instance, const char* lif, void* buffer);

/* ------------------------------------------------------------------------------------------------------------------ *
 * lif_policies: Interface policies
 *
 * Route-shaped entries kept under a policy kind; kind 4 carries a text that names what the policy applies to.
 * ------------------------------------------------------------------------------------------------------------------ */

/*
 * Adds a policy, or deletes it; the delete carries the same arguments.
 *
 * kind                        4 with a null text: EINVAL
 * text                        at most 63 bytes; ignored unless kind is 4
 * dest, mask, gateway, param  as in LUMOZEPH_SetRoute
 * lif                         name of the LIF, or null for none
 * instance                    null: EINVAL
 * result                      receives the module's answer, or null
 */
int32_t LUMOZEPH_SetLifPolicy(int32_t kind, const char* text, uint32_t dest, uint32_t mask, uint32_t gateway,
    const char* lif, const char* instance, uint32_t param, struct LumoCmdResult* result);
int32_t LUMOZEPH_DelLifPolicy(int32_t kind, const char* text, uint32_t dest, uint32_t mask, uint32_t gateway,
    const char* lif, const char* instance, uint32_t param, struct LumoCmdResult* result);

/*
 * Reads an instance's policies of one kind, at most 8000, as route records.
 *
 * kind  4 with a null text: EINVAL, and out is untouched
 * text  at most 63 bytes, sent whatever the kind; or null
 * out   receives the list; free it with LUMOZEPH_ReleaseRoutes
 */
int32_t LUMOZEPH_GetLifPolicies(const char* instance, uint32_t kind, const char* text, struct LumoRouteList** out);

/* ------------------------------------------------------------------------------------------------------------------ *
 * policies: Policies
 *
 * Policies lie in policy tables, which are numbered and belong to the module as a whole, not to an instance.
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoPolicyInfo
{
    uint32_t value1; /* 0 */
    uint32_t value2; /* 4 */
    uint32_t value3; /* 8 */
    uint32_t value4; /* 12 */
    uint32_t value5; /* 16 */
    uint64_t value6; /* 20 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoPolicyInfo, 28);

struct LumoPolicyList
{
    int32_t count;                  /* policies in records */
    struct LumoPolicyInfo* records; /* room for 1000 */
};
LUMOZEPH_RECORD_SIZE(LumoPolicyList, 16);

/*
 * Reads the policies of one table, at most 1000.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseAllPolicy
 */
int32_t LUMOZEPH_GetPolicy(uint32_t table, struct LumoPolicyList** out);

/* Counts the policies of one table. If the module's reply is too short (EBADMSG), 4 bytes stay allocated. */
int32_t LUMOZEPH_GetPolicyCount(uint32_t table, uint32_t* count);

/*
 * Sets a policy, or deletes it.
 *
 * key1, key2  name the policy within its table
 * value       stored with the policy
 * result      receives the module's answer, or null
 */
int32_t LUMOZEPH_SetPolicy(uint32_t table, uint32_t key1, uint32_t key2, uint32_t value, struct LumoCmdResult* result);
int32_t LUMOZEPH_DelPolicy(uint32_t table, uint32_t key1, uint32_t key2, struct LumoCmdResult* result);

/* Frees a list of LUMOZEPH_GetPolicy, or null. */
int32_t LUMOZEPH_ReleaseAllPolicy(struct LumoPolicyList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * policy_tables: Policy tables, and the references from interfaces to them
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoPolicyTableInfo
{
    uint32_t policyTableId;   /* 0 */
    char policyTableName[64]; /* 4 */
    uint32_t value1;          /* 68 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoPolicyTableInfo, 72);

struct LumoPolicyTableList
{
    int32_t count;                       /* tables in records */
    struct LumoPolicyTableInfo* records; /* room for 1000 */
};
LUMOZEPH_RECORD_SIZE(LumoPolicyTableList, 16);

struct LumoPolicyTableRefEntry
{
    uint8_t bytes[24];
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoPolicyTableRefEntry, 24);

/* The references from one LIF to policy tables. */
struct LumoLifPolicyTableRef
{
    char text1[64];                          /* 0 */
    uint16_t refCount;                       /* 64: as the module reports it, at most 20 if it is well behaved */
    struct LumoPolicyTableRefEntry refs[20]; /* 66: zero past refCount */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLifPolicyTableRef, 546);

/*
 * Reads the policy tables, at most 1000.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseAllPolicyTable
 */
int32_t LUMOZEPH_GetPolicyTable(struct LumoPolicyTableList** out);

/*
 * Creates a policy table, or deletes it.
 *
 * name    at most 63 bytes
 * result  receives the module's answer, or null
 */
int32_t LUMOZEPH_SetPolicyTable(uint32_t table, const char* name, struct LumoCmdResult* result);
int32_t LUMOZEPH_DelPolicyTable(uint32_t table, struct LumoCmdResult* result);

/* Frees a list of LUMOZEPH_GetPolicyTable, or null. */
int32_t LUMOZEPH_ReleaseAllPolicyTable(struct LumoPolicyTableList* list);

/*
 * Reads a LIF's references to policy tables.
 *
 * instance, lif  null: EINVAL
 * out            receives the record; free it with LUMOZEPH_ReleaseLifPolicyTableRef
 */
int32_t LUMOZEPH_GetLifPolicyTableRef(const char* instance, const char* lif, struct LumoLifPolicyTableRef** out);

/*
 * Sets a LIF's references to policy tables, or deletes them.
 *
 * instance, lif  null: EINVAL
 * count          at most 20; of a larger number, what does not fit into the request is not sent
 * entries        count of them; not read if count is 0
 * result         receives the module's answer, or null
 */
int32_t LUMOZEPH_SetLifPolicyTableRef(const char* instance, const char* lif, uint16_t count,
    const struct LumoPolicyTableRefEntry* entries, struct LumoCmdResult* result);
int32_t LUMOZEPH_DelLifPolicyTableRef(const char* instance, const char* lif, struct LumoCmdResult* result);

/* Frees a record of LUMOZEPH_GetLifPolicyTableRef, or null. */
int32_t LUMOZEPH_ReleaseLifPolicyTableRef(struct LumoLifPolicyTableRef* ref);

/* ------------------------------------------------------------------------------------------------------------------ *
 * bridges: Bridges
 *
 * Layer-2 bridges, named by an instance key as router instances are. Except where it says so, a key is not tested for
 * null.
 *
 * The list reads of bridges come in two forms. LUMOZEPH_GetBridge... allocates the list and hands it over.
 * LUMOZEPHGetBridge..., without the underscore, fills a list of 16 zeroed bytes that the caller has allocated with
 * calloc; it frees that list when it fails, except when the device call fails. The same failure of the first form
 * leaves 16 bytes allocated.
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoBridgeInstanceInfo
{
    uint64_t value1;      /* 0 */
    uint32_t value2;      /* 8 */
    char name[64];        /* 12 */
    uint32_t value3;      /* 76 */
    uint32_t value4;      /* 80 */
    char text1[128];      /* 84 */
    char text2[81];       /* 212 */
    uint8_t uncopied[12]; /* 293: not copied */
    uint32_t value5;      /* 305 */
    uint32_t value6;      /* 309 */
    uint64_t data[10];    /* 313 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeInstanceInfo, 393);

struct LumoBridgeInstanceList
{
    int32_t count;                          /* bridges in records */
    struct LumoBridgeInstanceInfo* records; /* room for 4096 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeInstanceList, 16);

/*
 * Reads one bridge.
 *
 * key  null: EINVAL
 * out  receives the record; free it with LUMOZEPH_ReleaseBridgeInstance
 */
int32_t LUMOZEPH_GetBridgeInstance(const char* key, struct LumoBridgeInstanceInfo** out);

/* Reads all bridges, at most 4096. Free the list with LUMOZEPH_ReleaseBridgeInstances. */
int32_t LUMOZEPH_GetBridgeInstances(struct LumoBridgeInstanceList** out);
int32_t LUMOZEPHGetBridgeInstances(struct LumoBridgeInstanceList* list);

/* Frees a record of LUMOZEPH_GetBridgeInstance, or null. */
int32_t LUMOZEPH_ReleaseBridgeInstance(struct LumoBridgeInstanceInfo* bridge);

/* Frees a list of LUMOZEPH_GetBridgeInstances, or null. */
int32_t LUMOZEPH_ReleaseBridgeInstances(struct LumoBridgeInstanceList* list);

/* Creates a bridge, or removes it. */
int32_t LUMOZEPH_BridgeAdd(const char* key, uint32_t value);
int32_t LUMOZEPH_BridgeDel(const char* key, uint32_t value);

/* Switches a bridge on, or off. */
int32_t LUMOZEPH_BridgeEnable(const char* key, uint8_t value);
int32_t LUMOZEPH_BridgeDisable(const char* key, uint8_t value);

/* Sets a bridge's high-availability administrative state. */
int32_t LUMOZEPH_BridgeSetHAAdminState(const char* key, uint32_t state);

/* Sets a bridge's replication mode. */
int32_t LUMOZEPH_SetBridgeRepMode(const char* key, uint32_t mode);

/* Sets one numeric setting of a bridge, which the command number chooses. The number is sent unchecked. */
int32_t LUMOZEPH_BridgeSetConfig(const char* key, int32_t command, uint32_t value);

/* ------------------------------------------------------------------------------------------------------------------ *
 * networks: Bridge networks and ports
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoBridgeNetworkInfo
{
    uint64_t value1;     /* 0 */
    uint32_t value2;     /* 8 */
    uint16_t value3;     /* 12 */
    uint32_t value4;     /* 14 */
    uint16_t value5;     /* 18 */
    uint32_t value6;     /* 20 */
    uint32_t value7;     /* 24 */
    uint8_t value8;      /* 28 */
    uint64_t data[12];   /* 29 */
    uint8_t uncopied[8]; /* 125: not copied */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeNetworkInfo, 133);

struct LumoBridgeNetworkList
{
    int32_t count;                         /* networks in records */
    struct LumoBridgeNetworkInfo* records; /* room for 32768 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeNetworkList, 16);

struct LumoBridgePortInfo
{
    uint64_t value1;   /* 0 */
    uint32_t value2;   /* 8 */
    uint16_t value3;   /* 12 */
    uint32_t value4;   /* 14 */
    uint64_t data[16]; /* 18 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgePortInfo, 146);

struct LumoBridgePortList
{
    int32_t count;                      /* ports in records */
    struct LumoBridgePortInfo* records; /* room for 32768 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgePortList, 16);

/*
 * Reads a bridge's networks, at most 32768.
 *
 * firstKey  a text that is read and not sent
 * key       the bridge's key
 * out       receives the list; free it with LUMOZEPH_ReleaseBridgeNetworks
 */
int32_t LUMOZEPH_GetBridgeNetworks(const char* firstKey, const char* key, struct LumoBridgeNetworkList** out);
int32_t LUMOZEPHGetBridgeNetworks(const char* firstKey, const char* key, struct LumoBridgeNetworkList* list);

/*
 * Reads a bridge's ports, at most 32768.
 *
 * firstKey, key     as above
 * value16, value32  select the ports
 * out               receives the list; free it with LUMOZEPH_ReleaseBridgePorts
 */
int32_t LUMOZEPH_GetBridgePorts(
    const char* firstKey, const char* key, uint16_t value16, uint32_t value32, struct LumoBridgePortList** out);
int32_t LUMOZEPHGetBridgePorts(
    const char* firstKey, const char* key, uint16_t value16, uint32_t value32, struct LumoBridgePortList* list);

/* Frees a network record that stands alone, or null. No function returns one. */
int32_t LUMOZEPH_ReleaseBridgeNetwork(struct LumoBridgeNetworkInfo* network);

/* Frees a list of LUMOZEPH_GetBridgeNetworks, or null. */
int32_t LUMOZEPH_ReleaseBridgeNetworks(struct LumoBridgeNetworkList* list);

/* Frees a list of LUMOZEPH_GetBridgePorts, or null. */
int32_t LUMOZEPH_ReleaseBridgePorts(struct LumoBridgePortList* list);

/* ------------------------------------------------------------------------------------------------------------------ *
 * fdb: Forwarding table, FL table and PMACs
 *
 * The raw reads hand over what the module wrote, neither checked nor counted unless the function says so.
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoBridgeFdbEntry
{
    uint8_t mac[6];       /* 0 */
    uint16_t value1;      /* 6 */
    uint32_t value2 : 24; /* 8: low 24 bits of the 32-bit word */
    uint32_t value3 : 8;  /* 11: its top byte */
    uint32_t value4;      /* 12 */
    uint32_t value5;      /* 16 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeFdbEntry, 20);

struct LumoBridgeFdbList
{
    int32_t count;                      /* entries in records */
    struct LumoBridgeFdbEntry* records; /* room for 4096 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeFdbList, 16);

/*
 * Reads a bridge's forwarding table, at most 4096 entries.
 *
 * value16, value32  select the entries
 * out               receives the list; free it with LUMOZEPH_ReleaseBridgeFdbEntries
 */
int32_t LUMOZEPH_GetBridgeFdbEntries(
    const char* key, uint16_t value16, uint32_t value32, struct LumoBridgeFdbList** out);
int32_t LUMOZEPHGetBridgeFdbEntries(
    const char* key, uint16_t value16, uint32_t value32, struct LumoBridgeFdbList* list);

/* Frees a list of LUMOZEPH_GetBridgeFdbEntries, or null. */
int32_t LUMOZEPH_ReleaseBridgeFdbEntries(struct LumoBridgeFdbList* list);

/*
 * Sets an entry of a bridge's forwarding table.
 *
 * mac                   the MAC address as text, at most 17 bytes; or null for none
 * selector1, selector2  select the network
 * value, flags          passed on as they stand
 */
int32_t LUMOZEPH_BridgeSetFdbEntry(
    const char* key, const char* mac, uint32_t selector1, uint32_t selector2, uint32_t value, uint8_t flags);

/* Clears a bridge's forwarding table. */
int32_t LUMOZEPH_BridgeClearFdbTable(const char* key, uint32_t selector1, uint32_t selector2);

/* Dumps the module's FL table. buffer: room for 426080 bytes. */
int32_t LUMOZEPH_DumpFLTable(uint16_t selector, void* buffer);

/* Reads the PMAC table. buffer: room for 131072 bytes. */
int32_t LUMOZEPH_GetPmac(void* buffer);

/* Adds a PMAC, or deletes it. mac: 6 bytes, or null for none. */
int32_t LUMOZEPH_AddPmac(uint32_t value, const uint8_t* mac);
int32_t LUMOZEPH_DelPmac(const uint8_t* mac);

/* ------------------------------------------------------------------------------------------------------------------ *
 * clusters: Bridge clusters, their nodes and the local transport node
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoBridgeClusterInfo
{
    char ident[64];      /* 0: as the module sent it, not necessarily terminated */
    uint8_t uncopied[8]; /* 64: not copied */
    uint32_t value1;     /* 72 */
    uint8_t block[96];   /* 76 */
    uint16_t value2;     /* 172 */
    uint16_t value3;     /* 174 */
    uint16_t value4;     /* 176 */
    uint8_t value5;      /* 178 */
    uint32_t value6;     /* 179 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterInfo, 183);

struct LumoBridgeClusterList
{
    int32_t count;                         /* clusters in records */
    struct LumoBridgeClusterInfo* records; /* room for 10 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterList, 16);

struct LumoBridgeClusterNodeInfo
{
    char ident[64];  /* 0: as the module sent it, not necessarily terminated */
    uint32_t value1; /* 64 */
    uint16_t value2; /* 68 */
    uint8_t value3;  /* 70 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterNodeInfo, 71);

struct LumoBridgeClusterNodeList
{
    int32_t count;                             /* nodes in records */
    struct LumoBridgeClusterNodeInfo* records; /* room for 100 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeClusterNodeList, 16);

/* Reads the locale identifier. buffer: room for 16 bytes; what the module wrote is neither checked nor counted. */
int32_t LUMOZEPH_GetLocaleId(void* buffer);

/*
 * Reads the clusters, at most 10.
 *
 * key  or null for all
 * out  receives the list; free it with LUMOZEPH_ReleaseBridgeClusters
 */
int32_t LUMOZEPH_GetBridgeClusters(const char* key, struct LumoBridgeClusterList** out);
int32_t LUMOZEPHGetBridgeClusters(const char* key, struct LumoBridgeClusterList* list);

/* Frees a list of LUMOZEPH_GetBridgeClusters, or null. */
int32_t LUMOZEPH_ReleaseBridgeClusters(struct LumoBridgeClusterList* list);

/* Sets a cluster (on is not 0), or removes it (0). */
int32_t LUMOZEPH_BridgeClusterSet(const char* key, int8_t on);

/*
 * Reads the nodes of clusters, at most 100.
 *
 * key  the cluster's, or null for all
 * out  receives the list; free it with LUMOZEPH_ReleaseBridgeClusterNodes
 */
int32_t LUMOZEPH_GetBridgeClusterNodes(const char* key, struct LumoBridgeClusterNodeList** out);
int32_t LUMOZEPHGetBridgeClusterNodes(const char* key, struct LumoBridgeClusterNodeList* list);

/* Frees a list of LUMOZEPH_GetBridgeClusterNodes, or null. */
int32_t LUMOZEPH_ReleaseBridgeClusterNodes(struct LumoBridgeClusterNodeList* list);

/*
 * Sets a node of a cluster (on is not 0), or removes it (0).
 *
 * node  at most 63 bytes
 * mac   6 bytes; neither read nor sent when on is 0
 */
int32_t LUMOZEPH_BridgeClusterNodeSet(const char* key, const char* node, const uint8_t* mac, int8_t on);

/*
 * Sets the local transport node (on is not 0), or removes it (0).
 *
 * text1, text2  at most 63 bytes
 * text3         at most 15 bytes
 * block         64 bytes, sent as they stand
 */
int32_t LUMOZEPH_BridgeLocalTransportNodeSet(
    const char* text1, const char* text2, const char* text3, uint32_t value, const void* block, int8_t on);

/* Reads the local transport node. buffer: room for 2048 bytes; what the module wrote is neither checked nor counted. */
int32_t LUMOZEPH_BridgeGetLocalTransportNode(void* buffer, uint32_t selector);

/* Flushes a cluster. key: or null for all; on: chooses between the module's two ways. */
int32_t LUMOZEPH_FlushBridgeCluster(const char* key, int8_t on);

/* Sets the debug level of a cluster. key: or null for all. */
int32_t LUMOZEPH_SetBridgeClusterDebug(const char* key, uint8_t level);

/* Sets the BFD high-availability profile of a cluster. */
int32_t LUMOZEPH_BridgeClusterBfdHAProfileSet(const char* key, uint8_t flag, uint32_t value1, uint32_t value2);

/* ------------------------------------------------------------------------------------------------------------------ *
 * endpoints: Bridge endpoints
 *
 * The list read allocates 6737920 bytes twice, however much there is to read. The raw reads hand over what the module
 * wrote, neither checked nor counted unless the function says so.
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoBridgeEndpointInfo
{
    uint8_t uncopied[64]; /* 0: not copied */
    char ident[64];       /* 64: as the module sent it, not necessarily terminated */
    uint16_t value1;      /* 128 */
    uint8_t value2;       /* 130 */
    uint32_t value3;      /* 131 */
    uint32_t value4;      /* 135 */
    uint8_t block[96];    /* 139 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeEndpointInfo, 235);

struct LumoBridgeEndpointList
{
    int32_t count;                          /* endpoints in records */
    struct LumoBridgeEndpointInfo* records; /* room for 28672 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeEndpointList, 16);

/*
 * Adds a bridge endpoint. Texts of at most 63 bytes; values and flags are passed on as they stand.
 */
int32_t LUMOZEPH_AddBridgeEndpoint(const char* key, const char* text1, const char* name, uint32_t value1,
    uint32_t value2, const char* text2, uint16_t value3, uint8_t flag1, const char* text3, uint8_t flag2);

/* Deletes a bridge endpoint. */
int32_t LUMOZEPH_DelBridgeEndpoint(const char* key, const char* name);

/* Flushes the bridge endpoints. on: chooses between the module's two ways. */
int32_t LUMOZEPH_FlushBridgeEndpoint(int8_t on);

/*
 * Reads the endpoints of a bridge, at most 28672.
 *
 * key  or null for all
 * out  receives the list; free it with LUMOZEPH_ReleaseBridgeEndpoints
 */
int32_t LUMOZEPH_GetBridgeEndpoints(const char* key, struct LumoBridgeEndpointList** out);
int32_t LUMOZEPHGetBridgeEndpoints(const char* key, struct LumoBridgeEndpointList* list);

/* Frees a list of LUMOZEPH_GetBridgeEndpoints, or null. */
int32_t LUMOZEPH_ReleaseBridgeEndpoints(struct LumoBridgeEndpointList* list);

/* Reads the statistics of the bridge endpoint of this key. buffer: room for 146 bytes. */
int32_t LUMOZEPH_GetBeStats(const char* key, void* buffer);

/* Reads the status of the bridge endpoint of this key. buffer: room for 229 bytes. */
int32_t LUMOZEPH_GetBeStatus(const char* key, void* buffer);

/*
 * Reads all bridge endpoints.
 *
 * buffer  room for size bytes
 * count   receives the number of bytes written divided by 235, rounded down; untouched on failure
 */
int32_t LUMOZEPH_GetBeAll(void* buffer, uint32_t size, uint32_t* count);

/* ------------------------------------------------------------------------------------------------------------------ *
 * bfd: BFD sessions and port connections
 *
 * The list read is the largest there is: it allocates 111820800 bytes twice, however much there is to read.
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoBridgeBfdSessionInfo
{
    uint16_t value1;  /* 0 */
    uint8_t addr1[6]; /* 2 */
    uint8_t addr2[6]; /* 8 */
    uint32_t value2;  /* 14 */
    uint8_t value3;   /* 18 */
    uint32_t value4;  /* 19 */
    uint64_t value5;  /* 23 */
    uint64_t value6;  /* 31 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoBridgeBfdSessionInfo, 39);

struct LumoBridgeBfdSessionList
{
    int32_t count;                            /* sessions in records */
    struct LumoBridgeBfdSessionInfo* records; /* room for 2867200 */
};
LUMOZEPH_RECORD_SIZE(LumoBridgeBfdSessionList, 16);

/*
 * Reads the BFD sessions, at most 2867200.
 *
 * key  or null for all
 * out  receives the list; free it with LUMOZEPH_ReleaseBridgeBFDSessions
 */
int32_t LUMOZEPH_GetBridgeBFDSessions(const char* key, struct LumoBridgeBfdSessionList** out);
int32_t LUMOZEPHGetBridgeBFDSessions(const char* key, struct LumoBridgeBfdSessionList* list);

/* Frees a list of LUMOZEPH_GetBridgeBFDSessions, or null. */
int32_t LUMOZEPH_ReleaseBridgeBFDSessions(struct LumoBridgeBfdSessionList* list);

/*
 * Plumbs a port connection for BFD.
 *
 * port  at most 63 bytes
 * text  at most 15 bytes
 * mac   6 bytes, or null for none
 */
int32_t LUMOZEPH_PlumbBFDPortConnection(const char* port, const char* text, const uint8_t* mac);

/* Unplumbs a port connection for BFD. */
int32_t LUMOZEPH_UnPlumbBFDPortConnection(const char* port);

/* Reads the port connections for BFD. buffer: room for 131072 bytes; what the module wrote is neither checked nor
 * counted. */
int32_t LUMOZEPH_GetBFDPortConnections(void* buffer);

/* ------------------------------------------------------------------------------------------------------------------ *
 * mcast_receivers: Multicast domain and receivers
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoMcastDomainInfo
{
    char text1[64];  /* 0 */
    char text2[48];  /* 64 */
    uint64_t value1; /* 112 */
    uint64_t value2; /* 120 */
    uint64_t value3; /* 128 */
    uint64_t value4; /* 136 */
    uint32_t value5; /* 144 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoMcastDomainInfo, 148);

struct LumoLocalRcvrInfo
{
    char text1[64];  /* 0 */
    uint32_t value1; /* 64 */
    uint32_t value2; /* 68 */
    uint64_t value3; /* 72 */
    uint64_t value4; /* 80 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoLocalRcvrInfo, 88);

struct LumoLocalRcvrList
{
    int32_t count;                     /* receivers in records */
    struct LumoLocalRcvrInfo* records; /* room for 512 */
};
LUMOZEPH_RECORD_SIZE(LumoLocalRcvrList, 16);

/* One tunnel endpoint, as the module lays it out. */
struct LumoVtepEntry
{
    uint8_t bytes[68];
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoVtepEntry, 68);

struct LumoVtepTable
{
    uint32_t count; /* entries in records; at most 2048 if the module is well behaved */
    struct LumoVtepEntry* records;
};
LUMOZEPH_RECORD_SIZE(LumoVtepTable, 16);

/* Reads an instance's multicast domain. Free the record with LUMOZEPH_ReleaseMRoutingDomainData. */
int32_t LUMOZEPH_GetMRoutingDomain(const char* instance, struct LumoMcastDomainInfo** out);

/* Frees a record of LUMOZEPH_GetMRoutingDomain, or null. */
int32_t LUMOZEPH_ReleaseMRoutingDomainData(struct LumoMcastDomainInfo* domain);

/*
 * Reads an instance's local receivers under a value, at most 512.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseMRoutingLocalRcvrs. If the device call fails, 16 bytes stay
 *      allocated
 */
int32_t LUMOZEPH_GetMRoutingLocalRcvrs(const char* instance, uint32_t value, struct LumoLocalRcvrList** out);

/* Adds a local receiver, or deletes it. text: at most 63 bytes, or null for none. */
int32_t LUMOZEPH_AddMRoutingLocalRcvrs(const char* instance, uint32_t value, const char* text);
int32_t LUMOZEPH_DelMRoutingLocalRcvrs(const char* instance, uint32_t value, const char* text);

/* Frees a list of LUMOZEPH_GetMRoutingLocalRcvrs, or null. */
int32_t LUMOZEPH_ReleaseMRoutingLocalRcvrs(struct LumoLocalRcvrList* list);

/*
 * Reads an instance's remote receivers under a value.
 *
 * out  receives the table; free it with LUMOZEPH_ReleaseVTEPTable. Untouched when the reply buffer or the device call
 *      fails, null after every later failure
 *
 * EBADMSG when the reply is shorter than the entries it announces. If they would be 2 GiB or more, the call fails, when
 * nothing else is wrong, without setting errno.
 */
int32_t LUMOZEPH_GetMRoutingRemoteRcvrs(const char* instance, uint32_t value, struct LumoVtepTable** out);

/*
 * Adds a remote receiver.
 *
 * key             its key under value
 * hwAddr          6 bytes
 * value1, value2  passed on as they stand
 */
int32_t LUMOZEPH_AddMRoutingRemoteRcvrs(
    const char* instance, uint32_t value, uint32_t key, const uint8_t* hwAddr, uint32_t value1, uint32_t value2);

/* Deletes a remote receiver. */
int32_t LUMOZEPH_DelMRoutingRemoteRcvrs(const char* instance, uint32_t value, uint32_t key);

/* Frees a table of LUMOZEPH_GetMRoutingRemoteRcvrs, or null. The array of a table without entries stays allocated. */
int32_t LUMOZEPH_ReleaseVTEPTable(struct LumoVtepTable* table);

/* ------------------------------------------------------------------------------------------------------------------ *
 * mcast_groups: Multicast groups, replication and router addresses
 * ------------------------------------------------------------------------------------------------------------------ */

struct LumoMcastGroupInfo
{
    uint32_t value1; /* 0 */
    uint32_t value2; /* 4 */
    uint32_t value3; /* 8 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoMcastGroupInfo, 12);

struct LumoMcastGroupList
{
    int32_t count;                      /* groups in records */
    struct LumoMcastGroupInfo* records; /* room for 4096 */
};
LUMOZEPH_RECORD_SIZE(LumoMcastGroupList, 16);

/*
 * Reads an instance's multicast groups, at most 4096. A fragment at the end of the module's reply counts as a group,
 * whose missing bytes are undefined.
 *
 * out  receives the list; free it with LUMOZEPH_ReleaseMRoutingMcastGroups. If the device call fails, 16 bytes stay
 *      allocated
 */
int32_t LUMOZEPH_GetMRoutingAllMcastGroups(const char* instance, struct LumoMcastGroupList** out);

/* Frees a list of LUMOZEPH_GetMRoutingAllMcastGroups, or null. */
int32_t LUMOZEPH_ReleaseMRoutingMcastGroups(struct LumoMcastGroupList* list);

/*
 * Reads the replication address, or the multicast router's address, under a value: IPv4, written by the module straight
 * to the caller. Where it writes nothing, and on failure, the address stays as it was.
 */
int32_t LUMOZEPH_GetMRoutingReplicationIP(const char* instance, uint32_t value, uint32_t* address);
int32_t LUMOZEPH_GetMRoutingMRouterIP(const char* instance, uint32_t value, uint32_t* address);

/* Adds a multicast router under a value, or removes the instance's. */
int32_t LUMOZEPH_AddMRoutingMRouter(const char* instance, uint32_t value);
int32_t LUMOZEPH_DelMRoutingMRouter(const char* instance);

/* ------------------------------------------------------------------------------------------------------------------ *
 * rss: Software receive-side scaling
 *
 * A target is named by a text of at most 63 bytes; a null target gives EINVAL. Reply lengths are not looked at.
 * ------------------------------------------------------------------------------------------------------------------ */

/* What is not copied, and entries past rssEntryCount, is undefined. */
struct LumoRssStats
{
    uint8_t uncopied1[4];     /* 0 */
    uint32_t rssEntryCount;   /* 4: as the module reports it, at most 16 if it is well behaved */
    uint32_t rssWord[16];     /* 8 */
    uint8_t uncopied2[4];     /* 72 */
    uint64_t rssCounter1[16]; /* 76 */
    uint64_t rssCounter2[16]; /* 204 */
    uint64_t rssCounter3[16]; /* 332 */
    uint8_t uncopied3[344];   /* 460 */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRssStats, 804);

struct LumoRssTunables
{
    uint64_t value1; /* 0: read and written */
    uint32_t value2; /* 8: only read */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRssTunables, 12);

/* An indirection table to be set. */
struct LumoRssIndTable
{
    uint8_t entries[128]; /* 0 */
    int32_t size;         /* 128: entries to send, at most 128; none if it is 0 or negative */
} LUMOZEPH_PACKED;
LUMOZEPH_RECORD_SIZE(LumoRssIndTable, 132);

/* Reads a target's statistics. out receives the block; free it with free(). */
int32_t LUMOZEPH_SoftRSSGetStats(const char* target, struct LumoRssStats** out);

/* Zeroes a target's statistics. */
int32_t LUMOZEPH_SoftRSSStatsReset(const char* target);

/* Reads a target's tunables. On failure of the device call, the tunables are undefined. */
int32_t LUMOZEPH_SoftRSSGetTunables(const char* target, struct LumoRssTunables* tunables);

/* Sets a target's tunables: value1 only. */
int32_t LUMOZEPH_SoftRSSSetTunables(const char* target, const struct LumoRssTunables* tunables);

/* Reads a target's indirection table. entries: room for 128 bytes; untouched on failure. */
int32_t LUMOZEPH_SoftRSSGetIndTable(const char* target, uint8_t* entries);

/* Sets a target's indirection table. */
int32_t LUMOZEPH_SoftRSSTableSet(const char* target, const struct LumoRssIndTable* table);

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#if defined(__cplusplus)
}
#endif

#endif
