"""disk add_mount and remove_mount: the request as typed, the switch checks and the service's refusals."""

from cases.lun_common import (LOCAL_MACHINE, MSG_SERVICE_UNAVAILABLE, answer, not_called, progress, refusals, sent,
                              unreachable, usage_faults)
from harness import REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

VOLUME_LINE = "<VolumeName> is the Volume Name that the disk list operation prints.\n"
ADD_USAGE = ("cvcli disk add_mount [-m <MachineName>] -vn <VolumeName> -mp <MountPoint> [-create_folder]\n"
             "Adds a mount point (a drive letter or an empty folder) to the volume of a connected LUN.\n" + VOLUME_LINE
             + "-create_folder Creates the folder of the mount point when it does not exist.\n" + LOCAL_MACHINE)
REMOVE_USAGE = ("cvcli disk remove_mount [-m <MachineName>] -vn <VolumeName> -mp <MountPoint>\n"
                "Removes a mount point from the volume of a connected LUN.\n" + VOLUME_LINE + LOCAL_MACHINE)

VOLUME = "\\\\?\\Volume{3f1c2a40-5b6d-4e7f-8a91-b2c3d4e5f601}\\"
ADD = "IVirtualDisk.AddMountPoint"
REMOVE = "IVirtualDisk.RemoveMountPoint"
SINK_ONLY = not_called("VirtualDiskService", ["_IVirtualDiskEvents"])

# (operation, method, usage, failure message, progress code and its message)
OPERATIONS = [("add_mount", ADD, ADD_USAGE, 5396, 29, 5042), ("remove_mount", REMOVE, REMOVE_USAGE, 5397, 30, 5054)]
# (name, operation, argv after it, request fields beyond the volume name): the service judges the names, sent as typed.
RUNS = [
    ("drive letter", "add_mount", ["-vn", VOLUME, "-mp", "G"], {"mountPoint": "G", "createFolder": 0}),
    ("non-ASCII folder", "add_mount", ["-vn", VOLUME, "-mp", "C:\\Dätä\\東京"],
     {"mountPoint": "C:\\Dätä\\東京", "createFolder": 0}),
    ("the folder may be created", "add_mount", ["-vn", VOLUME, "-mp", "C:\\mnt\\new", "-create_folder"],
     {"mountPoint": "C:\\mnt\\new", "createFolder": 1}),
    ("-create_folder with a value", "add_mount", ["-create_folder", "no", "-vn", VOLUME, "-mp", "G"],
     {"mountPoint": "G", "createFolder": 1}),
    ("odd text", "remove_mount", ["-vn", VOLUME, "-mp", "not a path*?"], {"mountPoint": "not a path*?"}),
    ("-create_folder is ignored", "remove_mount", ["-vn", VOLUME, "-mp", "G", "-create_folder"], {"mountPoint": "G"}),
]
# The volume name is read first; a switch absent, without a value or given twice is missing.
USAGE_FAULTS = [("neither -vn nor -mp: the volume name comes first", [], 5623), ("-mp missing", ["-vn", VOLUME], 5602)]
MORE_FAULTS = [("-vn without a value", ["-vn", "-mp", "G"], 5623),
               ("-vn given twice", ["-vn", VOLUME, "-mp", "G", "-vn", VOLUME], 5623),
               ("-mp with two values", ["-vn", VOLUME, "-mp", "G", "H"], 5602)]

CASES = [Case("%s: %s" % (op, name), ["disk", op] + argv, completion(), S_OK, calls=[ADD if op == "add_mount" else REMOVE],
              check=sent(ADD if op == "add_mount" else REMOVE, volumeName=VOLUME, **fields))
         for name, op, argv, fields in RUNS]
for op, method, op_usage, failed, code, text in OPERATIONS:
    CASES += [
        Case("%s: progress events" % op, ["disk", op, "-mp", "G:", "-vn", VOLUME],
             "G:\\ : %s\nG:\\ : \n" % msg(text) + completion(), S_OK,
             scenario=answer(method, events=progress("G:\\", code, 99))),
    ] + refusals(op, ["disk", op, "-vn", "bogus", "-mp", "C:\\not\\empty"], failed, lambda r, m=method: answer(m, **r),
                 calls=[method])
    CASES += usage_faults(op, ["disk", op], op_usage, USAGE_FAULTS + (MORE_FAULTS if method == ADD else []), calls=[],
                          check=SINK_ONLY)

CASES += unreachable("add_mount", "VirtualDiskService", ["disk", "add_mount", "-mp", "G"],
                     ["disk", "add_mount", "-m", "host2", "-vn", VOLUME, "-mp", "G"]) + [
    Case("remove_mount: service absent, switches missing", ["disk", "remove_mount"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, prefix="bare"),
]
