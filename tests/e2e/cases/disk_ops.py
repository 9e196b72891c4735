"""disk delete, disconnect and expand: naming the LUN, the requests sent, the expansion limits and every failure."""

from cases.lun_common import (E_ACCESSDENIED, LOCAL_MACHINE, WAIT, all_of, failing, local, progress, refusals, sent,
                              unreachable, usage, usage_faults)
from harness import E_INVALIDARG, S_OK, Case, alert, completion, msg

MSG_DELETE_DISK_FAILED = 5357
MSG_DISCONNECT_DISK_FAILED = 5358
MSG_EXPAND_DISK_FAILED = 5360
MSG_LIST_DISKS_FAILED = 5362
MSG_MOUNT_POINT_NOT_FOUND = 5366
MSG_USAGE_SIZE = 5614
MSG_USAGE_MOUNT_POINT_OR_LUN_PATH = 5622
MSG_INVALID_LUN_PATH = 6112
SNAPSHOT_BACKED = 0xC004020F

LUN_PATH_FORM = ("<LUNPath> is <storagesystem name>:/vol/<volumename>/<lunname>, or the deprecated "
                 "\\\\<storagesystem name>\\<cifs share>\\<lunname>.\n")
DELETE_USAGE = ("cvcli disk delete [-m <MachineName>] {-d <MountPoint> | -p <LUNPath>}\n"
                "Deletes a LUN, named by its mount point or by its LUN path.\n" + LUN_PATH_FORM + LOCAL_MACHINE)
DISCONNECT_USAGE = (
    "cvcli disk disconnect [-m <MachineName>] {-d <MountPoint> | -p <LUNPath>} [-f]\n"
    "Disconnects a LUN from the host, named by its mount point or by its LUN path.\n" + LUN_PATH_FORM
    + "-f The LUN is disconnected even if an application uses it. This feature should be used with caution.\n"
    + LOCAL_MACHINE)
EXPAND_USAGE = (
    "cvcli disk expand [-m <MachineName>] {-d <MountPoint> | -p <LUNPath>} -z <Size> [-rs {y|n}]\n"
    "Expands a LUN by <Size>, named by its mount point or by its LUN path.\n" + LUN_PATH_FORM
    + "-z Size to add, in MB; a GB or TB suffix may be given (10GB).\n"
    "-rs Whether space stays reserved for snapshot copies: y (default) or n. It decides how far the LUN can grow.\n"
    + LOCAL_MACHINE)

UNC_NOTICE = "\nNotice: UNC path is deprecated.  LUN path usage is preferred.\n\n"
# delete and expand print the text on the current line; disconnect's look-up starts a new one.
INCORRECT_PATH = ("Incorrect LUN path or UNC path. Path can be specified as <storagesystem name>:/vol/<volumename>/<lunname>"
                  " or \\\\<storagesystem name>\\<cifs share>\\<lunname> \n")

DB = {"dwType": 1, "wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/db", "szSerialNumber": "C4e6SJ",
      "pwszMountPoints": ["E", "F:\\mnt\\db\\"]}
CLONE = {"dwType": 1, "wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/clone", "szSerialNumber": "C4e6SK",
         "bBackedBySnapshot": True, "wszSnapshotName": "nightly.1", "pwszMountPoints": ["G", "C:\\Dätä\\東京\\"]}
WEST = {"dwType": 1, "wszStorageSystem": "filer-west", "wszStorageSystemPath": "/vol/vm/lun0", "pwszMountPoints": ["H"]}
TRANSLATED = {"location": {"wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/db"}}

ENUM = "IVirtualDisk.EnumerateDisks"
UNC = "IVirtualDisk.TranslateUncPath"
DELETE = "IVirtualDisk.DeleteDisk"
DISCONNECT = "IVirtualDisk.DisconnectDisk"
FORCED = "IVirtualDisk.DisconnectDiskForced"
LIMITS = "IVirtualDisk.GetExpandLimits"
EXPAND = "IVirtualDisk.ExpandDisk"


