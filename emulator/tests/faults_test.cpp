// Faults by themselves: what texts say, which commands they strike, and what they make of replies.
#include "emulator/faults/faults.h"
#include "emulator/protocol/commands.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <gmock/gmock.h>
#include <limits>
#include <set>
#include <string>
#include <vector>

using namespace emulator;
using protocol::number_of;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace emulator {

void PrintTo(const Effect& effect, std::ostream* out)
{
    *out << "kind " << static_cast<int>(effect.kind) << ", number " << effect.number;
}

bool operator==(const Effect& left, const Effect& right)
{
    return left.kind == right.kind && left.number == right.number;
}

} // namespace emulator

namespace {

using Kind = Effect::Kind;

constexpr std::uint32_t get_lifs = number_of("GetLifs");

std::string refusal_of(const std::string& text)
{
    try {
        parse_fault(text);
    } catch (const FaultError& error) {
        return error.what();
    }
    return "none";
}

TEST(FaultTexts, SayWhatBecomesOfACommand)
{
    const auto effect_in = [](const std::string& what) { return parse_fault("GetRoutes=" + what).effect; };
    EXPECT_EQ(effect_in("ENODEV"), (Effect {Kind::Error, ENODEV}));
    EXPECT_EQ(effect_in("EHWPOISON"), (Effect {Kind::Error, EHWPOISON}));
    EXPECT_EQ(effect_in("EWOULDBLOCK"), (Effect {Kind::Error, EAGAIN}));
    EXPECT_EQ(effect_in("ENOTSUP"), (Effect {Kind::Error, EOPNOTSUPP}));
    EXPECT_EQ(effect_in("EOPNOTSUPP"), (Effect {Kind::Error, EOPNOTSUPP}));
    EXPECT_EQ(effect_in("short:100"), (Effect {Kind::Short, 100}));
    EXPECT_EQ(effect_in("short:0"), (Effect {Kind::Short, 0}));
    EXPECT_EQ(effect_in("fragment"), (Effect {Kind::Fragment}));
    EXPECT_EQ(effect_in("long"), (Effect {Kind::Long}));
    EXPECT_EQ(effect_in("garbage"), (Effect {Kind::Garbage}));
    EXPECT_EQ(effect_in("count:255"), (Effect {Kind::Count, 255}));
    EXPECT_EQ(effect_in("delay:50ms"), (Effect {Kind::Delay, 50000000}));
    EXPECT_EQ(effect_in("delay:1.5s"), (Effect {Kind::Delay, 1500000000}));
    EXPECT_EQ(effect_in("delay:20us"), (Effect {Kind::Delay, 20000}));
    EXPECT_EQ(effect_in("delay:7ns"), (Effect {Kind::Delay, 7}));
    EXPECT_EQ(effect_in("delay:86400s"), (Effect {Kind::Delay, 86400000000000}));
    EXPECT_EQ(effect_in("hang"), (Effect {Kind::Hang}));
}

TEST(FaultTexts, NameCommandsByNamesPatternsAndNumbers)
{
    const auto commands_in = [](const std::string& whom) { return parse_fault(whom + "=EIO").commands; };
    EXPECT_THAT(commands_in("GetLifs"), ElementsAre(21));
    EXPECT_THAT(commands_in("21"), ElementsAre(21));
    EXPECT_THAT(commands_in("0"), ElementsAre(0));
    EXPECT_THAT(commands_in("GetLif*"), ElementsAre(21, 22, 23, 140, 146));
    EXPECT_THAT(commands_in("*Arp*v6"), ElementsAre(112, 113, 116, 117));
    EXPECT_THAT(commands_in("G*e*Level*"), ElementsAre(9, 11, 13));
    std::set<std::uint32_t> all;
    for (const protocol::Chapter& chapter : protocol::chapters)
        for (const protocol::Command& command : chapter.commands)
            all.insert(command.number);
    EXPECT_THAT(commands_in("any"), testing::ElementsAreArray(all));
    EXPECT_THAT(commands_in("*"), testing::ElementsAreArray(all));
    EXPECT_FALSE(parse_fault("any=EIO").is_of_opens);
    EXPECT_TRUE(parse_fault("open=EIO").is_of_opens);
    EXPECT_THAT(commands_in("open"), SizeIs(0));
}

TEST(FaultTexts, AboutRepliesAreOfTheCommandsThatHaveThem)
{
    EXPECT_THAT(parse_fault("*Policy=short:4").commands, ElementsAre(119, 120, 121, 141, 142));
    EXPECT_THAT(parse_fault("*RoutingOn=EIO").commands, ElementsAre(125));
    // Those that have a count in their reply, and one that holds the number.
    EXPECT_THAT(
        parse_fault("any=count:255").commands, ElementsAre(21, 22, 36, 37, 59, 60, 115, 122, 129, 140, 146, 153));
    EXPECT_THAT(parse_fault("any=count:256").commands, ElementsAre(21, 22, 59, 60, 115, 122, 129, 146, 153));
    EXPECT_THAT(parse_fault("any=count:4294967295").commands, ElementsAre(21, 22, 59, 60, 115, 122, 129, 153));
}

TEST(FaultTexts, SayWhichOfTheCommands)
{
    const auto range_in = [](const std::string& which) {
        const Fault fault = parse_fault("any" + which + "=EIO");
        return std::pair(fault.first, fault.last);
    };
    constexpr std::uint64_t no_end = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(range_in(""), std::pair(std::uint64_t {1}, no_end));
    EXPECT_EQ(range_in("#2"), (std::pair<std::uint64_t, std::uint64_t>(2, 2)));
    EXPECT_EQ(range_in("#3-5"), (std::pair<std::uint64_t, std::uint64_t>(3, 5)));
    EXPECT_EQ(range_in("#3-"), std::pair(std::uint64_t {3}, no_end));
    EXPECT_EQ(parse_fault("any%0.01=EIO").probability, certain / 100);
    EXPECT_EQ(parse_fault("any%1=EIO").probability, certain);
    EXPECT_EQ(parse_fault("any#7-9%0.5=EIO").probability, certain / 2);
}

TEST(FaultTexts, AreRefusedWhereTheyAreWrong)
{
    struct Mistake
    {
        const char* text;
        int column;
        const char* why;
    };
    constexpr const char* effects =
        "expected an errno such as EIO, short:BYTES, fragment, long, garbage, count:NUMBER, delay:TIME or hang";
    for (const auto& [text, column, why] : {
             Mistake {"", 1, "expected the name or number of a command, any or open"},
             {"=EIO", 1, "expected the name or number of a command, any or open"},
             {" GetLifs=EIO", 1, "expected the name or number of a command, any or open"},
             {"GetLif5=EIO", 1, "expected the name or number of a command: there is none of this"},
             {"getlifs=EIO", 1, "expected the name or number of a command: there is none of this"},
             {"70=EIO", 1, "expected the name or number of a command: there is none of this"},
             {"161=EIO", 1, "expected the name or number of a command: there is none of this"},
             {"021=EIO", 1, "expected the name or number of a command: there is none of this"},
             {"GetLifs", 8, "expected #, % or ="},
             {"GetLifs?=EIO", 8, "expected #, % or ="},
             {"GetLifs =EIO", 8, "expected #, % or ="},
             {"GetLifs#=EIO", 9, "expected which of these commands, from 1 on"},
             {"GetLifs#0=EIO", 9, "expected which of these commands, from 1 on"},
             {"GetLifs#-3=EIO", 9, "expected which of these commands, from 1 on"},
             {"GetLifs#18446744073709551617=EIO", 9, "expected which of these commands, from 1 on"},
             {"GetLifs#3-2=EIO", 11, "expected a number that is not below the first one"},
             {"GetLifs#3+=EIO", 10, "expected % or ="},
             {"GetLifs%=EIO", 9, "expected a probability above 0, and up to 1"},
             {"GetLifs%0=EIO", 9, "expected a probability above 0, and up to 1"},
             {"GetLifs%1.1=EIO", 9, "expected a probability above 0, and up to 1"},
             {"GetLifs%0.=EIO", 11, "expected one to nine decimals"},
             {"GetLifs%0.0000000001=EIO", 11, "expected one to nine decimals"},
             {"GetLifs%1#2=EIO", 10, "expected ="},
             {"GetLifs=", 9, effects},
             {"GetLifs=EIOU", 9, effects},
             {"GetLifs=5", 9, effects},
             {"GetLifs=Short:5", 9, effects},
             {"GetLifs=EIO ", 12, "expected the end"},
             {"GetLifs=hang:1s", 13, "expected the end"},
             {"GetLifs=short", 14, "expected :BYTES"},
             {"GetLifs=short:", 15, "expected a number of bytes"},
             {"GetLifs=short:-1", 15, "expected a number of bytes"},
             {"GetLifs=short:4294967296", 15, "expected a number of bytes"},
             {"GetLifs=count", 14, "expected :NUMBER"},
             {"GetLifs=count:4294967296", 15, "expected a number of 32 bits"},
             {"GetLifs=delay", 14, "expected :TIME"},
             {"GetLifs=delay:s", 15, "expected a time, such as 50ms"},
             {"GetLifs=delay:50", 17, "expected s, ms, us or ns"},
             {"GetLifs=delay:50m", 17, "expected s, ms, us or ns"},
             {"GetLifs=delay:86401s", 15, "expected a time of at most a day"},
             {"SetLif=garbage", 8, "expected an errno, delay:TIME or hang: the command has no reply"},
             {"open=short:1", 6, "expected an errno, delay:TIME or hang: an open has no reply"},
             {"GetInstances=count:1", 14, "expected something else: no count in the reply can be this number"},
             {"GetRoutes=count:256", 11, "expected something else: no count in the reply can be this number"},
         })
        EXPECT_EQ(refusal_of(text), "column " + std::to_string(column) + " of '" + text + "': " + why);
}

// Which of the next commands of a number are struck.
std::string struck(Faults& faults, int commands, std::uint32_t number = get_lifs)
{
    std::string which;
    for (int i = 0; i < commands; ++i)
        which += faults.of_command(number).effect ? '!' : '.';
    return which;
}

TEST(StruckCommands, AreCountedByEachFaultFromWhenItWasAdded)
{
    Faults faults;
    EXPECT_EQ(struck(faults, 2), "..");
    faults.add("GetLifs#2=ENODEV");
    EXPECT_EQ(struck(faults, 1), ".");
    faults.add("Get*#3-5=EBUSY");
    EXPECT_EQ(struck(faults, 3, number_of("SetLif")), "...");
    EXPECT_EQ(struck(faults, 2), "!."); // by the first one; 2 for the second one
    EXPECT_EQ(struck(faults, 1, number_of("GetLif")), "!");
    EXPECT_EQ(struck(faults, 4), "!!..");
    faults.add("GetLifs#3-=EBUSY");
    EXPECT_EQ(struck(faults, 5), "..!!!");
    faults.clear();
    EXPECT_EQ(struck(faults, 3), "...");
    EXPECT_EQ(faults.list(), "");
}

TEST(StruckCommands, AreOfTheFirstFaultAndOfAllDelays)
{
    Faults faults;
    for (const char* text : {"any=delay:5ms", "GetLifs=EIO", "Get*=EBUSY", "GetLifs=hang", "*s#2=delay:1ms"})
        faults.add(text);
    EXPECT_EQ(faults.list(), "any=delay:5ms\nGetLifs=EIO\nGet*=EBUSY\nGetLifs=hang\n*s#2=delay:1ms\n");
    const Fate first = faults.of_command(get_lifs);
    EXPECT_EQ(first.delay, milliseconds(5));
    EXPECT_EQ(first.error(), EIO);
    EXPECT_FALSE(first.hangs);
    EXPECT_EQ(faults.of_command(get_lifs).delay, milliseconds(6));
    const Fate another = faults.of_command(number_of("GetLif"));
    EXPECT_EQ(another.error(), EBUSY);
    EXPECT_TRUE(another.waits());
    const Fate third = faults.of_command(number_of("SetLif"));
    EXPECT_EQ(third.error(), 0);
    EXPECT_FALSE(third.effect);
}

TEST(StruckCommands, MayHang)
{
    Faults faults;
    faults.add("GetLifs=hang");
    faults.add("GetLifs=EIO");
    const Fate fate = faults.of_command(get_lifs);
    EXPECT_TRUE(fate.hangs);
    EXPECT_TRUE(fate.waits());
    EXPECT_FALSE(fate.effect);
}

TEST(StruckCommands, AreTheSameForTheSameSeed)
{
    const auto which = [](std::uint64_t seed, const std::vector<std::string>& texts) {
        Faults faults(seed);
        for (const std::string& text : texts)
            faults.add(text);
        return struck(faults, 1000);
    };
    const std::string once = which(7, {"any%0.1=EIO"});
    EXPECT_EQ(which(7, {"any%0.1=EIO"}), once);
    EXPECT_NE(which(8, {"any%0.1=EIO"}), once);
    // Whatever is added later.
    EXPECT_EQ(which(7, {"any%0.1=EIO", "SetLif%0.5=EIO"}), once);
    const auto strikes = std::count(once.begin(), once.end(), '!');
    EXPECT_GT(strikes, 60);
    EXPECT_LT(strikes, 140);

    Faults faults(7);
    faults.add("any%0.1=EIO");
    struck(faults, 100);
    faults.clear();
    faults.add("any%0.1=EIO");
    EXPECT_EQ(struck(faults, 1000), once);
}

TEST(StruckCommands, OfSeveralFaultsAtRandomHaveNothingInCommon)
{
    Faults faults;
    faults.add("any%0.5=EIO");
    faults.add("any%0.5=EBUSY");
    std::multiset<int> errors;
    for (int i = 0; i < 1000; ++i)
        errors.insert(faults.of_command(get_lifs).error());
    EXPECT_NEAR(static_cast<double>(errors.count(EIO)), 500, 80);
    EXPECT_NEAR(static_cast<double>(errors.count(EBUSY)), 250, 60);
}

TEST(StruckOpens, AreThoseThatAreSeen)
{
    Faults faults(0, Opens::Seen);
    faults.add("open#2=EACCES");
    faults.add("any=EIO");
    EXPECT_EQ(faults.of_open().error(), 0);
    EXPECT_EQ(faults.of_command(get_lifs).error(), EIO);
    EXPECT_EQ(faults.of_open().error(), EACCES);

    Faults blind;
    blind.add("any=EIO");
    EXPECT_THROW(blind.add("open=EACCES"), FaultError);
    EXPECT_EQ(blind.list(), "any=EIO\n");
}

TEST(RefusedFaults, ChangeNothing)
{
    Faults faults;
    faults.add("GetLifs=EIO");
    EXPECT_THROW(faults.add("GetLifs=EIOU"), FaultError);
    EXPECT_EQ(faults.list(), "GetLifs=EIO\n");
}

constexpr std::uint32_t room = 256000;

// What a module answers to a command of this number under one fault.
Answer spoilt(Module& module, const std::string& what, std::uint32_t number = 0, std::uint32_t size = room)
{
    Faults faults(3);
    faults.add(std::to_string(number) + "=" + what);
    const std::string input(number == 0 ? 776 : 0, '\0');
    return answer(module, faults.of_command(number), number, std::as_bytes(std::span(input)), size);
}

// A module with three instances, whose records are of 256 bytes.
class SpoiltReplies : public testing::Test
{
protected:
    SpoiltReplies()
    {
        for (const std::string name : {"red", "green", "blue"}) {
            std::string request(776, '\0');
            request.replace(0, name.size(), name);
            EXPECT_EQ(module.answer(2, std::as_bytes(std::span(request)), 0).error, 0);
        }
        whole = module.answer(0, std::vector<std::byte>(776), room);
    }

