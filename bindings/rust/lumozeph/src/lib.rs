//! lumozeph for Rust: reads and changes the state of the host's kernel-resident distributed router and layer-2 bridge.
//!
//! Each operation has the name of its function in C, in small letters: `LUMOZEPH_GetLifs` is [`get_lifs`]. All of them
//! are here, and in a module for each chapter of `lumozeph.h`. What holds for the library, its errors and threads is
//! said in that header; `lumozeph_sys` has its functions as they are.
//!
//! ```no_run
//! use lumozeph::SetRoute;
//! use std::net::Ipv4Addr;
//!
//! fn main() -> Result<(), Box<dyn std::error::Error>> {
//!     let gateway = Ipv4Addr::new(10, 0, 0, 1);
//!     lumozeph::set_route(&SetRoute::new("192.0.2.0/24".parse()?, gateway, "blue").lif("uplink"))?;
//!     for lif in &lumozeph::get_lifs("blue")? {
//!         println!("{} {}", lif.lif_name(), lif.ip_addr_prefix());
//!     }
//!     Ok(())
//! }
//! ```
//!
//! # Arguments
//!
//! Texts know what they name. A plain text becomes whatever is asked for, but the name of a LIF never becomes the key
//! of an instance:
//!
//! ```no_run
//! # use lumozeph::{InstanceKey, LifName};
//! fn show(instance: InstanceKey, lif: LifName) -> lumozeph::Result<()> {
//!     println!("{}", lumozeph::get_lif(instance, lif)?.lif_mac());
//!     Ok(())
//! }
//! ```
//!
//! ```compile_fail
//! # use lumozeph::{InstanceKey, LifName};
//! fn show(instance: InstanceKey, lif: LifName) -> lumozeph::Result<()> {
//!     println!("{}", lumozeph::get_lif(lif, instance)?.lif_mac());
//!     Ok(())
//! }
//! ```
//!
//! Many arguments, or such as could be swapped, are a struct. Its `new` takes what must be given, and functions of
//! their own set what may be left out.
//!
//! Texts are cut where the library cuts them. A text with a NUL in it is `EINVAL`, without a call.
//!
//! # Results
//!
//! What the library hands out is freed when its owner is dropped: [`Owned`] is one record, [`List`] a slice of them.
//! Nothing outlives what it points into:
//!
//! ```no_run
//! # fn main() -> lumozeph::Result<()> {
//! let lifs = lumozeph::get_lifs("blue")?;
//! let first = lifs.first();
//! println!("{first:?}");
//! drop(lifs);
//! # Ok(())
//! # }
//! ```
//!
//! ```compile_fail
//! # fn main() -> lumozeph::Result<()> {
//! let lifs = lumozeph::get_lifs("blue")?;
//! let first = lifs.first();
//! drop(lifs);
//! println!("{first:?}");
//! # Ok(())
//! # }
//! ```
//!
//! Records are those of C, as they lie. Their functions give each member as what it is; [`List::truncated`] tells
//! whether there may be more than a list holds. Replies in the module's own layout are bytes.
#![warn(missing_docs)]

mod address;
mod entries;
mod error;
mod generated;
mod name;
mod owner;
mod record;

pub use address::{Ipv4Mask, Ipv4Prefix, Ipv6Prefix, Mac, NotAnAddress};
pub use entries::{Entries, EntryBlock};
pub use error::{Error, Result};
pub use generated::*;
pub use lumozeph_sys as sys;
pub use name::{Key, Name};
pub use owner::{Capped, List, Listed, Owned, Single};
pub use record::{Record, Switched};

/// What the generated modules need.
mod prelude {
    pub(crate) use crate::address::{ipv4_from_raw, raw_ipv4, raw_ipv6};
    pub(crate) use crate::entries::zeroed;
    pub(crate) use crate::error::{check, clear_errno};
    pub(crate) use crate::name::{ServerList, Terminated, EMPTY};
    pub(crate) use crate::owner::free;
    pub(crate) use crate::record::{all_records, as_raw_mut, one_record, records};
    pub(crate) use crate::*;
    pub(crate) use std::net::{IpAddr, Ipv4Addr, Ipv6Addr};
    pub(crate) use std::{fmt, ptr};
}
