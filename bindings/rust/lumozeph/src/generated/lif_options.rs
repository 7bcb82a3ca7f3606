//! Interface addressing and options.
//!
//! Each function but the last changes one property of a LIF that exists. No value is range-checked.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// Sets a LIF's IPv4 address.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `address`: IPv4, and its mask
pub fn set_lif_ip<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    address: Ipv4Prefix,
) -> Result<()> {
    const OPERATION: &str = "set_lif_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetLifIp(
                instance.as_ptr(),
                lif.as_ptr(),
                raw_ipv4(address.address()),
                address.mask().to_raw(),
            )
        },
        OPERATION,
    )
}

/// Removes a LIF's IPv4 address.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `address`: IPv4, and its mask
pub fn del_lif_ip<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    address: Ipv4Prefix,
) -> Result<()> {
    const OPERATION: &str = "del_lif_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_DelLifIp(
                instance.as_ptr(),
                lif.as_ptr(),
                raw_ipv4(address.address()),
                address.mask().to_raw(),
            )
        },
        OPERATION,
    )
}

/// Sets a LIF's designated-instance address.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `address`: IPv4
pub fn set_lif_di_ip<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    address: Ipv4Addr,
) -> Result<()> {
    const OPERATION: &str = "set_lif_di_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetLifDIIp(instance.as_ptr(), lif.as_ptr(), raw_ipv4(address)) }, OPERATION)
}

/// Sets a LIF's VXLAN multicast address.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `address`: IPv4
pub fn set_lif_vxlan_multicast_ip<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    address: Ipv4Addr,
) -> Result<()> {
    const OPERATION: &str = "set_lif_vxlan_multicast_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(
        unsafe { sys::LUMOZEPH_SetLifVxlanMulticastIp(instance.as_ptr(), lif.as_ptr(), raw_ipv4(address)) },
        OPERATION,
    )
}

/// Attaches a LIF to the VXLAN control plane.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
pub fn set_lif_vxlan_cp<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "set_lif_vxlan_cp";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetLifVxlanCP(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// Detaches a LIF from the VXLAN control plane.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
pub fn del_lif_vxlan_cp<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "del_lif_vxlan_cp";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelLifVxlanCP(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// Sets a LIF's administrative state to up.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
pub fn enable_lif<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "enable_lif";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_EnableLif(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// Sets a LIF's administrative state to down.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
pub fn disable_lif<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "disable_lif";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DisableLif(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// Switches multicast routing on a LIF on or off.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `on`: on: on; off: off
pub fn set_lif_mcast_routing<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    on: Switched,
) -> Result<()> {
    const OPERATION: &str = "set_lif_mcast_routing";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetLifMcastRouting(instance.as_ptr(), lif.as_ptr(), on as u8) }, OPERATION)
}

/// Sets the MTU that a LIF advertises in IPv6 router advertisements.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `mtu`: in bytes
pub fn ramtu_set_v6<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>, mtu: u32) -> Result<()> {
    const OPERATION: &str = "ramtu_set_v6";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_RAMTUSetv6(instance.as_ptr(), lif.as_ptr(), mtu) }, OPERATION)
}

/// Adds an IPv6 address to a LIF.
///
/// - `instance`: the instance's key, at most 64 bytes
/// - `lif`: the LIF's name, at most 64 bytes
/// - `address`: the address, and its length
pub fn set_lif_ipv6<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    address: Ipv6Prefix,
) -> Result<()> {
    const OPERATION: &str = "set_lif_ipv6";
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<65>::of(lif.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetLifIpv6(
                instance.as_ptr(),
                lif.as_ptr(),
                raw_ipv6(address.address())[0],
                raw_ipv6(address.address())[1],
                address.length().into(),
            )
        },
        OPERATION,
    )
}

/// Removes an IPv6 address from a LIF.
///
/// - `instance`: the instance's key, at most 64 bytes
/// - `lif`: the LIF's name, at most 64 bytes
/// - `address`: the address, and its length
pub fn del_lif_ipv6<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    address: Ipv6Prefix,
) -> Result<()> {
    const OPERATION: &str = "del_lif_ipv6";
    let instance = Terminated::<65>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<65>::of(lif.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_DelLifIpv6(
                instance.as_ptr(),
                lif.as_ptr(),
                raw_ipv6(address.address())[0],
                raw_ipv6(address.address())[1],
                address.length().into(),
            )
        },
        OPERATION,
    )
}

/// The arguments of [`set_mcast_routing`].
#[derive(Clone, Copy, Debug)]
pub struct SetMcastRouting<'a> {
    /// Its key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// At most 63 bytes.
    pub name: Text<'a>,
    /// Passed on as it stands.
    pub value1: u32,
    /// Passed on as it stands.
    pub value2: u32,
    /// Passed on as it stands.
    pub value3: u16,
    /// Passed on as it stands.
    pub value4: u8,
}

impl<'a> SetMcastRouting<'a> {
    /// With what must be given; all else is left out.
    pub fn new(instance: impl Into<InstanceKey<'a>>, name: impl Into<Text<'a>>) -> Self {
        Self { instance: instance.into(), name: name.into(), value1: 0, value2: 0, value3: 0, value4: 0 }
    }
    /// Sets [`value1`](Self#structfield.value1).
    #[must_use]
    pub fn value1(mut self, value1: u32) -> Self {
        self.value1 = value1;
        self
    }
    /// Sets [`value2`](Self#structfield.value2).
    #[must_use]
    pub fn value2(mut self, value2: u32) -> Self {
        self.value2 = value2;
        self
    }
    /// Sets [`value3`](Self#structfield.value3).
    #[must_use]
    pub fn value3(mut self, value3: u16) -> Self {
        self.value3 = value3;
        self
    }
    /// Sets [`value4`](Self#structfield.value4).
    #[must_use]
    pub fn value4(mut self, value4: u8) -> Self {
        self.value4 = value4;
        self
    }
}

/// Configures multicast routing for an instance as a whole.
pub fn set_mcast_routing(with: &SetMcastRouting<'_>) -> Result<()> {
    const OPERATION: &str = "set_mcast_routing";
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    let name = Terminated::<64>::of(with.name, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetMcastRouting(
                instance.as_ptr(),
                name.as_ptr(),
                with.value1,
                with.value2,
                with.value3,
                with.value4,
            )
        },
        OPERATION,
    )
}
