#include "commands/common/DiskRecords.h"

void FreeDiskInfo(DiskInfo &disk) {
    FreeAndClear(disk.wszUncPath);
    FreeAndClear(disk.wszStorageSystem);
    FreeAndClear(disk.wszStorageSystemPath);
    FreeAndClear(disk.wszVolumeName);
    FreeAndClear(disk.szSerialNumber);
    FreeAndClear(disk.wszExtra);
    FreeAndClear(disk.wszSnapshotName);
    FreeStringArray(disk.pwszMountPoints, disk.dwMountPointCount);
    FreeStringArray(disk.pwszIpAddresses, disk.dwIpAddressCount);
}

void FreeDiskInfoList(DiskInfoList &list) {
    FreeEach(list.pDisks, list.dwCount, FreeDiskInfo);
}

void FreeDiskInfoExList(DiskInfoExList &list) {
    FreeEach(list.pDisks, list.dwCount, [](DiskInfoEx &entry) {
        if (entry.pDisk != nullptr) {
            FreeDiskInfo(*entry.pDisk);
            FreeAndClear(entry.pDisk);
        }
        FreeEach(entry.pVms, entry.dwVmCount, [](VmUsage &vm) { FreeAndClear(vm.wszVmName); });
    });
}

void FreeInitiatorInfo(InitiatorInfo &initiator) {
    FreeAndClear(initiator.wszName);
}

void FreeUncPathInfo(UncPathInfo &info) {
    FreeAndClear(info.wszStorageSystem);
    FreeAndClear(info.wszStorageSystemPath);
}
