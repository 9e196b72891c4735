#!/usr/bin/env python3
"""cvcli against the least a client must do, side by side, in one run.

    python3 bench/list_bench.py [--build-dir build] [--sizes 1000,10000,100000] [--runs 3]

For each size, a scenario with that many LUNs; `cvcli disk list` and
bench/MinimalClient.cpp (same COM start, same calls, same bytes, written with
one call) each run --runs times with stdout to a file; the table gives the
medians, the ratio cvcli / minimal, the growth from the previous size, the
simulator's own cost (its scenario check, a stand-in for the reading it does
at each creation, and its cost per record), and cvcli's peak memory against
the size of the data it receives (above what any run holds under Wine, and
beside the same figure of the minimal client, the floor for one listing call). Then start-up: `cvcli help snap` against a
minimal program that loads the message library, starts COM with its security
and prints the same text, and an empty program.

Figures only: nothing here passes or fails.
"""

import argparse
import json
import shutil
import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[1]
DISK_RECORD = 160  # the disk record as the contract lays it out
DISK_ENTRY = 32  # the extended listing's entry around it


def winpath(path):
    return "Z:" + str(path).replace("/", "\\")


def disk(i):
    return {
        "pDisk": {
            "dwType": 1, "dwPartitionStyle": 2, "wszStorageSystem": "filer-%d" % (i % 7),
            "wszStorageSystemPath": "/vol/vol%d/lun%d" % (i % 97, i),
            "wszVolumeName": "\\\\?\\Volume{3f1c2a40-5b6d-4e7f-8a91-%012d}\\" % i, "szSerialNumber": "P3OoG4W%05d" % i,
            "bySCSIPort": 3, "byLun": i % 256, "llSize": 107386585088, "dwDiskId": i,
            "dwCloneSplitPercent": "0xFFFFFFFF", "pwszMountPoints": ["C:\\mnt\\lun%d" % i], "pwszIpAddresses": ["10.20.1.11"],
        },
        "bHyperVVhdPresent": False,
    }


def data_bytes(disks):
    """What crosses the interface for the listing: records, wide strings, arrays."""
    total = 0
    for entry in disks:
        d = entry["pDisk"]
        total += DISK_ENTRY + DISK_RECORD
        for key, value in d.items():
            if key.startswith("wsz"):
                total += 2 * (len(value) + 1)
            elif key.startswith("sz"):
                total += len(value) + 1
            elif key.startswith("pwsz"):
                total += sum(8 + 2 * (len(v) + 1) for v in value)
    return total


def snapshot(i):
    return {"wszName": "hourly.%d" % i, "ftCreated": "2024-03-04T01:00:00Z", "nUsedInnerPercent": i % 50,
            "nTotalInnerPercent": i % 7, "nUsedPercent": i % 90, "nTotalPercent": i % 9, "dwConsistency": 1}


def disk_list(size):
    disks = [disk(i) for i in range(size)]
    methods = {"IVirtualDisk2.EnumerateDisksEx": {"disks": disks},
               "IVirtualDisk.GetPortInitiator": {"initiator": {"dwKind": 1, "wszName": "iqn.1991-05.com.example:host1"}}}
    return methods, data_bytes(disks), ["disk", "list"], ["disk-list"]


def snap_list(size):
    snapshots = [snapshot(i) for i in range(size)]
    data = sum(SNAPSHOT_RECORD + 2 * (len(s["wszName"]) + 1) for s in snapshots)
    return {"ISnapShotList.ListSnapshots": {"snapshots": snapshots}}, data, ["snap", "list", "-d", "E"], ["snap-list"]


SNAPSHOT_RECORD = 48
WORKLOADS = [("disk list", disk_list), ("snap list", snap_list)]


