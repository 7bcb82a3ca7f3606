// All objects, in the order in which help shows them and shortened words are looked for.
#pragma once

#include "tool/objects/bfd.h"
#include "tool/objects/bridge.h"
#include "tool/objects/cluster.h"
#include "tool/objects/connection.h"
#include "tool/objects/control_plane.h"
#include "tool/objects/endpoint.h"
#include "tool/objects/fdb.h"
#include "tool/objects/instance.h"
#include "tool/objects/level.h"
#include "tool/objects/lif.h"
#include "tool/objects/mcast.h"
#include "tool/objects/module.h"
#include "tool/objects/neighbour.h"
#include "tool/objects/policy.h"
#include "tool/objects/route.h"
#include "tool/objects/rss.h"
#include "tool/objects/stats.h"

namespace tool {

inline constexpr Object all_objects[] {
    objects::instance,
    objects::lif,
    objects::route,
    objects::neighbour,
    objects::policy,
    objects::bridge,
    objects::fdb,
    objects::cluster,
    objects::endpoint,
    objects::bfd,
    objects::mcast,
    objects::rss,
    objects::stats,
    objects::level,
    objects::control_plane,
    objects::connection,
    objects::module,
};

} // namespace tool
