#include "simulator/Text.h"

#include <cstdio>

namespace sim {

std::wstring Widen(const std::string &utf8) {
    if (utf8.empty())
        return std::wstring();
    int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), &wide[0], length);
    return wide;
}

static std::string FromWide(const wchar_t *wide, UINT codePage) {
    if (wide == nullptr || wide[0] == L'\0')
        return std::string();
    int length = WideCharToMultiByte(codePage, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(codePage, 0, wide, -1, &text[0], length, nullptr, nullptr);
    text.resize(static_cast<size_t>(length) - 1);
    return text;
}

std::string Narrow(const wchar_t *wide) {
    return FromWide(wide, CP_UTF8);
}

std::string ToAnsi(const std::string &utf8) {
    return FromWide(Widen(utf8).c_str(), CP_ACP);
}

std::wstring HostPath(const std::wstring &path) {
    if (path.empty() || path[0] != L'/')
        return path;
    std::wstring mapped = L"Z:" + path;
    for (wchar_t &c : mapped)
        if (c == L'/')
            c = L'\\';
    return mapped;
}

std::string HresultText(HRESULT hr) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(hr));
    return text;
}

} // namespace sim
