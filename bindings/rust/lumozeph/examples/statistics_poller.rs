//! Shows by how much the counters of the logical interfaces (LIFs) of an instance grow.
//!
//!     statistics_poller INSTANCE MILLISECONDS COUNT
//!
//! Reads them COUNT times, every so many milliseconds, and prints what has changed since the last time. A LIF that
//! cannot be read is told and tried again. Exits 0 if every LIF was read in the end, 1 if not, 2 on wrong usage.

use lumozeph::{sys, LifName};
use std::collections::HashMap;
use std::io::{self, Write};
use std::process::ExitCode;
use std::thread;
use std::time::{Duration, Instant};

type Counters = [u64; sys::LUMOZEPH_STATS_COUNTERS];

struct Poller {
    instance: String,
    known: HashMap<Vec<u8>, Counters>,
}

fn failed(what: &str, error: lumozeph::Error) {
    eprintln!("statistics_poller: {what}: {error}");
}

// A counter that is less than before has been zeroed in between.
fn print_growth(lif: LifName, before: &Counters, now: &Counters) -> io::Result<()> {
    let mut out = io::stdout().lock();
    for (number, (before, now)) in before.iter().zip(now).enumerate() {
        if before != now {
            writeln!(out, "{lif}: counter {number} +{}", now.checked_sub(*before).unwrap_or(*now))?;
        }
    }
    Ok(())
}

impl Poller {
    // Whether all could be read.
    fn poll(&mut self) -> io::Result<bool> {
        let lifs = match lumozeph::get_lifs(&self.instance) {
            Ok(lifs) => lifs,
            Err(error) => {
                failed(&self.instance, error);
                return Ok(false);
            }
        };
        let mut complete = true;
        for lif in &lifs {
            complete &= self.poll_lif(lif.lif_name())?;
        }
        writeln!(io::stdout(), "{} interfaces", lifs.len())?;
        Ok(complete)
    }

    fn poll_lif(&mut self, lif: LifName) -> io::Result<bool> {
        let now = match lumozeph::get_lif_stats(&self.instance, lif) {
            Ok(stats) => stats.counters(),
            Err(error) => {
                failed(&lif.to_string_lossy(), error);
                return Ok(false);
            }
        };
        if let Some(before) = self.known.insert(lif.as_bytes().to_vec(), now) {
            print_growth(lif, &before, &now)?;
        }
        Ok(true)
    }
}

fn main() -> ExitCode {
    let arguments: Vec<String> = std::env::args().skip(1).collect();
    let numbers: Vec<u64> = arguments.iter().skip(1).map(|text| text.parse().unwrap_or(0)).collect();
    let (milliseconds, count) = match numbers[..] {
        [milliseconds, count] if milliseconds > 0 && count > 0 => (milliseconds, count),
        _ => {
            eprintln!("usage: statistics_poller INSTANCE MILLISECONDS COUNT");
            return ExitCode::from(2);
        }
    };
    let mut poller = Poller { instance: arguments[0].clone(), known: HashMap::new() };
    let mut complete = false;
    let mut next = Instant::now();
    for _ in 0..count {
        thread::sleep(next.saturating_duration_since(Instant::now()));
        next += Duration::from_millis(milliseconds);
        complete = match poller.poll() {
            Ok(complete) => complete,
            Err(error) => {
                eprintln!("statistics_poller: standard output: {error}");
                return ExitCode::FAILURE;
            }
        };
    }
    if complete {
        ExitCode::SUCCESS
    } else {
        ExitCode::FAILURE
    }
}
