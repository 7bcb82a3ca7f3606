//! Addresses as values. Records and functions of C hold them in network order.

use std::net::{IpAddr, Ipv4Addr, Ipv6Addr};
use std::str::FromStr;
use std::{error, fmt};

/// A text that is not the address that it should be.
#[derive(Clone, Copy, Debug, PartialEq, Eq)]
pub struct NotAnAddress {
    wanted: &'static str,
}

impl fmt::Display for NotAnAddress {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        write!(formatter, "not {}", self.wanted)
    }
}

impl error::Error for NotAnAddress {}

/// A MAC address.
#[derive(Clone, Copy, Default, PartialEq, Eq, PartialOrd, Ord, Hash)]
pub struct Mac([u8; 6]);

impl Mac {
    /// From its six bytes.
    #[inline]
    pub const fn new(bytes: [u8; 6]) -> Self {
        Self(bytes)
    }

    /// Its six bytes.
    #[inline]
    pub const fn as_bytes(&self) -> &[u8; 6] {
        &self.0
    }
}

impl From<[u8; 6]> for Mac {
    #[inline]
    fn from(bytes: [u8; 6]) -> Self {
        Self(bytes)
    }
}

impl fmt::Display for Mac {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        let [a, b, c, d, e, f] = self.0;
        write!(formatter, "{a:02x}:{b:02x}:{c:02x}:{d:02x}:{e:02x}:{f:02x}")
    }
}

impl fmt::Debug for Mac {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        fmt::Display::fmt(self, formatter)
    }
}

impl FromStr for Mac {
    type Err = NotAnAddress;

    /// From "00:11:22:aa:bb:cc" or "00-11-22-AA-BB-CC".
    fn from_str(text: &str) -> Result<Self, NotAnAddress> {
        let wrong = NotAnAddress { wanted: "a MAC address" };
        let mut bytes = [0; 6];
        let mut pairs = text.split([':', '-']);
        for byte in &mut bytes {
            let pair = pairs.next().ok_or(wrong)?;
            if pair.len() != 2 || !pair.bytes().all(|digit| digit.is_ascii_hexdigit()) {
                return Err(wrong);
            }
            *byte = u8::from_str_radix(pair, 16).map_err(|_| wrong)?;
        }
        pairs.next().map_or(Ok(Self(bytes)), |_| Err(wrong))
    }
}

/// A mask of IPv4: any four bytes; most are those of a length.
#[derive(Clone, Copy, PartialEq, Eq, PartialOrd, Ord, Hash)]
pub struct Ipv4Mask(u32);

impl Ipv4Mask {
    /// The mask of a prefix length, which is taken as 32 if it is larger.
    pub const fn of_length(length: u8) -> Self {
        Self(if length == 0 {
            0
        } else if length < 32 {
            u32::MAX << (32 - length)
        } else {
            u32::MAX
        })
    }

    /// The number of leading ones, if all others are zeros.
    pub const fn length(&self) -> Option<u8> {
        let length = self.0.leading_ones() as u8;
        if Self::of_length(length).0 == self.0 {
            Some(length)
        } else {
            None
        }
    }

    /// From the value that records of C hold.
    #[inline]
    pub fn from_raw(raw: u32) -> Self {
        Self(u32::from_be(raw))
    }

    /// The value that records of C hold.
    #[inline]
    pub fn to_raw(self) -> u32 {
        self.0.to_be()
    }
}

impl From<Ipv4Addr> for Ipv4Mask {
    #[inline]
    fn from(bytes: Ipv4Addr) -> Self {
        Self(bytes.into())
    }
}

impl From<Ipv4Mask> for Ipv4Addr {
    #[inline]
    fn from(mask: Ipv4Mask) -> Self {
        mask.0.into()
    }
}

/// Its length, or its four bytes if it has none.
impl fmt::Display for Ipv4Mask {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        match self.length() {
            Some(length) => length.fmt(formatter),
            None => Ipv4Addr::from(*self).fmt(formatter),
        }
    }
}

impl fmt::Debug for Ipv4Mask {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        fmt::Display::fmt(self, formatter)
    }
}

impl FromStr for Ipv4Mask {
    type Err = NotAnAddress;

