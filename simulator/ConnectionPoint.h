// One outgoing event interface of a service object: the sinks that clients
// advised, and the firing of events on each of them.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>

namespace sim {

class CServiceObject;

class CConnectionPoint final : public IConnectionPoint {
public:
    CConnectionPoint(CServiceObject &owner, const IID &eventIid, const char *eventName);
    ~CConnectionPoint();

    // IUnknown: the point has its own identity but lives as long as its
    // object, whose reference count it shares.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID *iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer **container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown *sink, DWORD *cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections **connections) override;

    const IID &EventIid() const { return iid_; }
    const char *EventName() const { return name_; }

    // Calls `invoke` with each advised sink (already of the event interface),
    // on the calling thread, outside the lock. Returns how many sinks were
    // called and, through `failures`, how many answered with a failure.
    unsigned Fire(const std::function<HRESULT(IUnknown *sink)> &invoke, unsigned &failures);

    // Drops the connections still open when the object goes away; their count.
    unsigned DropAll();

private:
    CServiceObject &owner_;
    const IID &iid_;
    const char *name_;
    std::mutex lock_;
    std::condition_variable fired_; // a call on a sink has ended
    std::map<DWORD, Microsoft::WRL::ComPtr<IUnknown>> sinks_;
    std::map<DWORD, unsigned> calling_; // calls in progress, by cookie
    DWORD nextCookie_ = 1;
};

} // namespace sim
