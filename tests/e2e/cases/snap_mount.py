"""snap mount (both forms) and snap unmount: requests, progress and mirror lines, usage faults, failures."""

from cases.lun_common import (LOCAL_MACHINE, WAIT, answer, lacking, not_called, only, progress, refusals, unreachable,
                              usage_faults)
from harness import S_OK, Case, completion, msg

MSG_MOUNT_FAILED = 5353
MSG_UNMOUNT_FAILED = 5354

MOUNT_USAGE = (
    "cvcli snap mount [-m <MachineName>] [-r <LiveMachineName>] -k <LiveMountPoint> -s <SnapshotName> -d <MountPoint>"
    " [-smdest][-trydrive][-sdf <Storage System>][-sdv <Volume>]\n"
    "A snapshot copy <SnapshotName> of a LUN named <LiveMountPoint>, which is mounted on the machine <LiveMachineName>,"
    " will be mounted by this command as a LUN <MountPoint> on the machine <MachineName>.\n"
    "If the <MachineName> or <LiveMachineName> name is not specified the local machine name is implied.\n"
    "If -smdest, <Storage System> and <Volume> are all specified, the given Reflexa destination will be mounted as a LUN"
    " <MountPoint>.\n"
    "If -smdest is not specified, <Storage System> and <Volume> are both specified, the Reflexa source associated with"
    " <Storage System> and <Volume> will be mounted as a LUN <MountPoint>.\n"
    "If only -smdest is specified, the first available Reflexa destination will be mounted as a LUN <MountPoint>.\n"
    "If -smdest, <Storage System> and <Volume> are all not specified, the given <LiveMountPoint> is mounted as a LUN"
    " <MountPoint>.\n"
)
UNMOUNT_USAGE = (
    "cvcli snap unmount [-m <MachineName>] -d <MountPoint> [-f]\n"
    "Un-mounts a snapshot copy of a LUN mounted as a LUN.\n"
    "-f  The snapshot copy will be forcibly un-mounted even if it is used by an application or the Windows operation"
    " system. This feature should be used with caution.\n" + LOCAL_MACHINE
)



MOUNT = "ISnapShotMount.MountSnapshot"
MOUNT_OLD = "ISnapShotInfo.MountSnapshotOld"
UNMOUNT = "ISnapShotManage.UnmountSnapshot"
UNMOUNT_FORCED = "ISnapShotManage.UnmountSnapshotForced"

BASE = ["snap", "mount", "-r", "HOST1", "-k", "E", "-s", "nightly.1", "-d", "G"]


MOUNT_REQUEST = {"liveMachine": "HOST1", "liveMountPoint": "E", "snapshotName": "nightly.1", "mountPoint": "G",
                 "tryDrive": 0, "reflexaDestination": 0, "storageSystem": None, "volume": None, "number": 0}
BOTH_SINKS = ["_ISnapShotEvents", "_ISnapShotEvents2"]
FIRST_SINK = ["_ISnapShotEvents"]
NO_CALL = not_called("SnapShotService")


def mirror(state, name="nightly.1", drive="G:\\", text="sql_data", **extra):
    return dict(extra, event="MirrorProgress", name=name, drive=drive, text=text, mirrorState=state)


def mirror_line(status, name="nightly.1", drive="G:\\", text="sql_data"):
    return "\n%s : Mounting snapshot copy %s Drive %s- Status %s" % (name, text, drive, status)


def mounted(**fields):
    return only(MOUNT, dict(MOUNT_REQUEST, **fields), BOTH_SINKS)


def unmounted(method, mount_point):
    return only(method, {"mountPoint": mount_point, "reserved": ""}, FIRST_SINK)


DEMO_EVENTS = (progress("nightly.1", 14) + [mirror(33), mirror(35, countValid=1, transferred=524288), mirror(34)]
               + progress("nightly.1", 15))
