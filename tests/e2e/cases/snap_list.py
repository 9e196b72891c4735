"""snap list: the one-LUN table, the per-drive lists, the volume names; form choice, usage and failures."""

from datetime import datetime, timedelta, timezone

from cases.lun_common import (E_ACCESSDENIED, MSG_SERVICE_UNAVAILABLE, created_nothing, failing, only, progress,
                              refusals, usage_faults)
from harness import REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_LIST_SNAPSHOTS_FAILED = 5118
MSG_LIST_SNAPSHOTS_PARTLY_FAILED = 5119
SOME_DRIVES_FAILED = 0xC004038B
NO_SUCH_LUN = 0xC0040401

ONE = "ISnapShotList.ListSnapshots"
SEVERAL = "ISnapShotSpace.ListDriveSnapshots"
VOLUME = "ISnapShotMount.ListVolumeSnapshots"

USAGE = (
    "cvcli snap list [-m <MachineName>] {-d <MountPoint> | -sdf <Storage System> -sdv <volume> | -D <MountPointList> }\n"
    "Enumerates snapshot copies of a LUN.\n"
    "If the machine name is not specified the command is executed on a local machine.\n"
)
HEADER = (
    "Disk Snapshot Copy Name\t\t%Used\t\t%Total\t\tCreated\t\t\tSnapshot Copy Status \n"
    "-----------------------\t\t----- \t\t-----\t\t----------\t\t--------------------- \n"
)
NONE = "No Disk Snapshot Copies exist \n"
# The status word of each consistency state, by its number.
WORDS = dict(enumerate(["Inconsistent snapshot copy", "Consistent snapshot copy",
                        "CVD-type converted inconsistent snapshot copy", "CVD-type converted consistent snapshot copy",
                        "LUN does not exist in snapshot copy", "Inappropriate disk in snapshot copy"]))
MONTHS = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec".split()
# The creation time is shown in the machine's zone: pin it.
UTC = {"TZ": "UTC"}


def snapshot(name, when="2024-03-04T01:00:00Z", used=(2, 1), total=(1, 0), consistency=1):
    """A SnapshotInfo; used and total are (outer, inner) percentages."""
    return {"wszName": name, "ftCreated": when, "nUsedPercent": used[0], "nUsedInnerPercent": used[1],
            "nTotalPercent": total[0], "nTotalInnerPercent": total[1], "dwConsistency": consistency}


def row(s, hours=0):
    """The table row of a SnapshotInfo; past -100..100 both percentage columns give way."""
    used, total = (s["nUsedPercent"], s["nUsedInnerPercent"]), (s["nTotalPercent"], s["nTotalInnerPercent"])
    columns = ("--", "--")
    if all(-100 <= p <= 100 for p in used + total):
        columns = ("%3d%% (%2d%%)" % used, "%3d%% (%2d%%)" % total)
    t = datetime.strptime(s["ftCreated"], "%Y-%m-%dT%H:%M:%SZ").replace(tzinfo=timezone.utc) + timedelta(hours=hours)
    when = "%s %d %02d:%02d" % (MONTHS[t.month - 1], t.day, t.hour, t.minute)
    return "%s\t\t%s\t\t%s\t\t%s\t\t%s \n" % (s["wszName"] or "", *columns, when, WORDS.get(s["dwConsistency"], WORDS[5]))


def rows(copies):
    return "".join(row(s) for s in copies)


def one(snapshots, **response):
    return {"methods": {ONE: dict(response, snapshots=snapshots)}}


def several(drives, **response):
    return {"methods": {SEVERAL: dict(response, snapshots=drives)}}


def drive(name, snapshots=(), status=0, error=None):
    record = {"wszDrive": name, "hrStatus": "0x%08X" % status, "pSnapshots": list(snapshots)}
    if error is not None:
        record["wszError"] = error
    return record


def volume(names, **response):
    return {"methods": {VOLUME: dict(response, snapshots=[{"wszName": n} for n in names])}}


def heading(name):
    return "\n\n=== Drive %s ===\n\n" % name


def failed_drive(name, error):
    return "Failed to retrieve snapshot copy list of LUN '%s'.\nError: %s\n" % (name, error)


def asked_one(mount_point):
    return only(ONE, {"mountPoint": mount_point}, ["_ISnapShotEvents"])


def asked_several(*drives):
    return only(SEVERAL, {"drives": list(drives), "reserved": 1})


def asked_volume(path):
    return only(VOLUME, {"volumePath": path}, ["_ISnapShotEvents"])


DEMO_ROWS = rows([snapshot("nightly.0"), snapshot("nightly.1", "2024-03-03T01:00:00Z", (5, 3), (2, 1)),
                  snapshot("nightly.2", "2024-03-02T01:00:00Z", (7, 4), (3, 1)),
                  snapshot("before_upgrade", "2024-02-28T16:45:00Z", (11, 7), (4, 2), consistency=0)])
