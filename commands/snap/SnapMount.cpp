// snap mount (and its older form) and snap unmount: a snapshot copy of a LUN
// made visible as a LUN of its own, and taken away again.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/SnapMountNumber.h"
#include "commands/snap/SnapMountRequest.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

namespace {

// The switches both mount forms require, checked in this order.
struct MountTarget {
    std::wstring snapshotName;
    std::wstring mountPoint;
    std::wstring liveMountPoint;
};

MountTarget RequireMountTarget(const Operation &operation) {
    MountTarget target;
    target.snapshotName = operation.RequiredText(sw::s);
    target.mountPoint = operation.RequiredMountPoint();
    target.liveMountPoint = operation.RequiredText(sw::k);
    return target;
}

// Absent, the live machine goes as the empty string: the service then takes
// its own machine.
const wchar_t *LiveMachine(const Operation &operation) {
    const wchar_t *machine = operation.Optional(sw::r);
    return machine != nullptr ? machine : L"";
}

// The older mount knows neither Reflexa volumes nor the try-drive flag: every
// switch beyond the machines, the snapshot and the two mount points is ignored.
void MountOld(const Operation &operation) {
    ServiceSession<ISnapShotInfo, CSnapShotEvents> info(operation, CLSID_SnapShotService);
    const MountTarget target = RequireMountTarget(operation);
    const SnapRequestString liveMachine(LiveMachine(operation), MSG_MOUNT_SNAPSHOT_FAILED);
    PrintSnapWaitMessage();
    const SnapRequestString liveMountPoint(target.liveMountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString snapshotName(target.snapshotName, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString mountPoint(target.mountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    CheckServiceCall(info->MountSnapshotOld(liveMachine.Get(), liveMountPoint.Get(), snapshotName.Get(), mountPoint.Get(), FALSE),
                     MSG_MOUNT_SNAPSHOT_FAILED);
}

} // namespace

void SnapMount(const Operation &operation) {
    if (operation.Has(sw::old)) {
        MountOld(operation);
        return;
    }
    // Both sinks: progress lines and, for a Reflexa volume, the mirror lines.
    ServiceSession<ISnapShotMount, CSnapShotEvents, CSnapShotEvents2> mount(operation, CLSID_SnapShotService);
    const MountTarget target = RequireMountTarget(operation);
    const SnapRequestString liveMachine(LiveMachine(operation), MSG_MOUNT_SNAPSHOT_FAILED);
    // Which volume is mounted is the service's choice from these; any
    // combination is passed on as given, a missing one as null.
    const SnapRequestString volume(operation.Optional(sw::sdv), MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString storageSystem(operation.Optional(sw::sdf), MSG_MOUNT_SNAPSHOT_FAILED);
    const LONG number = MountNumber(operation.OptionalList(sw::int_));
    PrintSnapWaitMessage();
    const SnapRequestString liveMountPoint(target.liveMountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString snapshotName(target.snapshotName, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString mountPoint(target.mountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    const boolean reflexaDestination = operation.Has(sw::smdest) ? TRUE : FALSE;
    const boolean tryDrive = operation.Has(sw::trydrive) ? TRUE : FALSE;
    CheckServiceCall(mount->MountSnapshot(liveMachine.Get(), liveMountPoint.Get(), snapshotName.Get(), mountPoint.Get(), tryDrive,
                                          reflexaDestination, storageSystem.Get(), volume.Get(), number),
                     MSG_MOUNT_SNAPSHOT_FAILED);
}

void SnapUnmount(const Operation &operation) {
    ServiceSession<ISnapShotManage, CSnapShotEvents> manage(operation, CLSID_SnapShotService);
    const SnapRequestString mountPoint(operation.RequiredMountPoint(), MSG_UNMOUNT_SNAPSHOT_FAILED);
    const SnapRequestString reserved(L"", MSG_UNMOUNT_SNAPSHOT_FAILED);
    PrintSnapWaitMessage();
    // A forced unmount goes ahead even while an application holds the disk.
    const HRESULT hr = operation.Has(sw::f) ? manage->UnmountSnapshotForced(mountPoint.Get(), reserved.Get())
                                            : manage->UnmountSnapshot(mountPoint.Get(), reserved.Get());
    CheckServiceCall(hr, MSG_UNMOUNT_SNAPSHOT_FAILED);
}
