"""snap delete, rename, update_mirror and mirror_list: requests, switch checks, output and failures."""

from cases.lun_common import (BUSY, E_ACCESSDENIED, LOCAL_MACHINE, all_of, answer, failing, lacking, not_called,
                              progress, refusals, sent, unreachable, usage_faults)
from harness import S_OK, Case, alert, completion, msg

MSG_UPDATE_MIRROR_FAILED = 5367
MSG_LIST_MIRRORS_FAILED = 6021
MSG_FREE_MIRROR_LIST_FAILED = 6022
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


SINK_ONLY = not_called("SnapShotService", ["_ISnapShotEvents"])

# -d is sent normalised: a drive as its letter, a folder with a closing backslash (every operation reads it alike).
MOUNT_POINTS = [("E", "E"), ("e:", "e"), ("E:\\", "E:\\"), ("C:\\mnt\\db", "C:\\mnt\\db\\"),
                ("C:\\mnt\\db\\", "C:\\mnt\\db\\"), ("C:\\Dätä\\東京", "C:\\Dätä\\東京\\")]
# The snap family's required-switch reader: absent, without a value, twice or with two values is missing.
DELETE_FAULTS = [("nothing given: the name comes first", [], 5600), ("-s missing", ["-d", "E"], 5600),
                 ("-s given twice", ["-d", "E", "-s", "a", "-s", "b"], 5600),
                 ("-s without a value", ["-d", "E", "-s"], 5600),
                 ("-d missing", ["-s", "a"], 5602), ("-d with two values", ["-s", "a", "-d", "E", "F"], 5602)]
RENAME_FAULTS = [("nothing given: the mount point comes first", [], 5602), ("-o missing", ["-d", "E", "-n", "b"], 5600),
                 ("-n missing", ["-d", "E", "-o", "a"], 5603)]

DELETE_CASES = [
    Case("delete: mount point %s" % typed, ["snap", "delete", "-d", typed, "-s", "nightly.2"], completion(), S_OK,
         calls=[DELETE], check=sent(DELETE, mountPoint=sent_as, snapshotName="nightly.2"))
    for typed, sent_as in MOUNT_POINTS
] + [
    # Names pass unchecked: the service judges them.
    Case("delete: name %s" % name, ["snap", "delete", "-s", name, "-d", "E"], completion(), S_OK,
         calls=[DELETE], check=sent(DELETE, mountPoint="E", snapshotName=name))
    for name in ["nächtlich-東京", "a:b*c?"]
] + [
    Case("delete: progress events, queued behind a running update", ["snap", "delete", "-d", "E", "-s", "nightly.2"],
         "nightly.2 : %s\nnightly.2 : %s\n" % (msg(5018), msg(5019)) + QUEUED + completion(), S_OK,
         scenario=answer(DELETE, events=progress("nightly.2", 8, 9), queued=True)),
    # A refusal that says "queued" is still a refusal: the queued line is not printed.
    Case("delete: S_FALSE is a failure", ["snap", "delete", "-d", "E", "-s", "x"], alert(5116, 1), 1,
         scenario=answer(DELETE, result=1, queued=True)),
] + refusals("delete", ["snap", "delete", "-d", "E", "-s", "x"], 5116,
             lambda r: answer(DELETE, events=progress("x", 8), **r), before="x : %s\n" % msg(5018), calls=[DELETE]) \
  + unreachable("delete", "SnapShotService", ["snap", "delete"], ["snap", "delete", "-m", "host2", "-d", "E", "-s", "x"]) \
  + usage_faults("delete", ["snap", "delete"], DELETE_USAGE, DELETE_FAULTS, calls=[], check=SINK_ONLY)

RENAME_CASES = [
    Case("rename: names pass unchecked", ["snap", "rename", "-d", "C:\\mnt\\db", "-o", "nächtlich", "-n", "a:b*c?\"<>|"],
         completion(), S_OK, calls=[RENAME],
         check=sent(RENAME, mountPoint="C:\\mnt\\db\\", oldName="nächtlich", newName="a:b*c?\"<>|")),
    Case("rename: progress events", ["snap", "rename", "-n", "keep", "-o", "nightly.0", "-d", "F:"],
         "nightly.0 : %s\nkeep : %s\n" % (msg(5020), msg(5021)) + completion(), S_OK,
         scenario=answer(RENAME, events=progress("nightly.0", 10) + progress("keep", 11)),
         check=sent(RENAME, mountPoint="F", oldName="nightly.0", newName="keep")),
] + refusals("rename", ["snap", "rename", "-d", "E", "-o", "a", "-n", "b"], 5117, lambda r: answer(RENAME, **r),
             calls=[RENAME]) + usage_faults("rename", ["snap", "rename"], RENAME_USAGE, RENAME_FAULTS, calls=[],
                                            check=SINK_ONLY)

