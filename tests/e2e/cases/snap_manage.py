"""snap delete, rename, update_mirror and mirror_list: requests, switch checks, output and failures."""

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_DELETE_SNAPSHOT_FAILED = 5116
MSG_RENAME_SNAPSHOT_FAILED = 5117
MSG_UPDATE_MIRROR_FAILED = 5367
MSG_USAGE_SNAPSHOT_NAME = 5600
MSG_USAGE_MOUNT_POINT = 5602
MSG_USAGE_NEW_SNAPSHOT_NAME = 5603
MSG_LIST_MIRRORS_FAILED = 6021
MSG_FREE_MIRROR_LIST_FAILED = 6022

SNAPSHOT_BUSY = 0xC0040391
E_ACCESSDENIED = 0x80070005
E_NOINTERFACE = 0x80004002

LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"
DELETE_USAGE = ("cvcli snap delete [-m <MachineName>] -d <MountPoint> -s <SnapshotName>\n"
                "Deletes existing snapshot copy of a LUN.\n" + LOCAL_MACHINE)
RENAME_USAGE = ("cvcli snap rename [-m <MachineName>] -d <MountPoint>  -o <OldSnapshotName> -n <NewSnapshotName>\n"
                "Renames existing napshot copy of a LUN.\n" + LOCAL_MACHINE)
UPDATE_USAGE = ("cvcli snap update_mirror [-m <MachineName>] -d <MountPoint>\n"
                "Updates destinations of a Reflexaed LUN\n" + LOCAL_MACHINE)
MIRROR_LIST_USAGE = ("cvcli snap mirror_list {-d <Drive> | -D <MountPointList> [...]}\n"
                     "Displays Reflexa destinations associated with the source mapped to the disk mount point\n"
                     + LOCAL_MACHINE)
QUEUED = "\nThe snapshot copy was queued for deletion as a Reflexa Update is in progress on the storage system Volume.\n"

DELETE = "ISnapShotManage.DeleteSnapshot"
RENAME = "ISnapShotManage.RenameSnapshot"
UPDATE = "ISnapShotManage.UpdateMirror"
GET = "ISnapShotMount.GetMirrorDestinations"
FREE = "ISnapShotMount.FreeMirrorDestinations"
GET_LISTS = "ISnapShotDrives.GetMirrorMountPointLists"
FREE_LISTS = "ISnapShotDrives.FreeMirrorMountPointLists"


def usage(message_id, text):
    return "\n%s ...\n\n" % msg(message_id) + text


def answer(method, **response):
    return {"methods": {method: response}}


def failing(hr, description=None):
    response = {"result": "0x%08X" % hr}
    if description is not None:
        response["errorDescription"] = description
    return response


def sent(method, **expected):
    def check(result):
        requests = [e.get("request", {}) for e in result.events if e.get("event") == "call" and e.get("method") == method]
        assert len(requests) == 1, "%s called %d times" % (method, len(requests))
        assert requests[0] == expected, "request %r, expected %r" % (requests[0], expected)
    return check


def sink_connected(result):
    """The snapshot sink was connected before the switches were read, and let go."""
    advises = [e.get("interface") for e in result.events if e.get("event") == "advise"]
    unadvises = [e for e in result.events if e.get("event") == "unadvise"]
    assert advises == ["_ISnapShotEvents"], "advised %r" % advises
    assert len(unadvises) == 1, "unadvised %r" % unadvises


def progress(subject, *codes):
    return [{"event": "ProgressMessage", "subject": subject, "code": code} for code in codes]


# -d is sent normalised: a drive as its letter, a folder with a closing backslash.
MOUNT_POINTS = [("E", "E"), ("e:", "e"), ("E:\\", "E:\\"), ("C:\\mnt\\db", "C:\\mnt\\db\\"),
                ("C:\\mnt\\db\\", "C:\\mnt\\db\\"), ("C:\\Dätä\\東京", "C:\\Dätä\\東京\\")]
# Names pass unchecked: the service judges them.
NAMES = ["nightly.2", "nächtlich-東京", "a:b*c?", "name with blanks"]

