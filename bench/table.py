#!/usr/bin/python3
"""Turns the measurements of smx_bench into the speed table (Markdown) and its picture.

table.py speed.json [--publish DOCS]

A ratio is the best peer's time over the library's: above 1 the library is faster. Ratios are medians over samples
taken in turn, so they do not follow from the two medians of nanoseconds exactly.
"""
import argparse
import json
import math
import pathlib
import platform
import re
import statistics
import subprocess
from collections import defaultdict, namedtuple

Row = namedtuple("Row", "operation side type layout size threads ns peer peer_ns ratio copy bytes")
MARKERS = "<!-- speed table -->", "<!-- end of the speed table -->"


def read(path):
    data = json.loads(pathlib.Path(path).read_text())
    rows, missing, failed = [], set(), []
    for entry in data["benchmarks"]:
        operation, side, type_, layout, size, threads = entry["name"].split("/")[:6]
        if entry.get("error_occurred"):
            if entry["error_message"] == "not in the library":
                missing.add(operation)
            else:
                failed.append("/".join((operation, side, type_, layout, size, threads)))
            continue
        times = {key[3:]: value for key, value in entry.items() if key.startswith("ns:")}
        ratios = {key[6:]: value for key, value in entry.items() if key.startswith("ratio:")}
        ns, copy = times.pop("smx"), ratios.get("copy")
        times.pop("copy", None)
        peer = min(times, key=lambda name: ratios[name])
        rows.append(Row(operation, side, type_, layout, size, int(threads), ns, peer, times[peer], ratios[peer], copy,
                        entry["bytes"]))
    return data["context"], rows, missing, failed


def mean(values):
    values = list(values)
    return math.exp(statistics.fmean(map(math.log, values))) if values else float("nan")


def short(value):
    return f"{value:.3g}" if value < 1000 else f"{value:.0f}"


def grouped(rows, *fields):
    groups = defaultdict(list)
    for row in rows:
        groups[tuple(getattr(row, field) for field in fields)].append(row)
    return groups


def table(head, body):
    lines = ["| " + " | ".join(head) + " |", "|" + "|".join("---" if k == 0 else "--:" for k in range(len(head))) + "|"]
    return "\n".join(lines + ["| " + " | ".join(cells) + " |" for cells in body]) + "\n"


def spread(rows):
    """Geometric mean and the lowest ratio."""
    return f"{mean(r.ratio for r in rows):.2f}", f"{min(r.ratio for r in rows):.2f}"


def in_cache(rows):
    body = []
    for (operation, side), group in grouped(rows, "operation", "side").items():
        cells = [operation, side]
        for type_ in "float", "double":
            one = next((r for r in group if r.type == type_), None)
            cells += [short(one.ns), f"{one.peer} {short(one.peer_ns)}", f"**{one.ratio:.2f}**"] if one else [""] * 3
        body.append(cells)
    head = ["operation", "side", "float ns", "best peer ns", "ratio", "double ns", "best peer ns", "ratio"]
    return table(head, body) + f"\nGeometric mean of the ratios: **{mean(r.ratio for r in rows):.2f}**.\n"


def layouts(rows):
    packed = {r[:3]: r for r in rows if r.layout == "packed"}
    body = []
    for (operation,), group in grouped(rows, "operation").items():
        cells = [operation]
        for layout in "records", "list", "planes":
            here = [r for r in group if r.layout == layout and r[:3] in packed]
            slower = [r.ns / packed[r[:3]].ns for r in here]
            cells += [f"{mean(slower):.2f} ({max(slower):.2f})", " (".join(spread(here)) + ")"] if here else ["", ""]
        body.append(cells)
    head = ["operation"]
    for layout in "array of structs", "list", "pointers over planes":
        head += [f"{layout}: time / packed", "ratio"]
    return table(head, body)


