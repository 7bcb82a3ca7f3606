// Routes and interface policies come as the same record.
#pragma once

#include "operations/layout.h"

namespace operations {

inline constexpr Layout route {.size = 668,
    .zeroed = {{18, 2}},
    .tables = {{.offset = 28,
        .stride = 80,
        .capacity = 8,
        .count = {17, 1},
        .texts = {{8, 64, Usually::AName}},
        .zeroed = {{0, 4}}}}};

} // namespace operations
