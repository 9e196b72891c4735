#include "commands/snap/VolumeRestore.h"

#include "MessageIds.h"
#include "front_end/Switches.h"

VolumeRestoreTarget RequireVolumeRestoreTarget(const Operation &operation) {
    // Each member is built in declaration order, so the switches are checked
    // -f, -volume, -s.
    return {SnapRequestString(operation.RequiredText(sw::f), MSG_VOLUME_RESTORE_FAILED),
            SnapRequestString(operation.RequiredText(sw::volume), MSG_VOLUME_RESTORE_FAILED),
            SnapRequestString(operation.RequiredText(sw::s), MSG_VOLUME_RESTORE_FAILED)};
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
