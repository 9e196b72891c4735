#include "commands/connectivity/PasswordPrompt.h"
#include "front_end/Console.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Keys handed out one by one; WEOF once they run out, as a closed console does.
std::vector<wint_t> g_keys;
size_t g_next = 0;

wint_t NextKey() {
    return g_next < g_keys.size() ? g_keys[g_next++] : WEOF;
}

struct Typed {
    std::wstring password;
    std::wstring shown;
    size_t keysRead;
};

Typed Type(std::vector<wint_t> keys) {
    g_keys = std::move(keys);
    g_next = 0;
    std::wstring shown;
    CaptureOutput(&shown);
    SetKeyReaderForTesting(NextKey);
    SecretText password = ReadPassword();
    SetKeyReaderForTesting(nullptr);
    CaptureOutput(nullptr);
    return {password.Get(), shown, g_next};
}

const std::wstring kPrompt = L"Type Password for the user:";

TEST(PasswordPrompt, KeysAreKeptAsTypedAndEachShowsAsAStar) {
    const struct {
        const char *what;
        std::vector<wint_t> keys;
        std::wstring password;
        size_t keysRead;
    } cases[] = {
        {"backspace is a key like any other", {L'a', L'b', 8, L'c', 13}, std::wstring(L"ab\bc"), 5},
        {"Enter at once", {13}, L"", 1},
        {"no console: WEOF at once", {}, L"", 0},
        {"input closed after two keys", {L'x', L'y', WEOF}, L"xy", 3},
        {"non-ASCII and a line feed are kept", {0x00E9, 0x6771, 10, 13}, std::wstring(L"\x00E9\x6771\n"), 4},
        {"nothing is read after Enter", {L'p', 13, L'q', 13}, L"p", 2},
        {"an arrow key comes as its prefix and code, both kept", {0xE0, L'H', 13}, std::wstring(L"\x00E0H"), 3},
    };
    for (const auto &c : cases) {
        const Typed typed = Type(c.keys);
        EXPECT_EQ(typed.password, c.password) << c.what;
        EXPECT_EQ(typed.shown, kPrompt + std::wstring(c.password.size(), L'*')) << c.what;
        EXPECT_EQ(typed.keysRead, c.keysRead) << c.what;
    }
}

TEST(PasswordPrompt, ALongPasswordSurvivesTheBufferGrowing) {
    std::vector<wint_t> keys;
    std::wstring expected;
    for (int i = 0; i < 1000; ++i) {
        keys.push_back(static_cast<wint_t>(L'a' + i % 26));
        expected.push_back(static_cast<wchar_t>(L'a' + i % 26));
    }
    keys.push_back(13);
    const Typed typed = Type(keys);
    EXPECT_EQ(typed.password, expected);
    EXPECT_EQ(typed.shown, kPrompt + std::wstring(1000, L'*'));
}

} // namespace