MANY = [snapshot("hourly.%d" % i, "2024-%02d-%02dT%02d:%02d:00Z" % (i % 12 + 1, i % 28 + 1, i % 24, i % 60),
                 (i % 101, i % 50), (i % 37, i % 10), i % 7) for i in range(250)]
# One field at a time just past the limit: both percentage columns of that row give way.
LIMITS = [(100, 100, 100, 100), (-100, -100, -100, -100), (101, 0, 0, 0), (0, 101, 0, 0), (0, 0, 101, 0), (0, 0, 0, 101),
          (-101, 0, 0, 0), (0, 0, 0, -101), (0x7FFFFFFF, 0, 0, 0), (-0x80000000, 0, 0, 0)]
STATES = [0, 1, 2, 3, 4, 5, 6, 7, 0x100, 0xFFFFFFFF]
NON_ASCII = "nächtlich-快照"
LONG_VOLUME = "v" * 400

TIMES = ["2023-12-31T23:59:59Z", "2024-01-01T00:00:00Z", "2024-02-29T12:05:00Z", "1601-01-01T00:00:00Z"]
# (name, copies, rows printed, time zone): the table of one LUN.
SEASONS = [snapshot("winter", "2024-01-15T10:00:00Z"), snapshot("summer", "2024-07-15T10:00:00Z")]
TABLES = [
    ("one LUN, many copies", MANY, rows(MANY), UTC),
    ("percentages at and past their limits", [snapshot("p%d" % i, used=p[:2], total=p[2:]) for i, p in enumerate(LIMITS)],
     None, UTC),
    ("every consistency state", [snapshot("s%d" % s, consistency=s) for s in STATES], None, UTC),
    ("non-ASCII and missing names", [snapshot(NON_ASCII), snapshot(None)], None, UTC),
    ("times around the year and the day", [snapshot(chr(97 + i), t) for i, t in enumerate(TIMES)], None, UTC),
    ("local time follows the zone's rules for that date", SEASONS, row(SEASONS[0], 1) + row(SEASONS[1], 2),
     {"TZ": "Europe/Berlin"}),
    ("a time that cannot be converted", [snapshot("bad", 0x8000000000000000)],
     "bad\t\t  2% ( 1%)\t\t  1% ( 0%)\t\t \t\tConsistent snapshot copy \n", UTC),
]
SDF_FAULTS = [("-sdf alone", ["-sdf", "f", "-d", "E"], 5609), ("-sdv alone", ["-sdv", "v"], 5609),
              ("-sdf empty, -sdv given", ["-sdf", "", "-sdv", "v"], 5609)]
MOUNT_FAULTS = [("nothing given", [], 5602), ("-d given twice", ["-d", "E", "-d", "F"], 5602)]

