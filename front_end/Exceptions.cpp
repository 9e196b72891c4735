#include "front_end/Exceptions.h"

#include "front_end/Messages.h"

#include <objbase.h>

#include <cstring>

AlertUserException::AlertUserException(unsigned messageId, HRESULT hr)
    : m_systemError(GetLastError()), m_messageId(messageId), m_hr(hr) {
    m_text.reset(static_cast<wchar_t *>(CoTaskMemAlloc(kTextChars * sizeof(wchar_t))), CoTaskMemFree);
    if (m_text != nullptr) {
        std::memset(m_text.get(), 0, kTextChars * sizeof(wchar_t));
        BuildAlertText(messageId, hr, m_text.get(), kTextChars);
    }
}
