// Interface policies.
#include "operations/operations.h"
#include "operations/route.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Request policy_of_kind(std::uint32_t kind)
{
    return Request()
        .text(0, "inst")
        .u32(64, 0x01020304)
        .u32(68, 0x11121314)
        .u32(76, 0x21222324)
        .u32(80, 0x31323334)
        .text(84, "lif")
        .u32(216, kind);
}

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetLifPolicies),
        .command = 140,
        .shape = Shape::ListRead,
        .room = 5344000,
        .layouts = {route},
        .cap = 8000,
        .release = RELEASED_BY(LUMOZEPH_ReleaseRoutes),
        .cases = {{"GetLifPolicies", {"inst", 0x01020304, nullptr, out},
                      Request().text(0, "inst").u32(216, 0x01020304)},
            {"GetLifPoliciesOfKind4", {"inst", 4, text_of<64, 'w'>, out},
                Request().text(0, "inst").text(148, text_of<63, 'w'>).u32(216, 4)},
            // Kept: unlike the set and the delete, the read sends a text whatever the kind.
            {"GetLifPoliciesSendsTheTextOfAnyKind", {"inst", 3, "what", out},
                Request().text(0, "inst").text(148, "what").u32(216, 3)}}},
    // Kept: the text of any kind but 4 is ignored.
    {.function = NAMED(LUMOZEPH_SetLifPolicy),
        .command = 141,
        .shape = Shape::ResultSend,
        .required = {6},
        .cases = {{"SetLifPolicyIgnoresTheTextOfKind3",
                      {3, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, out},
                      policy_of_kind(3)},
            {"SetLifPolicyOfKind4", {4, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, out},
                policy_of_kind(4).text(148, "what")},
            {"SetLifPolicyOfNegativeKind",
                {-1, nullptr, 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, out},
                policy_of_kind(0xffffffff)},
            {"SetLifPolicyWithLongTexts", {4, text_of<64, 'w'>, 0, 0, 0, text_of<64, 'l'>, text_of<64, 'i'>, 0, out},
                Request().text(0, text_of<63, 'i'>).text(84, text_of<63, 'l'>).text(148, text_of<63, 'w'>).u32(216, 4)},
            {"SetLifPolicyWithoutInterface", {0, nullptr, 1, 2, 3, nullptr, "inst", 4, out},
                Request().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3).u32(80, 4)}}},
    {.function = NAMED(LUMOZEPH_DelLifPolicy),
        .command = 142,
        .shape = Shape::ResultSend,
        .required = {6},
        .cases =
            {{"DelLifPolicyIgnoresTheTextOfKind5",
                 {5, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, out}, policy_of_kind(5)},
                {"DelLifPolicyOfKind4", {4, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, out},
                    policy_of_kind(4).text(148, "what")},
                {"DelLifPolicyWithoutInterface", {0, nullptr, 1, 2, 3, nullptr, "inst", 4, out},
                    Request().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3).u32(80, 4)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter lif_policies {"lif_policies", rows};

} // namespace operations
