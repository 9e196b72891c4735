// corvane-sim.exe: a stand-in for the Corvane service, run as a COM local
// server and driven by a scenario file.
#include "simulator/CallLog.h"
#include "simulator/Contract.h"
#include "simulator/Registration.h"
#include "simulator/Server.h"
#include "simulator/Text.h"

#include <objbase.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace {

const char kUsage[] = "Usage: corvane-sim.exe [/Embedding] [/linger <seconds>]\n"
                      "       corvane-sim.exe /regserver | /unregserver\n"
                      "       corvane-sim.exe /check [<scenario file>]\n"
                      "\n"
                      "Serves the Corvane service classes from the scenario file named by CORVANE_SIM_SCENARIO\n"
                      "(default: scenario.json beside this program). /check reports every problem of a scenario.\n";

bool IsSwitch(const wchar_t *argument, const wchar_t *name) {
    return (argument[0] == L'/' || argument[0] == L'-') && _wcsicmp(argument + 1, name) == 0;
}

int Check(const std::wstring &path, const sim::Catalog &catalog) {
    const std::string shown = sim::Narrow(path.c_str());
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        std::printf("%s: cannot read the scenario file (Windows error %lu)\n", shown.c_str(), GetLastError());
        return 2;
    }
    std::string text;
    char buffer[65536];
    DWORD read = 0;
    while (ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read > 0)
        text.append(buffer, read);
    CloseHandle(file);
    sim::Scenario scenario;
    std::vector<std::string> problems = sim::ParseScenario(text, catalog, scenario);
    for (const std::string &problem : problems)
        std::printf("%s: %s\n", shown.c_str(), problem.c_str());
    if (!problems.empty()) {
        std::printf("%s: %u problem(s)\n", shown.c_str(), static_cast<unsigned>(problems.size()));
        return 1;
    }
    std::printf("%s: valid (%u scripted methods, %u class settings)\n", shown.c_str(),
                static_cast<unsigned>(scenario.methods.size()), static_cast<unsigned>(scenario.classes.size()));
    return 0;
}

unsigned LingerMs(int argc, wchar_t **argv) {
    double seconds = 5;
    wchar_t value[32];
    if (GetEnvironmentVariableW(L"CORVANE_SIM_LINGER", value, 32) > 0)
        seconds = _wtof(value);
    for (int i = 1; i + 1 < argc; ++i)
        if (IsSwitch(argv[i], L"linger"))
            seconds = _wtof(argv[i + 1]);
    if (seconds < 0)
        seconds = 0;
    return static_cast<unsigned>(seconds * 1000);
}

} // namespace

int wmain(int argc, wchar_t **argv) {
    const auto &classes = sim::ServiceClasses();
    if (argc >= 2 && IsSwitch(argv[1], L"check"))
        return Check(argc >= 3 ? sim::HostPath(argv[2]) : sim::Server::ScenarioPath(), sim::ServiceCatalog());
    if (argc >= 2 && (IsSwitch(argv[1], L"?") || IsSwitch(argv[1], L"help"))) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    HRESULT hr = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (FAILED(hr)) {
        std::fprintf(stderr, "corvane-sim: COM initialisation failed: %s\n", sim::HresultText(hr).c_str());
        return static_cast<int>(hr);
    }
    if (argc >= 2 && (IsSwitch(argv[1], L"regserver") || IsSwitch(argv[1], L"unregserver"))) {
        bool registering = IsSwitch(argv[1], L"regserver");
        hr = registering ? sim::RegisterServer(classes) : sim::UnregisterServer(classes);
        if (FAILED(hr))
            std::fprintf(stderr, "corvane-sim: %s failed: %s\n", registering ? "registration" : "unregistration",
                         sim::HresultText(hr).c_str());
        CoUninitialize();
        return FAILED(hr) ? static_cast<int>(hr) : 0;
    }
    // Clients connect without authentication, and the sinks that they advise
    // are called back the same way.
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IDENTIFY, nullptr, EOAC_NONE,
                         nullptr);
    sim::Engine engine(sim::ServiceCatalog());
    sim::TheServer().Configure(&classes, &engine);
    wchar_t log[MAX_PATH];
    if (GetEnvironmentVariableW(L"CORVANE_SIM_LOG", log, MAX_PATH) > 0)
        sim::TheCallLog().SetPath(sim::HostPath(log));
    sim::TheCallLog().Write({{"event", "start"}, {"scenario", sim::Narrow(sim::Server::ScenarioPath().c_str())}});
    hr = sim::TheServer().Run(LingerMs(argc, argv));
    CoUninitialize();
    return FAILED(hr) ? static_cast<int>(hr) : 0;
}
