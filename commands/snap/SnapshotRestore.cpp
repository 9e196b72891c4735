// snap restore (one connected LUN from one of its snapshot copies) and
// snap restore_volume (a whole storage-system volume on behalf of LUNs that
// are not connected).
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/RequiredSwitch.h"
#include "commands/snap/SnapMountRequest.h"
#include "commands/snap/VolumeRestore.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void SnapshotRestore(CCommandLine &cl) {
    ServiceSession<ISnapShotManage, CSnapShotEvents> manage(cl, CLSID_SnapShotService);
    const SnapRequestString snapshotName(RequiredString(cl, sw::s, cmd::Snap, op::Restore, MSG_USAGE_SNAPSHOT_NAME),
                                         MSG_RESTORE_SNAPSHOT_FAILED);
    const SnapRequestString mountPoint(RequiredMountPoint(cl, cmd::Snap, op::Restore, MSG_USAGE_MOUNT_POINT),
                                       MSG_RESTORE_SNAPSHOT_FAILED);
    PrintSnapWaitMessage();
    CheckServiceCall(manage->RestoreSnapshot(mountPoint.Get(), snapshotName.Get()), MSG_RESTORE_SNAPSHOT_FAILED);
}

void VolumeRestore(CCommandLine &cl) {
    ServiceSession<ISnapShotVolumeRestore> restore(cl, CLSID_SnapShotService);
    const VolumeRestoreTarget target = RequireVolumeRestoreTarget(cl, op::RestoreVolume);
    // Forced, the service restores past newer snapshot copies and non-LUN files.
    const boolean force = cl.IsPresent(sw::force) ? TRUE : FALSE;
    CheckServiceCall(restore->RestoreVolume(target.storageSystem.Get(), target.volume.Get(), target.snapshotName.Get(), force),
                     MSG_VOLUME_RESTORE_FAILED);
}
