//! Texts that know what they name.

use crate::error::{Error, Result};
use std::borrow::Cow;
use std::ffi::{CStr, OsStr};
use std::hash::{Hash, Hasher};
use std::marker::PhantomData;
use std::net::IpAddr;
use std::os::raw::c_char;
use std::os::unix::ffi::OsStrExt;
use std::str::Utf8Error;
use std::{fmt, ptr, slice, str};

extern "C" {
    fn strnlen(text: *const c_char, most: usize) -> usize;
}

/// A kind of text that is the key of something of the module's.
pub trait Key {}

/// A text of which `Kind` says what it names. It refers to the text and does not copy it.
///
/// The library takes and gives any bytes: mostly, but not always, they are UTF-8.
pub struct Name<'a, Kind> {
    bytes: &'a [u8],
    kind: PhantomData<fn() -> Kind>,
}

impl<'a, Kind> Name<'a, Kind> {
    const fn new(bytes: &'a [u8]) -> Self {
        Self { bytes, kind: PhantomData }
    }

    /// A text of a record, up to its NUL, or all of it where the module sends it without one.
    pub(crate) fn of_field(field: &'a [c_char]) -> Self {
        // The length is at most that of the field.
        unsafe {
            let length = strnlen(field.as_ptr(), field.len());
            Self::new(slice::from_raw_parts(field.as_ptr().cast(), length))
        }
    }

    /// Its bytes, without a NUL at their end.
    pub const fn as_bytes(&self) -> &'a [u8] {
        self.bytes
    }

    /// The text, if it is UTF-8.
    pub fn to_str(&self) -> std::result::Result<&'a str, Utf8Error> {
        str::from_utf8(self.bytes)
    }

    /// The text, with U+FFFD for what is not UTF-8.
    pub fn to_string_lossy(&self) -> Cow<'a, str> {
        String::from_utf8_lossy(self.bytes)
    }

    /// Whether there is none.
    pub const fn is_empty(&self) -> bool {
        self.bytes.is_empty()
    }
}

impl<Kind: Key> Name<'_, Kind> {
    /// Whether the key is a UUID in text form; otherwise it is a name.
    pub fn is_uuid(&self) -> bool {
        let well_formed = |(at, byte): (usize, &u8)| match at {
            8 | 13 | 18 | 23 => *byte == b'-',
            _ => byte.is_ascii_hexdigit(),
        };
        self.bytes.len() == 36 && self.bytes.iter().enumerate().all(well_formed)
    }
}

impl<Kind> Clone for Name<'_, Kind> {
    fn clone(&self) -> Self {
        *self
    }
}

impl<Kind> Copy for Name<'_, Kind> {}

impl<Kind> PartialEq for Name<'_, Kind> {
    fn eq(&self, other: &Self) -> bool {
        self.bytes == other.bytes
    }
}

impl<Kind> Eq for Name<'_, Kind> {}

impl<Kind> PartialEq<str> for Name<'_, Kind> {
    fn eq(&self, other: &str) -> bool {
        self.bytes == other.as_bytes()
    }
}

impl<Kind> PartialEq<&str> for Name<'_, Kind> {
    fn eq(&self, other: &&str) -> bool {
        self.bytes == other.as_bytes()
    }
}

impl<Kind> PartialOrd for Name<'_, Kind> {
    fn partial_cmp(&self, other: &Self) -> Option<std::cmp::Ordering> {
        Some(self.cmp(other))
    }
}

impl<Kind> Ord for Name<'_, Kind> {
    fn cmp(&self, other: &Self) -> std::cmp::Ordering {
        self.bytes.cmp(other.bytes)
    }
}

impl<Kind> Hash for Name<'_, Kind> {
    fn hash<H: Hasher>(&self, state: &mut H) {
        self.bytes.hash(state);
    }
}

impl<Kind> fmt::Display for Name<'_, Kind> {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        self.to_string_lossy().fmt(formatter)
    }
}

impl<Kind> fmt::Debug for Name<'_, Kind> {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        self.to_string_lossy().fmt(formatter)
    }
}

impl<'a, Kind> From<&'a [u8]> for Name<'a, Kind> {
    fn from(bytes: &'a [u8]) -> Self {
        Self::new(bytes)
    }
}

impl<'a, Kind> From<&'a str> for Name<'a, Kind> {
    fn from(text: &'a str) -> Self {
        Self::new(text.as_bytes())
    }
}

impl<'a, Kind> From<&'a String> for Name<'a, Kind> {
    fn from(text: &'a String) -> Self {
        Self::new(text.as_bytes())
    }
}

impl<'a, Kind> From<&'a CStr> for Name<'a, Kind> {
    fn from(text: &'a CStr) -> Self {
        Self::new(text.to_bytes())
    }
}

impl<'a, Kind> From<&'a OsStr> for Name<'a, Kind> {
    fn from(text: &'a OsStr) -> Self {
        Self::new(text.as_bytes())
    }
}

/// A key of anything may stand where it does not matter of what.
impl<'a, Kind: Key> From<Name<'a, Kind>> for crate::AnyKey<'a> {
    fn from(key: Name<'a, Kind>) -> Self {
        Self::new(key.bytes)
    }
}

