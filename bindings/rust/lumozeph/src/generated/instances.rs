//! Router instances.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One router instance as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct InstanceInfo(sys::LumoInstanceInfo);

impl InstanceInfo {
    /// The instance's key text.
    #[inline]
    pub fn instance_key(&self) -> InstanceKey<'_> {
        Name::of_field(&self.0.instanceKey)
    }
    /// Value1 of `set_lumo_instance`.
    #[inline]
    pub fn value1(&self) -> u32 {
        self.0.value1
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.0.value2
    }
    /// Zeroed by `release_instances`.
    #[inline]
    pub fn value3(&self) -> u16 {
        self.0.value3
    }
    /// Zeroed by `release_instances`.
    #[inline]
    pub fn value4(&self) -> u16 {
        self.0.value4
    }
    /// Zeroed by `release_instances`.
    #[inline]
    pub fn value5(&self) -> u16 {
        self.0.value5
    }
    /// `value6` as the module reports it.
    #[inline]
    pub fn value6(&self) -> u32 {
        self.0.value6
    }
    /// `value7` as the module reports it.
    #[inline]
    pub fn value7(&self) -> u32 {
        self.0.value7
    }
    /// `value8` as the module reports it.
    #[inline]
    pub fn value8(&self) -> u32 {
        self.0.value8
    }
    /// `value9` as the module reports it.
    #[inline]
    pub fn value9(&self) -> u8 {
        self.0.value9
    }
    /// `value10` as the module reports it.
    #[inline]
    pub fn value10(&self) -> u16 {
        self.0.value10
    }
    /// `value11` as the module reports it.
    #[inline]
    pub fn value11(&self) -> u8 {
        self.0.value11
    }
    /// `value12` as the module reports it.
    #[inline]
    pub fn value12(&self) -> u8 {
        self.0.value12
    }
    /// `bytes1` as the module reports it.
    #[inline]
    pub fn bytes1(&self) -> &[u8; 13] {
        &self.0.bytes1
    }
    /// `words` as the module reports it.
    #[inline]
    pub fn words(&self) -> [u32; 4] {
        self.0.words
    }
    /// `value13` as the module reports it.
    #[inline]
    pub fn value13(&self) -> u32 {
        self.0.value13
    }
    /// `value14` as the module reports it.
    #[inline]
    pub fn value14(&self) -> u16 {
        self.0.value14
    }
    /// `value15` as the module reports it.
    #[inline]
    pub fn value15(&self) -> u8 {
        self.0.value15
    }
    /// `value16` as the module reports it.
    #[inline]
    pub fn value16(&self) -> u16 {
        self.0.value16
    }
    /// `value17` as the module reports it.
    #[inline]
    pub fn value17(&self) -> u8 {
        self.0.value17
    }
    /// `text2` as the module reports it.
    #[inline]
    pub fn text2(&self) -> Text<'_> {
        Name::of_field(&self.0.text2)
    }
    /// `value18` as the module reports it.
    #[inline]
    pub fn value18(&self) -> u16 {
        self.0.value18
    }
    /// `bytes2` as the module reports it.
    #[inline]
    pub fn bytes2(&self) -> &[u8; 32] {
        &self.0.bytes2
    }
    /// `value19` as the module reports it.
    #[inline]
    pub fn value19(&self) -> u64 {
        self.0.value19
    }
    /// `value20` as the module reports it.
    #[inline]
    pub fn value20(&self) -> u32 {
        self.0.value20
    }
    /// `value21` as the module reports it.
    #[inline]
    pub fn value21(&self) -> u8 {
        self.0.value21
    }
    /// `value22` as the module reports it.
    #[inline]
    pub fn value22(&self) -> u32 {
        self.0.value22
    }
    /// `value23` as the module reports it.
    #[inline]
    pub fn value23(&self) -> u32 {
        self.0.value23
    }
    /// `value24` as the module reports it.
    #[inline]
    pub fn value24(&self) -> u8 {
        self.0.value24
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoInstanceInfo {
        &self.0
    }
}

