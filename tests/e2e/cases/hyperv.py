"""hyperv list: machines, their virtual hard disks and, with -detail, the LUN under each disk that lies on one."""

from harness import REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion

MSG_LIST_VIRTUAL_MACHINES_FAILED = 5646
MSG_SERVICE_UNAVAILABLE = 5108
E_ACCESSDENIED = 0x80070005
WMI_FAILED = 0x80041001
NONE = "No Hyper-V virtual machines are configured on this system.\n"
LIST = ["hyperv", "list"]
DETAIL = LIST + ["-detail"]


def lun(**fields):
    record = {"dwPartitionStyle": 2, "wszStorageSystem": "filer-west", "wszStorageSystemPath": "/vol/vm_store/lun_vms",
              "wszVolumeName": "\\\\?\\Volume{3f1c}\\", "szSerialNumber": "W9kLm2QpRstC", "bShared": True,
              "bScsiPort": 4, "bBus": 2, "bTarget": 1, "bLun": 3, "llSize": 5368709120, "dwDiskId": 3,
              "pwszMountPoints": ["V:\\"]}
    record.update(fields)
    return record


LUN_TEXT = (
    "\tLUN Path:\t\tfiler-west:/vol/vm_store/lun_vms\n\tStorage System:\t\tfiler-west\n"
    "\tStorage System Path:\t/vol/vm_store/lun_vms\n\tDisk serial number:\tW9kLm2QpRstC\n\tShared:\t\t\tYes\n"
    "\tSCSI port:\t\t4\n\tBus:\t\t\t2\n\tTarget:\t\t\t1\n\tLUN:\t\t\t3\n\tSize:\t\t\t1073741824\n"
    "\tDisk Partition Style:\tGUID Partition Table (GPT)\n\tDiskID:\t\t\t3\n\tVolume Name:\t\t\\\\?\\Volume{3f1c}\\\n\n"
)


def vhd(path="V:\\vms\\web-01\\system.vhdx", mount="V:\\", boot=False, on_lun=None):
    return {"wszVhdPath": path, "wszMountPoint": mount, "bBootDisk": boot, "pLun": on_lun}


def vm(name="web-01", state=2, vhds=(), guid="6D1E4B7A-2C3F-4A5B-9C8D-7E6F5A4B3C21"):
    return {"wszVmName": name, "wszVmGuid": guid, "dwState": state, "pVhds": list(vhds)}


def machines(*records, **response):
    response["machines"] = list(records)
    return {"methods": {"IHyperV.ListVirtualMachines": response}}


def head(name="web-01", state="Running", guid="6D1E4B7A-2C3F-4A5B-9C8D-7E6F5A4B3C21"):
    return "\nVM Name:%s\n\tState:\t\t\t%s\n\tVM GUID:\t\t%s\n" % (name, state, guid)


def disk(path="V:\\vms\\web-01\\system.vhdx", mount="V:\\", boot=False):
    return "\tVHD Path:\t\t%s\n\tMount point:\t\t%s\n" % (path, mount) + ("\tBoot Disk:\t\tYes\n" if boot else "")


def asked(detail):
    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        assert [c["request"] for c in calls] == [{"bDetail": detail}], calls
        # No progress sink belongs to this operation
        assert not [e for e in result.events if e.get("event") == "advise"], "a sink was advised"
    return check


def nothing_created(result):
    assert result.created() == [], "created %r" % result.created()


def demo_lun_printed(result):
    assert "\tLUN Path:\t\tfiler-west:/vol/vm_store/lun_vms\n" in result.text(), result.stdout


STATES = [(0, "Unknown"), (1, "Other"), (2, "Running"), (3, "Off"), (4, ""), (32767, ""), (32768, "Paused"),
          (32769, "Saved"), (32770, "Starting"), (32771, "Creating Snapshot"), (32772, "Migrating"), (32773, "Saving"),
          (32774, "Stopping"), (32775, "Deleted"), (32776, "Pausing"), (32777, "")]

