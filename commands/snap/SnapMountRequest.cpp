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

void PrintSnapWaitMessage() {
    PrintLocalError(MSG_PLEASE_WAIT);
}
