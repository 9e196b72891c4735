"""snap restore, restore_volume_check (every reason the service gives) and restore_volume."""

from cases.lun_common import (BUSY, E_ACCESSDENIED, LOCAL_MACHINE, WAIT, answer, failing, lacking, not_called, only,
                              progress, refusals, unreachable, usage_faults)
from harness import S_OK, Case, alert, completion, msg

MSG_VOLUME_RESTORE_FAILED = 5067
MSG_RESTORE_FAILED = 5115
NON_LUN_FILES = 0xC00403EE
NEWER_SNAPSHOTS = 0xC00403F6
BOTH_REASONS = 0xC00403F8
NO_CALL = not_called("SnapShotService")

RESTORE_USAGE = (
    "cvcli snap restore [-m <MachineName>] -d <MountPoint> -s <SnapshotName>\n"
    "Restores a LUN  from a  snapshot copy.\n" + LOCAL_MACHINE
)
CHECK_USAGE = (
    "cvcli snap restore_volume_check -f <StorageSystemName> -volume <StorageSystemVolumeName> -s <SnapshotName>"
    " [-m <MachineName>]\n"
    "Verifies possibility of volume restore operation on non-connected LUNs\n" + LOCAL_MACHINE
)
VOLUME_USAGE = (
    "cvcli snap restore_volume -f <StorageSystemName> -volume <StorageSystemVolumeName> -s <SnapshotName> [-force]"
    " [-m <MachineName>]\n"
    "Performs volume restore operation on non-connected LUNs, If '-force' is present Corvane will ignore newer snapshot"
    " copies or non-LUN files on the volume\n" + LOCAL_MACHINE
)

RESTORE = "ISnapShotManage.RestoreSnapshot"
CHECK = "ISnapShotVolumeRestore.CheckVolumeRestore"
VOLUME = "ISnapShotVolumeRestore.RestoreVolume"

# restore ---------------------------------------------------------------------------------------------------------

# (name, argv after "snap restore", request)
RESTORE_RUNS = [
    ("drive letter, a stray word is skipped", ["stray", "-d", "E", "-s", "nightly.1"],
     {"mountPoint": "E", "snapshotName": "nightly.1"}),
    ("non-ASCII snapshot and folder mount point", ["-d", "C:\\Dätä\\снимок", "-s", "Sicherung-Ü.東"],
     {"mountPoint": "C:\\Dätä\\снимок\\", "snapshotName": "Sicherung-Ü.東"}),
]
RESTORE_FAULTS = [("both missing: -s first", [], 5600), ("-s missing", ["-d", "E"], 5600), ("-d missing", ["-s", "a"], 5602)]
RESTORE_LINES = "E:\\ : %s\nE:\\ : %s\n" % (msg(5022), msg(5023))

# restore_volume_check -------------------------------------------------------------------------------------------

CHECK_ARGV = ["snap", "restore_volume_check", "-f", "filer-east", "-volume", "sql_data", "-s", "nightly.2"]
CHECK_REQUEST = {"storageSystem": "filer-east", "volume": "sql_data", "snapshotName": "nightly.2"}
CAN_RESTORE = "\nSpecified volume can be restored.\n\n"


def mirror_line(word):
    return ("\nThe specified volume is a Reflexa destination and is in a non-broken state. Current Reflexa status is:"
            " %s\n\n" % word)


def counted(items, one, many):
    """The heading of a list of reasons: its own sentence for one item, the count in the other."""
    return "\n%s\n\n" % (one if len(items) == 1 else many % len(items))


def files_text(files):
    text = counted(files, "There is 1 non-LUN file in the volume.", "There are %d non-LUN files in the volume.")
    for number, (name, path) in enumerate(files, 1):
        text += "File %d:\n\tFile name: %s\n\tFile path: %s\n\n" % (number, name, path)
    return text