CASES = [
    Case("one machine, two disks, without -detail", LIST,
         head() + disk(boot=True) + "\n" + disk("V:\\vms\\web-01\\data.vhdx", "W:\\") + "\n" + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd(boot=True), vhd("V:\\vms\\web-01\\data.vhdx", "W:\\")])),
         calls=["IHyperV.ListVirtualMachines"], check=asked(0)),
    Case("without -detail a LUN record is not printed", LIST, head() + disk() + "\n" + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd(on_lun=lun())]))),
    Case("-detail: only the second disk lies on a LUN", DETAIL,
         head() + disk("V:\\local.vhdx", "C:\\") + disk(boot=True) + LUN_TEXT + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd("V:\\local.vhdx", "C:\\"), vhd(boot=True, on_lun=lun())])), check=asked(1)),
    Case("-detail: LUN fields at their other values", DETAIL,
         head() + disk() + LUN_TEXT.replace("Yes", "No").replace("1073741824", "5120")
         .replace("GUID Partition Table (GPT)", "Master Boot Record (MBR)").replace("W9kLm2QpRstC", "") + completion(),
         S_OK, scenario=machines(vm(vhds=[vhd(on_lun=lun(bShared=False, llSize=5120, dwPartitionStyle=1,
                                                             szSerialNumber=None))]))),
    Case("-detail: raw and unknown partition styles, a size whose low half is negative", DETAIL,
         head() + disk() + LUN_TEXT.replace("GUID Partition Table (GPT)", "Raw").replace("1073741824", "-1")
         + disk() + LUN_TEXT.replace("GUID Partition Table (GPT)", "Unknown") + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd(on_lun=lun(dwPartitionStyle=3, llSize=0xFFFFFFFF)),
                                    vhd(on_lun=lun(dwPartitionStyle=7))]))),
    Case("-detail: no disk on a LUN prints no LUN block and no empty line", DETAIL,
         head() + disk() + head("db-01", "Off") + completion(), S_OK,
         scenario=machines(vm(vhds=[vhd()]), vm("db-01", 3))),
    Case("empty paths are not available", LIST,
         head() + disk("Not Available", "Not Available") + "\n" + disk("Not Available", "Not Available") + "\n"
         + completion(), S_OK, scenario=machines(vm(vhds=[vhd("", ""), vhd(None, None)]))),
    Case("every state word", LIST, "".join(head("vm%d" % n, word) for n, word in STATES) + completion(), S_OK,
         scenario=machines(*[vm("vm%d" % n, n) for n, _ in STATES])),
    Case("machines without disks, non-ASCII names", LIST,
         head("wéb-東京", "Saved", "") + head("b", "Running") + completion(), S_OK,
         scenario=machines(vm("wéb-東京", 32769, guid=""), vm("b"))),
    Case("no machines", LIST, NONE + completion(), S_OK, scenario=machines()),
    Case("no machines, with -detail", DETAIL, NONE + completion(), S_OK, scenario=machines()),
    Case("refused with an explanation", DETAIL,
         alert(MSG_LIST_VIRTUAL_MACHINES_FAILED, WMI_FAILED, description="Hyper-V is not installed"), WMI_FAILED,
         scenario=machines(result=hex(WMI_FAILED), errorDescription="Hyper-V is not installed")),
    Case("refused without an explanation", LIST, alert(MSG_LIST_VIRTUAL_MACHINES_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario=machines(result=hex(E_ACCESSDENIED))),
    Case("S_FALSE with data is a failure", LIST, alert(MSG_LIST_VIRTUAL_MACHINES_FAILED, 1), 1,
         scenario=machines(vm(vhds=[vhd()]), result=1)),
    Case("on another machine", LIST + ["-m", "hv-host"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, check=nothing_created),
    Case("the class is not there", LIST, alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG,
         prefix="bare"),
    Case("the demo host", DETAIL, scenario="simulator/scenarios/demo.json", status=S_OK,
         check=demo_lun_printed),
]
