//! ARP entries, IPv6 neighbours and proxy entries.
//!
//! A proxy entry is an address that the router answers for. ARP entries and proxy entries of IPv4 are read apart;
//! there is no read of the proxy entries of IPv6.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// The arguments of [`set_arp`].
#[derive(Clone, Copy, Debug)]
pub struct SetArp<'a> {
    /// IPv4.
    pub address: Ipv4Addr,
    /// The MAC address as text, at most 17 bytes.
    pub mac: MacText<'a>,
    /// Name of the LIF that the entry is on, at most 63 bytes.
    pub lif: LifName<'a>,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
}

impl<'a> SetArp<'a> {
    /// With all of them.
    pub fn new(
        address: Ipv4Addr,
        mac: impl Into<MacText<'a>>,
        lif: impl Into<LifName<'a>>,
        instance: impl Into<InstanceKey<'a>>,
    ) -> Self {
        Self { address, mac: mac.into(), lif: lif.into(), instance: instance.into() }
    }
}

/// Adds an ARP entry.
pub fn set_arp(with: &SetArp<'_>) -> Result<()> {
    const OPERATION: &str = "set_arp";
    let mac = Terminated::<18>::of(with.mac, OPERATION)?;
    let lif = Terminated::<64>::of(with.lif, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe { sys::LUMOZEPH_SetArp(raw_ipv4(with.address), mac.as_ptr(), lif.as_ptr(), instance.as_ptr()) },
        OPERATION,
    )
}

/// Deletes an ARP entry.
///
/// - `address`: IPv4
/// - `lif`: name of the LIF that the entry is on, at most 63 bytes
/// - `instance`: the instance's key, at most 63 bytes
pub fn del_arp<'a>(address: Ipv4Addr, lif: impl Into<LifName<'a>>, instance: impl Into<InstanceKey<'a>>) -> Result<()> {
    const OPERATION: &str = "del_arp";
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelArp(raw_ipv4(address), lif.as_ptr(), instance.as_ptr()) }, OPERATION)
}

/// Adds a proxy entry of IPv4.
///
/// - `address`: IPv4
/// - `lif`: name of the LIF that the entry is on, at most 63 bytes
/// - `instance`: the instance's key, at most 63 bytes
pub fn set_proxy_arp<'a>(
    address: Ipv4Addr,
    lif: impl Into<LifName<'a>>,
    instance: impl Into<InstanceKey<'a>>,
) -> Result<()> {
    const OPERATION: &str = "set_proxy_arp";
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetProxyArp(raw_ipv4(address), lif.as_ptr(), instance.as_ptr()) }, OPERATION)
}

/// Deletes a proxy entry of IPv4.
///
/// - `address`: IPv4
/// - `lif`: name of the LIF that the entry is on, at most 63 bytes
/// - `instance`: the instance's key, at most 63 bytes
pub fn del_proxy_arp<'a>(
    address: Ipv4Addr,
    lif: impl Into<LifName<'a>>,
    instance: impl Into<InstanceKey<'a>>,
) -> Result<()> {
    const OPERATION: &str = "del_proxy_arp";
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelProxyArp(raw_ipv4(address), lif.as_ptr(), instance.as_ptr()) }, OPERATION)
}

/// Reads the ARP entries of a LIF, or of a whole instance.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes; left out: those of the whole instance
///
/// Returns `LUMOZEPH_ARP_TABLE_SIZE` bytes.
pub fn get_arps<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: Option<LifName<'a>>,
) -> Result<Box<[u8; sys::LUMOZEPH_ARP_TABLE_SIZE]>> {
    let mut buffer = zeroed("get_arps")?;
    get_arps_into(instance, lif, &mut buffer)?;
    Ok(buffer)
}

/// [`get_arps`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn get_arps_into<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: Option<LifName<'a>>,
    buffer: &mut [u8; sys::LUMOZEPH_ARP_TABLE_SIZE],
) -> Result<()> {
    const OPERATION: &str = "get_arps";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of_maybe(lif, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_GetArps(instance.as_ptr(), lif.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)
}

/// Reads the proxy entries of IPv4 of a LIF, or of a whole instance.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes; left out: those of the whole instance
///
/// Returns `LUMOZEPH_ARP_TABLE_SIZE` bytes.
pub fn get_proxy_arps<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: Option<LifName<'a>>,
) -> Result<Box<[u8; sys::LUMOZEPH_ARP_TABLE_SIZE]>> {
    let mut buffer = zeroed("get_proxy_arps")?;
    get_proxy_arps_into(instance, lif, &mut buffer)?;
    Ok(buffer)
}

