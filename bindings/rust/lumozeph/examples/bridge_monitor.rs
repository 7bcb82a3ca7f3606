//! Tells which bridges appear, change and go.
//!
//!     bridge_monitor MILLISECONDS COUNT
//!
//! Looks COUNT times, every so many milliseconds; at first, all bridges appear. A look that fails is told and changes
//! nothing. Exits 0 if the last look succeeded, 1 if not, 2 on wrong usage.

use lumozeph::BridgeInstanceInfo;
use std::collections::BTreeMap;
use std::error::Error;
use std::io::{self, Write};
use std::process::ExitCode;
use std::thread;
use std::time::Duration;

type Bridges = BTreeMap<Vec<u8>, BridgeInstanceInfo>;

fn by_name() -> lumozeph::Result<Bridges> {
    let list = lumozeph::get_bridge_instances()?;
    Ok(list.iter().map(|bridge| (bridge.name().as_bytes().to_vec(), *bridge)).collect())
}

fn tell_changes(before: &Bridges, now: &Bridges) -> io::Result<()> {
    let mut out = io::stdout().lock();
    for (name, bridge) in before {
        if !now.contains_key(name) {
            writeln!(out, "gone: {}", bridge.name())?;
        }
    }
    for (name, bridge) in now {
        match before.get(name) {
            None => writeln!(out, "new: {}", bridge.name())?,
            Some(known) if known != bridge => writeln!(out, "changed: {}", bridge.name())?,
            Some(_) => {}
        }
    }
    out.flush()
}

fn look(known: &mut Bridges) -> Result<(), Box<dyn Error>> {
    let now = by_name()?;
    tell_changes(known, &now)?;
    *known = now;
    Ok(())
}

fn main() -> ExitCode {
    let numbers: Vec<u64> = std::env::args().skip(1).map(|text| text.parse().unwrap_or(0)).collect();
    let (milliseconds, count) = match numbers[..] {
        [milliseconds, count] if milliseconds > 0 && count > 0 => (milliseconds, count),
        _ => {
            eprintln!("usage: bridge_monitor MILLISECONDS COUNT");
            return ExitCode::from(2);
        }
    };
    let mut known = Bridges::new();
    let mut last = ExitCode::SUCCESS;
    for number in 0..count {
        if number > 0 {
            thread::sleep(Duration::from_millis(milliseconds));
        }
        last = match look(&mut known) {
            Ok(()) => ExitCode::SUCCESS,
            Err(error) => {
                eprintln!("bridge_monitor: {error}");
                ExitCode::FAILURE
            }
        };
    }
    last
}
