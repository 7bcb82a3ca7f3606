//! IPv6 routes and path MTU.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// The arguments of [`set_route_v6`].
#[derive(Clone, Copy, Debug)]
pub struct SetRouteV6<'a> {
    /// The destination prefix, and its length.
    pub dest: Ipv6Prefix,
    /// The next hop.
    pub gateway: Ipv6Addr,
    /// Name of the outgoing LIF, at most 64 bytes; left out: none.
    pub lif: Option<LifName<'a>>,
    /// The instance's key, at most 64 bytes.
    pub instance: InstanceKey<'a>,
}

impl<'a> SetRouteV6<'a> {
    /// With what must be given; all else is left out.
    pub fn new(dest: Ipv6Prefix, gateway: Ipv6Addr, instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { dest, gateway, lif: None, instance: instance.into() }
    }
    /// Sets [`lif`](Self#structfield.lif).
    #[must_use]
    pub fn lif(mut self, lif: impl Into<LifName<'a>>) -> Self {
        self.lif = Some(lif.into());
        self
    }
}

/// Adds an IPv6 route.
pub fn set_route_v6(with: &SetRouteV6<'_>) -> Result<()> {
    const OPERATION: &str = "set_route_v6";
    let lif = Terminated::<65>::of_maybe(with.lif, OPERATION)?;
    let instance = Terminated::<65>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetRoutev6(
                raw_ipv6(with.dest.address())[0],
                raw_ipv6(with.dest.address())[1],
                with.dest.length().into(),
                raw_ipv6(with.gateway)[0],
                raw_ipv6(with.gateway)[1],
                lif.as_ptr(),
                instance.as_ptr(),
            )
        },
        OPERATION,
    )
}

/// The arguments of [`del_route_v6`].
#[derive(Clone, Copy, Debug)]
pub struct DelRouteV6<'a> {
    /// The destination prefix, and its length.
    pub dest: Ipv6Prefix,
    /// The next hop.
    pub gateway: Ipv6Addr,
    /// Name of the outgoing LIF, at most 64 bytes; left out: none.
    pub lif: Option<LifName<'a>>,
    /// The instance's key, at most 64 bytes.
    pub instance: InstanceKey<'a>,
}

impl<'a> DelRouteV6<'a> {
    /// With what must be given; all else is left out.
    pub fn new(dest: Ipv6Prefix, gateway: Ipv6Addr, instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { dest, gateway, lif: None, instance: instance.into() }
    }
    /// Sets [`lif`](Self#structfield.lif).
    #[must_use]
    pub fn lif(mut self, lif: impl Into<LifName<'a>>) -> Self {
        self.lif = Some(lif.into());
        self
    }
}

/// Deletes an IPv6 route.
pub fn del_route_v6(with: &DelRouteV6<'_>) -> Result<()> {
    const OPERATION: &str = "del_route_v6";
    let lif = Terminated::<65>::of_maybe(with.lif, OPERATION)?;
    let instance = Terminated::<65>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_DelRoutev6(
                raw_ipv6(with.dest.address())[0],
                raw_ipv6(with.dest.address())[1],
                with.dest.length().into(),
                raw_ipv6(with.gateway)[0],
                raw_ipv6(with.gateway)[1],
                lif.as_ptr(),
                instance.as_ptr(),
            )
        },
        OPERATION,
    )
}

/// Reads an instance's IPv6 routes as the module lays them out, in entries of `LUMOZEPH_ROUTE6_SIZE` bytes.
///
/// Sends two commands: the first asks how many routes there are, by which the block gets room for 8000 entries if
/// there are fewer than that, or else for 30000 (a number of 2^31 or more counts as a negative one, which is fewer
/// than 8000); the second reads them. The caller does not learn which: count is what the module reports, and may be
/// larger than the room if the module is not well behaved. Only the first 8000 entries are sure to lie in the
/// block. What the module has not written of them is undefined.
///
/// - `instance`: its key, at most 64 bytes
///
/// Returns the entries.
///
/// # Errors
///
/// - ENOMEM: if the first command fails, whatever it failed of (without a device, too), and if there are 30000
///   routes or more, but fewer than 2^31; nothing is allocated then
pub fn get_routes_v6<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<EntryBlock<{ sys::LUMOZEPH_ROUTE6_SIZE }>> {
    const OPERATION: &str = "get_routes_v6";
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    let mut block = ptr::null_mut();
    let mut count = 0;
    check(unsafe { sys::LUMOZEPH_GetRoutesv6(instance.as_ptr(), &mut block, &mut count) }, OPERATION)?;
    Ok(unsafe { EntryBlock::from_raw(block, count as usize) })
}

/// Clears the module-wide IPv6 path-MTU table.
pub fn pmtu_table_cear_v6() -> Result<()> {
    const OPERATION: &str = "pmtu_table_cear_v6";
    check(unsafe { sys::LUMOZEPH_PMTUTableCearv6() }, OPERATION)
}
