#include "commands/snap/SnapMountRequest.h"

#include "MessageIds.h"
#include "front_end/Exceptions.h"
#include "front_end/Messages.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"

SnapRequestString::SnapRequestString(const wchar_t *text, unsigned failedMessageId) : m_copy(CoTaskStrDup(text)) {
    if (text != nullptr && !m_copy)
        throw AlertUserException(failedMessageId, E_OUTOFMEMORY);
}

std::wstring RequireSnapValue(const CCommandLine &cl, const wchar_t *word, unsigned operationId, unsigned messageId) {
    std::wstring value;
    if (!cl.SingleValueInto(word, value))
        throw OperationUsageException(cmd::Snap, operationId, messageId);
    return value;
}

std::wstring RequireSnapMountPoint(const CCommandLine &cl, unsigned operationId) {
    std::wstring mountPoint;
    if (!cl.MountPointInto(mountPoint))
        throw OperationUsageException(cmd::Snap, operationId, MSG_USAGE_MOUNT_POINT);
    return mountPoint;
}

void PrintSnapWaitMessage() {
    PrintLocalError(MSG_PLEASE_WAIT);
}
