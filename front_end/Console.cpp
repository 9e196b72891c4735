#include "front_end/Console.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <vector>

namespace {

std::wstring *g_capture = nullptr;

void WriteOut(const wchar_t *text, size_t length) {
    if (length == 0)
        return;
    if (g_capture != nullptr) {
        g_capture->append(text, length);
        return;
    }
    HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
    if (out == nullptr || out == INVALID_HANDLE_VALUE)
        return;
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(out, &mode)) {
        WriteConsoleW(out, text, static_cast<DWORD>(length), &written, nullptr);
        return;
    }
    int bytes = WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), nullptr, 0, nullptr, nullptr);
    if (bytes <= 0)
        return;
    std::vector<char> utf8(static_cast<size_t>(bytes));
    WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), utf8.data(), bytes, nullptr, nullptr);
    WriteFile(out, utf8.data(), static_cast<DWORD>(bytes), &written, nullptr);
}

} // namespace

std::wstring FormatTextV(const wchar_t *format, va_list args) {
    if (format == nullptr)
        return std::wstring();
    std::vector<wchar_t> buffer(512);
    for (;;) {
        va_list copy;
        va_copy(copy, args);
        int n = _vsnwprintf(buffer.data(), buffer.size() - 1, format, copy);
        va_end(copy);
        if (n >= 0 && static_cast<size_t>(n) < buffer.size() - 1)
            return std::wstring(buffer.data(), static_cast<size_t>(n));
        if (buffer.size() > (1u << 24))
            return std::wstring(buffer.data(), buffer.size() - 1);
        buffer.assign(buffer.size() * 2, L'\0');
    }
}

std::wstring FormatText(const wchar_t *format, ...) {
    va_list args;
    va_start(args, format);
    std::wstring text = FormatTextV(format, args);
    va_end(args);
    return text;
}

void PrintV(const wchar_t *format, va_list args) {
    std::wstring text = FormatTextV(format, args);
    WriteOut(text.data(), text.size());
}

void Print(const wchar_t *format, ...) {
    va_list args;
    va_start(args, format);
    PrintV(format, args);
    va_end(args);
}

void PrintNarrow(const char *format, ...) {
    std::vector<char> buffer(512);
    for (;;) {
        va_list args;
        va_start(args, format);
        int n = _vsnprintf(buffer.data(), buffer.size() - 1, format, args);
        va_end(args);
        if (n >= 0 && static_cast<size_t>(n) < buffer.size() - 1) {
            buffer.resize(static_cast<size_t>(n));
            break;
        }
        if (buffer.size() > (1u << 24)) {
            buffer.resize(buffer.size() - 1);
            break;
        }
        buffer.assign(buffer.size() * 2, '\0');
    }
    if (buffer.empty())
        return;
    int chars = MultiByteToWideChar(CP_ACP, 0, buffer.data(), static_cast<int>(buffer.size()), nullptr, 0);
    if (chars <= 0)
        return;
    std::wstring wide(static_cast<size_t>(chars), L'\0');
    MultiByteToWideChar(CP_ACP, 0, buffer.data(), static_cast<int>(buffer.size()), &wide[0], chars);
    WriteOut(wide.data(), wide.size());
}

void PrintText(const std::wstring &text) {
    WriteOut(text.data(), text.size());
}

std::wstring SubstituteStrings(const wchar_t *format, const wchar_t *const *args, unsigned count) {
    std::wstring text;
    unsigned next = 0;
    for (const wchar_t *p = format; *p != L'\0'; ++p) {
        if (p[0] == L'%' && p[1] == L's') {
            const wchar_t *arg = next < count ? args[next] : nullptr;
            ++next;
            text += arg != nullptr ? arg : L"(null)";
            ++p;
        } else if (p[0] == L'%' && p[1] == L'%') {
            text += L'%';
            ++p;
        } else {
            text += *p;
        }
    }
    return text;
}

void CaptureOutput(std::wstring *sink) {
    g_capture = sink;
}
