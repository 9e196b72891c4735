#include "commands/snap/SnapListRecords.h"

#include "MessageIds.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"
#include "service/OwnedRecord.h"

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

void FreeDriveNameArray(DriveNameArray &drives) {
    FreeStringArray(drives.pwszDrives, drives.dwCount);
}

SentDriveNameArray BuildDriveNameArray(const std::vector<std::wstring> &drives, unsigned failedMessageId) {
    SentDriveNameArray array = SentDriveNameArray::Zeroed(failedMessageId);
    const DWORD count = static_cast<DWORD>(drives.size());
    array->pwszDrives = AllocateSentRecords<LPWSTR>(count, failedMessageId).Release();
    array->dwCount = count;
    for (DWORD i = 0; i < count; ++i) {
        array->pwszDrives[i] = CoTaskStrDup(drives[i].c_str());
        if (array->pwszDrives[i] == nullptr)
            throw AlertUserException(failedMessageId, E_OUTOFMEMORY);
    }
    return array;
}
