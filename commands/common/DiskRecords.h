// Release of the connected-disk records that the service returns.
#pragma once

#include "Corvane.h"
#include "service/OwnedRecord.h"

void FreeDiskInfo(DiskInfo &disk);
void FreeDiskInfoList(DiskInfoList &list);
void FreeDiskInfoExList(DiskInfoExList &list);
void FreeInitiatorInfo(InitiatorInfo &initiator);
void FreeUncPathInfo(UncPathInfo &info);

using OwnedDiskInfoList = OwnedRecord<DiskInfoList, FreeDiskInfoList>;
using OwnedDiskInfoExList = OwnedRecord<DiskInfoExList, FreeDiskInfoExList>;
using OwnedInitiatorInfo = OwnedRecord<InitiatorInfo, FreeInitiatorInfo>;

using OwnedInitiator = OwnedAllocation<InitiatorInfo, FreeInitiatorInfo>;
using OwnedUncPathInfo = OwnedAllocation<UncPathInfo, FreeUncPathInfo>;
using OwnedDisk = OwnedAllocation<DiskInfo, FreeDiskInfo>;