DEMO_OUTPUT = (WAIT + "nightly.1 : %s\n" % msg(5024) + mirror_line("MIRROR START")
               + mirror_line("MIRROR REPLICATE transferred 524288") + mirror_line("MIRROR END\n")
               + "nightly.1 : %s\n" % msg(5025))

# (name, argv, request fields that change)
MOUNT_RUNS = [
    ("every volume switch", BASE + ["-smdest", "-trydrive", "-sdf", "filer-dr", "-sdv", "sql_data_mirror", "-int", "42"],
     {"tryDrive": 1, "reflexaDestination": 1, "storageSystem": "filer-dr", "volume": "sql_data_mirror", "number": 42}),
    ("-smdest alone: first available destination", BASE + ["-smdest"], {"reflexaDestination": 1}),
    ("only -sdf goes with a null volume", BASE + ["-sdf", "filer-east"], {"storageSystem": "filer-east"}),
    ("-sdf with two values is null", BASE + ["-sdf", "a", "b", "-sdv", "v"], {"volume": "v"}),
    ("-int abc sends 0", BASE + ["-int", "abc"], {}),
    ("-int reads its leading digits", BASE + ["-int", "12abc"], {"number": 12}),
    ("-int with a plus sign", BASE + ["-int", "+17"], {"number": 17}),
    ("-int beyond 32 bits saturates", BASE + ["-int", "99999999999"], {"number": 2147483647}),
    ("-int after a blank may be negative", BASE + ["-int", " -5"], {"number": -5}),
    ("-int below 32 bits saturates", BASE + ["-int", " -2147483649"], {"number": -2147483648}),
    ("no -r sends the empty live machine", ["snap", "mount", "-k", "E", "-s", "nightly.1", "-d", "G"], {"liveMachine": ""}),
    ("non-ASCII snapshot name and mount points, -k as typed",
     ["snap", "mount", "-r", "hôte-東京", "-k", "C:\\Dätä", "-s", "Sicherung-Ü.東", "-d", "C:\\снимок\\點"],
     {"liveMachine": "hôte-東京", "liveMountPoint": "C:\\Dätä", "snapshotName": "Sicherung-Ü.東",
      "mountPoint": "C:\\снимок\\點\\"}),
]
NON_ASCII_MIRROR = {"name": "Sicherung-Ü", "drive": "C:\\снимок\\", "text": "vol_東"}
# (name, argv after "snap mount", message id): -s, -d, then -k, by the snap family's readers (tried on snap delete).
MOUNT_FAULTS = [
    ("everything missing: -s first", [], 5600),
    ("-s missing", ["-k", "E", "-d", "G"], 5600),
    ("-d missing", ["-k", "E", "-s", "a"], 5602),
    ("-k missing", ["-s", "a", "-d", "G"], 5604),
]
OLD_FAULTS = [("everything missing: -s first", ["-old"], 5600)]
OLD_REQUEST = {"liveMachine": "HOST1", "liveMountPoint": "E", "snapshotName": "nightly.1", "mountPoint": "G", "reserved": 0}

