#include "commands/snap/SnapListRecords.h"

#include "MessageIds.h"
#include "commands/common/SentRecords.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <cstring>

namespace {

void FreeSnapshots(SnapshotInfo *&snapshots, DWORD &count) {
    FreeEach(snapshots, count, FreeSnapshotInfo);
}

} // namespace

void FreeSnapshotInfo(SnapshotInfo &snapshot) {
    FreeAndClear(snapshot.wszName);
}

void FreeSnapshotArray(SnapshotArray &list) {
    FreeSnapshots(list.pSnapshots, list.dwCount);
}

void FreeDriveSnapshotsArray(DriveSnapshotsArray &list) {
    FreeEach(list.pDrives, list.dwCount, [](DriveSnapshots &drive) {
        FreeAndClear(drive.wszDrive);
        FreeAndClear(drive.wszError);
        FreeSnapshots(drive.pSnapshots, drive.dwSnapshotCount);
    });
}

void FreeVolumeSnapshotArray(VolumeSnapshotArray &list) {
    FreeEach(list.pSnapshots, list.dwCount, [](VolumeSnapshot &snapshot) { FreeAndClear(snapshot.wszName); });
}

DriveNameArrayOwner::DriveNameArrayOwner(const std::vector<std::wstring> &drives, unsigned failedMessageId) {
    try {
        m_array = AllocateSentRecords<DriveNameArray>(1, failedMessageId).Release();
        const DWORD count = static_cast<DWORD>(drives.size());
        m_array->pwszDrives = AllocateSentRecords<LPWSTR>(count, failedMessageId).Release();
        m_array->dwCount = count;
        for (DWORD i = 0; i < count; ++i) {
            m_array->pwszDrives[i] = CoTaskStrDup(drives[i].c_str());
            if (m_array->pwszDrives[i] == nullptr)
                throw AlertUserException(failedMessageId, E_OUTOFMEMORY);
        }
    } catch (...) {
        // The destructor does not run for a constructor that throws.
        Free();
        throw;
    }
}

DriveNameArrayOwner::~DriveNameArrayOwner() {
    Free();
}

void DriveNameArrayOwner::Free() {
    if (m_array == nullptr)
        return;
    FreeStringArray(m_array->pwszDrives, m_array->dwCount);
    CoTaskMemFree(m_array);
    m_array = nullptr;
}
