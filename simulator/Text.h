// Conversions between the UTF-8 of scenario files and call logs and the UTF-16
// that crosses the service interfaces.
#pragma once

#include <windows.h>

#include <string>

namespace sim {

std::wstring Widen(const std::string &utf8);
std::string Narrow(const wchar_t *wide);     // UTF-8; null gives ""
std::string ToAnsi(const std::string &utf8); // active code page, as serial numbers travel

// A path written the Unix way ("/tmp/x.json") names the same file through
// Wine's Z: drive, so test scripts can hand over their own paths unchanged.
std::wstring HostPath(const std::wstring &path);

// "0x80070057" as an 8-digit hexadecimal text.
std::string HresultText(HRESULT hr);

} // namespace sim