def scenario(**methods):
    """The connected disks above, plus the given methods ("DeleteDisk" for "IVirtualDisk.DeleteDisk")."""
    data = {ENUM: {"disks": [WEST, DB, CLONE]}}
    data.update({"IVirtualDisk." + name: answer for name, answer in methods.items()})
    return {"methods": data}


def lun(method, storage_system="filer1", path="/vol/vol1/db"):
    return sent(method, False, storageSystem=storage_system, storageSystemPath=path, reserved1=0, reserved2=0)


# The disk look-up is shared by the three operations: its forms, and the LUN path's, are tried on delete.
# (name, argv after "disk delete", calls, storage system, path sent)
DELETE_RUNS = [
    ("by drive letter", ["-d", "E"], [ENUM, DELETE], "filer1", "/vol/vol1/db"),
    ("drive with colon and another case", ["-d", "e:"], [ENUM, DELETE], "filer1", "/vol/vol1/db"),
    ("folder mount point gets its backslash", ["-d", "F:\\mnt\\db"], [ENUM, DELETE], "filer1", "/vol/vol1/db"),
    ("by LUN path, connected or not", ["-p", "filer9:/vol/gone/lun7"], [DELETE], "filer9", "/vol/gone/lun7"),
    ("non-ASCII LUN path", ["-p", "fïler:/vol/dätä/東京"], [DELETE], "fïler", "/vol/dätä/東京"),
    # A LUN path skips the snapshot test: only a mount point finds out what backs the disk.
    ("snapshot-backed disk by LUN path goes ahead", ["-p", "filer1:/vol/vol1/clone"], [DELETE], "filer1", "/vol/vol1/clone"),
] + [("LUN path " + path, ["-p", path], [DELETE], system, on_system)  # split at the first colon
     for path, system, on_system in [(":/vol/a/b", "", "/vol/a/b"), ("st1:/vol/a:b/c", "st1", "/vol/a:b/c"),
                                     ("st1:/vol/", "st1", "/vol/")]]
# A switch given twice or without a value names nothing.
TARGET_FAULTS = [("neither -d nor -p", [], MSG_USAGE_MOUNT_POINT_OR_LUN_PATH)]
MORE_TARGET_FAULTS = [("both -d and -p", ["-d", "E", "-p", "filer1:/vol/vol1/db"], MSG_USAGE_MOUNT_POINT_OR_LUN_PATH),
                      ("-d given twice", ["-d", "E", "-d", "F"], MSG_USAGE_MOUNT_POINT_OR_LUN_PATH),
                      ("-p with two values", ["-p", "filer1:/vol/vol1/db", "filer1:/vol/vol1/x"],
                       MSG_USAGE_MOUNT_POINT_OR_LUN_PATH)]

