// The one LUN that delete, disconnect and expand act on, named either by a
// mount point (-d) or by a LUN or UNC path (-p), never by both.
#pragma once

#include "Corvane.h"
#include "front_end/Operation.h"

#include <string>

// The service's code for a refusal to touch a LUN that is backed by a snapshot copy.
constexpr HRESULT kSnapshotBackedDisk = static_cast<HRESULT>(0xC004020Fu);

struct DiskTarget {
    std::wstring storageSystem;
    std::wstring storageSystemPath;
    const wchar_t *path = nullptr; // -p as typed; null when named by mount point
    bool namedByMountPoint = false;
    bool backedBySnapshot = false; // known only when named by mount point
};

// How a -p path is turned into a LUN.
enum class PathLookup {
    SplitOnly,      // split (or translate) the path; the LUN need not be connected
    MustBeConnected // find the connected disk that has the path
};

// The usage fault of the operation's -d and -p unless exactly one of them
// carries a value. With SplitOnly, a path that cannot be split prints the
// incorrect-path text and throws LocalErrorException(badPathMessage).
DiskTarget NameDisk(IVirtualDisk *disk, const Operation &operation, PathLookup lookup, unsigned badPathMessage = 0);
