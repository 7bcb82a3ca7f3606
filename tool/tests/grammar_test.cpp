// The grammar of objects and verbs, against the operations of the library.
#include "tool/grammar.h"

#include "tool/layouts.h"
#include "tool/mistakes.h"
#include "tool/own_verbs.h"
#include "tool/pattern.h"
#include "tool/tests/samples.h"
#include "tool/words.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <set>

using namespace tool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::ThrowsMessage;

namespace tool {

bool operator==(const Given& a, const Given& b)
{
    return a.name == b.name && a.value == b.value;
}

void PrintTo(const Given& given, std::ostream* out)
{
    *out << given.name << '=' << given.value;
}

} // namespace tool

namespace {

std::vector<const Verb*> all_verbs()
{
    std::vector<const Verb*> verbs;
    for (const Object& object : known_objects())
        for (const Verb& verb : object.verbs)
            verbs.push_back(&verb);
    return verbs;
}

std::vector<std::string> words(std::initializer_list<const char*> list)
{
    return {list.begin(), list.end()};
}

Step only(std::initializer_list<const char*> list, bool prefer_ipv6 = false)
{
    const std::vector<Step> steps = understand(words(list), prefer_ipv6);
    EXPECT_THAT(steps, SizeIs(1));
    return steps.front();
}

auto understanding(std::initializer_list<const char*> list)
{
    return [list = words(list)] { understand(list, false); };
}

} // namespace

TEST(Operations, AreThoseOfTheHeader)
{
    EXPECT_THAT(operations(), SizeIs(146));
}

TEST(Operations, HaveAVerbEach)
{
    std::set<std::string_view> reached;
    for (const Verb* const verb : all_verbs())
        reached.insert(verb->operation);
    for (const Operation& operation : operations())
        EXPECT_TRUE(reached.contains(operation.name)) << operation.name;
}

TEST(Verbs, NameAnOperationAndItsParameters)
{
    for (const Verb* const verb : all_verbs()) {
        const Operation* const operation = find_operation(verb->operation);
        ASSERT_TRUE(operation) << verb->operation;
        for (const std::string& name : Pattern(verb->form).parameters()) {
            const auto is_meant = [&](const Parameter& one) { return one.name == name || one.address == name; };
            EXPECT_TRUE(std::ranges::any_of(operation->parameters, is_meant)) << verb->words << ": " << name;
        }
    }
}

TEST(Verbs, NeedNoMoreThanTheirFormDemands)
{
    for (const Verb* const verb : all_verbs()) {
        const Operation& operation = *find_operation(verb->operation);
        const Pattern pattern(verb->form);
        std::vector<Given> given;
        for (const std::string& name : pattern.demanded()) {
            const auto is_meant = [&](const Parameter& one) { return one.name == name || one.address == name; };
            given.push_back({name, sample(*std::ranges::find_if(operation.parameters, is_meant))});
        }
        for (const std::string_view part : split(verb->implied, ' '))
            given.push_back(
                {std::string(part.substr(0, part.find('='))), std::string(part.substr(part.find('=') + 1))});
        EXPECT_NO_THROW(arguments_of(operation, given, Completeness::OrElseNothing, AddressOrder::Network))
            << verb->words;
    }
}

TEST(Verbs, ShowFieldsThatThereAre)
{
    for (const Verb* const verb : all_verbs()) {
        const Operation& operation = *find_operation(verb->operation);
        const RawLayout* const layout = find_layout(operation.name);
        for (const std::string_view name : split(verb->fields, ',')) {
            ASSERT_TRUE(operation.record || layout) << verb->words;
            EXPECT_TRUE((layout ? layout->record : *operation.record).find(name)) << verb->words << ": " << name;
        }
    }
}

TEST(Verbs, AreNotTheBeginningOfOthers)
{
    for (const Verb* const one : all_verbs())
        for (const Verb* const other : all_verbs())
            EXPECT_FALSE(other->words.starts_with(std::string(one->words) + " ")) << one->words << ", " << other->words;
}

TEST(Understanding, TakesPlacesAndKeywordsInAnyOrder)
{
    const Step step = only({"route", "add", "blue", "10.0.0.0/8", "dev", "eth0", "via", "10.1.1.1"});
    EXPECT_EQ(step.operation->name, "SetRoute");
    EXPECT_THAT(step.given, ElementsAre(Given {"instance", "blue"}, Given {"dest", "10.0.0.0"}, Given {"mask", "8"},
                                Given {"lif", "eth0"}, Given {"gateway", "10.1.1.1"}));
}

