// A server built from the simulator's engine and plumbing with one class whose
// interface and events are IDispatch, which Wine marshals with its own
// proxies: it lets the plumbing (creation, scenario reload, call log,
// connection points, error information, lingering) be tested across processes
// independently of the service contract.
#include "simulator/CallLog.h"
#include "simulator/ErrorChannel.h"
#include "simulator/Events.h"
#include "simulator/MethodCall.h"
#include "simulator/Registration.h"
#include "simulator/Server.h"
#include "simulator/tests/probe/Probe.h"

#include <objbase.h>

#include <cwchar>

namespace sim {

namespace {

void FillValue(Reader &data, long &value) {
    data.Field("value", value);
}

class CProbe final : public TPart<IDispatch> {
public:
    using TPart::TPart;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS *params, VARIANT *result, EXCEPINFO *,
                                     UINT *) override {
        Call call(owner_, "IProbe.Invoke", IID_IDispatch);
        call.Request()["dispid"] = id;
        if (params != nullptr && params->cArgs > 0 && params->rgvarg[0].vt == VT_BSTR)
            call.Request()["text"] = LogText(params->rgvarg[0].bstrVal);
        long value = 0;
        HRESULT hr = call.Finish([&](Reader &data) { FillValue(data, value); }, [&] { value = 0; });
        if (result != nullptr) {
            VariantInit(result);
            result->vt = VT_I4;
            result->lVal = value;
        }
        return hr;
    }
};

ClassDef ProbeClass() {
    return {&CLSID_Probe,
            "ProbeService",
            {{&IID_IDispatch, "IProbe", 0}},
            {{&IID_IDispatch, "_IProbeEvents"}},
            [](CServiceObject &owner) {
                std::vector<std::unique_ptr<PartBase>> parts;
                parts.push_back(std::make_unique<CProbe>(owner));
                return parts;
            }};
}

struct ProbeEvent {
    long code;
};

void ReadEvent(Reader &data, ProbeEvent &event) {
    data.Field("code", event.code);
}

} // namespace

void FireEvent(CServiceObject &object, const Json &event, unsigned &sinksCalled, unsigned &failures) {
    Json data = event;
    data.erase("event");
    Allocator memory;
    Reader reader(data, "event", memory);
    ProbeEvent args{};
    ReadEvent(reader, args);
    if (CConnectionPoint *point = object.FindPoint(IID_IDispatch))
        sinksCalled += point->Fire(
            [&](IUnknown *sink) {
                VARIANT argument;
                VariantInit(&argument);
                argument.vt = VT_I4;
                argument.lVal = args.code;
                DISPPARAMS params = {&argument, nullptr, 1, 0};
                return static_cast<IDispatch *>(sink)->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr,
                                                              nullptr);
            },
            failures);
}

std::map<std::string, DataCheck> EventChecks() {
    return {{"Probe", [](const Json &data, const std::string &path) {
                 Allocator memory;
                 Reader reader(data, path, memory);
                 ProbeEvent event{};
                 ReadEvent(reader, event);
                 reader.Done();
             }}};
}

} // namespace sim

int wmain(int argc, wchar_t **argv) {
    static const std::vector<sim::ClassDef> classes = {sim::ProbeClass()};
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (argc >= 2 && _wcsicmp(argv[1], L"/regserver") == 0)
        return FAILED(sim::RegisterServer(classes)) ? 1 : 0;
    corvane::RegisterErrorChannel();
    sim::Catalog catalog;
    catalog.classInterfaces["ProbeService"] = {"IProbe"};
    catalog.methods["IProbe.Invoke"] = sim::CheckOf(&sim::FillValue);
    catalog.events = sim::EventChecks();
    sim::Engine engine(catalog);
    sim::TheServer().Configure(&classes, &engine);
    HRESULT hr = sim::TheServer().Run(2000);
    CoUninitialize();
    return FAILED(hr) ? 1 : 0;
}
