// snap delete, rename and update_mirror: one snapshot copy, or the mirror
// relationship, of the LUN at a mount point.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/RequiredSwitch.h"
#include "commands/snap/SnapMountRequest.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <string>

namespace {

// The service object and its progress sink; the switches are read afterwards.
using ManageSession = ServiceSession<ISnapShotManage, CSnapShotEvents>;

} // namespace

void SnapDelete(CCommandLine &cl) {
    ManageSession session(cl, CLSID_SnapShotService);
    const std::wstring name = RequiredString(cl, sw::s, cmd::Snap, op::Delete, MSG_USAGE_SNAPSHOT_NAME);
    const std::wstring mountPoint = RequiredMountPoint(cl, cmd::Snap, op::Delete, MSG_USAGE_MOUNT_POINT);

    boolean queued = 0;
    CheckServiceCall(session->DeleteSnapshot(mountPoint.c_str(), name.c_str(), &queued), MSG_DELETE_SNAPSHOT_FAILED);
    if (queued)
        Print(L"\nThe snapshot copy was queued for deletion as a Reflexa Update is in progress on the storage system Volume.\n");
}

void SnapRename(CCommandLine &cl) {
    ManageSession session(cl, CLSID_SnapShotService);
    const std::wstring mountPoint = RequiredMountPoint(cl, cmd::Snap, op::Rename, MSG_USAGE_MOUNT_POINT);
    const std::wstring oldName = RequiredString(cl, sw::o, cmd::Snap, op::Rename, MSG_USAGE_SNAPSHOT_NAME);
    // The new name is the service's to judge: it refuses names it cannot use.
    const std::wstring newName = RequiredString(cl, sw::n, cmd::Snap, op::Rename, MSG_USAGE_NEW_SNAPSHOT_NAME);

    CheckServiceCall(session->RenameSnapshot(mountPoint.c_str(), oldName.c_str(), newName.c_str()), MSG_RENAME_SNAPSHOT_FAILED);
}

void MirrorUpdate(CCommandLine &cl) {
    ManageSession session(cl, CLSID_SnapShotService);
    const std::wstring mountPoint = RequiredMountPoint(cl, cmd::Snap, op::UpdateMirror, MSG_USAGE_MOUNT_POINT);

    CheckServiceCall(session->UpdateMirror(mountPoint.c_str()), MSG_UPDATE_MIRROR_FAILED);
}
