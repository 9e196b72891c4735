#include <gtest/gtest.h>

#include <objbase.h>
#include <windows.h>

// The tests run the way cvcli runs: in the multithreaded apartment, with the
// message library loaded from the directory of the executable.
int wmain(int argc, wchar_t **argv) {
    testing::InitGoogleTest(&argc, argv);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    HMODULE resources = LoadLibraryW(L"CorvaneRes.dll");
    int result = RUN_ALL_TESTS();
    if (resources != nullptr)
        FreeLibrary(resources);
    CoUninitialize();
    return result;
}
