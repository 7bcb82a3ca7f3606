"""Turns the results of scripts/bench into the tables of documents.

usage: tables.py RESULTS [DOCUMENT...]

Prints the tables. With documents, also puts each between its lines "<!-- table: NAME -->" and "<!-- end -->" in one of them,
and draws the picture growth.svg beside the first.
"""

import glob
import json
import os
import platform
import re
import subprocess
import sys


def benchmarks(results, pattern):
    """Name and counters of every benchmark in the files that match."""
    found = {}
    for path in sorted(glob.glob(os.path.join(results, pattern))):
        with open(path, encoding="utf-8") as file:
            for benchmark in json.load(file)["benchmarks"]:
                name = re.sub(r"/(iterations:\d+|manual_time|min_time:[\d.]+)", "", benchmark["name"])
                found[name] = benchmark
    return found


def time(nanoseconds):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= scale:
            return f"{nanoseconds / scale:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def table(header, rows):
    lines = ["| " + " | ".join(header) + " |", "|---" + "|---:" * (len(header) - 1) + "|"]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def compared(found, prefix):
    return [
        (name[len(prefix) :].replace("_", " "), time(one["library_ns"]), time(one["limit_ns"]), f"{one['ratio']:.3f}")
        for name, one in found.items()
        if name.startswith(prefix)
    ]


def machine(_):
    def first(pattern, path):
        with open(path, encoding="utf-8") as file:
            return re.search(pattern, file.read(), re.MULTILINE).group(1)

    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True, check=True).stdout.strip()
    return "\n".join(
        [
            f"- {first(r'^model name.*: (.*)$', '/proc/cpuinfo')}, {os.cpu_count()} processors, {platform.machine()}",
            f"- {first(r'PRETTY_NAME=.(.*).$', '/etc/os-release')}, {' '.join(platform.libc_ver())}, g++ {compiler}",
        ]
    )


def sets(results):
    return table(
        ("operation", "library", "limit", "ratio"), compared(benchmarks(results, "default.set-*.json"), "set/")
    )


def gets(results):
    return table(("read", "library", "limit", "ratio"), compared(benchmarks(results, "default.get-*.json"), "get/"))


def lists(results):
    default = benchmarks(results, "default.list-*.json")
    kept = benchmarks(results, "kept.list-*.json")
    rows = []
    for name in dict.fromkeys(key.split("/")[1] for key in default):
        row = [name]
        for fill in ("empty", "1%", "full"):
            for found in (default, kept):
                row.append(f"{found[f'list/{name}/{fill}']['ratio']:.3f}")
        full = kept[f"list/{name}/full"]
        row += [f"{full['records']:.0f}", time(full["library_ns"])]
        rows.append(row)
    return table(
        ("list", "empty", "kept", "1 %", "kept", "full", "kept", "records", "time of full, kept"),
        rows,
    )


def texts(results):
    default = benchmarks(results, "default.texts-*.json")
    kept = benchmarks(results, "kept.texts-*.json")
    rows = []
    for name in dict.fromkeys(key.split("/")[1] for key in default):
        contents = (f"texts/{name}/{content}" for content in ("tidy", "untidy", "mixed", "any_length"))
        rows.append([name] + [f"{found[one]['ratio']:.3f}" for one in contents for found in (default, kept)])
    return table(
        ("list", "tidy", "kept", "untidy", "kept", "mixed", "kept", "any length", "kept"),
        rows,
    )


def costs_of_records(found):
    """For each list, by its name, the time of a record over the number of records."""
    costs = {}
    for name, one in found.items():
        costs.setdefault(name.split("/")[1], {})[int(one["records"])] = one["library_ns"] / one["records"]
    return {name: dict(sorted(of_list.items())) for name, of_list in sorted(costs.items())}


def growth(results):
    kept = benchmarks(results, "kept.growth-*.json")
    default = benchmarks(results, "default.growth-*.json")
    rows = []
    for name, costs in costs_of_records(kept).items():
        cap = max(costs)
        peak = default[f"growth/{name}/{cap}"]["peak_kib"]
        decades = [time(costs[count]) if count in costs else "" for count in (1, 10, 100, 1000, 10000)]
        rows.append([name, *decades, f"{cap}", time(costs[cap]), f"{peak / 1024:.3g} MiB"])
    return table(("list", "1", "10", "100", "1000", "10 000", "cap", "at the cap", "peak memory"), rows)


