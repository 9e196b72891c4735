"""disk add_mount and remove_mount: the request as typed, the switch checks and the service's refusals."""

from harness import REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg
from cases.lun_common import (LOCAL_MACHINE, MSG_SERVICE_UNAVAILABLE, answer, not_called, progress, refusals, sent,
                        unreachable, usage_faults)

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


def request(method, volume, mount_point, create_folder=0):
    if method == ADD:
        return sent(method, volumeName=volume, mountPoint=mount_point, createFolder=create_folder)
    return sent(method, volumeName=volume, mountPoint=mount_point)


# (operation, method, usage, failure message, progress code and its message)
OPERATIONS = [("add_mount", ADD, ADD_USAGE, 5396, 29, 5042), ("remove_mount", REMOVE, REMOVE_USAGE, 5397, 30, 5054)]
# Neither the volume name nor the mount point is checked here: the service judges them.
MOUNT_POINTS = {"add_mount": [("drive letter", "G"), ("non-ASCII folder", "C:\\Dätä\\東京")],
                "remove_mount": [("odd text", "not a path*?")]}
# The volume name is read first; a switch absent, without a value or given twice is missing.
USAGE_FAULTS = [("neither -vn nor -mp: the volume name comes first", [], 5623), ("-mp missing", ["-vn", VOLUME], 5602)]
MORE_FAULTS = [("-vn without a value", ["-vn", "-mp", "G"], 5623), ("-vn given twice", ["-vn", VOLUME, "-mp", "G", "-vn", VOLUME], 5623),
               ("-mp with two values", ["-vn", VOLUME, "-mp", "G", "H"], 5602)]

CASES = []
for op, method, op_usage, failed, code, text in OPERATIONS:
    CASES += [
        Case("%s: %s" % (op, name), ["disk", op, "-vn", VOLUME, "-mp", mount_point], completion(), S_OK,
             calls=[method], check=request(method, VOLUME, mount_point))
        for name, mount_point in MOUNT_POINTS[op]
    ] + [
        Case("%s: progress events" % op, ["disk", op, "-mp", "G:", "-vn", VOLUME],
             "G:\\ : %s\nG:\\ : \n" % msg(text) + completion(), S_OK,
             scenario=answer(method, events=progress("G:\\", code, 99))),
    ] + refusals(op, ["disk", op, "-vn", "bogus", "-mp", "C:\\not\\empty"], failed, lambda r, m=method: answer(m, **r),
                 calls=[method]) + usage_faults(op, ["disk", op], op_usage, USAGE_FAULTS + (MORE_FAULTS if method == ADD else []),
                                                calls=[], check=SINK_ONLY)

CASES += unreachable("add_mount", "VirtualDiskService", ["disk", "add_mount", "-mp", "G"],
                     ["disk", "add_mount", "-m", "host2", "-vn", VOLUME, "-mp", "G"]) + [
    Case("remove_mount: service absent, switches missing", ["disk", "remove_mount"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, prefix="bare"),
    Case("add_mount: the folder may be created", ["disk", "add_mount", "-vn", VOLUME, "-mp", "C:\\mnt\\new", "-create_folder"],
         completion(), S_OK, calls=[ADD], check=request(ADD, VOLUME, "C:\\mnt\\new", 1)),
    Case("add_mount: -create_folder with a value", ["disk", "add_mount", "-create_folder", "no", "-vn", VOLUME, "-mp", "G"],
         completion(), S_OK, calls=[ADD], check=request(ADD, VOLUME, "G", 1)),
    Case("remove_mount: -create_folder is ignored", ["disk", "remove_mount", "-vn", VOLUME, "-mp", "G", "-create_folder"],
         completion(), S_OK, calls=[REMOVE], check=request(REMOVE, VOLUME, "G")),
]
