"""disk list: both listings, the initiator of each LUN, failures, creation on another machine, progress events."""

from harness import REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg
from cases.lun_common import E_ACCESSDENIED, E_NOINTERFACE, MSG_SERVICE_UNAVAILABLE, created_nothing

MSG_LIST_DISKS_FAILED = 5362
LUN_BUSY = 0xC00402A1

OLDER_SERVICE = {"VirtualDiskService": {"missingInterfaces": ["IVirtualDisk2"]}}
NO_LUNS = "Either no LUNs exist or Corvane could not detect any LUNs\n"


def disk(**fields):
    """A LUN record with every field set; keyword arguments override."""
    record = {"dwType": 1, "dwPartitionStyle": 2, "wszUncPath": "\\\\filer1\\lunshare\\db.lun", "wszStorageSystem": "filer1",
              "wszStorageSystemPath": "/vol/vol1/db", "wszVolumeName": "\\\\?\\Volume{aa}\\", "szSerialNumber": "C4e6SJ",
              "bBackedBySnapshot": True, "wszSnapshotName": "nightly", "bShared": True, "bReflexaSource": True,
              "bArkholdPrimary": True, "bBootOrSystemDisk": True, "bySCSIPort": 2, "byBus": 1, "byTarget": 3, "byLun": 4,
              "bReadOnly": True, "llSize": 5368709120, "dwDiskId": 7, "dwCloneSplitPercent": "0xFFFFFFFF",
              "pwszMountPoints": ["E", "F:\\mnt\\db"], "pwszIpAddresses": ["10.0.0.1", "10.0.0.2"]}
    record.update(fields)
    return record


FULL_HEAD = "UNC Path: \\\\filer1\\lunshare\\db.lun\nLUN Path: filer1:/vol/vol1/db\n\tStorage System:\t\tfiler1\n" \
    "\tStorage System Path:\t/vol/vol1/db\n"
FULL_TAIL = (
    "\tType:\t\t\tlun\n\tDisk serial number:\tC4e6SJ\n\tBacked by Snapshot Copy:\tnightly\n\tShared:\t\t\tYes\n"
    "\tBootOrSystem Disk:\tYes\n\tSCSI port:\t\t2\n\tBus:\t\t\t1\n\tTarget:\t\t\t3\n\tLUN:\t\t\t4\n\tReadonly:\t\tYes\n"
    "\tSize:\t\t\t1073741824\n\tReflexa Source:\tYes\n\tArkhold Primary:\tYes\n"
    "\tDisk Partition Style:\tGUID Partition Table (GPT)\n\tClone Split Restore status: Normal\n\tDiskID:\t\t\t7\n"
    "\tVolume Name:\t\t\\\\?\\Volume{aa}\\\n\tMount points:\t\tE:\\, F:\\mnt\\db\n\tIP Addresses:\t\t10.0.0.1, 10.0.0.2\n"
)
ISCSI = {"initiator": {"dwKind": 1, "wszName": "iqn.1991-05.com.example:host1"}}
ISCSI_LINE = "iSCSI initiator:\tiqn.1991-05.com.example:host1\n"
FCP = {"initiator": {"dwKind": 0, "wszName": "10:00:00:00:c9:2b:5a:01"}}
FCP_LINE = "FCP initiator WWPN:\t10:00:00:00:c9:2b:5a:01\n"

# The smallest record: every pointer null, every number 0.
SPARSE = (
    "UNC Path: None\nLUN Path: (null):(null)\n\tStorage System:\t\t(null)\n\tStorage System Path:\t(null)\n"
    "\tType:\t\t\t(null)\n\tDisk serial number:\t(null)\n\tBacked by Snapshot Copy:\t\n\tShared:\t\t\tNo\n"
    "\tBootOrSystem Disk:\tNo\n\tSCSI port:\t\t0\n\tBus:\t\t\t0\n\tTarget:\t\t\t0\n\tLUN:\t\t\t0\n\tReadonly:\t\tNo\n"
    "\tSize:\t\t\t0\n\tReflexa Source:\tNo\n\tArkhold Primary:\tNo\n\tDisk Partition Style:\tUnknown\n\tDiskID:\t\t\t0\n"
    "\tVolume Name:\t\t(null)\n\tMount points:\t\t\n\tIP Addresses:\t\t\n"
)


