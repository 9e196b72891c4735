// snap delete, rename and update_mirror: one snapshot copy, or the mirror
// relationship, of the LUN at a mount point.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/SnapMountRequest.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"

#include <string>

namespace {

// The service object and its progress sink; the switches are read afterwards.
struct ManageSession {
    ComPtr<ISnapShotManage> manage;
    EventConnection events;
};

ManageSession OpenManage(const CCommandLine &cl) {
    ManageSession session;
    CreateServiceInterface(cl.MachineName(), CLSID_SnapShotService, session.manage);
    session.events = ConnectSink<CSnapShotEvents>(session.manage.Get());
    return session;
}

} // namespace

void SnapDelete(CCommandLine &cl) {
    ManageSession session = OpenManage(cl);
    const std::wstring name = RequireSnapValue(cl, sw::s, op::Delete, MSG_USAGE_SNAPSHOT_NAME);
    const std::wstring mountPoint = RequireSnapMountPoint(cl, op::Delete);

    boolean queued = 0;
    CheckServiceCall(session.manage->DeleteSnapshot(mountPoint.c_str(), name.c_str(), &queued), MSG_DELETE_SNAPSHOT_FAILED);
    if (queued)
        Print(L"\nThe snapshot copy was queued for deletion as a Reflexa Update is in progress on the storage system Volume.\n");
}

void SnapRename(CCommandLine &cl) {
    ManageSession session = OpenManage(cl);
    const std::wstring mountPoint = RequireSnapMountPoint(cl, op::Rename);
    const std::wstring oldName = RequireSnapValue(cl, sw::o, op::Rename, MSG_USAGE_SNAPSHOT_NAME);
    // The new name is the service's to judge: it refuses names it cannot use.
    const std::wstring newName = RequireSnapValue(cl, sw::n, op::Rename, MSG_USAGE_NEW_SNAPSHOT_NAME);

    CheckServiceCall(session.manage->RenameSnapshot(mountPoint.c_str(), oldName.c_str(), newName.c_str()),
                     MSG_RENAME_SNAPSHOT_FAILED);
}

void MirrorUpdate(CCommandLine &cl) {
    ManageSession session = OpenManage(cl);
    const std::wstring mountPoint = RequireSnapMountPoint(cl, op::UpdateMirror);

    CheckServiceCall(session.manage->UpdateMirror(mountPoint.c_str()), MSG_UPDATE_MIRROR_FAILED);
}
