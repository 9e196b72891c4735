#include "simulator/tests/contract/Client.h"

#include <objbase.h>

#include <cstdio>
#include <fstream>

using Microsoft::WRL::ComPtr;

namespace contract {

std::wstring Directory() {
    wchar_t module[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, module, MAX_PATH);
    std::wstring path(module, length);
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

namespace {
const std::wstring &ScenarioPath() {
    static const std::wstring path = Directory() + L"contract-scenario.json";
    return path;
}
const std::wstring &LogPath() {
    static const std::wstring path = Directory() + L"contract-calls.jsonl";
    return path;
}
} // namespace

void WriteScenario(const std::string &text) {
    SetEnvironmentVariableW(L"CORVANE_SIM_SCENARIO", ScenarioPath().c_str());
    SetEnvironmentVariableW(L"CORVANE_SIM_LOG", LogPath().c_str());
    std::ofstream(ScenarioPath().c_str(), std::ios::binary | std::ios::trunc) << text;
}

void RemoveScenario() {
    DeleteFileW(ScenarioPath().c_str());
}

void ClearLog() {
    DeleteFileW(LogPath().c_str());
}

std::vector<Json> LogOf(const char *event) {
    std::vector<Json> found;
    std::ifstream in(LogPath().c_str());
    std::string line;
    while (std::getline(in, line)) {
        Json entry = Json::parse(line, nullptr, false);
        if (!entry.is_discarded() && entry["event"] == event)
            found.push_back(entry);
    }
    return found;
}

HRESULT Create(const CLSID &clsid, const IID &iid, ComPtr<IUnknown> &out) {
    MULTI_QI qi = {&iid, nullptr, 0};
    HRESULT hr = CoCreateInstanceEx(clsid, nullptr, CLSCTX_LOCAL_SERVER, nullptr, 1, &qi);
    if (FAILED(hr))
        return hr;
    out.Attach(qi.pItf);
    return qi.hr;
}

namespace {
constexpr DWORD kClientLimitMs = 60000;
} // namespace

DWORD RunClient(const wchar_t *mode) {
    wchar_t module[MAX_PATH];
    GetModuleFileNameW(nullptr, module, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(module) + L"\" --client " + mode;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process;
    if (!CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return ~0UL;
    if (WaitForSingleObject(process.hProcess, kClientLimitMs) == WAIT_TIMEOUT) {
        // A stall under a loaded Wine: end the client so that the run fails
        // now, and says so, instead of at CTest's limit.
        std::printf("the client (%ls) has not ended in %lu s\n", mode, kClientLimitMs / 1000);
        std::fflush(stdout);
        TerminateProcess(process.hProcess, kClientStalled);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    DWORD code = ~0UL;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return code;
}

std::wstring Hr(HRESULT hr) {
    wchar_t text[16];
    swprintf(text, 16, L"0x%08lX", static_cast<unsigned long>(hr));
    return text;
}

std::wstring Text(const wchar_t *text) {
    return text == nullptr ? L"(null)" : text;
}

std::wstring Ansi(const char *text) {
    if (text == nullptr)
        return L"(null)";
    int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, &wide[0], length);
    wide.resize(wide.size() - 1);
    return wide;
}

} // namespace contract
