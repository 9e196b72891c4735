// Cross-process test of the simulator's plumbing: a client in the MTA, as
// cvcli is, against the probe server started by COM under Wine.
#include "simulator/ErrorChannel.h"
#include "simulator/tests/probe/Probe.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <oleauto.h>
#include <olectl.h>
#include <windows.h>
#include <wrl/client.h>

#include <atomic>
#include <fstream>
#include <string>
#include <vector>

using Microsoft::WRL::ComPtr;
using Json = nlohmann::json;

namespace {

std::wstring Directory() {
    wchar_t module[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, module, MAX_PATH);
    std::wstring path(module, length);
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

const std::wstring kScenario = Directory() + L"probe-scenario.json";
const std::wstring kLog = Directory() + L"probe-calls.jsonl";

void WriteScenario(const std::string &text) {
    std::ofstream(kScenario.c_str(), std::ios::binary | std::ios::trunc) << text;
}

std::vector<Json> ReadLog() {
    std::vector<Json> lines;
    std::ifstream in(kLog.c_str());
    std::string line;
    while (std::getline(in, line))
        lines.push_back(Json::parse(line));
    return lines;
}

std::vector<Json> LogOf(const char *event) {
    std::vector<Json> found;
    for (Json &line : ReadLog())
        if (line["event"] == event)
            found.push_back(line);
    return found;
}

HRESULT Create(ComPtr<IDispatch> &probe) {
    MULTI_QI qi = {&IID_IDispatch, nullptr, 0};
    HRESULT hr = CoCreateInstanceEx(CLSID_Probe, nullptr, CLSCTX_LOCAL_SERVER, nullptr, 1, &qi);
    if (FAILED(hr))
        return hr;
    probe.Attach(static_cast<IDispatch *>(qi.pItf));
    return qi.hr;
}

HRESULT CallProbe(IDispatch *probe, long &value) {
    VARIANT result;
    VariantInit(&result);
    BSTR text = SysAllocString(L"E:\\");
    VARIANT argument;
    argument.vt = VT_BSTR;
    argument.bstrVal = text;
    DISPPARAMS params = {&argument, nullptr, 1, 0};
    HRESULT hr = probe->Invoke(7, IID_NULL, 0, DISPATCH_METHOD, &params, &result, nullptr, nullptr);
    SysFreeString(text);
    value = result.lVal;
    return hr;
}

class Sink final : public IDispatch {
public:
    std::atomic<long> lastCode{0};
    std::atomic<int> calls{0};
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override {
        if (riid == IID_IUnknown || riid == IID_IDispatch) {
            *object = this;
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *params, VARIANT *, EXCEPINFO *, UINT *) override {
        lastCode = params->rgvarg[0].lVal;
        ++calls;
        return S_OK;
    }
};

class Plumbing : public testing::Test {
protected:
    static void SetUpTestSuite() {
        std::wstring command = L"\"" + Directory() + L"corvane_sim_probe.exe\" /regserver";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process;
        ASSERT_TRUE(CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process));
        WaitForSingleObject(process.hProcess, INFINITE);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
        SetEnvironmentVariableW(L"CORVANE_SIM_SCENARIO", kScenario.c_str());
        SetEnvironmentVariableW(L"CORVANE_SIM_LOG", kLog.c_str());
    }
    void SetUp() override { DeleteFileW(kLog.c_str()); }
};

// Runs one client in its own process, as cvcli runs: COM releases the
// objects of a client for good when that client leaves its apartment.
DWORD RunClient(const wchar_t *mode) {
    std::wstring command = L"\"" + Directory() + L"corvane_sim_plumbing_tests.exe\" --client " + mode;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process;
    if (!CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return ~0UL;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = ~0UL;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return code;
}

TEST_F(Plumbing, ErrorDescriptionReachesTheClient) {
    WriteScenario(R"({"methods": {"IProbe.Invoke": [{"result": "0xC004020F", "errorDescription": "The LUN is busy."},
                                                    {}]}})");
    EXPECT_EQ(RunClient(L"error"), 0u);
}

TEST_F(Plumbing, ALeftOverSinkShowsInTheIdleLine) {
    WriteScenario(R"({})");
    EXPECT_EQ(RunClient(L"leak"), 0u);
    ASSERT_EQ(LogOf("idle").size(), 1u);
    EXPECT_EQ(LogOf("idle")[0]["leakedAdvises"], 1);
}

TEST_F(Plumbing, CreationFailsLoudlyOnAFaultyScenarioOrWhenScripted) {
    struct Case {
        const char *scenario;
        HRESULT expected;
        const char *logEvent;
    } cases[] = {
        {R"({"methods": {"IProbe.Invoke": {"valeu": 1}}})", HRESULT_FROM_WIN32(ERROR_INVALID_DATA), "scenarioError"},
        {R"({"methods": )", HRESULT_FROM_WIN32(ERROR_INVALID_DATA), "scenarioError"},
        {R"({"classes": {"ProbeService": {"createResult": "E_ACCESSDENIED"}}})", E_ACCESSDENIED, "createRefused"},
        {R"({"classes": {"ProbeService": {"missingInterfaces": ["IProbe"]}}})", E_NOINTERFACE, "query"},
    };
    for (const Case &c : cases) {
        DeleteFileW(kLog.c_str());
        WriteScenario(c.scenario);
        ComPtr<IDispatch> probe;
        EXPECT_EQ(Create(probe), c.expected) << c.scenario;
        EXPECT_EQ(LogOf(c.logEvent).size(), 1u) << c.scenario;
    }
    DeleteFileW(kScenario.c_str());
    ComPtr<IDispatch> probe;
    EXPECT_EQ(Create(probe), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
}

// The client half of the tests above; its exit code says which check failed.
int Client(const std::wstring &mode) {
    ComPtr<IDispatch> probe;
    if (Create(probe) != S_OK)
        return 1;
    long value = 0;
    if (mode == L"error") {
        if (CallProbe(probe.Get(), value) != static_cast<HRESULT>(0xC004020F))
            return 10;
        ComPtr<IErrorInfo> info;
        if (GetErrorInfo(0, info.GetAddressOf()) != S_OK)
            return 11;
        BSTR description = nullptr;
        info->GetDescription(&description);
        bool same = description != nullptr && std::wstring(description) == L"The LUN is busy.";
        SysFreeString(description);
        if (!same)
            return 12;
        // A successful call leaves no error information behind.
        ComPtr<IErrorInfo> none;
        if (CallProbe(probe.Get(), value) != S_OK || GetErrorInfo(0, none.GetAddressOf()) != S_FALSE)
            return 13;
        return 0;
    }
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    if (FAILED(probe.As(&container)) || FAILED(container->FindConnectionPoint(IID_IDispatch, point.GetAddressOf())))
        return 3;
    static Sink sink; // outlives the apartment, whatever the server still holds
    DWORD cookie = 0;
    if (point->Advise(&sink, &cookie) != S_OK)
        return 4;
    // Left advised on purpose: the server must count the sink as leaked.
    return 0;
}

} // namespace

int wmain(int argc, wchar_t **argv) {
    testing::InitGoogleTest(&argc, argv);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE,
                         nullptr);
    if (argc == 3 && std::wstring(argv[1]) == L"--client") {
        int code = Client(argv[2]);
        CoUninitialize();
        return code;
    }
    int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
