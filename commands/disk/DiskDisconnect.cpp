// disk disconnect: detaches a connected LUN from the host, by force with -f.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/disk/DiskTarget.h"
#include "front_end/Messages.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void DiskDisconnect(const Operation &operation) {
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(operation, CLSID_VirtualDiskService);

    // Only a LUN that is connected to this host can be disconnected from it.
    const DiskTarget target = NameDisk(disk.Get(), operation, PathLookup::MustBeConnected);

    PrintLocalError(MSG_PLEASE_WAIT);
    // -f is a flag: its presence forces the disconnection, whatever follows it.
    const bool force = operation.Has(sw::f);
    const wchar_t *storageSystem = target.storageSystem.c_str();
    const wchar_t *storageSystemPath = target.storageSystemPath.c_str();
    const HRESULT hr = force ? disk->DisconnectDiskForced(storageSystem, storageSystemPath, 0, 0)
                             : disk->DisconnectDisk(storageSystem, storageSystemPath, 0, 0);
    CheckServiceCall(hr, MSG_DISCONNECT_DISK_FAILED);
}
