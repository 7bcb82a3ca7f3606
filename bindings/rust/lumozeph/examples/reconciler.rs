//! Brings a host to the state that a file describes, and keeps at it whatever fails meanwhile.
//!
//!     reconciler FILE
//!
//! A line of FILE is one of
//!
//!     lif INSTANCE LIF ADDRESS/LENGTH MAC
//!     route INSTANCE PREFIX GATEWAY
//!     bridge BRIDGE
//!
//! Instances are created, and LIFs enabled. Each instance has a thread of its own, the bridges have another. A thread
//! compares what is there with what should be, changes what differs, and begins again until nothing does: what a failed
//! call has left behind, or someone else has undone, is found by the next comparison. LIFs that are not described are
//! removed, and so are routes that this program has made, which it knows by their mark.
//!
//! Exits 0 when all is as described, 1 if that was not so after 1000 attempts, 2 on wrong usage.

use lumozeph::{DelRoute, Ipv4Prefix, Mac, SetLif, SetLumoInstance, SetRoute};
use std::collections::{BTreeMap, BTreeSet};
use std::error::Error;
use std::net::Ipv4Addr;
use std::process::ExitCode;
use std::time::Duration;
use std::{fs, thread};

/// The routes of this program.
const MARK: u32 = 4711;

#[derive(PartialEq)]
struct Lif {
    address: Ipv4Prefix,
    mac: Mac,
    enabled: bool,
}

#[derive(PartialEq, Eq, PartialOrd, Ord)]
struct Route {
    dest: Ipv4Prefix,
    gateway: Ipv4Addr,
}

#[derive(Default)]
struct Instance {
    lifs: BTreeMap<String, Lif>,
    routes: BTreeSet<Route>,
}

#[derive(Default)]
struct State {
    instances: BTreeMap<String, Instance>,
    bridges: BTreeSet<String>,
}

fn read_line(line: &str, state: &mut State) -> Result<(), Box<dyn Error>> {
    let words: Vec<&str> = line.split_whitespace().collect();
    match words[..] {
        ["lif", instance, lif, address, mac] => {
            let described = Lif { address: address.parse()?, mac: mac.parse()?, enabled: true };
            state.instances.entry(instance.into()).or_default().lifs.insert(lif.into(), described);
        }
        ["route", instance, dest, gateway] => {
            let described = Route { dest: dest.parse()?, gateway: gateway.parse()? };
            state.instances.entry(instance.into()).or_default().routes.insert(described);
        }
        ["bridge", bridge] => {
            state.bridges.insert(bridge.into());
        }
        [] => {}
        _ => return Err("not understood".into()),
    }
    Ok(())
}

fn read(text: &str) -> Result<State, Box<dyn Error>> {
    let mut state = State::default();
    for line in text.lines() {
        read_line(line, &mut state).map_err(|error| format!("{line}: {error}"))?;
    }
    Ok(state)
}

fn present(name: &str) -> lumozeph::Result<Instance> {
    let mut instance = Instance::default();
    for lif in &lumozeph::get_lifs(name)? {
        // The first of the module's flags says that the LIF is enabled.
        let found = Lif { address: lif.ip_addr_prefix(), mac: lif.lif_mac(), enabled: lif.lif_flags()[0] != 0 };
        instance.lifs.insert(lif.lif_name().to_string(), found);
    }
    for route in lumozeph::get_routes(name)?.iter().filter(|route| route.route_value1() == MARK) {
        for hop in route.next_hops() {
            instance.routes.insert(Route { dest: route.route_dest_prefix(), gateway: hop.next_hop_addr() });
        }
    }
    Ok(instance)
}

/// How many changes it took.
fn reconcile(name: &str, desired: &Instance) -> lumozeph::Result<usize> {
    let mut changes = 0;
    if !lumozeph::get_instances()?.iter().any(|one| one.instance_key() == name) {
        lumozeph::set_lumo_instance(&SetLumoInstance::new(name))?;
        changes += 1;
    }
    let now = present(name)?;
    for lif in now.lifs.keys().filter(|lif| !desired.lifs.contains_key(*lif)) {
        lumozeph::del_lif(lif, "", name)?;
        changes += 1;
    }
    for (lif, should) in desired.lifs.iter().filter(|(lif, should)| now.lifs.get(*lif) != Some(*should)) {
        lumozeph::set_lif(&SetLif::new(lif, "", should.address, Ipv4Addr::UNSPECIFIED, name).mac(should.mac))?;
        lumozeph::enable_lif(name, lif)?;
        changes += 1;
    }
    for route in now.routes.difference(&desired.routes) {
        lumozeph::del_route(&DelRoute::new(route.dest, route.gateway, name))?;
        changes += 1;
    }
    for route in desired.routes.difference(&now.routes) {
        lumozeph::set_route(&SetRoute::new(route.dest, route.gateway, name).param(MARK))?;
        changes += 1;
    }
    Ok(changes)
}

fn reconcile_bridges(desired: &BTreeSet<String>) -> lumozeph::Result<usize> {
    let now = lumozeph::get_bridge_instances()?;
    let mut changes = 0;
    for bridge in desired.iter().filter(|name| !now.iter().any(|bridge| bridge.name() == name.as_str())) {
        lumozeph::bridge_add(bridge, 0)?;
        changes += 1;
    }
    Ok(changes)
}

/// Until there is nothing to change. Whether that was reached.
fn keep_at(what: &str, work: impl Fn() -> lumozeph::Result<usize>) -> bool {
    for _ in 0..1000 {
        match work() {
            Ok(0) => return true,
            Ok(_) => {}
            Err(error) => {
                eprintln!("reconciler: {what}: {error}");
                thread::sleep(Duration::from_millis(1));
            }
        }
    }
    false
}

fn reconcile_all(state: &State) -> bool {
    thread::scope(|scope| {
        let mut threads = vec![scope.spawn(|| keep_at("bridges", || reconcile_bridges(&state.bridges)))];
        for (name, instance) in &state.instances {
            threads.push(scope.spawn(move || keep_at(&format!("instance {name}"), || reconcile(name, instance))));
        }
        threads.into_iter().map(|thread| thread.join().unwrap()).all(|reached| reached)
    })
}

fn described(path: &str) -> Result<State, Box<dyn Error>> {
    let text = fs::read_to_string(path).map_err(|error| format!("{path}: {error}"))?;
    read(&text)
}

fn main() -> ExitCode {
    let arguments: Vec<String> = std::env::args().skip(1).collect();
    let path = match &arguments[..] {
        [path] => path,
        _ => {
            eprintln!("usage: reconciler FILE");
            return ExitCode::from(2);
        }
    };
    match described(path) {
        Ok(state) if reconcile_all(&state) => ExitCode::SUCCESS,
        Ok(_) => ExitCode::FAILURE,
        Err(error) => {
            eprintln!("reconciler: {error}");
            ExitCode::from(2)
        }
    }
}
