// DHCP relay.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_ConfigureLifDhcpRelay),
        .command = 33,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"ConfigureLifDhcpRelayWithoutServers", {"inst", "lif", nullptr},
                      Request().text(0, "inst").text(192, "lif")},
            {"ConfigureLifDhcpRelayWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, nullptr},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter dhcp_relay {"dhcp_relay", rows};

} // namespace operations
