// Lines of a batch, as a shell would take them apart.
#include "tool/batch.h"

#include "tool/mistakes.h"

#include <gmock/gmock.h>

using namespace tool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

TEST(Lines, AreTakenApartAtBlanks)
{
    EXPECT_THAT(words_of("route list  blue\t-j\n"), ElementsAre("route", "list", "blue", "-j"));
    EXPECT_THAT(words_of("route list blue\r\n"), ElementsAre("route", "list", "blue"));
    EXPECT_THAT(words_of(" \t\n"), IsEmpty());
}

TEST(Lines, KeepInOneWordWhatIsQuoted)
{
    EXPECT_THAT(words_of(R"(a 'b c' "d e" f\ g)"), ElementsAre("a", "b c", "d e", "f g"));
    EXPECT_THAT(words_of(R"(name='b c'd)"), ElementsAre("name=b cd"));
    EXPECT_THAT(words_of(R"('' "")"), ElementsAre("", ""));
    EXPECT_THAT(words_of(R"("a 'b' \"c\" \\ \d" 'a "b" \')"), ElementsAre(R"(a 'b' "c" \ \d)", R"(a "b" \)"));
}

TEST(Lines, EndWithTheirComment)
{
    EXPECT_THAT(words_of("# all of it"), IsEmpty());
    EXPECT_THAT(words_of("a # the rest"), ElementsAre("a"));
    EXPECT_THAT(words_of("a#b '#c' \\#d"), ElementsAre("a#b", "#c", "#d"));
}

TEST(Lines, DoNotGoOnInTheNext)
{
    for (const char* const line : {"a \\\n", "a \\\r\n", "a b\\", "\\"})
        EXPECT_THAT([line] { words_of(line); }, ThrowsMessage<Misuse>(HasSubstr("the backslash at its end"))) << line;
    EXPECT_THAT(words_of("a '\\'\n"), ElementsAre("a", "\\"));
    EXPECT_THAT(words_of("a # b \\\n"), ElementsAre("a"));
    EXPECT_THAT(words_of("a \\\\\n"), ElementsAre("a", "\\"));
}

TEST(Lines, HaveNoU0000)
{
    using namespace std::string_view_literals;
    for (const std::string_view line : {"a \"b\0c\"\n"sv, "a # \0\n"sv, "\0"sv})
        EXPECT_THAT([line] { words_of(line); }, ThrowsMessage<Misuse>(HasSubstr("U+0000"))) << line;
}

TEST(Lines, MustCloseTheirQuotes)
{
    EXPECT_THAT([] { words_of("a 'b"); }, ThrowsMessage<Misuse>(HasSubstr("the quote ' is not closed")));
    EXPECT_THAT([] { words_of("a \"b'"); }, ThrowsMessage<Misuse>(HasSubstr("the quote \" is not closed")));
}
