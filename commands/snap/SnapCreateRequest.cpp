#include "commands/snap/SnapCreateRequest.h"

#include "MessageIds.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <cstring>

namespace {

// Zero-filled COM task memory, so that a half-built request frees cleanly.
void *AllocateZeroed(size_t bytes) {
    void *memory = CoTaskMemAlloc(bytes);
    if (memory == nullptr)
        throw AlertUserException(MSG_CREATE_SNAPSHOT_FAILED, E_OUTOFMEMORY);
    std::memset(memory, 0, bytes);
    return memory;
}

} // namespace

SnapshotCreateRequestOwner::SnapshotCreateRequestOwner(const std::vector<std::wstring> &mountPoints, bool onlyListedLuns) {
    try {
        m_request = static_cast<SnapshotCreateRequest *>(AllocateZeroed(sizeof(SnapshotCreateRequest)));
        m_request->bReserved = FALSE;
        m_request->bAllLunsOnVolumes = onlyListedLuns ? FALSE : TRUE;
        const DWORD count = static_cast<DWORD>(mountPoints.size());
        m_request->pDrives = static_cast<SnapshotDriveEntry *>(AllocateZeroed(count * sizeof(SnapshotDriveEntry)));
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
    for (DWORD i = 0; m_request->pDrives != nullptr && i < m_request->dwDriveCount; ++i)
        CoTaskMemFree(m_request->pDrives[i].wszDrive);
    CoTaskMemFree(m_request->pDrives);
    CoTaskMemFree(m_request);
    m_request = nullptr;
}
