// Policy tables, and the references from interfaces to them.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout policy_table {.size = 72, .texts = {{4, 64, Usually::AName}}};

constexpr Layout policy_table_ref {.size = 546,
    .texts = {{0, 64, Usually::AName}},
    .tables = {{.offset = 66, .stride = 24, .capacity = 20, .count = {64, 2}}}};

// References in which every byte tells which one it is.
template <std::size_t Count>
constexpr auto references = [] {
    std::array<std::uint8_t, 24 * Count> bytes {};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(1 + i % 251);
    return bytes;
}();

constexpr Request references_of(std::uint16_t count)
{
    return Request().text(0, "inst").text(192, "lif").u16(288, count);
}

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetPolicyTable),
        .command = 143,
        .shape = Shape::ListRead,
        .room = 72000,
        .layouts = {policy_table},
        .cap = 1000,
        .release = RELEASED_BY(LUMOZEPH_ReleaseAllPolicyTable),
        .cases = {{"GetPolicyTable", {out}}}},
    {.function = NAMED(LUMOZEPH_SetPolicyTable),
        .command = 144,
        .shape = Shape::ResultSend,
        .cases = {{"SetPolicyTable", {0x01020304, "table", out}, Request().u32(220, 0x01020304).text(224, "table")},
            {"SetPolicyTableWithANameOf64", {1, text_of<64, 't'>, out},
                Request().u32(220, 1).text(224, text_of<63, 't'>)}}},
    {.function = NAMED(LUMOZEPH_DelPolicyTable),
        .command = 145,
        .shape = Shape::ResultSend,
        .cases = {{"DelPolicyTable", {0x01020304, out}, Request().u32(220, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_GetLifPolicyTableRef),
        .command = 146,
        .shape = Shape::SingleRead,
        .room = 546,
        .layouts = {policy_table_ref},
        .release = RELEASED_BY(LUMOZEPH_ReleaseLifPolicyTableRef),
        .required = {0, 1},
        .cases = {{"GetLifPolicyTableRef", {"inst", "lif", out}, Request().text(0, "inst").text(192, "lif")},
            {"GetLifPolicyTableRefWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_SetLifPolicyTableRef),
        .command = 147,
        .shape = Shape::ResultSend,
        .required = {0, 1},
        .cases = {{"SetLifPolicyTableRef", {"inst", "lif", 2, block(references<2>), out},
                      references_of(2).bytes(292, references<2>)},
            {"SetLifPolicyTableRefWithOneReference", {"inst", "lif", 1, block(references<1>), out},
                references_of(1).bytes(292, references<1>)},
            {"SetLifPolicyTableRefWithTwentyReferences", {"inst", "lif", 20, block(references<20>), out},
                references_of(20).bytes(292, references<20>)},
            // Kept: the count is sent as it is; the entries end where the request ends.
            {"SetLifPolicyTableRefCutsTheLastOfTwentyOne", {"inst", "lif", 21, block(references<21>), out},
                references_of(21).bytes(292, references<21>, 484)},
            {"SetLifPolicyTableRefWithAsManyAsTheCountCanSay", {"inst", "lif", 65535, block(references<21>), out},
                references_of(65535).bytes(292, references<21>, 484)},
            {"SetLifPolicyTableRefWithoutReferences", {"inst", "lif", 0, nullptr, out}, references_of(0)},
            {"SetLifPolicyTableRefWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, 0, nullptr, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_DelLifPolicyTableRef),
        .command = 148,
        .shape = Shape::ResultSend,
        .required = {0, 1},
        .cases = {{"DelLifPolicyTableRef", {"inst", "lif", out}, Request().text(0, "inst").text(192, "lif")},
            {"DelLifPolicyTableRefWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter policy_tables {"policy_tables", rows};

} // namespace operations
