// The model by itself, spoken to in literal offsets.
#include "emulator/model/module.h"
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"

#include <cerrno>
#include <cstring>
#include <gmock/gmock.h>
#include <set>
#include <string>

using namespace emulator;

namespace {

class Message
{
public:
    explicit Message(std::size_t size = 776) : bytes_(size, '\0') {}
    Message& text(std::size_t offset, const std::string& text)
    {
        bytes_.replace(offset, text.size(), text);
        return *this;
    }
    Message& u32(std::size_t offset, std::uint32_t value)
    {
        std::memcpy(bytes_.data() + offset, &value, sizeof value);
        return *this;
    }
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

std::uint32_t u32(const std::string& bytes, std::size_t offset)
{
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::string text(const std::string& bytes, std::size_t offset)
{
    return bytes.c_str() + offset;
}

class Model : public testing::Test
{
protected:
    // The result is 0 or an errno; the reply is kept.
    int command(std::uint32_t number, const std::string& input, std::uint32_t room)
    {
        const Answer answer = module.answer(number, std::as_bytes(std::span(input)), room);
        reply.assign(reinterpret_cast<const char*>(answer.reply.data()), answer.reply.size());
        return answer.error;
    }
    int command(std::uint32_t number, const Message& input, std::uint32_t room = 0)
    {
        return command(number, input.bytes(), room);
    }

    Module module;
    std::string reply;
};

TEST(Device, HasTwoPaths)
{
    EXPECT_TRUE(protocol::is_device_path("/pelt/devices/char/zephdriver/kola_lumo"));
    EXPECT_TRUE(protocol::is_device_path("/pelt/devices/char/zephdriver/kola_lumo_ugrade"));
    EXPECT_FALSE(protocol::is_device_path("/pelt/devices/char/zephdriver/kola_lumo_"));
    EXPECT_FALSE(protocol::is_device_path("/pelt/devices/char/zephdriver/kola_lum"));
    EXPECT_FALSE(protocol::is_device_path(""));
}

TEST_F(Model, DoesNotKnowNumbersBeyondTheLast)
{
    for (const std::uint32_t number : {protocol::last_command + 1, 0xffffffffu}) {
        EXPECT_EQ(command(number, Message(), 4), ENOTTY) << number;
        EXPECT_EQ(reply, "");
    }
}

TEST_F(Model, KnowsEveryNumberThatIsAssigned)
{
    const std::set<std::uint32_t> gaps {68, 69, 70, 71, 76, 77, 78, 79, 81, 82, 83, 84, 105, 150};
    const std::set<std::uint32_t> values {7, 10, 12, 14, 160};
    const std::set<std::uint32_t> without_input {9, 11, 13, 42, 85, 151, 159};
    for (std::uint32_t number = 0; number <= 160; ++number) {
        const std::size_t size = values.count(number) > 0 ? 4 : without_input.count(number) > 0 ? 0 : 776;
        const int right = command(number, Message(size), 0xffffffff);
        EXPECT_EQ(right == ENOTTY, gaps.count(number) > 0) << number;
        EXPECT_EQ(command(number, Message(size + 1), 0xffffffff), gaps.count(number) > 0 ? ENOTTY : EINVAL) << number;
    }
}

TEST_F(Model, KeepsTheFourSettings)
{
    struct Setting
    {
        std::uint32_t get;
        std::uint32_t set;
        std::uint32_t initial;
    };
    for (const auto& [get, set, initial] :
        {Setting {9, 10, 4}, Setting {11, 12, 0}, Setting {13, 14, 1}, Setting {159, 160, 1024}}) {
        ASSERT_EQ(command(get, "", 4), 0);
        EXPECT_EQ(u32(reply, 0), initial);
        EXPECT_EQ(command(set, Message(4).u32(0, 0x01020300 + set)), 0);
        EXPECT_EQ(reply, "");
        ASSERT_EQ(command(get, "", 4), 0);
        ASSERT_EQ(reply.size(), 4u);
        EXPECT_EQ(u32(reply, 0), 0x01020300 + set);
    }
}

TEST_F(Model, RefusesInputOfTheWrongLength)
{
    EXPECT_EQ(command(9, "1234", 4), EINVAL);
    EXPECT_EQ(command(10, "", 0), EINVAL);
    EXPECT_EQ(command(10, "12345", 0), EINVAL);
    for (const std::uint32_t number : {0u, 1u, 2u, 3u, 4u}) {
        EXPECT_EQ(command(number, Message(775).text(0, "blue"), 256000), EINVAL);
        EXPECT_EQ(command(number, Message(777).text(0, "blue"), 256000), EINVAL);
        EXPECT_EQ(command(number, "", 256000), EINVAL);
    }
}

TEST_F(Model, RefusesRoomThatIsTooSmall)
{
    EXPECT_EQ(command(9, "", 3), ENOBUFS);
    EXPECT_EQ(reply, "");
    ASSERT_EQ(command(2, Message().text(0, "blue")), 0);
    EXPECT_EQ(command(1, Message().text(0, "blue"), 255), ENOBUFS);
    EXPECT_EQ(command(0, Message(), 255), ENOBUFS);
    EXPECT_EQ(command(0, Message(), 256), 0);
}

TEST_F(Model, KnowsNoInstanceThatWasNotCreated)
{
    for (const std::uint32_t number : {1u, 3u, 4u})
        EXPECT_EQ(command(number, Message().text(0, "blue"), 256), ENOENT) << number;
    EXPECT_EQ(command(0, Message(), 256000), 0);
    EXPECT_EQ(reply, "");
}

TEST_F(Model, ReportsAnInstanceWithAllThatWasSet)
{
    ASSERT_EQ(command(2, Message().text(0, "blue").u32(64, 11).text(140, "00:11:22:33:44:55x").u32(160, 12)), 0);
    ASSERT_EQ(command(4, Message().text(0, "blue").text(68, "knobs").u32(132, 13)), 0);
    ASSERT_EQ(command(1, Message().text(0, "blue"), 256), 0);
    ASSERT_EQ(reply.size(), 256u);
    EXPECT_EQ(text(reply, 0), "blue");
    EXPECT_EQ(u32(reply, 64), 11u);
    EXPECT_EQ(u32(reply, 68), 12u);
    EXPECT_EQ(u32(reply, 78), 13u);
    EXPECT_EQ(reply.substr(97, 13), "00:11:22:33:4");
    EXPECT_EQ(text(reply, 136), "10000000-0000-4000-8000-000000000001");
    EXPECT_EQ(text(reply, 202), "knobs");
}

TEST_F(Model, UpdatesAnInstanceThatExists)
{
    ASSERT_EQ(command(2, Message().text(0, "blue").u32(64, 11).text(140, "text")), 0);
    ASSERT_EQ(command(4, Message().text(0, "blue").text(68, "knobs")), 0);
    ASSERT_EQ(command(2, Message().text(0, "blue").u32(64, 12)), 0);
    ASSERT_EQ(command(0, Message(), 256000), 0);
    ASSERT_EQ(reply.size(), 256u);
    EXPECT_EQ(u32(reply, 64), 12u);
    EXPECT_EQ(reply.substr(97, 13), std::string(13, '\0'));
    EXPECT_EQ(text(reply, 202), "knobs");
}

TEST_F(Model, FindsAnInstanceByItsUuid)
{
    ASSERT_EQ(command(2, Message().text(0, "blue")), 0);
    ASSERT_EQ(command(1, Message().text(0, "blue"), 256), 0);
    const std::string uuid = text(reply, 136);
    ASSERT_EQ(uuid.size(), 36u);
    EXPECT_EQ(command(2, Message().text(0, uuid).u32(64, 5)), 0);
    ASSERT_EQ(command(1, Message().text(0, uuid), 256), 0);
    EXPECT_EQ(text(reply, 0), "blue");
    EXPECT_EQ(u32(reply, 64), 5u);
    EXPECT_EQ(command(3, Message().text(0, uuid)), 0);
    EXPECT_EQ(command(1, Message().text(0, "blue"), 256), ENOENT);
}

TEST_F(Model, KeepsTheUuidOfAnInstanceThatIsCreatedByOne)
{
    const std::string uuid = "01234567-89ab-cdef-0123-456789abcdef";
    ASSERT_EQ(command(2, Message().text(0, uuid)), 0);
    ASSERT_EQ(command(1, Message().text(0, uuid), 256), 0);
    EXPECT_EQ(text(reply, 0), uuid);
    EXPECT_EQ(text(reply, 136), uuid);
    for (const char* name : {"01234567-89AB-cdef-0123-456789abcdef", "01234567x89ab-cdef-0123-456789abcdef"}) {
        ASSERT_EQ(command(2, Message().text(0, name)), 0);
        ASSERT_EQ(command(1, Message().text(0, name), 256), 0);
        EXPECT_NE(text(reply, 136), name);
    }
}

TEST_F(Model, GivesNoTwoInstancesTheSameUuid)
{
    const std::string first = "10000000-0000-4000-8000-000000000001";
    ASSERT_EQ(command(2, Message().text(0, first)), 0);
    ASSERT_EQ(command(2, Message().text(0, "blue")), 0);
    ASSERT_EQ(command(1, Message().text(0, "blue"), 256), 0);
    EXPECT_EQ(text(reply, 136), "10000000-0000-4000-8000-000000000002");
}

TEST_F(Model, ReportsInstancesInTheOrderOfTheirCreation)
{
    for (const char* name : {"c", "a", "b"})
        ASSERT_EQ(command(2, Message().text(0, name)), 0);
    ASSERT_EQ(command(3, Message().text(0, "a")), 0);
    ASSERT_EQ(command(0, Message(), 256000), 0);
    ASSERT_EQ(reply.size(), 512u);
    EXPECT_EQ(text(reply, 0), "c");
    EXPECT_EQ(text(reply, 256), "b");
}

TEST_F(Model, TakesAtMost1000Instances)
{
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(command(2, Message().text(0, std::to_string(i))), 0);
    EXPECT_EQ(command(2, Message().text(0, "one more")), ENOSPC);
    EXPECT_EQ(command(2, Message().text(0, "999")), 0);
    ASSERT_EQ(command(0, Message(), 256000), 0);
    EXPECT_EQ(reply.size(), 256000u);
}

TEST_F(Model, CountsNoSaveThatItCannotReport)
{
    EXPECT_EQ(command(123, Message(), 3), ENOBUFS);
    ASSERT_EQ(command(124, Message(), 4), 0);
    EXPECT_EQ(u32(reply, 0), 0u);
}

TEST_F(Model, UpdatesAPmacWhenThereAreNoMore)
{
    for (std::uint32_t i = 0; i < 13107; ++i)
        ASSERT_EQ(command(74, Message().u32(64, i).u32(68, i)), 0);
    EXPECT_EQ(command(74, Message().u32(68, 13107)), ENOSPC);
    EXPECT_EQ(command(74, Message().u32(64, 4711).u32(68, 0)), 0);
    ASSERT_EQ(command(73, Message(), 131072), 0);
    EXPECT_EQ(reply.size(), 131070u);
    EXPECT_EQ(u32(reply, 6), 4711u);
}

TEST_F(Model, RefusesToCreateAnInstanceWithoutAName)
{
    EXPECT_EQ(command(2, Message()), EINVAL);
}

} // namespace
