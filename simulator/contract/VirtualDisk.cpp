// VirtualDiskService's disk interfaces: IVirtualDisk (LUNs, mount points,
// preferred storage-system addresses) and IVirtualDisk2 (the listing with the
// virtual machines on each LUN), served by one part.
#include "simulator/Contract.h"
#include "simulator/contract/Answer.h"
#include "simulator/contract/Parts.h"

namespace sim {

namespace {

void ReadDiskInfo(Reader &r, DiskInfo &d) {
    r.Field("dwType", d.dwType);
    r.Field("dwPartitionStyle", d.dwPartitionStyle);
    r.Field("wszUncPath", d.wszUncPath);
    r.Field("wszStorageSystem", d.wszStorageSystem);
    r.Field("wszStorageSystemPath", d.wszStorageSystemPath);
    r.Field("wszVolumeName", d.wszVolumeName);
    r.Field("szSerialNumber", d.szSerialNumber);
    r.Field("wszExtra", d.wszExtra);
    r.Field("bBackedBySnapshot", d.bBackedBySnapshot);
    r.Field("wszSnapshotName", d.wszSnapshotName);
    r.Field("bShared", d.bShared);
    r.Field("bReflexaSource", d.bReflexaSource);
    r.Field("bArkholdPrimary", d.bArkholdPrimary);
    r.Field("bBootOrSystemDisk", d.bBootOrSystemDisk);
    r.Field("bySCSIPort", d.bySCSIPort);
    r.Field("byBus", d.byBus);
    r.Field("byTarget", d.byTarget);
    r.Field("byLun", d.byLun);
    r.Field("bReadOnly", d.bReadOnly);
    r.Field("llSize", d.llSize);
    r.Field("dwDiskId", d.dwDiskId);
    r.StringArray("pwszMountPoints", d.dwMountPointCount, d.pwszMountPoints);
    r.StringArray("pwszIpAddresses", d.dwIpAddressCount, d.pwszIpAddresses);
    r.Field("dwCloneSplitPercent", d.dwCloneSplitPercent);
}

void ReadDiskInfoEx(Reader &r, DiskInfoEx &e) {
    r.Pointer("pDisk", e.pDisk, ReadDiskInfo);
    r.Field("bHyperVVhdPresent", e.bHyperVVhdPresent);
    r.Array("pVms", e.dwVmCount, e.pVms, [](Reader &vm, VmUsage &usage) { vm.Field("wszVmName", usage.wszVmName); });
}

void DisksData(Reader &r, DiskInfoList &list) {
    r.Array("disks", list.dwCount, list.pDisks, ReadDiskInfo);
}

void DisksExData(Reader &r, DiskInfoExList &list) {
    r.Array("disks", list.dwCount, list.pDisks, ReadDiskInfoEx);
}

void ExpandData(Reader &r, DiskInfo *&disk) {
    r.Pointer("disk", disk, ReadDiskInfo);
}

void InitiatorData(Reader &r, InitiatorInfo &initiator) {
    r.Nested("initiator", [&](Reader &item) { ReadInitiatorInfo(item, initiator); });
}

void LimitsData(Reader &r, ExpandLimits &limits) {
    r.Nested("limits", [&](Reader &l) {
        l.Field("llMaxWithReserve", limits.llMaxWithReserve);
        l.Field("llMaxWithoutReserve", limits.llMaxWithoutReserve);
        l.Field("llMin", limits.llMin);
        l.Field("llCurrentSize", limits.llCurrentSize);
        l.Field("bSmallDiskLimit", limits.bSmallDiskLimit);
        l.Field("bLimitsValid", limits.bLimitsValid);
        l.Field("dwPartitionStyle", limits.dwPartitionStyle);
    });
}

void LocationData(Reader &r, UncPathInfo *&location) {
    r.Pointer("location", location, [](Reader &l, UncPathInfo &info) {
        l.Field("wszStorageSystem", info.wszStorageSystem);
        l.Field("wszStorageSystemPath", info.wszStorageSystemPath);
    });
}

void ReadPreferredIP(Reader &r, PreferredIPEntry &entry) {
    r.Field("wszStorageSystem", entry.wszStorageSystem);
    r.Field("wszIpAddress", entry.wszIpAddress);
}

void PreferredIPsData(Reader &r, PreferredIPTable &table) {
    r.Array("table", table.dwCount, table.pEntries, ReadPreferredIP);
}

Json LogPreferredIPs(const PreferredIPTable *table) {
    if (table == nullptr)
        return nullptr;
    return LogArray(table->dwCount, table->pEntries, [](const PreferredIPEntry &entry) {
        return Json{{"wszStorageSystem", LogText(entry.wszStorageSystem)}, {"wszIpAddress", LogText(entry.wszIpAddress)}};
    });
}

Json LogExpandRequest(const ExpandRequest *request) {
    if (request == nullptr)
        return nullptr;
    return {{"wszPath", LogText(request->wszPath)},
            {"wszStorageSystem", LogText(request->wszStorageSystem)},
            {"wszStorageSystemPath", LogText(request->wszStorageSystemPath)},
            {"llExpandSize", request->llExpandSize}};
}

Json LunRequest(const wchar_t *storageSystem, const wchar_t *storageSystemPath, DWORD reserved1, DWORD reserved2) {
    return {{"storageSystem", LogText(storageSystem)},
            {"storageSystemPath", LogText(storageSystemPath)},
            {"reserved1", reserved1},
            {"reserved2", reserved2}};
}

class CVirtualDisk final : public TPart<IVirtualDisk2> {
public:
    using TPart::TPart;

