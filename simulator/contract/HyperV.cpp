// HyperVService's interface (virtual machines with their virtual hard disks
// and the LUNs under them) and SpaceMonitorService's interface.
#include "simulator/Contract.h"
#include "simulator/contract/Answer.h"
#include "simulator/contract/Parts.h"

namespace sim {

namespace {

void ReadVhdLun(Reader &r, VhdLunInfo &lun) {
    r.Field("dwPartitionStyle", lun.dwPartitionStyle);
    r.Field("wszStorageSystem", lun.wszStorageSystem);
    r.Field("wszStorageSystemPath", lun.wszStorageSystemPath);
    r.Field("wszVolumeName", lun.wszVolumeName);
    r.Field("szSerialNumber", lun.szSerialNumber);
    r.Field("bShared", lun.bShared);
    r.Field("bScsiPort", lun.bScsiPort);
    r.Field("bBus", lun.bBus);
    r.Field("bTarget", lun.bTarget);
    r.Field("bLun", lun.bLun);
    r.Field("llSize", lun.llSize);
    r.Field("dwDiskId", lun.dwDiskId);
    r.StringArray("pwszMountPoints", lun.dwMountPointCount, lun.pwszMountPoints);
}

void ReadVhd(Reader &r, VhdInfo &vhd) {
    r.Field("wszMountPoint", vhd.wszMountPoint);
    r.Field("wszVhdPath", vhd.wszVhdPath);
    r.Field("bBootDisk", vhd.bBootDisk);
    r.Pointer("pLun", vhd.pLun, ReadVhdLun);
}

void ReadMachine(Reader &r, VirtualMachineInfo &machine) {
    r.Field("wszVmName", machine.wszVmName);
    r.Field("wszVmGuid", machine.wszVmGuid);
    r.Field("dwState", machine.dwState);
    r.Array("pVhds", machine.dwVhdCount, machine.pVhds, ReadVhd);
}

void MachinesData(Reader &r, VirtualMachineList &list) {
    r.Array("machines", list.dwCount, list.pVms, ReadMachine);
}

class CHyperV final : public TPart<IHyperV> {
public:
    using TPart::TPart;
    HRESULT STDMETHODCALLTYPE ListVirtualMachines(BOOL bDetail, VirtualMachineList *machines) override {
        return Answer(owner_, "IHyperV.ListVirtualMachines", IID_IHyperV, {{"bDetail", bDetail}}, &MachinesData, machines);
    }
};

class CSpaceMonitor final : public TPart<ISpaceMonitor> {
public:
    using TPart::TPart;
    SIM_RESERVED(ISpaceMonitor, 3)
};

} // namespace

std::unique_ptr<PartBase> MakeHyperVPart(CServiceObject &owner) {
    return std::make_unique<CHyperV>(owner);
}
std::unique_ptr<PartBase> MakeSpaceMonitorPart(CServiceObject &owner) {
    return std::make_unique<CSpaceMonitor>(owner);
}

std::vector<MethodEntry> HyperVMethods() {
    return {{"IHyperV.ListVirtualMachines", CheckOf(&MachinesData)}};
}

} // namespace sim
