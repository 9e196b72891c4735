#include "simulator/MethodCall.h"

#include "simulator/CallLog.h"
#include "simulator/Events.h"
#include "simulator/Server.h"
#include "simulator/Text.h"

#include <cstdio>

namespace sim {

Call::Call(CServiceObject &object, const char *methodKey, const IID &iid) : object_(object), key_(methodKey), iid_(iid) {}

HRESULT Call::Finish() {
    return Finish([](Reader &) {}, [] {});
}

std::string Call::Where() const {
    return "methods." + key_ + (response_.index > 0 ? "[" + std::to_string(response_.index) + "]" : "");
}

void Call::Play() {
    response_ = TheServer().GetEngine().Next(key_);
    for (const Json &event : response_.events)
        FireEvent(object_, event, sinksCalled_, sinkFailures_);
    if (response_.delayMs > 0)
        Sleep(response_.delayMs);
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
    if (!response_.events.empty()) {
        line["sinksCalled"] = sinksCalled_;
        line["sinkFailures"] = sinkFailures_;
    }
    TheCallLog().Write(line);
    SetErrorText(response_.errorDescription.value_or(std::string()), iid_);
    return response_.result;
}

HRESULT NotImplemented(CServiceObject &object, const char *methodKey) {
    TheCallLog().Write({{"event", "call"}, {"object", object.Id()}, {"method", methodKey}, {"result", HresultText(E_NOTIMPL)}});
    SetErrorInfo(0, nullptr);
    return E_NOTIMPL;
}

void NoData(Reader &) {}

} // namespace sim
