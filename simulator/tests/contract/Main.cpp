// The contract test: the simulator as cvcli meets it, through the real
// proxy/stub DLL registered in the build's Wine prefix.
#include "simulator/tests/contract/Client.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <cstdio>

using Microsoft::WRL::ComPtr;

namespace contract {
namespace {

// A simulator keeps the environment of the client that started it: one still
// lingering after another client would answer from that client's scenario.
class OwnSimulator : public testing::Environment {
public:
    void SetUp() override {
        WriteScenario(kScenario);
        for (int attempt = 0; attempt < 2; ++attempt) {
            ClearLog();
            {
                ComPtr<IUnknown> object;
                ASSERT_EQ(Create(CLSID_HyperVService, IID_IHyperV, object), S_OK) << "is the simulator registered?";
            }
            if (!LogOf("create").empty())
                return;
            std::printf("a simulator started by another client is lingering; waiting for it to end\n");
            Sleep(7000);
        }
        FAIL() << "the simulator that answers does not use this test's scenario and call log";
    }
};

} // namespace
} // namespace contract

int wmain(int argc, wchar_t **argv) {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE,
                         nullptr);
    int result;
    if (argc == 3 && std::wstring(argv[1]) == L"--client") {
        result = contract::Client(argv[2]);
    } else {
        testing::InitGoogleTest(&argc, argv);
        testing::AddGlobalTestEnvironment(new contract::OwnSimulator);
        result = RUN_ALL_TESTS();
    }
    CoUninitialize();
    return result;
}