/// What is passed where the library reads a text and does not send it.
pub(crate) const EMPTY: &CStr = unsafe { CStr::from_bytes_with_nul_unchecked(b"\0") };

/// A text as C wants it, cut to what the library uses of it.
pub(crate) struct Terminated<const SIZE: usize> {
    bytes: Option<[u8; SIZE]>,
}

impl<const SIZE: usize> Terminated<SIZE> {
    #[inline]
    pub fn of<Kind>(name: Name<'_, Kind>, operation: &'static str) -> Result<Self> {
        if unsafe { strnlen(name.bytes.as_ptr().cast(), name.bytes.len()) } < name.bytes.len() {
            return Err(Error::rejected(operation));
        }
        let mut bytes = [0; SIZE];
        let used = name.bytes.len().min(SIZE - 1);
        bytes[..used].copy_from_slice(&name.bytes[..used]);
        Ok(Self { bytes: Some(bytes) })
    }

    /// None is null.
    #[inline]
    pub fn of_maybe<Kind>(name: Option<Name<'_, Kind>>, operation: &'static str) -> Result<Self> {
        name.map_or(Ok(Self { bytes: None }), |name| Self::of(name, operation))
    }

    pub fn as_ptr(&self) -> *const c_char {
        self.bytes.as_ref().map_or(ptr::null(), |bytes| bytes.as_ptr().cast())
    }
}

/// Addresses as a text with commas between them, in memory that the library may write to. No addresses are null.
pub(crate) struct ServerList(Option<Vec<u8>>);

impl ServerList {
    pub fn of(addresses: &[IpAddr]) -> Self {
        if addresses.is_empty() {
            return Self(None);
        }
        let texts: Vec<String> = addresses.iter().map(IpAddr::to_string).collect();
        Self(Some((texts.join(",") + "\0").into_bytes()))
    }

    pub fn as_mut_ptr(&mut self) -> *mut c_char {
        self.0.as_mut().map_or(ptr::null_mut(), |bytes| bytes.as_mut_ptr().cast())
    }
}

#[cfg(test)]
mod tests {
    use super::*;
    use crate::{AnyKey, InstanceKey, LifName};

    fn field(text: &[u8]) -> Vec<c_char> {
        text.iter().map(|&byte| byte as c_char).collect()
    }

    fn bytes_at<const SIZE: usize>(text: &Terminated<SIZE>) -> &[u8] {
        unsafe { CStr::from_ptr(text.as_ptr()) }.to_bytes()
    }

    #[test]
    fn texts_of_records_end_at_their_nul_or_with_the_field() {
        assert_eq!(LifName::of_field(&field(b"up\0link")), "up");
        assert_eq!(LifName::of_field(&field(b"uplink")), "uplink");
        assert!(LifName::of_field(&field(b"\0")).is_empty());
    }

    #[test]
    fn texts_need_not_be_utf8() {
        let name = LifName::from(&b"\xff"[..]);
        assert!(name.to_str().is_err());
        assert_eq!(format!("{name} {name:?}"), "\u{fffd} \"\u{fffd}\"");
        assert_eq!(LifName::from("\u{e4}").to_str(), Ok("\u{e4}"));
    }

    #[test]
    fn texts_are_cut_where_the_library_cuts_them() {
        for (given, used) in [("", ""), ("abc", "abc"), ("abcd", "abc")] {
            let text = Terminated::<4>::of(LifName::from(given), "test").unwrap();
            assert_eq!(bytes_at(&text), used.as_bytes());
        }
    }

    #[test]
    fn texts_with_a_nul_are_rejected_also_behind_the_cut() {
        for given in ["\0", "ab\0", "abcdef\0"] {
            let error = Terminated::<4>::of(LifName::from(given), "test").err().unwrap();
            assert_eq!((error.operation(), error.errno()), ("test", 22));
            assert_eq!(Terminated::<4>::of_maybe(Some(LifName::from(given)), "test").err(), Some(error));
        }
    }

    #[test]
    fn what_is_left_out_is_null() {
        assert!(Terminated::<4>::of_maybe(None::<LifName>, "test").unwrap().as_ptr().is_null());
        assert!(ServerList::of(&[]).as_mut_ptr().is_null());
    }

    #[test]
    fn servers_have_commas_between_them() {
        let mut list = ServerList::of(&["192.0.2.1".parse().unwrap(), "2001:db8::1".parse().unwrap()]);
        assert_eq!(unsafe { CStr::from_ptr(list.as_mut_ptr()) }.to_bytes(), b"192.0.2.1,2001:db8::1");
    }

    #[test]
    fn keys_are_names_or_uuids() {
        assert!(InstanceKey::from("0000002a-51b3-4f0e-9c1d-00005E00532a").is_uuid());
        for name in ["", "blue", "0000002a-51b3-4f0e-9c1d-00005e00532", "0000002a-51b3-4f0e-9c1d-00005e00532g"] {
            assert!(!InstanceKey::from(name).is_uuid(), "{name}");
        }
        assert_eq!(AnyKey::from(InstanceKey::from("blue")), "blue");
    }
}