UPDATE_CASES = [
    Case("update_mirror: progress events", ["snap", "update_mirror", "-d", "F"],
         "F:\\ : %s\nF:\\ : %s\n" % (msg(5038), msg(5039)) + completion(), S_OK,
         scenario=answer(UPDATE, events=progress("F:\\", 26, 27)), calls=[UPDATE], check=sent(UPDATE, mountPoint="F")),
    lacking("update_mirror", ["snap", "update_mirror", "-d", "F"], "SnapShotService", "ISnapShotManage"),
] + refusals("update_mirror", ["snap", "update_mirror", "-d", "F"], MSG_UPDATE_MIRROR_FAILED, lambda r: answer(UPDATE, **r),
             calls=[UPDATE]) + usage_faults("update_mirror", ["snap", "update_mirror"], UPDATE_USAGE,
                                            [("-d missing", [], 5602)], calls=[], check=SINK_ONLY)

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
# A long list that goes through every relationship word (0 and 6 are unknown) and every clone status word.
CLONE_CODES = list(CLONES)
MANY = [destination(i, state=i % 7, clone=CLONE_CODES[i % 9]) for i in range(60)]
MANY_TEXT = "60 Reflexa destination(s)\n" + "".join(
    destination_line("", i, RELATIONS[i % 7], CLONES[CLONE_CODES[i % 9]]) for i in range(60))

LISTS = [
    {"wszMountPoint": "E:\\", "dwDiskId": 1, "bValidMountPoint": True},
    {"wszMountPoint": "F:\\", "dwDiskId": 2, "bValidMountPoint": True,
     "pDestinations": [destination(0), destination(1, 3, 5)]},
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
        assert len(requests) == 1 and len(requests[0].get(key) or []) == count, "%s got %r" % (method, requests)
    return check


MIRROR_CASES = [
    Case("mirror_list: one mount point", ["snap", "mirror_list", "-d", "F:"], ONE_TEXT + completion(), S_OK,
         scenario=mirrors(), calls=[GET, FREE],
         check=all_of(sent(GET, mountPoint="F"), freed_what_was_listed(FREE, "destinations", 1))),
    Case("mirror_list: no destinations", ["snap", "mirror_list", "-d", "E"], "0 Reflexa destination(s)\n" + completion(),
         S_OK, scenario=mirrors(destinations=[])),
    Case("mirror_list: many destinations, every word", ["snap", "mirror_list", "-d", "F"], MANY_TEXT + completion(), S_OK,
         scenario=mirrors(destinations=MANY), check=freed_what_was_listed(FREE, "destinations", 60)),
    Case("mirror_list: texts the service left out", ["snap", "mirror_list", "-d", "F"],
         "1 Reflexa destination(s)\n Source: (null) Snapshot Copy: (null) Destination: (null) Unknown [Clonara Success]\n"
         + completion(), S_OK, scenario=mirrors(destinations=[{}])),
    Case("mirror_list: a mount point list", ["snap", "mirror_list", "-D", "E:", "f", "C:\\Dätä", "C:\\mnt\\"],
         LISTS_TEXT + completion(), S_OK, scenario=mirrors(), calls=[GET_LISTS, FREE_LISTS],
         check=all_of(sent(GET_LISTS, drives=["E", "f", "C:\\Dätä\\", "C:\\mnt\\"]),
                      freed_what_was_listed(FREE_LISTS, "lists", 4))),
    Case("mirror_list: an empty answer to the list", ["snap", "mirror_list", "-D", "E"],
         "0 Reflexa mountpoint lists(s)\n" + completion(), S_OK, scenario=mirrors(lists=[])),
    Case("mirror_list: -d wins over -D", ["snap", "mirror_list", "-D", "E", "F", "-d", "F"], ONE_TEXT + completion(), S_OK,
         scenario=mirrors(), calls=[GET, FREE]),
    Case("mirror_list: -d with two values leaves -D", ["snap", "mirror_list", "-d", "E", "F", "-D", "E"],
         LISTS_TEXT + completion(), S_OK, scenario=mirrors(), calls=[GET_LISTS, FREE_LISTS]),
    # Failures: a list that was printed stays when giving it back fails.
    Case("mirror_list: release refused keeps the list", ["snap", "mirror_list", "-d", "F"],
         ONE_TEXT + alert(MSG_FREE_MIRROR_LIST_FAILED, E_ACCESSDENIED, description="list unknown"), E_ACCESSDENIED,
         scenario=mirrors(**{FREE: failing(E_ACCESSDENIED, "list unknown")}), calls=[GET, FREE]),
    Case("mirror_list: release of the list refused keeps it", ["snap", "mirror_list", "-D", "E", "F"],
         LISTS_TEXT + alert(MSG_FREE_MIRROR_LIST_FAILED, BUSY), BUSY,
         scenario=mirrors(**{FREE_LISTS: failing(BUSY)}), calls=[GET_LISTS, FREE_LISTS]),
    lacking("mirror_list", ["snap", "mirror_list", "-d", "F"], "SnapShotService", "ISnapShotDrives"),
] + refusals("mirror_list: listing", ["snap", "mirror_list", "-d", "F"], MSG_LIST_MIRRORS_FAILED,
             lambda r: mirrors(**{GET: dict(r, destinations=ONE)}), calls=[GET]) + refusals(
    "mirror_list: list", ["snap", "mirror_list", "-D", "E", "F"], MSG_LIST_MIRRORS_FAILED,
    lambda r: mirrors(**{GET_LISTS: dict(r, lists=LISTS)}), calls=[GET_LISTS]) + usage_faults(
    "mirror_list", ["snap", "mirror_list"], MIRROR_LIST_USAGE, [("neither -d nor -D", [], 5602),
                                                                ("-D without values", ["-D"], 5602)],
    scenario=mirrors(), calls=[])

CASES = DELETE_CASES + RENAME_CASES + UPDATE_CASES + MIRROR_CASES
