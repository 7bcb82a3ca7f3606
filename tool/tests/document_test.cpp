#include "tool/state/document.h"

#include "tool/mistakes.h"

#include <gmock/gmock.h>

using namespace tool;
using testing::HasSubstr;
using testing::ThrowsMessage;

namespace {

Value parsed(std::string_view text)
{
    return parse_document(text, "file");
}

std::string printed(const Value& value)
{
    return print_document(value, Spacing::OneLine);
}

TEST(document, is_what_was_printed)
{
    const std::string text = R"({"a":[1,-2,18446744073709551615],"b":{},"c":null,"d":true,"e":"x\"\\\u0007","f":[]})"
                             "\n";
    EXPECT_EQ(printed(parsed(text)), text);
}

TEST(document, is_ordered_by_names)
{
    EXPECT_EQ(printed(parsed(R"({"b": 1, "a": 2})")), "{\"a\":2,\"b\":1}\n");
}

TEST(document, knows_characters_by_their_numbers)
{
    EXPECT_EQ(parsed(R"("\u0041\u00e9\u20ac\ud83d\ude00\/\n")").text, "A\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80/\n");
}

TEST(document, has_any_byte_in_a_text)
{
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    const std::string text = printed(Value::string(bytes));
    EXPECT_THAT(text, HasSubstr("\\udc80"));
    EXPECT_EQ(parsed(text).text, bytes);
    EXPECT_EQ(printed(Value::string("\xed\xa0\x80")), "\"\\udced\\udca0\\udc80\"\n");
    EXPECT_EQ(printed(Value::string("\xc0\xaf")), "\"\\udcc0\\udcaf\"\n");
}

TEST(document, says_where_its_values_stand)
{
    const Value value = parsed("{\n  \"a\": {\"b\":\n 7}}");
    EXPECT_EQ(value.find("a")->line, 2U);
    EXPECT_EQ(value.find("a")->column, 3U);
    EXPECT_EQ(value.find("a")->find("b")->column, 9U);
}

TEST(document, says_what_was_expected_where)
{
    const auto refuses = [](std::string_view text, const char* why) {
        EXPECT_THAT([text] { parsed(text); }, ThrowsMessage<Misuse>(HasSubstr(why))) << text;
    };
    refuses("", "file:1:1: expected a value, found the end of the file");
    refuses("{\"a\" 1}", "file:1:6: expected ':', found '1'");
    refuses("{a: 1}", "file:1:2: expected a name in quotes, found 'a'");
    refuses("{\"a\": 1,\n \"a\": 2}", "file:2:2: expected a name other than \"a\"");
    refuses("[1 2]", "file:1:4: expected ',' or ']', found '2'");
    refuses("[1] x", "file:1:5: expected the end of the file, found 'x'");
    refuses("[01]", "expected a number that does not begin with 0");
    refuses("[1e3]", "expected a whole number without an exponent");
    refuses("[-]", "expected a digit");
    refuses("\"a\n\"", "expected '\"', found the byte 0a");
    refuses("\"\\x\"", "expected one of");
    refuses("\"\\u12g4\"", "expected four hexadecimal digits");
    refuses("\"\\ud800\"", "expected the second half of a surrogate pair");
    refuses("\"\xff\"", "expected UTF-8, found the byte ff");
    refuses(std::string(65, '['), "expected a document that is not so deep");
}

} // namespace
