#include "front_end/Holders.h"

#include <cwchar>

wchar_t *CoTaskStrDup(const wchar_t *text) {
    if (text == nullptr)
        return nullptr;
    size_t length = wcslen(text) + 1;
    wchar_t *copy = static_cast<wchar_t *>(CoTaskMemAlloc(length * sizeof(wchar_t)));
    if (copy != nullptr)
        wmemcpy(copy, text, length);
    return copy;
}
