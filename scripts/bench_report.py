#!/usr/bin/env python3
"""Turns plovix-bench's raw output into the one table scripts/bench.sh prints, and its JSON.

  bench_report.py table RAW.json --library LIB.so --json OUT.json
  bench_report.py callgrind CALLGRIND.out --frames N --json OUT.json
"""
import argparse
import json
import os
import re
import statistics
import subprocess
import sys

FLOOR = "floor/point_sample/1080p"
CAMSHIFT = "peer/camshift/1080p"
SESSION_HEAP = "heap/session/1080p"
METHOD = ("per-frame CPU time of the calling thread; p50 and p90 over the frames of each "
          "repetition, then the median of each over the repetitions")
CALLGRIND_METHOD = ("callgrind counts instructions only inside the function that runs the N "
                    "tracked frames (--toggle-collect), so the total is the frames' alone; "
                    "divided by N")
SUFFIX = re.compile(r"(/(manual_time|iterations:\d+|repeats:\d+))+$")


def case_name(run_name):
    return SUFFIX.sub("", run_name)


def group_runs(raw):
    """Per case, in the order of the run: its repetitions and its error, if any."""
    cases = {}
    for b in raw.get("benchmarks", []):
        if b.get("run_type", "iteration") != "iteration":
            continue
        c = cases.setdefault(case_name(b.get("run_name", b["name"])), {"runs": [], "error": None})
        if b.get("error_occurred"):
            c["error"] = b.get("error_message", "failed")
        else:
            c["runs"].append(b)
    return cases


def median_of(runs, key):
    values = [r[key] for r in runs if key in r]
    return statistics.median(values) if values else None


def ratio(value, base):
    if value is None or not base:
        return None
    return value / base


def build_rows(cases):
    rows = []
    for name, c in cases.items():
        if name == SESSION_HEAP:
            continue
        row = {"case": name, "error": c["error"]}
        runs = c["runs"]
        row["median_us"] = median_of(runs, "p50_us")
        row["p90_us"] = median_of(runs, "p90_us")
        row["wall_median_us"] = median_of(runs, "wall_p50_us")
        row["allocs_per_frame"] = median_of(runs, "allocs_per_frame")
        row["repetitions"] = len(runs)
        off = median_of(runs, "off_target_share")
        if off is not None:
            row["off_target_share"] = off
        rows.append(row)
    by_name = {r["case"]: r for r in rows}
    floor = by_name.get(FLOOR, {}).get("median_us")
    camshift = by_name.get(CAMSHIFT, {}).get("median_us")
    for r in rows:
        r["ratio_to_floor"] = ratio(r["median_us"], floor)
        r["ratio_to_camshift"] = ratio(r["median_us"], camshift)
    return rows


def session_heap(cases):
    c = cases.get(SESSION_HEAP)
    if not c or not c["runs"]:
        return None
    run = c["runs"][0]
    return {"peak_bytes": int(run["peak_heap_bytes"]), "allocations": int(run["heap_calls"]),
            "live_after_destroy_bytes": int(run["live_after_destroy_bytes"])}


def code_size(library):
    """text, data and bss of a shared library, from binutils' size (Berkeley format)."""
    out = subprocess.run(["size", library], check=True, capture_output=True, text=True).stdout
    text, data, bss = out.splitlines()[1].split()[:3]
    return {"text": int(text), "data": int(data), "bss": int(bss)}


def machine():
    info = {}
    try:
        out = subprocess.run(["lscpu"], check=True, capture_output=True, text=True).stdout
    except (OSError, subprocess.CalledProcessError):
        out = ""
    for line in out.splitlines():
        key, _, value = line.partition(":")
        info[key.strip()] = value.strip()
    return {"model": info.get("Model name", "unknown"), "cpus": info.get("CPU(s)", str(os.cpu_count())),
            "l2": info.get("L2 cache", "?"), "l3": info.get("L3 cache", "?")}


def fmt(value, pattern):
    return "-" if value is None else pattern.format(value)


