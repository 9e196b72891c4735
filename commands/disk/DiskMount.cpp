// disk add_mount and remove_mount: a further mount point for the volume of a
// connected LUN, or one mount point fewer. The volume name and the mount point
// go to the service as typed; the service judges them.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "front_end/Switches.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

namespace {

struct MountRequest {
    const wchar_t *volumeName;
    const wchar_t *mountPoint;
};

// The volume name is examined first, so a line lacking both reports the volume name.
MountRequest ReadMountRequest(const Operation &operation) {
    return {operation.Required(sw::vn), operation.Required(sw::mp)};
}

} // namespace

void DiskAddMount(const Operation &operation) {
    // The service is reached before the switches are read: an unreachable
    // service is reported even for an incomplete command line.
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(operation, CLSID_VirtualDiskService);

    const MountRequest request = ReadMountRequest(operation);
    const boolean createFolder = operation.Has(sw::create_folder) ? 1 : 0;
    CheckServiceCall(disk->AddMountPoint(request.volumeName, request.mountPoint, createFolder), MSG_ADD_MOUNT_POINT_FAILED);
}

void DiskRemoveMount(const Operation &operation) {
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(operation, CLSID_VirtualDiskService);

    const MountRequest request = ReadMountRequest(operation);
    CheckServiceCall(disk->RemoveMountPoint(request.volumeName, request.mountPoint), MSG_REMOVE_MOUNT_POINT_FAILED);
}