impl From<sys::LumoInstanceInfo> for InstanceInfo {
    fn from(raw: sys::LumoInstanceInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for InstanceInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("InstanceInfo")
            .field("instance_key", &self.instance_key())
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .field("value7", &self.value7())
            .field("value8", &self.value8())
            .field("value9", &self.value9())
            .field("value10", &self.value10())
            .field("value11", &self.value11())
            .field("value12", &self.value12())
            .field("bytes1", &self.bytes1())
            .field("words", &self.words())
            .field("value13", &self.value13())
            .field("value14", &self.value14())
            .field("value15", &self.value15())
            .field("value16", &self.value16())
            .field("value17", &self.value17())
            .field("text2", &self.text2())
            .field("value18", &self.value18())
            .field("bytes2", &self.bytes2())
            .field("value19", &self.value19())
            .field("value20", &self.value20())
            .field("value21", &self.value21())
            .field("value22", &self.value22())
            .field("value23", &self.value23())
            .field("value24", &self.value24())
            .finish()
    }
}

unsafe impl Record for InstanceInfo {
    type Raw = sys::LumoInstanceInfo;
}

unsafe impl Single for InstanceInfo {
    unsafe fn release(record: *mut sys::LumoInstanceInfo) {
        sys::LUMOZEPH_ReleaseInstance(record);
    }
}

unsafe impl Listed for InstanceInfo {
    type List = sys::LumoInstanceList;
    unsafe fn contents(list: *mut sys::LumoInstanceList) -> (*mut sys::LumoInstanceInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoInstanceList) {
        sys::LUMOZEPH_ReleaseInstances(list);
    }
}

impl Capped for InstanceInfo {
    const CAP: usize = sys::LUMOZEPH_INSTANCES_MAX;
}

/// The arguments of [`set_lumo_instance`].
#[derive(Clone, Copy, Debug)]
pub struct SetLumoInstance<'a> {
    /// Its key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// Comes back as `InstanceInfo::value1`.
    pub value1: u32,
    /// At most 18 bytes; left out: none.
    pub text: Option<Text<'a>>,
    /// Passed on as it stands.
    pub value2: u32,
}

impl<'a> SetLumoInstance<'a> {
    /// With what must be given; all else is left out.
    pub fn new(instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { instance: instance.into(), value1: 0, text: None, value2: 0 }
    }
    /// Sets [`value1`](Self#structfield.value1).
    #[must_use]
    pub fn value1(mut self, value1: u32) -> Self {
        self.value1 = value1;
        self
    }
    /// Sets [`text`](Self#structfield.text).
    #[must_use]
    pub fn text(mut self, text: impl Into<Text<'a>>) -> Self {
        self.text = Some(text.into());
        self
    }
    /// Sets [`value2`](Self#structfield.value2).
    #[must_use]
    pub fn value2(mut self, value2: u32) -> Self {
        self.value2 = value2;
        self
    }
}

/// Creates an instance, or updates it if it exists.
pub fn set_lumo_instance(with: &SetLumoInstance<'_>) -> Result<()> {
    const OPERATION: &str = "set_lumo_instance";
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    let text = Terminated::<19>::of_maybe(with.text, OPERATION)?;
    check(
        unsafe { sys::LUMOZEPH_SetLumoInstance(instance.as_ptr(), with.value1, text.as_ptr(), with.value2) },
        OPERATION,
    )
}

/// Deletes an instance.
///
/// - `instance`: its key, at most 63 bytes
pub fn del_lumo_instance<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<()> {
    const OPERATION: &str = "del_lumo_instance";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelLumoInstance(instance.as_ptr()) }, OPERATION)
}

/// Sets an instance's tunables.
///
/// - `instance`: its key, at most 63 bytes
/// - `tunables`: at most 63 bytes
/// - `value`: passed on as it stands
pub fn set_lumo_instance_tunables<'a>(
    instance: impl Into<InstanceKey<'a>>,
    tunables: impl Into<Text<'a>>,
    value: u32,
) -> Result<()> {
    const OPERATION: &str = "set_lumo_instance_tunables";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let tunables = Terminated::<64>::of(tunables.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetLumoInstanceTunables(instance.as_ptr(), tunables.as_ptr(), value) }, OPERATION)
}

/// Reads one instance.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the record.
pub fn get_instance<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<Owned<InstanceInfo>> {
    const OPERATION: &str = "get_instance";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetInstance(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Reads all instances.
///
/// Returns the list.
pub fn get_instances() -> Result<List<InstanceInfo>> {
    const OPERATION: &str = "get_instances";
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetInstances(&mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}
