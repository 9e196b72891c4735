"""snap create: the request sent, the mirror update flag, the sink's lines, usage and name checks, failures."""

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_CREATE_SNAPSHOT_FAILED = 5109
MSG_PLEASE_WAIT = 5120
MSG_INVALID_SNAPSHOT_NAME = 5204
MSG_USAGE_SNAPSHOT_NAME = 5600
MSG_USAGE_MOUNT_POINT = 5602
E_ACCESSDENIED = 0x80070005
SNAPSHOT_EXISTS = 0xC00403A2
CREATE = "ISnapShotCreate.CreateSnapshot"

USAGE = (
    "cvcli snap create  [-m <MachineName>] -s <SnapshotName> -D <MountPointList> [...] [-x] [-u [yes|no]]\n"
    "Creates new snapshot copy of the LUNs.\n"
    "-x Snapshot copy will be taken only for the LUNs explicitly specified in the <MountPointList>, otherwise snapshot"
    " copy of all LUNs drives residing on the storage system(s) volume(s) will be taken.\n"
    "-u Initiates reflexa update after snapshot copy creation for any reflexa source volumes having disks specified in"
    " the <MountPointList>. If this key is not specified reflexa update will be initiated.\n"
    "If the machine name is not specified the command is executed on a local machine.\n"
)


def local(message_id):
    """A local-error text as printed: FormatMessageW turns its line ends into CR LF."""
    return msg(message_id).replace("\n", "\r\n")


WAIT = local(MSG_PLEASE_WAIT)


def usage(message_id):
    return "\n%s ...\n\n" % msg(message_id) + USAGE


def progress(subject, code):
    return {"event": "ProgressMessage", "subject": subject, "code": code}


def ready(name):
    return {"event": "ReadyToCreate", "name": name}


EVENTS = [progress("E:\\", 1), progress("E:\\", 3), ready("nightly"), progress("nightly", 5), progress("nightly", 6),
          progress("E:\\", 7)]
EVENT_LINES = "E:\\ : %s\nE:\\ : %s\nnightly : Ready to create snapshot copy\nnightly : %s\nnightly : %s\nE:\\ : %s\n" % (
    msg(5012), msg(5014), msg(5016), msg(5032), msg(5017))


def answer(**response):
    return {"methods": {CREATE: response}}


def sent(drives, name="nightly", all_luns=True, update=True):
    """The one request that reached the service, field by field; the sink was given back."""

    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        assert [c.get("method") for c in calls] == [CREATE], "calls %r" % [c.get("method") for c in calls]
        request = calls[0]["request"]
        assert request["snapshotName"] == name, "name %r" % request["snapshotName"]
        assert bool(request["updateMirror"]) == update and request["updateMirror"] in (0, 1), request["updateMirror"]
        record = request["request"]
        assert not record["bReserved"], record
        assert bool(record["bAllLunsOnVolumes"]) == all_luns, record
        assert [d["wszDrive"] for d in record["pDrives"]] == drives, record["pDrives"]
        assert all(d["reserved"] == 0 for d in record["pDrives"]), record["pDrives"]
        advised(1)(result)

    return check


def advised(count):
    def check(result):
        advises = [e for e in result.events if e.get("event") == "advise"]
        unadvises = [e for e in result.events if e.get("event") == "unadvise"]
        assert len(advises) == count and len(unadvises) == count, "advise %r unadvise %r" % (advises, unadvises)
        assert all(a.get("interface") == "_ISnapShotEvents" for a in advises), advises

    return check


def no_call(result):
    """Refused before the service was asked anything; its object and sink were given back."""
    assert result.calls() == [], "calls %r" % result.calls()
    advised(1)(result)


def created_nothing(result):
    assert result.created() == [], "created %r" % result.created()


