"""snap mount (both forms) and snap unmount: requests, progress and mirror lines, usage faults, failures."""

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_MOUNT_FAILED = 5353
MSG_UNMOUNT_FAILED = 5354
E_NOINTERFACE = 0x80004002
E_ACCESSDENIED = 0x80070005
LUN_IN_USE = 0xC0040411

# The waiting message is printed as a local error: FormatMessageW ends its line with CR LF.
WAIT = msg(5120).replace("\n", "\r\n")
LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"

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


def usage(message_id, text):
    return "\n%s ...\n\n" % msg(message_id) + text


MOUNT = "ISnapShotMount.MountSnapshot"
MOUNT_OLD = "ISnapShotInfo.MountSnapshotOld"
UNMOUNT = "ISnapShotManage.UnmountSnapshot"
UNMOUNT_FORCED = "ISnapShotManage.UnmountSnapshotForced"

BASE = ["snap", "mount", "-r", "HOST1", "-k", "E", "-s", "nightly.1", "-d", "G"]


def mount_request(**fields):
    request = {"liveMachine": "HOST1", "liveMountPoint": "E", "snapshotName": "nightly.1", "mountPoint": "G",
               "tryDrive": 0, "reflexaDestination": 0, "storageSystem": None, "volume": None, "number": 0}
    request.update(fields)
    return request


def sent(method, request, sinks):
    """The one call that reached the service, its request, and the event interfaces advised (and given back)."""
    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        assert [c["method"] for c in calls] == [method], "calls %r" % result.calls()
        assert calls[0]["request"] == request, "request %r" % calls[0]["request"]
        advised = sorted(e["interface"] for e in result.events if e.get("event") == "advise")
        unadvised = sorted(e["interface"] for e in result.events if e.get("event") == "unadvise")
        assert advised == sorted(sinks) and unadvised == advised, "advised %r unadvised %r" % (advised, unadvised)
    return check


BOTH_SINKS = ["_ISnapShotEvents", "_ISnapShotEvents2"]
FIRST_SINK = ["_ISnapShotEvents"]


def not_called(result):
    """The service object was created (before the switches were checked) and nothing was asked of it."""
    assert result.created() == ["SnapShotService"], "created %r" % result.created()
    assert result.calls() == [], "calls %r" % result.calls()


def created_nothing(result):
    """A remote creation never falls back to the local service."""
    assert result.created() == [], "created %r" % result.created()


def answer(method, **response):
    return {"methods": {method: response}}


def progress(subject, code):
    return {"event": "ProgressMessage", "subject": subject, "code": code}


def mirror(state, name="nightly.1", drive="G:\\", text="sql_data", **extra):
    event = {"event": "MirrorProgress", "name": name, "drive": drive, "text": text, "mirrorState": state}
    event.update(extra)
    return event


def mirror_line(status, name="nightly.1", drive="G:\\", text="sql_data"):
    return "\n%s : Mounting snapshot copy %s Drive %s- Status %s" % (name, text, drive, status)


DEMO_EVENTS = [progress("nightly.1", 14), mirror(33), mirror(35, countValid=1, transferred=524288), mirror(34),
               progress("nightly.1", 15)]
DEMO_OUTPUT = (WAIT + "nightly.1 : %s\n" % msg(5024) + mirror_line("MIRROR START")
               + mirror_line("MIRROR REPLICATE transferred 524288") + mirror_line("MIRROR END\n")
               + "nightly.1 : %s\n" % msg(5025))

# (name, extra switches, request fields that change)
MOUNT_SWITCHES = [
    ("every volume switch", ["-smdest", "-trydrive", "-sdf", "filer-dr", "-sdv", "sql_data_mirror", "-int", "42"],
     {"tryDrive": 1, "reflexaDestination": 1, "storageSystem": "filer-dr", "volume": "sql_data_mirror", "number": 42}),
    ("-smdest alone: first available destination", ["-smdest"], {"reflexaDestination": 1}),
    ("-trydrive alone", ["-trydrive"], {"tryDrive": 1}),
    ("only -sdf goes with a null volume", ["-sdf", "filer-east"], {"storageSystem": "filer-east"}),
    ("only -sdv goes with a null storage system", ["-sdv", "sql_data"], {"volume": "sql_data"}),
    ("-sdf with two values is null", ["-sdf", "a", "b", "-sdv", "v"], {"volume": "v"}),
    ("-int abc sends 0", ["-int", "abc"], {}),
    ("-int reads its leading digits", ["-int", "12abc"], {"number": 12}),
    ("-int with a plus sign", ["-int", "+17"], {"number": 17}),
    ("-int without a value sends 0", ["-int"], {}),
    ("-int with two values sends 0", ["-int", "3", "4"], {}),
    ("-int beyond 32 bits saturates", ["-int", "99999999999"], {"number": 2147483647}),
    ("-int at the 32-bit limit", ["-int", "2147483647"], {"number": 2147483647}),
    ("-int 0", ["-int", "0"], {}),
    ("-int after a blank may be negative", ["-int", " -5"], {"number": -5}),
    ("-int below 32 bits saturates", ["-int", " -2147483649"], {"number": -2147483648}),
]