def newer_text(snapshots):
    text = counted(snapshots, "There is 1 snapshot copy that is newer than the specified snapshot copy.",
                   "There are %d snapshot copy copies that are newer than the specified snapshot copy.")
    for number, (name, busy, consistent, dependency) in enumerate(snapshots, 1):
        text += "Snapshot copy%d:\n\tSnapshot copy name:\t\t%s\n\tIs snapshot copy busy:\t%s\n" % (
            number, name, "true" if busy else "false")
        text += "\tIs snapshot copy consistent:\t%s\n" % ("true" if consistent else "false")
        text += "/tSnapshot copy dependency: %s\n\n" % dependency if busy and dependency else "\n"
    return text


def check_answer(result=None, files=None, newer=None, unbroken=False, state=0, description=None):
    response = {"mirror": {"bIsUnbrokenDestination": unbroken, "dwMirrorState": state}}
    if result is not None:
        response.update(failing(result, description))
    if files is not None:
        response["files"] = [{"wszFileName": name, "wszFilePath": path} for name, path in files]
    if newer is not None:
        response["newer"] = [{"wszName": n, "bBusy": b, "bConsistent": c, "wszDependency": d} for n, b, c, d in newer]
    return answer(CHECK, **response)


FILES = [("readme.txt", "/vol/sql_data/readme.txt"), ("Dätä-東.txt", "/vol/sql_data/снимок/Dätä-東.txt")]
ONE_FILE = [("notes", "/vol/sql_data/notes")]
NEWER = [("nightly.0", False, True, None), ("nightly.1", True, True, "lun_test"), ("hourly.5", True, False, None),
         ("Sicherung-Ü.東", True, True, "klon-Ü")]
ONE_NEWER = [("nightly.1", True, False, "busy,mirror")]
MANY_NEWER = [("hourly.%d" % i, i % 2 == 0, i % 3 == 0, "clone_%d" % i if i % 4 == 0 else None) for i in range(60)]
# (name, scenario, expected output before the alert or the completion, status)
CHECK_RUNS = [
    ("the volume can be restored", check_answer(), CAN_RESTORE, S_OK),
    ("an unbroken destination that can be restored", check_answer(unbroken=True, state=10),
     mirror_line("in-sync") + CAN_RESTORE, S_OK),
    ("a broken destination prints no state", check_answer(unbroken=False, state=2), CAN_RESTORE, S_OK),
    ("lists sent with success are not printed", check_answer(files=FILES, newer=NEWER), CAN_RESTORE, S_OK),
    ("non-LUN files", check_answer(NON_LUN_FILES, files=FILES, newer=NEWER), files_text(FILES), NON_LUN_FILES),
    ("one non-LUN file", check_answer(NON_LUN_FILES, files=ONE_FILE), files_text(ONE_FILE), NON_LUN_FILES),
    ("no non-LUN file still prints the plural heading", check_answer(NON_LUN_FILES, files=[]),
     "\nThere are 0 non-LUN files in the volume.\n\n", NON_LUN_FILES),
    ("one newer snapshot copy", check_answer(NEWER_SNAPSHOTS, newer=ONE_NEWER), newer_text(ONE_NEWER), NEWER_SNAPSHOTS),
    ("no newer snapshot copy still prints the plural heading", check_answer(NEWER_SNAPSHOTS, newer=[]),
     "\nThere are 0 snapshot copy copies that are newer than the specified snapshot copy.\n\n", NEWER_SNAPSHOTS),
    ("a dependency line only for a busy copy with a dependency",
     check_answer(NEWER_SNAPSHOTS, newer=[("n", True, True, ""), ("m", False, True, "clone")]),
     newer_text([("n", True, True, None), ("m", False, True, None)]), NEWER_SNAPSHOTS),
    ("many newer snapshot copies", check_answer(NEWER_SNAPSHOTS, newer=MANY_NEWER), newer_text(MANY_NEWER),
     NEWER_SNAPSHOTS),
    ("both reasons: files first, then newer copies, after the mirror state",
     check_answer(BOTH_REASONS, files=FILES, newer=NEWER, unbroken=True, state=2),
     mirror_line("transferring") + files_text(FILES) + newer_text(NEWER), BOTH_REASONS),
    ("only the mirror state refuses", check_answer(E_ACCESSDENIED, files=FILES, newer=NEWER, unbroken=True, state=0),
     mirror_line("do not know"), E_ACCESSDENIED),
    ("another code prints no list", check_answer(BUSY, files=FILES, newer=NEWER), "", BUSY),
] + [("mirror state %d" % state, check_answer(unbroken=True, state=state), mirror_line(word) + CAN_RESTORE, S_OK)
     for state, word in [(1, "idle"), (11, "unrecognized"), (0, "do not know"), (12, "do not know")]]

