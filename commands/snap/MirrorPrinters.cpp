#include "commands/snap/MirrorPrinters.h"

#include "front_end/Console.h"
#include "front_end/Messages.h"

#include <string>

namespace {

constexpr DWORD kNoDiskId = 0xFFFFFFFFu;

const wchar_t *RelationStateText(DWORD state) {
    switch (state) {
    case 1:
        return L"Uninitialized";
    case 2:
        return L"Reflexaed";
    case 3:
        return L"Brokenoff";
    case 4:
        return L"Quiesced";
    case 5:
        return L"Source";
    default:
        return L"Unknown";
    }
}

const wchar_t *CloneStatusText(DWORD status) {
    switch (status) {
    case 0:
        return L"Clonara Success";
    case 2:
        return L"Clonara on root, or traditional volumes invalid";
    case 3:
        return L"Clonara on VOS version lower than 7.1 not allowed";
    case 4:
        return L"not enough space on aggregate for Clonara";
    case 5:
        return L"Clonara disabled on host";
    case 6:
        return L"Clonara disabled for VSS on host";
    default:
        return L"Unknown Clonara status";
    }
}

} // namespace

void PrintMirrorDestinations(const wchar_t *prefix, DWORD count, const MirrorDestination *destinations) {
    Print(L"%ls%d Reflexa destination(s)\n", prefix, static_cast<int>(count));
    for (DWORD i = 0; destinations != nullptr && i < count; ++i) {
        const MirrorDestination &destination = destinations[i];
        Print(L"%ls%lsSource: %ls Snapshot Copy: %ls Destination: %ls %ls [%ls]\n", L" ", prefix, OrNull(destination.wszSource),
              OrNull(destination.wszSnapshot), OrNull(destination.wszDestination), RelationStateText(destination.dwRelationState),
              CloneStatusText(destination.dwCloneStatus));
    }
}

void PrintMountPointMirrors(const MountPointMirrorList &lists) {
    Print(L"%ls%d Reflexa mountpoint lists(s)\n", L"", static_cast<int>(lists.dwCount));
    for (DWORD i = 0; lists.pMountPoints != nullptr && i < lists.dwCount; ++i) {
        const MountPointMirror &entry = lists.pMountPoints[i];
        const std::wstring diskId = entry.dwDiskId == kNoDiskId ? L"Invalid" : std::to_wstring(entry.dwDiskId);
        Print(L"%lsMountpoint: %ls DiskID: %ls  Valid Mountpoint: %ls \n", L"", OrNull(entry.wszMountPoint), diskId.c_str(),
              BoolToYesNo(entry.bValidMountPoint != 0));
        PrintMirrorDestinations(L"\t", entry.dwDestinationCount, entry.pDestinations);
    }
}
