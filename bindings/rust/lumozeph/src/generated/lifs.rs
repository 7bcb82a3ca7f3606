//! Logical interfaces.
//!
//! A router instance owns logical interfaces (LIFs): routed interfaces, and bridge LIFs, which attach a bridge to
//! it. A LIF is named by its instance's key and its own name, at most 63 bytes.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One IPv6 address of a LIF.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct LifIpv6Addr(sys::LumoLifIpv6Addr);

impl LifIpv6Addr {
    /// `address` as the module reports it.
    #[inline]
    pub fn address(&self) -> Ipv6Addr {
        Ipv6Addr::from(self.0.address)
    }
    /// In bits.
    #[inline]
    pub fn prefix_len(&self) -> u32 {
        self.0.prefixLen
    }
    /// `value` as the module reports it.
    #[inline]
    pub fn value(&self) -> u8 {
        self.0.value
    }
    /// [`address`](Self::address) with [`prefix_len`](Self::prefix_len).
    #[inline]
    pub fn address_prefix(&self) -> Ipv6Prefix {
        Ipv6Prefix::new(self.address(), self.prefix_len() as u8)
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoLifIpv6Addr {
        &self.0
    }
}

impl From<sys::LumoLifIpv6Addr> for LifIpv6Addr {
    fn from(raw: sys::LumoLifIpv6Addr) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for LifIpv6Addr {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("LifIpv6Addr")
            .field("address", &self.address())
            .field("prefix_len", &self.prefix_len())
            .field("value", &self.value())
            .finish()
    }
}

unsafe impl Record for LifIpv6Addr {
    type Raw = sys::LumoLifIpv6Addr;
}

/// One DHCP server that a LIF relays to.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct DhcpRelayServer(sys::LumoDhcpRelayServer);

impl DhcpRelayServer {
    /// In wire order; IPv4 in the first 4 bytes, the others as sent.
    #[inline]
    pub fn address(&self) -> &[u8; 16] {
        &self.0.address
    }
    /// 1 for IPv4, 3 for IPv6.
    #[inline]
    pub fn family(&self) -> u32 {
        self.0.family
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoDhcpRelayServer {
        &self.0
    }
}

impl From<sys::LumoDhcpRelayServer> for DhcpRelayServer {
    fn from(raw: sys::LumoDhcpRelayServer) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for DhcpRelayServer {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("DhcpRelayServer")
            .field("address", &self.address())
            .field("family", &self.family())
            .finish()
    }
}

unsafe impl Record for DhcpRelayServer {
    type Raw = sys::LumoDhcpRelayServer;
}

/// The DHCP servers that a LIF relays to, byte for byte as the module sent them.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct DhcpRelay(sys::LumoDhcpRelay);

impl DhcpRelay {
    /// Servers that count, as reported.
    #[inline]
    pub fn relay_count(&self) -> u32 {
        self.0.relayCount
    }
    /// As many as `relay_count` says, but no more than there is room for.
    #[inline]
    pub fn servers(&self) -> &[DhcpRelayServer] {
        records(&self.0.servers, self.0.relayCount as usize)
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoDhcpRelay {
        &self.0
    }
}

impl From<sys::LumoDhcpRelay> for DhcpRelay {
    fn from(raw: sys::LumoDhcpRelay) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for DhcpRelay {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("DhcpRelay")
            .field("relay_count", &self.relay_count())
            .field("servers", &self.servers())
            .finish()
    }
}

unsafe impl Record for DhcpRelay {
    type Raw = sys::LumoDhcpRelay;
}

/// One logical interface as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct LifInfo(sys::LumoLifInfo);

impl LifInfo {
    /// `lifName` as the module reports it.
    #[inline]
    pub fn lif_name(&self) -> LifName<'_> {
        Name::of_field(&self.0.lifName)
    }
    /// `lifSecondName` as the module reports it.
    #[inline]
    pub fn lif_second_name(&self) -> LifSecondName<'_> {
        Name::of_field(&self.0.lifSecondName)
    }
    /// IPv4 address.
    #[inline]
    pub fn ip_addr(&self) -> Ipv4Addr {
        ipv4_from_raw(self.0.ipAddr)
    }
    /// Its mask value.
    #[inline]
    pub fn ip_mask(&self) -> Ipv4Mask {
        Ipv4Mask::from_raw(self.0.ipMask)
    }
    /// Designated-instance address, IPv4.
    #[inline]
    pub fn di_ip(&self) -> Ipv4Addr {
        ipv4_from_raw(self.0.diIp)
    }
    /// `lifMac` as the module reports it.
    #[inline]
    pub fn lif_mac(&self) -> Mac {
        Mac::new(self.0.lifMac)
    }
    /// `lifValue1` as the module reports it.
    #[inline]
    pub fn lif_value1(&self) -> u32 {
        self.0.lifValue1
    }
    /// `lifValue2` as the module reports it.
    #[inline]
    pub fn lif_value2(&self) -> u32 {
        self.0.lifValue2
    }
    /// `lifValue3` as the module reports it.
    #[inline]
    pub fn lif_value3(&self) -> u32 {
        self.0.lifValue3
    }
    /// `lifFlags` as the module reports it.
    #[inline]
    pub fn lif_flags(&self) -> &[u8; 4] {
        &self.0.lifFlags
    }
    /// `dhcpRelay` as the module reports it.
    #[inline]
    pub fn dhcp_relay(&self) -> &DhcpRelay {
        one_record(&self.0.dhcpRelay)
    }
    /// As many as `ipv6_count` says, but no more than there is room for.
    #[inline]
    pub fn ipv6_addrs(&self) -> &[LifIpv6Addr] {
        records(&self.0.ipv6Addrs, self.0.ipv6Count as usize)
    }
    /// As reported.
    #[inline]
    pub fn ipv6_count(&self) -> u32 {
        self.0.ipv6Count
    }
    /// `lifState1` as the module reports it.
    #[inline]
    pub fn lif_state1(&self) -> u8 {
        self.0.lifState1
    }
    /// `lifState2` as the module reports it.
    #[inline]
    pub fn lif_state2(&self) -> u8 {
        self.0.lifState2
    }
    /// `lifValue4` as the module reports it.
    #[inline]
    pub fn lif_value4(&self) -> u32 {
        self.0.lifValue4
    }
    /// [`ip_addr`](Self::ip_addr) with [`ip_mask`](Self::ip_mask).
    #[inline]
    pub fn ip_addr_prefix(&self) -> Ipv4Prefix {
        Ipv4Prefix::with_mask(self.ip_addr(), self.ip_mask())
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoLifInfo {
        &self.0
    }
}

impl From<sys::LumoLifInfo> for LifInfo {
    fn from(raw: sys::LumoLifInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for LifInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("LifInfo")
            .field("lif_name", &self.lif_name())
            .field("lif_second_name", &self.lif_second_name())
            .field("ip_addr", &self.ip_addr())
            .field("ip_mask", &self.ip_mask())
            .field("di_ip", &self.di_ip())
            .field("lif_mac", &self.lif_mac())
            .field("lif_value1", &self.lif_value1())
            .field("lif_value2", &self.lif_value2())
            .field("lif_value3", &self.lif_value3())
            .field("lif_flags", &self.lif_flags())
            .field("dhcp_relay", &self.dhcp_relay())
            .field("ipv6_addrs", &self.ipv6_addrs())
            .field("ipv6_count", &self.ipv6_count())
            .field("lif_state1", &self.lif_state1())
            .field("lif_state2", &self.lif_state2())
            .field("lif_value4", &self.lif_value4())
            .finish()
    }
}

unsafe impl Record for LifInfo {
    type Raw = sys::LumoLifInfo;
}

unsafe impl Single for LifInfo {
    unsafe fn release(record: *mut sys::LumoLifInfo) {
        sys::LUMOZEPH_ReleaseLif(record);
    }
}

unsafe impl Listed for LifInfo {
    type List = sys::LumoLifList;
    unsafe fn contents(list: *mut sys::LumoLifList) -> (*mut sys::LumoLifInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoLifList) {
        sys::LUMOZEPH_ReleaseLifs(list);
    }
}

impl Capped for LifInfo {
    const CAP: usize = sys::LUMOZEPH_LIFS_MAX;
}

/// The arguments of [`set_lif`].
#[derive(Clone, Copy, Debug)]
pub struct SetLif<'a> {
    /// Its name, at most 63 bytes.
    pub lif: LifName<'a>,
    /// Its second name, at most 63 bytes.
    pub aux_name: LifSecondName<'a>,
    /// IPv4, and its mask.
    pub address: Ipv4Prefix,
    /// Passed on as it stands.
    pub param_a: u32,
    /// Passed on as it stands.
    pub param_b: u32,
    /// Designated-instance address, IPv4.
    pub di_address: Ipv4Addr,
    /// Passed on as it stands.
    pub param_c: u32,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// The MAC address; left out: none, which sends six zero bytes.
    pub mac: Option<Mac>,
}

impl<'a> SetLif<'a> {
    /// With what must be given; all else is left out.
    pub fn new(
        lif: impl Into<LifName<'a>>,
        aux_name: impl Into<LifSecondName<'a>>,
        address: Ipv4Prefix,
        di_address: Ipv4Addr,
        instance: impl Into<InstanceKey<'a>>,
    ) -> Self {
        Self {
            lif: lif.into(),
            aux_name: aux_name.into(),
            address,
            param_a: 0,
            param_b: 0,
            di_address,
            param_c: 0,
            instance: instance.into(),
            mac: None,
        }
    }
    /// Sets [`param_a`](Self#structfield.param_a).
    #[must_use]
    pub fn param_a(mut self, param_a: u32) -> Self {
        self.param_a = param_a;
        self
    }
    /// Sets [`param_b`](Self#structfield.param_b).
    #[must_use]
    pub fn param_b(mut self, param_b: u32) -> Self {
        self.param_b = param_b;
        self
    }
    /// Sets [`param_c`](Self#structfield.param_c).
    #[must_use]
    pub fn param_c(mut self, param_c: u32) -> Self {
        self.param_c = param_c;
        self
    }
    /// Sets [`mac`](Self#structfield.mac).
    #[must_use]
    pub fn mac(mut self, mac: Mac) -> Self {
        self.mac = Some(mac);
        self
    }
}

/// Creates a LIF.
pub fn set_lif(with: &SetLif<'_>) -> Result<()> {
    const OPERATION: &str = "set_lif";
    let lif = Terminated::<64>::of(with.lif, OPERATION)?;
    let aux_name = Terminated::<64>::of(with.aux_name, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetLif(
                lif.as_ptr(),
                aux_name.as_ptr(),
                raw_ipv4(with.address.address()),
                with.address.mask().to_raw(),
                with.param_a,
                with.param_b,
                raw_ipv4(with.di_address),
                with.param_c,
                instance.as_ptr(),
                with.mac.as_ref().map_or(ptr::null(), |mac| mac.as_bytes().as_ptr()),
            )
        },
        OPERATION,
    )
}