CASES = [
    # One LUN (-d): the table.
    Case("one LUN, demo scenario", ["snap", "list", "-d", "E"], HEADER + DEMO_ROWS + completion(), S_OK,
         scenario="simulator/scenarios/demo.json", env=UTC, check=asked_one("E")),
    Case("one LUN, no copies; -d wins over -D, a folder gets its backslash",
         ["snap", "list", "-D", "F", "G", "-d", "C:\\Dätä\\東京"], NONE + completion(), S_OK, scenario=one([]),
         check=asked_one("C:\\Dätä\\東京\\")),
] + [Case(name, ["snap", "list", "-d", "E"], HEADER + (text or rows(copies)) + completion(), S_OK,
          scenario=one(copies), env=env) for name, copies, text, env in TABLES] + [
    Case("progress events while listing", ["snap", "list", "-d", "E"], "E:\\ : %s\n" % msg(5040) + NONE + completion(),
         S_OK, scenario=one([], events=progress("E:\\", 28))),
    *refusals("one LUN", ["snap", "list", "-d", "E"], MSG_LIST_SNAPSHOTS_FAILED, lambda r: one([snapshot("x")], **r)),
    Case("one LUN on another machine", ["snap", "list", "-d", "E", "-m", "filer-host"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, check=created_nothing),
    # Several LUNs (-D): a short list per drive.
    Case("several LUNs, demo scenario", ["snap", "list", "-D", "E:\\", "F:\\"],
         heading("E:\\") + "nightly.0 : consistent\nnightly.1 : consistent\nnightly.2 : consistent\n"
         "before_upgrade : not consistent\n" + heading("F:\\") + "nightly.0 : consistent\nhourly.5 : consistent\n"
         + completion(), S_OK, scenario="simulator/scenarios/demo.json", check=asked_several("E:\\", "F:\\")),
    Case("several LUNs: consistency by the low byte", ["snap", "list", "-D", "E", "F:", "C:\\mnt\\logs"],
         heading("E:\\") + "a : not consistent\nb : consistent\nc : consistent\nd : consistent\ne : not consistent\n"
         "f : consistent\n" + heading("F:\\") + heading("C:\\mnt\\logs\\") + "g : consistent\n" + completion(), S_OK,
         scenario=several([drive("E:\\", [snapshot(n, consistency=c) for n, c in zip("abcdef", [0, 1, 2, 5, 0x100, 0x101])]),
                           drive("F:\\"), drive("C:\\mnt\\logs\\", [snapshot("g", consistency=7)])]),
         check=asked_several("E", "F:", "C:\\mnt\\logs")),
    # A failing drive's copies are not printed; the others still are, and the partial failure comes last.
    Case("several LUNs: partial failure after the whole list", ["snap", "list", "-D", "E", "Q", "F"],
         heading("E") + "a : consistent\n" + heading("Q") + failed_drive("Q", "LUN not found") + heading("F")
         + "b : not consistent\n" + "\n" + alert(MSG_LIST_SNAPSHOTS_PARTLY_FAILED, SOME_DRIVES_FAILED), SOME_DRIVES_FAILED,
         scenario=several([drive("E", [snapshot("a")]), drive("Q", [snapshot("ignored")], NO_SUCH_LUN, "LUN not found"),
                           drive("F", [snapshot("b", consistency=0)])], result=hex(SOME_DRIVES_FAILED)),
         check=asked_several("E", "Q", "F")),
    Case("several LUNs: partial failure with the service's explanation", ["snap", "list", "-D", "Q"],
         heading("Q") + failed_drive("Q", "") + "\n"
         + alert(MSG_LIST_SNAPSHOTS_PARTLY_FAILED, SOME_DRIVES_FAILED, description="1 of 1 drives failed"),
         SOME_DRIVES_FAILED, scenario=several([drive("Q", [], NO_SUCH_LUN)], **failing(SOME_DRIVES_FAILED,
                                                                                       "1 of 1 drives failed"))),
    # Refused, the list prints the code first.
    *refusals("several LUNs", ["snap", "list", "-D", "E"], MSG_LIST_SNAPSHOTS_FAILED,
              lambda r: several([drive("E", [snapshot("a")])], **r), before=lambda hr: "hr=%x\n" % hr),
    Case("several LUNs: nothing returned; -D twice gives both lists", ["snap", "list", "-D", "E", "-D", "F"], completion(),
         S_OK, scenario=several([]), check=asked_several("E", "F")),
    Case("several LUNs: non-ASCII and missing names", ["snap", "list", "-D", "Ö:", "C:\\Dätä\\東京"],
         heading("") + " : consistent\n" + heading("Ö:\\") + NON_ASCII + " : consistent\n" + heading("C:\\Dätä\\東京\\")
         + failed_drive("C:\\Dätä\\東京\\", "Zugriff verweigert – 拒否") + heading("Q") + failed_drive("Q", "")
         + completion(),
         S_OK, scenario=several([{"pSnapshots": [snapshot(None)]}, drive("Ö:\\", [snapshot(NON_ASCII)]),
                                 drive("C:\\Dätä\\東京\\", [], E_ACCESSDENIED, "Zugriff verweigert – 拒否"),
                                 drive("Q", [], NO_SUCH_LUN)]), check=asked_several("Ö:", "C:\\Dätä\\東京")),
    Case("several LUNs: many copies", ["snap", "list", "-D", "E"],
         heading("E") + "".join("%s : %s\n" % (s["wszName"], "consistent" if s["dwConsistency"] else "not consistent")
                                for s in MANY) + completion(), S_OK, scenario=several([drive("E", MANY)])),
    # One storage-system volume (-sdf and -sdv): the names.
    Case("volume, demo scenario", ["snap", "list", "-sdf", "filer-east", "-sdv", "sql_data"],
         "nightly.0 \nnightly.1 \nnightly.2 \nbefore_upgrade \n" + completion(), S_OK,
         scenario="simulator/scenarios/demo.json", check=asked_volume("filer-east:sql_data")),
    Case("volume without copies prints nothing; its path is cut at the buffer",
         ["snap", "list", "-sdf", "f", "-sdv", LONG_VOLUME], completion(), S_OK, scenario=volume([]),
         check=asked_volume(("f:" + LONG_VOLUME)[:259])),
    Case("volume wins over mount points and always asks the local service",
         ["snap", "list", "-m", "filer-host", "-d", "E", "-D", "F", "-sdv", "v", "-sdf", "f"], "a \n" + completion(), S_OK,
         scenario=volume(["a"]), check=asked_volume("f:v")),
    Case("volume: non-ASCII and nameless copies", ["snap", "list", "-sdf", "fïler-東京", "-sdv", "völ"],
         NON_ASCII + " \n \n" + completion(), S_OK, scenario=volume([NON_ASCII, None]),
         check=asked_volume("fïler-東京:völ")),
    *refusals("volume", ["snap", "list", "-sdf", "f", "-sdv", "v"], MSG_LIST_SNAPSHOTS_FAILED, lambda r: volume(["a"], **r)),
    Case("both empty: mount point forms", ["snap", "list", "-sdf", "", "-sdv", "", "-d", "E"], NONE + completion(), S_OK,
         scenario=one([]), check=asked_one("E")),
    # Without a mount point, or with only one of the pair: the usage, and nothing is created.
    *usage_faults("list", ["snap", "list"], USAGE, MOUNT_FAULTS + SDF_FAULTS, check=created_nothing),
]
