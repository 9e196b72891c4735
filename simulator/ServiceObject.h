// A service object: one instance of one of the service's classes, with the
// interfaces the class offers (each implemented by its own part), the
// connection points of its event interfaces and error information support.
#pragma once

#include "simulator/ConnectionPoint.h"
#include "simulator/Scenario.h"

#include <oaidl.h>
#include <ocidl.h>

#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace sim {

class CServiceObject;

// The implementation of one interface of an object; its IUnknown is the
// object's.
class PartBase {
public:
    virtual ~PartBase() = default;
    virtual IUnknown *Unknown() = 0;
};

template <typename Interface> class TPart : public Interface, public PartBase {
public:
    explicit TPart(CServiceObject &owner) : owner_(owner) {}
    IUnknown *Unknown() override { return static_cast<Interface *>(this); }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

protected:
    CServiceObject &owner_;
};

struct InterfaceDef {
    const IID *iid;
    const char *name;
    size_t part; // index of the part that implements it
};

struct EventDef {
    const IID *iid;
    const char *name;
};

struct ClassDef {
    const CLSID *clsid;
    const char *name;
    std::vector<InterfaceDef> interfaces;
    std::vector<EventDef> events;
    std::function<std::vector<std::unique_ptr<PartBase>>(CServiceObject &)> makeParts;
};

class CServiceObject final : public IConnectionPointContainer, public ISupportErrorInfo {
public:
    CServiceObject(const ClassDef &definition, std::set<std::string> missingInterfaces);
    // An object that no client is given: it offers every interface of its
    // class, keeps the server from nothing, takes no number and writes no log.
    struct Kept {};
    CServiceObject(const ClassDef &definition, Kept);
    ~CServiceObject();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints **points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID riid, IConnectionPoint **point) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override;

    unsigned long Id() const { return id_; }
    const ClassDef &Definition() const { return definition_; }

    // The connection point of an event interface, or null when this class
    // has no such events.
    CConnectionPoint *FindPoint(const IID &eventIid);

    // This object's place in the scenario's response lists (the engine's lock guards it).
    ResponsePositions &Positions() { return positions_; }

private:
    CServiceObject(const ClassDef &definition, std::set<std::string> missingInterfaces, unsigned long id, bool counted);

    const ClassDef &definition_;
    std::set<std::string> missing_;
    unsigned long id_;
    bool counted_ = true;
    std::atomic<ULONG> references_{1};
    std::vector<std::unique_ptr<PartBase>> parts_;
    std::vector<std::unique_ptr<CConnectionPoint>> points_;
    ResponsePositions positions_;
};

template <typename Interface> HRESULT STDMETHODCALLTYPE TPart<Interface>::QueryInterface(REFIID riid, void **object) {
    return owner_.QueryInterface(riid, object);
}
template <typename Interface> ULONG STDMETHODCALLTYPE TPart<Interface>::AddRef() {
    return owner_.AddRef();
}
template <typename Interface> ULONG STDMETHODCALLTYPE TPart<Interface>::Release() {
    return owner_.Release();
}

// The name of a contract interface for the log, or null for COM's own ones.
const char *InterfaceName(const ClassDef &definition, REFIID riid);

} // namespace sim
