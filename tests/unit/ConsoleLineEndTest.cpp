#include "front_end/Console.h"

#include <gtest/gtest.h>

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

TEST(ConsoleLineEndTest, EveryLineEndsInCrLfWhateverItsSource) {
    const struct {
        std::vector<std::wstring> writes;
        std::string bytes;
    } cases[] = {
        {{L"a\nb\n"}, "a\r\nb\r\n"},
        {{L"system text\r\n"}, "system text\r\n"},
        // A system text ending in CR LF, then the alert's own line end.
        {{L"cause\r\n", L"\n"}, "cause\r\n\r\n"},
        {{L"cause\r\n\n"}, "cause\r\n\r\n"},
        // A CR at the end of one write pairs with the LF that starts the next.
        {{L"a\r", L"\nb"}, "a\r\nb"},
        {{L"\n\n"}, "\r\n\r\n"},
        {{L"\n"}, "\r\n"},
        {{L"", L"x"}, "x"},
        {{L"lone\rcr"}, "lone\rcr"},
        // A service text may carry any number of CRs before its LF: one CR LF comes out.
        {{L"text\r\r\n"}, "text\r\n"},
        {{L"a\r\r\r\nb\r\r\n"}, "a\r\nb\r\n"},
        {{L"a\r", L"\r\n"}, "a\r\n"},
        {{L"a\r\r", L"\r", L"\n"}, "a\r\n"},
        {{L"x\r\ry"}, "x\r\ry"},
        {{L"end\r\r"}, "end\r\r"},
        {{L"Dätä \u20ac\n"}, "D\xc3\xa4t\xc3\xa4 \xe2\x82\xac\r\n"},
        {{L"\U0001F600\n"}, "\xf0\x9f\x98\x80\r\n"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Piped(c.writes), c.bytes) << testing::PrintToString(c.bytes);
}

} // namespace
