//! IPv4 routes.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// The module's own answer to setting or deleting an IPv4 route, an interface policy, a policy, a policy table or
/// the references to one, for a caller that asks for it.
///
/// What it says, and in which layout, is the module's. The library zeroes it before the call, unless an argument is
/// rejected, and never reads it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct CmdResult(sys::LumoCmdResult);

impl CmdResult {
    /// `bytes` as the module reports it.
    #[inline]
    pub fn bytes(&self) -> &[u8; 88] {
        &self.0.bytes
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoCmdResult {
        &self.0
    }
}

impl From<sys::LumoCmdResult> for CmdResult {
    fn from(raw: sys::LumoCmdResult) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for CmdResult {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter.debug_struct("CmdResult").field("bytes", &self.bytes()).finish()
    }
}

unsafe impl Record for CmdResult {
    type Raw = sys::LumoCmdResult;
}

/// One next hop of a route.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct NextHop(sys::LumoNextHop);

impl NextHop {
    /// IPv4 address.
    #[inline]
    pub fn next_hop_addr(&self) -> Ipv4Addr {
        ipv4_from_raw(self.0.nextHopAddr)
    }
    /// The outgoing LIF.
    #[inline]
    pub fn next_hop_lif_name(&self) -> LifName<'_> {
        Name::of_field(&self.0.nextHopLifName)
    }
    /// `nextHopValue` as the module reports it.
    #[inline]
    pub fn next_hop_value(&self) -> &[u8; 8] {
        &self.0.nextHopValue
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoNextHop {
        &self.0
    }
}

impl From<sys::LumoNextHop> for NextHop {
    fn from(raw: sys::LumoNextHop) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for NextHop {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("NextHop")
            .field("next_hop_addr", &self.next_hop_addr())
            .field("next_hop_lif_name", &self.next_hop_lif_name())
            .field("next_hop_value", &self.next_hop_value())
            .finish()
    }
}

unsafe impl Record for NextHop {
    type Raw = sys::LumoNextHop;
}

/// One route, or one interface policy, as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct RouteInfo(sys::LumoRouteInfo);

impl RouteInfo {
    /// IPv4 address of the destination network.
    #[inline]
    pub fn route_dest(&self) -> Ipv4Addr {
        ipv4_from_raw(self.0.routeDest)
    }
    /// Its mask value.
    #[inline]
    pub fn route_mask(&self) -> Ipv4Mask {
        Ipv4Mask::from_raw(self.0.routeMask)
    }
    /// `routeValue1` as the module reports it.
    #[inline]
    pub fn route_value1(&self) -> u32 {
        self.0.routeValue1
    }
    /// `routeValue2` as the module reports it.
    #[inline]
    pub fn route_value2(&self) -> u32 {
        self.0.routeValue2
    }
    /// `routeFlags` as the module reports it.
    #[inline]
    pub fn route_flags(&self) -> u8 {
        self.0.routeFlags
    }
    /// As reported.
    #[inline]
    pub fn next_hop_count(&self) -> u8 {
        self.0.nextHopCount
    }
    /// `routeValue3` as the module reports it.
    #[inline]
    pub fn route_value3(&self) -> &[u8; 8] {
        &self.0.routeValue3
    }
    /// As many as `next_hop_count` says, but no more than there is room for.
    #[inline]
    pub fn next_hops(&self) -> &[NextHop] {
        records(&self.0.nextHops, self.0.nextHopCount as usize)
    }
    /// [`route_dest`](Self::route_dest) with [`route_mask`](Self::route_mask).
    #[inline]
    pub fn route_dest_prefix(&self) -> Ipv4Prefix {
        Ipv4Prefix::with_mask(self.route_dest(), self.route_mask())
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoRouteInfo {
        &self.0
    }
}

impl From<sys::LumoRouteInfo> for RouteInfo {
    fn from(raw: sys::LumoRouteInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for RouteInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("RouteInfo")
            .field("route_dest", &self.route_dest())
            .field("route_mask", &self.route_mask())
            .field("route_value1", &self.route_value1())
            .field("route_value2", &self.route_value2())
            .field("route_flags", &self.route_flags())
            .field("next_hop_count", &self.next_hop_count())
            .field("route_value3", &self.route_value3())
            .field("next_hops", &self.next_hops())
            .finish()
    }
}

unsafe impl Record for RouteInfo {
    type Raw = sys::LumoRouteInfo;
}

unsafe impl Single for RouteInfo {
    unsafe fn release(record: *mut sys::LumoRouteInfo) {
        sys::LUMOZEPH_ReleaseRoute(record);
    }
}

unsafe impl Listed for RouteInfo {
    type List = sys::LumoRouteList;
    unsafe fn contents(list: *mut sys::LumoRouteList) -> (*mut sys::LumoRouteInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoRouteList) {
        sys::LUMOZEPH_ReleaseRoutes(list);
    }
}

impl Capped for RouteInfo {
    const CAP: usize = sys::LUMOZEPH_ROUTES_MAX;
}

/// The arguments of [`set_route`].
#[derive(Clone, Copy, Debug)]
pub struct SetRoute<'a> {
    /// IPv4 address of the destination network, and its mask.
    pub dest: Ipv4Prefix,
    /// IPv4 address of the next hop.
    pub gateway: Ipv4Addr,
    /// Name of the outgoing LIF, at most 63 bytes; left out: none.
    pub lif: Option<LifName<'a>>,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// Passed on as it stands.
    pub param: u32,
}

impl<'a> SetRoute<'a> {
    /// With what must be given; all else is left out.
    pub fn new(dest: Ipv4Prefix, gateway: Ipv4Addr, instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { dest, gateway, lif: None, instance: instance.into(), param: 0 }
    }
    /// Sets [`lif`](Self#structfield.lif).
    #[must_use]
    pub fn lif(mut self, lif: impl Into<LifName<'a>>) -> Self {
        self.lif = Some(lif.into());
        self
    }
    /// Sets [`param`](Self#structfield.param).
    #[must_use]
    pub fn param(mut self, param: u32) -> Self {
        self.param = param;
        self
    }
}

/// Adds an IPv4 route.
pub fn set_route(with: &SetRoute<'_>) -> Result<()> {
    set_route_to(with, ptr::null_mut())
}

/// [`set_route`], with the module's own answer, which may be there after a failure, too.
pub fn set_route_answered(with: &SetRoute<'_>, answer: &mut CmdResult) -> Result<()> {
    set_route_to(with, as_raw_mut(answer))
}

fn set_route_to(with: &SetRoute<'_>, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "set_route";
    let lif = Terminated::<64>::of_maybe(with.lif, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetRoute(
                raw_ipv4(with.dest.address()),
                with.dest.mask().to_raw(),
                raw_ipv4(with.gateway),
                lif.as_ptr(),
                instance.as_ptr(),
                with.param,
                answer,
            )
        },
        OPERATION,
    )
}

