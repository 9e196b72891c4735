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

void FreeDriveNameArray(DriveNameArray &drives);
using SentDriveNameArray = OwnedAllocation<DriveNameArray, FreeDriveNameArray>;

// A DriveNameArray over copies of the given drives, in their order; the record,
// its pointer array and the copies are in COM task memory. Memory running out
// throws the operation's alert (failedMessageId) with E_OUTOFMEMORY.
SentDriveNameArray BuildDriveNameArray(const std::vector<std::wstring> &drives, unsigned failedMessageId);
