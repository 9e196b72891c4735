#include "commands/common/LunPath.h"

#include "MessageIds.h"
#include "commands/common/DiskPrinters.h"
#include "commands/common/DiskRecords.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "service/ServiceAccess.h"

#include <cwchar>

namespace {

bool EqualIgnoringCase(const wchar_t *a, const std::wstring &b) {
    return _wcsicmp(OrEmpty(a), b.c_str()) == 0;
}

void EnumerateDisks(IVirtualDisk *disk, OwnedDiskInfoList &disks) {
    HRESULT hr = disk->EnumerateDisks(disks.Out());
    CheckServiceCall(hr, MSG_LIST_DISKS_FAILED);
}

} // namespace

long SplitLunPath(const wchar_t *path, LunLocation &out) {
    if (path == nullptr)
        return kInvalidLunPath;
    const wchar_t *colon = wcschr(path, L':');
    if (colon == nullptr)
        return kInvalidLunPath;
    // "/vol/" must follow the first colon directly; the match is case-sensitive.
    const wchar_t *vol = wcsstr(colon, L"/vol/");
    if (vol != colon + 1)
        return kInvalidLunPath;
    out.storageSystem.assign(path, colon);
    out.storageSystemPath = colon + 1;
    return 0;
}

long ParseLunPath(IVirtualDisk *disk, const wchar_t *path, LunLocation &out) {
    if (path == nullptr)
        return kInvalidLunPath;
    if (path[0] != L'\\')
        return SplitLunPath(path, out);

    PrintNarrow("\nNotice: UNC path is deprecated.  LUN path usage is preferred.\n\n");
    UncPathInfo *translated = nullptr;
    const HRESULT hr = disk->TranslateUncPath(path, &translated);
    OwnedUncPathInfo owned(translated); // the service may send a record with its refusal too
    // Anything but S_OK is the service's refusal, S_FALSE included: its code is the status.
    if (hr != S_OK)
        return hr;
    // A translation that names no storage system or no path names no LUN: it
    // must never reach a call that deletes or grows one.
    if (translated == nullptr || OrEmpty(translated->wszStorageSystem)[0] == L'\0' ||
        OrEmpty(translated->wszStorageSystemPath)[0] == L'\0')
        return kInvalidLunPath;
    out.storageSystem = translated->wszStorageSystem;
    out.storageSystemPath = translated->wszStorageSystemPath;
    return 0;
}

void PrintIncorrectLunPath() {
    Print(L"\nIncorrect LUN path or UNC path. Path can be specified as <storagesystem name>:/vol/<volumename>/<lunname> or "
          L"\\\\<storagesystem name>\\<cifs share>\\<lunname> \n");
}

ConnectedDisk FindDiskByLunPath(IVirtualDisk *disk, const wchar_t *path) {
    OwnedDiskInfoList disks;
    EnumerateDisks(disk, disks);
    LunLocation location;
    long status = ParseLunPath(disk, path, location);
    if (status != 0) {
        PrintIncorrectLunPath();
        throw AlertUserException(MSG_INVALID_LUN_PATH, status);
    }
    for (DWORD i = 0; i < CountOf(disks->pDisks, disks->dwCount); ++i) {
        const DiskInfo &candidate = disks->pDisks[i];
        if (EqualIgnoringCase(candidate.wszStorageSystemPath, location.storageSystemPath) &&
            EqualIgnoringCase(candidate.wszStorageSystem, location.storageSystem)) {
            ConnectedDisk found;
            found.serialNumber = WidenSerialNumber(candidate.szSerialNumber);
            found.storageSystemPath = OrEmpty(candidate.wszStorageSystemPath);
            found.storageSystem = location.storageSystem;
            found.backedBySnapshot = candidate.bBackedBySnapshot != 0;
            return found;
        }
    }
    throw LocalErrorException(MSG_LUN_PATH_NOT_CONNECTED);
}

ConnectedDisk FindDiskByMountPoint(IVirtualDisk *disk, const wchar_t *mountPoint) {
    OwnedDiskInfoList disks;
    EnumerateDisks(disk, disks);
    const std::wstring wanted = OrEmpty(mountPoint);
    for (DWORD i = 0; i < CountOf(disks->pDisks, disks->dwCount); ++i) {
        const DiskInfo &candidate = disks->pDisks[i];
        for (DWORD m = 0; m < CountOf(candidate.pwszMountPoints, candidate.dwMountPointCount); ++m) {
            // Compared as typed: E: and E:\ are different mount points.
            if (EqualIgnoringCase(candidate.pwszMountPoints[m], wanted)) {
                ConnectedDisk found;
                found.storageSystem = OrEmpty(candidate.wszStorageSystem);
                found.storageSystemPath = OrEmpty(candidate.wszStorageSystemPath);
                found.serialNumber = WidenSerialNumber(candidate.szSerialNumber);
                found.backedBySnapshot = candidate.bBackedBySnapshot != 0;
                return found;
            }
        }
    }
    throw LocalErrorException(MSG_MOUNT_POINT_NOT_FOUND);
}