def basic(disks, initiators=None, **extra):
    methods = {"IVirtualDisk.EnumerateDisks": {"disks": disks}}
    if initiators is not None:
        methods["IVirtualDisk.GetPortInitiator"] = initiators
    methods.update(extra)
    return {"classes": OLDER_SERVICE, "methods": methods}


def extended(entries, initiators=None):
    methods = {"IVirtualDisk2.EnumerateDisksEx": {"disks": entries}}
    if initiators is not None:
        methods["IVirtualDisk.GetPortInitiator"] = initiators
    return {"methods": methods}


def asked_for_ports(*ports):
    def check(result):
        asked = [e.get("args", e.get("request", {})).get("scsiPort") for e in result.events
                 if e.get("method") == "IVirtualDisk.GetPortInitiator"]
        assert asked == list(ports), "ports asked %r" % asked
    return check


def connected_once(result):
    """The progress sink was advised once and given back."""
    advises = [e for e in result.events if e.get("event") == "advise"]
    unadvises = [e for e in result.events if e.get("event") == "unadvise"]
    assert len(advises) == 1 and len(unadvises) == 1, "advise %r unadvise %r" % (advises, unadvises)


NON_ASCII = "fïler-東京"
LONG_PATH = "/vol/" + "v" * 300 + "/" + "l" * 600