TEST(Understanding, TakesShortWordsForTheFirstThatBeginsSo)
{
    EXPECT_EQ(only({"r", "l", "blue"}).operation->name, "GetRoutes");
    EXPECT_EQ(only({"i", "s", "blue"}).operation->name, "GetInstance");
    EXPECT_EQ(only({"bfd", "connection", "p", "p1"}).operation->name, "PlumbBFDPortConnection");
}

TEST(Understanding, KnowsIpv6ByTheAddressOrByTheOption)
{
    EXPECT_EQ(only({"route", "add", "blue", "2001:db8::/32"}).operation->name, "SetRoutev6");
    EXPECT_EQ(only({"route", "list", "blue"}, true).operation->name, "GetRoutesv6");
    EXPECT_EQ(only({"route", "list", "blue"}).operation->name, "GetRoutes");
    EXPECT_EQ(only({"neighbour", "add", "blue", "10.0.0.1", "mac", "02:00:00:00:00:01"}).operation->name, "SetArp");
}

TEST(Understanding, TakesAnAddressWithoutALengthForAHostAndDefaultForAll)
{
    EXPECT_THAT(only({"route", "get", "blue", "10.2.3.4"}).given,
        ElementsAre(Given {"instance", "blue"}, Given {"dest", "10.2.3.4"}, Given {"mask", "32"}));
    EXPECT_THAT(only({"route", "add", "blue", "2001:db8::1"}).given,
        ElementsAre(Given {"instance", "blue"}, Given {"dest", "2001:db8::1"}, Given {"prefixLen", "128"}));
    EXPECT_THAT(only({"route", "add", "blue", "default"}).given,
        ElementsAre(Given {"instance", "blue"}, Given {"dest", "0.0.0.0"}, Given {"mask", "0"}));
    EXPECT_THAT(only({"route", "add", "blue", "default"}, true).given,
        ElementsAre(Given {"instance", "blue"}, Given {"dest", "::"}, Given {"prefixLen", "0"}));
}

TEST(Understanding, MakesSeveralOperationsOfWhatIsSet)
{
    const std::vector<std::string> line = words(
        {"lif", "set", "blue", "eth0", "up", "address", "10.0.0.1/24", "mtu", "1400", "address", "2001:db8::1/64"});
    const std::vector<Step> steps = understand(line, false);
    std::vector<std::string_view> names;
    for (const Step& step : steps)
        names.push_back(step.operation->name);
    EXPECT_THAT(names, ElementsAre("EnableLif", "SetLifIp", "RAMTUSetv6", "SetLifIpv6"));
    EXPECT_THAT(steps[1].given, ElementsAre(Given {"instance", "blue"}, Given {"lif", "eth0"},
                                    Given {"address", "10.0.0.1"}, Given {"mask", "24"}));
}

TEST(Understanding, TakesEachKeywordOnceButForIpv6Addresses)
{
    EXPECT_THAT(
        understanding({"route", "add", "blue", "10.0.0.0/8", "via", "10.1.0.9", "dev", "eth0", "via", "10.1.0.8"}),
        ThrowsMessage<Misuse>("'via' is given twice"));
    EXPECT_THAT(understanding({"lif", "set", "blue", "eth0", "mtu", "1500", "m", "1400"}),
        ThrowsMessage<Misuse>("'mtu' is given twice"));
    EXPECT_THAT(understanding({"lif", "set", "blue", "eth0", "up", "down"}),
        ThrowsMessage<Misuse>("'up' and 'down' exclude each other"));
    EXPECT_THAT(understanding({"lif", "set", "blue", "eth0", "down", "mtu", "1500", "up"}),
        ThrowsMessage<Misuse>("'down' and 'up' exclude each other"));
    const std::vector<std::string> both =
        words({"lif", "set", "blue", "eth0", "address", "2001:db8::1/64", "address", "2001:db8::2/64"});
    EXPECT_THAT(understand(both, false), SizeIs(2));
}

TEST(Understanding, ImpliesWhatTheWordsSay)
{
    EXPECT_THAT(only({"cluster", "delete", "c1"}).given, ElementsAre(Given {"key", "c1"}, Given {"on", "0"}));
}

