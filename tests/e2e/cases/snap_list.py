"""snap list: the one-LUN table, the per-drive lists, the volume names; form choice, usage and failures."""

from datetime import datetime, timedelta, timezone

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_LIST_SNAPSHOTS_FAILED = 5118
MSG_LIST_SNAPSHOTS_PARTLY_FAILED = 5119
MSG_USAGE_MOUNT_POINT = 5602
MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME = 5609
E_ACCESSDENIED = 0x80070005
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
WORDS = {
    0: "Inconsistent snapshot copy",
    1: "Consistent snapshot copy",
    2: "CVD-type converted inconsistent snapshot copy",
    3: "CVD-type converted consistent snapshot copy",
    4: "LUN does not exist in snapshot copy",
    5: "Inappropriate disk in snapshot copy",
}
MONTHS = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec".split()
# The creation time is shown in the machine's zone: pin it.
UTC = {"TZ": "UTC"}


def usage(message_id):
    return "\n%s ...\n\n" % msg(message_id) + USAGE


def snapshot(name, when="2024-03-04T01:00:00Z", used=(2, 1), total=(1, 0), consistency=1):
    """A SnapshotInfo; used and total are (outer, inner) percentages."""
    return {"wszName": name, "ftCreated": when, "nUsedPercent": used[0], "nUsedInnerPercent": used[1],
            "nTotalPercent": total[0], "nTotalInnerPercent": total[1], "dwConsistency": consistency}


def created(when, hours=0):
    t = datetime.strptime(when, "%Y-%m-%dT%H:%M:%SZ").replace(tzinfo=timezone.utc) + timedelta(hours=hours)
    return "%s %d %02d:%02d" % (MONTHS[t.month - 1], t.day, t.hour, t.minute)


def row(name, when="2024-03-04T01:00:00Z", used=(2, 1), total=(1, 0), consistency=1, hours=0):
    percents = [used[0], used[1], total[0], total[1]]
    if all(-100 <= p <= 100 for p in percents):
        columns = ("%3d%% (%2d%%)" % used, "%3d%% (%2d%%)" % total)
    else:
        columns = ("--", "--")
    word = WORDS.get(consistency, WORDS[5])
    return "%s\t\t%s\t\t%s\t\t%s\t\t%s \n" % (name, columns[0], columns[1], created(when, hours), word)


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


def request(method, expected, sinks):
    """The one call that reached the service, what it was sent, and the sinks connected and given back."""

    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        assert [c.get("method") for c in calls] == [method], "calls %r" % [c.get("method") for c in calls]
        assert calls[0]["request"] == expected, "request %r" % calls[0]["request"]
        advises = [e for e in result.events if e.get("event") == "advise"]
        unadvises = [e for e in result.events if e.get("event") == "unadvise"]
        assert len(advises) == sinks and len(unadvises) == sinks, "advise %r unadvise %r" % (advises, unadvises)
        assert all(a.get("interface") == "_ISnapShotEvents" for a in advises), advises

    return check


def asked_one(mount_point):
    return request(ONE, {"mountPoint": mount_point}, 1)


def asked_several(*drives):
    return request(SEVERAL, {"drives": list(drives), "reserved": 1}, 0)


def asked_volume(path):
    return request(VOLUME, {"volumePath": path}, 1)


def created_nothing(result):
    assert result.created() == [], "created %r" % result.created()


DEMO_ROWS = (row("nightly.0", "2024-03-04T01:00:00Z", (2, 1), (1, 0)) + row("nightly.1", "2024-03-03T01:00:00Z", (5, 3), (2, 1))
             + row("nightly.2", "2024-03-02T01:00:00Z", (7, 4), (3, 1))
             + row("before_upgrade", "2024-02-28T16:45:00Z", (11, 7), (4, 2), consistency=0))
MANY = [snapshot("hourly.%d" % i, "2024-%02d-%02dT%02d:%02d:00Z" % (i % 12 + 1, i % 28 + 1, i % 24, i % 60),
                 (i % 101, i % 50), (i % 37, i % 10), i % 7) for i in range(250)]
