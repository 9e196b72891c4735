// Message texts by id from CorvaneRes.dll, and the composition of the text of
// a failed HRESULT from the library, the system and the COM error object.
#pragma once

#include <windows.h>

#include <string>

constexpr const wchar_t *kResourceLibraryName = L"CorvaneRes.dll";

// The library is always found again by name: nothing keeps its handle.
HMODULE ResourceModule();

// Zero-fills the buffer and loads the message (truncated to the buffer).
void LoadMessage(unsigned messageId, wchar_t *buffer, int chars);
std::wstring LoadMessageText(unsigned messageId, int chars = 1024);

// Appends text to a zero-terminated buffer of `chars` characters, truncating.
void AppendText(wchar_t *buffer, size_t chars, const wchar_t *text);

void BuildAlertText(unsigned messageId, HRESULT hr, wchar_t *buffer, size_t chars);
void AppendSystemErrorText(HRESULT hr, wchar_t *buffer, size_t chars);
void AppendUnknownErrorText(wchar_t *buffer, size_t chars, unsigned code);

// The path of a message file in the program's own directory (CoTaskMem; null on failure).
wchar_t *MessageFilePath(unsigned messageId);

void PrintAlert(HRESULT hr, const wchar_t *text);
void PrintOperationMessage(unsigned messageId);
// Formats the message with FormatMessageW; the insert arguments are wide strings.
void PrintLocalError(unsigned messageId, ...);
void PrintCompletionLine();

// Progress event codes 1-32 map to message ids; others (and 4) to 0.
unsigned EventMessageId(unsigned eventCode);
void LoadEventMessage(unsigned eventCode, wchar_t *buffer, int chars);

const wchar_t *BoolToYesNo(bool value);
const wchar_t *BoolToEnabled(bool value);
