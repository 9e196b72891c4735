// disk delete: removes a LUN from its storage system.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/disk/DiskTarget.h"
#include "front_end/Exceptions.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void DiskDelete(const Operation &operation) {
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(operation, CLSID_VirtualDiskService);

    // A LUN path goes to the service as it is: a LUN that is not connected can be deleted too.
    const DiskTarget target = NameDisk(disk.Get(), operation, PathLookup::SplitOnly, MSG_DELETE_DISK_FAILED);
    if (target.namedByMountPoint && target.backedBySnapshot)
        throw AlertUserException(MSG_DELETE_SNAPSHOT_BACKED_DISK, kSnapshotBackedDisk);

    CheckServiceCall(disk->DeleteDisk(target.storageSystem.c_str(), target.storageSystemPath.c_str(), 0, 0),
                     MSG_DELETE_DISK_FAILED);
}
