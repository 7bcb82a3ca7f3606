// The device call: which device, which system calls, whose errno.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using testing::ElementsAre;

namespace {

constexpr char normal[] = "/pelt/devices/char/zephdriver/kola_lumo";
constexpr char upgrade[] = "/pelt/devices/char/zephdriver/kola_lumo_ugrade";

Call issue(Device& device, std::int32_t command, const System& system = {})
{
    LumoEnvelope envelope {};
    return observe(device, system, [&] { return LUMOZEPHIoctl(command, &envelope); });
}

TEST(Ioctl, OpensTheDeviceReadWriteIssuesTheCommandAndCloses)
{
    ScriptedDevice device;
    const Call call = issue(device, 21);
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(
        call.events, ElementsAre("getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000",
                         "ioctl(5000, 21)", "close(5000)"));
    EXPECT_EQ(call.error, untouched);
}

TEST(Ioctl, UsesTheUpgradeDeviceWhenTheSwitchIsPresentWhateverItsValue)
{
    for (const char* value : {"", "0", "no", "1"}) {
        ScriptedDevice device;
        const Call call = issue(device, 9, {.upgrade_switch = value});
        EXPECT_THAT(call, Succeeds());
        EXPECT_EQ(call.sent.at(0).path, upgrade) << value;
    }
    ScriptedDevice device;
    EXPECT_EQ(issue(device, 9).sent.at(0).path, normal);
}

TEST(Ioctl, LooksTheSwitchUpOnEveryCall)
{
    ScriptedDevice device;
    EXPECT_EQ(issue(device, 9, {.upgrade_switch = ""}).sent.at(0).path, upgrade);
    EXPECT_EQ(issue(device, 9).sent.at(0).path, normal);
    EXPECT_EQ(issue(device, 9, {.upgrade_switch = "x"}).sent.at(0).path, upgrade);
}

TEST(Ioctl, PassesTheCommandNumberSignExtendedAndUnchecked)
{
    for (const std::int32_t command : {0, 70, 160, 161, INT32_MAX, -1, INT32_MIN}) {
        ScriptedDevice device;
        const Call call = issue(device, command);
        EXPECT_THAT(call, Succeeds());
        EXPECT_EQ(call.sent.at(0).number, static_cast<unsigned long>(static_cast<long>(command)));
    }
}

TEST(Ioctl, HandsTheCallersEnvelopeToTheDeviceAndTheReportedLengthBack)
{
    ScriptedDevice device(reports("abc", 4711));
    char in[5] = {1, 2, 3, 4, 5};
    char out[8] = {};
    LumoEnvelope envelope {sizeof in, in, sizeof out, out};
    const Call call = observe(device, [&] { return LUMOZEPHIoctl(1, &envelope); });
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).in_len, 5u);
    EXPECT_EQ(call.sent.at(0).in_ptr, reinterpret_cast<std::uint64_t>(in));
    EXPECT_EQ(call.sent.at(0).out_len, 8u);
    EXPECT_EQ(call.sent.at(0).out_ptr, reinterpret_cast<std::uint64_t>(out));
    EXPECT_STREQ(out, "abc");
    EXPECT_EQ(envelope.outLen, 4711u);
}

TEST(Ioctl, FailsWithTheErrnoOfAFailedOpenAndClosesNothing)
{
    ScriptedDevice device;
    const Call call = issue(device, 9, {.open_error = ENOENT});
    EXPECT_THAT(call, Fails(ENOENT));
    EXPECT_THAT(
        call.events, ElementsAre("getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = -1"));
}

TEST(Ioctl, ClosesTheDeviceBeforeFailingWithTheErrnoOfTheIoctl)
{
    ScriptedDevice device(fails(EPERM));
    const Call call = issue(device, 9);
    EXPECT_THAT(call, Fails(EPERM));
    EXPECT_EQ(call.events.back(), "close(5000)");
}

TEST(Ioctl, LetsAFailingCloseChangeTheErrnoOfAFailedIoctl)
{
    ScriptedDevice device(fails(EPERM));
    EXPECT_THAT(issue(device, 9, {.close_error = EIO}), Fails(EIO));
}

TEST(Ioctl, SucceedsAlsoWhenTheCloseFails)
{
    ScriptedDevice device;
    EXPECT_THAT(issue(device, 9, {.close_error = EIO}), Succeeds());
}

TEST(Envelope, LiesAsTheModuleReadsIt)
{
    EXPECT_EQ(sizeof(LumoEnvelope), 24u);
    EXPECT_EQ(offsetof(LumoEnvelope, inLen), 0u);
    EXPECT_EQ(offsetof(LumoEnvelope, inPtr), 4u);
    EXPECT_EQ(offsetof(LumoEnvelope, outLen), 12u);
    EXPECT_EQ(offsetof(LumoEnvelope, outPtr), 16u);
}

Bytes key_of(const char* text)
{
    Bytes key(66, '\x7e');
    ScriptedDevice device;
    const Call call = observe(device, [&] { return LUMOZEPHGetUuidOrName(text, key.data() + 1); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call, DoesNothing());
    EXPECT_EQ(key.front(), '\x7e');
    EXPECT_EQ(key.back(), '\x7e');
    return key.substr(1, 64);
}

Bytes padded(Bytes text)
{
    text.resize(64, '\0');
    return text;
}

TEST(GetUuidOrName, KeepsANameAsTheKey)
{
    EXPECT_EQ(key_of("router-1"), padded("router-1"));
}

TEST(GetUuidOrName, KeepsAUuidTextAsTheKeyAlsoWhenItIsWellFormed)
{
    EXPECT_EQ(key_of("00112233-4455-6677-8899-aabbccddeeff"), padded("00112233-4455-6677-8899-aabbccddeeff"));
    EXPECT_EQ(key_of("00112233-4455-6677-8899-AABBCCDDEEFF"), padded("00112233-4455-6677-8899-AABBCCDDEEFF"));
}

TEST(GetUuidOrName, TreatsAMalformedUuidTextAsAName)
{
    EXPECT_EQ(key_of("00112233-4455-6677-8899"), padded("00112233-4455-6677-8899"));
    EXPECT_EQ(key_of("zz112233-4455-6677-8899-aabbccddeeff"), padded("zz112233-4455-6677-8899-aabbccddeeff"));
}

TEST(GetUuidOrName, GivesAnEmptyKeyForAnEmptyText)
{
    EXPECT_EQ(key_of(""), Bytes(64, '\0'));
}

TEST(GetUuidOrName, LeavesATextThatIsTheKeyAlready)
{
    Bytes key = padded("router-1");
    ScriptedDevice device;
    EXPECT_THAT(observe(device, [&] { return LUMOZEPHGetUuidOrName(key.data(), key.data()); }), Succeeds());
    EXPECT_EQ(key, padded("router-1"));
}

TEST(GetUuidOrName, CutsALongTextTo63Bytes)
{
    const Bytes text(64, 'n');
    EXPECT_EQ(key_of(text.c_str()), padded(Bytes(63, 'n')));
    EXPECT_EQ(key_of(Bytes(63, 'm').c_str()), padded(Bytes(63, 'm')));
}

} // namespace
