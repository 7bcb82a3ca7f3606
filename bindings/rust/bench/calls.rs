//! The calls of bindings/cxx/bench/kinds.h, as programs of Rust write them. Linked into a program of C++, which
//! measures them beside those of C.

use lumozeph::*;
use std::net::Ipv4Addr;

const INSTANCE: &str = "0000002a-51b3-4f0e-9c1d-00005e00532a";
const LIF: &str = "lif-0000-17";

fn sum_of_bytes(bytes: &[u8]) -> u64 {
    bytes.iter().map(|&byte| u64::from(byte)).sum()
}

/// Every field of a LIF.
fn sum_of(lif: &LifInfo) -> u64 {
    let mut sum = (lif.lif_name().as_bytes().len() + lif.lif_second_name().as_bytes().len()) as u64;
    for address in [lif.ip_addr(), lif.ip_mask().into(), lif.di_ip()] {
        sum += u64::from(u32::from_ne_bytes(address.octets()));
    }
    for value in [lif.lif_value1(), lif.lif_value2(), lif.lif_value3(), lif.lif_value4()] {
        sum += u64::from(value);
    }
    sum += sum_of_bytes(lif.lif_mac().as_bytes()) + sum_of_bytes(lif.lif_flags());
    sum += u64::from(lif.lif_state1()) + u64::from(lif.lif_state2());
    for one in lif.ipv6_addrs() {
        sum += sum_of_bytes(&one.address().octets()) + u64::from(one.prefix_len()) + u64::from(one.value());
    }
    for server in lif.dhcp_relay().servers() {
        sum += sum_of_bytes(server.address()) + u64::from(server.family());
    }
    sum
}

fn route() -> SetRoute<'static> {
    let dest = Ipv4Prefix::new(Ipv4Addr::new(192, 0, 2, 0), 24);
    SetRoute::new(dest, Ipv4Addr::new(198, 51, 100, 1), INSTANCE).lif(LIF).param(1)
}

#[no_mangle]
pub extern "C" fn rust_set() {
    set_log_level(7).unwrap();
}

#[no_mangle]
pub extern "C" fn rust_set_with_texts() {
    set_route(&route()).unwrap();
}

#[no_mangle]
pub extern "C" fn rust_get_value() -> u64 {
    get_log_level().unwrap().into()
}

#[no_mangle]
pub extern "C" fn rust_get_record() -> u64 {
    u32::from(get_lif(INSTANCE, LIF).unwrap().ip_addr()).into()
}

#[no_mangle]
pub extern "C" fn rust_get_list() -> u64 {
    get_lifs(INSTANCE).unwrap().iter().map(sum_of).sum()
}

#[no_mangle]
pub extern "C" fn rust_get_raw() -> u64 {
    get_locale_id().unwrap()[15].into()
}