    Module module;
    Answer whole;
};

TEST_F(SpoiltReplies, AreCut)
{
    EXPECT_THAT(whole.reply, SizeIs(3 * 256));
    const Answer cut = spoilt(module, "short:100");
    EXPECT_THAT(cut.reply, testing::ElementsAreArray(whole.reply.begin(), whole.reply.begin() + 100));
    EXPECT_EQ(cut.length(), 100u);
    EXPECT_EQ(spoilt(module, "short:1000").reply, whole.reply);
    EXPECT_THAT(spoilt(module, "short:0").reply, SizeIs(0));
}

TEST_F(SpoiltReplies, EndInTheMiddleOfARecord)
{
    const Answer broken = spoilt(module, "fragment");
    EXPECT_THAT(broken.reply, testing::ElementsAreArray(whole.reply.begin(), whole.reply.begin() + 2 * 256 + 128));
    EXPECT_EQ(broken.length(), 640u);
    Module empty;
    EXPECT_EQ(spoilt(empty, "fragment").reply, std::vector<std::byte>(128));
    EXPECT_EQ(spoilt(empty, "fragment", 0, 100).reply, std::vector<std::byte>(100));
    EXPECT_THAT(spoilt(module, "fragment", 9, 4).reply, SizeIs(2));
}

TEST_F(SpoiltReplies, FillTheRoomThatIsSaidToBeTooSmall)
{
    const Answer longer = spoilt(module, "long");
    EXPECT_THAT(longer.reply, SizeIs(room));
    EXPECT_TRUE(std::equal(whole.reply.begin(), whole.reply.end(), longer.reply.begin()));
    EXPECT_EQ(longer.length(), room + 256);
    // No more than the module could ever say.
    const Answer largest = spoilt(module, "long", 0, 0xffffffff);
    EXPECT_THAT(largest.reply, SizeIs(1001 * 256));
    EXPECT_EQ(largest.length(), 0xffffffff);
}

TEST_F(SpoiltReplies, AreBytesAtRandomOfTheSameLength)
{
    const Answer garbage = spoilt(module, "garbage");
    EXPECT_THAT(garbage.reply, SizeIs(whole.reply.size()));
    EXPECT_NE(garbage.reply, whole.reply);
    EXPECT_EQ(garbage.reply, spoilt(module, "garbage").reply);
    std::set<std::byte> different(garbage.reply.begin(), garbage.reply.end());
    EXPECT_GT(different.size(), 200u);
    EXPECT_THAT(spoilt(module, "garbage", 9, 4).reply, SizeIs(4));
}

TEST_F(SpoiltReplies, AreNotThereIfTheModuleRefuses)
{
    for (const char* what : {"short:1", "fragment", "long", "garbage"}) {
        const Answer refused = spoilt(module, what, 0, 100);
        EXPECT_EQ(refused.error, ENOBUFS) << what;
        EXPECT_THAT(refused.reply, SizeIs(0));
    }
}

} // namespace
