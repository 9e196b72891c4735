#include "commands/connectivity/IscsiRecords.h"

namespace {

// Every string and array is the caller's, whatever the masks say: a field the
// service marked invalid may still hold memory.
void FreeHba(IscsiHba &hba) {
    FreeAndClear(hba.wszName);
    FreeAndClear(hba.wszDescription);
    FreeAndClear(hba.pPortals);
    hba.dwPortalCount = 0;
}

void FreeSession(IscsiSession &session) {
    FreeHba(session.hba);
    FreeAndClear(session.pConnections);
    session.dwConnectionCount = 0;
}

void FreeConnectedTarget(IscsiConnectedTarget &target) {
    FreeAndClear(target.wszTargetName);
    for (DWORD i = 0; target.pSessions != nullptr && i < target.dwSessionCount; ++i)
        FreeSession(target.pSessions[i]);
    FreeAndClear(target.pSessions);
    target.dwSessionCount = 0;
}

} // namespace

void FreeIscsiConnectedTargetList(IscsiConnectedTargetList &list) {
    FreeEach(list.pTargets, list.dwCount, FreeConnectedTarget);
}

void FreeIscsiStorageTargetList(IscsiStorageTargetList &list) {
    FreeEach(list.pTargets, list.dwCount, [](IscsiStorageTarget &target) {
        FreeAndClear(target.wszTargetName);
        FreeAndClear(target.pPortals);
        target.dwPortalCount = 0;
    });
}
