// The one way cvcli writes to its standard output. A console gets UTF-16 text
// through WriteConsoleW; a pipe or a file gets UTF-8, so that non-ASCII names
// survive redirection. Formats use the Microsoft conventions: %ls for wide and
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

// Test seam: when set, output is appended here instead of being written out.
void CaptureOutput(std::wstring *sink);