/// [`get_proxy_arps`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn get_proxy_arps_into<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: Option<LifName<'a>>,
    buffer: &mut [u8; sys::LUMOZEPH_ARP_TABLE_SIZE],
) -> Result<()> {
    const OPERATION: &str = "get_proxy_arps";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of_maybe(lif, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_GetProxyArps(instance.as_ptr(), lif.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)
}

/// Clears the ARP table of a LIF, or of a whole instance.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes; left out: that of the whole instance
pub fn clear_arp<'a>(instance: impl Into<InstanceKey<'a>>, lif: Option<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "clear_arp";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of_maybe(lif, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_ClearArp(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// Clears the IPv6 neighbours of a LIF, or of a whole instance.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes; left out: those of the whole instance
pub fn clear_arp_v6<'a>(instance: impl Into<InstanceKey<'a>>, lif: Option<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "clear_arp_v6";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of_maybe(lif, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_ClearArpv6(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// The arguments of [`set_arp_v6`].
#[derive(Clone, Copy, Debug)]
pub struct SetArpV6<'a> {
    /// The address.
    pub address: Ipv6Addr,
    /// The MAC address as text, at most 18 bytes.
    pub mac: MacText<'a>,
    /// Name of the LIF that the neighbour is on, at most 64 bytes.
    pub lif: LifName<'a>,
    /// The instance's key, at most 64 bytes.
    pub instance: InstanceKey<'a>,
}

impl<'a> SetArpV6<'a> {
    /// With all of them.
    pub fn new(
        address: Ipv6Addr,
        mac: impl Into<MacText<'a>>,
        lif: impl Into<LifName<'a>>,
        instance: impl Into<InstanceKey<'a>>,
    ) -> Self {
        Self { address, mac: mac.into(), lif: lif.into(), instance: instance.into() }
    }
}

/// Adds an IPv6 neighbour.
pub fn set_arp_v6(with: &SetArpV6<'_>) -> Result<()> {
    const OPERATION: &str = "set_arp_v6";
    let mac = Terminated::<19>::of(with.mac, OPERATION)?;
    let lif = Terminated::<65>::of(with.lif, OPERATION)?;
    let instance = Terminated::<65>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetArpv6(
                raw_ipv6(with.address)[0],
                raw_ipv6(with.address)[1],
                mac.as_ptr(),
                lif.as_ptr(),
                instance.as_ptr(),
            )
        },
        OPERATION,
    )
}

/// Deletes an IPv6 neighbour.
///
/// - `address`: the address
/// - `lif`: name of the LIF that the neighbour is on, at most 64 bytes
/// - `instance`: the instance's key, at most 64 bytes
pub fn del_arp_v6<'a>(
    address: Ipv6Addr,
    lif: impl Into<LifName<'a>>,
    instance: impl Into<InstanceKey<'a>>,
) -> Result<()> {
    const OPERATION: &str = "del_arp_v6";
    let lif = Terminated::<65>::of(lif.into(), OPERATION)?;
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    check(
        unsafe { sys::LUMOZEPH_DelArpv6(raw_ipv6(address)[0], raw_ipv6(address)[1], lif.as_ptr(), instance.as_ptr()) },
        OPERATION,
    )
}

/// Adds a proxy entry of IPv6.
///
/// - `address`: the address
/// - `lif`: name of the LIF that the entry is on, at most 64 bytes
/// - `instance`: the instance's key, at most 64 bytes
pub fn set_proxy_arp_v6<'a>(
    address: Ipv6Addr,
    lif: impl Into<LifName<'a>>,
    instance: impl Into<InstanceKey<'a>>,
) -> Result<()> {
    const OPERATION: &str = "set_proxy_arp_v6";
    let lif = Terminated::<65>::of(lif.into(), OPERATION)?;
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetProxyArpv6(raw_ipv6(address)[0], raw_ipv6(address)[1], lif.as_ptr(), instance.as_ptr())
        },
        OPERATION,
    )
}

/// Deletes a proxy entry of IPv6.
///
/// - `address`: the address
/// - `lif`: name of the LIF that the entry is on, at most 64 bytes
/// - `instance`: the instance's key, at most 64 bytes
pub fn del_proxy_arp_v6<'a>(
    address: Ipv6Addr,
    lif: impl Into<LifName<'a>>,
    instance: impl Into<InstanceKey<'a>>,
) -> Result<()> {
    const OPERATION: &str = "del_proxy_arp_v6";
    let lif = Terminated::<65>::of(lif.into(), OPERATION)?;
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_DelProxyArpv6(raw_ipv6(address)[0], raw_ipv6(address)[1], lif.as_ptr(), instance.as_ptr())
        },
        OPERATION,
    )
}

/// Reads the IPv6 neighbours of a LIF, or of a whole instance.
///
/// - `instance`: the instance's key, at most 64 bytes
/// - `lif`: the LIF's name, at most 64 bytes; left out: those of the whole instance
///
/// Returns `LUMOZEPH_ARP_TABLE_SIZE` bytes.
pub fn get_arps_v6<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: Option<LifName<'a>>,
) -> Result<Box<[u8; sys::LUMOZEPH_ARP_TABLE_SIZE]>> {
    let mut buffer = zeroed("get_arps_v6")?;
    get_arps_v6_into(instance, lif, &mut buffer)?;
    Ok(buffer)
}

/// [`get_arps_v6`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn get_arps_v6_into<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: Option<LifName<'a>>,
    buffer: &mut [u8; sys::LUMOZEPH_ARP_TABLE_SIZE],
) -> Result<()> {
    const OPERATION: &str = "get_arps_v6";
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<65>::of_maybe(lif, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_GetArpsv6(instance.as_ptr(), lif.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)
}
