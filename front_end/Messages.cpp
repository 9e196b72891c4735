#include "front_end/Messages.h"

#include "MessageIds.h"
#include "front_end/Console.h"
#include "front_end/Holders.h"

#include "front_end/SystemLibraries.h"
#include <oleauto.h>

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace {

constexpr DWORD kFromModuleAndSystem =
    FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_FROM_SYSTEM;
constexpr DWORD kFromSystem = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
constexpr DWORD kMinimumSystemText = 256;

// Looks the message up and appends it; false when there is none.
bool AppendFormattedMessage(DWORD flags, HMODULE module, DWORD messageId, wchar_t *buffer, size_t chars) {
    LocalText text;
    DWORD length =
        FormatMessageW(flags, module, messageId, 0, reinterpret_cast<LPWSTR>(text.Receive()), kMinimumSystemText, nullptr);
    if (length == 0 || !text)
        return false;
    AppendText(buffer, chars, text.Get());
    return true;
}

bool AppendFromSystemModule(const wchar_t *moduleName, DWORD messageId, wchar_t *buffer, size_t chars) {
    Library module(LoadLibraryW(moduleName));
    if (!module)
        return false;
    return AppendFormattedMessage(kFromModuleAndSystem, module.Get(), messageId, buffer, chars);
}

} // namespace

HMODULE ResourceModule() {
    return GetModuleHandleW(kResourceLibraryName);
}

void LoadMessage(unsigned messageId, wchar_t *buffer, int chars) {
    if (buffer == nullptr || chars <= 0)
        return;
    std::memset(buffer, 0, static_cast<size_t>(chars) * sizeof(wchar_t));
    if (messageId != 0)
        LoadStringW(ResourceModule(), messageId, buffer, chars);
}

std::wstring LoadMessageText(unsigned messageId, int chars) {
    std::wstring buffer(static_cast<size_t>(chars), L'\0');
    LoadMessage(messageId, &buffer[0], chars);
    buffer.resize(wcslen(buffer.c_str()));
    return buffer;
}

void AppendText(wchar_t *buffer, size_t chars, const wchar_t *text) {
    if (buffer == nullptr || chars == 0 || text == nullptr)
        return;
    size_t used = wcsnlen(buffer, chars);
    if (used >= chars)
        return;
    size_t room = chars - used - 1;
    size_t add = wcslen(text);
    if (add > room) {
        add = room;
        // Cut on a character boundary: half a surrogate pair would print as U+FFFD.
        if (add > 0 && text[add - 1] >= 0xD800 && text[add - 1] <= 0xDBFF)
            --add;
    }
    std::wmemcpy(buffer + used, text, add);
    buffer[used + add] = L'\0';
}

void BuildAlertText(unsigned messageId, HRESULT hr, wchar_t *buffer, size_t chars) {
    if (hr == 0)
        return;
    LoadMessage(messageId, buffer, static_cast<int>(chars));
    wchar_t separator[20];
    LoadMessage(MSG_ERROR_SEPARATOR, separator, 20);
    AppendText(buffer, chars, separator);

    IErrorInfo *errorInfo = nullptr;
    if (GetErrorInfo(0, &errorInfo) == S_OK && errorInfo != nullptr) {
        Bstr description;
        if (SUCCEEDED(errorInfo->GetDescription(description.Receive())) && description)
            AppendText(buffer, chars, description.Get());
        errorInfo->Release();
    } else {
        AppendSystemErrorText(hr, buffer, chars);
    }
}

