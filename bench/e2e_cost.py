#!/usr/bin/env python3
"""Prints what the end-to-end harness costs: the prefix start, the first run
that starts the simulator, and the per-case time of each kind of case.

    python3 bench/e2e_cost.py [--build-dir build] [--runs 20]

Figures only: nothing here passes or fails on time.
"""

import argparse
import statistics
import subprocess
import sys
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(REPO / "tests" / "e2e"))

import harness  # noqa: E402

KINDS = [
    ("help, no service call", harness.Case("help snap", ["help", "snap"])),
    ("service probe, warm simulator", harness.Case("no arguments", [])),
    ("service absent (bare prefix)", harness.Case("bare", [], prefix="bare")),
    ("disk list, empty scenario", harness.Case("disk list", ["disk", "list"], scenario={})),
    ("no CorvaneRes.dll", harness.Case("no dll", [], resources=False)),
]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build-dir", default=str(REPO / "build"))
    parser.add_argument("--runs", type=int, default=20)
    args = parser.parse_args()

    script = str(REPO / "scripts" / "wine-prefix.sh")
    subprocess.run(["bash", script, "--stop", args.build_dir], check=True)
    session = harness.Session(args.build_dir)
    started = time.monotonic()
    session.start()
    print("prefix preparation and Wine server start: %6.2f s" % (time.monotonic() - started))
    first = session.run(harness.Case("first", []))
    print("first service run (starts the simulator): %6.2f s" % first.seconds)
    print()
    print("%-32s %8s %8s %8s   (%d runs each)" % ("kind of case", "median", "mean", "max", args.runs))
    for label, case in KINDS:
        times = [session.run(case).seconds for _ in range(args.runs)]
        print("%-32s %7.3fs %7.3fs %7.3fs" % (label, statistics.median(times), statistics.mean(times), max(times)))
    subprocess.run(["bash", script, "--stop", args.build_dir], check=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
