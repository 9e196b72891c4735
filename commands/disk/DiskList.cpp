#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/DiskPrinters.h"
#include "commands/common/DiskRecords.h"
#include "front_end/Console.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

namespace {

void PrintNoLuns() {
    Print(L"Either no LUNs exist or Corvane could not detect any LUNs\n");
}

// Each LUN is followed by the initiator through which the host reaches it.
void PrintPortInitiator(IVirtualDisk *disk, const DiskInfo &info) {
    if (info.dwType != 1)
        return;
    OwnedInitiatorInfo initiator;
    CheckServiceCall(disk->GetPortInitiator(info.bySCSIPort, initiator.Out()), MSG_LIST_DISKS_FAILED);
    PrintInitiatorInfo(L"", initiator.Get());
}

void ListExtended(IVirtualDisk2 *disk) {
    OwnedDiskInfoExList disks;
    CheckServiceCall(disk->EnumerateDisksEx(disks.Out()), MSG_LIST_DISKS_FAILED);
    const DWORD count = CountOf(disks->pDisks, disks->dwCount);
    if (count == 0)
        PrintNoLuns();
    for (DWORD i = 0; i < count; ++i) {
        const DiskInfoEx &entry = disks->pDisks[i];
        PrintDiskInfoEx(entry);
        if (entry.pDisk != nullptr)
            PrintPortInitiator(disk, *entry.pDisk);
    }
}

void ListBasic(IVirtualDisk *disk) {
    OwnedDiskInfoList disks;
    CheckServiceCall(disk->EnumerateDisks(disks.Out()), MSG_LIST_DISKS_FAILED);
    const DWORD count = CountOf(disks->pDisks, disks->dwCount);
    if (count == 0)
        PrintNoLuns();
    for (DWORD i = 0; i < count; ++i) {
        PrintDiskInfo(disks->pDisks[i]);
        PrintPortInitiator(disk, disks->pDisks[i]);
    }
}

} // namespace

void DiskList(const Operation &operation) {
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(operation, CLSID_VirtualDiskService, SinksLater{});
    // An older service has no IVirtualDisk2: it gets the basic listing. The
    // question is asked before the sink is connected.
    ComPtr<IVirtualDisk2> disk2;
    disk.As(&disk2);
    disk.ConnectSinks();
    if (disk2)
        ListExtended(disk2.Get());
    else
        ListBasic(disk.Get());
}
