#include "front_end/Secret.h"

#include <windows.h>

#include <cwchar>

void WipeMemory(void *block, size_t bytes) {
    if (block != nullptr)
        SecureZeroMemory(block, bytes);
}

void WipeText(std::wstring &text) {
    text.resize(text.capacity()); // within the capacity: no new buffer
    WipeMemory(&text[0], text.size() * sizeof(wchar_t));
    text.clear();
}

SecretText::SecretText(const wchar_t *text) {
    if (text != nullptr)
        m_text.assign(text, text + wcslen(text) + 1);
}

void SecretText::Append(wchar_t key) {
    if (m_text.empty())
        m_text.push_back(L'\0');
    m_text.back() = key;
    m_text.push_back(L'\0');
}
