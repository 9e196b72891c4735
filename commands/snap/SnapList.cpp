#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/SnapListPrinters.h"
#include "commands/snap/SnapListRecords.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <string>

namespace {

// Some drives were listed, others not; the list still holds every drive.
constexpr HRESULT kSomeDrivesFailed = static_cast<HRESULT>(0xC004038B);

// The volume path "<storage system>:<volume>" fits the service's path buffer.
constexpr size_t kVolumePathChars = 260;

void ListOneLun(const wchar_t *machine, const std::wstring &mountPoint) {
    ServiceSession<ISnapShotList, CSnapShotEvents> service(machine, CLSID_SnapShotService);
    OwnedSnapshotArray snapshots;
    ULONGLONG unused1 = 0;
    ULONGLONG unused2 = 0;
    ULONGLONG unused3 = 0;
    CheckServiceCall(service->ListSnapshots(mountPoint.c_str(), snapshots.Out(), &unused1, &unused2, &unused3),
                     MSG_LIST_SNAPSHOTS_FAILED);
    PrintSnapshotTable(snapshots.Get());
}

void ListSeveralLuns(const wchar_t *machine, const CCommandLine::ValueList &mountPoints) {
    ServiceSession<ISnapShotSpace> service(machine, CLSID_SnapShotService);
    const SentDriveNameArray drives = BuildDriveNameArray(mountPoints, MSG_LIST_SNAPSHOTS_FAILED);
    OwnedDriveSnapshotsArray snapshots;
    const HRESULT hr = service->ListDriveSnapshots(drives.Get(), snapshots.Out(), TRUE);
    if (hr != S_OK && hr != kSomeDrivesFailed) {
        Print(L"hr=%x\n", static_cast<unsigned>(hr));
        throw AlertUserException(MSG_LIST_SNAPSHOTS_FAILED, hr);
    }
    PrintDriveSnapshots(snapshots.Get());
    // The drives that failed were reported in the list; the run still fails.
    if (hr == kSomeDrivesFailed) {
        Print(L"\n");
        throw AlertUserException(MSG_LIST_SNAPSHOTS_PARTLY_FAILED, hr);
    }
}

void ListVolume(const std::wstring &storageSystem, const std::wstring &volume) {
    std::wstring path = storageSystem + L":" + volume;
    if (path.size() >= kVolumePathChars)
        path.resize(kVolumePathChars - 1);
    // This form always asks the local service: -m is not consulted.
    ServiceSession<ISnapShotMount, CSnapShotEvents> service(nullptr, CLSID_SnapShotService);
    OwnedVolumeSnapshotArray snapshots;
    CheckServiceCall(service->ListVolumeSnapshots(path.c_str(), snapshots.Out()), MSG_LIST_SNAPSHOTS_FAILED);
    PrintVolumeSnapshots(snapshots.Get());
}

} // namespace

void SnapList(const Operation &operation) {
    const wchar_t *machine = operation.Machine();
    const std::wstring volume = OrEmpty(operation.Optional(sw::sdv));
    const std::wstring storageSystem = OrEmpty(operation.Optional(sw::sdf));
    if (!volume.empty() && !storageSystem.empty()) {
        ListVolume(storageSystem, volume);
        return;
    }
    if (!volume.empty() || !storageSystem.empty())
        operation.Usage(sw::sdf);

    std::wstring mountPoint;
    if (operation.OptionalMountPoint(mountPoint)) {
        ListOneLun(machine, mountPoint);
        return;
    }
    ListSeveralLuns(machine, operation.RequiredList(sw::D));
}
