#include "front_end/Console.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

// Output to a pipe or a file, written in the given pieces.
std::string Piped(const std::vector<std::wstring> &writes) {
    std::string out;
    unsigned heldCrs = 0;
    for (const std::wstring &text : writes)
        AppendUtf8WithCrLf(text.data(), text.size(), out, heldCrs);
    AppendHeldCrs(out, heldCrs);
    return out;
}

// Line ends within one write, and the conversion of what a service sends, are
// checked end to end (the fault cases' descriptions, the non-ASCII listings);
// here the CRs that one write ends with and the next one resolves.
TEST(ConsoleLineEndTest, CrsHeldAcrossWrites) {
    const struct {
        std::vector<std::wstring> writes;
        std::string bytes;
    } cases[] = {
        // A system text ending in CR LF, then the alert's own line end.
        {{L"cause\r\n", L"\n"}, "cause\r\n\r\n"},
        {{L"a\r", L"\nb"}, "a\r\nb"},
        {{L"", L"x"}, "x"},
        {{L"a\r", L"\r\n"}, "a\r\n"},
        {{L"a\r\r", L"\r", L"\n"}, "a\r\n"},
        {{L"a\r", L"b"}, "a\rb"},
        {{L"end\r\r"}, "end\r\r"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Piped(c.writes), c.bytes) << testing::PrintToString(c.bytes);
}

// The writer converts on its own: byte for byte what the system's conversion
// gives, surrogates of every shape and every block boundary included.
TEST(ConsoleLineEndTest, TheConversionIsTheSystemOne) {
    const std::wstring longRun = std::wstring(1021, L'x') + L"\u20ac\U0001F600" + std::wstring(2000, L'\u00e9');
    const std::wstring cases[] = {
        L"plain",
        std::wstring(1, wchar_t(0xD800)),                   // a lone high surrogate
        std::wstring(1, wchar_t(0xDC00)) + L"x",            // a lone low one
        std::wstring(L"a") + wchar_t(0xDBFF) + L"b",        // a high one before a plain character
        std::wstring(1, wchar_t(0xDFFF)) + wchar_t(0xD800), // low before high: two lone ones
        L"\U0010FFFF\uFFFF\u0800\u07FF\u0080\u007F",
        longRun,
    };
    for (const std::wstring &text : cases) {
        const int bytes =
            WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
        std::string expected(static_cast<size_t>(bytes), '\0');
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), &expected[0], bytes, nullptr, nullptr);
        EXPECT_EQ(Piped({text}), expected) << testing::PrintToString(expected.substr(0, 40));
    }
}

} // namespace
