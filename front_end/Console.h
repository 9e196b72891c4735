// The one way cvcli writes to its standard output. A console gets UTF-16 text
// through WriteConsoleW as it is printed; a pipe or a file gets UTF-8 with
// every line ending in CR LF, as Windows tools write, gathered into blocks and
// written at the latest by FlushOutput. Formats use the Microsoft conventions: %ls for wide and
// %hs for narrow strings, %I64d for 64-bit numbers.
#pragma once

#include <cstdarg>
#include <string>

// printf-style wide output.
void Print(const wchar_t *format, ...);
void PrintV(const wchar_t *format, va_list args);

// printf-style output of narrow text in the active code page (argument echoes,
// IPv4 addresses).
void PrintNarrow(const char *format, ...);

// Text written as it stands, without any format interpretation.
void PrintText(const std::wstring &text);

// Formats into a string with the same conventions as Print.
std::wstring FormatText(const wchar_t *format, ...);
std::wstring FormatTextV(const wchar_t *format, va_list args);

// Replaces each "%s" of a literal help format with the next argument in turn
// ("%%" gives "%"); missing arguments print as "(null)".
std::wstring SubstituteStrings(const wchar_t *format, const wchar_t *const *args, unsigned count);

// A string from a record as the runtime's own formatting shows a null one;
// scripts have always seen "(null)" there.
inline const wchar_t *OrNull(const wchar_t *text) {
    return text != nullptr ? text : L"(null)";
}
// A string from a record, or "" for a null one.
inline const wchar_t *OrEmpty(const wchar_t *text) {
    return text != nullptr ? text : L"";
}

// Writes out what a pipe or file has not received yet (before a prompt).
void FlushOutput();

// Writes out everything, the last CRs included, at the end of the run, and
// gives the Windows error that stopped the writing: 0 when everything was
// written, or when the reader went away (a closed pipe: nobody is left to
// tell), else the error (ERROR_DISK_FULL, ...). Start-up calls it before the
// process ends, on every path.
unsigned long FinishOutput();

// UTF-8 of the text appended to out. Each LF becomes CR LF, and a run of CRs
// before an LF becomes one CR: CRs at the end of a text are held back in
// heldCrs until the next text shows what follows them. AppendHeldCrs writes
// out what is held when nothing more comes.
void AppendUtf8WithCrLf(const wchar_t *text, size_t length, std::string &out, unsigned &heldCrs);
void AppendHeldCrs(std::string &out, unsigned &heldCrs);

// Test seam: when set, output is appended here instead of being written out.
void CaptureOutput(std::wstring *sink);