void AppendSystemErrorText(HRESULT hr, wchar_t *buffer, size_t chars) {
    const DWORD code = static_cast<DWORD>(hr);
    const DWORD facility = (code >> 16) & 0x1FFF;
    DWORD messageId = code;
    bool found = false;
    switch (facility) {
    case FACILITY_ITF: {
        // The message file path is composed and dropped again; kept so that the
        // lookup behaves the same whether or not such a file is installed.
        CoTaskPtr<wchar_t> unused(MessageFilePath(MSG_MESSAGE_FILE_NAME));
        found = AppendFormattedMessage(kFromModuleAndSystem, ResourceModule(), messageId, buffer, chars);
        break;
    }
    case FACILITY_WIN32:
        messageId = code & 0xFFFF;
        found = AppendFromSystemModule(L"Kernel32.DLL", messageId, buffer, chars);
        break;
    case 0x1000: // the NT-status marker bit is part of the facility value here
        messageId = code & ~0x10000000u;
        found = AppendFromSystemModule(L"NTDLL.DLL", messageId, buffer, chars);
        break;
    default:
        found = AppendFormattedMessage(kFromSystem, nullptr, messageId, buffer, chars);
        break;
    }
    if (!found)
        AppendUnknownErrorText(buffer, chars, messageId);
}

void AppendUnknownErrorText(wchar_t *buffer, size_t chars, unsigned code) {
    wchar_t prefix[256];
    LoadMessage(MSG_UNKNOWN_ERROR, prefix, 256);
    AppendText(buffer, chars, prefix);
    // Radix 17 is what the tool has always printed; scripts may parse it.
    wchar_t number[17] = {};
    _itow(static_cast<int>(code), number, 17);
    AppendText(buffer, chars, number);
}

wchar_t *MessageFilePath(unsigned messageId) {
    DWORD size = 160;
    CoTaskPtr<wchar_t> path(static_cast<wchar_t *>(CoTaskMemAlloc(size * sizeof(wchar_t))));
    if (!path)
        return nullptr;
    for (;;) {
        DWORD length = GetModuleFileNameW(nullptr, path.Get(), size);
        if (length == 0)
            return nullptr;
        if (length < size - 150)
            break;
        size += 10;
        path.Reset(static_cast<wchar_t *>(CoTaskMemAlloc(size * sizeof(wchar_t))));
        if (!path)
            return nullptr;
    }
    RemoveFileSpec(path.Get());
    AppendText(path.Get(), size, L"\\");
    wchar_t name[100];
    LoadMessage(messageId, name, 100);
    AppendText(path.Get(), size, name);
    size_t length = wcslen(path.Get()) + 1;
    wchar_t *copy = static_cast<wchar_t *>(CoTaskMemAlloc(length * sizeof(wchar_t)));
    if (copy != nullptr)
        std::wmemcpy(copy, path.Get(), length);
    return copy;
}

void PrintAlert(HRESULT hr, const wchar_t *text) {
    if (hr != 0 && text != nullptr)
        Print(L"%ls\n", text);
}

void PrintOperationMessage(unsigned messageId) {
    wchar_t text[1024];
    LoadMessage(messageId, text, 1024);
    Print(L"\n%ls ...\n\n", text);
}

void PrintLocalError(unsigned messageId, ...) {
    wchar_t text[1024];
    LoadMessage(messageId, text, 1024);
    va_list args;
    va_start(args, messageId);
    LocalText formatted;
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_STRING, text, 0,
                       MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<LPWSTR>(formatted.Receive()), 0, &args);
    va_end(args);
    if (length != 0 && formatted)
        Print(formatted.Get());
}

void PrintCompletionLine() {
    wchar_t text[256];
    LoadMessage(MSG_OPERATION_COMPLETED, text, 256);
    Print(text);
}

unsigned EventMessageId(unsigned eventCode) {
    static const unsigned kIds[33] = {0,    5012, 5013, 5014, 0,    5016, 5032, 5017, 5018, 5019, 5020,
                                      5021, 5022, 5023, 5024, 5025, 5026, 5027, 5028, 5029, 5030, 5031,
                                      5033, 5034, 5035, 5037, 5038, 5039, 5040, 5042, 5054, 5044, 5045};
    return eventCode < 33 ? kIds[eventCode] : 0;
}

void LoadEventMessage(unsigned eventCode, wchar_t *buffer, int chars) {
    LoadMessage(EventMessageId(eventCode), buffer, chars);
}

const wchar_t *BoolToYesNo(bool value) {
    return value ? L"Yes" : L"No";
}
const wchar_t *BoolToEnabled(bool value) {
    return value ? L"Enabled" : L"Disabled";
}
