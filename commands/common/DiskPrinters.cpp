#include "commands/common/DiskPrinters.h"

#include "front_end/Console.h"
#include "front_end/Messages.h"
#include "service/OwnedRecord.h"

#include <windows.h>

#include <cstdint>
#include <cwchar>

namespace {

std::wstring JoinMountPoints(const DiskInfo &disk) {
    std::wstring joined;
    for (DWORD i = 0; i < CountOf(disk.pwszMountPoints, disk.dwMountPointCount); ++i) {
        if (i > 0)
            joined += L", ";
        const wchar_t *mountPoint = OrNull(disk.pwszMountPoints[i]);
        joined += mountPoint;
        if (wcslen(mountPoint) == 1) // a bare drive letter reads as the drive's root
            joined += L":\\";
    }
    return joined;
}

std::wstring JoinAddresses(const DiskInfo &disk) {
    std::wstring joined;
    for (DWORD i = 0; i < CountOf(disk.pwszIpAddresses, disk.dwIpAddressCount); ++i) {
        if (i > 0)
            joined += L", ";
        joined += OrNull(disk.pwszIpAddresses[i]);
    }
    return joined;
}

void PrintHead(const DiskInfo &disk) {
    const wchar_t *unc = disk.wszUncPath;
    Print(L"UNC Path: %ls\n", (unc == nullptr || wcslen(unc) <= 1) ? L"None" : unc);
    Print(L"LUN Path: %ls\n", (std::wstring(OrNull(disk.wszStorageSystem)) + L":" + OrNull(disk.wszStorageSystemPath)).c_str());
    Print(L"\tStorage System:\t\t%ls\n", OrNull(disk.wszStorageSystem));
    Print(L"\tStorage System Path:\t%ls\n", OrNull(disk.wszStorageSystemPath));
}

void PrintTail(const DiskInfo &disk) {
    Print(L"\tType:\t\t\t%ls\n", disk.dwType == 1 ? L"lun" : L"(null)");
    Print(L"\tDisk serial number:\t%ls\n",
          disk.szSerialNumber != nullptr ? WidenSerialNumber(disk.szSerialNumber).c_str() : L"(null)");
    Print(L"\tBacked by Snapshot Copy:\t%ls\n", disk.bBackedBySnapshot ? OrNull(disk.wszSnapshotName) : L"");
    Print(L"\tShared:\t\t\t%ls\n", BoolToYesNo(disk.bShared != 0));
    Print(L"\tBootOrSystem Disk:\t%ls\n", BoolToYesNo(disk.bBootOrSystemDisk != 0));
    Print(L"\tSCSI port:\t\t%d\n", static_cast<int>(disk.bySCSIPort));
    Print(L"\tBus:\t\t\t%d\n", static_cast<int>(disk.byBus));
    Print(L"\tTarget:\t\t\t%d\n", static_cast<int>(disk.byTarget));
    Print(L"\tLUN:\t\t\t%d\n", static_cast<int>(disk.byLun));
    Print(L"\tReadonly:\t\t%ls\n", BoolToYesNo(disk.bReadOnly != 0));
    PrintSizeLine(disk.llSize);
    Print(L"\tReflexa Source:\t%ls\n", BoolToYesNo(disk.bReflexaSource != 0));
    Print(L"\tArkhold Primary:\t%ls\n", BoolToYesNo(disk.bArkholdPrimary != 0));
    Print(L"\tDisk Partition Style:\t%ls\n", PartitionStyleText(disk.dwPartitionStyle));
    if (disk.dwCloneSplitPercent == 0xFFFFFFFFu)
        Print(L"\tClone Split Restore status: Normal\n");
    else if (static_cast<int>(disk.dwCloneSplitPercent) > 0)
        Print(L"\tClone Split Restore progress percentage:%d \n", static_cast<int>(disk.dwCloneSplitPercent));
    Print(L"\tDiskID:\t\t\t%d\n", static_cast<int>(disk.dwDiskId));
    Print(L"\tVolume Name:\t\t%ls\n", OrNull(disk.wszVolumeName));
    Print(L"\tMount points:\t\t%ls\n", JoinMountPoints(disk).c_str());
    Print(L"\tIP Addresses:\t\t%ls\n", JoinAddresses(disk).c_str());
}

} // namespace

void PrintSizeLine(long long size) {
    Print(L"\tSize:\t\t\t%d\n", static_cast<int>(static_cast<uint32_t>(static_cast<uint64_t>(size))));
}

const wchar_t *PartitionStyleText(DWORD style) {
    switch (style) {
    case 1:
        return L"Master Boot Record (MBR)";
    case 2:
        return L"GUID Partition Table (GPT)";
    case 3:
        return L"Raw";
    default:
        return L"Unknown";
    }
}

std::wstring WidenSerialNumber(const char *serial) {
    if (serial == nullptr || serial[0] == '\0')
        return std::wstring();
    int chars = MultiByteToWideChar(CP_ACP, 0, serial, -1, nullptr, 0);
    if (chars <= 1)
        return std::wstring();
    std::wstring wide(static_cast<size_t>(chars), L'\0');
    MultiByteToWideChar(CP_ACP, 0, serial, -1, &wide[0], chars);
    wide.resize(static_cast<size_t>(chars - 1));
    return wide;
}

void PrintDiskInfo(const DiskInfo &disk) {
    PrintHead(disk);
    PrintTail(disk);
}

void PrintDiskInfoEx(const DiskInfoEx &entry) {
    static const DiskInfo empty = {};
    const DiskInfo &disk = entry.pDisk != nullptr ? *entry.pDisk : empty;
    PrintHead(disk);
    Print(L"\tHyper-V VHD Present:\t%ls\n", BoolToYesNo(entry.bHyperVVhdPresent != 0));
    const DWORD vms = CountOf(entry.pVms, entry.dwVmCount);
    if (entry.bHyperVVhdPresent && vms > 0) {
        std::wstring names;
        for (DWORD i = 0; i < vms; ++i) {
            if (i > 0)
                names += L", ";
            names += OrNull(entry.pVms[i].wszVmName);
        }
        Print(vms == 1 ? L"\tHyper-V VM Name:\t%ls\n" : L"\tHyper-V VMs Name:\t%ls\n", names.c_str());
    }
    PrintTail(disk);
}

void PrintInitiatorInfo(const wchar_t *prefix, const InitiatorInfo &initiator) {
    if (initiator.dwKind == 0)
        Print(L"%lsFCP initiator WWPN:\t%ls\n", prefix, OrNull(initiator.wszName));
    else if (initiator.dwKind == 1)
        Print(L"%lsiSCSI initiator:\t%ls\n", prefix, OrNull(initiator.wszName));
}

void PrintFcpPortName(const wchar_t *prefix, const unsigned char (&portName)[8]) {
    Print(L"%lsInitiator FCP Port Name:\t%02x:%02x:%02x:%02x:%02x:%02x:%02x:%02x\n", prefix, portName[0], portName[1],
          portName[2], portName[3], portName[4], portName[5], portName[6], portName[7]);
}