/// Removes a LIF.
///
/// - `lif`: its name, at most 63 bytes
/// - `aux_name`: its second name, at most 63 bytes
/// - `instance`: the instance's key, at most 63 bytes
pub fn del_lif<'a>(
    lif: impl Into<LifName<'a>>,
    aux_name: impl Into<LifSecondName<'a>>,
    instance: impl Into<InstanceKey<'a>>,
) -> Result<()> {
    const OPERATION: &str = "del_lif";
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let aux_name = Terminated::<64>::of(aux_name.into(), OPERATION)?;
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelLif(lif.as_ptr(), aux_name.as_ptr(), instance.as_ptr()) }, OPERATION)
}

/// The arguments of [`set_bridge_lif`].
#[derive(Clone, Copy, Debug)]
pub struct SetBridgeLif<'a> {
    /// Its name, at most 63 bytes.
    pub lif: LifName<'a>,
    /// Its second name, at most 63 bytes.
    pub aux_name: LifSecondName<'a>,
    /// Passed on as it stands.
    pub param_a: u32,
    /// Passed on as it stands.
    pub param_b: u32,
    /// Passed on as it stands, where a routed LIF has its designated-instance address.
    pub di_value: u32,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// On: adds; off: removes.
    pub add: Switched,
}

impl<'a> SetBridgeLif<'a> {
    /// With what must be given; all else is left out.
    pub fn new(
        lif: impl Into<LifName<'a>>,
        aux_name: impl Into<LifSecondName<'a>>,
        instance: impl Into<InstanceKey<'a>>,
        add: Switched,
    ) -> Self {
        Self {
            lif: lif.into(),
            aux_name: aux_name.into(),
            param_a: 0,
            param_b: 0,
            di_value: 0,
            instance: instance.into(),
            add,
        }
    }
    /// Sets [`param_a`](Self#structfield.param_a).
    #[must_use]
    pub fn param_a(mut self, param_a: u32) -> Self {
        self.param_a = param_a;
        self
    }
    /// Sets [`param_b`](Self#structfield.param_b).
    #[must_use]
    pub fn param_b(mut self, param_b: u32) -> Self {
        self.param_b = param_b;
        self
    }
    /// Sets [`di_value`](Self#structfield.di_value).
    #[must_use]
    pub fn di_value(mut self, di_value: u32) -> Self {
        self.di_value = di_value;
        self
    }
}

