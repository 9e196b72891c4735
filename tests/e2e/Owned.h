// Owners of what the Windows-side test programs take from the system, each
// given back on every path out.
#pragma once

#include <windows.h>

#include <cstdio>
#include <memory>
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
