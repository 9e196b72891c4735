"""disk add_mount and remove_mount: the request as typed, the switch checks and the service's refusals."""

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_ADD_MOUNT_POINT_FAILED = 5396
MSG_REMOVE_MOUNT_POINT_FAILED = 5397
MSG_USAGE_MOUNT_POINT = 5602
MSG_USAGE_VOLUME_NAME = 5623

E_ACCESSDENIED = 0x80070005
E_INVALID_NAME = 0x8007007B  # the service refuses a mount point it cannot use
E_NOINTERFACE = 0x80004002

LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"
VOLUME_LINE = "<VolumeName> is the Volume Name that the disk list operation prints.\n"
ADD_USAGE = ("cvcli disk add_mount [-m <MachineName>] -vn <VolumeName> -mp <MountPoint> [-create_folder]\n"
             "Adds a mount point (a drive letter or an empty folder) to the volume of a connected LUN.\n" + VOLUME_LINE
             + "-create_folder Creates the folder of the mount point when it does not exist.\n" + LOCAL_MACHINE)
REMOVE_USAGE = ("cvcli disk remove_mount [-m <MachineName>] -vn <VolumeName> -mp <MountPoint>\n"
                "Removes a mount point from the volume of a connected LUN.\n" + VOLUME_LINE + LOCAL_MACHINE)

VOLUME = "\\\\?\\Volume{3f1c2a40-5b6d-4e7f-8a91-b2c3d4e5f601}\\"
ADD = "IVirtualDisk.AddMountPoint"
REMOVE = "IVirtualDisk.RemoveMountPoint"


def usage(message_id, text):
    return "\n%s ...\n\n" % msg(message_id) + text


def answer(method, **response):
    return {"methods": {method: response}}


def sent(method, **expected):
    def check(result):
        requests = [e.get("request", {}) for e in result.events if e.get("event") == "call" and e.get("method") == method]
        assert len(requests) == 1, "%s called %d times" % (method, len(requests))
        assert requests[0] == expected, "request %r, expected %r" % (requests[0], expected)
    return check


def created_sink(result):
    """The object is created and its sink connected even when the switches are then refused."""
    assert result.created() == ["VirtualDiskService"], "created %r" % result.created()
    advises = [e for e in result.events if e.get("event") == "advise"]
    assert len(advises) == 1, "advises %r" % advises


# (operation, method, usage, failure message)
OPERATIONS = [("add_mount", ADD, ADD_USAGE, MSG_ADD_MOUNT_POINT_FAILED),
              ("remove_mount", REMOVE, REMOVE_USAGE, MSG_REMOVE_MOUNT_POINT_FAILED)]

# Neither the volume name nor the mount point is checked here: the service judges them.
MOUNT_POINTS = [("drive letter", "G"), ("drive with colon", "G:"), ("drive root", "G:\\"),
                ("folder without backslash", "C:\\mnt\\db"), ("non-ASCII folder", "C:\\Dätä\\東京"),
                ("odd text", "not a path*?")]


def request(method, volume, mount_point, create_folder=0):
    if method == ADD:
        return sent(method, volumeName=volume, mountPoint=mount_point, createFolder=create_folder)
    return sent(method, volumeName=volume, mountPoint=mount_point)


CASES = []
for op, method, op_usage, failed in OPERATIONS:
    CASES += [
        Case("%s: %s" % (op, name), ["disk", op, "-vn", VOLUME, "-mp", mount_point], completion(), S_OK,
             calls=[method], check=request(method, VOLUME, mount_point))
        for name, mount_point in MOUNT_POINTS
    ] + [
        Case("%s: progress events" % op, ["disk", op, "-mp", "G:", "-vn", VOLUME],
             "G:\\ : %s\nG:\\ : \n" % msg(5042 if method == ADD else 5054) + completion(), S_OK,
             scenario=answer(method, events=[{"event": "ProgressMessage", "subject": "G:\\", "code": 29 if method == ADD else 30},
                                             {"event": "ProgressMessage", "subject": "G:\\", "code": 99}])),
        Case("%s: refused with an explanation" % op, ["disk", op, "-vn", VOLUME, "-mp", "C:\\not\\empty"],
             alert(failed, E_INVALID_NAME, description="The folder is not empty."), E_INVALID_NAME,
             scenario=answer(method, result=hex(E_INVALID_NAME), errorDescription="The folder is not empty."),
             calls=[method]),
        Case("%s: refused without an explanation" % op, ["disk", op, "-vn", "bogus", "-mp", "G"],
             alert(failed, E_ACCESSDENIED), E_ACCESSDENIED, scenario=answer(method, result=hex(E_ACCESSDENIED)),
             calls=[method], check=request(method, "bogus", "G")),
        Case("%s: S_FALSE is a failure" % op, ["disk", op, "-vn", VOLUME, "-mp", "G"], alert(failed, 1), 1,
             scenario=answer(method, result=1)),
        # The service is reached before the switches are read.
        Case("%s: service absent, switches missing" % op, ["disk", op],
             alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, prefix="bare"),
        Case("%s: service refuses the creation, switches missing" % op, ["disk", op, "-mp", "G"],
             alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED), E_ACCESSDENIED,
             scenario={"classes": {"VirtualDiskService": {"createResult": hex(E_ACCESSDENIED)}}}),
        Case("%s: another machine" % op, ["disk", op, "-m", "host2", "-vn", VOLUME, "-mp", "G"],
             alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, calls=[]),
    ] + [
        Case("%s: %s" % (op, name), ["disk", op] + argv, usage(message, op_usage), E_INVALIDARG, calls=[],
             check=created_sink)
        for name, argv, message in [
            ("neither -vn nor -mp: the volume name comes first", [], MSG_USAGE_VOLUME_NAME),
            ("-vn missing", ["-mp", "G"], MSG_USAGE_VOLUME_NAME),
            ("-vn without a value", ["-vn", "-mp", "G"], MSG_USAGE_VOLUME_NAME),
            ("-vn given twice", ["-vn", VOLUME, "-mp", "G", "-vn", VOLUME], MSG_USAGE_VOLUME_NAME),
            ("-VN is not -vn", ["-VN", VOLUME, "-mp", "G"], MSG_USAGE_VOLUME_NAME),
            ("-mp missing", ["-vn", VOLUME], MSG_USAGE_MOUNT_POINT),
            ("-mp with two values", ["-vn", VOLUME, "-mp", "G", "H"], MSG_USAGE_MOUNT_POINT),
            ("-mp without a value", ["-vn", VOLUME, "-mp"], MSG_USAGE_MOUNT_POINT),
            ("-d is not -mp", ["-vn", VOLUME, "-d", "G"], MSG_USAGE_MOUNT_POINT),
        ]
    ]

CASES += [
    Case("add_mount: the folder may be created", ["disk", "add_mount", "-vn", VOLUME, "-mp", "C:\\mnt\\new", "-create_folder"],
         completion(), S_OK, calls=[ADD], check=request(ADD, VOLUME, "C:\\mnt\\new", 1)),
    Case("add_mount: -create_folder with a value", ["disk", "add_mount", "-create_folder", "no", "-vn", VOLUME, "-mp", "G"],
         completion(), S_OK, calls=[ADD], check=request(ADD, VOLUME, "G", 1)),
    Case("remove_mount: -create_folder is ignored", ["disk", "remove_mount", "-vn", VOLUME, "-mp", "G", "-create_folder"],
         completion(), S_OK, calls=[REMOVE], check=request(REMOVE, VOLUME, "G")),
]