TEST(Understanding, TakesWordsOfTheToolForThoseThatNoObjectHas)
{
    const auto meant = [](std::string_view word) {
        const OwnVerb* const own = find_own_verb(word);
        return own ? own->name : "none";
    };
    for (const OwnVerb& own : own_verbs)
        EXPECT_EQ(meant(own.name), own.name);
    EXPECT_EQ(meant("w"), "watch");
    EXPECT_EQ(meant("me"), "metrics");
    EXPECT_EQ(meant("ca"), "call");
    EXPECT_EQ(meant("h"), "help");
    EXPECT_EQ(meant("com"), "complete");
    for (const char* const word : {"m", "r", "s", "", "watched", "xyzzy"})
        EXPECT_EQ(meant(word), "none") << word;
}

TEST(Understanding, TakesShortObjectsForTheFirstThatBeginsSo)
{
    const auto meant = [](std::string_view word) {
        const Object* const object = find_object(word);
        return object ? object->name : "none";
    };
    for (const Object& object : known_objects())
        EXPECT_EQ(meant(object.name), object.name);
    EXPECT_EQ(meant("rou"), "route");
    EXPECT_EQ(meant("l"), "lif");
    EXPECT_EQ(meant("le"), "level");
    for (const char* const word : {"", "routes", "watch"})
        EXPECT_EQ(meant(word), "none") << word;
}

TEST(Understanding, KnowsWhichOptionsAreHeeded)
{
    for (const char* const option : {"-o", "-6", "--fields", "--address-order", "--timeout"})
        EXPECT_TRUE(takes_option(nullptr, option)) << option;
    EXPECT_FALSE(takes_option(nullptr, "--yes"));
    EXPECT_TRUE(takes_option(find_own_verb("apply"), "--yes"));
    EXPECT_TRUE(takes_option(find_own_verb("apply"), "--timeout"));
    for (const char* const option : {"-o", "-6", "--fields", "--keep-going"})
        EXPECT_FALSE(takes_option(find_own_verb("apply"), option)) << option;
}

TEST(Understanding, TakesFunctionsWithTheirPrefix)
{
    EXPECT_EQ(find_function("LUMOZEPH_SetRoute"), find_operation("SetRoute"));
    EXPECT_EQ(find_function("SetRoute"), find_operation("SetRoute"));
    EXPECT_EQ(find_function("lumozeph_SetRoute"), nullptr);
    EXPECT_EQ(find_function("LUMOZEPH_"), nullptr);
}

TEST(Understanding, NamesVerbsWhateverFollows)
{
    EXPECT_THAT(verbs_named_by(words({"lif", "show", "blue", "eth0", "more"})), SizeIs(1));
    EXPECT_EQ(verbs_named_by(words({"level"})), verbs_under(words({"level"})));
    EXPECT_THAT(
        [] {
            verbs_named_by(words({"lif", "shwo", "blue"}));
        },
        ThrowsMessage<Misuse>("unknown word 'shwo'; did you mean 'show'?"));
}

TEST(Understanding, SaysWhatIsWrong)
{
    EXPECT_THAT(understanding({"wacth"}), ThrowsMessage<Misuse>("unknown word 'wacth'; did you mean 'watch'?"));
    EXPECT_THAT(understanding({"rout", "lst"}), ThrowsMessage<Misuse>("unknown word 'lst'; did you mean 'list'?"));
    EXPECT_THAT(understanding({"lif", "show", "blue"}), ThrowsMessage<Misuse>("<lif> is missing"));
    EXPECT_THAT(understanding({"route", "add", "blue", "10.0.0.0/8", "via"}),
        ThrowsMessage<Misuse>("<gateway> is missing behind 'via'"));
    EXPECT_THAT(understanding({"route", "add", "blue", "10.0.0.0/8", "vie", "10.0.0.1"}),
        ThrowsMessage<Misuse>("'vie' is not expected here; did you mean 'via'?"));
    EXPECT_THAT(understanding({"cluster", "node", "add", "c1", "n1"}), ThrowsMessage<Misuse>("mac <mac> is missing"));
    EXPECT_THAT(understanding({"lif", "set", "blue", "eth0"}), ThrowsMessage<Misuse>("nothing is said to be changed"));
    EXPECT_THAT(understanding({"lif", "set", "blue", "eth0", "address"}),
        ThrowsMessage<Misuse>("<address/mask> is missing behind 'address'"));
    EXPECT_THAT(understanding({"policy"}), ThrowsMessage<Misuse>(HasSubstr("a word is missing: one of list, count")));
    EXPECT_THAT(understanding({"xyzzy"}), ThrowsMessage<Misuse>("unknown word 'xyzzy'"));
}
