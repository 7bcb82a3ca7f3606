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
 * Channel
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
 * Router instances
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
 * Runtime levels and queue tunables
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
 * Logical interfaces
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
 * Interface addressing and options
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
 * IPv4 routes
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
 * IPv6 routes and path MTU
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
 * ARP, IPv6 neighbours and proxy entries
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
 * Interface policies
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
 * Policies and policy tables
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

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#if defined(__cplusplus)
}
#endif

#endif
