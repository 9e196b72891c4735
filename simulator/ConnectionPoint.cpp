#include "simulator/ConnectionPoint.h"

#include "simulator/CallLog.h"
#include "simulator/ServiceObject.h"

#include <vector>

using Microsoft::WRL::ComPtr;

namespace sim {

CConnectionPoint::CConnectionPoint(CServiceObject &owner, const IID &eventIid, const char *eventName)
    : owner_(owner), iid_(eventIid), name_(eventName) {}

CConnectionPoint::~CConnectionPoint() {
    DropAll();
}

HRESULT STDMETHODCALLTYPE CConnectionPoint::QueryInterface(REFIID riid, void **object) {
    if (object == nullptr)
        return E_POINTER;
    if (riid == IID_IUnknown || riid == IID_IConnectionPoint) {
        *object = static_cast<IConnectionPoint *>(this);
        AddRef();
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE CConnectionPoint::AddRef() {
    return owner_.AddRef();
}
ULONG STDMETHODCALLTYPE CConnectionPoint::Release() {
    return owner_.Release();
}

HRESULT STDMETHODCALLTYPE CConnectionPoint::GetConnectionInterface(IID *iid) {
    if (iid == nullptr)
        return E_POINTER;
    *iid = iid_;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer **container) {
    if (container == nullptr)
        return E_POINTER;
    return owner_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void **>(container));
}

HRESULT STDMETHODCALLTYPE CConnectionPoint::Advise(IUnknown *sink, DWORD *cookie) {
    if (cookie == nullptr)
        return E_POINTER;
    *cookie = 0;
    if (sink == nullptr)
        return E_POINTER;
    ComPtr<IUnknown> events;
    if (FAILED(sink->QueryInterface(iid_, reinterpret_cast<void **>(events.GetAddressOf())))) {
        TheCallLog().Write({{"event", "adviseRefused"}, {"object", owner_.Id()}, {"interface", name_}});
        return CONNECT_E_CANNOTCONNECT;
    }
    {
        std::lock_guard<std::mutex> guard(lock_);
        *cookie = nextCookie_++;
        sinks_[*cookie] = events;
    }
    TheCallLog().Advised(owner_.Id(), name_, *cookie);
    return S_OK;
}

// Once Unadvise has returned, the client hears nothing more from this
// connection and nothing of it is left to give back: a call still on its way
// to the sink (events of a call that has already returned) ends first, and the
// sink goes back to the client before the answer. A client can then leave COM
// without a call of ours still open in its process.
HRESULT STDMETHODCALLTYPE CConnectionPoint::Unadvise(DWORD cookie) {
    ComPtr<IUnknown> sink;
    {
        std::unique_lock<std::mutex> guard(lock_);
        auto it = sinks_.find(cookie);
        if (it != sinks_.end()) {
            sink = it->second;
            sinks_.erase(it);
        }
        fired_.wait(guard, [&] { return calling_.count(cookie) == 0; });
    }
    TheCallLog().Unadvised(owner_.Id(), name_, cookie, sink != nullptr);
    const HRESULT hr = sink != nullptr ? S_OK : CONNECT_E_NOCONNECTION;
    sink.Reset(); // outside the lock: the release is a call back to the client
    return hr;
}

HRESULT STDMETHODCALLTYPE CConnectionPoint::EnumConnections(IEnumConnections **connections) {
    if (connections != nullptr)
        *connections = nullptr;
    return E_NOTIMPL;
}

unsigned CConnectionPoint::Fire(const std::function<HRESULT(IUnknown *sink)> &invoke, unsigned &failures) {
    std::vector<std::pair<DWORD, ComPtr<IUnknown>>> sinks;
    {
        std::lock_guard<std::mutex> guard(lock_);
        for (auto &entry : sinks_) {
            sinks.push_back(entry);
            ++calling_[entry.first];
        }
    }
    for (auto &[cookie, sink] : sinks) {
        if (FAILED(invoke(sink.Get())))
            ++failures;
        sink.Reset();
        std::lock_guard<std::mutex> guard(lock_);
        if (--calling_[cookie] == 0)
            calling_.erase(cookie);
        fired_.notify_all();
    }
    return static_cast<unsigned>(sinks.size());
}

unsigned CConnectionPoint::DropAll() {
    std::map<DWORD, ComPtr<IUnknown>> dropped;
    {
        std::lock_guard<std::mutex> guard(lock_);
        dropped.swap(sinks_);
    }
    return static_cast<unsigned>(dropped.size());
}

} // namespace sim