DELETE_CASES = [
    Case("delete: mount point %s" % typed, ["snap", "delete", "-d", typed, "-s", "nightly.2"], completion(), S_OK,
         calls=[DELETE], check=sent(DELETE, mountPoint=sent_as, snapshotName="nightly.2"))
    for typed, sent_as in MOUNT_POINTS
] + [
    Case("delete: name %s" % name, ["snap", "delete", "-s", name, "-d", "E"], completion(), S_OK,
         calls=[DELETE], check=sent(DELETE, mountPoint="E", snapshotName=name))
    for name in NAMES
] + [
    Case("delete: progress events", ["snap", "delete", "-d", "E", "-s", "nightly.2"],
         "nightly.2 : %s\nnightly.2 : %s\n" % (msg(5018), msg(5019)) + completion(), S_OK,
         scenario=answer(DELETE, events=progress("nightly.2", 8, 9), queued=False)),
    Case("delete: queued behind a running update", ["snap", "delete", "-d", "E", "-s", "nightly.2"],
         "nightly.2 : %s\n" % msg(5018) + QUEUED + completion(), S_OK,
         scenario=answer(DELETE, events=progress("nightly.2", 8), queued=True)),
    Case("delete: refused with an explanation", ["snap", "delete", "-d", "E", "-s", "nightly.2"],
         alert(MSG_DELETE_SNAPSHOT_FAILED, SNAPSHOT_BUSY, description="snapshot copy is busy"), SNAPSHOT_BUSY,
         scenario=answer(DELETE, **failing(SNAPSHOT_BUSY, "snapshot copy is busy")), calls=[DELETE]),
    Case("delete: refused without an explanation keeps the progress", ["snap", "delete", "-d", "E", "-s", "x"],
         "x : %s\n" % msg(5018) + alert(MSG_DELETE_SNAPSHOT_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=answer(DELETE, events=progress("x", 8), **failing(E_ACCESSDENIED))),
    # A refusal that says "queued" is still a refusal: the queued line is not printed.
    Case("delete: S_FALSE is a failure", ["snap", "delete", "-d", "E", "-s", "x"], alert(MSG_DELETE_SNAPSHOT_FAILED, 1), 1,
         scenario=answer(DELETE, result=1, queued=True)),
    Case("delete: service absent", ["snap", "delete"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, prefix="bare"),
    Case("delete: another machine", ["snap", "delete", "-m", "host2", "-d", "E", "-s", "x"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, calls=[]),
] + [
    Case("delete: " + name, ["snap", "delete"] + argv, usage(message, DELETE_USAGE), E_INVALIDARG, calls=[],
         check=sink_connected)
    for name, argv, message in [
        ("nothing given: the name comes first", [], MSG_USAGE_SNAPSHOT_NAME),
        ("-s missing", ["-d", "E"], MSG_USAGE_SNAPSHOT_NAME),
        ("-s given twice", ["-d", "E", "-s", "a", "-s", "b"], MSG_USAGE_SNAPSHOT_NAME),
        ("-s without a value", ["-d", "E", "-s"], MSG_USAGE_SNAPSHOT_NAME),
        ("-S is not -s", ["-d", "E", "-S", "a"], MSG_USAGE_SNAPSHOT_NAME),
        ("-d missing", ["-s", "a"], MSG_USAGE_MOUNT_POINT),
        ("-d with two values", ["-s", "a", "-d", "E", "F"], MSG_USAGE_MOUNT_POINT),
        ("-D is not -d", ["-s", "a", "-D", "E"], MSG_USAGE_MOUNT_POINT),
    ]
]

RENAME_CASES = [
    Case("rename: %s to %s" % (old, new), ["snap", "rename", "-d", "C:\\mnt\\db", "-o", old, "-n", new], completion(), S_OK,
         calls=[RENAME], check=sent(RENAME, mountPoint="C:\\mnt\\db\\", oldName=old, newName=new))
    for old, new in [("nightly.2", "keep.2"), ("nächtlich", "東京"), ("x", "a:b*c?\"<>|")]
] + [
    Case("rename: progress events", ["snap", "rename", "-n", "keep", "-o", "nightly.0", "-d", "F:"],
         "nightly.0 : %s\nkeep : %s\n" % (msg(5020), msg(5021)) + completion(), S_OK,
         scenario=answer(RENAME, events=[{"event": "ProgressMessage", "subject": "nightly.0", "code": 10},
                                         {"event": "ProgressMessage", "subject": "keep", "code": 11}]),
         check=sent(RENAME, mountPoint="F", oldName="nightly.0", newName="keep")),
    Case("rename: refused with an explanation", ["snap", "rename", "-d", "E", "-o", "a", "-n", "b"],
         alert(MSG_RENAME_SNAPSHOT_FAILED, SNAPSHOT_BUSY, description="name b exists"), SNAPSHOT_BUSY,
         scenario=answer(RENAME, **failing(SNAPSHOT_BUSY, "name b exists")), calls=[RENAME]),
    Case("rename: refused without an explanation", ["snap", "rename", "-d", "E", "-o", "a", "-n", "b"],
         alert(MSG_RENAME_SNAPSHOT_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=answer(RENAME, **failing(E_ACCESSDENIED))),
] + [
    Case("rename: " + name, ["snap", "rename"] + argv, usage(message, RENAME_USAGE), E_INVALIDARG, calls=[],
         check=sink_connected)
    for name, argv, message in [
        ("nothing given: the mount point comes first", [], MSG_USAGE_MOUNT_POINT),
        ("-d missing", ["-o", "a", "-n", "b"], MSG_USAGE_MOUNT_POINT),
        ("-d given twice", ["-d", "E", "-o", "a", "-n", "b", "-d", "E"], MSG_USAGE_MOUNT_POINT),
        ("-o missing", ["-d", "E", "-n", "b"], MSG_USAGE_SNAPSHOT_NAME),
        ("-o without a value", ["-d", "E", "-o", "-n", "b"], MSG_USAGE_SNAPSHOT_NAME),
        ("-s is not -o", ["-d", "E", "-s", "a", "-n", "b"], MSG_USAGE_SNAPSHOT_NAME),
        ("-n missing", ["-d", "E", "-o", "a"], MSG_USAGE_NEW_SNAPSHOT_NAME),
        ("-n with two values", ["-d", "E", "-o", "a", "-n", "b", "c"], MSG_USAGE_NEW_SNAPSHOT_NAME),
    ]
]

UPDATE_CASES = [
    Case("update_mirror: mount point %s" % typed, ["snap", "update_mirror", "-d", typed], completion(), S_OK,
         calls=[UPDATE], check=sent(UPDATE, mountPoint=sent_as))
    for typed, sent_as in MOUNT_POINTS[:4]
] + [
    Case("update_mirror: progress events", ["snap", "update_mirror", "-d", "F"],
         "F:\\ : %s\nF:\\ : %s\n" % (msg(5038), msg(5039)) + completion(), S_OK,
         scenario=answer(UPDATE, events=progress("F:\\", 26, 27))),
    Case("update_mirror: refused with an explanation", ["snap", "update_mirror", "-d", "F"],
         alert(MSG_UPDATE_MIRROR_FAILED, SNAPSHOT_BUSY, description="no mirror relationship"), SNAPSHOT_BUSY,
         scenario=answer(UPDATE, **failing(SNAPSHOT_BUSY, "no mirror relationship")), calls=[UPDATE]),
    Case("update_mirror: refused without an explanation", ["snap", "update_mirror", "-d", "F"],
         alert(MSG_UPDATE_MIRROR_FAILED, E_ACCESSDENIED), E_ACCESSDENIED, scenario=answer(UPDATE, **failing(E_ACCESSDENIED))),
    Case("update_mirror: the class lacks the interface", ["snap", "update_mirror", "-d", "F"],
         alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE), E_NOINTERFACE,
         scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotManage"]}}}),
] + [
    Case("update_mirror: " + name, ["snap", "update_mirror"] + argv, usage(MSG_USAGE_MOUNT_POINT, UPDATE_USAGE),
         E_INVALIDARG, calls=[], check=sink_connected)
    for name, argv in [("-d missing", []), ("-d without a value", ["-d"]), ("-d given twice", ["-d", "E", "-d", "F"]),
                       ("-D is not -d", ["-D", "F"])]
]

# ---------------------------------------------------------------- mirror_list

RELATIONS = ["Unknown", "Uninitialized", "Reflexaed", "Brokenoff", "Quiesced", "Source", "Unknown"]
CLONES = {0: "Clonara Success", 1: "Unknown Clonara status", 2: "Clonara on root, or traditional volumes invalid",
          3: "Clonara on VOS version lower than 7.1 not allowed", 4: "not enough space on aggregate for Clonara",
          5: "Clonara disabled on host", 6: "Clonara disabled for VSS on host", 7: "Unknown Clonara status",
          9: "Unknown Clonara status"}


def destination(i, state=2, clone=0):
    return {"wszSource": "filer-east:sql_logs", "wszDestination": "filer-dr%d:sql_logs_mirror" % i,
            "wszSnapshot": "nightly.%d" % i, "dwRelationState": state, "dwCloneStatus": clone}


def destination_line(prefix, i, relation="Reflexaed", clone="Clonara Success"):
    return " %sSource: filer-east:sql_logs Snapshot Copy: nightly.%d Destination: filer-dr%d:sql_logs_mirror %s [%s]\n" % (
        prefix, i, i, relation, clone)


ONE = [destination(0)]
ONE_TEXT = "1 Reflexa destination(s)\n" + destination_line("", 0)
# Every relationship word (0 and 6 are unknown) against every clone status word.
EVERY_WORD = [destination(i, state=i % 7, clone=c) for i, c in enumerate(CLONES)]
EVERY_WORD_TEXT = "%d Reflexa destination(s)\n" % len(CLONES) + "".join(
    destination_line("", i, RELATIONS[i % 7], CLONES[c]) for i, c in enumerate(CLONES))
MANY = [destination(i) for i in range(60)]
MANY_TEXT = "60 Reflexa destination(s)\n" + "".join(destination_line("", i) for i in range(60))

LISTS = [
    {"wszMountPoint": "E:\\", "dwDiskId": 1, "bValidMountPoint": True},
    {"wszMountPoint": "F:\\", "dwDiskId": 2, "bValidMountPoint": True, "pDestinations": [destination(0), destination(1, 3, 5)]},
    {"wszMountPoint": "C:\\Dätä\\", "dwDiskId": "0xFFFFFFFF", "bValidMountPoint": False},
    {"dwDiskId": 0},
]
LISTS_TEXT = (
    "4 Reflexa mountpoint lists(s)\n"
    "Mountpoint: E:\\ DiskID: 1  Valid Mountpoint: Yes \n\t0 Reflexa destination(s)\n"
    "Mountpoint: F:\\ DiskID: 2  Valid Mountpoint: Yes \n\t2 Reflexa destination(s)\n"
    + destination_line("\t", 0) + destination_line("\t", 1, "Brokenoff", "Clonara disabled on host")
    + "Mountpoint: C:\\Dätä\\ DiskID: Invalid  Valid Mountpoint: No \n\t0 Reflexa destination(s)\n"
    "Mountpoint: (null) DiskID: 0  Valid Mountpoint: No \n\t0 Reflexa destination(s)\n"
)


def mirrors(destinations=None, lists=None, **methods):
    data = {GET: {"destinations": destinations if destinations is not None else ONE},
            GET_LISTS: {"lists": lists if lists is not None else LISTS}}
    data.update(methods)
    return {"methods": data}


def freed_what_was_listed(method, key, count):
    """The list handed back to the service is the one it gave."""
    def check(result):
        requests = [e.get("request", {}) for e in result.events if e.get("event") == "call" and e.get("method") == method]
        assert len(requests) == 1, "%s called %d times" % (method, len(requests))
        assert len(requests[0].get(key) or []) == count, "%s got %r" % (method, requests[0])
    return check


def both(*checks):
    def check(result):
        for c in checks:
            c(result)
    return check


MIRROR_CASES = [
    Case("mirror_list: one mount point", ["snap", "mirror_list", "-d", "F:"], ONE_TEXT + completion(), S_OK,
         scenario=mirrors(), calls=[GET, FREE],
         check=both(sent(GET, mountPoint="F"), freed_what_was_listed(FREE, "destinations", 1))),
    Case("mirror_list: a folder mount point", ["snap", "mirror_list", "-d", "C:\\mnt\\logs"], ONE_TEXT + completion(), S_OK,
         scenario=mirrors(), check=sent(GET, mountPoint="C:\\mnt\\logs\\")),
    Case("mirror_list: no destinations", ["snap", "mirror_list", "-d", "E"], "0 Reflexa destination(s)\n" + completion(),
         S_OK, scenario=mirrors(destinations=[])),
    Case("mirror_list: every relationship and clone status", ["snap", "mirror_list", "-d", "F"],
         EVERY_WORD_TEXT + completion(), S_OK, scenario=mirrors(destinations=EVERY_WORD)),
    Case("mirror_list: many destinations", ["snap", "mirror_list", "-d", "F"], MANY_TEXT + completion(), S_OK,
         scenario=mirrors(destinations=MANY), check=freed_what_was_listed(FREE, "destinations", 60)),
    Case("mirror_list: texts the service left out", ["snap", "mirror_list", "-d", "F"],
         "1 Reflexa destination(s)\n Source: (null) Snapshot Copy: (null) Destination: (null) Unknown [Clonara Success]\n"
         + completion(), S_OK, scenario=mirrors(destinations=[{}])),
    Case("mirror_list: a mount point list", ["snap", "mirror_list", "-D", "E:", "f", "C:\\Dätä", "C:\\mnt\\"],
         LISTS_TEXT + completion(), S_OK, scenario=mirrors(), calls=[GET_LISTS, FREE_LISTS],
         check=both(sent(GET_LISTS, drives=["E", "f", "C:\\Dätä\\", "C:\\mnt\\"]),
                    freed_what_was_listed(FREE_LISTS, "lists", 4))),
    Case("mirror_list: an empty answer to the list", ["snap", "mirror_list", "-D", "E"],
         "0 Reflexa mountpoint lists(s)\n" + completion(), S_OK, scenario=mirrors(lists=[])),
    Case("mirror_list: -d wins over -D", ["snap", "mirror_list", "-D", "E", "F", "-d", "F"], ONE_TEXT + completion(), S_OK,
         scenario=mirrors(), calls=[GET, FREE]),
    Case("mirror_list: -d with two values leaves -D", ["snap", "mirror_list", "-d", "E", "F", "-D", "E"],
         LISTS_TEXT + completion(), S_OK, scenario=mirrors(), calls=[GET_LISTS, FREE_LISTS]),
    # Failures
    Case("mirror_list: listing refused with an explanation", ["snap", "mirror_list", "-d", "F"],
         alert(MSG_LIST_MIRRORS_FAILED, SNAPSHOT_BUSY, description="filer-dr unreachable"), SNAPSHOT_BUSY,
         scenario=mirrors(**{GET: dict(failing(SNAPSHOT_BUSY, "filer-dr unreachable"), destinations=ONE)}),
         calls=[GET]),
    Case("mirror_list: listing refused without an explanation", ["snap", "mirror_list", "-d", "F"],
         alert(MSG_LIST_MIRRORS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED, scenario=mirrors(**{GET: failing(E_ACCESSDENIED)})),
    Case("mirror_list: release refused keeps the list", ["snap", "mirror_list", "-d", "F"],
         ONE_TEXT + alert(MSG_FREE_MIRROR_LIST_FAILED, E_ACCESSDENIED, description="list unknown"), E_ACCESSDENIED,
         scenario=mirrors(**{FREE: failing(E_ACCESSDENIED, "list unknown")}), calls=[GET, FREE]),
    Case("mirror_list: list refused with an explanation", ["snap", "mirror_list", "-D", "E", "F"],
         alert(MSG_LIST_MIRRORS_FAILED, SNAPSHOT_BUSY, description="drive F is not a LUN"), SNAPSHOT_BUSY,
         scenario=mirrors(**{GET_LISTS: dict(failing(SNAPSHOT_BUSY, "drive F is not a LUN"), lists=LISTS)}),
         calls=[GET_LISTS]),
    Case("mirror_list: list refused without an explanation", ["snap", "mirror_list", "-D", "E"],
         alert(MSG_LIST_MIRRORS_FAILED, 1), 1, scenario=mirrors(**{GET_LISTS: {"result": 1}})),
    Case("mirror_list: release of the list refused keeps it", ["snap", "mirror_list", "-D", "E", "F"],
         LISTS_TEXT + alert(MSG_FREE_MIRROR_LIST_FAILED, SNAPSHOT_BUSY), SNAPSHOT_BUSY,
         scenario=mirrors(**{FREE_LISTS: failing(SNAPSHOT_BUSY)}), calls=[GET_LISTS, FREE_LISTS]),
    Case("mirror_list: the class lacks the drives interface", ["snap", "mirror_list", "-d", "F"],
         alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE), E_NOINTERFACE,
         scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotDrives"]}}}, calls=[]),
    Case("mirror_list: service absent", ["snap", "mirror_list"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, prefix="bare"),
] + [
    Case("mirror_list: " + name, ["snap", "mirror_list"] + argv, usage(MSG_USAGE_MOUNT_POINT, MIRROR_LIST_USAGE),
         E_INVALIDARG, scenario=mirrors(), calls=[])
    for name, argv in [("neither -d nor -D", []), ("-D without values", ["-D"]), ("-d without a value", ["-d"]),
                       ("-d given twice", ["-d", "E", "-d", "F"])]
]

CASES = DELETE_CASES + RENAME_CASES + UPDATE_CASES + MIRROR_CASES
