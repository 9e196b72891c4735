"""disk delete, disconnect and expand: naming the LUN, the requests sent, the expansion limits and every failure."""

from harness import E_INVALIDARG, S_OK, Case, alert, completion, msg

MSG_DELETE_SNAPSHOT_BACKED_DISK = 5110
MSG_EXPAND_SNAPSHOT_BACKED_DISK = 5102
MSG_LUN_PATH_NOT_CONNECTED = 5106
MSG_SERVICE_UNAVAILABLE = 5108
MSG_PLEASE_WAIT = 5120
MSG_DELETE_DISK_FAILED = 5357
MSG_DISCONNECT_DISK_FAILED = 5358
MSG_EXPAND_DISK_FAILED = 5360
MSG_LIST_DISKS_FAILED = 5362
MSG_MOUNT_POINT_NOT_FOUND = 5366
MSG_USAGE_SPACE_RESERVATION = 5613
MSG_USAGE_SIZE = 5614
MSG_USAGE_MOUNT_POINT_OR_LUN_PATH = 5622
MSG_INVALID_LUN_PATH = 6112

SNAPSHOT_BACKED = 0xC004020F
LUN_BUSY = 0xC00402A1
E_ACCESSDENIED = 0x80070005
E_NOINTERFACE = 0x80004002

LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"
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


def local(message_id):
    """What a local error prints: the text passed through FormatMessageW, which ends lines with CR LF."""
    return msg(message_id).replace("\n", "\r\n")


def usage(message_id, text):
    return "\n%s ...\n\n" % msg(message_id) + text


DB = {"dwType": 1, "wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/db", "szSerialNumber": "C4e6SJ",
      "pwszMountPoints": ["E", "F:\\mnt\\db\\"]}
CLONE = {"dwType": 1, "wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/clone", "szSerialNumber": "C4e6SK",
         "bBackedBySnapshot": True, "wszSnapshotName": "nightly.1", "pwszMountPoints": ["G", "C:\\Dätä\\東京\\"]}
WEST = {"dwType": 1, "wszStorageSystem": "filer-west", "wszStorageSystemPath": "/vol/vm/lun0", "pwszMountPoints": ["H"]}
DISKS = [WEST, DB, CLONE]
TRANSLATED = {"location": {"wszStorageSystem": "filer1", "wszStorageSystemPath": "/vol/vol1/db"}}


def scenario(**methods):
    """The connected disks above, plus the given methods ("DeleteDisk" for "IVirtualDisk.DeleteDisk")."""
    data = {"IVirtualDisk.EnumerateDisks": {"disks": DISKS}}
    data.update({"IVirtualDisk." + name: answer for name, answer in methods.items()})
    return {"methods": data}


def failing(hr, description=None):
    answer = {"result": "0x%08X" % hr}
    if description is not None:
        answer["errorDescription"] = description
    return answer


def sent(method, **expected):
    """The one call of `method` carried these request fields."""
    def check(result):
        requests = [e.get("request", {}) for e in result.events
                    if e.get("event") == "call" and e.get("method") == "IVirtualDisk." + method]
        assert len(requests) == 1, "%s called %d times" % (method, len(requests))
        for key, value in expected.items():
            assert requests[0].get(key) == value, "%s.%s = %r, expected %r" % (method, key, requests[0].get(key), value)
    return check


def lun(storage_system, path, method):
    return sent(method, storageSystem=storage_system, storageSystemPath=path, reserved1=0, reserved2=0)


ENUM = "IVirtualDisk.EnumerateDisks"
UNC = "IVirtualDisk.TranslateUncPath"
DELETE = "IVirtualDisk.DeleteDisk"
DISCONNECT = "IVirtualDisk.DisconnectDisk"
FORCED = "IVirtualDisk.DisconnectDiskForced"
LIMITS = "IVirtualDisk.GetExpandLimits"
EXPAND = "IVirtualDisk.ExpandDisk"

BAD_PATHS = [
    ("no colon", "filer1"),
    ("no /vol/ after the colon", "filer1:vol/vol1/db"),
    ("/Vol/ in another case", "filer1:/Vol/vol1/db"),
    ("/vol/ after a second colon", "filer1:x:/vol/vol1/db"),
    ("empty path", ""),
]

