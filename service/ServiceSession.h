// The one set-up of a handler that talks to the service: one interface of a
// service object, created on the machine that -m names (else locally), and the
// progress sinks of the operation, connected in the order given. The sinks are
// disconnected (last first) and then the interface released, on every path.
// Where a handler declares its session says whether the service or the
// switches come first.
#pragma once

#include "front_end/Operation.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"

#include <utility>

// Asks for a session whose sinks the handler connects itself, later (ConnectSinks),
// when a question to the service must come before them.
struct SinksLater {};

template <typename Interface, typename... Sinks> class ServiceSession {
public:
    // A null or empty machine name means the local machine.
    ServiceSession(const wchar_t *machineName, REFCLSID clsid) {
        CreateServiceInterface(machineName, clsid, m_service);
        ConnectSinks();
    }
    // On the machine the operation's -m names, read through its row.
    ServiceSession(const Operation &operation, REFCLSID clsid) : ServiceSession(operation.Machine(), clsid) {}
    ServiceSession(const Operation &operation, REFCLSID clsid, SinksLater) {
        CreateServiceInterface(operation.Machine(), clsid, m_service);
    }
    // For handlers that answer with a "Failed to ..." line: a sink that cannot
    // be connected is the handler's refusal, its HRESULT kept in lastHr.
    ServiceSession(const Operation &operation, REFCLSID clsid, HRESULT &lastHr) {
        CreateServiceInterface(operation.Machine(), clsid, m_service);
        try {
            ConnectSinks();
        } catch (const AlertUserException &failure) {
            RefuseUnconnectedSink(failure, lastHr);
        }
    }

    void ConnectSinks() {
        [[maybe_unused]] size_t next = 0;
        ((m_events[next++] = ConnectSink<Sinks>(m_service.Get())), ...);
    }

    Interface *Get() const { return m_service.Get(); }
    Interface *operator->() const { return m_service.Get(); }
    // Another interface of the same object, as ComPtr::As asks for it.
    template <typename Target> HRESULT As(Target &&target) const { return m_service.As(std::forward<Target>(target)); }

private:
    ComPtr<Interface> m_service;                    // first in, last out: released after the sink is disconnected
    EventConnection m_events[sizeof...(Sinks) + 1]; // one spare: no zero-length array
};
