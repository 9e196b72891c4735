// What the two volume-restore operations share: their switches and the
// records the restore check returns.
#pragma once

#include "Corvane.h"
#include "commands/snap/SnapMountRequest.h"
#include "front_end/Operation.h"
#include "service/OwnedRecord.h"

// -f, -volume and -s, checked in this order, as private copies.
struct VolumeRestoreTarget {
    SnapRequestString storageSystem;
    SnapRequestString volume;
    SnapRequestString snapshotName;
};
VolumeRestoreTarget RequireVolumeRestoreTarget(const Operation &operation);

void FreeNewerSnapshotList(NewerSnapshotList &list);
void FreeNonLunFileList(NonLunFileList &list);
using OwnedNewerSnapshotList = OwnedRecord<NewerSnapshotList, FreeNewerSnapshotList>;
using OwnedNonLunFileList = OwnedRecord<NonLunFileList, FreeNonLunFileList>;

// The word for a Reflexa relationship state ("idle", "in-sync", ...; "do not
// know" for any value outside the table).
const wchar_t *MirrorStateWord(DWORD state);