OK = WAIT + completion()
BASE = ["snap", "create", "-s", "nightly", "-D", "E"]
FORBIDDEN = ["*", ":", "?", '"', "<", ">", "|"]
# -u switches the update off only with one value that reads "no" in any case.
UPDATE_FLAGS = [
    ("absent", [], True),
    ("no", ["-u", "no"], False),
    ("NO", ["-u", "NO"], False),
    ("No", ["-u", "No"], False),
    ("nO", ["-u", "nO"], False),
    ("yes", ["-u", "yes"], True),
    ("false", ["-u", "false"], True),
    ("0", ["-u", "0"], True),
    ("without a value", ["-u"], True),
    ("two values", ["-u", "no", "no"], True),
    ("none", ["-u", "none"], True),
    ("empty", ["-u", ""], True),
]
MANY = ["%s:\\mnt\\lun%03d" % ("EFGH"[i % 4], i) for i in range(300)]

CASES = [
    # Main paths: the waiting line, then what the sink prints while the call runs.
    Case("one drive, sink lines", BASE, WAIT + EVENT_LINES + completion(), S_OK, scenario=answer(events=EVENTS),
         calls=[CREATE], check=sent(["E"])),
    Case("demo scenario", ["snap", "create", "-s", "nightly.3", "-D", "E:\\"],
         WAIT + "E:\\ : %s\nE:\\ : %s\nE:\\ : %s\nnightly.3 : Ready to create snapshot copy\nnightly.3 : %s\n"
         "nightly.3 : %s\nE:\\ : %s\n" % (msg(5012), msg(5013), msg(5014), msg(5016), msg(5032), msg(5017))
         + completion(), S_OK, scenario="simulator/scenarios/demo.json", check=sent(["E:\\"], name="nightly.3")),
    Case("no events: the waiting line alone", BASE, OK, S_OK, check=sent(["E"])),
    Case("-x: only the listed LUNs", BASE + ["-x"], OK, S_OK, check=sent(["E"], all_luns=False)),
    *[Case("-u " + label, BASE + extra, OK, S_OK, check=sent(["E"], update=update))
      for label, extra, update in UPDATE_FLAGS],
    Case("mount points as typed, in order, duplicates kept",
         ["snap", "create", "-s", "nightly", "-D", "E", "F:", "C:\\mnt\\data", "E", "G:\\", "C:\\mnt\\logs\\"], OK, S_OK,
         check=sent(["E", "F:", "C:\\mnt\\data", "E", "G:\\", "C:\\mnt\\logs\\"])),
    Case("-D given twice: both lists", ["snap", "create", "-D", "E", "-s", "nightly", "-D", "F"], OK, S_OK,
         check=sent(["E", "F"])),
    Case("many mount points", ["snap", "create", "-s", "nightly", "-D"] + MANY, OK, S_OK, check=sent(MANY)),
    Case("non-ASCII name and mount points", ["snap", "create", "-s", "nächtlich-快照", "-D", "Ö:", "C:\\Dätä\\東京"],
         WAIT + "C:\\Dätä\\東京 : %s\nnächtlich-快照 : Ready to create snapshot copy\n" % msg(5014) + completion(), S_OK,
         scenario=answer(events=[progress("C:\\Dätä\\東京", 3), ready("nächtlich-快照")]),
         check=sent(["Ö:", "C:\\Dätä\\東京"], name="nächtlich-快照")),
    Case("backslash and slash pass", ["snap", "create", "-s", "a\\b/c", "-D", "E"], OK, S_OK, check=sent(["E"], name="a\\b/c")),
    Case("blanks and other characters pass", ["snap", "create", "-s", "pre upgrade#1%s", "-D", "E"], OK, S_OK,
         check=sent(["E"], name="pre upgrade#1%s")),
    Case("empty name passes", ["snap", "create", "-s", "", "-D", "E"], OK, S_OK, check=sent(["E"], name="")),
    Case("long name", ["snap", "create", "-s", "n" * 5000, "-D", "E"], OK, S_OK, check=sent(["E"], name="n" * 5000)),
    Case("unknown event code and a nameless ready event", BASE, WAIT + "E : \n : Ready to create snapshot copy\n"
         + completion(), S_OK, scenario=answer(events=[progress("E", 99), {"event": "ReadyToCreate"}])),
    # The name's characters are checked before anything reaches the service.
    *[Case("name with %s" % c, ["snap", "create", "-s", "a%sb" % c, "-D", "E"], local(MSG_INVALID_SNAPSHOT_NAME),
           E_INVALIDARG, check=no_call) for c in FORBIDDEN],
    Case("name checked before the list", ["snap", "create", "-s", "a:b"], local(MSG_INVALID_SNAPSHOT_NAME), E_INVALIDARG,
         check=no_call),
    # Missing or repeated switches: the usage, no request.
    Case("-s missing", ["snap", "create", "-D", "E"], usage(MSG_USAGE_SNAPSHOT_NAME), E_INVALIDARG, check=no_call),
    Case("-s without a value", ["snap", "create", "-s", "-D", "E"], usage(MSG_USAGE_SNAPSHOT_NAME), E_INVALIDARG,
         check=no_call),
    Case("-s given twice", ["snap", "create", "-s", "a", "-D", "E", "-s", "b"], usage(MSG_USAGE_SNAPSHOT_NAME),
         E_INVALIDARG, check=no_call),
    Case("-S is not -s", ["snap", "create", "-S", "nightly", "-D", "E"], usage(MSG_USAGE_SNAPSHOT_NAME), E_INVALIDARG,
         check=no_call),
    Case("nothing given: the name first", ["snap", "create"], usage(MSG_USAGE_SNAPSHOT_NAME), E_INVALIDARG, check=no_call),
    Case("-D missing", ["snap", "create", "-s", "nightly"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG, check=no_call),
    Case("-D without a value", ["snap", "create", "-s", "nightly", "-D"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG,
         check=no_call),
    Case("-x without a list", ["snap", "create", "-s", "nightly", "-x"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG,
         check=no_call),
    Case("-d is not -D", ["snap", "create", "-s", "nightly", "-d", "E"], usage(MSG_USAGE_MOUNT_POINT), E_INVALIDARG,
         check=no_call),
    # The service refuses: what was printed stays, then the failure.
    Case("refused with the service's explanation", BASE,
         WAIT + "E:\\ : %s\n" % msg(5012) + alert(MSG_CREATE_SNAPSHOT_FAILED, SNAPSHOT_EXISTS,
                                                  description="A snapshot copy named nightly exists."),
         SNAPSHOT_EXISTS, scenario=answer(result=hex(SNAPSHOT_EXISTS), events=[progress("E:\\", 1)],
                                          errorDescription="A snapshot copy named nightly exists."),
         check=sent(["E"])),
    Case("refused without an explanation", BASE, WAIT + alert(MSG_CREATE_SNAPSHOT_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=answer(result=hex(E_ACCESSDENIED)), check=sent(["E"])),
    Case("S_FALSE is a failure", BASE, WAIT + alert(MSG_CREATE_SNAPSHOT_FAILED, 1), 1, scenario=answer(result=1),
         check=sent(["E"])),
    # The service is reached before the switches are read.
    Case("service refused before the switches", ["snap", "create"], alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario={"classes": {"SnapShotService": {"createResult": hex(E_ACCESSDENIED)}}}),
    Case("service without the interface", BASE, alert(MSG_SERVICE_UNAVAILABLE, 0x80004002), 0x80004002,
         scenario={"classes": {"SnapShotService": {"missingInterfaces": ["ISnapShotCreate"]}}}),
    Case("-m with a name creates remotely", BASE + ["-m", "filer-host"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, check=created_nothing),
    Case("-m without a value creates locally", BASE + ["-m"], OK, S_OK, check=sent(["E"])),
    Case("service absent", BASE, alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, prefix="bare"),
]
