// What a client sees when the scenario is faulty, refuses the creation or
// lets a call fail: never empty data, always a reason.
#include "simulator/tests/contract/Client.h"

#include <gtest/gtest.h>

#include <oleauto.h>

using Microsoft::WRL::ComPtr;

namespace contract {
namespace {

TEST(Failures, CreationFailsLoudlyOnAFaultyScenarioOrWhenScripted) {
    const struct {
        const char *scenario;
        HRESULT expected;
        const char *logEvent;
    } cases[] = {
        {R"({"methods": {"IVirtualDisk.EnumerateDisks": {"diskz": []}}})", HRESULT_FROM_WIN32(ERROR_INVALID_DATA),
         "scenarioError"},
        {R"({"methods": )", HRESULT_FROM_WIN32(ERROR_INVALID_DATA), "scenarioError"},
        {R"({"classes": {"VirtualDiskService": {"createResult": "E_ACCESSDENIED"}}})", E_ACCESSDENIED, "createRefused"},
        {R"({"classes": {"VirtualDiskService": {"missingInterfaces": ["IVirtualDisk"]}}})", E_NOINTERFACE, "query"},
    };
    for (const auto &c : cases) {
        ClearLog();
        WriteScenario(c.scenario);
        ComPtr<IUnknown> disk;
        EXPECT_EQ(Create(CLSID_VirtualDiskService, IID_IVirtualDisk, disk), c.expected) << c.scenario;
        EXPECT_FALSE(LogOf(c.logEvent).empty()) << c.scenario;
    }
    RemoveScenario();
    ComPtr<IUnknown> disk;
    EXPECT_EQ(Create(CLSID_VirtualDiskService, IID_IVirtualDisk, disk), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    WriteScenario(kScenario);
}

std::wstring ErrorDescription() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.GetAddressOf()) != S_OK)
        return L"(none)";
    BSTR description = nullptr;
    info->GetDescription(&description);
    std::wstring text = description != nullptr ? description : L"";
    SysFreeString(description);
    return text;
}

// Across processes, as cvcli reads it: GetErrorInfo right after the call.
// An empty explanation is still an error object; only a response without one clears it.
TEST(Failures, TheServiceExplanationReachesTheClientAndGoesWithTheNextSuccess) {
    WriteScenario(R"({"methods": {"IVirtualDisk.EnumerateDisks": [
        {"result": "0xC004020F", "errorDescription": "The LUN is busy."},
        {"result": "0xC004020F", "errorDescription": ""}, {}]}})");
    ComPtr<IUnknown> object;
    ASSERT_EQ(Create(CLSID_VirtualDiskService, IID_IVirtualDisk, object), S_OK);
    IVirtualDisk *disk = static_cast<IVirtualDisk *>(object.Get());
    DiskInfoList list{};
    EXPECT_EQ(disk->EnumerateDisks(&list), static_cast<HRESULT>(0xC004020F));
    EXPECT_EQ(ErrorDescription(), L"The LUN is busy.");
    EXPECT_EQ(disk->EnumerateDisks(&list), static_cast<HRESULT>(0xC004020F));
    EXPECT_EQ(ErrorDescription(), L"");
    EXPECT_EQ(disk->EnumerateDisks(&list), S_OK);
    EXPECT_EQ(ErrorDescription(), L"(none)");
    WriteScenario(kScenario);
}

} // namespace
} // namespace contract
