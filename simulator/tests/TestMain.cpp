#include <gtest/gtest.h>

#include <objbase.h>

int wmain(int argc, wchar_t **argv) {
    testing::InitGoogleTest(&argc, argv);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
