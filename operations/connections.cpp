// Port connections.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_PlumbLumoConnection),
        .command = 15,
        .shape = Shape::Send,
        .cases = {{"PlumbLumoConnection", {"name", "text1", 0xffffffff, "text2", "text3", "text4"},
                      Request()
                          .text(64, "name")
                          .text(128, "text1")
                          .text(144, "text2")
                          .text(162, "text3")
                          .text(194, "text4")},
            {"PlumbLumoConnectionWithoutOptionalTexts", {"name", "text1", 1, nullptr, nullptr, nullptr},
                Request().text(64, "name").text(128, "text1")},
            {"PlumbLumoConnectionWithLongTexts",
                {text_of<64, 'n'>, text_of<16, '1'>, 0, text_of<18, '2'>, text_of<32, '3'>, text_of<256, '4'>},
                Request()
                    .text(64, text_of<63, 'n'>)
                    .text(128, text_of<15, '1'>)
                    .text(144, text_of<17, '2'>)
                    .text(162, text_of<31, '3'>)
                    .text(194, text_of<255, '4'>)}}},
    {.function = NAMED(LUMOZEPH_UnPlumbLumoConnection),
        .command = 16,
        .shape = Shape::Send,
        .cases = {{"UnPlumbLumoConnection", {"name"}, Request().text(64, "name")},
            {"UnPlumbLumoConnectionWithANameOf64", {text_of<64, 'n'>}, Request().text(64, text_of<63, 'n'>)}}},
    {.function = NAMED(LUMOZEPH_GetConnections),
        .command = 17,
        .shape = Shape::RawRead,
        .room = 131072,
        .cases = {{"GetConnections", {out}}}},
    {.function = NAMED(LUMOZEPH_GetConnection),
        .command = 18,
        .shape = Shape::RawRead,
        .room = 152,
        .cases = {{"GetConnection", {"name", out}, Request().text(64, "name")},
            {"GetConnectionWithANameOf64", {text_of<64, 'n'>, out}, Request().text(64, text_of<63, 'n'>)}}},
    {.function = NAMED(LUMOZEPH_LUMODevCheckConnDeletion),
        .command = 85,
        .shape = Shape::GetValue,
        .cases = {{"LUMODevCheckConnDeletion", {out}}}},
    {.function = NAMED(LUMOZEPH_GetVMAC),
        .command = 149,
        .shape = Shape::RawRead,
        .room = 6,
        .cases = {{"GetVMAC", {"name", out}, Request().text(64, "name")}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter connections {"connections", rows};

} // namespace operations
