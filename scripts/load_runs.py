#!/usr/bin/env python3
"""Clean-clone CI runs on a loaded machine, and the table of what they needed.

    python3 scripts/load_runs.py [--runs 5] [--load LOAD_CLONE] [--keep] [SOURCE]

Each run clones SOURCE (default: this repository) into a new folder under
/tmp, runs the README's test command there (`bash scripts/test.sh`: configure,
build from nothing, every test) and deletes the clone (its Wine prefixes take
about 700 MB) unless --keep. With --load, `ctest --preset mingw` runs over and
over in LOAD_CLONE (an already built clone) for as long as the runs last: the
second full test run that loads the machine.

For every run the table gives the result, the duration, the runs that the
end-to-end suite and the fault matrix made again (a process that Wine did not
start, or that stalled) and how many simulators they started, read from
CTest's log; the names of the runs made again, and the files with what Wine
said about them, follow the table. The whole output of each run stays in
/tmp/cvcli-load-runs/.

Figures only: the exit status is 0 when every run passed.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import threading
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[1]
LOGS = Path("/tmp/cvcli-load-runs")
SUITES = ("e2e", "fault_matrix")


def suite_outputs(ctest_log):
    """{test name: its output} from CTest's LastTest.log."""
    text = ctest_log.read_text(encoding="utf-8", errors="replace") if ctest_log.exists() else ""
    pattern = r"\d+/\d+ Test: (\S+)\n.*?\nOutput:\n-+\n(.*?)<end of output>"
    return {name: output for name, output in re.findall(pattern, text, re.S)}


def figures(output):
    """(retries, simulator starts, shutdowns cut short, the runs made again or cut short, diagnostics files) of one suite's output."""
    match = re.search(r"retries: (\d+); simulator starts: (\d+); shutdowns cut short: (\d+)", output)
    again = re.findall(r"(run again after Wine failed to start or stalled the process|COM shutdown cut short by cvcli's watchdog): (.*)", output)
    files = re.findall(r"(?:Wine's log of that run|where each thread waited): (\S+)", output)
    if match is None:
        return None, None, None, [], files
    return int(match.group(1)), int(match.group(2)), int(match.group(3)), ["%s: %s" % a for a in again], files


class Load:
    """`ctest --preset mingw` over and over in another clone, until stopped."""

    def __init__(self, clone, wine_debug):
        self.clone, self.stopping, self.results = clone, threading.Event(), []
        self.env = dict(os.environ)
        if wine_debug:
            # What Wine says about the load's own failed runs (tests/e2e/harness.py).
            self.env["CVCLI_E2E_WINEDEBUG"] = wine_debug
        self.process = None
        self.thread = threading.Thread(target=self.loop, daemon=True)

    def loop(self):
        while not self.stopping.is_set():
            started = time.monotonic()
            path = LOGS / ("load-%d.log" % (len(self.results) + 1))
            with open(path, "wb") as log:
                self.process = subprocess.Popen(["ctest", "--preset", "mingw"], cwd=self.clone, stdin=subprocess.DEVNULL,
                                                stdout=log, stderr=subprocess.STDOUT, env=self.env)
                status = self.process.wait()
            failed = re.findall(r"^\s*\d+ - (\S+) \(", path.read_text(errors="replace"), re.M)
            self.results.append("status %d, %.0f s%s" % (status, time.monotonic() - started,
                                                          ", failed: " + " ".join(failed) if failed else ""))

    def stop(self):
        self.stopping.set()
        if self.process is not None and self.process.poll() is None:
            self.process.terminate()
        self.thread.join()


def one_run(number, source, keep):
    clone = Path("/tmp/cvcli-load-run-%d" % number)
    shutil.rmtree(clone, ignore_errors=True)
    subprocess.run(["git", "clone", "-q", str(source), str(clone)], check=True)
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=clone, capture_output=True, text=True).stdout.strip()
    started = time.monotonic()
    with open(LOGS / ("run-%d.log" % number), "wb") as log:
        status = subprocess.run(["bash", "scripts/test.sh"], cwd=clone, stdin=subprocess.DEVNULL, stdout=log,
                                stderr=subprocess.STDOUT).returncode
    seconds = time.monotonic() - started
    ctest_log = clone / "build" / "Testing" / "Temporary" / "LastTest.log"
    if ctest_log.exists():
        shutil.copyfile(ctest_log, LOGS / ("run-%d-ctest.log" % number))
    diagnostics = clone / "build" / "e2e-diagnostics"
    if diagnostics.is_dir():
        shutil.copytree(diagnostics, LOGS / ("run-%d-diagnostics" % number), dirs_exist_ok=True)
    outputs = suite_outputs(ctest_log)
    if not keep:
        # The Wine servers of the clone's prefixes would hold its files.
        subprocess.run(["bash", str(clone / "scripts" / "wine-prefix.sh"), "--stop", str(clone / "build")],
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        shutil.rmtree(clone, ignore_errors=True)
    return commit, status, seconds, {suite: figures(outputs.get(suite, "")) for suite in SUITES}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("source", nargs="?", default=str(REPO))
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--load", help="an already built clone in which ctest runs over and over meanwhile")
    parser.add_argument("--load-winedebug", help="Wine debug channels for the load's own runs (CVCLI_E2E_WINEDEBUG)")
    parser.add_argument("--keep", action="store_true", help="keep each clone")
    args = parser.parse_args()
    LOGS.mkdir(exist_ok=True)
    load = Load(args.load, args.load_winedebug) if args.load else None
    if load:
        load.thread.start()
    rows, notes, failed = [], [], 0
    print("| run | commit | result | duration | retries e2e / fault matrix | simulator starts | shutdowns cut short |")
    print("|---|---|---|---|---|---|---|", flush=True)
    try:
        for number in range(1, args.runs + 1):
            commit, status, seconds, suites = one_run(number, args.source, args.keep)
            failed += status != 0

            def show(index):
                return " / ".join("?" if suites[s][index] is None else str(suites[s][index]) for s in SUITES)

            row = "| %d | %s | %s | %.0f s | %s | %s | %s |" % (
                number, commit, "all passed" if status == 0 else "FAILED (%d)" % status, seconds, show(0), show(1), show(2))
            rows.append(row)
            print(row, flush=True)
            for suite in SUITES:
                _, _, _, again, files = suites[suite]
                for name in again:
                    notes.append("run %d, %s: %s" % (number, suite, name))
                notes += ["run %d, %s: %s" % (number, suite, f) for f in files]
    finally:
        if load:
            load.stop()
    for note in notes:
        print(note)
    if load:
        print("load: %d full runs in %s: %s" % (len(load.results), args.load, "; ".join(load.results)))
    print("logs: %s" % LOGS)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
