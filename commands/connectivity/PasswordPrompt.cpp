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
