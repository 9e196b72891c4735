// Release of the snapshot lists that the service returns, and the drive list
// that the multi-LUN listing sends.
#pragma once

#include "Corvane.h"
#include "service/OwnedRecord.h"

#include <string>
#include <vector>

void FreeSnapshotInfo(SnapshotInfo &snapshot);
void FreeSnapshotArray(SnapshotArray &list);
void FreeDriveSnapshotsArray(DriveSnapshotsArray &list);
void FreeVolumeSnapshotArray(VolumeSnapshotArray &list);

using OwnedSnapshotArray = OwnedRecord<SnapshotArray, FreeSnapshotArray>;
using OwnedDriveSnapshotsArray = OwnedRecord<DriveSnapshotsArray, FreeDriveSnapshotsArray>;
using OwnedVolumeSnapshotArray = OwnedRecord<VolumeSnapshotArray, FreeVolumeSnapshotArray>;

// A DriveNameArray over copies of the given drives, in their order; the record,
// its pointer array and the copies are in COM task memory. Memory running out
// throws the operation's alert (failedMessageId) with E_OUTOFMEMORY.
class DriveNameArrayOwner {
public:
    DriveNameArrayOwner(const std::vector<std::wstring> &drives, unsigned failedMessageId);
    ~DriveNameArrayOwner();
    DriveNameArrayOwner(const DriveNameArrayOwner &) = delete;
    DriveNameArrayOwner &operator=(const DriveNameArrayOwner &) = delete;

    DriveNameArray *Get() const { return m_array; }

private:
    void Free();

    DriveNameArray *m_array = nullptr;
};