def few(rows):
    body = []
    for (operation,), group in grouped(rows, "operation").items():
        cells = [operation]
        for size in "1", "10":
            here = [r for r in group if r.size == size]
            cells += [f"{short(min(r.ns for r in here))} to {short(max(r.ns for r in here))}",
                      " (".join(spread(here)) + ")"] if here else ["", ""]
        body.append(cells)
    return table(["operation", "1 object: ns", "ratio", "10 objects: ns an object", "ratio"], body)


def streamed(rows):
    body = []
    for (operation, side, layout), group in grouped(rows, "operation", "side", "layout").items():
        cells = [operation, side, layout]
        for type_ in "float", "double":
            one = next((r for r in group if r.type == type_), None)
            cells += [short(one.ns), f"{one.bytes / one.ns:.1f}", f"{100 * one.copy:.0f} %", f"{one.ratio:.2f}"] \
                if one else [""] * 4
        body.append(cells)
    columns = ["ns", "GB/s", "of copy", "ratio"]
    return table(["operation", "side", "layout"] + [f"{t} {c}" for t in ("float", "double") for c in columns], body)


def threaded(rows, single):
    alone = {r[:5]: r for r in single}
    body = []
    for (operation, size), group in grouped(rows, "operation", "size").items():
        gains = [alone[r[:5]].ns / r.ns for r in group if r[:5] in alone]
        body.append([operation, size, f"{mean(gains):.2f}" if gains else "", *spread(group)])
    return table(["operation", "objects", "faster than one thread", "ratio, mean", "lowest"], body)


def below(rows):
    groups = grouped([r for r in rows if r.ratio < 0.995], "operation", "layout", "size", "threads")
    lines = []
    for (operation, layout, size, threads), group in groups.items():
        each = ", ".join(f"{r.side} {r.type} {r.ratio:.2f} ({r.peer})" for r in sorted(group, key=lambda r: r.ratio))
        lines.append(f"- {operation}, {layout}, {size}, {threads} thread{'s' * (threads > 1)}: {each}")
    return "\n".join(lines) + "\n" if lines else "None.\n"


def first_line(*command):
    try:
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip().split("\n")[0]
    except (OSError, subprocess.CalledProcessError):
        return "unknown"


def version(package):
    return re.sub(r"[+-].*", "", first_line("dpkg-query", "-W", "-f=${Version}", package))


def machine(context):
    cpuinfo = pathlib.Path("/proc/cpuinfo").read_text()
    fields = dict(re.findall(r"^(model name|cpu family|model)\s*: (.*)$", cpuinfo, re.M))
    load = ", ".join(f"{value:.1f}" for value in context.get("load_avg", []))
    peers = {"Eigen": "libeigen3-dev", "OpenBLAS (LAPACK)": "libopenblas-serial-dev", "LAPACKE": "liblapacke-dev",
             "libxsmm": "libxsmm-dev", "GLM": "libglm-dev", "cglm": "libcglm-dev"}
    return (f"{fields['model name']} (family {fields['cpu family']}, model {fields['model']}), {context['num_cpus']} "
            f"cores, {first_line('uname', '-s')} {platform.machine()}, load average at the start {load}; "
            f"{context['compiler']}, peers built with -O3 -march={context['peers built for']}; "
            + ", ".join(f"{name} {version(package)}" for name, package in peers.items())
            + f"; {context['date'][:16]}, commit {first_line('git', 'rev-parse', '--short', 'HEAD')}, "
            f"{context['mode']} run.\n")


