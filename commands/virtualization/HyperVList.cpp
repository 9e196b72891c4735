#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/DiskPrinters.h"
#include "front_end/Console.h"
#include "front_end/Messages.h"
#include "front_end/Switches.h"
#include "service/OwnedRecord.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <string>

namespace {

void FreeVhdLunInfo(VhdLunInfo &lun) {
    FreeAndClear(lun.wszReserved8);
    FreeAndClear(lun.wszStorageSystem);
    FreeAndClear(lun.wszStorageSystemPath);
    FreeAndClear(lun.wszVolumeName);
    FreeAndClear(lun.szSerialNumber);
    FreeStringArray(lun.pwszMountPoints, lun.dwMountPointCount);
}

void FreeVirtualMachine(VirtualMachineInfo &machine) {
    FreeAndClear(machine.wszVmName);
    FreeAndClear(machine.wszVmGuid);
    if (machine.pVhds != nullptr) {
        for (DWORD i = 0; i < machine.dwVhdCount; ++i) {
            VhdInfo &vhd = machine.pVhds[i];
            FreeAndClear(vhd.wszMountPoint);
            FreeAndClear(vhd.wszVhdPath);
            if (vhd.pLun != nullptr)
                FreeVhdLunInfo(*vhd.pLun);
            FreeAndClear(vhd.pLun);
        }
    }
    FreeAndClear(machine.pVhds);
    machine.dwVhdCount = 0;
}

void FreeVirtualMachineList(VirtualMachineList &list) {
    if (list.pVms != nullptr)
        for (DWORD i = 0; i < list.dwCount; ++i)
            FreeVirtualMachine(list.pVms[i]);
    FreeAndClear(list.pVms);
    list.dwCount = 0;
}

using OwnedVirtualMachineList = OwnedRecord<VirtualMachineList, FreeVirtualMachineList>;

const wchar_t *StateWord(DWORD state) {
    switch (state) {
    case 0:
        return L"Unknown";
    case 1:
        return L"Other";
    case 2:
        return L"Running";
    case 3:
        return L"Off";
    default:
        break;
    }
    static const wchar_t *const kTransitional[] = {
        L"Paused", L"Saved", L"Starting", L"Creating Snapshot", L"Migrating", L"Saving", L"Stopping", L"Deleted", L"Pausing"};
    if (state >= 32768 && state - 32768 < sizeof(kTransitional) / sizeof(kTransitional[0]))
        return kTransitional[state - 32768];
    return L"";
}

const wchar_t *OrNotAvailable(const wchar_t *text) {
    return text != nullptr && text[0] != L'\0' ? text : L"Not Available";
}

void PrintLun(const VhdLunInfo &lun) {
    const std::wstring lunPath = std::wstring(OrNull(lun.wszStorageSystem)) + L":" + OrNull(lun.wszStorageSystemPath);
    Print(L"\tLUN Path:\t\t%ls\n", lunPath.c_str());
    Print(L"\tStorage System:\t\t%ls\n", OrNull(lun.wszStorageSystem));
    Print(L"\tStorage System Path:\t%ls\n", OrNull(lun.wszStorageSystemPath));
    Print(L"\tDisk serial number:\t%ls\n", WidenSerialNumber(lun.szSerialNumber).c_str());
    Print(L"\tShared:\t\t\t%ls\n", BoolToYesNo(lun.bShared != 0));
    Print(L"\tSCSI port:\t\t%d\n", static_cast<int>(lun.bScsiPort));
    Print(L"\tBus:\t\t\t%d\n", static_cast<int>(lun.bBus));
    Print(L"\tTarget:\t\t\t%d\n", static_cast<int>(lun.bTarget));
    Print(L"\tLUN:\t\t\t%d\n", static_cast<int>(lun.bLun));
    PrintSizeLine(lun.llSize);
    Print(L"\tDisk Partition Style:\t%ls\n", PartitionStyleText(lun.dwPartitionStyle));
    Print(L"\tDiskID:\t\t\t%d\n", static_cast<int>(lun.dwDiskId));
    Print(L"\tVolume Name:\t\t%ls\n", OrNull(lun.wszVolumeName));
    Print(L"\n");
}

void PrintVhd(const VhdInfo &vhd, bool detail) {
    Print(L"\tVHD Path:\t\t%ls\n", OrNotAvailable(vhd.wszVhdPath));
    Print(L"\tMount point:\t\t%ls\n", OrNotAvailable(vhd.wszMountPoint));
    if (vhd.bBootDisk != 0)
        Print(L"\tBoot Disk:\t\t%ls\n", L"Yes");
    if (!detail)
        Print(L"\n");
    else if (vhd.pLun != nullptr)
        PrintLun(*vhd.pLun);
}

void PrintMachine(const VirtualMachineInfo &machine, bool detail) {
    Print(L"\nVM Name:%ls\n", OrNull(machine.wszVmName));
    Print(L"\tState:\t\t\t%ls\n", StateWord(machine.dwState));
    Print(L"\tVM GUID:\t\t%ls\n", OrNull(machine.wszVmGuid));
    for (DWORD i = 0; i < machine.dwVhdCount && machine.pVhds != nullptr; ++i)
        PrintVhd(machine.pVhds[i], detail);
}

} // namespace

void HyperVList(const Operation &operation) {
    const bool detail = operation.Has(sw::detail);
    ServiceSession<IHyperV> hyperV(operation, CLSID_HyperVService);
    OwnedVirtualMachineList machines;
    CheckServiceCall(hyperV->ListVirtualMachines(detail ? TRUE : FALSE, machines.Out()), MSG_LIST_VIRTUAL_MACHINES_FAILED);
    if (machines->dwCount == 0 || machines->pVms == nullptr) {
        Print(L"No Hyper-V virtual machines are configured on this system.\n");
        return;
    }
    for (DWORD i = 0; i < machines->dwCount; ++i)
        PrintMachine(machines->pVms[i], detail);
}
