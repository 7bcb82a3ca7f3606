"""Ansible's module for the state of a host's router and bridge: lumozephctl apply, on every host of a fleet."""

from __future__ import absolute_import, division, print_function

__metaclass__ = type

DOCUMENTATION = r"""
---
module: lumozeph_state
short_description: Make the state of the host's router and bridge what is said
description:
  - Brings the kernel-resident distributed router and layer-2 bridge of a host to a state, by C(lumozephctl apply).
  - What is not spoken of is left alone. A collection that is named, such as C(routes), is all that there is to be.
  - What is needed is set before what needs it and taken away after it.
version_added: "1.0.0"
author: lumozeph maintainers (@lumozeph)
requirements:
  - C(lumozephctl) on the host
options:
  state:
    description:
      - The state, as C(lumozephctl save) writes it; C(lumozephctl-state.schema.json) has the schema.
      - C(format) may be left out.
      - Exactly one of I(state) and I(src) is needed.
    type: dict
  src:
    description: A file on the host that has the state.
    type: path
  instance:
    description:
      - The only router instance that I(state) speaks of. All others are left alone, and so is what no instance has.
    type: str
  dest:
    description:
      - Where the host keeps I(state), so that C(lumozephctl metrics --state) can count what is not as it says.
      - It is written before anything is set, as it is what the host is to be.
    type: path
  rollback:
    description: After an error, bring the state back to what it was, as far as that is possible.
    type: bool
    default: false
  timeout:
    description: The seconds after which C(lumozephctl) gives up if the router does not answer.
    type: float
    default: 60
  address_order:
    description: How the router keeps IPv4 addresses.
    type: str
    choices: [network, host]
    default: network
  executable:
    description: The tool, by its name or path.
    type: str
    default: lumozephctl
attributes:
  check_mode:
    description: Says what would be changed, and changes nothing.
    support: full
  diff_mode:
    description: Shows what differs, before and after.
    support: full
notes:
  - Ansible fills in templates in values, not in keys. A state that needs them in keys is a template itself.
  - Where a number is expected, a text is refused, such as what a template makes of a number and something else.
"""

EXAMPLES = r"""
- name: One instance with an uplink and a default route
  lumozeph_state:
    instance: blue
    rollback: true
    state:
      instances:
        blue:
          lifs:
            uplink: {address: "{{ uplink_address }}", mask: 255.255.0.0, up: 1, mtu: 1400}
          routes:
            0.0.0.0/0: {nextHops: {"10.0.255.254 uplink": {}}}

- name: All that a file says, filled in for the host, and a copy there to compare with later
  lumozeph_state:
    state: "{{ lookup('ansible.builtin.template', 'state.yml') | from_yaml }}"
    dest: /etc/lumozeph/state.json

- name: What would be changed if the host were brought back to last night
  lumozeph_state:
    src: /var/backups/lumozeph.json
  check_mode: true
  diff: true
"""

RETURN = r"""
commands:
  description: What was done, or would be, as it can be typed into a shell.
  returned: success
  type: list
  elements: str
  sample: [lumozephctl call SetLumoInstance instance=blue value1=0 value2=0]
not_settable:
  description: JSON pointers to what differs and nothing sets.
  returned: success
  type: list
  elements: str
  sample: [/instances/blue/lifs/eth0/dhcpServers]
losses:
  description: What is lost with the change, or with I(rollback), as nobody reports it.
  returned: success, and failure after something was begun, with rollback
  type: list
  elements: str
error:
  description: The error of C(lumozephctl), with its members.
  returned: failure of lumozephctl
  type: dict
  contains:
    error:
      description: What was tried, and why it failed.
      type: str
      returned: always
    operation:
      description: The function that failed, without its prefix.
      type: str
      returned: if a function failed
      sample: SetRoute
    errno:
      description: The name of its errno.
      type: str
      returned: if a function failed, and gave one
      sample: ENETUNREACH
    number:
      description: The same as a number.
      type: int
      returned: if a function failed, and gave one
      sample: 101
    advice:
      description: What to look at.
      type: str
      returned: if there is something to look at
done:
  description: What was done before the error.
  returned: failure after something was begun
  type: list
  elements: str
not_done:
  description: What was not done.
  returned: failure after something was begun
  type: list
  elements: str
not_rolled_back:
  description:
    - JSON pointers to what I(rollback) could not bring back. Without them and C(losses), all is as it was.
    - An empty one means the whole document, where the state could not be read.
  returned: failure after something was begun, with rollback
  type: list
  elements: str
"""