def markdown(context, rows, missing, failed):
    one = [r for r in rows if r.threads == 1]
    thousand = [r for r in one if r.size == "1000"]
    parts = [machine(context)]

    def section(title, wanted, make, *more):
        if wanted:
            parts.append(f"### {title}\n\n{make(wanted, *more)}")

    section("1,000 packed objects in cache, one thread", [r for r in thousand if r.layout == "packed"], in_cache)
    section("Layouts: 1,000 objects, one thread", thousand, layouts)
    singles = [r for r in one if r.operation == "product, one call"]
    section("One call of the non-array product", singles, in_cache)
    section("Few objects, packed, one thread",
            [r for r in one if r.size in ("1", "10") and r.layout == "packed" and r not in singles], few)
    section("About 200 MB, one thread", [r for r in one if r.size == "200MB"], streamed)
    section("Two threads, packed", [r for r in rows if r.threads == 2 and r.layout == "packed"], threaded, one)
    section("Rows below 1", rows, below)
    if missing:
        parts.append("Not in the library yet: " + ", ".join(sorted(missing)) + ".\n")
    if failed:
        parts.append("Contenders disagree, or one fails: " + ", ".join(failed) + ".\n")
    return "\n".join(parts)


def draw(rows, path):
    import matplotlib
    matplotlib.use("Agg")
    from matplotlib import pyplot
    from matplotlib.ticker import FixedLocator, FuncFormatter

    rows = [r for r in rows if (r.layout, r.size, r.threads) == ("packed", "1000", 1)]
    if not rows:
        return
    operations = list(dict.fromkeys(r.operation for r in rows))
    colours = {"3": "#9ecae1", "4": "#4292c6", "5": "#2171b5", "6": "#08306b", "6x4": "#fd8d3c"}
    figure, axes = pyplot.subplots(figsize=(9, 0.36 * len(operations) + 1.4))
    for r in rows:
        shift = 0.14 if r.type == "double" else -0.14
        axes.scatter(r.ratio, operations.index(r.operation) + shift, s=34, color=colours[r.side],
                     marker="s" if r.type == "double" else "o", edgecolors="white", linewidths=0.5, zorder=3)
    axes.axvline(1, color="#cb181d", linewidth=1.2, zorder=2)
    axes.set_xscale("log")
    ticks = [t for t in (0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100)
             if min(r.ratio for r in rows) / 2 < t < max(r.ratio for r in rows) * 2]
    axes.xaxis.set_major_locator(FixedLocator(ticks))
    axes.xaxis.set_minor_locator(FixedLocator([]))
    axes.xaxis.set_major_formatter(FuncFormatter(lambda t, _: f"{t:g}x"))
    axes.set_yticks(range(len(operations)), operations)
    axes.set_ylim(len(operations) - 0.4, -0.6)
    axes.grid(axis="x", color="#dddddd", linewidth=0.8)
    axes.grid(axis="y", color="#eeeeee", linewidth=0.6)
    axes.set_axisbelow(True)
    axes.set_title("Times faster than the best peer, 1,000 packed objects in cache, one thread", fontsize=11)
    handles = [pyplot.Line2D([], [], marker="o", linestyle="", color=colours[s], label=f"side {s}")
               for s in colours if any(r.side == s for r in rows)]
    handles += [pyplot.Line2D([], [], marker=m, linestyle="", color="#666666", label=t)
                for t, m in (("float", "o"), ("double", "s"))]
    figure.legend(handles=handles, loc="lower center", ncol=len(handles), frameon=False, fontsize=9)
    for side in "top", "right", "left":
        axes.spines[side].set_visible(False)
    figure.tight_layout(rect=(0, 0.5 / figure.get_figheight(), 1, 1))
    figure.savefig(path, metadata={"Date": None} if str(path).endswith("svg") else None)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("measurements", type=pathlib.Path)
    parser.add_argument("--publish", type=pathlib.Path)
    options = parser.parse_args()
    context, rows, missing, failed = read(options.measurements)
    text = markdown(context, rows, missing, failed)
    print(text)
    draw(rows, options.measurements.with_suffix(".svg"))
    if options.publish:
        page = options.publish / "performance.md"
        before, rest = page.read_text().split(MARKERS[0])
        picture = "![Ratios to the best peer](performance.svg)"
        page.write_text(f"{before}{MARKERS[0]}\n\n{picture}\n\n{text}\n{MARKERS[1]}{rest.split(MARKERS[1])[1]}")
        draw(rows, options.publish / "performance.svg")


if __name__ == "__main__":
    main()