def draw_growth(results, path):
    """The costs of records as a picture, by gnuplot."""
    lists = costs_of_records(benchmarks(results, "kept.growth-*.json"))
    lists = dict(sorted(lists.items(), key=lambda named: named[1][1], reverse=True))
    data = "\n\n\n".join(
        f'"{name[3:]}"\n' + "\n".join(f"{count} {cost}" for count, cost in costs.items())
        for name, costs in lists.items()
    )
    script = f"""
set encoding utf8
set terminal svg size 900,560 font "sans-serif,13" background "white"
set output "{path}"
set logscale xy
set xlabel "records in the list"
set ylabel "time a record"
set xtics ("1" 1, "10" 10, "100" 100, "1000" 1e3, "10 000" 1e4, "100 000" 1e5, "1 000 000" 1e6)
set ytics ("1 ns" 1, "10 ns" 10, "100 ns" 100, "1 µs" 1e3, "10 µs" 1e4, "100 µs" 1e5, "1 ms" 1e6, "10 ms" 1e7)
set grid lc rgb "#dddddd"
set key outside right top spacing 1.1
$lists << END
{data}
END
plot for [i=0:{len(lists) - 1}] $lists index i using 1:2 with linespoints lw 1.5 dt i/8+1 pt i+1 ps 0.6 \\
  title columnheader(1)
"""
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def threads(results):
    found = benchmarks(results, "threads.json")
    rows = []
    for count in (1, 2, 4, 8):
        of_threads, of_processes = (found[f"in_{where}/{count}"]["ratio"] for where in ("threads", "processes"))
        rows.append((f"{count}", f"{of_threads:.3f}", f"{of_processes:.3f}", f"{of_threads / of_processes:.3f}"))
    return table(("at once", "ratio in threads", "ratio in processes", "one to the other"), rows)


def netlink(results):
    rows = []
    for name, one in benchmarks(results, "netlink.json").items():
        for contender in ("lumozeph", "memcpy", "libmnl", "libnl-route"):
            rows.append(
                (
                    contender,
                    name.split("next_hops:")[1].replace("/routes:", " of "),
                    f"{one[contender + '_routes_per_second'] / 1e6:.1f} million",
                    f"{one[contender + '_time_ratio']:.2f}",
                )
            )
    label = next(iter(benchmarks(results, "netlink.json").values()))["label"]
    header = ("decoder", "next hops of routes", "routes a second", "times lumozeph's time")
    return table(header, rows) + f"\n\nThe netlink side: a {label}."


def allocators(results):
    rows = []
    for name in ("default", "trim-and-mmap-threshold", "huge-pages", "both", "jemalloc", "tcmalloc", "mimalloc"):
        for one in benchmarks(results, f"allocator.{name}.*.json").values():
            rows.append((name.replace("-", " "), time(one["library_ns"]), f"{one['faults']:.0f}"))
    return table(("memory", "a full read", "page faults"), rows)


def loading(results):
    startup = benchmarks(results, "startup.json")["load_and_unload"]
    with open(os.path.join(results, "relocations"), encoding="utf-8") as file:
        relocations = sum(1 for line in file if re.match(r"[0-9a-f]{16} ", line))
    size = os.path.getsize(os.path.join(results, "liblumozeph.so"))
    return table(
        ("fact", "library", "empty shared object"),
        (
            ("size, stripped", f"{size} bytes", ""),
            ("relocations", f"{relocations}", ""),
            ("dlopen and dlclose", time(startup["library_ns"]), time(startup["limit_ns"])),
        ),
    )


def layers(results):
    return table(
        ("call, with its release", "C++", "C", "ratio"), compared(benchmarks(results, "cxx.json"), "cxx/")
    )


def python(results):
    rows = [
        (name[len("python/") :], time(one["library_ns"]), time(one["limit_ns"]), time(one["library_ns"] - one["limit_ns"]))
        for name, one in benchmarks(results, "python.json").items()
    ]
    return table(("call, with its release", "Python", "C", "more"), rows)


def rust(results):
    return table(
        ("call, with its release", "Rust", "C", "ratio"), compared(benchmarks(results, "rust.json"), "rust/")
    )


def emulator(results):
    rows = []
    for name, place in (
        ("outside", "outside"),
        ("all", "in the emulated world"),
        ("one", "the same, one processor"),
        ("text", "traced to a file"),
        ("json", "traced to a file, as JSON"),
        ("opens", "where opens are traced"),
        ("injection", "with injection"),
        ("in_process", "in process"),
    ):
        for key, one in benchmarks(results, f"round_trip.{name}.json").items():
            if key.endswith("_median"):
                rows.append((key[: -len("_median")].replace("_", " "), place, time(one["real_time"])))
    return table(("call", "where", "median"), rows)


def module(results):
    """What the emulator's model takes for an entry of each table, or for a resolution."""
    found = benchmarks(results, "module.json")
    return table(
        ("table", "entries", "to add and remove one"),
        [
            (name.replace("_", " "), f"{one['entries']:.0f}", time(one["seconds_per_entry"] * 1e9))
            for name, one in found.items()
            if name != "resolution"
        ],
    ) + f"\n\nA resolution over 8000 routes and 10,000 LIFs: {time(found['resolution']['seconds_per_entry'] * 1e9)}."


