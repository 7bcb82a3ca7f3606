/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * What programs that use lumozeph would write themselves otherwise: addresses and masks as values and as texts, tables
 * whose counts the module reports, the entries of IPv6 routes, and a sentence for a call that failed.
 *
 * Nothing here is part of the library: the functions are inline, have no state and need no linking. IPv4 addresses and
 * masks are 32-bit values in network order, as inet_pton(3) stores them.
 */
#ifndef LUMOZEPH_INLINE_H
#define LUMOZEPH_INLINE_H

#if defined(__GNUC__)
#pragma GCC system_header /* It is C, and would be warned of for nothing in C++. */
#endif

#include "lumozeph.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#if defined(__cplusplus)
extern "C" {
#endif

/** Bytes of a MAC address as text, with its NUL. */
#define LUMOZEPH_MAC_TEXT_SIZE 18

/**
 * Turns the sixteen bytes of an IPv6 address into the two words that functions take.
 *
 * @param address     in wire order, as inet_pton(3) stores them
 * @param[out] words  the first eight bytes in words[0], the last eight in words[1]
 */
static inline void lumozeph_ipv6_to_words(const uint8_t address[16], uint64_t words[2])
{
    memcpy(words, address, 16);
}

/**
 * Turns two words into the sixteen bytes of an IPv6 address.
 *
 * @param word1         the first eight bytes
 * @param word2         the last eight bytes
 * @param[out] address  in wire order, as inet_ntop(3) takes them
 */
static inline void lumozeph_ipv6_from_words(uint64_t word1, uint64_t word2, uint8_t address[16])
{
    memcpy(address, &word1, 8);
    memcpy(address + 8, &word2, 8);
}

/**
 * The IPv4 mask of a prefix length.
 *
 * @param length  in bits; taken as 32 if it is larger
 * @return        the mask, in network order
 */
static inline uint32_t lumozeph_mask_of_length(uint32_t length)
{
    const uint32_t bits = length == 0 ? 0 : length >= 32 ? 0xffffffffU : 0xffffffffU << (32 - length);
    const uint8_t bytes[4] = {(uint8_t)(bits >> 24), (uint8_t)(bits >> 16), (uint8_t)(bits >> 8), (uint8_t)bits};
    uint32_t mask;
    memcpy(&mask, bytes, 4);
    return mask;
}

/**
 * The prefix length of an IPv4 mask.
 *
 * @param mask  in network order
 * @return      in bits; -1 if the mask is that of no prefix
 */
static inline int lumozeph_length_of_mask(uint32_t mask)
{
    for (uint32_t length = 0; length <= 32; ++length)
        if (lumozeph_mask_of_length(length) == mask)
            return (int)length;
    return -1;
}

/**
 * Reads a MAC address from its text: six pairs of hexadecimal digits with colons or hyphens between them.
 *
 * @param text      the whole text, with nothing before or after the address
 * @param[out] mac  untouched on failure
 * @return          0, or -1 if the text is no MAC address
 */
static inline int lumozeph_mac_from_text(const char* text, uint8_t mac[6])
{
    static const char digits[] = "0123456789abcdef0123456789ABCDEF";
    uint8_t bytes[6];
    for (int i = 0; i < 6; ++i) {
        const char* const high = text[0] != '\0' ? strchr(digits, text[0]) : NULL;
        const char* const low = high != NULL && text[1] != '\0' ? strchr(digits, text[1]) : NULL;
        if (low == NULL)
            return -1;
        bytes[i] = (uint8_t)(((high - digits) % 16) * 16 + (low - digits) % 16);
        text += 2;
        if (i < 5 && *text != ':' && *text != '-')
            return -1;
        if (i < 5)
            ++text;
    }
    if (*text != '\0')
        return -1;
    memcpy(mac, bytes, 6);
    return 0;
}

/**
 * Writes a MAC address as text, "00:11:22:aa:bb:cc".
 *
 * @param mac        the address
 * @param[out] text  room for LUMOZEPH_MAC_TEXT_SIZE bytes
 * @return           text
 */
static inline char* lumozeph_mac_to_text(const uint8_t mac[6], char text[LUMOZEPH_MAC_TEXT_SIZE])
{
    static const char digits[] = "0123456789abcdef";
    for (int i = 0; i < 6; ++i) {
        text[3 * i] = digits[mac[i] >> 4];
        text[3 * i + 1] = digits[mac[i] & 15];
        text[3 * i + 2] = i < 5 ? ':' : '\0';
    }
    return text;
}

/**
 * How many entries of a table are there: what the module reports, but never more than the table's room.
 *
 * @param reported  the count in the record
 * @param room      the table's room, one of the macros LUMOZEPH_..._MAX
 * @return          the smaller of both
 */
static inline uint32_t lumozeph_clamped(uint32_t reported, uint32_t room)
{
    return reported < room ? reported : room;
}

/** How many next hops of a route are there. */
static inline uint32_t lumozeph_next_hops(const LumoRouteInfo* route)
{
    return lumozeph_clamped(route->nextHopCount, LUMOZEPH_NEXT_HOPS_MAX);
}

/** How many IPv6 addresses of a LIF are there. */
static inline uint32_t lumozeph_ipv6_addrs(const LumoLifInfo* lif)
{
    return lumozeph_clamped(lif->ipv6Count, LUMOZEPH_LIF_IPV6_ADDRS_MAX);
}

/** How many of the DHCP servers that a LIF relays to are there. */
static inline uint32_t lumozeph_relay_servers(const LumoDhcpRelay* relay)
{
    return lumozeph_clamped(relay->relayCount, LUMOZEPH_DHCP_RELAY_SERVERS_MAX);
}

/** How many references of a LIF to policy tables are there. */
static inline uint32_t lumozeph_policy_table_refs(const LumoLifPolicyTableRef* ref)
{
    return lumozeph_clamped(ref->refCount, LUMOZEPH_POLICY_TABLE_REFS_MAX);
}

/** How many entries of each array of RSS statistics are there. */
static inline uint32_t lumozeph_rss_entries(const LumoRssStats* stats)
{
    return lumozeph_clamped(stats->rssEntryCount, LUMOZEPH_RSS_ENTRIES_MAX);
}

/**
 * One entry of the block of LUMOZEPH_GetRoutesv6.
 *
 *     for (uint32_t i = 0; i < count && i < 8000; ++i) // more are there only if the module is well behaved
 *         use(lumozeph_route6(block, i));
 *
 * @param block  the block
 * @param index  less than the count that came with it, and than the block's room (LUMOZEPH_GetRoutesv6)
 * @return       LUMOZEPH_ROUTE6_SIZE bytes, in the module's layout
 */
static inline const uint8_t* lumozeph_route6(const void* block, uint32_t index)
{
    return (const uint8_t*)block + (size_t)index * LUMOZEPH_ROUTE6_SIZE;
}

/**
 * Says why a call failed, in words that tell apart what errno does not: that this host has no module, that the caller
 * may not open its device, and that the module knows no such object.
 *
 * Opens the device once more, and closes it, where errno alone is not enough. Keeps errno.
 *
 * @param error      errno after the call
 * @param[out] text  the sentence, without a full stop and cut to size, always ended by NUL
 * @param size       bytes at text, at least 1
 * @return           text
 */
static inline const char* lumozeph_reason(int error, char* text, size_t size)
{
    const int before = errno;
    const char* const device = getenv("USE_UPGRADE_DEV") != NULL ? "/pelt/devices/char/zephdriver/kola_lumo_ugrade"
                                                                 : "/pelt/devices/char/zephdriver/kola_lumo";
    const char* told = NULL;
    if (error == ENOENT || error == EACCES || error == EPERM || error == ENOMEM) {
#if defined(O_CLOEXEC)
        const int descriptor = open(device, O_RDWR | O_CLOEXEC);
#else
        const int descriptor = open(device, O_RDWR);
#endif
        const int opened = descriptor >= 0 ? 0 : errno;
        if (descriptor >= 0)
            close(descriptor);
        if (opened == ENOENT)
            told = "the module is not loaded on this host: its device is not there";
        else if (opened == EACCES || opened == EPERM)
            told = "no right to open the module's device";
        else if (error == ENOENT)
            told = "the module knows no such object";
        else if (error != ENOMEM)
            told = "the module does not allow it";
    }
    snprintf(text, size, "%s", told != NULL ? told : strerror(error));
    errno = before;
    return text;
}

#if defined(__cplusplus)
}
#endif

#endif
