#include "simulator/MethodCall.h"

#include "simulator/CallLog.h"
#include "simulator/Events.h"
#include "simulator/Server.h"
#include "simulator/Text.h"

#include <cstdio>
#include <thread>

namespace sim {

Call::Call(CServiceObject &object, const char *methodKey, const IID &iid) : object_(object), key_(methodKey), iid_(iid) {
    authnQuery_ = CoQueryClientBlanket(nullptr, nullptr, nullptr, &authnLevel_, nullptr, nullptr, nullptr);
}

void Call::AddAuthentication(Json &line) const {
    if (SUCCEEDED(authnQuery_)) {
        line["authnLevel"] = authnLevel_;
    } else {
        line["authnLevel"] = nullptr;
        line["authnQuery"] = HresultText(authnQuery_);
    }
}

HRESULT Call::Finish() {
    return Finish([](Reader &) {}, [] {});
}

std::string Call::Where() const {
    return "methods." + key_ + (response_.index > 0 ? "[" + std::to_string(response_.index) + "]" : "");
}

void Call::Play() {
    response_ = TheServer().GetEngine().Next(key_, object_.Positions());
    for (const Json &event : response_.events)
        FireEvent(object_, event, sinksCalled_, sinkFailures_);
    if (response_.delayMs > 0)
        Sleep(response_.delayMs);
    if (response_.dieDuringCall) {
        // A service that dies under a waiting client: the client's call fails
        // in the RPC layer, with nothing returned.
        TheCallLog().Write({{"event", "died"}, {"object", object_.Id()}, {"method", key_}, {"request", request_}});
        ExitProcess(3);
    }
}

// Events that arrive after the call has returned, as from a service that keeps
// reporting on work it finishes in the background. The object stays alive
// until they are out.
static void FireLater(CServiceObject &object, const std::string &method, const Json &events, unsigned delayMs) {
    object.AddRef();
    std::thread([&object, method, events, delayMs] {
        Sleep(delayMs);
        const HRESULT joined = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        unsigned called = 0, failures = 0;
        for (const Json &event : events)
            FireEvent(object, event, called, failures);
        TheCallLog().Write({{"event", "lateEvents"},
                            {"object", object.Id()},
                            {"method", method},
                            {"sinksCalled", called},
                            {"sinkFailures", failures}});
        if (SUCCEEDED(joined))
            CoUninitialize();
        object.Release();
    }).detach();
}

HRESULT Call::Fail(const std::string &problem) {
    std::string message = "corvane-sim: " + Where() + ": " + problem;
    std::fprintf(stderr, "%s\n", message.c_str());
    std::fflush(stderr);
    HRESULT hr = HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    TheCallLog().Write({{"event", "call"},
                        {"object", object_.Id()},
                        {"method", key_},
                        {"request", request_},
                        {"response", response_.index},
                        {"scenarioError", problem},
                        {"result", HresultText(hr)}});
    SetErrorText(message, iid_);
    return hr;
}

HRESULT Call::Complete() {
    Json line = {{"event", "call"},     {"object", object_.Id()},      {"method", key_},
                 {"request", request_}, {"response", response_.index}, {"result", HresultText(response_.result)}};
    AddAuthentication(line);
    if (!response_.events.empty()) {
        line["sinksCalled"] = sinksCalled_;
        line["sinkFailures"] = sinkFailures_;
    }
    TheCallLog().Write(line);
    SetErrorText(response_.errorDescription, iid_);
    if (!response_.lateEvents.empty())
        FireLater(object_, key_, response_.lateEvents, response_.lateDelayMs);
    return response_.result;
}

HRESULT NotImplemented(CServiceObject &object, const char *methodKey) {
    TheCallLog().Write({{"event", "call"}, {"object", object.Id()}, {"method", methodKey}, {"result", HresultText(E_NOTIMPL)}});
    SetErrorInfo(0, nullptr);
    return E_NOTIMPL;
}

void NoData(Reader &) {}

} // namespace sim
