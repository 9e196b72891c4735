#include "commands/snap/SnapRestoreVolume.h"

#include "MessageIds.h"
#include "front_end/Switches.h"

VolumeRestoreTarget RequireVolumeRestoreTarget(const CCommandLine &cl, unsigned operationId) {
    // Each member is built in declaration order, so the switches are checked
    // -f, -volume, -s.
    return {SnapRequestString(RequireSnapValue(cl, sw::f, operationId, MSG_USAGE_STORAGE_SYSTEM), MSG_VOLUME_RESTORE_FAILED),
            SnapRequestString(RequireSnapValue(cl, sw::volume, operationId, MSG_USAGE_STORAGE_VOLUME), MSG_VOLUME_RESTORE_FAILED),
            SnapRequestString(RequireSnapValue(cl, sw::s, operationId, MSG_USAGE_SNAPSHOT_NAME), MSG_VOLUME_RESTORE_FAILED)};
}

void FreeNewerSnapshotList(NewerSnapshotList &list) {
    if (list.pSnapshots != nullptr) {
        for (DWORD i = 0; i < list.dwCount; ++i) {
            CoTaskMemFree(list.pSnapshots[i].wszName);
            CoTaskMemFree(list.pSnapshots[i].wszDependency);
        }
    }
    FreeAndClear(list.pSnapshots);
    list.dwCount = 0;
}

void FreeNonLunFileList(NonLunFileList &list) {
    if (list.pFiles != nullptr) {
        for (DWORD i = 0; i < list.dwCount; ++i) {
            CoTaskMemFree(list.pFiles[i].wszFileName);
            CoTaskMemFree(list.pFiles[i].wszFilePath);
        }
    }
    FreeAndClear(list.pFiles);
    list.dwCount = 0;
}

const wchar_t *MirrorStateWord(DWORD state) {
    static const wchar_t *const kWords[] = {L"idle",      L"transferring", L"pending", L"aborting", L"migrating",   L"quiescing",
                                            L"resyncing", L"waiting",      L"syncing", L"in-sync",  L"unrecognized"};
    if (state >= 1 && state <= sizeof(kWords) / sizeof(kWords[0]))
        return kWords[state - 1];
    return L"do not know";
}
