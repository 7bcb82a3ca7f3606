// Runtime levels and queue tunables.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetLogLevel),
        .command = 9,
        .shape = Shape::GetValue,
        .required = {0},
        .cases = {{"GetLogLevel", {out}}}},
    {.function = NAMED(LUMOZEPH_SetLogLevel),
        .command = 10,
        .shape = Shape::SetValue,
        .cases = {{"SetLogLevel", {0x89abcdef}}}},
    {.function = NAMED(LUMOZEPH_GetExtendedLogLevel),
        .command = 11,
        .shape = Shape::GetValue,
        .required = {0},
        .cases = {{"GetExtendedLogLevel", {out}}}},
    {.function = NAMED(LUMOZEPH_SetExtendedLogLevel),
        .command = 12,
        .shape = Shape::SetValue,
        .cases = {{"SetExtendedLogLevel", {0x89abcdef}}}},
    {.function = NAMED(LUMOZEPH_GetStatsLevel),
        .command = 13,
        .shape = Shape::GetValue,
        .required = {0},
        .cases = {{"GetStatsLevel", {out}}}},
    {.function = NAMED(LUMOZEPH_SetStatsLevel),
        .command = 14,
        .shape = Shape::SetValue,
        .cases = {{"SetStatsLevel", {0x89abcdef}}}},
    {.function = NAMED(LUMOZEPH_GetTxDispQueueSize),
        .command = 159,
        .shape = Shape::GetValue,
        .required = {0},
        .cases = {{"GetTxDispQueueSize", {out}}}},
    {.function = NAMED(LUMOZEPH_SetTxDispQueueSize),
        .command = 160,
        .shape = Shape::SetValue,
        .cases = {{"SetTxDispQueueSize", {0x89abcdef}}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter levels {"levels", rows};

} // namespace operations
