#!/usr/bin/python3 -B
"""How texts of the description become pages."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "generator"))

import words
from examples import Example
from markup import Markup, as_sentence, literal, table_text


class TextTest(unittest.TestCase):
    markup = Markup({"LUMOZEPH_GetLifs", "LUMOZEPH_ReleaseLifs"}, "LUMOZEPH_GetLifs", ["count", "paramA", "kind"])

    def test_plain_words_stay(self):
        self.assertEqual(self.markup.text("a count of LIFs"), "a count of LIFs")

    def test_sentences_begin_on_new_lines(self):
        self.assertEqual(self.markup.text("One. Two: Three."), "One.\nTwo:\nThree.")

    def test_names_are_marked_up_and_punctuation_is_not(self):
        self.assertEqual(
            self.markup.text("see LUMOZEPH_ReleaseLifs, open(2) and free()."),
            "see\n.Xr LUMOZEPH_ReleaseLifs 3 ,\n.Xr open 2\nand\n.Xr free 3 .",
        )
        self.assertEqual(self.markup.text("EINVAL, or errno"), ".Er EINVAL ,\nor errno")
        self.assertEqual(self.markup.text("room for LUMOZEPH_LIFS_MAX LIFs"), "room for\n.Dv LUMOZEPH_LIFS_MAX\nLIFs")

    def test_a_page_does_not_refer_to_itself(self):
        self.assertEqual(self.markup.text("LUMOZEPH_GetLifs reads"), ".Fn LUMOZEPH_GetLifs\nreads")

    def test_parentheses(self):
        self.assertEqual(self.markup.text("too short (EBADMSG), alas"), "too short\n.Pq Er EBADMSG ,\nalas")
        self.assertEqual(self.markup.text("(EINTR or none)"), ".Pf ( Er EINTR\nor none)")

    def test_parameters_are_told_from_words(self):
        self.assertEqual(self.markup.text("the kind if kind is 4"), "the kind if\n.Fa kind\nis 4")
        self.assertEqual(self.markup.text("paramA and @count"), ".Fa paramA\nand\n.Fa count")

    def test_nothing_looks_like_a_request(self):
        self.assertEqual(literal(".x\n'y\nz\\n"), "\\&.x\n\\&'y\nz\\en")
        self.assertEqual(table_text("past relayCount"), "past \\%relayCount")

    def test_a_sentence_does_not_change_a_name_at_its_beginning(self):
        self.assertEqual(as_sentence("the list"), "The list.")
        self.assertEqual(as_sentence("@out is null."), "@out is null.")
        self.assertEqual(as_sentence("value1 is sent"), "value1 is sent.")


class WordsTest(unittest.TestCase):
    def argument(self, kind, summary, operation="send", **facts):
        parameter = {"name": "x", "kind": kind, "summary": summary, "direction": "in", "type": {"pointers": 1}, **facts}
        return words.argument(parameter, {"operation": operation})

    def test_whose_name_it_is(self):
        self.assertEqual(self.argument("lif", "its name"), "the LIF's name")

    def test_limit_and_null(self):
        limit = {"bytes": 63, "field": 64, "terminated": True}
        self.assertEqual(
            self.argument("lif", "the LIF's name", limit=limit, null={"effect": "error", "errno": "EINVAL"}),
            "the LIF's name, at most 63 bytes. Null is rejected",
        )
        self.assertEqual(
            self.argument("text", "sent whatever the kind", limit=limit, null={"effect": "meaning", "text": "none"}),
            "sent whatever the kind. At most 63 bytes of it are used. Null means none",
        )

    def test_null_on_a_condition(self):
        condition = {"parameter": "kind", "is": 4}
        self.assertEqual(
            words.null({"effect": "error", "if": condition, "otherwise": "none"}),
            "Null is rejected if @kind is 4, and means none otherwise",
        )
        self.assertEqual(words.null({"effect": "meaning", "if": condition}), "It may be null if @kind is 4")

    def test_pointers_that_are_stored(self):
        said = self.argument("list", "the list. Untouched if x", direction="out", type={"pointers": 2})
        self.assertEqual(said, "where a pointer to the list is stored. It is untouched if x")

    def test_untested_pointers(self):
        def parameter(name, effect):
            return {"name": name, "null": {"effect": effect}}

        a, b = parameter("a", "undefined"), parameter("b", "undefined")
        c = parameter("c", "error")
        both = "None of the pointers may be null; this is not tested."
        self.assertEqual(words.untested({"parameters": [c]}), "")
        self.assertEqual(words.untested({"parameters": [a, c]}), "@a must not be null; this is not tested.")
        self.assertEqual(words.untested({"parameters": [a, b, c]}), "@a and @b must not be null; this is not tested.")
        self.assertEqual(words.untested({"parameters": [a, b]}), both)

    def test_errors_of_one_record_and_of_a_list(self):
        said = "the module's reply is shorter than one record, or a list ends in a fragment of a record"
        error = {"name": "EBADMSG", "text": said, "from": "conventions"}
        self.assertEqual(
            words.reason(error, {"operation": "get_record"}), "the module's reply is shorter than one record"
        )
        self.assertEqual(
            words.reason(error, {"operation": "fill_list"}), "the module's reply ends in a fragment of a record"
        )
        own = {"name": "EBADMSG", "text": "the reply has no count", "from": "function"}
        self.assertEqual(words.reason(own, {"operation": "get_table"}), "the reply has no count")

    def test_several_reasons_for_one_error(self):
        function = {"parameters": [{"name": "text"}, {"name": "kind"}]}
        said = words.reason({"name": "EINVAL", "text": "text is null, and kind is 4", "from": "parameters"}, function)
        self.assertEqual(said, "@text is null and @kind is 4")
        self.assertEqual(words.alternatives(["@a is null", said]), "@a is null, or @text is null and @kind is 4")
        self.assertEqual(words.alternatives(["@a is null", "also if it is late"]), "@a is null. Also if it is late")

    def test_an_errno_that_is_not_set(self):
        self.assertEqual(
            words.unset({"text": "errno is not set: it is late"}),
            "The call also fails, without setting errno, if it is late",
        )

    def test_records_of_a_table(self):
        table = {"members": [{"name": "records", "text": "exactly count of them; the last is zero"}]}
        self.assertEqual(words.beyond_the_count(table), "the last is zero")

    def test_a_chapter_refers_to_that_of_bridges(self):
        self.assertEqual(
            words.with_references(["The pairs are as with bridges."]),
            ["The pairs are as with bridges (lumozeph_bridges(7))."],
        )

    def test_descriptions_in_a_line(self):
        self.assertEqual(words.imperative("Adds a LIF, or removes it."), "add a LIF, or remove it")
        self.assertEqual(words.imperative("Switches a bridge on."), "switch a bridge on")
        self.assertEqual(words.imperative("Flushes a cluster."), "flush a cluster")

    def test_functions_that_deal_with_the_same(self):
        for name in ("LUMOZEPH_GetLif", "LUMOZEPH_SetLif", "LUMOZEPH_ReleaseLifs"):
            self.assertEqual(words.thing(name), "Lif")
        self.assertNotEqual(words.thing("LUMOZEPH_SetLifIp"), "Lif")

    def test_declarations(self):
        self.assertEqual(words.declaration("LumoLifList** out"), "LumoLifList **out")


class ExampleTest(unittest.TestCase):
    def test_is_taken_apart(self):
        folder = pathlib.Path(__file__).parent.parent / "examples"
        example = Example(folder / "lifs" / "list.c")
        self.assertEqual(example.says, "Lists an instance's routed LIFs with their IPv4 addresses.")
        self.assertEqual(example.program.splitlines()[0], "#include <arpa/inet.h>")
        self.assertEqual(example.program.splitlines()[-1], "}")
        self.assertEqual(example.prints, "uplink 10.0.0.2/24")
        self.assertIn("LUMOZEPH_ReleaseLifs", example.calls)
        self.assertEqual(Example(folder / "stats" / "control_plane.c").prints, "")


if __name__ == "__main__":
    unittest.main()
