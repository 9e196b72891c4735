// snap mirror_list: the Reflexa destinations of the LUN at one mount point,
// or of each LUN of a mount point list.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/MirrorPrinters.h"
#include "commands/snap/SnapListRecords.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "service/OwnedRecord.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <cwchar>
#include <string>

namespace {

void FreeDestinations(MirrorDestination *&destinations, DWORD &count) {
    for (DWORD i = 0; destinations != nullptr && i < count; ++i) {
        FreeAndClear(destinations[i].wszSource);
        FreeAndClear(destinations[i].wszDestination);
        FreeAndClear(destinations[i].wszSnapshot);
    }
    FreeAndClear(destinations);
    count = 0;
}

void FreeMirrorDestinationList(MirrorDestinationList &list) {
    FreeDestinations(list.pDestinations, list.dwCount);
}

void FreeMountPointMirrorList(MountPointMirrorList &list) {
    FreeEach(list.pMountPoints, list.dwCount, [](MountPointMirror &entry) {
        FreeAndClear(entry.wszMountPoint);
        FreeDestinations(entry.pDestinations, entry.dwDestinationCount);
    });
}

using OwnedMirrorDestinationList = OwnedRecord<MirrorDestinationList, FreeMirrorDestinationList>;
using OwnedMountPointMirrorList = OwnedRecord<MountPointMirrorList, FreeMountPointMirrorList>;

void ListOneMountPoint(ISnapShotMount *mount, const std::wstring &mountPoint) {
    OwnedMirrorDestinationList destinations;
    CheckServiceCall(mount->GetMirrorDestinations(mountPoint.c_str(), destinations.Out()), MSG_LIST_MIRRORS_FAILED);
    PrintMirrorDestinations(L"", destinations->dwCount, destinations->pDestinations);
    // The service lets go of what it kept for the list; our own copy is freed by its holder.
    CheckServiceCall(mount->FreeMirrorDestinations(&destinations.Get()), MSG_FREE_MIRROR_LIST_FAILED);
}

void ListMountPoints(ISnapShotDrives *drives, const CCommandLine::ValueList &values) {
    std::vector<std::wstring> normalized;
    for (const std::wstring &value : values)
        normalized.push_back(NormalizeMountPoint(value));
    const SentDriveNameArray names = BuildDriveNameArray(normalized, MSG_LIST_MIRRORS_FAILED);
    OwnedMountPointMirrorList lists;
    CheckServiceCall(drives->GetMirrorMountPointLists(names.Get(), lists.Out()), MSG_LIST_MIRRORS_FAILED);
    PrintMountPointMirrors(lists.Get());
    CheckServiceCall(drives->FreeMirrorMountPointLists(&lists.Get()), MSG_FREE_MIRROR_LIST_FAILED);
}

} // namespace

void ListMirrors(const Operation &operation) {
    ServiceSession<ISnapShotMount> mount(operation, CLSID_SnapShotService);
    // Both interfaces come from the one object; a service without the second is unusable here.
    ComPtr<ISnapShotDrives> drives;
    const HRESULT hr = mount.As(&drives);
    if (hr != S_OK)
        throw AlertUserException(MSG_SERVICE_UNAVAILABLE, hr);

    // A single mount point wins over a list.
    std::wstring mountPoint;
    if (operation.OptionalMountPoint(mountPoint)) {
        ListOneMountPoint(mount.Get(), mountPoint);
        return;
    }
    ListMountPoints(drives.Get(), operation.RequiredList(sw::D));
}