DELETE_CASES = [
    Case("delete: " + name, ["disk", "delete"] + argv, completion(), S_OK, scenario=scenario(), calls=calls,
         check=lun(DELETE, storage_system, path))
    for name, argv, calls, storage_system, path in DELETE_RUNS
] + [
    Case("delete: UNC path", ["disk", "delete", "-p", "\\\\filer1\\share\\db.lun"], UNC_NOTICE + completion(), S_OK,
         scenario=scenario(TranslateUncPath=TRANSLATED), calls=[UNC, DELETE], check=lun(DELETE)),
    Case("delete: progress events", ["disk", "delete", "-d", "E"],
         "filer1 : %s\nfiler1 : %s\n" % (msg(5033), msg(5034)) + completion(), S_OK,
         scenario=scenario(DeleteDisk={"events": progress("filer1", 22, 23)})),
    Case("delete: snapshot-backed disk by mount point is refused", ["disk", "delete", "-d", "G"],
         alert(5110, SNAPSHOT_BACKED), SNAPSHOT_BACKED, scenario=scenario(), calls=[ENUM]),
    Case("delete: unknown mount point", ["disk", "delete", "-d", "Q"], local(MSG_MOUNT_POINT_NOT_FOUND), E_INVALIDARG,
         scenario=scenario(), calls=[ENUM]),
    Case("delete: disks cannot be enumerated", ["disk", "delete", "-d", "E"],
         alert(MSG_LIST_DISKS_FAILED, E_ACCESSDENIED, description="no access"), E_ACCESSDENIED,
         scenario={"methods": {ENUM: failing(E_ACCESSDENIED, "no access")}}, calls=[ENUM]),
    Case("delete: UNC path not translated", ["disk", "delete", "-p", "\\\\filer1\\share\\x"],
         UNC_NOTICE + INCORRECT_PATH + msg(MSG_DELETE_DISK_FAILED), E_INVALIDARG,
         scenario=scenario(TranslateUncPath=failing(E_ACCESSDENIED)), calls=[UNC]),
] + refusals("delete", ["disk", "delete", "-d", "E"], MSG_DELETE_DISK_FAILED, lambda r: scenario(DeleteDisk=r),
             calls=[ENUM, DELETE]) + unreachable("delete", "VirtualDiskService", ["disk", "delete"],
                                                 ["disk", "delete", "-m", "host2", "-d", "E"]) + [
    # "/vol/" must follow the first colon directly, in lower case
    Case("delete: bad LUN path %r" % path, ["disk", "delete", "-p", path],
         INCORRECT_PATH + msg(MSG_DELETE_DISK_FAILED), E_INVALIDARG, scenario=scenario(), calls=[])
    for path in ["filer1:/Vol/vol1/db", "filer1:/VOL/vol1/db", "filer1:vol/vol1/db", "filer1:x:/vol/a/b",
                 "filer1/vol/a", ""]
] + usage_faults("delete", ["disk", "delete"], DELETE_USAGE, TARGET_FAULTS + MORE_TARGET_FAULTS, scenario=scenario(),
                 calls=[])

# ---------------------------------------------------------------- disconnect

# (name, argv after "disk disconnect", output before the completion, calls, storage system, path sent)
DISCONNECT_RUNS = [
    ("by drive letter", ["-d", "E"], WAIT, [ENUM, DISCONNECT], "filer1", "/vol/vol1/db"),
    ("by force", ["-d", "E:", "-f"], WAIT, [ENUM, FORCED], "filer1", "/vol/vol1/db"),
    ("-f with a value still forces", ["-f", "no", "-d", "E"], WAIT, [ENUM, FORCED], "filer1", "/vol/vol1/db"),
    ("non-ASCII folder mount point, snapshot-backed", ["-d", "c:\\dätä\\東京"], WAIT, [ENUM, DISCONNECT], "filer1",
     "/vol/vol1/clone"),
    # The path is matched ignoring case; the request keeps the storage system as typed.
    ("by LUN path in another case", ["-p", "FILER1:/vol/VOL1/db"], WAIT, [ENUM, DISCONNECT], "FILER1", "/vol/vol1/db"),
    ("by UNC path", ["-p", "\\\\filer1\\share\\db.lun", "-f"], UNC_NOTICE + WAIT, [ENUM, UNC, FORCED], "filer1",
     "/vol/vol1/db"),
]

