//! Lists the logical interfaces (LIFs) of router instances with their addresses.
//!
//!     interfaces [INSTANCE...]
//!
//! Without an argument, those of all instances. Exits 0 on success, 1 when something fails.

use lumozeph::{InstanceKey, LifInfo};
use std::error::Error;
use std::io::{self, Write};
use std::process::ExitCode;

fn print(out: &mut impl Write, lif: &LifInfo) -> io::Result<()> {
    write!(out, "  {} {}", lif.lif_name(), lif.lif_mac())?;
    if !lif.ip_addr().is_unspecified() {
        write!(out, " {}", lif.ip_addr_prefix())?;
    }
    for address in lif.ipv6_addrs() {
        write!(out, " {}", address.address_prefix())?;
    }
    writeln!(out)
}

fn list(out: &mut impl Write, instance: InstanceKey) -> Result<(), Box<dyn Error>> {
    writeln!(out, "{instance}")?;
    let routed = lumozeph::get_lifs(instance)?;
    let bridged = lumozeph::get_bridge_lifs(instance)?;
    for lif in routed.iter().chain(bridged.iter()) {
        print(out, lif)?;
    }
    if routed.truncated() || bridged.truncated() {
        writeln!(out, "  and perhaps more")?;
    }
    Ok(())
}

fn list_all(instances: &[String]) -> Result<(), Box<dyn Error>> {
    let mut out = io::BufWriter::new(io::stdout().lock());
    for instance in instances {
        list(&mut out, instance.into())?;
    }
    if instances.is_empty() {
        for instance in &lumozeph::get_instances()? {
            list(&mut out, instance.instance_key())?;
        }
    }
    Ok(out.flush().map_err(|error| format!("standard output: {error}"))?)
}

fn main() -> ExitCode {
    let instances: Vec<String> = std::env::args().skip(1).collect();
    match list_all(&instances) {
        Ok(()) => ExitCode::SUCCESS,
        Err(error) => {
            eprintln!("interfaces: {error}");
            ExitCode::FAILURE
        }
    }
}
