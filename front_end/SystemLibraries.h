// The few functions of system libraries that only some operations need,
// found when first used instead of imported: an import makes every run load
// the library at start (OLEAUT32, SHLWAPI and WS2_32 cost about a tenth of a
// `cvcli help` under Wine). Each library comes from the system folder only
// and stays loaded until the process ends.
#pragma once

#include <winsock2.h> // before windows.h

#include <oleauto.h>
#include <windows.h>

void FreeBstrText(BSTR text);                  // SysFreeString
BOOL RemoveFileSpec(wchar_t *path);            // PathRemoveFileSpecW; FALSE when unavailable
unsigned long Ipv4AddressOf(const char *text); // inet_addr; INADDR_NONE when unavailable
const char *Ipv4TextOf(in_addr address);       // inet_ntoa; null when unavailable
