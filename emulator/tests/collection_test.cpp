// What the model's tables are made of.
#include "emulator/model/collection.h"

#include <gmock/gmock.h>

using emulator::Collection;

namespace {

struct Entry
{
    std::uint32_t number = 0;
    std::string name;
    int value = 0;

    auto identity() const { return std::tie(number, name); }
};

class Collected : public testing::Test
{
protected:
    std::vector<int> values() const
    {
        std::vector<int> found;
        for (const Entry& entry : collection)
            found.push_back(entry.value);
        return found;
    }

    Collection<Entry> collection;
};

TEST_F(Collected, EntriesStayInTheOrderInWhichTheyWereAdded)
{
    for (int i = 9; i >= 0; --i)
        collection.add({static_cast<std::uint32_t>(i), "", i});
    EXPECT_TRUE(collection.remove_if_found(std::tuple(4u, std::string())));
    collection.add({4, "", 4});
    EXPECT_THAT(values(), testing::ElementsAre(9, 8, 7, 6, 5, 3, 2, 1, 0, 4));
}

TEST_F(Collected, AnEntryIsFoundByAllThatTellsItApart)
{
    collection.add({1, "a", 11});
    collection.add({1, "b", 12});
    collection.add({2, "a", 21});
    ASSERT_NE(collection.find(std::tuple(1u, std::string("b"))), nullptr);
    EXPECT_EQ(collection.find(std::tuple(1u, std::string("b")))->value, 12);
    EXPECT_EQ(collection.find(std::tuple(2u, std::string("b"))), nullptr);
    EXPECT_FALSE(collection.remove_if_found(std::tuple(2u, std::string("b"))));
    EXPECT_EQ(collection.size(), 3u);
}

TEST_F(Collected, EntriesDoNotMove)
{
    const Entry* first = &collection.add({0, "", 0});
    for (std::uint32_t i = 1; i < 10000; ++i)
        collection.add({i, "", 0});
    for (std::uint32_t i = 1; i < 10000; ++i)
        EXPECT_TRUE(collection.remove_if_found(std::tuple(i, std::string())));
    EXPECT_EQ(collection.find(std::tuple(0u, std::string())), first);
}

TEST_F(Collected, EntriesThatMeetAConditionAreRemoved)
{
    for (std::uint32_t i = 0; i < 10; ++i)
        collection.add({i, "", static_cast<int>(i)});
    collection.remove_all([](const Entry& entry) { return entry.value % 3 != 0; });
    EXPECT_THAT(values(), testing::ElementsAre(0, 3, 6, 9));
    EXPECT_EQ(collection.find(std::tuple(1u, std::string())), nullptr);
    collection.clear();
    EXPECT_TRUE(collection.empty());
    EXPECT_EQ(collection.find(std::tuple(3u, std::string())), nullptr);
}

TEST_F(Collected, EntriesMoveWithTheirCollection)
{
    collection.add({1, "a", 11});
    Collection<Entry> other = std::move(collection);
    other.add({2, "b", 22});
    ASSERT_NE(other.find(std::tuple(1u, std::string("a"))), nullptr);
    EXPECT_TRUE(other.remove_if_found(std::tuple(1u, std::string("a"))));
    EXPECT_EQ(other.size(), 1u);
}

} // namespace
