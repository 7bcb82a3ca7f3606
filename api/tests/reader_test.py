"""The description of a small header, and what is said of mistakes in it."""

import json
import unittest
from pathlib import Path

import jsonschema

from reader.annotations import Annotations
from reader.description import describe
from reader.json_text import json_text
from reader.mistakes import Mistakes

HERE = Path(__file__).parent
HEADER = (HERE / "small.h").read_text()
ANNOTATIONS = (HERE / "small.toml").read_text()
SCHEMA = json.loads((HERE.parent / "lumozeph.schema.json").read_text())


def described(header: str = HEADER, annotations: str = ANNOTATIONS) -> dict:
    return describe("small.h", header, Annotations("small.toml", annotations))


class SmallHeader(unittest.TestCase):
    maxDiff = None

    def test_is_described_as_expected(self) -> None:
        self.assertEqual((HERE / "small.json").read_text(), json_text(described()) + "\n")

    def test_matches_the_schema(self) -> None:
        jsonschema.validate(described(), SCHEMA)

    def test_matches_no_schema_with_a_word_too_many(self) -> None:
        description = described()
        description["functions"][0]["parameters"][0]["more"] = 1
        with self.assertRaises(jsonschema.ValidationError):
            jsonschema.validate(description, SCHEMA)

    def test_prints_what_it_describes(self) -> None:
        self.assertEqual(json.loads(json_text(described())), described())


class Mistaken(unittest.TestCase):
    def changed(self, text: str, old: str, new: str) -> str:
        self.assertIn(old, text)
        return text.replace(old, new, 1)

    def mistakes(self, header: str = HEADER, annotations: str = ANNOTATIONS) -> str:
        with self.assertRaises(Mistakes) as caught:
            described(header, annotations)
        return str(caught.exception)

    def header_says(self, old: str, new: str, expected: str) -> None:
        found = self.mistakes(header=self.changed(HEADER, old, new))
        self.assertIn(expected, found)
        self.assertRegex(found, r"^small\.h:\d+: ")

    def annotations_say(self, old: str, new: str, expected: str) -> None:
        self.assertIn(expected, self.mistakes(annotations=self.changed(ANNOTATIONS, old, new)))


class HeaderMistakes(Mistaken):
    def test_function_without_comment(self) -> None:
        self.header_says("/** Forgets all hops. */\n", "", "LUMOZEPH_Forget has no comment")

    def test_record_without_comment(self) -> None:
        self.header_says("/** Hops. */\n", "", "LumoHopList has no comment")

    def test_macro_without_comment(self) -> None:
        self.header_says("/** Major number. */\n", "", "LUMOZEPH_VERSION_MAJOR has no comment")

    def test_member_without_comment(self) -> None:
        self.header_says(" /**< 25: as reported */", "", "LumoHop.wordCount has no comment")

    def test_comment_of_nothing(self) -> None:
        self.header_says("#endif", "/** Nothing. */\n\n#endif", "this comment belongs to nothing")

    def test_brief_without_full_stop(self) -> None:
        self.header_says("Forgets all hops.", "Forgets all hops", "the first sentence has no full stop")

    def test_parameter_without_text(self) -> None:
        self.header_says(
            " * @param mac          6 bytes; null: none\n", "", "the parameter mac of LUMOZEPH_AddHop has no text"
        )

    def test_text_of_no_parameter(self) -> None:
        self.header_says(" * @param[out] buffer", " * @param size  big\n * @param[out] buffer", "expected buffer")

    def test_parameters_in_another_order(self) -> None:
        mask = " * @param mask         the mask value of address\n"
        self.header_says(
            mask + " * @param mac ", " * @param mac  6 bytes\n" + mask + " * @param mac2 ", "has the parameters"
        )

    def test_unknown_tag(self) -> None:
        self.header_says("@errno EBADMSG  never", "@returns 0", 'expected "@param NAME  TEXT"')

    def test_unknown_form_of_errno(self) -> None:
        self.header_says("@errno EBADMSG  never", "@errno 74  never", '"@errno NAME  TEXT"')

    def test_errno_that_the_conventions_lack(self) -> None:
        self.header_says("@errno EBADMSG  never", "@errno EPERM  rarely", "EPERM is not among the errno")

    def test_errno_that_is_never_anyway(self) -> None:
        self.header_says(
            "/** Forgets all hops. */",
            "/**\n * Forgets all hops.\n *\n * @errno ENOMEM  never\n */",
            "LUMOZEPH_Forget has no ENOMEM that could be never",
        )

    def test_null_in_other_words(self) -> None:
        self.header_says("6 bytes; null: none", "6 bytes, or null for none", '"null" is not understood here')

    def test_null_where_the_compiler_is_told_that_there_is_none(self) -> None:
        self.header_says(
            "its key, unterminated at 64 bytes", "its key; null: EINVAL", "LUMOZEPH_NONNULL of LUMOZEPH_GetHops has 1"
        )

    def test_condition_on_no_parameter(self) -> None:
        self.header_says("EINVAL if kind is 4", "EINVAL if sort is 4", "LUMOZEPH_AddHop has no parameter sort")

    def test_result_that_nobody_frees(self) -> None:
        self.header_says("the list; free it with LUMOZEPH_ReleaseHops", "the list", "does not say who frees out")

    def test_release_that_is_not_there(self) -> None:
        self.header_says(
            "the list; free it with LUMOZEPH_ReleaseHops",
            "the list; free it with LUMOZEPH_ReleaseHop",
            "LUMOZEPH_ReleaseHop",
        )

    def test_release_that_keeps_silent_about_what_it_frees(self) -> None:
        self.header_says(
            " * Frees a list of LUMOZEPH_GetHops or of its worker.",
            " * Frees a list of LUMOZEPH_GetHops.",
            "its comment says otherwise",
        )

    def test_worker_of_another(self) -> None:
        self.header_says(
            "the worker of LUMOZEPH_GetHops.",
            "the worker of LUMOZEPH_Forget.",
            'expected "the worker of LUMOZEPH_GetHops."',
        )

    def test_text_of_unknown_length(self) -> None:
        self.header_says("at most 15 bytes, ignored", "ignored", "says how long it may be")

    def test_buffer_of_unknown_size(self) -> None:
        self.header_says("room for LUMOZEPH_TABLE_SIZE bytes", "enough memory", "does not say how many bytes there are")

    def test_macro_that_is_not_there(self) -> None:
        self.header_says(
            "room for LUMOZEPH_HOPS_MAX", "room for LUMOZEPH_HOP_MAX", "there is no macro LUMOZEPH_HOP_MAX"
        )

    def test_macro_that_is_no_number(self) -> None:
        self.header_says("(2 * 10)", '"20"', "LUMOZEPH_HOPS_MAX is not an integer constant")

    def test_function_that_is_not_there(self) -> None:
        self.header_says("as LUMOZEPH_ReadTable does", "as LUMOZEPH_Read does", "there is nothing called LUMOZEPH_Read")

    def test_offset_that_is_not_the_compilers(self) -> None:
        self.header_says("/**< 27: zero past", "/**< 28: zero past", "LumoHop.words is at 27, and its comment says 28")

    def test_count_that_is_not_there(self) -> None:
        self.header_says("zero past wordCount", "zero past words2", "LumoHop has no member words2")

    def test_direction_of_what_cannot_be_stored(self) -> None:
        self.header_says("@param word1 ", "@param[out] word1 ", "cannot be [out]")

    def test_function_before_the_first_chapter(self) -> None:
        self.header_says(
            "typedef struct LumoHop LumoHop;",
            "/** Early. */\nint32_t LUMOZEPH_Early(void);\ntypedef struct LumoHop LumoHop;",
            "stands before the first chapter",
        )

    def test_syntax(self) -> None:
        self.header_says("uint32_t words[4]", "uint32_t words[4", "expected ']'")

    def test_all_are_found_at_once(self) -> None:
        header = self.changed(HEADER, "/** Forgets all hops. */\n", "")
        header = self.changed(header, "/**< 27: zero past", "/**< 28: zero past")
        self.assertEqual(len(self.mistakes(header=header).splitlines()), 2)


