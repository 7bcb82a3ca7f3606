"""Writes what comes of each task to the file that RESULTS names: a line of JSON a host."""

import json
import os

from ansible.plugins.callback import CallbackBase

DOCUMENTATION = """
name: results
type: notification
short_description: Writes results as JSON
description: Writes what comes of each task as a line of JSON.
"""


class CallbackModule(CallbackBase):
    CALLBACK_VERSION = 2.0
    CALLBACK_TYPE = "notification"
    CALLBACK_NAME = "results"

    def _write(self, result, outcome):
        one = result._result | {"host": result._host.get_name(), "outcome": outcome}
        with open(os.environ["RESULTS"], "a", encoding="utf-8") as file:
            file.write(json.dumps(one) + "\n")

    def v2_runner_on_ok(self, result):
        self._write(result, "ok")

    def v2_runner_on_failed(self, result, ignore_errors=False):
        self._write(result, "failed")

    def v2_runner_on_unreachable(self, result):
        self._write(result, "unreachable")
