// Lists whose records are told apart, and where the names come from.
#include "tool/lists.h"

#include "lumozeph.h"
#include "tool/metrics.h"
#include "tool/pattern.h"
#include "tool/words.h"

#include <gmock/gmock.h>

using namespace tool;
using testing::SizeIs;

namespace {

Records records_of(std::span<const LumoBridgeFdbEntry> entries)
{
    return {find_operation("GetBridgeFdbEntries")->record, std::as_bytes(entries).data(), entries.size(), true};
}

std::string bytes(const LumoBridgeFdbEntry& entry)
{
    return {reinterpret_cast<const char*>(&entry), sizeof entry};
}

} // namespace

TEST(Lists, TellRecordsApartByFieldsThatThereAre)
{
    std::size_t seen = 0;
    for (const Object& object : known_objects())
        for (const Verb& verb : object.verbs) {
            for (const std::string_view name : split(verb.key, ',')) {
                const Record* const record = record_of(*find_operation(verb.operation));
                ASSERT_TRUE(record) << verb.words;
                EXPECT_TRUE(record->find(name)) << verb.words << ": " << name;
            }
            seen += verb.key.empty() ? 0 : 1;
        }
    EXPECT_EQ(seen, 22u);
}

TEST(Lists, AreReachedThroughNamesThatCanBeRead)
{
    for (const Object& object : known_objects())
        for (const Verb* const verb : lists_of_object(object.name))
            for (const std::string& parameter : Pattern(verb->form).demanded())
                EXPECT_TRUE(find_source(*verb, parameter)) << verb->words << ": " << parameter;
}

TEST(Lists, HaveAMetricEach)
{
    for (const Object& object : known_objects())
        for (const Verb* const verb : lists_of_object(object.name))
            EXPECT_FALSE(metric_of_list(verb->operation).empty()) << verb->words;
}

TEST(Names, AreThoseOfFieldsThatThereAre)
{
    for (const Source& source : sources()) {
        const Operation* const operation = find_operation(source.operation);
        ASSERT_TRUE(operation) << source.operation;
        ASSERT_TRUE(record_of(*operation)) << source.operation;
        EXPECT_TRUE(record_of(*operation)->find(source.field)) << source.operation;
    }
}

TEST(Contents, KeepRecordsThatAreNotToldApart)
{
    LumoBridgeFdbEntry entries[3] {};
    entries[0].mac[0] = 2;
    entries[1].mac[0] = 1;
    entries[2].mac[0] = 2;
    entries[2].value4 = 7;
    const Contents contents = contents_of(records_of(entries), "mac");
    ASSERT_THAT(contents, SizeIs(3));
    auto one = contents.begin();
    EXPECT_EQ(one++->second, bytes(entries[1]));
    EXPECT_EQ(one++->second, bytes(entries[0]));
    EXPECT_EQ(one->second, bytes(entries[2]));
}

TEST(Contents, DifferInTheMembersWhoseValuesDo)
{
    LumoBridgeFdbEntry before {};
    LumoBridgeFdbEntry after {};
    after.mac[5] = 1;
    after.value5 = 2;
    const auto members =
        differences(*find_operation("GetBridgeFdbEntries")->record, bytes(before), bytes(after), AddressOrder::Network);
    ASSERT_THAT(members, SizeIs(2));
    EXPECT_EQ(members[0]->name, "mac");
    EXPECT_EQ(members[1]->name, "value5");
}
