// The DHCP servers that a LIF relays to.
#include "fake/matchers.h"
#include "operations/request.h"
#include "shapes/rows.h"

#include <arpa/inet.h>
#include <lumozeph.h>

using namespace fake;
using operations::get;
using operations::Request;
using shapes::expect_rejected;

namespace {

class DhcpRelay : public testing::Test
{
protected:
    Call configure(Bytes& servers)
    {
        return observe(device, {.inet_pton = inet_pton},
            [&] { return LUMOZEPH_ConfigureLifDhcpRelay("inst", "lif", servers.data()); });
    }
    void expect_no_server_accepted(Bytes servers, const Bytes& afterwards)
    {
        const Call call = configure(servers);
        EXPECT_THAT(call, Fails(EINVAL)) << servers;
        EXPECT_THAT(call, DoesNothing());
        EXPECT_EQ(servers, afterwards);
    }

    ScriptedDevice device;
    std::function<int(int, const char*, void*)> inet_pton {}; // answers in its place if given
};

// Kept: an item must be an IPv4 and an IPv6 address at once, so that none is accepted.
TEST_F(DhcpRelay, AcceptsNoListButNull)
{
    expect_no_server_accepted("10.0.0.1", "10.0.0.1");
    expect_no_server_accepted("fe80::1", "fe80::1");
    expect_no_server_accepted("::ffff:10.0.0.1", "::ffff:10.0.0.1");
    expect_no_server_accepted("not an address", "not an address");
    expect_no_server_accepted("", "");
}

// Kept: the commas that were passed are overwritten also when the list is rejected.
TEST_F(DhcpRelay, OverwritesTheFirstCommaOfARejectedList)
{
    expect_no_server_accepted("10.0.0.1,10.0.0.2", Bytes("10.0.0.1\00010.0.0.2", 17));
    expect_no_server_accepted("10.0.0.1,10.0.0.2,10.0.0.3", Bytes("10.0.0.1\00010.0.0.2,10.0.0.3", 26));
    expect_no_server_accepted(",", Bytes(1, '\0'));
}

TEST_F(DhcpRelay, LeavesTheListAloneWhenInstanceOrInterfaceIsMissing)
{
    Bytes servers = "10.0.0.1,10.0.0.2";
    expect_rejected([&] { return LUMOZEPH_ConfigureLifDhcpRelay(nullptr, "lif", servers.data()); });
    expect_rejected([&] { return LUMOZEPH_ConfigureLifDhcpRelay("inst", nullptr, servers.data()); });
    EXPECT_EQ(servers, "10.0.0.1,10.0.0.2");
}

// What follows is reached only when inet_pton is another than it is.
int accept_both(int family, const char* text, void* address)
{
    std::memset(address, family == AF_INET ? '4' : '6', family == AF_INET ? 4 : 16);
    static_cast<char*>(address)[0] = text[0];
    return 1;
}

TEST_F(DhcpRelay, StoresAcceptedServersAsIpv4First)
{
    inet_pton = accept_both;
    Bytes servers = "a,b";
    const Call call = configure(servers);
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(servers, Bytes("a\0b", 3));
    EXPECT_EQ(call.sent.at(0).number, 33u);
    EXPECT_EQ(call.sent.at(0).input, Request()
                                         .text(0, "inst")
                                         .text(192, "lif")
                                         .u32(364, 2)
                                         .text(368, "a444")
                                         .u32(384, 1)
                                         .text(388, "b444")
                                         .u32(404, 1)
                                         .content());
}

TEST_F(DhcpRelay, StoresAServerAsIpv6WhenItIsNotIpv4)
{
    inet_pton = [](int family, const char* text, void* address) {
        return family == AF_INET ? -1 : accept_both(family, text, address);
    };
    Bytes servers = "a";
    const Call call = configure(servers);
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).input,
        Request().text(0, "inst").text(192, "lif").u32(364, 1).text(368, "a666666666666666").u32(384, 3).content());
}

TEST_F(DhcpRelay, CountsAServerThatIsNeither)
{
    inet_pton = [](int, const char*, void*) { return -1; };
    Bytes servers = "a";
    const Call call = configure(servers);
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).input, Request().text(0, "inst").text(192, "lif").u32(364, 1).content());
}

TEST_F(DhcpRelay, RejectsAnItemThatEitherParserRejects)
{
    for (const int rejecting : {AF_INET, AF_INET6}) {
        inet_pton = [rejecting](int family, const char*, void*) { return family == rejecting ? 0 : 1; };
        expect_no_server_accepted("a,b", Bytes("a\0b", 3));
    }
}

TEST_F(DhcpRelay, TakesEightServersAndNoNinth)
{
    inet_pton = accept_both;
    Bytes eight = "a,b,c,d,e,f,g,h";
    const Call call = configure(eight);
    ASSERT_THAT(call, Succeeds());
    const Bytes& request = call.sent.at(0).input;
    EXPECT_EQ(get(request, 364, 4), 8u);
    EXPECT_EQ(request.substr(368 + 7 * 20, 4), "h444");
    EXPECT_EQ(get(request, 368 + 7 * 20 + 16, 4), 1u);
    EXPECT_EQ(request.substr(528), Bytes(248, '\0'));
    expect_no_server_accepted("a,b,c,d,e,f,g,h,i,j", Bytes("a\0b\0c\0d\0e\0f\0g\0h\0i\0j", 19));
}

} // namespace
