#include "front_end/SystemLibraries.h"

namespace {

// The function `name` of a system library, loaded on first use; null when
// either is missing.
template <typename Function> Function Find(const wchar_t *library, const char *name) {
    HMODULE module = GetModuleHandleW(library);
    if (module == nullptr)
        module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module == nullptr)
        return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

} // namespace

void FreeBstrText(BSTR text) {
    using Fn = void(WINAPI *)(BSTR);
    static const Fn free = Find<Fn>(L"oleaut32.dll", "SysFreeString");
    if (text != nullptr && free != nullptr)
        free(text);
}

BOOL RemoveFileSpec(wchar_t *path) {
    using Fn = BOOL(WINAPI *)(wchar_t *);
    static const Fn remove = Find<Fn>(L"shlwapi.dll", "PathRemoveFileSpecW");
    return remove != nullptr ? remove(path) : FALSE;
}

unsigned long Ipv4AddressOf(const char *text) {
    using Fn = unsigned long(WSAAPI *)(const char *);
    static const Fn parse = Find<Fn>(L"ws2_32.dll", "inet_addr");
    return parse != nullptr ? parse(text) : INADDR_NONE;
}

const char *Ipv4TextOf(in_addr address) {
    using Fn = char *(WSAAPI *)(in_addr);
    static const Fn format = Find<Fn>(L"ws2_32.dll", "inet_ntoa");
    return format != nullptr ? format(address) : nullptr;
}
