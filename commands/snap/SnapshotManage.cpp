// snap delete, rename and update_mirror: one snapshot copy, or the mirror
// relationship, of the LUN at a mount point.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/SnapMountRequest.h"
#include "front_end/Console.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <string>

namespace {

// The service object and its progress sink; the switches are read afterwards.
using ManageSession = ServiceSession<ISnapShotManage, CSnapShotEvents>;

} // namespace

void SnapDelete(const Operation &operation) {
    ManageSession session(operation, CLSID_SnapShotService);
    const std::wstring name = operation.RequiredText(sw::s);
    const std::wstring mountPoint = operation.RequiredMountPoint();

    boolean queued = 0;
    CheckServiceCall(session->DeleteSnapshot(mountPoint.c_str(), name.c_str(), &queued), MSG_DELETE_SNAPSHOT_FAILED);
    if (queued)
        Print(L"\nThe snapshot copy was queued for deletion as a Reflexa Update is in progress on the storage system Volume.\n");
}

void SnapRename(const Operation &operation) {
    ManageSession session(operation, CLSID_SnapShotService);
    const std::wstring mountPoint = operation.RequiredMountPoint();
    const std::wstring oldName = operation.RequiredText(sw::o);
    // The new name is the service's to judge: it refuses names it cannot use.
    const std::wstring newName = operation.RequiredText(sw::n);

    CheckServiceCall(session->RenameSnapshot(mountPoint.c_str(), oldName.c_str(), newName.c_str()), MSG_RENAME_SNAPSHOT_FAILED);
}

void MirrorUpdate(const Operation &operation) {
    ManageSession session(operation, CLSID_SnapShotService);
    const std::wstring mountPoint = operation.RequiredMountPoint();

    CheckServiceCall(session->UpdateMirror(mountPoint.c_str()), MSG_UPDATE_MIRROR_FAILED);
}
