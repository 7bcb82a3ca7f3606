#include "tool/layouts.h"

#include <algorithm>
#include <array>

namespace tool {
namespace {

constexpr Member text(std::string_view name, std::uint16_t offset, std::uint16_t room)
{
    return {name, "text", Form::Text, offset, room, 0, -1, nullptr};
}

constexpr Member number(std::string_view name, std::uint16_t offset, std::uint16_t width)
{
    return {name, "value", Form::Number, offset, width, 0, -1, nullptr};
}

constexpr Member one(std::string_view name, Form form, std::string_view kind, std::uint16_t offset, std::uint16_t width)
{
    return {name, kind, form, offset, width, 0, -1, nullptr};
}

constexpr Member connection[] {
    text("name", 0, 64),
    text("text1", 64, 16),
    text("text2", 80, 18),
    text("text3", 98, 32),
    text("text4", 130, 22),
};

constexpr Member route6[] {
    text("instance", 0, 64),
    one("dest", Form::Ipv6, "ipv6", 68, 16),
    one("prefixLen", Form::Number, "prefix_length", 84, 1),
    one("gateway", Form::Ipv6, "ipv6", 101, 16),
    text("lif", 117, 64),
};

// The same for both families, but for the address.
constexpr std::array<Member, 4> neighbour_of(Member address)
{
    return {address, text("lif", 16, 64), text("mac", 80, 18), number("proxy", 98, 1)};
}

constexpr auto arp_members = neighbour_of(one("address", Form::Ipv4, "ipv4", 0, 4));
constexpr auto neighbour = neighbour_of(one("address", Form::Ipv6, "ipv6", 0, 16));

constexpr Member pmac[] {
    one("mac", Form::Mac, "mac", 0, 6),
    number("value", 6, 4),
};

constexpr Member transport_node_members[] {
    text("text1", 0, 64),
    text("text2", 64, 64),
    text("text3", 128, 16),
    number("value", 144, 4),
    one("block", Form::Bytes, "bytes", 148, 64),
};

constexpr Member endpoint_members[] {
    text("ident", 64, 64),
    number("value1", 128, 2),
    number("value2", 130, 1),
    number("value3", 131, 4),
    number("value4", 135, 4),
    text("name", 139, 64),
    number("flag2", 203, 1),
};

constexpr Member endpoint_key[] {
    text("key", 0, 64),
};

constexpr Member port_connection[] {
    text("port", 0, 64),
    text("text", 64, 16),
    one("mac", Form::Mac, "mac", 80, 6),
};

constexpr RawLayout all_layouts[] {
    {"GetConnections", Repeated::UntilZeros, {"connection", 152, connection}},
    {"GetConnection", Repeated::Once, {"connection", 152, connection}},
    {"GetRoutesv6", Repeated::UntilZeros, {"route6", 776, route6}},
    {"GetArps", Repeated::UntilZeros, {"arp", 114, arp_members}},
    {"GetProxyArps", Repeated::UntilZeros, {"arp", 114, arp_members}},
    {"GetArpsv6", Repeated::UntilZeros, {"neighbour", 114, neighbour}},
    {"GetPmac", Repeated::UntilZeros, {"pmac", 10, pmac}},
    {"BridgeGetLocalTransportNode", Repeated::Once, {"transport_node", 2048, transport_node_members}},
    {"GetBeAll", Repeated::UntilZeros, {"endpoint", 235, endpoint_members}},
    {"GetBeStats", Repeated::Once, {"endpoint_stats", 146, endpoint_key}},
    {"GetBeStatus", Repeated::Once, {"endpoint_status", 229, endpoint_key}},
    {"GetBFDPortConnections", Repeated::UntilZeros, {"port_connection", 152, port_connection}},
};

} // namespace

std::span<const RawLayout> layouts()
{
    return all_layouts;
}

const RawLayout* find_layout(std::string_view operation)
{
    const auto found = std::find_if(std::begin(all_layouts), std::end(all_layouts),
        [operation](const RawLayout& layout) { return layout.operation == operation; });
    return found == std::end(all_layouts) ? nullptr : found;
}

} // namespace tool
