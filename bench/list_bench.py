#!/usr/bin/env python3
"""cvcli against a client that shares no code with it, side by side.

    python3 bench/list_bench.py [--build-dir build] [--sizes 1000,10000,100000] [--runs 3]

For each size, a scenario with that many LUNs (then snapshots);
`cvcli disk list` (`snap list -d E`) and bench/MinimalClient.cpp, a client
that makes the same calls and writes the same bytes with its own formatting,
one UTF-8 conversion per block and block writes, run as --runs pairs whose
order alternates, stdout to a file. The table gives the medians of wall time
and of the user and system CPU time of the client process (the simulator is
another process), their ratios cvcli / minimal, and each one's peak memory
above an idle run against the size of the data it receives; "(outputs
differ)" marks a pair whose bytes are not the same. Then start-up: `cvcli
help snap` against the minimal client printing the same text after loading
the message library and starting COM with its security, and an empty program.

Figures only: nothing here passes or fails.
"""

import argparse
import hashlib
import json
import shutil
import os
import statistics
import subprocess
import sys
import tempfile
import threading
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
        """One run, stdout to a file: wall seconds, user and system CPU seconds
        of the client process itself (the simulator is another process),
        peak resident KiB (polled) and the bytes written."""
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
            peak = [0]
            done = threading.Event()

            def poll_memory():
                status_file = Path("/proc/%d/status" % process.pid)
                while not done.wait(0.01):
                    try:
                        for line in status_file.read_text().splitlines():
                            if line.startswith("VmHWM:"):
                                peak[0] = max(peak[0], int(line.split()[1]))
                    except OSError:
                        pass

            poller = threading.Thread(target=poll_memory)
            poller.start()
            # wine64 execs the loader in place: this pid is the Windows process.
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            seconds = time.monotonic() - started
            done.set()
            poller.join()
            out.seek(0)
            digest = hashlib.sha256(out.read()).hexdigest()
        return Figures(seconds, usage.ru_utime, usage.ru_stime, peak[0], digest)

    def pairs(self, runs, first, second):
        """runs pairs of (program, args, scenario), the order alternating from
        pair to pair so that neither side always runs on a warmer machine."""
        a, b = [], []
        for i in range(runs):
            if i % 2 == 0:
                a.append(self.run(*first))
                b.append(self.run(*second))
            else:
                b.append(self.run(*second))
                a.append(self.run(*first))
        return Medians(a), Medians(b)


class Figures:
    def __init__(self, wall, user, system, peak, digest):
        self.wall, self.user, self.system, self.peak, self.digest = wall, user, system, peak, digest


class Medians:
    def __init__(self, runs):
        self.wall = statistics.median(r.wall for r in runs)
        self.user = statistics.median(r.user for r in runs)
        self.system = statistics.median(r.system for r in runs)
        self.peak = max(r.peak for r in runs)
        self.digest = runs[-1].digest


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build-dir", default=str(REPO / "build"))
    parser.add_argument("--sizes", default="1000,10000,100000")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--startup-runs", type=int, default=15)
    args = parser.parse_args()
    build = Path(args.build_dir).resolve()
    prefix_script = str(REPO / "scripts" / "wine-prefix.sh")
    subprocess.run(["bash", prefix_script, "--stop", str(build)], check=True)
    subprocess.run(["bash", prefix_script, "--start", str(build)], check=True, stdout=subprocess.DEVNULL)
    runner = Runner(build)
    work = Path(tempfile.mkdtemp(prefix="cvcli-bench-"))

    base_peak = runner.run("cvcli.exe", ["help", "snap"]).peak  # what any run holds under Wine
    sizes = [int(s) for s in args.sizes.split(",") if s]  # --sizes '': start-up only
    header = "%8s %9s %9s %8s %8s %6s %7s %7s %6s %9s %9s" % (
        "records", "wall", "minimal", "user", "minimal", "ratio", "system", "minimal", "ratio", "peak/data", "minimal")
    for title, workload in WORKLOADS if sizes else []:
        print("%s: medians of %d alternating pairs, stdout to a file, CPU of the client process" % (title, args.runs))
        print(header)
        for size in sizes:
            methods, data, cvcli_args, minimal_args = workload(size)
            scenario = work / ("%s-%d.json" % (title.replace(" ", "-"), size))
            scenario.write_text(json.dumps({"methods": methods}))
            runner.run("cvcli.exe", cvcli_args, scenario)  # the simulator starts and reads it once
            cvcli, minimal = runner.pairs(args.runs, ("cvcli.exe", cvcli_args, scenario),
                                          ("minimal_client.exe", minimal_args, scenario))
            print("%8d %8.2fs %8.2fs %7.2fs %7.2fs %6.2f %6.2fs %6.2fs %6.2f %9.2f %9.2f%s" % (
                size, cvcli.wall, minimal.wall, cvcli.user, minimal.user, cvcli.user / max(minimal.user, 1e-9),
                cvcli.system, minimal.system, cvcli.system / max(minimal.system, 1e-9),
                (cvcli.peak - base_peak) * 1024 / data, (minimal.peak - base_peak) * 1024 / data,
                "" if cvcli.digest == minimal.digest else "  (outputs differ)"), flush=True)
        print()

    print("start-up: medians of %d alternating pairs" % args.startup_runs)
    cvcli, minimal = runner.pairs(args.startup_runs, ("cvcli.exe", ["help", "snap"]), ("minimal_client.exe", ["help-snap"]))
    empty, _ = runner.pairs(args.startup_runs, ("minimal_client.exe", ["empty"]), ("minimal_client.exe", ["empty"]))
    print("%-18s %8s %8s %8s %8s" % ("", "wall", "user", "system", "CPU"))
    for label, m in (("cvcli help snap", cvcli), ("minimal help snap", minimal), ("empty program", empty)):
        print("%-18s %7.3fs %7.3fs %7.3fs %7.3fs" % (label, m.wall, m.user, m.system, m.user + m.system))
    print("ratio cvcli / minimal: wall %.2f, user %.2f, CPU %.2f%s" % (
        cvcli.wall / minimal.wall, cvcli.user / max(minimal.user, 1e-9),
        (cvcli.user + cvcli.system) / max(minimal.user + minimal.system, 1e-9),
        "" if cvcli.digest == minimal.digest else "  (outputs differ)"))
    subprocess.run(["bash", prefix_script, "--stop", str(build)], check=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
