// The records of replies, by literal offsets: what reaches the caller of each.
#pragma once

#include "support/wire.h"

namespace world::layouts {

inline const Layout instance {.size = 256, .texts = {{0, 64}, {136, 64}}, .zeroed = {{93, 2}}};
inline const Layout sync_state {.size = 1420,
    .texts = {},
    .zeroed = {},
    .tables = {{.offset = 0, .stride = 284, .capacity = 5, .count = {0, 0}, .texts = {}, .zeroed = {{92, 8}}}}};

inline const Layout lif {.size = 576,
    .texts = {{0, 64}, {64, 64}},
    .zeroed = {},
    .tables = {{.offset = 326, .stride = 24, .capacity = 10, .count = {566, 4}, .texts = {}, .zeroed = {{21, 3}}}}};

inline const Layout route {.size = 668,
    .texts = {},
    .zeroed = {{18, 2}},
    .tables = {{.offset = 28, .stride = 80, .capacity = 8, .count = {17, 1}, .texts = {{8, 64}}, .zeroed = {{0, 4}}}}};

inline const Layout policy {.size = 28};
inline const Layout policy_table {.size = 72, .texts = {{4, 64}}};
inline const Layout policy_table_ref {.size = 546,
    .texts = {{0, 64}},
    .zeroed = {},
    .tables = {{.offset = 66, .stride = 24, .capacity = 20, .count = {64, 2}, .texts = {}, .zeroed = {}}}};

inline const Layout bridge_instance {.size = 393, .texts = {{12, 64}, {84, 128}, {212, 81}}, .zeroed = {{293, 12}}};
inline const Layout bridge_network {.size = 133, .texts = {}, .zeroed = {{125, 8}}};
inline const Layout bridge_port {.size = 146};
inline const Layout fdb_entry {.size = 20};
inline const Layout cluster {.size = 183, .texts = {}, .zeroed = {{64, 8}}};
inline const Layout cluster_node {.size = 71};
inline const Layout endpoint {.size = 235, .texts = {}, .zeroed = {{0, 64}}};
inline const Layout bfd_session {.size = 39};

inline const Layout mcast_domain {.size = 148, .texts = {{0, 64}, {64, 48}}};
inline const Layout local_receiver {.size = 88, .texts = {{0, 64}}};
inline const Layout mcast_group {.size = 12};

// Statistics: the kind of the record chooses which counters arrive. Of any other kind, the kind alone does.
inline const Layout stats_of_kind_0 {
    .size = 804, .texts = {}, .zeroed = {{68, 8}, {228, 576}}, .tables = {}, .repeated = {}, .pinned = {{0, 4, 0}}};
inline const Layout stats_of_kind_1 {.size = 804,
    .texts = {},
    .zeroed = {{572, 8}, {620, 8}},
    .tables = {},
    .repeated = {{668, 676, 8}},
    .pinned = {{0, 4, 1}}};
inline const Layout stats_of_kind_3 {
    .size = 804, .texts = {}, .zeroed = {{4, 8}, {164, 640}}, .tables = {}, .repeated = {}, .pinned = {{0, 4, 3}}};
inline const Layout stats_of_no_kind {.size = 804, .texts = {}, .zeroed = {{4, 800}}};

} // namespace world::layouts
