#include "simulator/ServiceObject.h"

#include "simulator/CallLog.h"
#include "simulator/Server.h"

namespace sim {

namespace {
std::atomic<unsigned long> g_nextId{1};
} // namespace

const char *InterfaceName(const ClassDef &definition, REFIID riid) {
    for (const InterfaceDef &entry : definition.interfaces)
        if (*entry.iid == riid)
            return entry.name;
    for (const EventDef &entry : definition.events)
        if (*entry.iid == riid)
            return entry.name;
    if (riid == IID_IConnectionPointContainer)
        return "IConnectionPointContainer";
    return nullptr;
}

CServiceObject::CServiceObject(const ClassDef &definition, std::set<std::string> missingInterfaces, unsigned long id,
                               bool counted)
    : definition_(definition), missing_(std::move(missingInterfaces)), id_(id), counted_(counted) {
    parts_ = definition_.makeParts(*this);
    for (const EventDef &event : definition_.events)
        points_.push_back(std::make_unique<CConnectionPoint>(*this, *event.iid, event.name));
    if (!counted_)
        return;
    TheServer().ObjectCreated();
    TheCallLog().ObjectCreated(definition_.name, id_);
}

CServiceObject::CServiceObject(const ClassDef &definition, std::set<std::string> missingInterfaces)
    : CServiceObject(definition, std::move(missingInterfaces), g_nextId++, true) {}

CServiceObject::CServiceObject(const ClassDef &definition, Kept) : CServiceObject(definition, {}, 0, false) {}

CServiceObject::~CServiceObject() {
    unsigned open = 0;
    for (auto &point : points_)
        open += point->DropAll();
    if (!counted_)
        return;
    TheCallLog().ObjectDestroyed(definition_.name, id_, open);
    TheServer().ObjectDestroyed();
}

HRESULT STDMETHODCALLTYPE CServiceObject::QueryInterface(REFIID riid, void **object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (riid == IID_IUnknown)
        *object = static_cast<IConnectionPointContainer *>(this);
    else if (riid == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo *>(this);
    else if (riid == IID_IConnectionPointContainer) {
        if (!points_.empty())
            *object = static_cast<IConnectionPointContainer *>(this);
    } else {
        for (const InterfaceDef &entry : definition_.interfaces) {
            if (*entry.iid != riid)
                continue;
            bool offered = missing_.count(entry.name) == 0;
            if (counted_)
                TheCallLog().Write({{"event", "query"}, {"object", id_}, {"interface", entry.name}, {"offered", offered}});
            if (offered)
                *object = parts_[entry.part]->Unknown();
            break;
        }
    }
    if (*object == nullptr)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE CServiceObject::AddRef() {
    return ++references_;
}

ULONG STDMETHODCALLTYPE CServiceObject::Release() {
    ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT STDMETHODCALLTYPE CServiceObject::EnumConnectionPoints(IEnumConnectionPoints **points) {
    if (points != nullptr)
        *points = nullptr;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CServiceObject::FindConnectionPoint(REFIID riid, IConnectionPoint **point) {
    if (point == nullptr)
        return E_POINTER;
    CConnectionPoint *found = FindPoint(riid);
    if (found != nullptr && missing_.count(found->EventName()) != 0)
        found = nullptr; // the scenario left this event interface out
    *point = found;
    if (*point == nullptr)
        return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CServiceObject::InterfaceSupportsErrorInfo(REFIID riid) {
    for (const InterfaceDef &entry : definition_.interfaces)
        if (*entry.iid == riid)
            return S_OK;
    return S_FALSE;
}

CConnectionPoint *CServiceObject::FindPoint(const IID &eventIid) {
    for (auto &point : points_)
        if (point->EventIid() == eventIid)
            return point.get();
    return nullptr;
}

} // namespace sim
