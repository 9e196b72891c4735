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

// A record the service allocated as a whole: its fields, then the record.
template <typename Record, void (*Free)(Record &)> class OwnedAllocation {
public:
    explicit OwnedAllocation(Record *record) : m_record(record) {}
    ~OwnedAllocation() {
        if (m_record != nullptr) {
            Free(*m_record);
            CoTaskMemFree(m_record);
        }
    }
    OwnedAllocation(const OwnedAllocation &) = delete;
    OwnedAllocation &operator=(const OwnedAllocation &) = delete;

private:
    Record *m_record;
};
using OwnedInitiator = OwnedAllocation<InitiatorInfo, FreeInitiatorInfo>;
using OwnedUncPathInfo = OwnedAllocation<UncPathInfo, FreeUncPathInfo>;
using OwnedDisk = OwnedAllocation<DiskInfo, FreeDiskInfo>;