    /// From "24" or "255.255.255.0".
    fn from_str(text: &str) -> Result<Self, NotAnAddress> {
        if let Some(length) = length_of(text, 32) {
            return Ok(Self::of_length(length));
        }
        text.parse::<Ipv4Addr>().map(Self::from).map_err(|_| NotAnAddress { wanted: "an IPv4 mask" })
    }
}

/// An IPv4 address with its mask: that of an interface, or of a route's destination.
#[derive(Clone, Copy, PartialEq, Eq, PartialOrd, Ord, Hash)]
pub struct Ipv4Prefix {
    address: Ipv4Addr,
    mask: Ipv4Mask,
}

impl Ipv4Prefix {
    /// From an address and the length of its prefix.
    #[inline]
    pub const fn new(address: Ipv4Addr, length: u8) -> Self {
        Self { address, mask: Ipv4Mask::of_length(length) }
    }

    /// From an address and any mask.
    #[inline]
    pub const fn with_mask(address: Ipv4Addr, mask: Ipv4Mask) -> Self {
        Self { address, mask }
    }

    /// The address, as it was given.
    #[inline]
    pub const fn address(&self) -> Ipv4Addr {
        self.address
    }

    /// The mask.
    #[inline]
    pub const fn mask(&self) -> Ipv4Mask {
        self.mask
    }

    /// None if the mask is not that of a length.
    pub const fn length(&self) -> Option<u8> {
        self.mask.length()
    }
}

impl fmt::Display for Ipv4Prefix {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        write!(formatter, "{}/{}", self.address, self.mask)
    }
}

impl fmt::Debug for Ipv4Prefix {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        fmt::Display::fmt(self, formatter)
    }
}

impl FromStr for Ipv4Prefix {
    type Err = NotAnAddress;

    /// From "192.0.2.0/24" or "192.0.2.0/255.255.255.0".
    fn from_str(text: &str) -> Result<Self, NotAnAddress> {
        let parsed = text
            .split_once('/')
            .and_then(|(address, mask)| Some(Self::with_mask(address.parse().ok()?, mask.parse().ok()?)));
        parsed.ok_or(NotAnAddress { wanted: "an IPv4 address and its prefix length" })
    }
}

/// An IPv6 address and the length of its prefix in bits. The library sends any length on.
#[derive(Clone, Copy, PartialEq, Eq, PartialOrd, Ord, Hash)]
pub struct Ipv6Prefix {
    address: Ipv6Addr,
    length: u8,
}

impl Ipv6Prefix {
    /// From an address and the length of its prefix.
    #[inline]
    pub const fn new(address: Ipv6Addr, length: u8) -> Self {
        Self { address, length }
    }

    /// The address, as it was given.
    #[inline]
    pub const fn address(&self) -> Ipv6Addr {
        self.address
    }

    /// The length.
    #[inline]
    pub const fn length(&self) -> u8 {
        self.length
    }
}

impl fmt::Display for Ipv6Prefix {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        write!(formatter, "{}/{}", self.address, self.length)
    }
}

impl fmt::Debug for Ipv6Prefix {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        fmt::Display::fmt(self, formatter)
    }
}

impl FromStr for Ipv6Prefix {
    type Err = NotAnAddress;

    /// From "2001:db8::/32".
    fn from_str(text: &str) -> Result<Self, NotAnAddress> {
        let parsed = text
            .split_once('/')
            .and_then(|(address, length)| Some(Self::new(address.parse().ok()?, length_of(length, 128)?)));
        parsed.ok_or(NotAnAddress { wanted: "an IPv6 address and its prefix length" })
    }
}

/// Of decimal digits alone.
fn length_of(text: &str, most: u8) -> Option<u8> {
    let digits = !text.is_empty() && text.bytes().all(|digit| digit.is_ascii_digit());
    digits.then(|| text.parse().ok()).flatten().filter(|&length| length <= most)
}

#[inline]
pub(crate) fn raw_ipv4(address: Ipv4Addr) -> u32 {
    u32::from_ne_bytes(address.octets())
}

#[inline]
pub(crate) fn ipv4_from_raw(raw: u32) -> Ipv4Addr {
    raw.to_ne_bytes().into()
}

/// The two words that hold the sixteen bytes unchanged.
#[inline]
pub(crate) fn raw_ipv6(address: Ipv6Addr) -> [u64; 2] {
    unsafe { std::mem::transmute(address.octets()) }
}