class AnnotationMistakes(Mistaken):
    def test_missing_parameter(self) -> None:
        self.annotations_say(
            'buffer = ["bytes"]\n', "", "small.toml does not say what the parameter buffer of LUMOZEPH_ReadTable is"
        )

    def test_missing_member(self) -> None:
        self.annotations_say('hopAddress = "ipv4"\n', "", "small.toml does not say what LumoHop.hopAddress is")

    def test_missing_address(self) -> None:
        self.annotations_say('address = ["word1", "word2"]\n', "", "of which address the parameter word1")

    def test_missing_kind(self) -> None:
        self.annotations_say('record = {text = "A record."}\n', "", "small.toml does not say what the kind record is")

    def test_superfluous_parameter(self) -> None:
        self.annotations_say(
            "[parameters]\n", '[parameters]\nmtu = ["value"]\n', "small.toml: [parameters] mtu: nothing"
        )

    def test_superfluous_chapter(self) -> None:
        self.annotations_say(
            "[chapters.hops]\n", '[chapters.jumps]\nmac = ["mac"]\n\n[chapters.hops]\n', "[chapters.jumps] mac: nothing"
        )

    def test_superfluous_member(self) -> None:
        self.annotations_say(
            "[records.LumoHop]\n", '[records.LumoHop]\nvalue9 = "value"\n', "[records.LumoHop] value9: nothing"
        )

    def test_superfluous_kind(self) -> None:
        self.annotations_say(
            "[kinds]\n", '[kinds]\nmtu = {of = "number", text = "Bytes."}\n', "[kinds] mtu: nothing is of this kind"
        )

    def test_superfluous_plumbing(self) -> None:
        self.annotations_say(
            '["LUMOZEPH_H", ', '["LUMOZEPH_H", "LUMOZEPH_I", ', "the header does not define LUMOZEPH_I"
        )

    def test_unknown_kind(self) -> None:
        self.annotations_say(
            'mask = ["ipv4_mask"]', 'mask = ["ipv4mask"]', "[parameters] mask: there is no kind ipv4mask"
        )

    def test_unknown_section(self) -> None:
        self.annotations_say("[parameters]", "[arguments]", "[arguments]: there is no such section")

    def test_kind_whose_words_the_header_lacks(self) -> None:
        self.annotations_say('words = "IPv4"', 'words = "IP version 4"', 'expected "IP version 4"')

    def test_kind_of_another_width(self) -> None:
        self.annotations_say("width = 6", "width = 8", "6 bytes wide, and mac is 8")

    def test_syntax(self) -> None:
        self.annotations_say("[parameters]", "[parameters", "small.toml: ")


if __name__ == "__main__":
    unittest.main()