DISCONNECT_CASES = [
    Case("disconnect: " + name, ["disk", "disconnect"] + argv, before + completion(), S_OK,
         scenario=scenario(TranslateUncPath=TRANSLATED), calls=calls,
         check=lun(calls[-1], storage_system, path))
    for name, argv, before, calls, storage_system, path in DISCONNECT_RUNS
] + [
    Case("disconnect: progress events after the waiting line", ["disk", "disconnect", "-d", "H"],
         WAIT + "H:\\ : %s\nH:\\ : %s\n" % (msg(5030), msg(5031)) + completion(), S_OK,
         scenario=scenario(DisconnectDisk={"events": progress("H:\\", 20, 21)}),
         check=lun(DISCONNECT, "filer-west", "/vol/vm/lun0")),
    Case("disconnect: LUN path not connected", ["disk", "disconnect", "-p", "filer1:/vol/vol1/gone"],
         local(5106), E_INVALIDARG, scenario=scenario(), calls=[ENUM]),
    Case("disconnect: UNC path not translated", ["disk", "disconnect", "-p", "\\\\filer1\\share\\x"],
         UNC_NOTICE + "\n" + INCORRECT_PATH + alert(MSG_INVALID_LUN_PATH, E_ACCESSDENIED, description="share unknown"),
         E_ACCESSDENIED, scenario=scenario(TranslateUncPath=failing(E_ACCESSDENIED, "share unknown")),
         calls=[ENUM, UNC]),
    # The look-up enumerates first, then reports the path with its own status.
    Case("disconnect: bad LUN path", ["disk", "disconnect", "-p", "filer1:vol/vol1/db"],
         "\n" + INCORRECT_PATH + alert(MSG_INVALID_LUN_PATH, MSG_INVALID_LUN_PATH), MSG_INVALID_LUN_PATH,
         scenario=scenario(), calls=[ENUM]),
] + refusals("disconnect", ["disk", "disconnect", "-d", "E"], MSG_DISCONNECT_DISK_FAILED,
             lambda r: scenario(DisconnectDisk=r), before=WAIT, calls=[ENUM, DISCONNECT])[:1] + refusals(
    "disconnect -f", ["disk", "disconnect", "-d", "E", "-f"], MSG_DISCONNECT_DISK_FAILED,
    lambda r: scenario(DisconnectDiskForced=r), before=WAIT, calls=[ENUM, FORCED])[1:] + usage_faults(
    "disconnect", ["disk", "disconnect", "-f"], DISCONNECT_USAGE, TARGET_FAULTS, scenario=scenario(), calls=[])

# ---------------------------------------------------------------- expand

GROWN = {"dwType": 1, "dwPartitionStyle": 2, "wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/db",
         "wszVolumeName": "\\\\?\\Volume{aa}\\", "szSerialNumber": "C4e6SJ", "bySCSIPort": 2, "llSize": 5368709120,
         "dwDiskId": 7, "dwCloneSplitPercent": "0xFFFFFFFF", "pwszMountPoints": ["E"], "pwszIpAddresses": ["10.0.0.1"]}
GROWN_TEXT = (
    "UNC Path: None\nLUN Path: filer1:/vol/vol1/db\n\tStorage System:\t\tfiler1\n\tStorage System Path:\t/vol/vol1/db\n"
    "\tType:\t\t\tlun\n\tDisk serial number:\tC4e6SJ\n\tBacked by Snapshot Copy:\t\n\tShared:\t\t\tNo\n"
    "\tBootOrSystem Disk:\tNo\n\tSCSI port:\t\t2\n\tBus:\t\t\t0\n\tTarget:\t\t\t0\n\tLUN:\t\t\t0\n\tReadonly:\t\tNo\n"
    "\tSize:\t\t\t1073741824\n\tReflexa Source:\tNo\n\tArkhold Primary:\tNo\n"
    "\tDisk Partition Style:\tGUID Partition Table (GPT)\n\tClone Split Restore status: Normal\n\tDiskID:\t\t\t7\n"
    "\tVolume Name:\t\t\\\\?\\Volume{aa}\\\n\tMount points:\t\tE:\\\n\tIP Addresses:\t\t10.0.0.1\n"
)
# With reserve up to 40960 MB, without it up to 81920 MB, at least 16 MB.
VALID = {"llMaxWithReserve": 40960, "llMaxWithoutReserve": 81920, "llMin": 16, "llCurrentSize": 102400,
         "bLimitsValid": True, "dwPartitionStyle": 2}


def expanding(limit_record=None, grown=None, **methods):
    answers = {"GetExpandLimits": {"limits": limit_record or VALID},
               "ExpandDisk": {"disk": GROWN} if grown is None else grown}
    answers.update(methods)
    return scenario(**answers)


def expanded_by(size, path=None, storage_system="filer1", storage_path="/vol/vol1/db"):
    return all_of(sent(LIMITS, False, storageSystem=storage_system, storageSystemPath=storage_path),
                  sent(EXPAND, False, request={"wszPath": path, "wszStorageSystem": storage_system,
                                               "wszStorageSystemPath": storage_path, "llExpandSize": size}))


def below(size, low, high):
    return "\nInvalid expand size %dMB. Must be in range [%dMB, %dMB].\n" % (size, low, high)