/// The arguments of [`del_route`].
#[derive(Clone, Copy, Debug)]
pub struct DelRoute<'a> {
    /// IPv4 address of the destination network, and its mask.
    pub dest: Ipv4Prefix,
    /// IPv4 address of the next hop.
    pub gateway: Ipv4Addr,
    /// Name of the outgoing LIF, at most 63 bytes; left out: none.
    pub lif: Option<LifName<'a>>,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
}

impl<'a> DelRoute<'a> {
    /// With what must be given; all else is left out.
    pub fn new(dest: Ipv4Prefix, gateway: Ipv4Addr, instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { dest, gateway, lif: None, instance: instance.into() }
    }
    /// Sets [`lif`](Self#structfield.lif).
    #[must_use]
    pub fn lif(mut self, lif: impl Into<LifName<'a>>) -> Self {
        self.lif = Some(lif.into());
        self
    }
}

/// Deletes an IPv4 route.
pub fn del_route(with: &DelRoute<'_>) -> Result<()> {
    del_route_to(with, ptr::null_mut())
}

/// [`del_route`], with the module's own answer, which may be there after a failure, too.
pub fn del_route_answered(with: &DelRoute<'_>, answer: &mut CmdResult) -> Result<()> {
    del_route_to(with, as_raw_mut(answer))
}

fn del_route_to(with: &DelRoute<'_>, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "del_route";
    let lif = Terminated::<64>::of_maybe(with.lif, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_DelRoute(
                raw_ipv4(with.dest.address()),
                with.dest.mask().to_raw(),
                raw_ipv4(with.gateway),
                lif.as_ptr(),
                instance.as_ptr(),
                answer,
            )
        },
        OPERATION,
    )
}

/// Reads an instance's routes.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the list.
pub fn get_routes<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<List<RouteInfo>> {
    const OPERATION: &str = "get_routes";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetRoutes(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// The arguments of [`get_resolve_route`].
#[derive(Clone, Copy, Debug)]
pub struct GetResolveRoute<'a> {
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// IPv4 address of the destination.
    pub dest: Ipv4Addr,
    /// A mask value.
    pub mask: Ipv4Mask,
    /// Passed on as it stands.
    pub param: u32,
}

impl<'a> GetResolveRoute<'a> {
    /// With what must be given; all else is left out.
    pub fn new(instance: impl Into<InstanceKey<'a>>, dest: Ipv4Addr, mask: Ipv4Mask) -> Self {
        Self { instance: instance.into(), dest, mask, param: 0 }
    }
    /// Sets [`param`](Self#structfield.param).
    #[must_use]
    pub fn param(mut self, param: u32) -> Self {
        self.param = param;
        self
    }
}

/// Asks the module which route it uses for a destination.
///
/// Returns the route.
pub fn get_resolve_route(with: &GetResolveRoute<'_>) -> Result<Owned<RouteInfo>> {
    const OPERATION: &str = "get_resolve_route";
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    let mut out = ptr::null_mut();
    check(
        unsafe {
            sys::LUMOZEPH_GetResolveRoute(
                instance.as_ptr(),
                raw_ipv4(with.dest),
                with.mask.to_raw(),
                with.param,
                &mut out,
            )
        },
        OPERATION,
    )?;
    Ok(unsafe { Owned::from_raw(out) })
}
