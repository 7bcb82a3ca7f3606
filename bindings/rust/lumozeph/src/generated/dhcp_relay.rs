//! DHCP relay.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// Replaces the DHCP servers that a LIF relays to.
///
/// As it stands, only the empty list can be configured: a server is accepted only if its text is well-formed both
/// as an IPv4 and as an IPv6 address, which none is.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `servers`: the servers; EINVAL if there are any
///
/// # Errors
///
/// - EINVAL: if servers is not null
pub fn configure_lif_dhcp_relay<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    servers: &[IpAddr],
) -> Result<()> {
    const OPERATION: &str = "configure_lif_dhcp_relay";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let mut servers = ServerList::of(servers);
    check(
        unsafe { sys::LUMOZEPH_ConfigureLifDhcpRelay(instance.as_ptr(), lif.as_ptr(), servers.as_mut_ptr()) },
        OPERATION,
    )
}