CASES = [
    Case("no LUNs, extended listing", ["disk", "list"], NO_LUNS + completion(), S_OK, scenario=extended([]),
         calls=["IVirtualDisk2.EnumerateDisksEx"], check=connected_once),
    Case("no LUNs, older service", ["disk", "list"], NO_LUNS + completion(), S_OK, scenario=basic([]),
         calls=["IVirtualDisk.EnumerateDisks"], check=connected_once),
    Case("one disk, older service", ["disk", "list"], FULL_HEAD + FULL_TAIL + ISCSI_LINE + completion(), S_OK,
         scenario=basic([disk()], ISCSI), calls=["IVirtualDisk.EnumerateDisks", "IVirtualDisk.GetPortInitiator"],
         check=asked_for_ports(2)),
] + [
    Case(name, ["disk", "list"], FULL_HEAD + "\tHyper-V VHD Present:\t%s\n" % ("Yes" if vhd else "No") + named + FULL_TAIL
         + FCP_LINE + completion(), S_OK,
         scenario=extended([{"pDisk": disk(), "bHyperVVhdPresent": vhd, "pVms": [{"wszVmName": n} for n in vms]}], FCP))
    for name, vhd, vms, named in [
        ("one disk used by two machines", True, ["web-01", "db-01"], "\tHyper-V VMs Name:\tweb-01, db-01\n"),
        ("one disk used by one machine", True, ["web-01"], "\tHyper-V VM Name:\tweb-01\n"),
        ("machines are not named without a VHD", False, ["web-01"], "")]
] + [
    Case("many disks, each with the initiator of its port", ["disk", "list"],
         FULL_HEAD + FULL_TAIL + ISCSI_LINE
         + FULL_HEAD.replace("db", "logs") + FULL_TAIL.replace("\t\t2\n", "\t\t5\n") + FCP_LINE
         + SPARSE
         + FULL_HEAD + FULL_TAIL + ISCSI_LINE + completion(), S_OK,
         scenario=basic([disk(), disk(wszUncPath="\\\\filer1\\lunshare\\logs.lun", wszStorageSystemPath="/vol/vol1/logs",
                                      bySCSIPort=5), {}, disk()], [ISCSI, FCP, ISCSI]),
         # a disk that is no LUN gets no initiator line and no question about its port
         check=asked_for_ports(2, 5, 2)),
    Case("optional fields absent", ["disk", "list"], SPARSE + completion(), S_OK, scenario=basic([{}])),
    Case("field variants", ["disk", "list"],
         "UNC Path: None\n" + FULL_HEAD.split("\n", 1)[1]
         + FULL_TAIL.replace("Backed by Snapshot Copy:\tnightly", "Backed by Snapshot Copy:\t")
                    .replace("1073741824", "5120").replace("GUID Partition Table (GPT)", "Master Boot Record (MBR)")
                    .replace("\tClone Split Restore status: Normal\n", "\tClone Split Restore progress percentage:45 \n")
         + ISCSI_LINE + completion(), S_OK,
         scenario=basic([disk(wszUncPath="x", bBackedBySnapshot=False, llSize=5120, dwPartitionStyle=1,
                              dwCloneSplitPercent=45)], ISCSI)),
    Case("a clone split of 0 prints no line", ["disk", "list"],
         FULL_HEAD + FULL_TAIL.replace("\tClone Split Restore status: Normal\n", "") + ISCSI_LINE + completion(), S_OK,
         scenario=basic([disk(dwCloneSplitPercent=0)], ISCSI)),
    Case("non-ASCII names and long paths survive the pipe", ["disk", "list"],
         ("UNC Path: None\nLUN Path: %s:%s\n\tStorage System:\t\t%s\n\tStorage System Path:\t%s\n" % (
             NON_ASCII, LONG_PATH, NON_ASCII, LONG_PATH)) + FULL_TAIL.replace("E:\\, F:\\mnt\\db", "Ö:\\, C:\\Dätä")
         + ISCSI_LINE + completion(), S_OK,
         scenario=basic([disk(wszUncPath=None, wszStorageSystem=NON_ASCII, wszStorageSystemPath=LONG_PATH,
                              pwszMountPoints=["Ö", "C:\\Dätä"])], ISCSI)),
    # Failures
    Case("enumeration refused with the service's explanation", ["disk", "list"],
         alert(MSG_LIST_DISKS_FAILED, LUN_BUSY, description="LUN table is being rebuilt"), LUN_BUSY,
         scenario={"methods": {"IVirtualDisk2.EnumerateDisksEx": {"result": hex(LUN_BUSY),
                                                                  "errorDescription": "LUN table is being rebuilt"}}}),
    Case("enumeration refused without an explanation", ["disk", "list"],
         alert(MSG_LIST_DISKS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=basic([], **{"IVirtualDisk.EnumerateDisks": {"result": hex(E_ACCESSDENIED)}})),
    Case("S_FALSE is a failure", ["disk", "list"], alert(MSG_LIST_DISKS_FAILED, 1), 1,
         scenario=basic([], **{"IVirtualDisk.EnumerateDisks": {"result": 1, "disks": [disk()]}})),
    Case("a failed initiator query keeps what was printed", ["disk", "list"],
         FULL_HEAD + FULL_TAIL + ISCSI_LINE + FULL_HEAD + FULL_TAIL
         + alert(MSG_LIST_DISKS_FAILED, E_ACCESSDENIED, description="port gone"), E_ACCESSDENIED,
         scenario=basic([disk(), disk()], [ISCSI, {"result": hex(E_ACCESSDENIED), "errorDescription": "port gone"}])),
    # Where the object is created
    Case("-m without a value creates locally", ["disk", "list", "-m"], NO_LUNS + completion(), S_OK,
         scenario=extended([])),
    Case("-m with two values creates locally", ["disk", "list", "-m", "a", "b"], NO_LUNS + completion(), S_OK,
         scenario=extended([])),
    Case("-m with a name creates remotely", ["disk", "list", "-m", "filer-host"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG,
         check=created_nothing),
    Case("the class lacks the interface", ["disk", "list"], alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE),
         E_NOINTERFACE, scenario={"classes": {"VirtualDiskService": {"missingInterfaces": ["IVirtualDisk"]}}}),
    Case("the service refuses the creation", ["disk", "list"],
         alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario={"classes": {"VirtualDiskService": {"createResult": hex(E_ACCESSDENIED)}}}),
    # Progress events arrive on COM's threads while the listing call waits
    Case("progress events", ["disk", "list"],
         "filer1 : %s\nfiler1 : \nfiler2 : \n" % msg(5040) + NO_LUNS + completion(), S_OK,
         scenario={"methods": {"IVirtualDisk2.EnumerateDisksEx": {
             "disks": [], "delayMs": 50,
             "events": [{"event": "ProgressMessage", "subject": "filer1", "code": 28},
                        {"event": "ProgressMessage", "subject": "filer1", "code": 4},
                        {"event": "ProgressMessage", "subject": "filer2", "code": 99}]}}}),
]
