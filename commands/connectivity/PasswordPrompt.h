// The password prompt of transport_protocol set: the console is read one key
// at a time without echo, and every key is answered with a "*".
#pragma once

#include <cwchar>
#include <string>

// One key read without echo; WEOF when there is no console or input ended.
using KeyReader = wint_t (*)();
void SetKeyReaderForTesting(KeyReader reader); // null restores the console's own (_getwch)

// A password that leaves no copy behind: its buffer is wiped when it goes.
class SecretText {
public:
    SecretText() = default;
    explicit SecretText(const wchar_t *text) : m_text(text) {}
    ~SecretText();
    SecretText(const SecretText &) = delete;
    SecretText &operator=(const SecretText &) = delete;
    SecretText(SecretText &&other) noexcept;
    SecretText &operator=(SecretText &&) = delete;

    void Append(wchar_t key); // never leaves an unwiped buffer behind when it grows
    const wchar_t *Get() const { return m_text.c_str(); }
    size_t Length() const { return m_text.size(); }

private:
    static void Wipe(std::wstring &text);
    std::wstring m_text;
};

// Prints "Type Password for the user:" and reads keys until Enter (13). A key
// read that gives WEOF ends the input as Enter does, so a run without a
// console never waits. Every other key, Backspace included, is kept as typed.
SecretText ReadPassword();