# One reader for both volume operations, -f, -volume, then -s; a switch twice or without a value is tried on snap delete.
VOLUME_FAULTS = [("everything missing: -f first", [], 5607), ("-f missing", ["-volume", "v", "-s", "n"], 5607),
                 ("-volume missing", ["-f", "a", "-s", "n"], 5608), ("-s missing", ["-f", "a", "-volume", "v"], 5600)]
VOLUME_ARGV = ["snap", "restore_volume", "-f", "filer-east", "-volume", "sql_data", "-s", "nightly.2"]


def restored(force):
    return only(VOLUME, dict(CHECK_REQUEST, force=force))


CASES = (
    [Case("restore: " + name, ["snap", "restore"] + argv, WAIT + RESTORE_LINES + completion(), S_OK,
          scenario=answer(RESTORE, events=progress("E:\\", 12, 13)), check=only(RESTORE, request, ["_ISnapShotEvents"]))
     for name, argv, request in RESTORE_RUNS]
    + usage_faults("restore", ["snap", "restore"], RESTORE_USAGE, RESTORE_FAULTS, check=NO_CALL)
    + refusals("restore", ["snap", "restore", "-d", "E", "-s", "n"], MSG_RESTORE_FAILED,
               lambda r: answer(RESTORE, events=progress("E:\\", 12), **r), before=WAIT + "E:\\ : %s\n" % msg(5022),
               calls=[RESTORE])
    + unreachable("restore", "SnapShotService", ["snap", "restore"], ["snap", "restore", "-m", "h2", "-d", "E", "-s", "n"])
    + [Case("check: " + name, CHECK_ARGV,
            before + (completion() if status == S_OK else alert(MSG_VOLUME_RESTORE_FAILED, status)), status,
            scenario=scenario, check=only(CHECK, CHECK_REQUEST)) for name, scenario, before, status in CHECK_RUNS]
    + [
        Case("check: refused with the service's explanation", CHECK_ARGV,
             files_text(ONE_FILE) + alert(MSG_VOLUME_RESTORE_FAILED, NON_LUN_FILES, description="files on the volume"),
             NON_LUN_FILES, scenario=check_answer(NON_LUN_FILES, files=ONE_FILE, description="files on the volume")),
        Case("check: non-ASCII request", ["snap", "restore_volume_check", "-f", "filer-東", "-volume", "vol_Ü", "-s",
                                          "Sicherung-Ü.東"], CAN_RESTORE + completion(), S_OK,
             check=only(CHECK, {"storageSystem": "filer-東", "volume": "vol_Ü", "snapshotName": "Sicherung-Ü.東"})),
    ]
    + usage_faults("check", ["snap", "restore_volume_check"], CHECK_USAGE, VOLUME_FAULTS, check=NO_CALL)
    + usage_faults("restore_volume", ["snap", "restore_volume"], VOLUME_USAGE, VOLUME_FAULTS[:1], check=NO_CALL)
    + [
        Case("restore_volume", VOLUME_ARGV, completion(), S_OK, check=restored(0)),
        Case("restore_volume -force", VOLUME_ARGV + ["-force"], completion(), S_OK, check=restored(1)),
        lacking("restore_volume", VOLUME_ARGV, "SnapShotService", "ISnapShotVolumeRestore"),
    ]
    # The service's reasons are not printed by restore_volume.
    + refusals("restore_volume", VOLUME_ARGV, MSG_VOLUME_RESTORE_FAILED, lambda r: answer(VOLUME, **r), code=BOTH_REASONS,
               description="newer copies and files", calls=[VOLUME])
)
