//! What programs do, with the module in this process: run by `lumozeph-emulator run --in-process`. Its state is that of
//! all tests here, each of which has an instance of its own.

use lumozeph::*;
use std::collections::BTreeMap;
use std::net::{IpAddr, Ipv4Addr};
use std::{io, thread};

const ENOENT: i32 = 2;
const EINVAL: i32 = 22;

fn with_lif(instance: &str) -> Result<()> {
    set_lumo_instance(&SetLumoInstance::new(instance).value1(7))?;
    let address = "10.0.0.2/24".parse().unwrap();
    let mac = "02:00:00:00:00:0a".parse().unwrap();
    set_lif(&SetLif::new("uplink", "second", address, Ipv4Addr::new(10, 0, 0, 9), instance).param_b(5).mac(mac))?;
    enable_lif(instance, "uplink")
}

#[test]
fn records_tell_what_was_set() -> Result<()> {
    with_lif("records")?;
    let lif = get_lif("records", "uplink")?;
    assert_eq!(lif.lif_name(), "uplink");
    assert_eq!(lif.lif_second_name(), "second");
    assert_eq!(lif.ip_addr_prefix().to_string(), "10.0.0.2/24");
    assert_eq!(lif.di_ip(), Ipv4Addr::new(10, 0, 0, 9));
    assert_eq!(lif.lif_mac().to_string(), "02:00:00:00:00:0a");
    assert_eq!((lif.lif_value1(), lif.lif_value2()), (0, 5));
    assert!(format!("{lif:?}").contains("ip_addr: 10.0.0.2"));
    assert_eq!(get_instance("records")?.value1(), 7);
    Ok(())
}

#[test]
fn lists_are_slices() -> Result<()> {
    with_lif("lists")?;
    let gateway = Ipv4Addr::new(10, 0, 0, 1);
    for net in ["192.0.2.0/24", "198.51.100.0/24"] {
        set_route(&SetRoute::new(net.parse().unwrap(), gateway, "lists").param(3))?;
    }
    let mut routes = get_routes("lists")?;
    let hops: BTreeMap<_, _> = routes
        .iter()
        .filter(|route| route.route_value1() == 3)
        .map(|r| (r.route_dest(), r.next_hops().len()))
        .collect();
    assert_eq!(hops, BTreeMap::from([(Ipv4Addr::new(192, 0, 2, 0), 1), (Ipv4Addr::new(198, 51, 100, 0), 1)]));
    assert!(!routes.truncated());
    let mut count = 0;
    for route in &routes {
        count += 1;
        assert!(route.next_hops().iter().all(|hop| hop.next_hop_addr() == gateway || route.route_value1() != 3));
    }
    assert_eq!(count, routes.len());
    routes.sort_by_key(|route| std::cmp::Reverse(route.route_dest()));
    assert_eq!(routes[0].route_dest(), Ipv4Addr::new(198, 51, 100, 0));
    assert!(get_bridge_lifs("lists")?.is_empty());
    Ok(())
}

#[test]
fn names_of_records_are_arguments() -> Result<()> {
    with_lif("names")?;
    let instances = get_instances()?;
    let instance = instances.iter().find(|one| one.instance_key() == "names").unwrap();
    for lif in &get_lifs(instance.instance_key())? {
        assert_eq!(*get_lif(instance.instance_key(), lif.lif_name())?, *lif);
    }
    Ok(())
}

#[test]
fn ipv6_addresses_arrive_in_wire_order() -> Result<()> {
    with_lif("six")?;
    let address: Ipv6Prefix = "2001:db8::2/64".parse().unwrap();
    set_lif_ipv6("six", "uplink", address)?;
    let lif = get_lif("six", "uplink")?;
    assert_eq!(lif.ipv6_addrs().iter().map(|one| one.address_prefix()).collect::<Vec<_>>(), [address]);
    set_route_v6(&SetRouteV6::new("2001:db8:1::/48".parse().unwrap(), "2001:db8::1".parse().unwrap(), "six"))?;
    let routes = get_routes_v6("six")?;
    // The network of the LIF's address is the first.
    assert_eq!((routes.reported(), routes.entries().len(), routes.entries().truncated()), (2, 2, false));
    let entry = routes.entries().iter().nth(1).unwrap();
    assert_eq!(entry[68..74], [0x20, 0x01, 0x0d, 0xb8, 0, 1]);
    assert_eq!(unsafe { routes.all() }.iter().nth(1), Some(entry));
    Ok(())
}

#[test]
fn errors_name_the_operation_and_its_reason() {
    let error = get_lifs("nowhere").unwrap_err();
    assert_eq!((error.operation(), error.errno(), error.kind()), ("get_lifs", ENOENT, io::ErrorKind::NotFound));
    assert_eq!(error.to_string(), "get_lifs: No such file or directory (os error 2)");
    assert_eq!(io::Error::from(error).raw_os_error(), Some(ENOENT));
    let boxed: Box<dyn std::error::Error + Send + Sync> = error.into();
    assert_eq!(boxed.to_string(), error.to_string());
}

