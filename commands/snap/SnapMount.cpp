// snap mount (and its older form) and snap unmount: a snapshot copy of a LUN
// made visible as a LUN of its own, and taken away again.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/snap/SnapMountNumber.h"
#include "commands/snap/SnapMountRequest.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"

namespace {

// The switches both mount forms require, checked in this order.
struct MountTarget {
    std::wstring snapshotName;
    std::wstring mountPoint;
    std::wstring liveMountPoint;
};

MountTarget RequireMountTarget(const CCommandLine &cl) {
    MountTarget target;
    target.snapshotName = RequireSnapValue(cl, sw::s, op::Mount, MSG_USAGE_SNAPSHOT_NAME);
    target.mountPoint = RequireSnapMountPoint(cl, op::Mount);
    target.liveMountPoint = RequireSnapValue(cl, sw::k, op::Mount, MSG_USAGE_LIVE_MOUNT_POINT);
    return target;
}

// Absent, the live machine goes as the empty string: the service then takes
// its own machine.
const wchar_t *LiveMachine(const CCommandLine &cl) {
    const wchar_t *machine = cl.SingleValue(sw::r);
    return machine != nullptr ? machine : L"";
}

// The older mount knows neither Reflexa volumes nor the try-drive flag: every
// switch beyond the machines, the snapshot and the two mount points is ignored.
void MountOld(CCommandLine &cl) {
    ComPtr<ISnapShotInfo> info;
    CreateServiceInterface(cl.MachineName(), CLSID_SnapShotService, info);
    EventConnection progress = ConnectSink<CSnapShotEvents>(info.Get());
    const MountTarget target = RequireMountTarget(cl);
    const SnapRequestString liveMachine(LiveMachine(cl), MSG_MOUNT_SNAPSHOT_FAILED);
    PrintSnapWaitMessage();
    const SnapRequestString liveMountPoint(target.liveMountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString snapshotName(target.snapshotName, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString mountPoint(target.mountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    CheckServiceCall(info->MountSnapshotOld(liveMachine.Get(), liveMountPoint.Get(), snapshotName.Get(), mountPoint.Get(), FALSE),
                     MSG_MOUNT_SNAPSHOT_FAILED);
}

} // namespace

void SnapMount(CCommandLine &cl) {
    if (cl.IsPresent(sw::old)) {
        MountOld(cl);
        return;
    }
    ComPtr<ISnapShotMount> mount;
    CreateServiceInterface(cl.MachineName(), CLSID_SnapShotService, mount);
    // Both sinks: progress lines and, for a Reflexa volume, the mirror lines.
    EventConnection progress = ConnectSink<CSnapShotEvents>(mount.Get());
    EventConnection mirror = ConnectSink<CSnapShotEvents2>(mount.Get());
    const MountTarget target = RequireMountTarget(cl);
    const SnapRequestString liveMachine(LiveMachine(cl), MSG_MOUNT_SNAPSHOT_FAILED);
    // Which volume is mounted is the service's choice from these; any
    // combination is passed on as given, a missing one as null.
    const SnapRequestString volume(cl.SingleValue(sw::sdv), MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString storageSystem(cl.SingleValue(sw::sdf), MSG_MOUNT_SNAPSHOT_FAILED);
    const LONG number = MountNumber(cl.Values(sw::int_));
    PrintSnapWaitMessage();
    const SnapRequestString liveMountPoint(target.liveMountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString snapshotName(target.snapshotName, MSG_MOUNT_SNAPSHOT_FAILED);
    const SnapRequestString mountPoint(target.mountPoint, MSG_MOUNT_SNAPSHOT_FAILED);
    const boolean reflexaDestination = cl.IsPresent(sw::smdest) ? TRUE : FALSE;
    const boolean tryDrive = cl.IsPresent(sw::trydrive) ? TRUE : FALSE;
    CheckServiceCall(mount->MountSnapshot(liveMachine.Get(), liveMountPoint.Get(), snapshotName.Get(), mountPoint.Get(), tryDrive,
                                          reflexaDestination, storageSystem.Get(), volume.Get(), number),
                     MSG_MOUNT_SNAPSHOT_FAILED);
}

void SnapUnmount(CCommandLine &cl) {
    ComPtr<ISnapShotManage> manage;
    CreateServiceInterface(cl.MachineName(), CLSID_SnapShotService, manage);
    EventConnection progress = ConnectSink<CSnapShotEvents>(manage.Get());
    const SnapRequestString mountPoint(RequireSnapMountPoint(cl, op::Unmount), MSG_UNMOUNT_SNAPSHOT_FAILED);
    const SnapRequestString reserved(L"", MSG_UNMOUNT_SNAPSHOT_FAILED);
    PrintSnapWaitMessage();
    // A forced unmount goes ahead even while an application holds the disk.
    const HRESULT hr = cl.IsPresent(sw::f) ? manage->UnmountSnapshotForced(mountPoint.Get(), reserved.Get())
                                           : manage->UnmountSnapshot(mountPoint.Get(), reserved.Get());
    CheckServiceCall(hr, MSG_UNMOUNT_SNAPSHOT_FAILED);
}
