#include "simulator/Server.h"

#include "simulator/CallLog.h"
#include "simulator/ClassFactory.h"
#include "simulator/InterfaceKeeper.h"
#include "simulator/Text.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>

using Microsoft::WRL::ComPtr;

namespace sim {

namespace {

std::wstring Environment(const wchar_t *name) {
    wchar_t value[MAX_PATH * 2];
    DWORD length = GetEnvironmentVariableW(name, value, MAX_PATH * 2);
    if (length == 0 || length >= MAX_PATH * 2)
        return std::wstring();
    return value;
}

bool ReadWholeFile(const std::wstring &path, std::string &text) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    text.clear();
    char buffer[65536];
    DWORD read = 0;
    while (::ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read > 0)
        text.append(buffer, read);
    CloseHandle(file);
    return true;
}

} // namespace

Server::Server() {
    wake_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

Server::~Server() {
    if (wake_ != nullptr)
        CloseHandle(wake_);
}

void Server::Configure(const std::vector<ClassDef> *classes, Engine *engine) {
    classes_ = classes;
    engine_ = engine;
}

std::wstring Server::ScenarioPath() {
    std::wstring path = Environment(L"CORVANE_SIM_SCENARIO");
    if (!path.empty())
        return HostPath(path);
    wchar_t module[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, module, MAX_PATH);
    std::wstring directory(module, length);
    directory.resize(directory.find_last_of(L"\\/") + 1);
    return directory + L"scenario.json";
}

HRESULT Server::PrepareCreation(const std::string &className, std::set<std::string> &missingInterfaces) {
    const std::wstring path = ScenarioPath();
    std::string text;
    HRESULT hr = S_OK;
    std::string problem;
    if (!ReadWholeFile(path, text)) {
        DWORD error = GetLastError();
        hr = HRESULT_FROM_WIN32(error);
        problem = "cannot read the scenario file (Windows error " + std::to_string(error) + ")";
    } else {
        try {
            engine_->Load(text);
        } catch (const ScenarioError &error) {
            hr = HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
            problem = std::string("the scenario file is not valid:\n") + error.what();
        }
    }
    Scenario scenario = engine_->Current();
    // The log named by the scenario wins; the environment names the log of
    // everything else, faulty scenarios included.
    std::wstring log = hr == S_OK ? scenario.callLog : std::wstring();
    if (log.empty())
        log = HostPath(Environment(L"CORVANE_SIM_LOG"));
    TheCallLog().SetPath(log);
    if (hr == S_OK && scenario.lingerMs) {
        lingerMs_ = *scenario.lingerMs;
        lingerFromScenario_ = true;
    }
    if (hr != S_OK) {
        std::string message = "corvane-sim: " + Narrow(path.c_str()) + ": " + problem;
        std::fprintf(stderr, "%s\n", message.c_str());
        std::fflush(stderr);
        OutputDebugStringA((message + "\n").c_str());
        TheCallLog().Write({{"event", "scenarioError"},
                            {"class", className},
                            {"file", Narrow(path.c_str())},
                            {"problem", problem},
                            {"result", HresultText(hr)}});
        SetErrorText(message, IID_IClassFactory);
        return hr;
    }
    if (const ClassSpec *spec = scenario.FindClass(className)) {
        if (spec->createResult != S_OK) {
            TheCallLog().Write({{"event", "createRefused"}, {"class", className}, {"result", HresultText(spec->createResult)}});
            SetErrorText(spec->createErrorDescription, IID_IClassFactory);
            return spec->createResult;
        }
        missingInterfaces = spec->missingInterfaces;
    }
    SetErrorText(std::nullopt, IID_IClassFactory);
    return S_OK;
}

void Server::ObjectCreated() {
    ++objects_;
}

void Server::ObjectDestroyed() {
    if (--objects_ == 0)
        Wake();
}

void Server::Lock(bool lock) {
    if (lock)
        ++locks_;
    else if (--locks_ == 0)
        Wake();
}

void Server::Wake() {
    SetEvent(wake_);
}

HRESULT Server::Run(unsigned lingerMs) {
    if (!lingerFromScenario_)
        lingerMs_ = lingerMs;
    const InterfaceKeeper keeper(*classes_);
    std::vector<DWORD> cookies;
    std::vector<ComPtr<IClassFactory>> factories;
    for (const ClassDef &definition : *classes_) {
        ComPtr<IClassFactory> factory = MakeClassFactory(definition);
        DWORD cookie = 0;
        HRESULT hr = CoRegisterClassObject(*definition.clsid, factory.Get(), CLSCTX_LOCAL_SERVER,
                                           REGCLS_MULTIPLEUSE | REGCLS_SUSPENDED, &cookie);
        if (FAILED(hr)) {
            std::fprintf(stderr, "corvane-sim: cannot register the class %s: %s\n", definition.name, HresultText(hr).c_str());
            for (DWORD registered : cookies)
                CoRevokeClassObject(registered);
            return hr;
        }
        cookies.push_back(cookie);
        factories.push_back(factory);
    }
    CoResumeClassObjects();
    for (;;) {
        if (Busy()) {
            WaitForSingleObject(wake_, INFINITE);
            continue;
        }
        if (WaitForSingleObject(wake_, lingerMs_) != WAIT_TIMEOUT || Busy())
            continue;
        // No new activation may slip in between the last look and the end.
        CoSuspendClassObjects();
        if (!Busy())
            break;
        CoResumeClassObjects();
    }
    for (DWORD cookie : cookies)
        CoRevokeClassObject(cookie);
    TheCallLog().Write({{"event", "exit"}});
    return S_OK;
}

Server &TheServer() {
    static Server server;
    return server;
}

void SetErrorText(const std::optional<std::string> &description, REFIID iid) {
    if (!description) {
        SetErrorInfo(0, nullptr);
        return;
    }
    ComPtr<ICreateErrorInfo> create;
    if (FAILED(CreateErrorInfo(create.GetAddressOf())))
        return;
    std::wstring text = Widen(*description);
    create->SetDescription(&text[0]);
    create->SetSource(const_cast<LPOLESTR>(L"Corvane"));
    create->SetGUID(iid);
    ComPtr<IErrorInfo> info;
    if (SUCCEEDED(create.As(&info)))
        SetErrorInfo(0, info.Get());
}

} // namespace sim
