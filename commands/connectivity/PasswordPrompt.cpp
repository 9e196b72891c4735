#include "commands/connectivity/PasswordPrompt.h"

#include "front_end/Console.h"

#include <windows.h>

#include <conio.h>

namespace {

wint_t ReadConsoleKey() {
    return _getwch();
}

KeyReader g_readKey = ReadConsoleKey;

constexpr wint_t kEnter = 13;

} // namespace

void SetKeyReaderForTesting(KeyReader reader) {
    g_readKey = reader != nullptr ? reader : ReadConsoleKey;
}

void SecretText::Wipe(std::wstring &text) {
    // The whole capacity: an earlier, longer state may still be there.
    text.resize(text.capacity());
    SecureZeroMemory(&text[0], text.size() * sizeof(wchar_t));
    text.clear();
}

SecretText::~SecretText() {
    Wipe(m_text);
}

void SecretText::Append(wchar_t key) {
    if (m_text.size() == m_text.capacity()) {
        std::wstring larger;
        larger.reserve(2 * m_text.capacity() + 16);
        larger = m_text;
        Wipe(m_text);
        m_text.swap(larger);
    }
    m_text.push_back(key);
}

SecretText::SecretText(SecretText &&other) noexcept {
    m_text.swap(other.m_text);
}

SecretText ReadPassword() {
    Print(L"Type Password for the user:");
    SecretText password;
    for (;;) {
        // Output to a pipe is gathered in blocks: the prompt and each echoed
        // star must be out before the console is asked for the next key.
        FlushOutput();
        const wint_t key = g_readKey();
        if (key == kEnter || key == WEOF)
            break;
        password.Append(static_cast<wchar_t>(key));
        Print(L"*");
    }
    return password;
}
