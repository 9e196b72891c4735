// Release of the iSCSI records that the service returns, and the test of a
// record's presence mask.
#pragma once

#include "Corvane.h"
#include "service/OwnedRecord.h"

// The iSCSI records say field by field whether it holds a value.
inline bool HasField(DWORD mask, DWORD bit) {
    return (mask & bit) != 0;
}

void FreeIscsiConnectedTargetList(IscsiConnectedTargetList &list);
void FreeIscsiStorageTargetList(IscsiStorageTargetList &list);

using OwnedConnectedTargets = OwnedRecord<IscsiConnectedTargetList, FreeIscsiConnectedTargetList>;
using OwnedStorageTargets = OwnedRecord<IscsiStorageTargetList, FreeIscsiStorageTargetList>;