/// Adds a bridge LIF, or removes it.
///
/// The same values are sent in both cases.
pub fn set_bridge_lif(with: &SetBridgeLif<'_>) -> Result<()> {
    const OPERATION: &str = "set_bridge_lif";
    let lif = Terminated::<64>::of(with.lif, OPERATION)?;
    let aux_name = Terminated::<64>::of(with.aux_name, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetBridgeLif(
                lif.as_ptr(),
                aux_name.as_ptr(),
                with.param_a,
                with.param_b,
                with.di_value,
                instance.as_ptr(),
                with.add as i32,
            )
        },
        OPERATION,
    )
}

/// Reads one routed LIF.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
///
/// Returns the record.
pub fn get_lif<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<Owned<LifInfo>> {
    const OPERATION: &str = "get_lif";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLif(instance.as_ptr(), lif.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Reads one bridge LIF.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
///
/// Returns the record.
pub fn get_bridge_lif<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<Owned<LifInfo>> {
    const OPERATION: &str = "get_bridge_lif";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeLif(instance.as_ptr(), lif.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Reads an instance's routed LIFs.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the list.
pub fn get_lifs<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<List<LifInfo>> {
    const OPERATION: &str = "get_lifs";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLifs(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Reads an instance's bridge LIFs.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the list.
pub fn get_bridge_lifs<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<List<LifInfo>> {
    const OPERATION: &str = "get_bridge_lifs";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeLifs(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}
