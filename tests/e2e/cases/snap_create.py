"""snap create: the request sent, the mirror update flag, the sink's lines, usage and name checks, failures."""

from cases.lun_common import WAIT, answer, lacking, local, not_called, progress, refusals, unreachable, usage_faults
from harness import E_INVALIDARG, S_OK, Case, completion, msg

MSG_INVALID_SNAPSHOT_NAME = 5204
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


def ready(name):
    return {"event": "ReadyToCreate", "name": name}


EVENTS = progress("E:\\", 1, 3) + [ready("nightly")] + progress("nightly", 5, 6) + progress("E:\\", 7)
EVENT_LINES = "E:\\ : %s\nE:\\ : %s\nnightly : Ready to create snapshot copy\nnightly : %s\nnightly : %s\nE:\\ : %s\n" % (
    msg(5012), msg(5014), msg(5016), msg(5032), msg(5017))


def sent(drives, name="nightly", all_luns=True, update=True):
    """The one request that reached the service, field by field; the sink was given back."""

    def check(result):
        assert result.calls() == [CREATE], "calls %r" % result.calls()
        request = [e for e in result.events if e.get("event") == "call"][0]["request"]
        assert request["snapshotName"] == name, "name %r" % request["snapshotName"]
        assert bool(request["updateMirror"]) == update and request["updateMirror"] in (0, 1), request["updateMirror"]
        record = request["request"]
        assert not record["bReserved"] and bool(record["bAllLunsOnVolumes"]) == all_luns, record
        assert [d["wszDrive"] for d in record["pDrives"]] == drives, record["pDrives"]
        assert all(d["reserved"] == 0 for d in record["pDrives"]), record["pDrives"]
        advises = [e.get("interface") for e in result.events if e.get("event") == "advise"]
        unadvises = [e for e in result.events if e.get("event") == "unadvise"]
        assert advises == ["_ISnapShotEvents"] and len(unadvises) == 1, "advise %r unadvise %r" % (advises, unadvises)

    return check


NO_CALL = not_called("SnapShotService", ["_ISnapShotEvents"])
OK = WAIT + completion()
BASE = ["snap", "create", "-s", "nightly", "-D", "E"]
# -u switches the update off only with one value that reads "no" in any case.
UPDATE_FLAGS = [("absent", [], True), ("no", ["-u", "no"], False), ("nO", ["-u", "nO"], False), ("yes", ["-u", "yes"], True),
                ("without a value", ["-u"], True), ("two values", ["-u", "no", "no"], True), ("empty", ["-u", ""], True)]
MANY = ["%s:\\mnt\\lun%03d" % ("EFGH"[i % 4], i) for i in range(300)]
# The name's characters are not checked beyond the forbidden ones.
NAMES = [("backslash and slash pass", "a\\b/c"), ("empty name passes", ""), ("long name", "n" * 5000)]
USAGE_FAULTS = [("nothing given: the name first", [], 5600), ("-s missing", ["-D", "E"], 5600),
                ("-s without a value", ["-s", "-D", "E"], 5600), ("-s given twice", ["-s", "a", "-D", "E", "-s", "b"], 5600),
                ("-D missing", ["-s", "nightly"], 5602), ("-D without a value", ["-s", "nightly", "-D"], 5602)]

CASES = [
    # Main path: the waiting line, then what the sink prints while the call runs.
    Case("one drive, sink lines", BASE, WAIT + EVENT_LINES + completion(), S_OK, scenario=answer(CREATE, events=EVENTS),
         check=sent(["E"])),
    Case("-x: only the listed LUNs", BASE + ["-x"], OK, S_OK, check=sent(["E"], all_luns=False)),
    *[Case("-u " + label, BASE + extra, OK, S_OK, check=sent(["E"], update=update))
      for label, extra, update in UPDATE_FLAGS],
    Case("mount points as typed, in order, duplicates kept, -D twice",
         ["snap", "create", "-D", "E", "F:", "C:\\mnt\\data", "-s", "nightly", "-D", "E", "G:\\", "C:\\mnt\\logs\\"], OK,
         S_OK, check=sent(["E", "F:", "C:\\mnt\\data", "E", "G:\\", "C:\\mnt\\logs\\"])),
    Case("many mount points", ["snap", "create", "-s", "nightly", "-D"] + MANY, OK, S_OK, check=sent(MANY)),
    Case("non-ASCII name and mount points", ["snap", "create", "-s", "nächtlich-快照", "-D", "Ö:", "C:\\Dätä\\東京"],
         WAIT + "C:\\Dätä\\東京 : %s\nnächtlich-快照 : Ready to create snapshot copy\n" % msg(5014) + completion(),
         S_OK,
         scenario=answer(CREATE, events=progress("C:\\Dätä\\東京", 3) + [ready("nächtlich-快照")]),
         check=sent(["Ö:", "C:\\Dätä\\東京"], name="nächtlich-快照")),
    *[Case(label, ["snap", "create", "-s", name, "-D", "E"], OK, S_OK, check=sent(["E"], name=name))
      for label, name in NAMES],
    Case("unknown event code and a nameless ready event", BASE, WAIT + "E : \n : Ready to create snapshot copy\n"
         + completion(), S_OK, scenario=answer(CREATE, events=progress("E", 99) + [{"event": "ReadyToCreate"}])),
    # The name's characters are checked before anything reaches the service, and before the list.
    *[Case("name with %s" % c, ["snap", "create", "-s", "a%sb" % c, "-D", "E"], local(MSG_INVALID_SNAPSHOT_NAME),
           E_INVALIDARG, check=NO_CALL) for c in "*:?\"<>|"],
    Case("name checked before the list", ["snap", "create", "-s", "a:b"], local(MSG_INVALID_SNAPSHOT_NAME), E_INVALIDARG,
         check=NO_CALL),
    Case("-m without a value creates locally", BASE + ["-m"], OK, S_OK, check=sent(["E"])),
    lacking("create", BASE, "SnapShotService", "ISnapShotCreate"),
    # The service refuses: what was printed stays, then the failure.
    *refusals("create", BASE, 5109, lambda r: answer(CREATE, events=progress("E:\\", 1), **r), before=WAIT
              + "E:\\ : %s\n" % msg(5012)),
    *usage_faults("create", ["snap", "create"], USAGE, USAGE_FAULTS, check=NO_CALL),
    # The service is reached before the switches are read.
    *unreachable("create", "SnapShotService", ["snap", "create"], BASE + ["-m", "filer-host"]),
]
