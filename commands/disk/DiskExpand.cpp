// disk expand: grows a LUN by a number of megabytes, within the limits that
// the service reports for it, and shows the grown disk.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/DiskPrinters.h"
#include "commands/common/DiskRecords.h"
#include "commands/disk/DiskTarget.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"
#include "front_end/Switches.h"
#include "front_end/Values.h"
#include "service/EventSinks.h"
#include "service/OwnedRecord.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr unsigned kReserveNo = 0;
constexpr unsigned kReserveYes = 1;
constexpr unsigned kReserveAbsent = 0xFFFFFFFEu;
constexpr unsigned kReserveInvalid = 0xFFFFFFFFu;

// Largest sizes, in MB, when the service cannot say how far a disk may grow:
// the MBR bound (also for disks under the small-disk limit) and the general one.
constexpr uint64_t kSmallDiskMaxMB = 2097023;
constexpr uint64_t kLargeDiskMaxMB = 16742279;
constexpr DWORD kPartitionStyleMbr = 1;

uint64_t ReadExpandSize(const Operation &operation) {
    uint64_t megabytes = 0;
    if (!ParseSizeMB(operation.Required(sw::z), megabytes))
        operation.Usage(sw::z);
    return megabytes;
}

unsigned ReadSpaceReservation(const Operation &operation) {
    const std::optional<const wchar_t *> answer = operation.YesNo(sw::rs);
    if (!answer)
        return kReserveAbsent;
    const wchar_t *text = *answer;
    if (text == nullptr)
        return kReserveInvalid;
    if (_wcsicmp(text, L"y") == 0)
        return kReserveYes;
    if (_wcsicmp(text, L"n") == 0)
        return kReserveNo;
    return kReserveInvalid;
}

uint64_t LargestExpansion(const ExpandLimits &limits, bool keepReserve) {
    if (limits.bLimitsValid)
        return keepReserve ? limits.llMaxWithReserve : limits.llMaxWithoutReserve;
    // Unsigned: a disk already past the bound gets a wrapped, huge limit, and the service has the last word.
    if (limits.bSmallDiskLimit || limits.dwPartitionStyle == kPartitionStyleMbr)
        return kSmallDiskMaxMB - limits.llCurrentSize;
    return kLargeDiskMaxMB - limits.llCurrentSize;
}

long long Signed(uint64_t value) {
    return static_cast<long long>(value);
}

// Explains why the size cannot be granted. The refusal carries the limits
// query's own result, S_OK, so the explanation is all that is printed and the
// run ends with status 0: scripts have always seen it that way.
void CheckExpandRange(uint64_t size, const ExpandLimits &limits, uint64_t largest, bool keepReserve) {
    if (size < limits.llMin) {
        Print(L"\nInvalid expand size %I64dMB. Must be in range [%I64dMB, %I64dMB].\n", Signed(size), Signed(limits.llMin),
              Signed(largest));
        throw AlertUserException(MSG_EXPAND_DISK_FAILED, S_OK);
    }
    if (size <= largest)
        return;
    if (largest != 0 || !keepReserve)
        Print(L"\nInvalid expand size %I64dMB. There is not enough free disk space.\nYou can only expand this disk in range "
              L"[%I64dMB, %I64dMB] if -rs switch is 'y'.\n -OR-\nYou can expand this disk in range [%I64dMB, %I64dMB] if -rs "
              L"switch is 'n'.\n",
              Signed(size), Signed(limits.llMin), Signed(limits.llMaxWithReserve), Signed(limits.llMin),
              Signed(limits.llMaxWithoutReserve));
    else
        Print(L"\nInvalid expand size %I64dMB. There is not enough free disk space.\nYou cannot expand this disk with -rs "
              L"switch 'y'.\nYou can expand this disk in range [%I64dMB, %I64dMB] if -rs switch is 'n'.\n",
              Signed(size), Signed(limits.llMin), Signed(limits.llMaxWithoutReserve));
    throw AlertUserException(MSG_EXPAND_DISK_FAILED, S_OK);
}

void ExpandAndShow(IVirtualDisk *disk, const DiskTarget &target, uint64_t size) {
    CoTaskPtr<ExpandRequest> request = AllocateSentRecords<ExpandRequest>(1, MSG_EXPAND_DISK_FAILED);
    // The record points into the target's strings, which outlive the call.
    request.Get()->wszPath = const_cast<wchar_t *>(target.path);
    request.Get()->wszStorageSystem = const_cast<wchar_t *>(target.storageSystem.c_str());
    request.Get()->wszStorageSystemPath = const_cast<wchar_t *>(target.storageSystemPath.c_str());
    request.Get()->llExpandSize = size;

    OwnedDisk expanded;
    CheckServiceCall(disk->ExpandDisk(request.Get(), expanded.Receive()), MSG_EXPAND_DISK_FAILED);
    if (expanded.Get() != nullptr)
        PrintDiskInfo(*expanded.Get());
}

} // namespace

void DiskExpand(const Operation &operation) {
    ServiceSession<IVirtualDisk, CVirtualDiskEvents> disk(operation, CLSID_VirtualDiskService);

    const uint64_t size = ReadExpandSize(operation);
    const DiskTarget target = NameDisk(disk.Get(), operation, PathLookup::SplitOnly, MSG_EXPAND_DISK_FAILED);
    if (target.namedByMountPoint && target.backedBySnapshot)
        throw AlertUserException(MSG_EXPAND_SNAPSHOT_BACKED_DISK, kSnapshotBackedDisk);

    ExpandLimits limits = {};
    CheckServiceCall(disk->GetExpandLimits(target.storageSystem.c_str(), target.storageSystemPath.c_str(), &limits),
                     MSG_EXPAND_DISK_FAILED);

    const unsigned reservation = ReadSpaceReservation(operation);
    if (reservation == kReserveInvalid)
        operation.Usage(sw::rs);
    // Without -rs the space for snapshot copies stays reserved.
    const bool keepReserve = reservation != kReserveNo;
    CheckExpandRange(size, limits, LargestExpansion(limits, keepReserve), keepReserve);

    ExpandAndShow(disk.Get(), target, size);
}
