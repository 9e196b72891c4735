"""hyperv list: machines, their virtual hard disks and, with -detail, the LUN under each disk that lies on one."""

from harness import REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion
from cases.host_common import MSG_SERVICE_UNAVAILABLE, nothing_created, refusals, requests

MSG_LIST_VIRTUAL_MACHINES_FAILED = 5646
NONE = "No Hyper-V virtual machines are configured on this system.\n"
LIST = ["hyperv", "list"]
DETAIL = LIST + ["-detail"]
METHOD = "IHyperV.ListVirtualMachines"
GUID = "6D1E4B7A-2C3F-4A5B-9C8D-7E6F5A4B3C21"
VHD = "V:\\vms\\web-01\\system.vhdx"


def lun(**fields):
    return dict({"dwPartitionStyle": 2, "wszStorageSystem": "filer-west", "wszStorageSystemPath": "/vol/vm_store/lun_vms",
                 "wszVolumeName": "\\\\?\\Volume{3f1c}\\", "szSerialNumber": "W9kLm2QpRstC", "bShared": True,
                 "bScsiPort": 4, "bBus": 2, "bTarget": 1, "bLun": 3, "llSize": 5368709120, "dwDiskId": 3,
                 "pwszMountPoints": ["V:\\"]}, **fields)


LUN_TEXT = (
    "\tLUN Path:\t\tfiler-west:/vol/vm_store/lun_vms\n\tStorage System:\t\tfiler-west\n"
    "\tStorage System Path:\t/vol/vm_store/lun_vms\n\tDisk serial number:\tW9kLm2QpRstC\n\tShared:\t\t\tYes\n"
    "\tSCSI port:\t\t4\n\tBus:\t\t\t2\n\tTarget:\t\t\t1\n\tLUN:\t\t\t3\n\tSize:\t\t\t1073741824\n"
    "\tDisk Partition Style:\tGUID Partition Table (GPT)\n\tDiskID:\t\t\t3\n\tVolume Name:\t\t\\\\?\\Volume{3f1c}\\\n\n"
)


def lun_text(*changes):
    text = LUN_TEXT
    for old, new in changes:
        text = text.replace(old, new)
    return text


def vhd(path=VHD, mount="V:\\", boot=False, on_lun=None):
    return {"wszVhdPath": path, "wszMountPoint": mount, "bBootDisk": boot, "pLun": on_lun}


def vm(name="web-01", state=2, vhds=(), guid=GUID):
    return {"wszVmName": name, "wszVmGuid": guid, "dwState": state, "pVhds": list(vhds)}


def machines(*records, **response):
    return {"methods": {METHOD: dict(response, machines=list(records))}}


def head(name="web-01", state="Running", guid=GUID):
    return "\nVM Name:%s\n\tState:\t\t\t%s\n\tVM GUID:\t\t%s\n" % (name, state, guid)


def disk(path=VHD, mount="V:\\", boot=False):
    return "\tVHD Path:\t\t%s\n\tMount point:\t\t%s\n" % (path, mount) + ("\tBoot Disk:\t\tYes\n" if boot else "")


def asked(detail):
    def check(result):
        assert requests(result, METHOD) == [{"bDetail": detail}], result.events
        # No progress sink belongs to this operation
        assert not [e for e in result.events if e.get("event") == "advise"], "a sink was advised"
    return check


def demo_lun_printed(result):
    assert "\tLUN Path:\t\tfiler-west:/vol/vm_store/lun_vms\n" in result.text(), result.stdout


STATES = [(0, "Unknown"), (1, "Other"), (2, "Running"), (3, "Off"), (4, ""), (32767, ""), (32768, "Paused"),
          (32769, "Saved"), (32770, "Starting"), (32771, "Creating Snapshot"), (32772, "Migrating"), (32773, "Saving"),
          (32774, "Stopping"), (32775, "Deleted"), (32776, "Pausing"), (32777, "")]
DATA = vhd("V:\\vms\\web-01\\data.vhdx", "W:\\")
DATA_TEXT = disk("V:\\vms\\web-01\\data.vhdx", "W:\\")

CASES = [
    Case("one machine, two disks, without -detail: no LUN record", LIST,
         head() + disk(boot=True) + "\n" + DATA_TEXT + "\n" + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd(boot=True), dict(DATA, pLun=lun())])), calls=[METHOD], check=asked(0)),
    Case("-detail: only the second disk lies on a LUN", DETAIL,
         head() + disk("V:\\local.vhdx", "C:\\") + disk(boot=True) + LUN_TEXT + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd("V:\\local.vhdx", "C:\\"), vhd(boot=True, on_lun=lun())])), check=asked(1)),
] + [
    Case(name, argv, expected + completion(), S_OK, scenario=machines(*records)) for name, argv, expected, records in [
        ("-detail: LUN fields at their other values, raw and unknown partition styles", DETAIL, head()
         + disk() + lun_text(("Yes", "No"), ("1073741824", "5120"), ("W9kLm2QpRstC", ""),
                             ("GUID Partition Table (GPT)", "Master Boot Record (MBR)"))
         + disk() + lun_text(("GUID Partition Table (GPT)", "Raw"), ("1073741824", "-1"))  # the low half is negative
         + disk() + lun_text(("GUID Partition Table (GPT)", "Unknown")),
         [vm(vhds=[vhd(on_lun=lun(bShared=False, llSize=5120, dwPartitionStyle=1, szSerialNumber=None)),
                   vhd(on_lun=lun(dwPartitionStyle=3, llSize=0xFFFFFFFF)), vhd(on_lun=lun(dwPartitionStyle=7))])]),
        ("-detail: no disk on a LUN prints no LUN block and no empty line", DETAIL,
         head() + disk() + head("db-01", "Off"), [vm(vhds=[vhd()]), vm("db-01", 3)]),
        ("empty paths are not available", LIST, (head() + (disk("Not Available", "Not Available") + "\n") * 2),
         [vm(vhds=[vhd("", ""), vhd(None, None)])]),
        ("every state word", LIST, "".join(head("vm%d" % n, word) for n, word in STATES),
         [vm("vm%d" % n, n) for n, _ in STATES]),
        ("machines without disks, non-ASCII names", LIST, head("wéb-東京", "Saved", "") + head("b", "Running"),
         [vm("wéb-東京", 32769, guid=""), vm("b")]),
        ("no machines", LIST, NONE, []),
    ]
] + refusals("list", DETAIL, METHOD, MSG_LIST_VIRTUAL_MACHINES_FAILED) + [
    Case("S_FALSE with data is a failure", LIST, alert(MSG_LIST_VIRTUAL_MACHINES_FAILED, 1), 1,
         scenario=machines(vm(vhds=[vhd()]), result=1)),
    Case("on another machine", LIST + ["-m", "hv-host"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, check=nothing_created),
    Case("the demo host", DETAIL, scenario="simulator/scenarios/demo.json", status=S_OK, check=demo_lun_printed),
]
