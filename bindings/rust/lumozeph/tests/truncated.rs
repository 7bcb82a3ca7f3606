//! A list at its cap, with the module in this process, which no other test fills.

use lumozeph::*;

#[test]
fn lists_at_their_cap_are_truncated() -> Result<()> {
    for number in 0..InstanceInfo::CAP {
        assert!(!get_instances()?.truncated(), "{number}");
        set_lumo_instance(&SetLumoInstance::new(&format!("instance-{number}")))?;
    }
    let instances = get_instances()?;
    assert_eq!((instances.len(), instances.truncated()), (1000, true));
    Ok(())
}
