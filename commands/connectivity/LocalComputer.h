// The name of the computer cvcli runs on, which some requests carry.
#pragma once

#include <windows.h>

#include <string>

// Fills name, or returns false and leaves name alone; each caller reports a
// failure in its own way, from the system error that the failure left.
inline bool LocalComputerName(std::wstring &name) {
    wchar_t buffer[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD chars = MAX_COMPUTERNAME_LENGTH + 1;
    if (!GetComputerNameW(buffer, &chars))
        return false;
    name = buffer;
    return true;
}
