"""Reads and changes the state of a hypervisor host's kernel-resident distributed router and layer-2 bridge.

Each function is one round trip to the module in the kernel, and raises lumozeph.Error when it fails. Lists are
sequences of records and free themselves. Addresses are those of the module ipaddress.

    >>> import lumozeph
    >>> for lif in lumozeph.get_lifs("blue"):
    ...     print(lif.lifName, lif.lifMac, lif.ipAddr)
"""

from . import operations, records
from ._members import Record
from ._sequences import Entries, EntryBlock, RecordList, Records
from ._version import VERSION
from .errors import Error
from .operations import *
from .records import *

__version__ = VERSION

__all__ = ["Entries", "EntryBlock", "Error", "Record", "RecordList", "Records", "__version__"]
__all__ += operations.__all__
__all__ += records.__all__