impl crate::DhcpRelayServer {
    /// The address, if its family is one that is known.
    pub fn ip(&self) -> Option<IpAddr> {
        let bytes = *self.address();
        match self.family() {
            1 => Some(Ipv4Addr::new(bytes[0], bytes[1], bytes[2], bytes[3]).into()),
            3 => Some(Ipv6Addr::from(bytes).into()),
            _ => None,
        }
    }
}

#[cfg(test)]
mod tests {
    use super::*;

    #[test]
    fn mac_addresses_are_read_and_printed() {
        let mac: Mac = "00-11-22-AA-bb:cc".parse().unwrap();
        assert_eq!(mac, Mac::new([0, 0x11, 0x22, 0xaa, 0xbb, 0xcc]));
        assert_eq!(mac.to_string(), "00:11:22:aa:bb:cc");
        for wrong in
            ["", "00:11:22:aa:bb", "00:11:22:aa:bb:cc:dd", "0:11:22:aa:bb:cc", "00:11:22:aa:bb:+c", "00:11:22:aa:bb:cg"]
        {
            assert_eq!(wrong.parse::<Mac>().unwrap_err().to_string(), "not a MAC address", "{wrong}");
        }
    }

    #[test]
    fn masks_have_a_length_or_bytes() {
        for length in 0..=32 {
            let mask = Ipv4Mask::of_length(length);
            assert_eq!(mask.length(), Some(length));
            assert_eq!(mask.to_string().parse(), Ok(mask));
        }
        assert_eq!(Ipv4Mask::of_length(200), Ipv4Mask::of_length(32));
        let odd: Ipv4Mask = "255.0.255.0".parse().unwrap();
        assert_eq!(odd.length(), None);
        assert_eq!(odd.to_string(), "255.0.255.0");
        for wrong in ["33", "-1", "+1", "", "255.0.0", "1000"] {
            assert_eq!(wrong.parse::<Ipv4Mask>().unwrap_err().to_string(), "not an IPv4 mask", "{wrong}");
        }
    }

    #[test]
    fn raw_values_are_in_network_order() {
        let address = Ipv4Addr::new(192, 0, 2, 1);
        assert_eq!(raw_ipv4(address).to_ne_bytes(), [192, 0, 2, 1]);
        assert_eq!(ipv4_from_raw(raw_ipv4(address)), address);
        let mask = Ipv4Mask::of_length(24);
        assert_eq!(mask.to_raw().to_ne_bytes(), [255, 255, 255, 0]);
        assert_eq!(Ipv4Mask::from_raw(mask.to_raw()), mask);
        let [first, second] = raw_ipv6("102:304:506:708:90a:b0c:d0e:f10".parse().unwrap());
        assert_eq!(first.to_ne_bytes(), [1, 2, 3, 4, 5, 6, 7, 8]);
        assert_eq!(second.to_ne_bytes(), [9, 10, 11, 12, 13, 14, 15, 16]);
    }

    #[test]
    fn prefixes_are_read_and_printed() {
        let net: Ipv4Prefix = "192.0.2.0/255.255.255.0".parse().unwrap();
        assert_eq!(net, Ipv4Prefix::new(Ipv4Addr::new(192, 0, 2, 0), 24));
        assert_eq!((net.to_string().as_str(), net.length()), ("192.0.2.0/24", Some(24)));
        assert_eq!("192.0.2.0/0.0.0.1".parse::<Ipv4Prefix>().unwrap().length(), None);
        let net: Ipv6Prefix = "2001:db8::/32".parse().unwrap();
        assert_eq!((net.address(), net.length()), ("2001:db8::".parse().unwrap(), 32));
        assert_eq!(net.to_string(), "2001:db8::/32");
        for wrong in ["192.0.2.0", "192.0.2.0/33", "192.0.2/24", "/24", "2001:db8::/32"] {
            let error = wrong.parse::<Ipv4Prefix>().unwrap_err().to_string();
            assert_eq!(error, "not an IPv4 address and its prefix length", "{wrong}");
        }
        for wrong in ["2001:db8::", "2001:db8::/129", "2001:db8/32", "192.0.2.0/24", "::/", "::/+1"] {
            let error = wrong.parse::<Ipv6Prefix>().unwrap_err().to_string();
            assert_eq!(error, "not an IPv6 address and its prefix length", "{wrong}");
        }
    }
}
