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
    for (DWORD i = 0; list.pDisks != nullptr && i < list.dwCount; ++i)
        FreeDiskInfo(list.pDisks[i]);
    FreeAndClear(list.pDisks);
    list.dwCount = 0;
}

void FreeDiskInfoExList(DiskInfoExList &list) {
    for (DWORD i = 0; list.pDisks != nullptr && i < list.dwCount; ++i) {
        DiskInfoEx &entry = list.pDisks[i];
        if (entry.pDisk != nullptr) {
            FreeDiskInfo(*entry.pDisk);
            FreeAndClear(entry.pDisk);
        }
        for (DWORD v = 0; entry.pVms != nullptr && v < entry.dwVmCount; ++v)
            CoTaskMemFree(entry.pVms[v].wszVmName);
        FreeAndClear(entry.pVms);
        entry.dwVmCount = 0;
    }
    FreeAndClear(list.pDisks);
    list.dwCount = 0;
}

void FreeInitiatorInfo(InitiatorInfo &initiator) {
    FreeAndClear(initiator.wszName);
}

void FreeUncPathInfo(UncPathInfo &info) {
    FreeAndClear(info.wszStorageSystem);
    FreeAndClear(info.wszStorageSystemPath);
}