def work(results):
    with open(os.path.join(results, "ordinary_work.json"), encoding="utf-8") as file:
        found = json.load(file)
    return table(
        ("work", "outside", "namespaces", "injection", "opens traced"),
        [
            (name, time(one["outside"] * 1e9), *(f"{one[world]:.2f}" for world in ("namespaces", "injection", "opens")))
            for name, one in found.items()
        ],
    )


def tool(results):
    with open(os.path.join(results, "tool.json"), encoding="utf-8") as file:
        found = json.load(file)

    def beside(one, other):
        return time(one[other] * 1e9), f"{one['tool'] / one[other]:.2f}"

    return table(
        ("work", "lumozephctl", "the calls", "ratio", "cat", "ratio"),
        [(name, time(one["tool"] * 1e9), *beside(one, "calls"), *beside(one, "cat")) for name, one in found.items()],
    )


def memory(bytes_of_it):
    for unit, scale in (("GB", 1e9), ("MB", 1e6)):
        if bytes_of_it >= scale:
            return f"{bytes_of_it / scale:.3g} {unit}"
    return f"{bytes_of_it / 1e3:.3g} kB"


def period(seconds):
    for unit, scale in (("hours", 3600), ("minutes", 60)):
        if seconds >= 2 * scale:
            return f"{seconds / scale:.2g} {unit}"
    return time(seconds * 1e9) if seconds < 1 else f"{seconds:.3g} s"


def fleet(results):
    """What a host costs is the difference between a large fleet and a small one."""
    with open(os.path.join(results, "fleet.json"), encoding="utf-8") as file:
        small, large = json.load(file)
    many = 10_000
    interval = 30

    def a_host(of):
        return (of(large) - of(small)) / (large["hosts"] - small["hosts"])

    def of_controller(play):
        seconds = a_host(lambda found: found[play]["controller"]["processor"])
        return period(seconds), period(many * seconds)

    def of_memory(of):
        one = a_host(of)
        return memory(one), memory(of(large) + (many - large["hosts"]) * one)

    series = large["prometheus"]["series"]
    written = large["metrics"]["written"]
    module = large["change"]["host"]
    rows = (
        ("Ansible's controller: processor time of a play that changes it", *of_controller("change")),
        ("the same, if there is nothing to change", *of_controller("nothing")),
        ("the controller's memory", *of_memory(lambda found: found["change"]["controller"]["bytes"])),
        ("the host: processor time of the module", period(module["processor"]), "the same, on each"),
        ("its memory, while it runs", memory(module["bytes"]), "the same, on each"),
        ("`lumozephctl metrics`: processor time", period(large["metrics"]["processor"]), "the same, on each"),
        ("its memory, while it runs", memory(large["metrics"]["bytes"]), "the same, on each"),
        (f"what is scraped every {interval} s", memory(written), f"{memory(many * written / interval)} a second"),
        ("Prometheus: series", f"{series:.0f}", f"{many * series / 1e6:.3g} million"),
        ("samples a second", f"{series / interval:.2g}", f"{many * series / interval:,.0f}"),
        ("Prometheus's memory", *of_memory(lambda found: found["prometheus"]["bytes"])),
        ("for comparison: a host in a box", memory(large["box"]["bytes"]), memory(many * large["box"]["bytes"])),
    )
    seconds = " and ".join(period(large[play]["controller"]["seconds"]) for play in ("change", "nothing"))
    return table(("what", "a host", f"{many:,} hosts"), rows) + (
        f"\n\nThe plays took {seconds} for {large['hosts']} hosts, whose own work this machine did, too."
    )


TABLES = (
    *(machine, sets, gets, lists, texts, growth, threads, netlink, allocators, loading),
    *(layers, python, rust, emulator, work, module, tool, fleet),
)


def main():
    results, *documents = sys.argv[1:]
    tables = {function.__name__: function(results) for function in TABLES}
    for name, text in tables.items():
        print(f"\n== {name}\n{text}")
    if not documents:
        return
    draw_growth(results, os.path.join(os.path.dirname(documents[0]), "growth.svg"))
    without_place = set(tables)
    for path in documents:
        with open(path, encoding="utf-8") as file:
            document = file.read()
        for name, text in tables.items():
            mark = f"<!-- table: {name} -->"
            if mark in document:
                without_place.discard(name)
            document = re.sub(
                re.escape(mark) + ".*?<!-- end -->",
                lambda _, mark=mark, text=text: f"{mark}\n{text}\n<!-- end -->",
                document,
                flags=re.DOTALL,
            )
        with open(path, "w", encoding="utf-8") as file:
            file.write(document)
    if without_place:
        sys.exit(f"no document has a place for {', '.join(sorted(without_place))}")


if __name__ == "__main__":
    main()
