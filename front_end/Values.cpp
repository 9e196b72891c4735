#include "front_end/Values.h"

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <cwctype>

namespace {

bool ContainsAny(const wchar_t *text, const wchar_t *set) {
    return text != nullptr && wcspbrk(text, set) != nullptr;
}

struct Suffix {
    const wchar_t *word;
    unsigned shift;
};

// Shared by both size parsers: they differ in the suffix table and in where
// the forbidden-character test is made, which is up to the caller.
bool ParseSizeWith(const wchar_t *text, const Suffix *suffixes, size_t suffixCount, uint64_t &value) {
    value = 0;
    std::wstring number = text;
    unsigned shift = 0;
    if (number.size() > 2) {
        const wchar_t *tail = number.c_str() + number.size() - 2;
        for (size_t i = 0; i < suffixCount; ++i) {
            if (_wcsicmp(tail, suffixes[i].word) == 0) {
                shift = suffixes[i].shift;
                number.resize(number.size() - 2);
                break;
            }
        }
    }
    if (number.size() > 19)
        return false;
    for (wchar_t c : number)
        if (iswalpha(c))
            return false;
    // No overflow check: a shift past 64 bits wraps, as it always has.
    value = static_cast<uint64_t>(_wtoi64(number.c_str())) << shift;
    return true;
}

} // namespace

bool IsValidName(const wchar_t *text) {
    return !ContainsAny(text, L"/\\*:?\"<>| ");
}

bool ParseSize(const wchar_t *text, uint64_t &bytes) {
    static const Suffix kSuffixes[] = {{L"kb", 10}, {L"mb", 20}, {L"gb", 30}, {L"tb", 40}};
    bytes = 0;
    if (text == nullptr || ContainsAny(text, L"-./\\*:?\"<>| "))
        return false;
    return ParseSizeWith(text, kSuffixes, 4, bytes);
}

bool ParseSizeMB(const wchar_t *text, uint64_t &megabytes) {
    static const Suffix kSuffixes[] = {{L"mb", 0}, {L"gb", 10}, {L"tb", 20}};
    megabytes = 0;
    if (text == nullptr || ContainsAny(text, L"-./\\*:?\"<>| "))
        return false;
    return ParseSizeWith(text, kSuffixes, 3, megabytes);
}

std::wstring FormatSize(uint64_t bytes) {
    const uint64_t tb = 1ull << 40, gb = 1ull << 30, mb = 1ull << 20;
    wchar_t text[32] = {};
    if (bytes >= tb && bytes % tb == 0)
        swprintf(text, 32, L"%dTB", static_cast<int>(bytes / tb));
    else if (bytes >= gb && bytes % gb == 0)
        swprintf(text, 32, L"%dGB", static_cast<int>(bytes / gb));
    else
        swprintf(text, 32, L"%dMB", static_cast<int>(bytes / mb));
    return text;
}

unsigned ParseBoolean(const wchar_t *text) {
    if (text == nullptr)
        return kInvalidValue;
    if (_wcsicmp(text, L"true") == 0 || _wcsicmp(text, L"enabled") == 0 || _wcsicmp(text, L"1") == 0)
        return 1;
    if (_wcsicmp(text, L"false") == 0 || _wcsicmp(text, L"disabled") == 0 || _wcsicmp(text, L"0") == 0)
        return 0;
    return kInvalidValue;
}

unsigned ParsePercentage(const wchar_t *text) {
    if (text == nullptr || ContainsAny(text, L"./\\*:?\"<>| "))
        return kInvalidValue;
    for (const wchar_t *p = text; *p != L'\0'; ++p)
        if (!iswdigit(*p))
            return kInvalidValue;
    int value = _wtoi(text);
    if (value < 0 || value > 100)
        return kInvalidValue;
    return static_cast<unsigned>(value);
}

bool HasValidPathCharacters(const wchar_t *text) {
    if (text == nullptr)
        return false;
    // The set is chosen by where "/vol/" stands, not by whether it occurs.
    const wchar_t *found = wcsstr(text, L"/vol/");
    const wchar_t separator = (found == text) ? L'/' : L'\\';
    const wchar_t *p = text;
    for (; *p != L'\0'; ++p) {
        wchar_t c = *p;
        bool allowed = (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= L'0' && c <= L'9') || c == L'-' ||
                       c == L'.' || c == L'_' || c == L'{' || c == L'}' || c == separator;
        if (!allowed)
            break;
    }
    return *p == L'\0';
}

bool ParseIdentifierPair(const wchar_t *text, uint64_t &first, uint64_t &second) {
    if (text == nullptr)
        return false;
    unsigned long long a = 0, b = 0;
    if (swscanf(text, L"0x%llx-0x%llx", &a, &b) != 2)
        return false;
    first = a;
    second = b;
    return true;
}

bool IsValidIpv4Address(const wchar_t *text) {
    if (text == nullptr)
        return false;
    const wchar_t *p = text;
    for (int part = 0; part < 4; ++part) {
        if (part > 0 && *p++ != L'.')
            return false;
        unsigned value = 0;
        int digits = 0;
        for (; *p >= L'0' && *p <= L'9'; ++p, ++digits) {
            // Other readers take a leading zero for octal: "010" would be 8 to them.
            if (digits == 1 && value == 0)
                return false;
            value = value * 10 + static_cast<unsigned>(*p - L'0');
            if (value > 255)
                return false;
        }
        if (digits == 0)
            return false;
    }
    return *p == L'\0';
}

bool ParseApplicationName(const wchar_t *text, unsigned &code) {
    if (text == nullptr)
        return false;
    if (_wcsicmp(text, L"appkeeper_exchange") == 0) {
        code = 11;
        return true;
    }
    if (_wcsicmp(text, L"appkeeper_sql") == 0) {
        code = 21;
        return true;
    }
    return false;
}

bool ParseLogLevel(const wchar_t *text, unsigned &level) {
    static const wchar_t *const kLevels[] = {L"emergency", L"alert",  L"critical", L"error",
                                             L"warning",   L"notice", L"info",     L"debug"};
    if (text == nullptr)
        return false;
    for (unsigned i = 0; i < 8; ++i) {
        if (_wcsicmp(text, kLevels[i]) == 0) {
            level = i;
            return true;
        }
    }
    return false;
}
