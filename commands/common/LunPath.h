// The two ways a LUN is named on the command line, and the look-ups of a
// connected disk by LUN path or by mount point.
//   LUN path (preferred):  <storage system>:/vol/<volume>/<lun>
//   UNC path (deprecated): \\<storage system>\<cifs share>\<lun>, translated by the service
#pragma once

#include "Corvane.h"

#include <string>

constexpr long kInvalidLunPath = 6112;

struct LunLocation {
    std::wstring storageSystem;
    std::wstring storageSystemPath;
};

// The LUN-path form alone: 0 or kInvalidLunPath.
long SplitLunPath(const wchar_t *path, LunLocation &out);

// Either form: 0, kInvalidLunPath, or the service's HRESULT when it cannot
// translate a UNC path.
long ParseLunPath(IVirtualDisk *disk, const wchar_t *path, LunLocation &out);

struct ConnectedDisk {
    std::wstring serialNumber;
    std::wstring storageSystemPath;
    std::wstring storageSystem;
    bool backedBySnapshot = false;
};

// Throw AlertUserException 5362 when the disks cannot be enumerated; the LUN
// path look-up throws AlertUserException 6112 for a bad path and
// LocalErrorException 5106 when no connected disk has it; the mount point
// look-up throws LocalErrorException 5366 when none has it.
ConnectedDisk FindDiskByLunPath(IVirtualDisk *disk, const wchar_t *path);
ConnectedDisk FindDiskByMountPoint(IVirtualDisk *disk, const wchar_t *mountPoint);

// The text printed before a bad LUN path is reported.
void PrintIncorrectLunPath();