MANY_ROWS = "".join(row(s["wszName"], s["ftCreated"], (s["nUsedPercent"], s["nUsedInnerPercent"]),
                        (s["nTotalPercent"], s["nTotalInnerPercent"]), s["dwConsistency"]) for s in MANY)
# One field at a time just past the limit: both percentage columns of that row give way.
LIMITS = [(100, 100, 100, 100), (-100, -100, -100, -100), (101, 0, 0, 0), (0, 101, 0, 0), (0, 0, 101, 0), (0, 0, 0, 101),
          (-101, 0, 0, 0), (0, 0, 0, -101), (0x7FFFFFFF, 0, 0, 0), (-0x80000000, 0, 0, 0)]
LIMIT_SNAPSHOTS = [snapshot("p%d" % i, used=(u, ui), total=(t, ti)) for i, (u, ui, t, ti) in enumerate(LIMITS)]
LIMIT_ROWS = "".join(row("p%d" % i, used=(u, ui), total=(t, ti)) for i, (u, ui, t, ti) in enumerate(LIMITS))
STATES = [0, 1, 2, 3, 4, 5, 6, 7, 0x100, 0xFFFFFFFF]
NON_ASCII = "nächtlich-快照"
LONG_VOLUME = "v" * 400

CASES = [
    # One LUN (-d): the table.
    Case("one LUN, demo scenario", ["snap", "list", "-d", "E"], HEADER + DEMO_ROWS + completion(), S_OK,
         scenario="simulator/scenarios/demo.json", env=UTC, check=asked_one("E")),
    Case("one LUN, no copies", ["snap", "list", "-d", "E"], NONE + completion(), S_OK, scenario=one([]),
         check=asked_one("E")),
    Case("one LUN, many copies", ["snap", "list", "-d", "E"], HEADER + MANY_ROWS + completion(), S_OK, scenario=one(MANY),
         env=UTC),
    Case("percentages at and past their limits", ["snap", "list", "-d", "E"], HEADER + LIMIT_ROWS + completion(), S_OK,
         scenario=one(LIMIT_SNAPSHOTS), env=UTC),
    Case("every consistency state", ["snap", "list", "-d", "E"],
         HEADER + "".join(row("s%d" % s, consistency=s) for s in STATES) + completion(), S_OK,
         scenario=one([snapshot("s%d" % s, consistency=s) for s in STATES]), env=UTC),
    Case("a nameless copy prints an empty name", ["snap", "list", "-d", "E"], HEADER + row("") + completion(), S_OK,
         scenario=one([snapshot(None)]), env=UTC),
    Case("non-ASCII names and mount point", ["snap", "list", "-d", "C:\\Dätä\\東京"],
         HEADER + row(NON_ASCII) + row("Ünïcödé copy") + completion(), S_OK,
         scenario=one([snapshot(NON_ASCII), snapshot("Ünïcödé copy")]), env=UTC, check=asked_one("C:\\Dätä\\東京\\")),
    Case("times around the year and the day", ["snap", "list", "-d", "E"],
         HEADER + row("a", "2023-12-31T23:59:59Z") + row("b", "2024-01-01T00:00:00Z") + row("c", "2024-02-29T12:05:00Z")
         + row("d", "1601-01-01T00:00:00Z") + completion(), S_OK,
         scenario=one([snapshot("a", "2023-12-31T23:59:59Z"), snapshot("b", "2024-01-01T00:00:00Z"),
                       snapshot("c", "2024-02-29T12:05:00Z"), snapshot("d", "1601-01-01T00:00:00Z")]), env=UTC),
    Case("local time follows the zone's rules for that date", ["snap", "list", "-d", "E"],
         HEADER + row("winter", "2024-01-15T10:00:00Z", hours=1) + row("summer", "2024-07-15T10:00:00Z", hours=2)
         + completion(), S_OK,
         scenario=one([snapshot("winter", "2024-01-15T10:00:00Z"), snapshot("summer", "2024-07-15T10:00:00Z")]),
         env={"TZ": "Europe/Berlin"}),
    Case("a time that cannot be converted", ["snap", "list", "-d", "E"],
         HEADER + "bad\t\t  2% ( 1%)\t\t  1% ( 0%)\t\t \t\tConsistent snapshot copy \n" + completion(), S_OK,
         scenario=one([snapshot("bad", 0x8000000000000000)]), env=UTC),
    # The -d value as the accessor normalises it.
    Case("-d E: is the drive letter", ["snap", "list", "-d", "E:"], NONE + completion(), S_OK, scenario=one([]),
         check=asked_one("E")),
    Case("-d E:\\ is kept", ["snap", "list", "-d", "E:\\"], NONE + completion(), S_OK, scenario=one([]),
         check=asked_one("E:\\")),
    Case("-d folder gets its backslash", ["snap", "list", "-d", "C:\\mnt\\data"], NONE + completion(), S_OK,
         scenario=one([]), check=asked_one("C:\\mnt\\data\\")),
    Case("-d wins over -D", ["snap", "list", "-D", "F", "G", "-d", "E"], NONE + completion(), S_OK, scenario=one([]),
         check=asked_one("E")),
    Case("progress events while listing", ["snap", "list", "-d", "E"], "E:\\ : %s\n" % msg(5040) + NONE + completion(),
         S_OK, scenario=one([], events=[{"event": "ProgressMessage", "subject": "E:\\", "code": 28}])),
    Case("one LUN refused with the service's explanation", ["snap", "list", "-d", "E"],
         alert(MSG_LIST_SNAPSHOTS_FAILED, NO_SUCH_LUN, description="No LUN at E."), NO_SUCH_LUN,
         scenario=one([snapshot("x")], result=hex(NO_SUCH_LUN), errorDescription="No LUN at E."), check=asked_one("E")),
    Case("one LUN refused without an explanation", ["snap", "list", "-d", "E"],
         alert(MSG_LIST_SNAPSHOTS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED, scenario=one([], result=hex(E_ACCESSDENIED))),
    Case("one LUN: S_FALSE is a failure", ["snap", "list", "-d", "E"], alert(MSG_LIST_SNAPSHOTS_FAILED, 1), 1,
         scenario=one([snapshot("x")], result=1)),
    Case("one LUN on another machine", ["snap", "list", "-d", "E", "-m", "filer-host"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, check=created_nothing),
    Case("one LUN, service absent", ["snap", "list", "-d", "E"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, prefix="bare"),
    # Several LUNs (-D): a short list per drive.
    Case("several LUNs, demo scenario", ["snap", "list", "-D", "E:\\", "F:\\"],
         heading("E:\\") + "nightly.0 : consistent\nnightly.1 : consistent\nnightly.2 : consistent\n"
         "before_upgrade : not consistent\n" + heading("F:\\") + "nightly.0 : consistent\nhourly.5 : consistent\n"
         + completion(), S_OK, scenario="simulator/scenarios/demo.json", check=asked_several("E:\\", "F:\\")),
    Case("several LUNs: consistency by the low byte",
         ["snap", "list", "-D", "E", "F:", "C:\\mnt\\logs"],
         heading("E:\\") + "a : not consistent\nb : consistent\nc : consistent\nd : consistent\ne : not consistent\n"
         "f : consistent\n" + heading("F:\\") + heading("C:\\mnt\\logs\\") + "g : consistent\n" + completion(), S_OK,
         scenario=several([drive("E:\\", [snapshot("a", consistency=0), snapshot("b", consistency=1),
                                          snapshot("c", consistency=2), snapshot("d", consistency=5),
                                          snapshot("e", consistency=0x100), snapshot("f", consistency=0x101)]),
                           drive("F:\\"), drive("C:\\mnt\\logs\\", [snapshot("g", consistency=7)])]),
         check=asked_several("E", "F:", "C:\\mnt\\logs")),
    Case("several LUNs: a failing drive, the others still listed", ["snap", "list", "-D", "E", "Q", "F"],
         heading("E") + "a : consistent\n" + heading("Q") + failed_drive("Q", "LUN not found")
         + heading("F") + "b : not consistent\n" + completion(), S_OK,
         scenario=several([drive("E", [snapshot("a")]), drive("Q", [snapshot("ignored")], NO_SUCH_LUN, "LUN not found"),
                           drive("F", [snapshot("b", consistency=0)])])),
    Case("several LUNs: partial failure after the whole list", ["snap", "list", "-D", "E", "Q", "F"],
         heading("E") + "a : consistent\n" + heading("Q") + failed_drive("Q", "LUN not found") + heading("F")
         + "b : consistent\n" + "\n" + alert(MSG_LIST_SNAPSHOTS_PARTLY_FAILED, SOME_DRIVES_FAILED), SOME_DRIVES_FAILED,
         scenario=several([drive("E", [snapshot("a")]), drive("Q", [], NO_SUCH_LUN, "LUN not found"),
                           drive("F", [snapshot("b")])], result=hex(SOME_DRIVES_FAILED)),
         check=asked_several("E", "Q", "F")),
    Case("several LUNs: partial failure with the service's explanation", ["snap", "list", "-D", "Q"],
         heading("Q") + failed_drive("Q", "") + "\n"
         + alert(MSG_LIST_SNAPSHOTS_PARTLY_FAILED, SOME_DRIVES_FAILED, description="1 of 1 drives failed"),
         SOME_DRIVES_FAILED, scenario=several([drive("Q", [], NO_SUCH_LUN)], result=hex(SOME_DRIVES_FAILED),
                                              errorDescription="1 of 1 drives failed")),
    Case("several LUNs refused: the code, then the failure", ["snap", "list", "-D", "E"],
         "hr=80070005\n" + alert(MSG_LIST_SNAPSHOTS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=several([drive("E", [snapshot("a")])], result=hex(E_ACCESSDENIED))),
    Case("several LUNs refused with the service's explanation", ["snap", "list", "-D", "E"],
         "hr=c0040401\n" + alert(MSG_LIST_SNAPSHOTS_FAILED, NO_SUCH_LUN, description="No such LUN."), NO_SUCH_LUN,
         scenario=several([], result=hex(NO_SUCH_LUN), errorDescription="No such LUN.")),
    Case("several LUNs: S_FALSE is a failure", ["snap", "list", "-D", "E"], "hr=1\n" + alert(MSG_LIST_SNAPSHOTS_FAILED, 1),
         1, scenario=several([], result=1)),
    Case("several LUNs: nothing returned", ["snap", "list", "-D", "E"], completion(), S_OK, scenario=several([])),
    Case("several LUNs: non-ASCII drives and names", ["snap", "list", "-D", "Ö:", "C:\\Dätä\\東京"],
         heading("Ö:\\") + NON_ASCII + " : consistent\n" + heading("C:\\Dätä\\東京\\")
         + failed_drive("C:\\Dätä\\東京\\", "Zugriff verweigert – 拒否") + completion(), S_OK,
         scenario=several([drive("Ö:\\", [snapshot(NON_ASCII)]),
                           drive("C:\\Dätä\\東京\\", [], E_ACCESSDENIED, "Zugriff verweigert – 拒否")]),
         check=asked_several("Ö:", "C:\\Dätä\\東京")),
    Case("several LUNs: many copies", ["snap", "list", "-D", "E"],
         heading("E") + "".join("%s : %s\n" % (s["wszName"], "consistent" if s["dwConsistency"] else "not consistent")
                                for s in MANY) + completion(), S_OK, scenario=several([drive("E", MANY)])),
    Case("several LUNs: missing names print empty", ["snap", "list", "-D", "E"],
         heading("") + " : consistent\n" + heading("Q") + failed_drive("Q", "") + completion(), S_OK,
         scenario=several([{"pSnapshots": [snapshot(None)]}, drive("Q", [], NO_SUCH_LUN)])),
    Case("-D given twice: both lists", ["snap", "list", "-D", "E", "-D", "F"], completion(), S_OK, scenario=several([]),
         check=asked_several("E", "F")),
    Case("several LUNs on another machine", ["snap", "list", "-D", "E", "-m", "filer-host"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, check=created_nothing),
    # Mount point forms without a mount point: the usage, and nothing is created.
    Case("nothing given", ["snap", "list"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG, check=created_nothing),
    Case("-D without a value", ["snap", "list", "-D"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG, check=created_nothing),
    Case("-d without a value", ["snap", "list", "-d"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG, check=created_nothing),
    Case("-d given twice", ["snap", "list", "-d", "E", "-d", "F"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG,
         check=created_nothing),
    # One storage-system volume (-sdf and -sdv): the names.
    Case("volume, demo scenario", ["snap", "list", "-sdf", "filer-east", "-sdv", "sql_data"],
         "nightly.0 \nnightly.1 \nnightly.2 \nbefore_upgrade \n" + completion(), S_OK,
         scenario="simulator/scenarios/demo.json", check=asked_volume("filer-east:sql_data")),
    Case("volume without copies prints nothing", ["snap", "list", "-sdf", "filer-east", "-sdv", "empty"], completion(), S_OK,
         scenario=volume([]), check=asked_volume("filer-east:empty")),
    Case("volume always asks the local service", ["snap", "list", "-m", "filer-host", "-sdf", "f", "-sdv", "v"],
         "a \n" + completion(), S_OK, scenario=volume(["a"]), check=asked_volume("f:v")),
    Case("volume wins over mount points", ["snap", "list", "-d", "E", "-D", "F", "-sdv", "v", "-sdf", "f"],
         "a \n" + completion(), S_OK, scenario=volume(["a"]), check=asked_volume("f:v")),
    Case("volume: non-ASCII and nameless copies", ["snap", "list", "-sdf", "fïler-東京", "-sdv", "völ"],
         NON_ASCII + " \n \n" + completion(), S_OK, scenario=volume([NON_ASCII, None]),
         check=asked_volume("fïler-東京:völ")),
    Case("volume path cut at the buffer", ["snap", "list", "-sdf", "f", "-sdv", LONG_VOLUME], completion(), S_OK,
         scenario=volume([]), check=asked_volume(("f:" + LONG_VOLUME)[:259])),
    Case("volume refused with the service's explanation", ["snap", "list", "-sdf", "f", "-sdv", "v"],
         alert(MSG_LIST_SNAPSHOTS_FAILED, NO_SUCH_LUN, description="No volume v."), NO_SUCH_LUN,
         scenario=volume(["a"], result=hex(NO_SUCH_LUN), errorDescription="No volume v.")),
    Case("volume refused without an explanation", ["snap", "list", "-sdf", "f", "-sdv", "v"],
         alert(MSG_LIST_SNAPSHOTS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED, scenario=volume([], result=hex(E_ACCESSDENIED))),
    Case("volume: S_FALSE is a failure", ["snap", "list", "-sdf", "f", "-sdv", "v"], alert(MSG_LIST_SNAPSHOTS_FAILED, 1), 1,
         scenario=volume([], result=1)),
    Case("volume, service absent", ["snap", "list", "-sdf", "f", "-sdv", "v"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, prefix="bare"),
    # Only one of the pair: the usage, and nothing is created.
    Case("-sdf alone", ["snap", "list", "-sdf", "f", "-d", "E"], usage(MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME), E_INVALIDARG,
         check=created_nothing),
    Case("-sdv alone", ["snap", "list", "-sdv", "v"], usage(MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME), E_INVALIDARG,
         check=created_nothing),
    Case("-sdf empty, -sdv given", ["snap", "list", "-sdf", "", "-sdv", "v"], usage(MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME),
         E_INVALIDARG, check=created_nothing),
    Case("-sdf given twice counts as absent", ["snap", "list", "-sdf", "f", "-sdf", "g", "-sdv", "v"],
         usage(MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME), E_INVALIDARG, check=created_nothing),
    Case("-sdv without a value", ["snap", "list", "-sdf", "f", "-sdv"], usage(MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME),
         E_INVALIDARG, check=created_nothing),
    Case("both empty: mount point forms", ["snap", "list", "-sdf", "", "-sdv", "", "-d", "E"], NONE + completion(), S_OK,
         scenario=one([]), check=asked_one("E")),
]
