#include "channel/device.h"
#include "channel/fail.h"
#include "lif/fields.h"
#include "lumozeph.h"

#include <arpa/inet.h>
#include <cstring>

using namespace lumo;

namespace {

constexpr uint32_t ipv4_family = 1;
constexpr uint32_t ipv6_family = 3;
constexpr uint32_t most_servers = sizeof(LumoDhcpRelay::servers) / sizeof(LumoDhcpRelayServer);

// Appends the servers of the text to the relay. Commas are overwritten as the text is walked.
int32_t parse_servers(char* text, LumoDhcpRelay& relay)
{
    for (char* next = nullptr; text != nullptr; text = next) {
        char* const comma = strchr(text, ',');
        next = nullptr;
        if (comma != nullptr) {
            *comma = '\0';
            next = comma + 1;
        }

        uint8_t ipv4[4];
        uint8_t ipv6[16];
        // Kept: an item must be accepted by both parsers. No text is both an IPv4 and an IPv6 address, so that only the
        // null list is ever sent.
        const int is_ipv4 = inet_pton(AF_INET, text, ipv4);
        if (is_ipv4 == 0)
            return fail(EINVAL);
        const int is_ipv6 = inet_pton(AF_INET6, text, ipv6);
        if (is_ipv6 == 0)
            return fail(EINVAL);

        relay.relayCount = relay.relayCount + 1;
        if (relay.relayCount > most_servers)
            return fail(EINVAL);
        LumoDhcpRelayServer& server = relay.servers[relay.relayCount - 1];
        if (is_ipv4 == 1) {
            std::memcpy(server.address, ipv4, sizeof ipv4);
            server.family = ipv4_family;
        } else if (is_ipv6 == 1) {
            std::memcpy(server.address, ipv6, sizeof ipv6);
            server.family = ipv6_family;
        }
    }
    return 0;
}

} // namespace

int32_t LUMOZEPH_ConfigureLifDhcpRelay(const char* instance, const char* lif, char* servers)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    LumoDhcpRelay relay {};
    if (parse_servers(servers, relay) != 0)
        return -1;
    return send(Command::ConfigureLifDhcpRelay, Request(instance_key(instance), lif_name(lif), dhcp_relay(&relay)));
}
