// The progress sinks: small COM objects the service calls back while a
// handler waits in a service call. Each prints one whole line per event; they
// run on COM's threads and share nothing with the handler.
#pragma once

#include "Corvane.h"
#include "front_end/Exceptions.h"
#include "service/ServiceAccess.h"
#include <ocidl.h>

#include <atomic>

// Reference counting and QueryInterface for a sink of one event interface.
template <typename EventInterface> class SinkBase : public EventInterface {
public:
    using EventInterfaceType = EventInterface;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **out) override {
        if (out == nullptr)
            return E_POINTER;
        if (iid == IID_IUnknown || iid == __uuidof(EventInterface)) {
            *out = static_cast<EventInterface *>(this);
            AddRef();
            return S_OK;
        }
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_refs; }
    ULONG STDMETHODCALLTYPE Release() override {
        ULONG refs = --m_refs;
        if (refs == 0)
            delete this;
        return refs;
    }

protected:
    virtual ~SinkBase() = default;

private:
    std::atomic<ULONG> m_refs{1};
};

class CSnapShotEvents : public SinkBase<_ISnapShotEvents> {
public:
    HRESULT STDMETHODCALLTYPE ProgressMessage(DWORD reserved, const wchar_t *subject, DWORD eventCode) override;
    HRESULT STDMETHODCALLTYPE ReadyToCreate(DWORD reserved1, DWORD reserved2, const wchar_t *snapshotName) override;
};

class CSnapShotEvents2 : public SinkBase<_ISnapShotEvents2> {
public:
    HRESULT STDMETHODCALLTYPE MirrorProgress(const wchar_t *snapshotName, const wchar_t *drive, const wchar_t *text,
                                             ::MirrorProgress *progress) override;
};

class CVirtualDiskEvents : public SinkBase<_IVirtualDiskEvents> {
public:
    HRESULT STDMETHODCALLTYPE ProgressMessage(DWORD reserved, const wchar_t *subject, DWORD eventCode) override;
    HRESULT STDMETHODCALLTYPE Reserved4(DWORD reserved) override;
};

// One sink advised on one connection point of a service object; unadvised
// when the holder goes, on every path. Move-only.
class EventConnection {
public:
    EventConnection() = default;
    ~EventConnection() { Disconnect(); }
    EventConnection(EventConnection &&other) noexcept;
    EventConnection &operator=(EventConnection &&other) noexcept;
    EventConnection(const EventConnection &) = delete;
    EventConnection &operator=(const EventConnection &) = delete;

    // Throws AlertUserException when the source offers no such connection point
    // or refuses the sink.
    void Connect(IUnknown *source, REFIID eventInterface, IUnknown *sink);
    void Disconnect();

private:
    ComPtr<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};

// Keeps the event interface of `sink` registered with the RPC run-time until
// ReleaseKeptSinkInterfaces, by one more stub of the first sink of each
// interface, which nobody calls through it. COM
// unregisters an interface when its last stub goes, waiting there for the
// calls on it to end; under Wine that wait can miss the end of a call that has
// just answered and last for ever. With the interface kept, the service's
// release of a sink right after its last event never waits for anything.
void KeepSinkInterface(REFIID eventInterface, IUnknown *sink);
// Before leaving COM, when no sink is connected any more.
void ReleaseKeptSinkInterfaces();

// The usual pairing: a fresh sink of the given class, connected to the source.
template <typename Sink> EventConnection ConnectSink(IUnknown *source) {
    ComPtr<Sink> sink;
    sink.Attach(new Sink());
    KeepSinkInterface(__uuidof(typename Sink::EventInterfaceType), sink.Get());
    EventConnection connection;
    connection.Connect(source, __uuidof(typename Sink::EventInterfaceType), sink.Get());
    return connection;
}

// For handlers that answer with a "Failed to ..." line: a sink that cannot be
// connected is not a service failure of the operation but a refusal of the
// handler (5120-style local error with the connection's system error); the
// connection's HRESULT is kept in lastHr for the line.
[[noreturn]] void RefuseUnconnectedSink(const AlertUserException &failure, HRESULT &lastHr);