def too_big(size, low, with_reserve, without_reserve):
    return ("\nInvalid expand size %dMB. There is not enough free disk space.\nYou can only expand this disk in range "
            "[%dMB, %dMB] if -rs switch is 'y'.\n -OR-\nYou can expand this disk in range [%dMB, %dMB] if -rs switch is "
            "'n'.\n" % (size, low, with_reserve, low, without_reserve))


def no_room_with_reserve(size, low, without_reserve):
    return ("\nInvalid expand size %dMB. There is not enough free disk space.\nYou cannot expand this disk with -rs switch "
            "'y'.\nYou can expand this disk in range [%dMB, %dMB] if -rs switch is 'n'.\n" % (size, low, without_reserve))


def expand(*argv):
    return ["disk", "expand"] + list(argv)


EXPANDED = GROWN_TEXT + completion()

# Some that it rejects (a value starting with a hyphen is a switch of its own, so -z is left without one).
BAD_SIZES = [("negative", ["-z", "-5MB"]), ("20 digits", ["-z", "1" * 20]), ("blank inside", ["-z", "10 MB"]),
             ("missing", []), ("given twice", ["-z", "10", "-z", "20"]), ("in kilobytes", ["-z", "100kb"]),
             ("with decimals", ["-z", "1.5GB"]), ("with a one-letter suffix", ["-z", "10g"])]
OPEN = {"bLimitsValid": False}
MBR = {"bLimitsValid": False, "dwPartitionStyle": 1}
# (name, switches after "-d E", limits changed, refusal printed or None when the disk grows by `size`)
LIMIT_RUNS = [
    ("1TB", ["-z", "1TB"], {"llMaxWithReserve": 1 << 20}, None, 1 << 20),
    ("smallest size accepted", ["-z", "16"], {}, None, 16),
    ("one below the smallest", ["-z", "15"], {}, below(15, 16, 40960), 0),
    ("an empty size is zero", ["-z", ""], {}, below(0, 16, 40960), 0),
    ("largest with reserve, -rs absent", ["-z", "40960"], {}, None, 40960),
    ("one past it", ["-z", "40961"], {}, too_big(40961, 16, 40960, 81920), 0),
    ("largest without reserve", ["-z", "80GB", "-rs", "n"], {}, None, 81920),
    ("one past it without reserve", ["-z", "81921", "-rs", "N"], {}, too_big(81921, 16, 40960, 81920), 0),
    ("below the smallest without reserve", ["-z", "1", "-rs", "n"], {}, below(1, 16, 81920), 0),
    ("no room with reserve", ["-z", "16"], {"llMaxWithReserve": 0}, no_room_with_reserve(16, 16, 81920), 0),
    ("no room at all without reserve", ["-z", "16", "-rs", "n"], {"llMaxWithReserve": 0, "llMaxWithoutReserve": 0},
     too_big(16, 16, 0, 0), 0),
    # Limits the service leaves open: the partition style bounds the disk, 2097023 MB for MBR, 16742279 MB otherwise.
    ("open limits, MBR, largest", ["-z", "1994623"], MBR, None, 1994623),
    ("open limits, MBR, one past", ["-z", "1994624", "-rs", "n"], MBR, too_big(1994624, 16, 40960, 81920), 0),
    ("open limits, small-disk limit on GPT", ["-z", "1994624"], dict(OPEN, bSmallDiskLimit=True),
     too_big(1994624, 16, 40960, 81920), 0),
    ("open limits, GPT, largest", ["-z", "16639879"], OPEN, None, 16639879),
    ("open limits, GPT, one past", ["-z", "16639880"], OPEN, too_big(16639880, 16, 40960, 81920), 0),
    ("open limits, raw disk", ["-z", "16639879"], dict(OPEN, dwPartitionStyle=3), None, 16639879),
    # A disk already past the bound: the unsigned limit wraps and prints as a negative number.
    ("open limits past the MBR bound", ["-z", "8"], dict(MBR, llCurrentSize=2097024), below(8, 16, -1), 0),
] + [("size " + text, ["-z", text, "-rs", "y"], {"llMin": 0}, None, size)
     for text, size in [("2gB", 2048), ("0tb", 0), ("+64", 64), ("0040", 40), ("100mB", 100)]]


