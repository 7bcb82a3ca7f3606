// What becomes an argument, and what does not.
#include <gtest/gtest.h>
#include <lumozeph.hpp>
#include <span>
#include <vector>

using namespace lumozeph;

namespace {

template <class From, class To>
constexpr bool becomes = std::is_convertible_v<From, To>;

TEST(Texts, AreMadeFromPlainOnesThatStay)
{
    static_assert(becomes<const char*, instance_argument> && becomes<const char(&)[5], lif_argument>);
    static_assert(becomes<std::string&, lif_argument> && becomes<const std::string&, lif_argument>);
    static_assert(!becomes<std::string, lif_argument> && !becomes<const std::string, lif_argument>);
    static_assert(!becomes<std::nullptr_t, lif_argument> && !becomes<int, lif_argument>);
    static_assert(!std::is_default_constructible_v<lif_argument>);
    const std::string name = "uplink";
    EXPECT_EQ(lif_argument(name).c_str(), name.c_str());
    lif_info lif {};
    EXPECT_EQ(lif_argument(lif.lifName).c_str(), lif.lifName);
    const auto text = mac("00:11:22:33:44:55").text();
    EXPECT_STREQ(mac_text_argument(text).c_str(), "00:11:22:33:44:55");
    static_assert(!becomes<short_text<17>, mac_text_argument>);
}

TEST(Texts, DoNotBecomeOneAnother)
{
    static_assert(!becomes<lif_argument, instance_argument> && !becomes<instance_argument, lif_argument>);
    static_assert(!becomes<instance_argument, bridge_argument> && !becomes<lif_argument, lif_second_name_argument>);
    static_assert(!becomes<lif_argument, maybe<text_argument>> && becomes<lif_argument, maybe<lif_argument>>);
    static_assert(!becomes<lif_argument, const char*>);
}

TEST(Keys, NameWhatHasAKey)
{
    static_assert(becomes<instance_key&, instance_argument> && becomes<const instance_key&, bridge_argument>);
    static_assert(becomes<instance_key&, cluster_argument> && becomes<instance_key&, maybe<instance_key_argument>>);
    static_assert(!becomes<instance_key&, lif_argument> && !becomes<instance_key&, text_argument>);
    static_assert(!becomes<instance_key, instance_argument> && !becomes<const instance_key, instance_argument>);
    const instance_key key("blue");
    EXPECT_EQ(instance_argument(key).c_str(), key.c_str());
}

TEST(Maybe, IsNullWhereNothingIsGiven)
{
    EXPECT_EQ(maybe<lif_argument>().c_str(), nullptr);
    EXPECT_EQ(maybe<lif_argument>(static_cast<const char*>(nullptr)).c_str(), nullptr);
    const std::string name = "uplink";
    EXPECT_EQ(maybe<lif_argument>(name).c_str(), name.c_str());
    static_assert(!becomes<std::string, maybe<lif_argument>>);
}

TEST(Numbers, DoNotBecomeAddressesByThemselves)
{
    static_assert(!becomes<std::uint32_t, ipv4> && !becomes<std::uint32_t, ipv4_mask> && !becomes<ipv4, std::uint32_t>);
    static_assert(!becomes<ipv4, ipv4_mask> && !becomes<const char*, ipv4> && !becomes<ipv4, ipv4_prefix>);
    static_assert(!becomes<bool, switched> && !becomes<int, switched>);
}

TEST(View, IsOfContainersThatStay)
{
    std::vector<policy_table_ref_entry> entries(3);
    const view<const policy_table_ref_entry> of_vector = entries;
    EXPECT_EQ(of_vector.data(), entries.data());
    EXPECT_EQ(of_vector.size(), 3u);
    policy_table_ref_entry array[2] {};
    EXPECT_EQ(view<const policy_table_ref_entry>(array).size(), 2u);
    static_assert(!becomes<std::vector<policy_table_ref_entry>, view<policy_table_ref_entry>>);
    static_assert(!becomes<const std::vector<std::byte>&, view<std::byte>>);
    const std::span<const policy_table_ref_entry> span(of_vector);
    EXPECT_EQ(span.size(), 3u);
}

TEST(Counted, IsTheLargestNumberWhereTheSizeIsLarger)
{
    EXPECT_EQ(detail::counted<std::uint16_t>(20), 20u);
    EXPECT_EQ(detail::counted<std::uint16_t>(65535), 65535u);
    EXPECT_EQ(detail::counted<std::uint16_t>(65536), 65535u);
}

} // namespace