# (name, argv change, request fields that change)
MOUNT_NAMES = [
    ("no -r sends the empty live machine", ["snap", "mount", "-k", "E", "-s", "nightly.1", "-d", "G"],
     {"liveMachine": ""}),
    ("-r with two values sends the empty live machine", BASE + ["-r", "HOST2"], {"liveMachine": ""}),
    ("-d E: is the drive letter", BASE[:-1] + ["E:"], {"mountPoint": "E"}),
    ("-d folder gets its backslash", BASE[:-1] + ["C:\\mnt\\snap"], {"mountPoint": "C:\\mnt\\snap\\"}),
    ("-d folder with its backslash is kept", BASE[:-1] + ["C:\\mnt\\"], {"mountPoint": "C:\\mnt\\"}),
    ("-k is sent as typed", ["snap", "mount", "-r", "HOST1", "-k", "C:\\mnt\\db", "-s", "nightly.1", "-d", "G"],
     {"liveMountPoint": "C:\\mnt\\db"}),
    ("non-ASCII snapshot name and mount points",
     ["snap", "mount", "-r", "hôte-東京", "-k", "C:\\Dätä", "-s", "Sicherung-Ü.東", "-d", "C:\\снимок\\點"],
     {"liveMachine": "hôte-東京", "liveMountPoint": "C:\\Dätä", "snapshotName": "Sicherung-Ü.東",
      "mountPoint": "C:\\снимок\\點\\"}),
]

# (name, argv, message id)
MOUNT_USAGE_FAULTS = [
    ("-s missing", ["snap", "mount", "-k", "E", "-d", "G"], 5600),
    ("-s twice", ["snap", "mount", "-k", "E", "-s", "a", "-d", "G", "-s", "b"], 5600),
    ("-s without a value", ["snap", "mount", "-k", "E", "-d", "G", "-s"], 5600),
    ("-S is not -s", ["snap", "mount", "-k", "E", "-S", "a", "-d", "G"], 5600),
    ("everything missing: -s first", ["snap", "mount"], 5600),
    ("-d missing", ["snap", "mount", "-k", "E", "-s", "a"], 5602),
    ("-d twice", ["snap", "mount", "-k", "E", "-s", "a", "-d", "G", "-d", "H"], 5602),
    ("-d with two values", ["snap", "mount", "-k", "E", "-s", "a", "-d", "G", "H"], 5602),
    ("-k missing", ["snap", "mount", "-s", "a", "-d", "G"], 5604),
    ("-k twice", ["snap", "mount", "-k", "E", "-s", "a", "-d", "G", "-k", "F"], 5604),
    ("-k without a value", ["snap", "mount", "-s", "a", "-d", "G", "-k"], 5604),
]

MIRROR_STATES = [
    ("replicate with nothing transferred", mirror(35, countValid=1, transferred=0), "MIRROR REPLICATE"),
    ("replicate with an invalid count", mirror(35, countValid=0, transferred=5), "MIRROR REPLICATE"),
    ("replicate prints the low 32 bits", mirror(35, countValid=1, transferred=0x100000400),
     "MIRROR REPLICATE transferred 1024"),
    ("user cancelled", mirror(36), "USER CANCELLED"),
    ("unknown state prints nothing after the status", mirror(37), ""),
    ("non-ASCII names", mirror(33, name="Sicherung-Ü", drive="C:\\снимок\\", text="vol_東"),
     None),
]


def mirror_case(name, event, status):
    expected = (mirror_line("MIRROR START", name="Sicherung-Ü", drive="C:\\снимок\\", text="vol_東") if status is None
                else mirror_line(status))
    return Case("mount: mirror line, " + name, BASE, WAIT + expected + completion(), S_OK,
                scenario=answer(MOUNT, events=[event]), check=sent(MOUNT, mount_request(), BOTH_SINKS))


