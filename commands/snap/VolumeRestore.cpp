#include "commands/snap/VolumeRestore.h"

#include "MessageIds.h"
#include "commands/common/RequiredSwitch.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"

VolumeRestoreTarget RequireVolumeRestoreTarget(const CCommandLine &cl, unsigned operationId) {
    // Each member is built in declaration order, so the switches are checked
    // -f, -volume, -s.
    return {
        SnapRequestString(RequiredString(cl, sw::f, cmd::Snap, operationId, MSG_USAGE_STORAGE_SYSTEM), MSG_VOLUME_RESTORE_FAILED),
        SnapRequestString(RequiredString(cl, sw::volume, cmd::Snap, operationId, MSG_USAGE_STORAGE_VOLUME),
                          MSG_VOLUME_RESTORE_FAILED),
        SnapRequestString(RequiredString(cl, sw::s, cmd::Snap, operationId, MSG_USAGE_SNAPSHOT_NAME), MSG_VOLUME_RESTORE_FAILED)};
}

void FreeNewerSnapshotList(NewerSnapshotList &list) {
    FreeEach(list.pSnapshots, list.dwCount, [](NewerSnapshot &snapshot) {
        FreeAndClear(snapshot.wszName);
        FreeAndClear(snapshot.wszDependency);
    });
}

void FreeNonLunFileList(NonLunFileList &list) {
    FreeEach(list.pFiles, list.dwCount, [](NonLunFile &file) {
        FreeAndClear(file.wszFileName);
        FreeAndClear(file.wszFilePath);
    });
}

const wchar_t *MirrorStateWord(DWORD state) {
    static const wchar_t *const kWords[] = {L"idle",      L"transferring", L"pending", L"aborting", L"migrating",   L"quiescing",
                                            L"resyncing", L"waiting",      L"syncing", L"in-sync",  L"unrecognized"};
    if (state >= 1 && state <= sizeof(kWords) / sizeof(kWords[0]))
        return kWords[state - 1];
    return L"do not know";
}