import json
import os
import tempfile

from ansible.module_utils.basic import AnsibleModule

FORMAT = 1

ARGUMENTS = {
    "state": {"type": "dict"},
    "src": {"type": "path"},
    "instance": {"type": "str"},
    "dest": {"type": "path"},
    "rollback": {"type": "bool", "default": False},
    "timeout": {"type": "float", "default": 60},
    "address_order": {"type": "str", "choices": ["network", "host"], "default": "network"},
    "executable": {"type": "str", "default": "lumozephctl"},
}


class State(object):
    """What the host is to be, and what lumozephctl makes of it."""

    def __init__(self, module):
        self.module = module
        self.tool = [
            module.get_bin_path(module.params["executable"], required=True),
            "--json",
            "--timeout=%s" % module.params["timeout"],
            "--address-order=%s" % module.params["address_order"],
        ]
        self.text = None
        if module.params["state"] is not None:
            document = dict({"format": FORMAT}, **module.params["state"])
            if module.params["instance"]:
                document["instance"] = module.params["instance"]
            self.text = json.dumps(document, indent=2, sort_keys=True) + "\n"

    def apply(self, *options):
        """What lumozephctl answers, and the error if it fails."""
        file = "-" if self.text is not None else self.module.params["src"]
        words = self.tool + ["apply"] + list(options) + [file]
        status, out, err = self.module.run_command(words, data=self.text)
        answer = last_object(out)
        if status == 0 and answer is not None:
            return answer, None
        no_words = {"error": err.strip() or "%s exits with %d and says nothing" % (self.tool[0], status)}
        return answer or {}, last_object(err) or no_words

    def is_kept(self, dest):
        try:
            with open(dest, "rb") as file:
                return file.read() == self.text.encode("ascii")
        except (IOError, OSError):
            return False

    def keep(self, dest):
        """Replaces the file at once: whoever reads it meanwhile has all of the one or the other."""
        descriptor, scratch = tempfile.mkstemp(dir=self.module.tmpdir)
        with os.fdopen(descriptor, "wb") as file:
            file.write(self.text.encode("ascii"))
        self.module.atomic_move(scratch, dest)


def last_object(text):
    """The object in the last line; None if there is none."""
    try:
        found = json.loads(text.strip().splitlines()[-1])
    except (IndexError, ValueError):
        return None
    return found if isinstance(found, dict) else None


def sentence(error):
    advice = error.get("advice")
    return "%s: %s" % (error["error"], advice) if advice else error["error"]


def main():
    module = AnsibleModule(
        argument_spec=ARGUMENTS,
        required_one_of=[("state", "src")],
        mutually_exclusive=[("state", "src"), ("src", "instance"), ("src", "dest")],
        supports_check_mode=True,
    )
    state = State(module)
    plan, error = state.apply("--dry-run")
    if error:
        module.fail_json(msg=sentence(error), error=error)

    dest = module.params["dest"]
    writes = dest is not None and not state.is_kept(dest)
    result = {
        "changed": bool(plan["commands"]) or writes,
        "commands": plan["commands"],
        "not_settable": plan["notSettable"],
        "losses": plan["losses"],
    }
    if module._diff:
        result["diff"] = [{"before": plan["before"], "after": plan["after"]}]
    if not module.check_mode:
        if writes:
            state.keep(dest)
        if plan["commands"]:
            outcome, error = state.apply("--yes", *(["--rollback"] if module.params["rollback"] else []))
            if error:
                fail(module, outcome, error, writes)
            result["commands"] = outcome["done"]
            result["not_settable"] = outcome["notSettable"]
    for pointer in result["not_settable"]:
        module.warn("%s differs, and cannot be set" % pointer)
    for loss in result["losses"]:
        module.warn(loss)
    module.exit_json(**result)


def fail(module, outcome, error, has_written):
    result = {}
    names = {"done": "done", "not_done": "notDone", "not_rolled_back": "notRolledBack", "losses": "losses"}
    for name, theirs in names.items():
        if theirs in outcome:
            result[name] = outcome[theirs]
    # Nobody knows what was done before a call that hangs.
    is_rolled_back = result.get("not_rolled_back") == [] and result.get("losses") == []
    is_as_before = is_rolled_back or result.get("done") == []
    module.fail_json(msg=sentence(error), error=error, changed=has_written or not is_as_before, **result)


if __name__ == "__main__":
    main()
