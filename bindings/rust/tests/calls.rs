//! Every operation of the crate as something that the tables of operations/ can call: calls.rs.jinja has a line for
//! each, and this the arguments of a case as what Rust wants for them. Linked into a program of C++, which has the
//! tables.

use lumozeph::*;
use std::ffi::CStr;
use std::net::{Ipv4Addr, Ipv6Addr};
use std::os::raw::{c_char, c_void};
use std::{mem, ptr, slice};

include!(env!("LUMOZEPH_CALLS"));

/// operations::Argument.
#[repr(C)]
pub struct Argument {
    kind: u8,
    at: *const c_void,
    number: u64,
}

/// The arguments of a case.
struct Given<'a> {
    arguments: &'a [Argument],
}

impl<'a> Given<'a> {
    fn name<Kind>(&self, index: usize) -> Name<'a, Kind> {
        self.maybe_name(index).expect("a text")
    }
    fn maybe_name<Kind>(&self, index: usize) -> Option<Name<'a, Kind>> {
        let text = self.arguments[index].at.cast::<c_char>();
        (!text.is_null()).then(|| unsafe { CStr::from_ptr(text) }.into())
    }
    fn number(&self, index: usize) -> u64 {
        self.arguments[index].number
    }
    fn ipv4(&self, index: usize) -> Ipv4Addr {
        (self.number(index) as u32).to_ne_bytes().into()
    }
    fn ipv4_mask(&self, index: usize) -> Ipv4Mask {
        self.ipv4(index).into()
    }
    fn ipv6(&self, first: usize, second: usize) -> Ipv6Addr {
        let mut bytes = [0; 16];
        bytes[..8].copy_from_slice(&self.number(first).to_ne_bytes());
        bytes[8..].copy_from_slice(&self.number(second).to_ne_bytes());
        bytes.into()
    }
    fn switched(&self, index: usize) -> Switched {
        (self.number(index) != 0).into()
    }
    fn at<Type>(&self, index: usize) -> &'a Type {
        self.maybe_at(index).expect("a pointer")
    }
    fn maybe_at<Type>(&self, index: usize) -> Option<&'a Type> {
        unsafe { self.arguments[index].at.cast::<Type>().as_ref() }
    }
    fn records<Type>(&self, index: usize, count: usize) -> &'a [Type] {
        let records = self.arguments[index].at.cast::<Type>();
        if records.is_null() {
            return &[];
        }
        unsafe { slice::from_raw_parts(records, self.number(count) as usize) }
    }
}

/// Takes what an operation has got: bytes, and how many there are of what they are. Allocates nothing here.
#[repr(C)]
pub struct Taker {
    take: extern "C" fn(context: *mut c_void, bytes: *const c_void, size: usize, count: usize),
    context: *mut c_void,
}

impl Taker {
    fn take<Type: ?Sized>(&self, got: &Type, count: usize) {
        (self.take)(self.context, (got as *const Type).cast(), mem::size_of_val(got), count);
    }
}

/// What an operation returns.
trait Got {
    fn give(&self, taker: &Taker);
}

impl Got for () {
    fn give(&self, _: &Taker) {}
}
impl<R: Single> Got for Owned<R> {
    fn give(&self, taker: &Taker) {
        taker.take::<R>(self, 1);
    }
}
impl<R: Listed> Got for List<R> {
    fn give(&self, taker: &Taker) {
        taker.take::<[R]>(self, self.len());
    }
}
impl<const SIZE: usize> Got for [u8; SIZE] {
    fn give(&self, taker: &Taker) {
        taker.take(self, 1);
    }
}
impl<const SIZE: usize> Got for Box<[u8; SIZE]> {
    fn give(&self, taker: &Taker) {
        taker.take::<[u8]>(&**self, 1);
    }
}
impl<const SIZE: usize> Got for Entries<'_, SIZE> {
    fn give(&self, taker: &Taker) {
        let mut next = self.iter().next().map_or(ptr::null(), |first| first.as_ptr());
        for entry in *self {
            assert_eq!((entry.as_ptr(), entry.len()), (next, SIZE));
            next = entry.as_ptr_range().end;
        }
        let first = self.iter().next().unwrap_or(&[]);
        taker.take(unsafe { slice::from_raw_parts(first.as_ptr(), self.len() * SIZE) }, self.reported());
    }
}
impl<const SIZE: usize> Got for EntryBlock<SIZE> {
    fn give(&self, taker: &Taker) {
        self.entries().give(taker);
    }
}
impl Got for Mac {
    fn give(&self, taker: &Taker) {
        taker.take(self.as_bytes(), 1);
    }
}
impl Got for Ipv4Addr {
    fn give(&self, taker: &Taker) {
        taker.take(&self.octets(), 1);
    }
}
impl Got for u32 {
    fn give(&self, taker: &Taker) {
        taker.take(self, 1);
    }
}
impl Got for RssTunables {
    fn give(&self, taker: &Taker) {
        taker.take(self, 1);
    }
}

struct Call {
    c_name: &'static str,
    name: &'static str,
    /// The module's answer goes into the second argument, if the caller wants it.
    call: fn(given: Given, answer: Option<&mut CmdResult>, taker: &Taker) -> Result<()>,
}

/// A text as C++ makes a std::string_view of it.
#[repr(C)]
pub struct View {
    bytes: *const c_char,
    size: usize,
}

impl From<&'static str> for View {
    fn from(text: &'static str) -> Self {
        Self { bytes: text.as_ptr().cast(), size: text.len() }
    }
}

#[no_mangle]
pub extern "C" fn rust_call_count() -> usize {
    CALLS.len()
}

/// # Safety
/// The pointers are good.
#[no_mangle]
pub unsafe extern "C" fn rust_call_names(index: usize, c_name: *mut View, name: *mut View) {
    *c_name = CALLS[index].c_name.into();
    *name = CALLS[index].name.into();
}

/// Returns 0, or the errno that the error has, and its operation.
///
/// # Safety
/// The pointers are good, and the arguments those that the operation takes.
#[no_mangle]
pub unsafe extern "C" fn rust_call(
    index: usize,
    arguments: *const Argument,
    argument_count: usize,
    answer: *mut CmdResult,
    taker: &Taker,
    operation: *mut View,
) -> i32 {
    let arguments = slice::from_raw_parts(
        if argument_count == 0 { ptr::NonNull::dangling().as_ptr() } else { arguments },
        argument_count,
    );
    match (CALLS[index].call)(Given { arguments }, answer.as_mut(), taker) {
        Ok(()) => 0,
        Err(error) => {
            *operation = error.operation().into();
            error.errno()
        }
    }
}
