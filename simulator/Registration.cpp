#include "simulator/Registration.h"

#include <objbase.h>

#include <string>

namespace sim {

namespace {

std::wstring ClassKey(const CLSID &clsid) {
    wchar_t text[64];
    StringFromGUID2(clsid, text, 64);
    return std::wstring(L"CLSID\\") + text;
}

LSTATUS SetDefault(HKEY root, const std::wstring &subkey, const std::wstring &value) {
    HKEY key = nullptr;
    LSTATUS status =
        RegCreateKeyExW(root, subkey.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS)
        return status;
    status = RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE *>(value.c_str()),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    return status;
}

} // namespace

HRESULT RegisterServer(const std::vector<ClassDef> &classes) {
    wchar_t module[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, module, MAX_PATH);
    if (length == 0 || length == MAX_PATH)
        return HRESULT_FROM_WIN32(GetLastError());
    const std::wstring command = L"\"" + std::wstring(module, length) + L"\"";
    for (const ClassDef &definition : classes) {
        const std::wstring key = ClassKey(*definition.clsid);
        std::string narrow = std::string("Corvane ") + definition.name;
        LSTATUS status = SetDefault(HKEY_CLASSES_ROOT, key, std::wstring(narrow.begin(), narrow.end()));
        if (status == ERROR_SUCCESS)
            status = SetDefault(HKEY_CLASSES_ROOT, key + L"\\LocalServer32", command);
        if (status != ERROR_SUCCESS)
            return HRESULT_FROM_WIN32(status);
    }
    return S_OK;
}

HRESULT UnregisterServer(const std::vector<ClassDef> &classes) {
    HRESULT result = S_OK;
    for (const ClassDef &definition : classes) {
        LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, ClassKey(*definition.clsid).c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
            result = HRESULT_FROM_WIN32(status);
    }
    return result;
}

} // namespace sim
