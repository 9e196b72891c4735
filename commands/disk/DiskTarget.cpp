#include "commands/disk/DiskTarget.h"

#include "commands/common/LunPath.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"

namespace {

// Unlike the look-up's own text, this one starts on the current line.
void PrintIncorrectPathOfOperation() {
    Print(L"Incorrect LUN path or UNC path. Path can be specified as <storagesystem name>:/vol/<volumename>/<lunname> or "
          L"\\\\<storagesystem name>\\<cifs share>\\<lunname> \n");
}

} // namespace

DiskTarget NameDisk(IVirtualDisk *disk, const Operation &operation, PathLookup lookup, unsigned badPathMessage) {
    // A switch given twice, or without a value, names nothing: it counts as absent.
    std::wstring mountPoint;
    const bool byMountPoint = operation.OptionalMountPoint(mountPoint);
    const wchar_t *path = operation.Optional(sw::p);
    if (byMountPoint == (path != nullptr))
        operation.Usage(sw::p);

    DiskTarget target;
    if (byMountPoint) {
        ConnectedDisk found = FindDiskByMountPoint(disk, mountPoint.c_str());
        target.storageSystem = std::move(found.storageSystem);
        target.storageSystemPath = std::move(found.storageSystemPath);
        target.namedByMountPoint = true;
        target.backedBySnapshot = found.backedBySnapshot;
        return target;
    }
    target.path = path;
    if (lookup == PathLookup::MustBeConnected) {
        ConnectedDisk found = FindDiskByLunPath(disk, path);
        target.storageSystem = std::move(found.storageSystem);
        target.storageSystemPath = std::move(found.storageSystemPath);
        return target;
    }
    LunLocation location;
    if (ParseLunPath(disk, path, location) != 0) {
        PrintIncorrectPathOfOperation();
        throw LocalErrorException(badPathMessage);
    }
    target.storageSystem = std::move(location.storageSystem);
    target.storageSystemPath = std::move(location.storageSystemPath);
    return target;
}