    SIM_RESERVED(IVirtualDisk, 3)
    SIM_RESERVED(IVirtualDisk, 4)
    SIM_RESERVED(IVirtualDisk, 5)
    SIM_RESERVED(IVirtualDisk, 6)
    SIM_RESERVED(IVirtualDisk, 7)
    SIM_RESERVED(IVirtualDisk, 8)
    SIM_RESERVED(IVirtualDisk, 9)
    SIM_RESERVED(IVirtualDisk, 10)

    HRESULT STDMETHODCALLTYPE ExpandDisk(ExpandRequest *request, DiskInfo **disk) override {
        return Answer(owner_, "IVirtualDisk.ExpandDisk", IID_IVirtualDisk, {{"request", LogExpandRequest(request)}}, &ExpandData,
                      disk);
    }

    HRESULT STDMETHODCALLTYPE EnumerateDisks(DiskInfoList *disks) override {
        return Answer(owner_, "IVirtualDisk.EnumerateDisks", IID_IVirtualDisk, Json::object(), &DisksData, disks);
    }

    SIM_RESERVED(IVirtualDisk, 13)
    SIM_RESERVED(IVirtualDisk, 14)
    SIM_RESERVED(IVirtualDisk, 15)
    SIM_RESERVED(IVirtualDisk, 16)
    SIM_RESERVED(IVirtualDisk, 17)
    SIM_RESERVED(IVirtualDisk, 18)
    SIM_RESERVED(IVirtualDisk, 19)
    SIM_RESERVED(IVirtualDisk, 20)

    HRESULT STDMETHODCALLTYPE GetPortInitiator(byte scsiPort, InitiatorInfo *initiator) override {
        return Answer(owner_, "IVirtualDisk.GetPortInitiator", IID_IVirtualDisk, {{"scsiPort", scsiPort}}, &InitiatorData,
                      initiator);
    }

    SIM_RESERVED(IVirtualDisk, 22)
    SIM_RESERVED(IVirtualDisk, 23)
    SIM_RESERVED(IVirtualDisk, 24)
    SIM_RESERVED(IVirtualDisk, 25)
    SIM_RESERVED(IVirtualDisk, 26)

    HRESULT STDMETHODCALLTYPE AddMountPoint(const wchar_t *volumeName, const wchar_t *mountPoint, boolean createFolder) override {
        return Answer(owner_, "IVirtualDisk.AddMountPoint", IID_IVirtualDisk,
                      {{"volumeName", LogText(volumeName)}, {"mountPoint", LogText(mountPoint)}, {"createFolder", createFolder}});
    }

    HRESULT STDMETHODCALLTYPE RemoveMountPoint(const wchar_t *volumeName, const wchar_t *mountPoint) override {
        return Answer(owner_, "IVirtualDisk.RemoveMountPoint", IID_IVirtualDisk,
                      {{"volumeName", LogText(volumeName)}, {"mountPoint", LogText(mountPoint)}});
    }

    SIM_RESERVED(IVirtualDisk, 29)
    SIM_RESERVED(IVirtualDisk, 30)
    SIM_RESERVED(IVirtualDisk, 31)
    SIM_RESERVED(IVirtualDisk, 32)
    SIM_RESERVED(IVirtualDisk, 33)

