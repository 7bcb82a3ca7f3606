//! Lists the routes of a router instance, IPv4 and IPv6, adds and deletes them, and asks which one a destination takes.
//!
//!     route_manager INSTANCE list | get ADDRESS | add|delete PREFIX GATEWAY [LIF]
//!
//! PREFIX is ADDRESS/LENGTH. Exits 0 on success, 1 when something fails, 2 on wrong usage.

use lumozeph::{
    DelRoute, DelRouteV6, GetResolveRoute, InstanceKey, Ipv4Mask, Ipv6Prefix, LifName, NotAnAddress, RouteInfo,
    SetRoute, SetRouteV6,
};
use std::error::Error;
use std::io::{self, Write};
use std::net::AddrParseError;
use std::process::ExitCode;

type Outcome = Result<(), Box<dyn Error>>;

fn print(out: &mut impl Write, route: &RouteInfo) -> io::Result<()> {
    write!(out, "{}", route.route_dest_prefix())?;
    for hop in route.next_hops() {
        if !hop.next_hop_addr().is_unspecified() {
            write!(out, " via {}", hop.next_hop_addr())?;
        }
        if !hop.next_hop_lif_name().is_empty() {
            write!(out, " dev {}", hop.next_hop_lif_name())?;
        }
    }
    writeln!(out)
}

fn list(instance: InstanceKey) -> Outcome {
    let routes = lumozeph::get_routes(instance)?;
    let mut out = io::BufWriter::new(io::stdout().lock());
    for route in &routes {
        print(&mut out, route)?;
    }
    // What an IPv6 route looks like is the module's.
    writeln!(out, "IPv6 routes: {}", lumozeph::get_routes_v6(instance)?.reported())?;
    if routes.truncated() {
        writeln!(out, "and perhaps more")?;
    }
    Ok(out.flush()?)
}

fn get(instance: InstanceKey, dest: &str) -> Outcome {
    let query = GetResolveRoute::new(instance, dest.parse()?, Ipv4Mask::of_length(32));
    Ok(print(&mut io::stdout(), &*lumozeph::get_resolve_route(&query)?)?)
}

fn add(instance: InstanceKey, net: &str, gateway: &str, lif: Option<LifName>) -> Outcome {
    if let Ok(dest) = net.parse::<Ipv6Prefix>() {
        let route = SetRouteV6 { lif, ..SetRouteV6::new(dest, gateway.parse()?, instance) };
        return Ok(lumozeph::set_route_v6(&route)?);
    }
    let route = SetRoute { lif, ..SetRoute::new(net.parse()?, gateway.parse()?, instance) };
    Ok(lumozeph::set_route(&route)?)
}

fn delete(instance: InstanceKey, net: &str, gateway: &str, lif: Option<LifName>) -> Outcome {
    if let Ok(dest) = net.parse::<Ipv6Prefix>() {
        let route = DelRouteV6 { lif, ..DelRouteV6::new(dest, gateway.parse()?, instance) };
        return Ok(lumozeph::del_route_v6(&route)?);
    }
    let route = DelRoute { lif, ..DelRoute::new(net.parse()?, gateway.parse()?, instance) };
    Ok(lumozeph::del_route(&route)?)
}

fn main() -> ExitCode {
    let arguments: Vec<String> = std::env::args().skip(1).collect();
    let words: Vec<&str> = arguments.iter().map(String::as_str).collect();
    let outcome = match words[..] {
        [instance, "list"] => list(instance.into()),
        [instance, "get", dest] => get(instance.into(), dest),
        [instance, "add", net, gateway] => add(instance.into(), net, gateway, None),
        [instance, "add", net, gateway, lif] => add(instance.into(), net, gateway, Some(lif.into())),
        [instance, "delete", net, gateway] => delete(instance.into(), net, gateway, None),
        [instance, "delete", net, gateway, lif] => delete(instance.into(), net, gateway, Some(lif.into())),
        _ => {
            eprintln!("usage: route_manager INSTANCE list | get ADDRESS | add|delete PREFIX GATEWAY [LIF]");
            return ExitCode::from(2);
        }
    };
    match outcome {
        Ok(()) => ExitCode::SUCCESS,
        Err(error) => {
            eprintln!("route_manager: {error}");
            let not_understood = error.is::<NotAnAddress>() || error.is::<AddrParseError>();
            ExitCode::from(if not_understood { 2 } else { 1 })
        }
    }
}
