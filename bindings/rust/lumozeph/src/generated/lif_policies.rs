//! Interface policies.
//!
//! Route-shaped entries kept under a policy kind; kind 4 carries a text that names what the policy applies to.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// The arguments of [`set_lif_policy`].
#[derive(Clone, Copy, Debug)]
pub struct SetLifPolicy<'a> {
    /// The policy's kind.
    pub kind: i32,
    /// Ignored unless kind is 4, at most 63 bytes; left out: EINVAL if `kind` is 4, and otherwise none.
    pub text: Option<Text<'a>>,
    /// IPv4 address of the destination network, and its mask.
    pub dest: Ipv4Prefix,
    /// IPv4 address of the next hop.
    pub gateway: Ipv4Addr,
    /// Name of the LIF, at most 63 bytes; left out: none.
    pub lif: Option<LifName<'a>>,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// Passed on as it stands.
    pub param: u32,
}

impl<'a> SetLifPolicy<'a> {
    /// With what must be given; all else is left out.
    pub fn new(dest: Ipv4Prefix, gateway: Ipv4Addr, instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { kind: 0, text: None, dest, gateway, lif: None, instance: instance.into(), param: 0 }
    }
    /// Sets [`kind`](Self#structfield.kind).
    #[must_use]
    pub fn kind(mut self, kind: i32) -> Self {
        self.kind = kind;
        self
    }
    /// Sets [`text`](Self#structfield.text).
    #[must_use]
    pub fn text(mut self, text: impl Into<Text<'a>>) -> Self {
        self.text = Some(text.into());
        self
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

/// Adds an interface policy.
pub fn set_lif_policy(with: &SetLifPolicy<'_>) -> Result<()> {
    set_lif_policy_to(with, ptr::null_mut())
}

/// [`set_lif_policy`], with the module's own answer, which may be there after a failure, too.
pub fn set_lif_policy_answered(with: &SetLifPolicy<'_>, answer: &mut CmdResult) -> Result<()> {
    set_lif_policy_to(with, as_raw_mut(answer))
}

fn set_lif_policy_to(with: &SetLifPolicy<'_>, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "set_lif_policy";
    let text = Terminated::<64>::of_maybe(with.text, OPERATION)?;
    let lif = Terminated::<64>::of_maybe(with.lif, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetLifPolicy(
                with.kind,
                text.as_ptr(),
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

/// The arguments of [`del_lif_policy`].
#[derive(Clone, Copy, Debug)]
pub struct DelLifPolicy<'a> {
    /// The policy's kind.
    pub kind: i32,
    /// Ignored unless kind is 4, at most 63 bytes; left out: EINVAL if `kind` is 4, and otherwise none.
    pub text: Option<Text<'a>>,
    /// IPv4 address of the destination network, and its mask.
    pub dest: Ipv4Prefix,
    /// IPv4 address of the next hop.
    pub gateway: Ipv4Addr,
    /// Name of the LIF, at most 63 bytes; left out: none.
    pub lif: Option<LifName<'a>>,
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// Passed on as it stands.
    pub param: u32,
}

impl<'a> DelLifPolicy<'a> {
    /// With what must be given; all else is left out.
    pub fn new(dest: Ipv4Prefix, gateway: Ipv4Addr, instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { kind: 0, text: None, dest, gateway, lif: None, instance: instance.into(), param: 0 }
    }
    /// Sets [`kind`](Self#structfield.kind).
    #[must_use]
    pub fn kind(mut self, kind: i32) -> Self {
        self.kind = kind;
        self
    }
    /// Sets [`text`](Self#structfield.text).
    #[must_use]
    pub fn text(mut self, text: impl Into<Text<'a>>) -> Self {
        self.text = Some(text.into());
        self
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

/// Deletes an interface policy.
pub fn del_lif_policy(with: &DelLifPolicy<'_>) -> Result<()> {
    del_lif_policy_to(with, ptr::null_mut())
}

/// [`del_lif_policy`], with the module's own answer, which may be there after a failure, too.
pub fn del_lif_policy_answered(with: &DelLifPolicy<'_>, answer: &mut CmdResult) -> Result<()> {
    del_lif_policy_to(with, as_raw_mut(answer))
}

fn del_lif_policy_to(with: &DelLifPolicy<'_>, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "del_lif_policy";
    let text = Terminated::<64>::of_maybe(with.text, OPERATION)?;
    let lif = Terminated::<64>::of_maybe(with.lif, OPERATION)?;
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_DelLifPolicy(
                with.kind,
                text.as_ptr(),
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

/// Reads an instance's interface policies of one kind, as route records.
///
/// - `instance`: its key, at most 63 bytes
/// - `kind`: the policies' kind
/// - `text`: sent whatever the kind, at most 63 bytes; left out: EINVAL if `kind` is 4, and otherwise none
///
/// Returns the list.
pub fn get_lif_policies<'a>(
    instance: impl Into<InstanceKey<'a>>,
    kind: u32,
    text: Option<Text<'a>>,
) -> Result<List<RouteInfo>> {
    const OPERATION: &str = "get_lif_policies";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let text = Terminated::<64>::of_maybe(text, OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLifPolicies(instance.as_ptr(), kind, text.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}
