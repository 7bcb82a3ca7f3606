// IPv4 routes.
#include "operations/operations.h"
#include "operations/route.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SetRoute),
        .command = 34,
        .shape = Shape::ResultSend,
        .required = {4},
        .cases = {{"SetRoute", {0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, out},
                      Request()
                          .text(0, "inst")
                          .u32(64, 0x01020304)
                          .u32(68, 0x11121314)
                          .u32(76, 0x21222324)
                          .u32(80, 0x31323334)
                          .text(84, "lif")},
            {"SetRouteWithoutInterface", {1, 2, 3, nullptr, "inst", 4, out},
                Request().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3).u32(80, 4)},
            {"SetRouteWithLongTexts", {0, 0, 0, text_of<64, 'l'>, text_of<64, 'i'>, 0, out},
                Request().text(0, text_of<63, 'i'>).text(84, text_of<63, 'l'>)}}},
    // Kept: the delete carries no parameter.
    {.function = NAMED(LUMOZEPH_DelRoute),
        .command = 35,
        .shape = Shape::ResultSend,
        .required = {4},
        .cases =
            {{"DelRouteHasNoParameter", {0x01020304, 0x11121314, 0x21222324, "lif", "inst", out},
                 Request().text(0, "inst").u32(64, 0x01020304).u32(68, 0x11121314).u32(76, 0x21222324).text(84, "lif")},
                {"DelRouteWithoutInterface", {1, 2, 3, nullptr, "inst", out},
                    Request().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3)}}},
    {.function = NAMED(LUMOZEPH_GetRoutes),
        .command = 36,
        .shape = Shape::ListRead,
        .room = 5344000,
        .layouts = {route},
        .cap = 8000,
        .release = RELEASED_BY(LUMOZEPH_ReleaseRoutes),
        .cases = {{"GetRoutes", {"inst", out}, Request().text(0, "inst")}}},
    {.function = NAMED(LUMOZEPH_GetResolveRoute),
        .command = 37,
        .shape = Shape::SingleRead,
        .room = 668,
        .layouts = {route},
        .release = RELEASED_BY(LUMOZEPH_ReleaseRoute),
        .required = {0},
        .cases = {{"GetResolveRoute", {"inst", 0x01020304, 0x11121314, 0x21222324, out},
                      Request().text(0, "inst").u32(64, 0x01020304).u32(68, 0x11121314).u32(72, 0x21222324)},
            {"GetResolveRouteWithLongKey", {text_of<64, 'i'>, 0, 0, 0, out}, Request().text(0, text_of<63, 'i'>)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter routes {"routes", rows};

} // namespace operations