CASES = (
    [
        Case("mount: demo run with progress and mirror lines", BASE, DEMO_OUTPUT + completion(), S_OK,
             scenario=answer(MOUNT, events=DEMO_EVENTS), check=sent(MOUNT, mount_request(), BOTH_SINKS)),
        Case("mount: from the demo scenario", BASE, DEMO_OUTPUT + completion(), S_OK,
             scenario="simulator/scenarios/demo.json", calls=[MOUNT]),
        Case("mount: no events", BASE, WAIT + completion(), S_OK, check=sent(MOUNT, mount_request(), BOTH_SINKS)),
    ]
    + [Case("mount: " + name, BASE + extra, WAIT + completion(), S_OK, check=sent(MOUNT, mount_request(**fields), BOTH_SINKS))
       for name, extra, fields in MOUNT_SWITCHES]
    + [Case("mount: " + name, argv, WAIT + completion(), S_OK, check=sent(MOUNT, mount_request(**fields), BOTH_SINKS))
       for name, argv, fields in MOUNT_NAMES]
    + [mirror_case(name, event, status) for name, event, status in MIRROR_STATES]
    + [Case("mount: " + name, argv, usage(message, MOUNT_USAGE), E_INVALIDARG, check=not_called)
       for name, argv, message in MOUNT_USAGE_FAULTS]
    + [Case("mount -old: " + name, argv + ["-old"], usage(message, MOUNT_USAGE), E_INVALIDARG, check=not_called)
       for name, argv, message in MOUNT_USAGE_FAULTS]
    + [
        # The older operation
        Case("mount -old ignores the volume switches", BASE + ["-old", "-smdest", "-trydrive", "-sdf", "f", "-sdv", "v",
                                                               "-int", "5"],
             WAIT + "nightly.1 : %s\n" % msg(5024) + completion(), S_OK,
             scenario=answer(MOUNT_OLD, events=[progress("nightly.1", 14), mirror(33)]),
             check=sent(MOUNT_OLD, {"liveMachine": "HOST1", "liveMountPoint": "E", "snapshotName": "nightly.1",
                                    "mountPoint": "G", "reserved": 0}, FIRST_SINK)),
        Case("mount -old without -r, folder mount point", ["snap", "mount", "-old", "-k", "E", "-s", "n", "-d", "C:\\m"],
             WAIT + completion(), S_OK,
             check=sent(MOUNT_OLD, {"liveMachine": "", "liveMountPoint": "E", "snapshotName": "n", "mountPoint": "C:\\m\\",
                                    "reserved": 0}, FIRST_SINK)),
        Case("mount -old needs no ISnapShotMount", BASE + ["-old"], WAIT + completion(), S_OK,
             scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotMount"]}}}, calls=[MOUNT_OLD]),
        Case("mount -old refused", BASE + ["-old"],
             WAIT + "nightly.1 : %s\n" % msg(5024) + alert(MSG_MOUNT_FAILED, LUN_IN_USE, description="no free drive"),
             LUN_IN_USE, scenario=answer(MOUNT_OLD, result=hex(LUN_IN_USE), errorDescription="no free drive",
                                         events=[progress("nightly.1", 14)]), calls=[MOUNT_OLD]),
        Case("mount -old refused without an explanation", BASE + ["-old"], WAIT + alert(MSG_MOUNT_FAILED, E_ACCESSDENIED),
             E_ACCESSDENIED, scenario=answer(MOUNT_OLD, result=hex(E_ACCESSDENIED)), calls=[MOUNT_OLD]),
        Case("mount -old: the class lacks ISnapShotInfo", BASE + ["-old"], alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE),
             E_NOINTERFACE, scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotInfo"]}}}),
        # Failures of the normal operation
        Case("mount refused with an explanation, earlier lines stay", BASE,
             WAIT + "nightly.1 : %s\n" % msg(5024) + mirror_line("MIRROR START")
             + alert(MSG_MOUNT_FAILED, LUN_IN_USE, description="Snapshot copy is busy"), LUN_IN_USE,
             scenario=answer(MOUNT, result=hex(LUN_IN_USE), errorDescription="Snapshot copy is busy",
                             events=[progress("nightly.1", 14), mirror(33)]),
             check=sent(MOUNT, mount_request(), BOTH_SINKS)),
        Case("mount refused without an explanation", BASE, WAIT + alert(MSG_MOUNT_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
             scenario=answer(MOUNT, result=hex(E_ACCESSDENIED)), calls=[MOUNT]),
        Case("mount: S_FALSE is a failure", BASE, WAIT + alert(MSG_MOUNT_FAILED, 1), 1, scenario=answer(MOUNT, result=1)),
        Case("mount: the service is refused before the switches are checked", ["snap", "mount"],
             alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED), E_ACCESSDENIED,
             scenario={"classes": {"SnapShotService": {"createResult": hex(E_ACCESSDENIED)}}}),
        Case("mount: the class lacks ISnapShotMount", BASE, alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE), E_NOINTERFACE,
             scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotMount"]}}}),
        Case("mount on another machine", BASE + ["-m", "host2"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
             REGDB_E_CLASSNOTREG, check=created_nothing),
        # unmount
        Case("unmount: demo run", ["snap", "unmount", "-d", "G"],
             WAIT + "G:\\ : %s\nG:\\ : %s\n" % (msg(5026), msg(5027)) + completion(), S_OK,
             scenario=answer(UNMOUNT, events=[progress("G:\\", 16), progress("G:\\", 17)]),
             check=sent(UNMOUNT, {"mountPoint": "G", "reserved": ""}, FIRST_SINK)),
        Case("unmount: from the demo scenario", ["snap", "unmount", "-d", "G:"],
             WAIT + "G:\\ : %s\nG:\\ : %s\n" % (msg(5026), msg(5027)) + completion(), S_OK,
             scenario="simulator/scenarios/demo.json", calls=[UNMOUNT]),
        Case("unmount -f is forced", ["snap", "unmount", "-d", "G", "-f"], WAIT + completion(), S_OK,
             check=sent(UNMOUNT_FORCED, {"mountPoint": "G", "reserved": ""}, FIRST_SINK)),
        Case("unmount -f with a value is still forced", ["snap", "unmount", "-f", "yes", "-d", "G"], WAIT + completion(),
             S_OK, check=sent(UNMOUNT_FORCED, {"mountPoint": "G", "reserved": ""}, FIRST_SINK)),
        Case("unmount: folder mount point", ["snap", "unmount", "-d", "C:\\mnt\\snap"], WAIT + completion(), S_OK,
             check=sent(UNMOUNT, {"mountPoint": "C:\\mnt\\snap\\", "reserved": ""}, FIRST_SINK)),
        Case("unmount: non-ASCII mount point", ["snap", "unmount", "-d", "C:\\снимок\\Dätä"],
             WAIT + "C:\\снимок\\Dätä\\ : %s\n" % msg(5027) + completion(), S_OK,
             scenario=answer(UNMOUNT, events=[progress("C:\\снимок\\Dätä\\", 17)]),
             check=sent(UNMOUNT, {"mountPoint": "C:\\снимок\\Dätä\\", "reserved": ""}, FIRST_SINK)),
        Case("unmount: -d missing", ["snap", "unmount", "-f"], usage(5602, UNMOUNT_USAGE), E_INVALIDARG, check=not_called),
        Case("unmount: -d twice", ["snap", "unmount", "-d", "G", "-d", "H"], usage(5602, UNMOUNT_USAGE), E_INVALIDARG,
             check=not_called),
        Case("unmount: -d without a value", ["snap", "unmount", "-d"], usage(5602, UNMOUNT_USAGE), E_INVALIDARG,
             check=not_called),
        Case("unmount: -D is not -d", ["snap", "unmount", "-D", "G"], usage(5602, UNMOUNT_USAGE), E_INVALIDARG,
             check=not_called),
        Case("unmount refused with an explanation", ["snap", "unmount", "-d", "G"],
             WAIT + "G:\\ : %s\n" % msg(5026) + alert(MSG_UNMOUNT_FAILED, LUN_IN_USE, description="disk in use"), LUN_IN_USE,
             scenario=answer(UNMOUNT, result=hex(LUN_IN_USE), errorDescription="disk in use",
                             events=[progress("G:\\", 16)]),
             check=sent(UNMOUNT, {"mountPoint": "G", "reserved": ""}, FIRST_SINK)),
        Case("unmount -f refused without an explanation", ["snap", "unmount", "-d", "G", "-f"],
             WAIT + alert(MSG_UNMOUNT_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
             scenario=answer(UNMOUNT_FORCED, result=hex(E_ACCESSDENIED)), calls=[UNMOUNT_FORCED]),
        Case("unmount: the service is refused before -d is checked", ["snap", "unmount"],
             alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED), E_ACCESSDENIED,
             scenario={"classes": {"SnapShotService": {"createResult": hex(E_ACCESSDENIED)}}}),
        Case("unmount on another machine", ["snap", "unmount", "-m", "host2", "-d", "G"],
             alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG),
        # help
        Case("help mount", ["snap", "help", "mount"], MOUNT_USAGE, E_INVALIDARG),
        Case("help unmount", ["snap", "help", "unmount"], UNMOUNT_USAGE, E_INVALIDARG),
    ]
)