#[test]
fn arguments_with_which_c_would_go_wrong_are_rejected() -> Result<()> {
    assert_eq!(get_lifs("blue\0").unwrap_err().errno(), EINVAL);
    assert_eq!(
        set_route(&SetRoute::new("192.0.2.0/24".parse().unwrap(), Ipv4Addr::LOCALHOST, "a").lif("\0"))
            .unwrap_err()
            .errno(),
        EINVAL
    );
    let mut table = RssIndTable::default();
    table.set_size(128);
    soft_rss_table_set("target", &table)?;
    table.set_size(129);
    assert_eq!(soft_rss_table_set("target", &table).unwrap_err().operation(), "soft_rss_table_set");
    let node = BridgeClusterNodeSet::new("cluster", "node", Switched::On);
    assert_eq!(bridge_cluster_node_set(&node).unwrap_err().errno(), EINVAL);
    with_lif("relay")?;
    configure_lif_dhcp_relay("relay", "uplink", &[])?;
    let servers = ["192.0.2.1".parse::<IpAddr>().unwrap(), "192.0.2.2".parse().unwrap()];
    assert_eq!(configure_lif_dhcp_relay("relay", "uplink", &servers).unwrap_err().errno(), EINVAL);
    Ok(())
}

#[test]
fn the_module_answers_sets_of_its_own() -> Result<()> {
    with_lif("answers")?;
    let mut answer = CmdResult::default();
    let route = SetRoute::new("192.0.2.0/24".parse().unwrap(), Ipv4Addr::new(10, 0, 0, 1), "answers");
    set_route_answered(&route, &mut answer)?;
    assert_eq!(answer.bytes()[4..8], *b"done");
    Ok(())
}

#[test]
fn replies_in_the_modules_layout_are_bytes() -> Result<()> {
    with_lif("raw")?;
    assert_eq!(get_locale_id()?, [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15]);
    set_arp(&SetArp::new(Ipv4Addr::new(10, 0, 0, 7), "02:00:00:00:00:07", "uplink", "raw"))?;
    let mut table = get_arps("raw", None)?;
    assert_eq!(table[..4], [10, 0, 0, 7]);
    table.fill(0xa5);
    get_arps_into("raw", Some("uplink".into()), &mut table)?;
    assert_eq!((table[0], table[sys::LUMOZEPH_ARP_TABLE_SIZE - 1]), (10, 0xa5));
    add_bridge_endpoint(&AddBridgeEndpoint::new("endpoint", "", "name", "", ""))?;
    let mut buffer = [0; 2 * sys::LUMOZEPH_BE_SIZE - 1];
    let endpoints = get_be_all(&mut buffer)?;
    assert_eq!((endpoints.len(), endpoints.reported(), endpoints.truncated()), (1, 1, false));
    assert_eq!(get_mrouting_replication_ip("raw", 1)?, Ipv4Addr::UNSPECIFIED);
    Ok(())
}

#[test]
fn counted_arrays_end_where_they_do() {
    let mut raw = sys::LumoRouteInfo { nextHopCount: 255, ..Default::default() };
    assert_eq!(RouteInfo::from(raw).next_hops().len(), 8);
    raw.nextHopCount = 2;
    assert_eq!(RouteInfo::from(raw).next_hops().len(), 2);
    let raw = sys::LumoRssStats { rssEntryCount: u32::MAX, rssWord: [7; 16], ..Default::default() };
    assert_eq!(RssStats::from(raw).rss_word().collect::<Vec<_>>(), [7; 16]);
    assert_eq!(RssStats::from(raw).rss_counter3().len(), 16);
}

#[test]
fn dhcp_servers_have_the_address_of_their_family() {
    let mut raw =
        sys::LumoDhcpRelayServer { address: [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16], family: 1 };
    assert_eq!(DhcpRelayServer::from(raw).ip(), Some(Ipv4Addr::new(1, 2, 3, 4).into()));
    raw.family = 3;
    assert_eq!(DhcpRelayServer::from(raw).ip(), Some("102:304:506:708:90a:b0c:d0e:f10".parse().unwrap()));
    raw.family = 2;
    assert_eq!(DhcpRelayServer::from(raw).ip(), None);
}

fn is_of_any_thread<Type: Send + Sync + 'static>() {}

#[test]
fn results_may_be_read_and_freed_by_other_threads() -> Result<()> {
    is_of_any_thread::<Owned<LifInfo>>();
    is_of_any_thread::<List<RouteInfo>>();
    is_of_any_thread::<EntryBlock<776>>();
    is_of_any_thread::<Entries<'static, 235>>();
    is_of_any_thread::<InstanceKey<'static>>();
    is_of_any_thread::<Error>();
    with_lif("threads")?;
    let lifs = get_lifs("threads")?;
    thread::scope(|scope| {
        for _ in 0..2 {
            scope.spawn(|| assert_eq!(lifs[0].lif_name(), "uplink"));
        }
    });
    thread::spawn(move || drop(lifs)).join().unwrap();
    Ok(())
}

#[test]
fn owners_give_what_they_hold_and_take_it_back() -> Result<()> {
    with_lif("owners")?;
    let raw = get_lif("owners", "uplink")?.into_raw();
    assert_eq!(unsafe { Owned::<LifInfo>::from_raw(raw) }.lif_name(), "uplink");
    let raw = get_lifs("owners")?.into_raw();
    assert_eq!(unsafe { List::<LifInfo>::from_raw(raw) }.len(), 1);
    Ok(())
}