def limit_case(name, argv, fields, refusal, size):
    grows = refusal is None
    return Case("expand: " + name, expand("-d", "E", *argv), EXPANDED if grows else refusal, S_OK,
                scenario=expanding(dict(VALID, **fields)), calls=[ENUM, LIMITS] + [EXPAND] * grows,
                check=expanded_by(size) if grows else None)


EXPAND_CASES = [
    Case("expand: by LUN path sends the path as typed", expand("-p", "filer1:/vol/vol1/db", "-z", "1GB"), EXPANDED, S_OK,
         scenario=expanding(), calls=[LIMITS, EXPAND], check=expanded_by(1024, path="filer1:/vol/vol1/db")),
    Case("expand: by UNC path", expand("-z", "100", "-p", "\\\\filer1\\share\\db.lun"), UNC_NOTICE + EXPANDED, S_OK,
         scenario=expanding(TranslateUncPath=TRANSLATED), calls=[UNC, LIMITS, EXPAND],
         check=expanded_by(100, path="\\\\filer1\\share\\db.lun")),
    Case("expand: progress events before the grown disk", expand("-d", "E", "-z", "16"),
         "E:\\ : %s\nE:\\ : %s\n" % (msg(5035), msg(5037)) + EXPANDED, S_OK,
         scenario=expanding(grown={"disk": GROWN, "events": progress("E:\\", 24, 25)})),
    Case("expand: the service returns no disk", expand("-d", "E", "-z", "16"), completion(), S_OK,
         scenario=expanding(grown={})),
    Case("expand: snapshot-backed disk by mount point is refused", expand("-d", "G", "-z", "16"),
         alert(5102, SNAPSHOT_BACKED), SNAPSHOT_BACKED, scenario=expanding(), calls=[ENUM]),
    Case("expand: snapshot-backed disk by LUN path goes ahead", expand("-p", "filer1:/vol/vol1/clone", "-z", "16"),
         EXPANDED, S_OK, scenario=expanding(), check=expanded_by(16, "filer1:/vol/vol1/clone", "filer1", "/vol/vol1/clone")),
    Case("expand: bad LUN path", expand("-z", "16", "-p", "filer1"), INCORRECT_PATH + msg(MSG_EXPAND_DISK_FAILED),
         E_INVALIDARG, scenario=expanding(), calls=[]),
    Case("expand: nothing given reports the size first", expand(), usage(MSG_USAGE_SIZE, EXPAND_USAGE), E_INVALIDARG,
         scenario=expanding(), calls=[]),
] + [limit_case(*row) for row in LIMIT_RUNS] + refusals(
    "expand: limits", expand("-d", "E", "-z", "16"), MSG_EXPAND_DISK_FAILED,
    lambda r: expanding(GetExpandLimits=r), calls=[ENUM, LIMITS]) + refusals(
    "expand: expansion", expand("-d", "E", "-z", "16"), MSG_EXPAND_DISK_FAILED,
    lambda r: expanding(grown=dict(r, disk=GROWN)), calls=[ENUM, LIMITS, EXPAND]) + [
    # The size is examined before the disk is named: nothing is asked of the service.
    Case("expand: size " + name, expand("-d", "E", *argv), usage(MSG_USAGE_SIZE, EXPAND_USAGE), E_INVALIDARG,
         scenario=expanding(), calls=[])
    for name, argv in BAD_SIZES
] + usage_faults("expand", expand("-z", "16"), EXPAND_USAGE, TARGET_FAULTS, scenario=expanding(), calls=[]) + [
    # -rs is read once the limits are known, so the limits query has been made.
    Case("expand: -rs " + name, expand("-d", "E", "-z", "16", *argv), usage(5613, EXPAND_USAGE),
         E_INVALIDARG, scenario=expanding(), calls=[ENUM, LIMITS])
    for name, argv in [("unknown word", ["-rs", "yes"]), ("given twice", ["-rs", "y", "-rs", "n"])]
]

CASES = DELETE_CASES + DISCONNECT_CASES + EXPAND_CASES
