// snap restore_volume_check: asks whether a storage-system volume could be
// restored from a snapshot copy and, when not, prints every reason the
// service gave: non-LUN files, newer snapshot copies, an unbroken Reflexa
// relationship.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/VolumeRestore.h"
#include "front_end/Console.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

namespace {

// The reasons the service names by its result; the lists come with them.
constexpr HRESULT kNonLunFiles = static_cast<HRESULT>(0xC00403EEu);
constexpr HRESULT kNewerSnapshots = static_cast<HRESULT>(0xC00403F6u);
constexpr HRESULT kNonLunFilesAndNewerSnapshots = static_cast<HRESULT>(0xC00403F8u);

const wchar_t *TrueFalse(boolean value) {
    return value ? L"true" : L"false";
}

void PrintNonLunFiles(const NonLunFileList &files) {
    const int count = static_cast<int>(files.dwCount);
    if (files.dwCount == 1)
        Print(L"\nThere is %d non-LUN file in the volume.\n\n", count);
    else
        Print(L"\nThere are %d non-LUN files in the volume.\n\n", count);
    if (files.pFiles == nullptr)
        return;
    for (DWORD i = 0; i < files.dwCount; ++i) {
        const NonLunFile &file = files.pFiles[i];
        Print(L"File %d:\n", static_cast<int>(i + 1));
        Print(L"\tFile name: %ls\n", file.wszFileName);
        Print(L"\tFile path: %ls\n\n", file.wszFilePath);
    }
}

void PrintNewerSnapshot(const NewerSnapshot &snapshot, DWORD number) {
    Print(L"Snapshot copy%d:\n", static_cast<int>(number));
    Print(L"\tSnapshot copy name:\t\t%ls\n", snapshot.wszName);
    Print(L"\tIs snapshot copy busy:\t%ls\n", TrueFalse(snapshot.bBusy));
    Print(L"\tIs snapshot copy consistent:\t%ls\n", TrueFalse(snapshot.bConsistent));
    // The "/t" is the program's long-standing output, not a tab: scripts match it.
    if (snapshot.bBusy && snapshot.wszDependency != nullptr && snapshot.wszDependency[0] != L'\0')
        Print(L"/tSnapshot copy dependency: %ls\n\n", snapshot.wszDependency);
    else
        Print(L"\n");
}

void PrintNewerSnapshots(const NewerSnapshotList &newer) {
    const int count = static_cast<int>(newer.dwCount);
    if (newer.dwCount == 1)
        Print(L"\nThere is %d snapshot copy that is newer than the specified snapshot copy.\n\n", count);
    else
        Print(L"\nThere are %d snapshot copy copies that are newer than the specified snapshot copy.\n\n", count);
    if (newer.pSnapshots == nullptr)
        return;
    for (DWORD i = 0; i < newer.dwCount; ++i)
        PrintNewerSnapshot(newer.pSnapshots[i], i + 1);
}

} // namespace

void VolumeRestoreCheck(const Operation &operation) {
    ServiceSession<ISnapShotVolumeRestore> restore(operation, CLSID_SnapShotService);
    const VolumeRestoreTarget target = RequireVolumeRestoreTarget(operation);
    OwnedNewerSnapshotList newer;
    OwnedNonLunFileList files;
    MirrorDestinationState mirror = {};
    const HRESULT hr = restore->CheckVolumeRestore(target.storageSystem.Get(), target.volume.Get(), target.snapshotName.Get(),
                                                   newer.Out(), files.Out(), &mirror);
    if (mirror.bIsUnbrokenDestination)
        Print(L"\nThe specified volume is a Reflexa destination and is in a non-broken state. Current Reflexa status is: "
              L"%ls\n\n",
              MirrorStateWord(mirror.dwMirrorState));
    if (hr == S_OK) {
        Print(L"\nSpecified volume can be restored.\n\n");
        return;
    }
    if (hr == kNonLunFiles || hr == kNonLunFilesAndNewerSnapshots)
        PrintNonLunFiles(files.Get());
    if (hr == kNewerSnapshots || hr == kNonLunFilesAndNewerSnapshots)
        PrintNewerSnapshots(newer.Get());
    // Printing leaves the call's error object in place for the failure text.
    CheckServiceCall(hr, MSG_VOLUME_RESTORE_FAILED);
}
