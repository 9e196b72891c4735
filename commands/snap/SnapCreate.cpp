#include "MessageIds.h"
#include "commands/Handlers.h"
#include "front_end/Exceptions.h"
#include "front_end/Messages.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/OwnedRecord.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <string>
#include <vector>

namespace {

// Characters the storage system does not accept in a snapshot copy name.
// Slashes and backslashes are left for the service to judge.
bool HasForbiddenSnapshotCharacter(const std::wstring &name) {
    return name.find_first_of(L"*:?\"<>|") != std::wstring::npos;
}

void FreeSnapshotCreateRequest(SnapshotCreateRequest &request) {
    FreeEach(request.pDrives, request.dwDriveCount, [](SnapshotDriveEntry &entry) { FreeAndClear(entry.wszDrive); });
}
using SentSnapshotCreateRequest = OwnedAllocation<SnapshotCreateRequest, FreeSnapshotCreateRequest>;

// The record, its entry array and a copy of every mount point in the order
// given. Memory running out is the creation's alert with E_OUTOFMEMORY; what
// was allocated so far goes with the owner.
SentSnapshotCreateRequest BuildRequest(const std::vector<std::wstring> &mountPoints, bool onlyListedLuns) {
    SentSnapshotCreateRequest request = SentSnapshotCreateRequest::Zeroed(MSG_CREATE_SNAPSHOT_FAILED);
    request->bReserved = FALSE;
    request->bAllLunsOnVolumes = onlyListedLuns ? FALSE : TRUE;
    const DWORD count = static_cast<DWORD>(mountPoints.size());
    request->pDrives = AllocateSentRecords<SnapshotDriveEntry>(count, MSG_CREATE_SNAPSHOT_FAILED).Release();
    request->dwDriveCount = count;
    for (DWORD i = 0; i < count; ++i) {
        request->pDrives[i].wszDrive = CoTaskStrDup(mountPoints[i].c_str());
        if (request->pDrives[i].wszDrive == nullptr)
            throw AlertUserException(MSG_CREATE_SNAPSHOT_FAILED, E_OUTOFMEMORY);
    }
    return request;
}

} // namespace

void SnapCreate(const Operation &operation) {
    // The service and its sink come first: a machine that cannot be reached is
    // reported before any mistake in the switches.
    ServiceSession<ISnapShotCreate, CSnapShotEvents> service(operation, CLSID_SnapShotService);

    const std::wstring name = operation.RequiredText(sw::s);
    if (HasForbiddenSnapshotCharacter(name))
        throw LocalErrorException(MSG_INVALID_SNAPSHOT_NAME);

    // No start-up pause here: the debug delay is read by diagnostic builds only.
    const CCommandLine::ValueList &mountPoints = operation.RequiredList(sw::D);

    PrintLocalError(MSG_PLEASE_WAIT);

    // Mount points go to the service as typed, duplicates included.
    const SentSnapshotCreateRequest request = BuildRequest(mountPoints, operation.Has(sw::x));
    const BOOL updateMirror = operation.YesUnlessNo() ? TRUE : FALSE;

    // What the user sees of the result is what the sink printed during the call.
    CheckServiceCall(service->CreateSnapshot(request.Get(), name.c_str(), updateMirror), MSG_CREATE_SNAPSHOT_FAILED);
}
