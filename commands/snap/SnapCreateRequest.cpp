#include "commands/snap/SnapCreateRequest.h"

#include "MessageIds.h"
#include "commands/common/SentRecords.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"
#include "service/OwnedRecord.h"

#include <cstring>

namespace {} // namespace

SnapshotCreateRequestOwner::SnapshotCreateRequestOwner(const std::vector<std::wstring> &mountPoints, bool onlyListedLuns) {
    try {
        m_request = AllocateSentRecords<SnapshotCreateRequest>(1, MSG_CREATE_SNAPSHOT_FAILED).Release();
        m_request->bReserved = FALSE;
        m_request->bAllLunsOnVolumes = onlyListedLuns ? FALSE : TRUE;
        const DWORD count = static_cast<DWORD>(mountPoints.size());
        m_request->pDrives = AllocateSentRecords<SnapshotDriveEntry>(count, MSG_CREATE_SNAPSHOT_FAILED).Release();
        m_request->dwDriveCount = count;
        for (DWORD i = 0; i < count; ++i) {
            m_request->pDrives[i].wszDrive = CoTaskStrDup(mountPoints[i].c_str());
            if (m_request->pDrives[i].wszDrive == nullptr)
                throw AlertUserException(MSG_CREATE_SNAPSHOT_FAILED, E_OUTOFMEMORY);
        }
    } catch (...) {
        // The destructor does not run for a constructor that throws.
        Free();
        throw;
    }
}

SnapshotCreateRequestOwner::~SnapshotCreateRequestOwner() {
    Free();
}

void SnapshotCreateRequestOwner::Free() {
    if (m_request == nullptr)
        return;
    FreeEach(m_request->pDrives, m_request->dwDriveCount, [](SnapshotDriveEntry &entry) { FreeAndClear(entry.wszDrive); });
    CoTaskMemFree(m_request);
    m_request = nullptr;
}
