"""Has the metrics read by those who will read them: promtool, a parser of OpenMetrics and the node exporter; and what is
installed beside them by promtool, systemd-analyze and against the names of the metrics.

usage: run.py EMULATOR LUMOZEPHCTL SHARE
"""

import json
import os
import re
import shutil
import stat
import subprocess
import sys
import tempfile
import urllib.request

from prometheus_client.openmetrics.parser import text_string_to_metric_families as openmetrics
from prometheus_client.parser import text_string_to_metric_families as prometheus_text

HERE = os.path.dirname(os.path.abspath(__file__))
# Of the node exporter itself.
FOREIGN = {"node_textfile_mtime_seconds"}


def run(*words, **options):
    result = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, text=True, **options)
    if result.returncode != 0:
        sys.exit(f"{' '.join(words)}: {result.returncode}\n{result.stdout}")
    return result.stdout


def samples(families):
    """Each sample of lumozephctl, but for how long it took."""
    return {
        (sample.name, tuple(sorted(sample.labels.items()))): sample.value
        for family in families
        for sample in family.samples
        if sample.name.startswith("lumozeph_") and sample.name != "lumozeph_scrape_duration_seconds"
    }


def written(emulator, tool, folder):
    """The metrics of a world that has a little of everything, in both formats."""
    script = """
        set -eu
        lumozephctl batch "$1"
        umask 077
        lumozephctl save "$2/state.json"
        lumozephctl metrics eth0 --state "$2/state.json" --output "$2/lumozeph.prom"
        lumozephctl metrics eth0 --state "$2/state.json" --openmetrics --output "$2/lumozeph.openmetrics"
        rm "$2/state.json"
    """
    path = f"{os.path.dirname(os.path.abspath(tool))}:{os.environ['PATH']}"
    environment = {**os.environ, "PATH": path}
    run(emulator, "run", "--", "sh", "-c", script, "sh", f"{HERE}/world", folder, env=environment)
    if sorted(os.listdir(folder)) != ["lumozeph.openmetrics", "lumozeph.prom"]:
        sys.exit(f"left beside the metrics: {os.listdir(folder)}")
    if stat.S_IMODE(os.stat(f"{folder}/lumozeph.prom").st_mode) != 0o644:
        sys.exit("not everybody can read the metrics")
    texts = []
    for name in ("lumozeph.prom", "lumozeph.openmetrics"):
        with open(f"{folder}/{name}", encoding="utf-8") as file:
            texts.append(file.read())
    return texts


def exported(folder):
    """What the node exporter makes of the folder."""
    exporter = subprocess.Popen(
        [
            shutil.which("prometheus-node-exporter") or "node_exporter",
            "--collector.disable-defaults",
            "--collector.textfile",
            f"--collector.textfile.directory={folder}",
            "--web.listen-address=127.0.0.1:0",
        ],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        text=True,
    )
    try:
        for line in exporter.stderr:
            address = re.search(r"address=(127\.0\.0\.1:\d+)", line)
            if address:
                with urllib.request.urlopen(f"http://{address[1]}/metrics", timeout=30) as answer:
                    return answer.read().decode()
        sys.exit("the node exporter says no address")
    finally:
        exporter.terminate()
        exporter.communicate()


def names_in(expression):
    return set(re.findall(r"\b(?:lumozeph|node)_[a-z_]+", expression))


def main():
    emulator, tool, share = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        text, openmetrics_text = written(os.path.abspath(emulator), tool, folder)
        run("promtool", "check", "metrics", input=text)
        expected = samples(prometheus_text(text))
        if expected != samples(openmetrics(openmetrics_text)):
            sys.exit("the two formats differ")
        if expected[("lumozeph_up", ())] != 1 or expected[("lumozeph_lifs", (("instance", 'b"l\\ue'),))] != 1:
            sys.exit("the metrics are not those of the world")
        os.remove(f"{folder}/lumozeph.openmetrics")
        families = list(prometheus_text(exported(folder)))
        if expected != samples(families):
            sys.exit("the node exporter has other metrics")
        errors = [sample.value for one in families for sample in one.samples if one.name == "node_textfile_scrape_error"]
        if errors != [0]:
            sys.exit(f"the node exporter has errors: {errors}")

    known = {name for name, _ in expected} | FOREIGN | {"lumozeph_scrape_duration_seconds"}
    asked = set()
    for name in ("lumozeph", "lumozeph-fleet"):
        rules = f"{share}/{name}.rules.yml"
        print(run("promtool", "check", "rules", rules), end="")
        with open(rules, encoding="utf-8") as file:
            asked |= names_in("".join(line for line in file if "expr:" in line))
    with tempfile.TemporaryDirectory() as folder:
        for file in (f"{share}/lumozeph.rules.yml", f"{share}/lumozeph-fleet.rules.yml"):
            shutil.copy(file, folder)
        for file in ("alerts.yml", "fleet_alerts.yml"):
            shutil.copy(f"{HERE}/{file}", folder)
            print(run("promtool", "test", "rules", file, cwd=folder), end="")
    with open(f"{share}/lumozeph-dashboard.json", encoding="utf-8") as file:
        dashboard = json.load(file)
    for panel in dashboard["panels"]:
        for target in panel["targets"]:
            asked |= names_in(target["expr"])
    if asked - known:
        sys.exit(f"there are no {', '.join(sorted(asked - known))}")

    with tempfile.TemporaryDirectory() as folder:
        # It is not where systemd looks for programs.
        for unit in ("lumozeph-metrics.service", "lumozeph-metrics.timer"):
            with open(f"{share}/{unit}", encoding="utf-8") as source, open(f"{folder}/{unit}", "w") as copy:
                copy.write(source.read().replace("ExecStart=lumozephctl", f"ExecStart={os.path.abspath(tool)}"))
        # Pages that are not installed are no mistake.
        complaints = run(
            "systemd-analyze", "verify", "--man=no", f"{folder}/lumozeph-metrics.service", f"{folder}/lumozeph-metrics.timer"
        )
        if "lumozeph" in complaints:
            sys.exit(complaints)
        run("systemd-analyze", "security", "--offline=yes", "--threshold=20", f"{folder}/lumozeph-metrics.service")


main()