CASES = (
    [Case("mount: demo run with progress and mirror lines", BASE, DEMO_OUTPUT + completion(), S_OK,
          scenario=answer(MOUNT, events=DEMO_EVENTS), check=mounted())]
    + [Case("mount: " + name, argv, WAIT + completion(), S_OK, check=mounted(**fields)) for name, argv, fields in MOUNT_RUNS]
    # A count is printed only when valid and not zero, and then only its low 32 bits; an unknown state prints none.
    + [Case("mount: mirror states, the low 32 bits and non-ASCII names", BASE,
            WAIT + "".join(mirror_line(status) for status in [
                "MIRROR REPLICATE transferred 1024", "MIRROR REPLICATE", "MIRROR REPLICATE", "USER CANCELLED", ""])
            + mirror_line("MIRROR START", **NON_ASCII_MIRROR) + completion(), S_OK, check=mounted(),
            scenario=answer(MOUNT, events=[
                mirror(35, countValid=1, transferred=0x100000400), mirror(35, countValid=1, transferred=0),
                mirror(35, countValid=0, transferred=4096), mirror(36), mirror(37), mirror(33, **NON_ASCII_MIRROR)]))]
    + usage_faults("mount", ["snap", "mount"], MOUNT_USAGE, MOUNT_FAULTS, check=NO_CALL)
    + usage_faults("mount -old", ["snap", "mount"], MOUNT_USAGE, OLD_FAULTS, check=NO_CALL)
    + [
        # The older operation
        Case("mount -old ignores the volume switches", BASE + ["-old", "-smdest", "-trydrive", "-sdf", "f", "-sdv", "v",
                                                               "-int", "5"],
             WAIT + "nightly.1 : %s\n" % msg(5024) + completion(), S_OK,
             scenario=answer(MOUNT_OLD, events=progress("nightly.1", 14) + [mirror(33)]),
             check=only(MOUNT_OLD, OLD_REQUEST, FIRST_SINK)),
        Case("mount -old without -r, folder mount point, needs no ISnapShotMount",
             ["snap", "mount", "-old", "-k", "E", "-s", "n", "-d", "C:\\m"], WAIT + completion(), S_OK,
             scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotMount"]}}},
             check=only(MOUNT_OLD, dict(OLD_REQUEST, liveMachine="", snapshotName="n", mountPoint="C:\\m\\"), FIRST_SINK)),
        lacking("mount -old", BASE + ["-old"], "SnapShotService", "ISnapShotInfo"),
        lacking("mount", BASE, "SnapShotService", "ISnapShotMount"),
    ]
    + refusals("mount -old", BASE + ["-old"], MSG_MOUNT_FAILED, lambda r: answer(MOUNT_OLD, events=progress("nightly.1", 14),
                                                                                **r),
               before=WAIT + "nightly.1 : %s\n" % msg(5024), calls=[MOUNT_OLD])
    + refusals("mount", BASE, MSG_MOUNT_FAILED,
               lambda r: answer(MOUNT, events=progress("nightly.1", 14) + [mirror(33)], **r),
               before=WAIT + "nightly.1 : %s\n" % msg(5024) + mirror_line("MIRROR START"), calls=[MOUNT])
    + unreachable("mount", "SnapShotService", ["snap", "mount"], BASE + ["-m", "host2"])
    + [
        Case("unmount: demo run", ["snap", "unmount", "-d", "G"],
             WAIT + "G:\\ : %s\nG:\\ : %s\n" % (msg(5026), msg(5027)) + completion(), S_OK,
             scenario=answer(UNMOUNT, events=progress("G:\\", 16, 17)), check=unmounted(UNMOUNT, "G")),
        Case("unmount -f is forced", ["snap", "unmount", "-d", "G", "-f"], WAIT + completion(), S_OK,
             check=unmounted(UNMOUNT_FORCED, "G")),
        Case("unmount: non-ASCII folder mount point", ["snap", "unmount", "-d", "C:\\снимок\\Dätä"],
             WAIT + "C:\\снимок\\Dätä\\ : %s\n" % msg(5027) + completion(), S_OK,
             scenario=answer(UNMOUNT, events=progress("C:\\снимок\\Dätä\\", 17)),
             check=unmounted(UNMOUNT, "C:\\снимок\\Dätä\\")),
    ]
    + usage_faults("unmount", ["snap", "unmount"], UNMOUNT_USAGE, [("-d missing", ["-f"], 5602)], check=NO_CALL)
    + refusals("unmount", ["snap", "unmount", "-d", "G"], MSG_UNMOUNT_FAILED,
               lambda r: answer(UNMOUNT, events=progress("G:\\", 16), **r), before=WAIT + "G:\\ : %s\n" % msg(5026),
               calls=[UNMOUNT])[:1]
    + refusals("unmount -f", ["snap", "unmount", "-d", "G", "-f"], MSG_UNMOUNT_FAILED,
               lambda r: answer(UNMOUNT_FORCED, **r), before=WAIT, calls=[UNMOUNT_FORCED])[1:]
)