    HRESULT STDMETHODCALLTYPE DisconnectDisk(const wchar_t *storageSystem, const wchar_t *storageSystemPath, DWORD reserved1,
                                             DWORD reserved2) override {
        return Answer(owner_, "IVirtualDisk.DisconnectDisk", IID_IVirtualDisk,
                      LunRequest(storageSystem, storageSystemPath, reserved1, reserved2));
    }

    HRESULT STDMETHODCALLTYPE DisconnectDiskForced(const wchar_t *storageSystem, const wchar_t *storageSystemPath,
                                                   DWORD reserved1, DWORD reserved2) override {
        return Answer(owner_, "IVirtualDisk.DisconnectDiskForced", IID_IVirtualDisk,
                      LunRequest(storageSystem, storageSystemPath, reserved1, reserved2));
    }

    HRESULT STDMETHODCALLTYPE GetPreferredIPs(PreferredIPTable *table) override {
        return Answer(owner_, "IVirtualDisk.GetPreferredIPs", IID_IVirtualDisk, Json::object(), &PreferredIPsData, table);
    }

    HRESULT STDMETHODCALLTYPE SetPreferredIPs(PreferredIPTable *table) override {
        return Answer(owner_, "IVirtualDisk.SetPreferredIPs", IID_IVirtualDisk, {{"table", LogPreferredIPs(table)}});
    }

    SIM_RESERVED(IVirtualDisk, 38)
    SIM_RESERVED(IVirtualDisk, 39)

    HRESULT STDMETHODCALLTYPE DeleteDisk(const wchar_t *storageSystem, const wchar_t *storageSystemPath, DWORD reserved1,
                                         DWORD reserved2) override {
        return Answer(owner_, "IVirtualDisk.DeleteDisk", IID_IVirtualDisk,
                      LunRequest(storageSystem, storageSystemPath, reserved1, reserved2));
    }

    HRESULT STDMETHODCALLTYPE GetExpandLimits(const wchar_t *storageSystem, const wchar_t *storageSystemPath,
                                              ExpandLimits *limits) override {
        return Answer(owner_, "IVirtualDisk.GetExpandLimits", IID_IVirtualDisk,
                      {{"storageSystem", LogText(storageSystem)}, {"storageSystemPath", LogText(storageSystemPath)}}, &LimitsData,
                      limits);
    }

    SIM_RESERVED(IVirtualDisk, 42)

    HRESULT STDMETHODCALLTYPE TranslateUncPath(const wchar_t *uncPath, UncPathInfo **location) override {
        return Answer(owner_, "IVirtualDisk.TranslateUncPath", IID_IVirtualDisk, {{"uncPath", LogText(uncPath)}}, &LocationData,
                      location);
    }

    HRESULT STDMETHODCALLTYPE EnumerateDisksEx(DiskInfoExList *disks) override {
        return Answer(owner_, "IVirtualDisk2.EnumerateDisksEx", IID_IVirtualDisk2, Json::object(), &DisksExData, disks);
    }
};

} // namespace

void ReadInitiatorInfo(Reader &r, InitiatorInfo &out) {
    r.Field("dwKind", out.dwKind);
    r.Field("wszName", out.wszName);
}

std::unique_ptr<PartBase> MakeVirtualDiskPart(CServiceObject &owner) {
    return std::make_unique<CVirtualDisk>(owner);
}

std::vector<MethodEntry> VirtualDiskMethods() {
    return {
        {"IVirtualDisk.ExpandDisk", CheckOf(&ExpandData)},          {"IVirtualDisk.EnumerateDisks", CheckOf(&DisksData)},
        {"IVirtualDisk.GetPortInitiator", CheckOf(&InitiatorData)}, {"IVirtualDisk.AddMountPoint", CheckOf(&NoData)},
        {"IVirtualDisk.RemoveMountPoint", CheckOf(&NoData)},        {"IVirtualDisk.DisconnectDisk", CheckOf(&NoData)},
        {"IVirtualDisk.DisconnectDiskForced", CheckOf(&NoData)},    {"IVirtualDisk.GetPreferredIPs", CheckOf(&PreferredIPsData)},
        {"IVirtualDisk.SetPreferredIPs", CheckOf(&NoData)},         {"IVirtualDisk.DeleteDisk", CheckOf(&NoData)},
        {"IVirtualDisk.GetExpandLimits", CheckOf(&LimitsData)},     {"IVirtualDisk.TranslateUncPath", CheckOf(&LocationData)},
        {"IVirtualDisk2.EnumerateDisksEx", CheckOf(&DisksExData)}};
}

} // namespace sim
