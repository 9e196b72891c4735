// Pieces shared by the mount, unmount and restore handlers: the private
// string copies the service receives and the waiting message.
#pragma once

#include "front_end/Holders.h"

#include <string>

// A CoTaskMem copy of a string for one service call, freed when it goes. The
// service gets its own copy, never a pointer into the command line.
class SnapRequestString {
public:
    // A null text stays null. Out of memory is the operation's own alert
    // (failedMessageId) with E_OUTOFMEMORY.
    SnapRequestString(const wchar_t *text, unsigned failedMessageId);
    SnapRequestString(const std::wstring &text, unsigned failedMessageId) : SnapRequestString(text.c_str(), failedMessageId) {}
    const wchar_t *Get() const { return m_copy.Get(); }

private:
    CoTaskPtr<wchar_t> m_copy;
};

// The waiting message before a service call that can take long.
void PrintSnapWaitMessage();
