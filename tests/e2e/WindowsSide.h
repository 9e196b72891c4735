// What the Windows-side test programs (runexit, systext, the remote seam)
// share: owners of what they take from the system, each given back on every
// path out, and the text conversions and files they write through.
#pragma once

#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>
#include <type_traits>

struct CloseKernelHandle {
    void operator()(HANDLE handle) const {
        if (handle != INVALID_HANDLE_VALUE)
            CloseHandle(handle);
    }
};
struct CloseFile {
    void operator()(FILE *file) const { fclose(file); }
};
struct FreeModule {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
struct FreeLocal {
    void operator()(wchar_t *text) const { LocalFree(text); }
};

using KernelHandle = std::unique_ptr<void, CloseKernelHandle>;
using File = std::unique_ptr<FILE, CloseFile>;
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;
using LocalText = std::unique_ptr<wchar_t, FreeLocal>; // a buffer that FormatMessageW allocated

inline std::string Utf8(const wchar_t *text) {
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<size_t>(bytes > 1 ? bytes : 1), '\0');
    if (bytes > 1)
        WideCharToMultiByte(CP_UTF8, 0, text, -1, &out[0], bytes, nullptr, nullptr);
    out.pop_back(); // the terminating zero
    return out;
}

// The file that an environment variable names, opened with `mode`; none when the variable is unset.
inline File FileNamedBy(const wchar_t *variable, const wchar_t *mode) {
    wchar_t path[MAX_PATH * 2] = {};
    const DWORD length = GetEnvironmentVariableW(variable, path, MAX_PATH * 2);
    return File(length == 0 || length >= MAX_PATH * 2 ? nullptr : _wfopen(path, mode));
}
