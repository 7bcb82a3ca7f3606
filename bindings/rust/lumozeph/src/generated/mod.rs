//! What is made from the description of the interface.
//!
//! Made from `api/lumozeph.json` by `scripts/bindings`: change that, or the templates.

pub mod bfd;
pub mod bridges;
pub mod clusters;
pub mod connections;
pub mod control_plane;
pub mod dhcp_relay;
pub mod endpoints;
pub mod fdb;
pub mod housekeeping;
pub mod instances;
pub mod levels;
pub mod lif_options;
pub mod lif_policies;
pub mod lifs;
pub mod mcast_groups;
pub mod mcast_receivers;
pub mod names;
pub mod neighbours;
pub mod networks;
pub mod policies;
pub mod policy_tables;
pub mod routes;
pub mod routes6;
pub mod rss;
pub mod stats;

#[doc(no_inline)]
pub use {
    bfd::*, bridges::*, clusters::*, connections::*, control_plane::*, dhcp_relay::*, endpoints::*, fdb::*,
    housekeeping::*, instances::*, levels::*, lif_options::*, lif_policies::*, lifs::*, mcast_groups::*,
    mcast_receivers::*, names::*, neighbours::*, networks::*, policies::*, policy_tables::*, routes::*, routes6::*,
    rss::*, stats::*,
};
