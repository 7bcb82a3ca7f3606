"""What a checker must find."""

import lumozeph

lumozeph.get_lifs(None)  # mistake
lumozeph.get_lifs(b"blue")  # mistake
lumozeph.get_lifs()  # mistake
lumozeph.set_route("192.0.2.0", 24, "10.0.0.1", "uplink", instance="blue")  # mistake
lumozeph.set_route("192.0.2.0", 24, 0x0A000001, instance="blue")  # mistake
lumozeph.set_route("192.0.2.0", 24, "10.0.0.1")  # mistake
lumozeph.get_lif("blue", "uplink").lifNmae  # mistake
lumozeph.get_lif("blue", "uplink").ipAddr = 1  # mistake
lumozeph.LifInfo(lifNmae="uplink")  # mistake
name: int = lumozeph.get_lifs("blue")[0].lifName  # mistake
lumozeph.get_policy(1).reported  # mistake
