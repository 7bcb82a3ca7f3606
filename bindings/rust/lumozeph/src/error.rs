//! How a failed call is told.

use std::os::raw::c_int;
use std::{fmt, io};

/// A call that failed: its operation and its reason.
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct Error {
    operation: &'static str,
    errno: i32,
}

/// What operations return.
pub type Result<T> = std::result::Result<T, Error>;

const EINVAL: i32 = 22;
const ENOMEM: i32 = 12;
const EOVERFLOW: i32 = 75;

extern "C" {
    fn __errno_location() -> *mut c_int;
}

impl Error {
    /// The name of the operation, which is that of its function: `get_lifs`.
    #[inline]
    pub fn operation(&self) -> &'static str {
        self.operation
    }

    /// The errno of the failed call.
    #[inline]
    pub fn errno(&self) -> i32 {
        self.errno
    }

    /// What [`io::Error`] says of that errno.
    pub fn kind(&self) -> io::ErrorKind {
        io::Error::from(*self).kind()
    }

    /// Of arguments with which the library must not be called.
    pub(crate) fn rejected(operation: &'static str) -> Self {
        Self { operation, errno: EINVAL }
    }

    pub(crate) fn out_of_memory(operation: &'static str) -> Self {
        Self { operation, errno: ENOMEM }
    }

    #[cold]
    fn last(operation: &'static str) -> Self {
        // The one failure that leaves errno as it was is told as EOVERFLOW, to be no success.
        let errno = match unsafe { *__errno_location() } {
            0 => EOVERFLOW,
            errno => errno,
        };
        Self { operation, errno }
    }
}

impl fmt::Display for Error {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        write!(formatter, "{}: {}", self.operation, io::Error::from(*self))
    }
}

impl std::error::Error for Error {}

impl From<Error> for io::Error {
    fn from(error: Error) -> Self {
        io::Error::from_raw_os_error(error.errno)
    }
}

#[inline]
pub(crate) fn check(result: i32, operation: &'static str) -> Result<()> {
    if result == 0 {
        Ok(())
    } else {
        Err(Error::last(operation))
    }
}

/// Before a call that may leave errno as it was.
pub(crate) fn clear_errno() {
    unsafe { *__errno_location() = 0 }
}
