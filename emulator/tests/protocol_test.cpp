// The description of the wire, looked at as those do who know none of its types.
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"

#include <gmock/gmock.h>
#include <map>
#include <set>
#include <string>

using namespace emulator::protocol;

namespace {

std::vector<const Command*> all_commands()
{
    std::vector<const Command*> all;
    for (const Chapter& chapter : chapters)
        for (const Command& command : chapter.commands)
            all.push_back(&command);
    return all;
}

// Reports what is wrong with a layout, and with the entries of the tables in it.
void expect_sound(const Layout& layout, const std::string& where)
{
    std::vector<bool> taken(layout.size);
    std::set<std::string_view> names;
    for (const Field* field : layout.fields) {
        const std::string name = where + "." + std::string(field->name);
        EXPECT_TRUE(names.insert(field->name).second) << name << " is there twice";
        ASSERT_GT(field->width, 0u) << name;
        ASSERT_LE(field->offset + field->width, layout.size) << name << " lies outside";
        for (std::size_t at = field->offset; at < field->offset + field->width; ++at) {
            EXPECT_FALSE(taken[at]) << name << " shares byte " << at;
            taken[at] = true;
        }
        EXPECT_EQ(field->entry != nullptr, field->kind == Kind::Table) << name;
        if (field->entry != nullptr) {
            ASSERT_GT(field->entry->size, 0u) << name;
            EXPECT_EQ(field->width % field->entry->size, 0u) << name;
            EXPECT_FALSE(field->entry->fields.empty()) << name;
            expect_sound(*field->entry, name);
        }
    }
}

TEST(Protocol, DescribesEveryNumberThatIsAssigned)
{
    const std::set<std::uint32_t> gaps {68, 69, 70, 71, 76, 77, 78, 79, 81, 82, 83, 84, 105, 150};
    std::set<std::uint32_t> numbers;
    for (const Command* command : all_commands())
        EXPECT_TRUE(numbers.insert(command->number).second) << command->number << " is there twice";
    for (std::uint32_t number = 0; number <= last_command; ++number) {
        EXPECT_NE(numbers.contains(number), gaps.contains(number)) << number;
        EXPECT_NE(commands_by_number[number] == nullptr, numbers.contains(number)) << number;
    }
    EXPECT_EQ(*numbers.rbegin(), last_command);
    // Commands are added, and never removed.
    EXPECT_GE(last_command, 160u);
}

TEST(Protocol, FindsACommandByItsNumber)
{
    for (const Command* command : all_commands())
        EXPECT_EQ(commands_by_number[command->number], command) << command->name;
}

TEST(Protocol, GivesEveryCommandANameOfItsOwn)
{
    std::set<std::string_view> names;
    for (const Command* command : all_commands()) {
        EXPECT_FALSE(command->name.empty()) << command->number;
        EXPECT_TRUE(names.insert(command->name).second) << command->name;
    }
}

TEST(Protocol, HasTheChaptersOfThePublicHeader)
{
    std::vector<std::string_view> names;
    for (const Chapter& chapter : chapters) {
        names.push_back(chapter.name);
        EXPECT_FALSE(chapter.commands.empty()) << chapter.name;
    }
    // All but the first, "channel", which has no commands.
    EXPECT_THAT(names,
        testing::ElementsAre("instances", "levels", "stats", "control_plane", "connections", "housekeeping", "lifs",
            "lif_options", "dhcp_relay", "routes", "routes6", "neighbours", "lif_policies", "policies", "policy_tables",
            "bridges", "networks", "fdb", "clusters", "endpoints", "bfd", "mcast_receivers", "mcast_groups", "rss"));
}

TEST(Protocol, DemandsTheInputThatIsSent)
{
    const std::set<std::uint32_t> none {9, 11, 13, 42, 85, 151, 159};
    const std::set<std::uint32_t> a_value {7, 10, 12, 14, 160};
    for (const Command* command : all_commands())
        EXPECT_EQ(command->input.size, none.contains(command->number)      ? 0u
                                       : a_value.contains(command->number) ? 4u
                                                                           : 776u)
            << command->name;
}

TEST(Protocol, LaysFieldsInsideAndApart)
{
    for (const Command* command : all_commands()) {
        const std::string name(command->name);
        expect_sound(command->input, name);
        expect_sound(command->reply.record, name + " reply");
        expect_sound(command->reply.head, name + " head");
    }
}

// The size of a record, and how many there are at most in a list.
using Records = std::pair<std::size_t, std::size_t>;

TEST(Protocol, KnowsTheRecordsOfEveryReply)
{
    const std::map<std::uint32_t, std::size_t> single {{1, 256}, {5, 804}, {9, 4}, {11, 4}, {13, 4}, {18, 152},
        {22, 576}, {23, 804}, {37, 668}, {43, 804}, {50, 146}, {51, 229}, {60, 576}, {62, 393}, {85, 4}, {86, 16},
        {87, 1420}, {102, 2048}, {115, 4}, {122, 4}, {123, 4}, {124, 4}, {130, 148}, {136, 4}, {139, 4}, {146, 546},
        {149, 6}, {153, 804}, {155, 12}, {157, 128}, {159, 4}};
    const std::map<std::uint32_t, Records> lists {{0, {256, 1000}}, {17, {152, 862}}, {21, {576, 10000}},
        {36, {668, 8000}}, {52, {235, 28672}}, {59, {576, 10000}}, {61, {393, 4096}}, {63, {133, 32768}},
        {64, {146, 32768}}, {65, {20, 4096}}, {73, {10, 13107}}, {89, {183, 10}}, {92, {71, 100}}, {95, {235, 28672}},
        {96, {39, 2867200}}, {99, {152, 862}}, {114, {776, 29999}}, {119, {28, 1000}}, {128, {88, 512}},
        {135, {12, 4096}}, {140, {668, 8000}}, {143, {72, 1000}}};
    const std::set<std::uint32_t> results {34, 35, 120, 121, 141, 142, 144, 145, 147, 148};
    const std::set<std::uint32_t> dumps {40, 116};

    for (const Command* command : all_commands()) {
        const std::uint32_t number = command->number;
        const auto& [shape, record, most, head] = command->reply;
        if (single.contains(number)) {
            EXPECT_EQ(shape, Shape::Record) << command->name;
            EXPECT_EQ(record.size, single.at(number)) << command->name;
        } else if (lists.contains(number)) {
            EXPECT_EQ(shape, Shape::List) << command->name;
            EXPECT_EQ(Records(record.size, most), lists.at(number)) << command->name;
        } else if (results.contains(number)) {
            EXPECT_EQ(shape, Shape::Result) << command->name;
            EXPECT_EQ(record.size, 88u) << command->name;
        } else if (dumps.contains(number)) {
            EXPECT_EQ(shape, Shape::EndedList) << command->name;
            EXPECT_EQ(Records(record.size, most), Records(114, 65535)) << command->name;
        } else if (number == 129) {
            EXPECT_EQ(shape, Shape::CountedList) << command->name;
            EXPECT_EQ(head.size, 4u);
            EXPECT_EQ(Records(record.size, most), Records(68, 2048));
        } else {
            EXPECT_EQ(shape, Shape::Nothing) << command->name;
        }
    }
}

TEST(Protocol, KnowsTheEnvelope)
{
    std::vector<Records> places;
    for (const Field* field : envelope::layout.fields)
        places.emplace_back(field->offset, field->width);
    EXPECT_THAT(places, testing::ElementsAre(Records(0, 4), Records(4, 8), Records(12, 4), Records(16, 8)));
    EXPECT_EQ(envelope::layout.size, 24u);
}

// Eight bytes of which those that are not written remain 'x'.
class Fields : public testing::Test
{
protected:
    std::string bytes = "xxxxxxxx";
    Record record {std::as_writable_bytes(std::span(bytes))};
    Input input {std::as_bytes(std::span(bytes))};
};

TEST_F(Fields, NumbersHaveTheirOwnWidth)
{
    record[U16("", 1)] = 0x0102;
    EXPECT_EQ(bytes, "x\2\1xxxxx");
    EXPECT_EQ(input[U16("", 1)], 0x0102);
    EXPECT_EQ(input[U8("", 1)], 2);
    EXPECT_EQ(input[I32("", 1)], 0x78780102);
    record[I32("", 4)] = -1;
    EXPECT_EQ(input[I32("", 4)], -1);
    EXPECT_EQ(input[U32("", 4)], 0xffffffffu);
}

TEST_F(Fields, TheLow24BitsLeaveTheNextByteAlone)
{
    record[U24("", 2)] = 0x04030201;
    EXPECT_EQ(bytes, "xx\1\2\3xxx");
    EXPECT_EQ(input[U24("", 2)], 0x030201u);
}

TEST_F(Fields, AFlagIsSetByAnyOfItsBytes)
{
    const Flag flag("", 4, 4);
    bytes.replace(4, 4, 4, '\0');
    EXPECT_FALSE(input[flag]);
    bytes[7] = '\1';
    EXPECT_TRUE(input[flag]);
    bytes[7] = '\0';
    record[flag] = true;
    EXPECT_EQ(input[U32("", 4)], 1u);
}

TEST_F(Fields, ATextIsReadToItsNulOrToItsEnd)
{
    EXPECT_EQ(input[Text("", 2, 4)], "xxxx");
    bytes[4] = '\0';
    EXPECT_EQ(input[Text("", 2, 4)], "xx");
    bytes[2] = '\0';
    EXPECT_EQ(input[Text("", 2, 4)], "");
}

TEST_F(Fields, ATextKeepsItsLastByte)
{
    record[Text("", 2, 4)] = "abcdef";
    EXPECT_EQ(bytes, "xxabcxxx");
}

TEST_F(Fields, AnUnterminatedTextFillsItsField)
{
    record[UnterminatedText("", 2, 4)] = "abcdef";
    EXPECT_EQ(bytes, "xxabcdxx");
}

TEST_F(Fields, EntriesLieOneAfterTheOther)
{
    static constexpr Layout entry = fields_in<3, element<U8>>;
    constexpr Table table("", 1, entry, 2);
    record[table][0][element<U8>] = 'a';
    record[table][1][element<U8>] = 'b';
    EXPECT_EQ(bytes, "xaxxbxxx");
    EXPECT_EQ(input[table][1][element<U8>], 'b');
}

} // namespace
