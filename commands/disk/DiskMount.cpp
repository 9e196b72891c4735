// disk add_mount and remove_mount: a further mount point for the volume of a
// connected LUN, or one mount point fewer. The volume name and the mount point
// go to the service as typed; the service judges them.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

namespace {

struct MountRequest {
    const wchar_t *volumeName;
    const wchar_t *mountPoint;
};

// The volume name is examined first, so a line lacking both reports the volume name.
MountRequest ReadMountRequest(const CCommandLine &cl, unsigned operation) {
    MountRequest request = {cl.SingleValue(sw::vn), cl.SingleValue(sw::mp)};
    if (request.volumeName == nullptr)
        throw OperationUsageException(cmd::Disk, operation, MSG_USAGE_VOLUME_NAME);
    if (request.mountPoint == nullptr)
        throw OperationUsageException(cmd::Disk, operation, MSG_USAGE_MOUNT_POINT);
    return request;
}

} // namespace

void DiskAddMount(CCommandLine &cl) {
    // The service is reached before the switches are read: an unreachable
    // service is reported even for an incomplete command line.
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(cl, CLSID_VirtualDiskService);

    const MountRequest request = ReadMountRequest(cl, op::AddMount);
    const boolean createFolder = cl.IsPresent(sw::create_folder) ? 1 : 0;
    CheckServiceCall(disk->AddMountPoint(request.volumeName, request.mountPoint, createFolder), MSG_ADD_MOUNT_POINT_FAILED);
}

void DiskRemoveMount(CCommandLine &cl) {
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(cl, CLSID_VirtualDiskService);

    const MountRequest request = ReadMountRequest(cl, op::RemoveMount);
    CheckServiceCall(disk->RemoveMountPoint(request.volumeName, request.mountPoint), MSG_REMOVE_MOUNT_POINT_FAILED);
}