class Runner:
    def __init__(self, build):
        self.build = build
        self.env = dict(os.environ, WINEPREFIX=str(build / "wineprefix"), WINEDEBUG="-all",
                        WINEDLLOVERRIDES="mscoree,mshtml=", CORVANE_SIM_LINGER="600")
        self.env.pop("CORVANE_SIM_LOG", None)
        self.wine = "/usr/lib/wine/wine64" if Path("/usr/lib/wine/wine64").exists() else "wine"
        self.scenario = Path(tempfile.mkdtemp(prefix="cvcli-bench-")) / "scenario.json"

    def run(self, program, args, scenario=None):
        """Seconds, peak resident KiB (polled) and bytes written of one run, stdout to a file."""
        env = dict(self.env)
        if scenario is not None:
            # One path for every scenario: a lingering simulator keeps the
            # environment it started with, but reads the file at each creation.
            shutil.copyfile(scenario, self.scenario)
            env["CORVANE_SIM_SCENARIO"] = winpath(self.scenario)
        with tempfile.TemporaryFile() as out:
            started = time.monotonic()
            process = subprocess.Popen([self.wine, winpath(self.build / program)] + args, stdin=subprocess.DEVNULL,
                                       stdout=out, stderr=subprocess.DEVNULL, env=env)
            peak = 0
            status_file = Path("/proc/%d/status" % process.pid)
            while process.poll() is None:
                try:
                    for line in status_file.read_text().splitlines():
                        if line.startswith("VmHWM:"):
                            peak = max(peak, int(line.split()[1]))
                except OSError:
                    pass
                time.sleep(0.01)
            seconds = time.monotonic() - started
            out.seek(0)
            size = len(out.read())
        return seconds, peak, size

    def median(self, runs, program, args, scenario=None):
        results = [self.run(program, args, scenario) for _ in range(runs)]
        return statistics.median(r[0] for r in results), max(r[1] for r in results), results[-1][2]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build-dir", default=str(REPO / "build"))
    parser.add_argument("--sizes", default="1000,10000,100000")
    parser.add_argument("--runs", type=int, default=3)
    args = parser.parse_args()
    build = Path(args.build_dir).resolve()
    prefix_script = str(REPO / "scripts" / "wine-prefix.sh")
    subprocess.run(["bash", prefix_script, "--stop", str(build)], check=True)
    subprocess.run(["bash", prefix_script, "--start", str(build)], check=True, stdout=subprocess.DEVNULL)
    runner = Runner(build)
    work = Path(tempfile.mkdtemp(prefix="cvcli-bench-"))

    _, base_peak, _ = runner.median(1, "cvcli.exe", ["help", "snap"])  # what any run holds under Wine
    (work / "empty.json").write_text("{}")
    empty_check, _, _ = runner.median(1, "corvane-sim.exe", ["/check", winpath(work / "empty.json")])
    sizes = [int(s) for s in args.sizes.split(",")]
    for title, workload in WORKLOADS:
        print("%s: median of %d runs each, stdout to a file" % (title, args.runs))
        print("%8s %9s %9s %6s %8s %9s %10s %10s %10s %9s %9s" % ("records", "cvcli", "minimal", "ratio", "growth",
                                                             "sim check", "per record", "peak KiB", "data KiB",
                                                             "peak/data", "minimal"))
        previous = None
        for size in sizes:
            methods, data, cvcli_args, minimal_args = workload(size)
            scenario = work / ("%s-%d.json" % (title.replace(" ", "-"), size))
            scenario.write_text(json.dumps({"methods": methods}))
            runner.run("cvcli.exe", cvcli_args, scenario)  # the simulator starts and reads it once
            cvcli, peak, out_cvcli = runner.median(args.runs, "cvcli.exe", cvcli_args, scenario)
            minimal, minimal_peak, out_minimal = runner.median(args.runs, "minimal_client.exe", minimal_args, scenario)
            check, _, _ = runner.median(1, "corvane-sim.exe", ["/check", winpath(scenario)])
            growth = "%7.2fx" % (cvcli / previous) if previous else "%8s" % "-"
            print("%8d %8.2fs %8.2fs %6.2f %8s %8.2fs %8.1fus %10d %10d %9.2f %9.2f%s" % (
                size, cvcli, minimal, cvcli / minimal, growth, check - empty_check, minimal / size * 1e6, peak,
                data / 1024, (peak - base_peak) * 1024 / data, (minimal_peak - base_peak) * 1024 / data,
                "  %d bytes out" % out_cvcli if out_cvcli == out_minimal else "  (outputs differ: %d / %d bytes)" % (
                    out_cvcli, out_minimal)))
            previous = cvcli
        print()

    print("start-up: median of %d runs" % (args.runs * 5))
    help_cvcli, _, _ = runner.median(args.runs * 5, "cvcli.exe", ["help", "snap"])
    help_minimal, _, _ = runner.median(args.runs * 5, "minimal_client.exe", ["help-snap"])
    empty, _, _ = runner.median(args.runs * 5, "minimal_client.exe", ["empty"])
    print("  cvcli help snap   %7.3fs" % help_cvcli)
    print("  minimal help snap %7.3fs   ratio %.2f" % (help_minimal, help_cvcli / help_minimal))
    print("  empty program     %7.3fs   cvcli over it: %+.3fs" % (empty, help_cvcli - empty))
    subprocess.run(["bash", prefix_script, "--stop", str(build)], check=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