# ---------------------------------------------------------------- delete

DELETE_CASES = [
    Case("delete: by drive letter", ["disk", "delete", "-d", "E"], completion(), S_OK, scenario=scenario(),
         calls=[ENUM, DELETE], check=lun("filer1", "/vol/vol1/db", "DeleteDisk")),
    Case("delete: drive with colon and another case", ["disk", "delete", "-d", "e:"], completion(), S_OK,
         scenario=scenario(), calls=[ENUM, DELETE], check=lun("filer1", "/vol/vol1/db", "DeleteDisk")),
    Case("delete: folder mount point gets its backslash", ["disk", "delete", "-d", "F:\\mnt\\db"], completion(), S_OK,
         scenario=scenario(), calls=[ENUM, DELETE], check=lun("filer1", "/vol/vol1/db", "DeleteDisk")),
    Case("delete: by LUN path, connected or not", ["disk", "delete", "-p", "filer9:/vol/gone/lun7"], completion(), S_OK,
         scenario=scenario(), calls=[DELETE], check=lun("filer9", "/vol/gone/lun7", "DeleteDisk")),
    Case("delete: empty volume and LUN names", ["disk", "delete", "-p", "filer1:/vol/"], completion(), S_OK,
         scenario=scenario(), calls=[DELETE], check=lun("filer1", "/vol/", "DeleteDisk")),
    Case("delete: non-ASCII LUN path", ["disk", "delete", "-p", "fïler:/vol/dätä/東京"], completion(), S_OK,
         scenario=scenario(), calls=[DELETE], check=lun("fïler", "/vol/dätä/東京", "DeleteDisk")),
    Case("delete: UNC path", ["disk", "delete", "-p", "\\\\filer1\\share\\db.lun"], UNC_NOTICE + completion(), S_OK,
         scenario=scenario(TranslateUncPath=TRANSLATED), calls=[UNC, DELETE],
         check=lun("filer1", "/vol/vol1/db", "DeleteDisk")),
    Case("delete: progress events", ["disk", "delete", "-d", "E"],
         "filer1 : %s\nfiler1 : %s\n" % (msg(5033), msg(5034)) + completion(), S_OK,
         scenario=scenario(DeleteDisk={"events": [{"event": "ProgressMessage", "subject": "filer1", "code": 22},
                                                  {"event": "ProgressMessage", "subject": "filer1", "code": 23}]})),
    # A LUN path skips the snapshot test: only a mount point finds out what backs the disk.
    Case("delete: snapshot-backed disk by mount point is refused", ["disk", "delete", "-d", "G"],
         alert(MSG_DELETE_SNAPSHOT_BACKED_DISK, SNAPSHOT_BACKED), SNAPSHOT_BACKED, scenario=scenario(), calls=[ENUM]),
    Case("delete: snapshot-backed disk by LUN path goes ahead", ["disk", "delete", "-p", "filer1:/vol/vol1/clone"],
         completion(), S_OK, scenario=scenario(), calls=[DELETE]),
    Case("delete: unknown mount point", ["disk", "delete", "-d", "Q"], local(MSG_MOUNT_POINT_NOT_FOUND), E_INVALIDARG,
         scenario=scenario(), calls=[ENUM]),
    Case("delete: refused with an explanation", ["disk", "delete", "-d", "E"],
         alert(MSG_DELETE_DISK_FAILED, LUN_BUSY, description="LUN is mapped to another host"), LUN_BUSY,
         scenario=scenario(DeleteDisk=failing(LUN_BUSY, "LUN is mapped to another host")), calls=[ENUM, DELETE]),
    Case("delete: refused without an explanation", ["disk", "delete", "-p", "filer1:/vol/vol1/db"],
         alert(MSG_DELETE_DISK_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=scenario(DeleteDisk=failing(E_ACCESSDENIED)), calls=[DELETE]),
    Case("delete: S_FALSE is a failure", ["disk", "delete", "-p", "filer1:/vol/vol1/db"],
         alert(MSG_DELETE_DISK_FAILED, 1), 1, scenario=scenario(DeleteDisk={"result": 1})),
    Case("delete: disks cannot be enumerated", ["disk", "delete", "-d", "E"],
         alert(MSG_LIST_DISKS_FAILED, E_ACCESSDENIED, description="no access"), E_ACCESSDENIED,
         scenario={"methods": {ENUM: failing(E_ACCESSDENIED, "no access")}}, calls=[ENUM]),
    Case("delete: UNC path not translated", ["disk", "delete", "-p", "\\\\filer1\\share\\x"],
         UNC_NOTICE + INCORRECT_PATH + msg(MSG_DELETE_DISK_FAILED), E_INVALIDARG,
         scenario=scenario(TranslateUncPath=failing(E_ACCESSDENIED)), calls=[UNC]),
    Case("delete: service unreachable", ["disk", "delete", "-d", "E"], alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario={"classes": {"VirtualDiskService": {"createResult": hex(E_ACCESSDENIED)}}}),
] + [
    Case("delete: bad LUN path, " + name, ["disk", "delete", "-p", path], INCORRECT_PATH + msg(MSG_DELETE_DISK_FAILED),
         E_INVALIDARG, scenario=scenario(), calls=[])
    for name, path in BAD_PATHS
] + [
    Case("delete: " + name, ["disk", "delete"] + argv, usage(MSG_USAGE_MOUNT_POINT_OR_LUN_PATH, DELETE_USAGE),
         E_INVALIDARG, scenario=scenario(), calls=[])
    for name, argv in [
        ("neither -d nor -p", []),
        ("both -d and -p", ["-d", "E", "-p", "filer1:/vol/vol1/db"]),
        ("-d without a value", ["-d"]),
        ("-d given twice", ["-d", "E", "-d", "F"]),
        ("-p with two values", ["-p", "filer1:/vol/vol1/db", "filer1:/vol/vol1/x"]),
        ("-D is not -d", ["-D", "E"]),
    ]
]

# ---------------------------------------------------------------- disconnect

WAIT = local(MSG_PLEASE_WAIT)

DISCONNECT_CASES = [
    Case("disconnect: by drive letter", ["disk", "disconnect", "-d", "E"], WAIT + completion(), S_OK,
         scenario=scenario(), calls=[ENUM, DISCONNECT], check=lun("filer1", "/vol/vol1/db", "DisconnectDisk")),
    Case("disconnect: by force", ["disk", "disconnect", "-d", "E:", "-f"], WAIT + completion(), S_OK,
         scenario=scenario(), calls=[ENUM, FORCED], check=lun("filer1", "/vol/vol1/db", "DisconnectDiskForced")),
    Case("disconnect: -f with a value still forces", ["disk", "disconnect", "-f", "no", "-d", "E"], WAIT + completion(),
         S_OK, scenario=scenario(), calls=[ENUM, FORCED]),
    Case("disconnect: -F is not -f", ["disk", "disconnect", "-d", "E", "-F"], WAIT + completion(), S_OK,
         scenario=scenario(), calls=[ENUM, DISCONNECT]),
    Case("disconnect: non-ASCII folder mount point", ["disk", "disconnect", "-d", "c:\\dätä\\東京"], WAIT + completion(),
         S_OK, scenario=scenario(), calls=[ENUM, DISCONNECT], check=lun("filer1", "/vol/vol1/clone", "DisconnectDisk")),
    # The path is matched ignoring case; the request keeps the storage system as typed.
    Case("disconnect: by LUN path in another case", ["disk", "disconnect", "-p", "FILER1:/vol/VOL1/db"],
         WAIT + completion(), S_OK, scenario=scenario(), calls=[ENUM, DISCONNECT],
         check=lun("FILER1", "/vol/vol1/db", "DisconnectDisk")),
    Case("disconnect: by UNC path", ["disk", "disconnect", "-p", "\\\\filer1\\share\\db.lun", "-f"],
         UNC_NOTICE + WAIT + completion(), S_OK, scenario=scenario(TranslateUncPath=TRANSLATED),
         calls=[ENUM, UNC, FORCED], check=lun("filer1", "/vol/vol1/db", "DisconnectDiskForced")),
    Case("disconnect: a snapshot-backed disk may go", ["disk", "disconnect", "-d", "G"], WAIT + completion(), S_OK,
         scenario=scenario(), calls=[ENUM, DISCONNECT], check=lun("filer1", "/vol/vol1/clone", "DisconnectDisk")),
    Case("disconnect: progress events after the waiting line", ["disk", "disconnect", "-d", "H"],
         WAIT + "H:\\ : %s\nH:\\ : %s\n" % (msg(5030), msg(5031)) + completion(), S_OK,
         scenario=scenario(DisconnectDisk={"events": [{"event": "ProgressMessage", "subject": "H:\\", "code": 20},
                                                      {"event": "ProgressMessage", "subject": "H:\\", "code": 21}]}),
         check=lun("filer-west", "/vol/vm/lun0", "DisconnectDisk")),
    Case("disconnect: LUN path not connected", ["disk", "disconnect", "-p", "filer1:/vol/vol1/gone"],
         local(MSG_LUN_PATH_NOT_CONNECTED), E_INVALIDARG, scenario=scenario(), calls=[ENUM]),
    Case("disconnect: unknown mount point", ["disk", "disconnect", "-d", "E:\\"], local(MSG_MOUNT_POINT_NOT_FOUND),
         E_INVALIDARG, scenario=scenario(), calls=[ENUM]),
    Case("disconnect: UNC path not translated", ["disk", "disconnect", "-p", "\\\\filer1\\share\\x"],
         UNC_NOTICE + "\n" + INCORRECT_PATH + alert(MSG_INVALID_LUN_PATH, E_ACCESSDENIED, description="share unknown"),
         E_ACCESSDENIED, scenario=scenario(TranslateUncPath=failing(E_ACCESSDENIED, "share unknown")),
         calls=[ENUM, UNC]),
    Case("disconnect: refused with an explanation", ["disk", "disconnect", "-d", "E"],
         WAIT + alert(MSG_DISCONNECT_DISK_FAILED, LUN_BUSY, description="volume in use"), LUN_BUSY,
         scenario=scenario(DisconnectDisk=failing(LUN_BUSY, "volume in use")), calls=[ENUM, DISCONNECT]),
    Case("disconnect: forced refused without an explanation", ["disk", "disconnect", "-d", "E", "-f"],
         WAIT + alert(MSG_DISCONNECT_DISK_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=scenario(DisconnectDiskForced=failing(E_ACCESSDENIED)), calls=[ENUM, FORCED]),
    Case("disconnect: disks cannot be enumerated", ["disk", "disconnect", "-p", "filer1:/vol/vol1/db"],
         alert(MSG_LIST_DISKS_FAILED, LUN_BUSY), LUN_BUSY, scenario={"methods": {ENUM: failing(LUN_BUSY)}}, calls=[ENUM]),
] + [
    # The look-up enumerates first, then reports the path with its own status.
    Case("disconnect: bad LUN path, " + name, ["disk", "disconnect", "-p", path],
         "\n" + INCORRECT_PATH + alert(MSG_INVALID_LUN_PATH, MSG_INVALID_LUN_PATH), MSG_INVALID_LUN_PATH,
         scenario=scenario(), calls=[ENUM])
    for name, path in BAD_PATHS
] + [
    Case("disconnect: " + name, ["disk", "disconnect"] + argv, usage(MSG_USAGE_MOUNT_POINT_OR_LUN_PATH, DISCONNECT_USAGE),
         E_INVALIDARG, scenario=scenario(), calls=[])
    for name, argv in [
        ("neither -d nor -p", ["-f"]),
        ("both -d and -p", ["-p", "filer1:/vol/vol1/db", "-d", "E"]),
        ("-p without a value", ["-p"]),
        ("-d given twice", ["-d", "E", "-d", "E"]),
    ]
]

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


def limits(**fields):
    record = dict(VALID)
    record.update(fields)
    return record


def expanding(limit_record=None, grown=None, **methods):
    answers = {"GetExpandLimits": {"limits": limit_record or VALID},
               "ExpandDisk": {"disk": GROWN} if grown is None else grown}
    answers.update(methods)
    return scenario(**answers)


def expanded_by(size, path=None, storage_system="filer1", storage_path="/vol/vol1/db"):
    request_check = sent("ExpandDisk", request={"wszPath": path, "wszStorageSystem": storage_system,
                                                "wszStorageSystemPath": storage_path, "llExpandSize": size})
    limits_check = sent("GetExpandLimits", storageSystem=storage_system, storageSystemPath=storage_path)

    def check(result):
        limits_check(result)
        request_check(result)
    return check


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

# Every size form the -z switch accepts, in MB.
SIZES = [("512", 512), ("512MB", 512), ("512mb", 512), ("2GB", 2048), ("2gB", 2048), ("0tb", 0), ("+64", 64),
         ("0040", 40)]
# A few that it rejects (a value starting with a hyphen is a switch of its own, so -z is left without one).
BAD_SIZES = [("one-letter suffix", ["-z", "10G"]), ("KB is no suffix here", ["-z", "1024KB"]),
             ("unknown suffix", ["-z", "10XB"]), ("decimal", ["-z", "1.5GB"]), ("negative", ["-z", "-5MB"]),
             ("suffix alone", ["-z", "gb"]), ("20 digits", ["-z", "1" * 20]), ("blank inside", ["-z", "10 MB"]),
             ("missing", []), ("without a value", ["-z"]), ("given twice", ["-z", "10", "-z", "20"])]

EXPAND_CASES = [
    Case("expand: by drive letter", expand("-d", "E", "-z", "1024"), EXPANDED, S_OK, scenario=expanding(),
         calls=[ENUM, LIMITS, EXPAND], check=expanded_by(1024)),
    Case("expand: by LUN path sends the path as typed", expand("-p", "filer1:/vol/vol1/db", "-z", "1GB"), EXPANDED, S_OK,
         scenario=expanding(), calls=[LIMITS, EXPAND], check=expanded_by(1024, path="filer1:/vol/vol1/db")),
    Case("expand: by UNC path", expand("-z", "100", "-p", "\\\\filer1\\share\\db.lun"), UNC_NOTICE + EXPANDED, S_OK,
         scenario=expanding(TranslateUncPath=TRANSLATED), calls=[UNC, LIMITS, EXPAND],
         check=expanded_by(100, path="\\\\filer1\\share\\db.lun")),
    Case("expand: 1TB", expand("-d", "E", "-z", "1TB"), EXPANDED, S_OK,
         scenario=expanding(limits(llMaxWithReserve=1 << 20)), check=expanded_by(1 << 20)),
    Case("expand: progress events before the grown disk", expand("-d", "E", "-z", "16"),
         "E:\\ : %s\nE:\\ : %s\n" % (msg(5035), msg(5037)) + EXPANDED, S_OK,
         scenario=expanding(grown={"disk": GROWN, "events": [{"event": "ProgressMessage", "subject": "E:\\", "code": 24},
                                                              {"event": "ProgressMessage", "subject": "E:\\", "code": 25}]})),
    Case("expand: the service returns no disk", expand("-d", "E", "-z", "16"), completion(), S_OK,
         scenario=expanding(grown={})),
    # Limits
    Case("expand: smallest size accepted", expand("-d", "E", "-z", "16"), EXPANDED, S_OK, scenario=expanding(),
         check=expanded_by(16)),
    Case("expand: one below the smallest", expand("-d", "E", "-z", "15"), below(15, 16, 40960), S_OK,
         scenario=expanding(), calls=[ENUM, LIMITS]),
    Case("expand: zero", expand("-d", "E", "-z", "0"), below(0, 16, 40960), S_OK, scenario=expanding(),
         calls=[ENUM, LIMITS]),
    Case("expand: an empty size is zero", expand("-d", "E", "-z", ""), below(0, 16, 40960), S_OK, scenario=expanding(),
         calls=[ENUM, LIMITS]),
    Case("expand: largest with reserve, -rs absent", expand("-d", "E", "-z", "40960"), EXPANDED, S_OK,
         scenario=expanding(), check=expanded_by(40960)),
    Case("expand: one past it", expand("-d", "E", "-z", "40961"), too_big(40961, 16, 40960, 81920), S_OK,
         scenario=expanding(), calls=[ENUM, LIMITS]),
    Case("expand: -rs Y", expand("-d", "E", "-z", "40961", "-rs", "Y"), too_big(40961, 16, 40960, 81920), S_OK,
         scenario=expanding(), calls=[ENUM, LIMITS]),
    Case("expand: largest without reserve", expand("-d", "E", "-z", "80GB", "-rs", "n"), EXPANDED, S_OK,
         scenario=expanding(), check=expanded_by(81920)),
    Case("expand: one past it without reserve", expand("-d", "E", "-z", "81921", "-rs", "N"),
         too_big(81921, 16, 40960, 81920), S_OK, scenario=expanding(), calls=[ENUM, LIMITS]),
    Case("expand: below the smallest without reserve", expand("-d", "E", "-z", "1", "-rs", "n"), below(1, 16, 81920),
         S_OK, scenario=expanding()),
    Case("expand: no room with reserve", expand("-d", "E", "-z", "16"), no_room_with_reserve(16, 16, 81920), S_OK,
         scenario=expanding(limits(llMaxWithReserve=0)), calls=[ENUM, LIMITS]),
    Case("expand: no room at all without reserve", expand("-d", "E", "-z", "16", "-rs", "n"), too_big(16, 16, 0, 0), S_OK,
         scenario=expanding(limits(llMaxWithReserve=0, llMaxWithoutReserve=0)), calls=[ENUM, LIMITS]),
] + [
    Case("expand: size %s" % text, expand("-d", "E", "-z", text, "-rs", "y"), EXPANDED, S_OK,
         scenario=expanding(limits(llMin=0)), calls=[ENUM, LIMITS, EXPAND], check=expanded_by(size))
    for text, size in SIZES
] + [
    # Limits the service leaves open: the partition style bounds the disk, 2097023 MB for MBR, 16742279 MB otherwise.
    Case("expand: open limits, MBR, largest", expand("-d", "E", "-z", "1994623"), EXPANDED, S_OK,
         scenario=expanding(limits(bLimitsValid=False, dwPartitionStyle=1)), check=expanded_by(1994623)),
    Case("expand: open limits, MBR, one past", expand("-d", "E", "-z", "1994624", "-rs", "n"),
         too_big(1994624, 16, 40960, 81920), S_OK, scenario=expanding(limits(bLimitsValid=False, dwPartitionStyle=1)),
         calls=[ENUM, LIMITS]),
    Case("expand: open limits, small-disk limit on GPT", expand("-d", "E", "-z", "1994624"),
         too_big(1994624, 16, 40960, 81920), S_OK,
         scenario=expanding(limits(bLimitsValid=False, bSmallDiskLimit=True)), calls=[ENUM, LIMITS]),
    Case("expand: open limits, GPT, largest", expand("-d", "E", "-z", "16639879"), EXPANDED, S_OK,
         scenario=expanding(limits(bLimitsValid=False)), check=expanded_by(16639879)),
    Case("expand: open limits, GPT, one past", expand("-d", "E", "-z", "16639880"),
         too_big(16639880, 16, 40960, 81920), S_OK, scenario=expanding(limits(bLimitsValid=False)), calls=[ENUM, LIMITS]),
    Case("expand: open limits, raw disk", expand("-d", "E", "-z", "16639879"), EXPANDED, S_OK,
         scenario=expanding(limits(bLimitsValid=False, dwPartitionStyle=3)), check=expanded_by(16639879)),
    # A disk already past the bound: the unsigned limit wraps and prints as a negative number.
    Case("expand: open limits past the MBR bound", expand("-d", "E", "-z", "8"), below(8, 16, -1), S_OK,
         scenario=expanding(limits(bLimitsValid=False, dwPartitionStyle=1, llCurrentSize=2097024)), calls=[ENUM, LIMITS]),
    Case("expand: snapshot-backed disk by mount point is refused", expand("-d", "G", "-z", "16"),
         alert(MSG_EXPAND_SNAPSHOT_BACKED_DISK, SNAPSHOT_BACKED), SNAPSHOT_BACKED, scenario=expanding(), calls=[ENUM]),
    Case("expand: snapshot-backed disk by LUN path goes ahead", expand("-p", "filer1:/vol/vol1/clone", "-z", "16"),
         EXPANDED, S_OK, scenario=expanding(), check=expanded_by(16, "filer1:/vol/vol1/clone", "filer1", "/vol/vol1/clone")),
    Case("expand: unknown mount point", expand("-d", "Z:", "-z", "16"), local(MSG_MOUNT_POINT_NOT_FOUND), E_INVALIDARG,
         scenario=expanding(), calls=[ENUM]),
    # Failures of the service
    Case("expand: limits refused with an explanation", expand("-d", "E", "-z", "16"),
         alert(MSG_EXPAND_DISK_FAILED, LUN_BUSY, description="volume offline"), LUN_BUSY,
         scenario=expanding(GetExpandLimits=failing(LUN_BUSY, "volume offline")), calls=[ENUM, LIMITS]),
    Case("expand: limits refused without an explanation", expand("-p", "filer1:/vol/vol1/db", "-z", "16"),
         alert(MSG_EXPAND_DISK_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=expanding(GetExpandLimits=failing(E_ACCESSDENIED)), calls=[LIMITS]),
    Case("expand: expansion refused with an explanation", expand("-d", "E", "-z", "16"),
         alert(MSG_EXPAND_DISK_FAILED, LUN_BUSY, description="aggregate full"), LUN_BUSY,
         scenario=expanding(grown=dict(failing(LUN_BUSY, "aggregate full"), disk=GROWN)), calls=[ENUM, LIMITS, EXPAND]),
    Case("expand: expansion refused without an explanation", expand("-d", "E", "-z", "16"),
         alert(MSG_EXPAND_DISK_FAILED, E_ACCESSDENIED), E_ACCESSDENIED, scenario=expanding(grown=failing(E_ACCESSDENIED))),
    Case("expand: S_FALSE is a failure", expand("-d", "E", "-z", "16"), alert(MSG_EXPAND_DISK_FAILED, 1), 1,
         scenario=expanding(grown={"result": 1, "disk": GROWN})),
    Case("expand: disks cannot be enumerated", expand("-d", "E", "-z", "16"), alert(MSG_LIST_DISKS_FAILED, LUN_BUSY),
         LUN_BUSY, scenario={"methods": {ENUM: failing(LUN_BUSY)}}, calls=[ENUM]),
    Case("expand: UNC path not translated", expand("-p", "\\\\filer1\\share\\x", "-z", "16"),
         UNC_NOTICE + INCORRECT_PATH + msg(MSG_EXPAND_DISK_FAILED), E_INVALIDARG,
         scenario=expanding(TranslateUncPath=failing(E_ACCESSDENIED)), calls=[UNC]),
] + [
    Case("expand: bad LUN path, " + name, expand("-z", "16", "-p", path), INCORRECT_PATH + msg(MSG_EXPAND_DISK_FAILED),
         E_INVALIDARG, scenario=expanding(), calls=[])
    for name, path in BAD_PATHS
] + [
    # The size is examined before the disk is named: nothing is asked of the service.
    Case("expand: size " + name, expand("-d", "E", *argv), usage(MSG_USAGE_SIZE, EXPAND_USAGE), E_INVALIDARG,
         scenario=expanding(), calls=[])
    for name, argv in BAD_SIZES
] + [
    Case("expand: " + name, expand("-z", "16", *argv), usage(MSG_USAGE_MOUNT_POINT_OR_LUN_PATH, EXPAND_USAGE),
         E_INVALIDARG, scenario=expanding(), calls=[])
    for name, argv in [("neither -d nor -p", []), ("both -d and -p", ["-d", "E", "-p", "filer1:/vol/vol1/db"])]
] + [
    Case("expand: nothing given reports the size first", expand(), usage(MSG_USAGE_SIZE, EXPAND_USAGE), E_INVALIDARG,
         scenario=expanding(), calls=[]),
] + [
    # -rs is read once the limits are known, so the limits query has been made.
    Case("expand: -rs " + name, expand("-d", "E", "-z", "16", *argv), usage(MSG_USAGE_SPACE_RESERVATION, EXPAND_USAGE),
         E_INVALIDARG, scenario=expanding(), calls=[ENUM, LIMITS])
    for name, argv in [("unknown word", ["-rs", "yes"]), ("without a value", ["-rs"]), ("given twice", ["-rs", "y", "-rs", "n"]),
                       ("empty", ["-rs", ""])]
]

CASES = DELETE_CASES + DISCONNECT_CASES + EXPAND_CASES