def render_table(rows):
    header = ("case", "median us", "p90 us", "x floor", "x CamShift", "allocs/frame")
    cells = [header]
    for r in rows:
        if not r["error"]:
            cells.append((r["case"], fmt(r["median_us"], "{:.1f}"), fmt(r["p90_us"], "{:.1f}"),
                          fmt(r["ratio_to_floor"], "{:.2f}"), fmt(r["ratio_to_camshift"], "{:.2f}"),
                          fmt(r["allocs_per_frame"], "{:.2f}")))
    widths = [max(len(c[i]) for c in cells) for i in range(len(header))]
    widths[0] = max([widths[0]] + [len(r["case"]) for r in rows])
    out = []
    by_case = {c[0]: c for c in cells[1:]}
    for c in [header] + [by_case.get(r["case"]) or (r["case"], "error: " + r["error"]) for r in rows]:
        if len(c) == 2:
            out.append(c[0].ljust(widths[0]) + "  " + c[1])
        else:
            out.append("  ".join([c[0].ljust(widths[0])] + [c[i].rjust(widths[i]) for i in range(1, len(c))]))
    return "\n".join(out)


def table(args):
    with open(args.raw) as f:
        raw = json.load(f)
    cases = group_runs(raw)
    rows = build_rows(cases)
    report = {"machine": machine(), "method": METHOD, "cases": rows, "session_heap": session_heap(cases),
              "code_size": code_size(args.library) if args.library else None}
    m = report["machine"]
    print("{} ({} CPUs, L2 {}, L3 {}); {}".format(m["model"], m["cpus"], m["l2"], m["l3"], METHOD))
    print(render_table(rows))
    for r in rows:
        if r.get("off_target_share"):
            print("{}: the answer's centre was off the disc on {:.0%} of frames".format(
                r["case"], r["off_target_share"]))
    heap = report["session_heap"]
    if heap:
        print("peak heap, one 1080p session from create to destroy: {} bytes ({} allocations, {} bytes "
              "live after destroy)".format(heap["peak_bytes"], heap["allocations"],
                                           heap["live_after_destroy_bytes"]))
    size = report["code_size"]
    if size:
        print("code size of {}: text {} data {} bss {} bytes".format(
            os.path.basename(args.library), size["text"], size["data"], size["bss"]))
    write_json(args.json, report)
    return 1 if any(r["error"] for r in rows) or heap is None else 0


def callgrind_total(text):
    """The Ir total of a callgrind output file."""
    for key in ("totals:", "summary:"):
        for line in text.splitlines():
            if line.startswith(key):
                return int(line.split()[1])
    raise ValueError("no totals or summary line")


def callgrind(args):
    with open(args.out) as f:
        total = callgrind_total(f.read())
    report = {"case": "process_plovix/tracking/1080p", "frames": args.frames, "instructions": total,
              "instructions_per_frame": total // args.frames, "method": CALLGRIND_METHOD}
    print("{}: {} instructions per frame over {} frames ({})".format(
        report["case"], report["instructions_per_frame"], args.frames, CALLGRIND_METHOD))
    write_json(args.json, report)
    return 0


def write_json(path, report):
    os.makedirs(os.path.dirname(os.path.abspath(path)), exist_ok=True)
    with open(path, "w") as f:
        json.dump(report, f, indent=2)
        f.write("\n")


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    sub = parser.add_subparsers(dest="mode", required=True)
    t = sub.add_parser("table")
    t.add_argument("raw")
    t.add_argument("--library")
    t.add_argument("--json", required=True)
    c = sub.add_parser("callgrind")
    c.add_argument("out")
    c.add_argument("--frames", type=int, required=True)
    c.add_argument("--json", required=True)
    args = parser.parse_args(argv)
    try:
        return table(args) if args.mode == "table" else callgrind(args)
    except (OSError, ValueError, KeyError, subprocess.CalledProcessError) as e:
        print("bench_report: {}".format(e), file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
