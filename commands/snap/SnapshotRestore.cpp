// snap restore (one connected LUN from one of its snapshot copies) and
// snap restore_volume (a whole storage-system volume on behalf of LUNs that
// are not connected).
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/SnapMountRequest.h"
#include "commands/snap/VolumeRestore.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void SnapshotRestore(const Operation &operation) {
    ServiceSession<ISnapShotManage, CSnapShotEvents> manage(operation, CLSID_SnapShotService);
    const SnapRequestString snapshotName(operation.RequiredText(sw::s), MSG_RESTORE_SNAPSHOT_FAILED);
    const SnapRequestString mountPoint(operation.RequiredMountPoint(), MSG_RESTORE_SNAPSHOT_FAILED);
    PrintSnapWaitMessage();
    CheckServiceCall(manage->RestoreSnapshot(mountPoint.Get(), snapshotName.Get()), MSG_RESTORE_SNAPSHOT_FAILED);
}

void VolumeRestore(const Operation &operation) {
    ServiceSession<ISnapShotVolumeRestore> restore(operation, CLSID_SnapShotService);
    const VolumeRestoreTarget target = RequireVolumeRestoreTarget(operation);
    // Forced, the service restores past newer snapshot copies and non-LUN files.
    const boolean force = operation.Has(sw::force) ? TRUE : FALSE;
    CheckServiceCall(restore->RestoreVolume(target.storageSystem.Get(), target.volume.Get(), target.snapshotName.Get(), force),
                     MSG_VOLUME_RESTORE_FAILED);
}
