#include "simulator/ClassFactory.h"

#include "simulator/CallLog.h"
#include "simulator/Server.h"

#include <atomic>
#include <new>

namespace sim {

namespace {

class CClassFactory final : public IClassFactory {
public:
    explicit CClassFactory(const ClassDef &definition) : definition_(definition) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override {
        if (object == nullptr)
            return E_POINTER;
        if (riid == IID_IUnknown || riid == IID_IClassFactory) {
            *object = static_cast<IClassFactory *>(this);
            AddRef();
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID riid, void **object) override {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (outer != nullptr)
            return CLASS_E_NOAGGREGATION;
        std::set<std::string> missing;
        HRESULT hr = TheServer().PrepareCreation(definition_.name, missing);
        if (FAILED(hr))
            return hr;
        CServiceObject *created = new (std::nothrow) CServiceObject(definition_, std::move(missing));
        if (created == nullptr)
            return E_OUTOFMEMORY;
        hr = created->QueryInterface(riid, object);
        created->Release();
        return hr;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        TheServer().Lock(lock != FALSE);
        return S_OK;
    }

private:
    const ClassDef &definition_;
    std::atomic<ULONG> references_{1};
};

} // namespace

Microsoft::WRL::ComPtr<IClassFactory> MakeClassFactory(const ClassDef &definition) {
    Microsoft::WRL::ComPtr<IClassFactory> factory;
    factory.Attach(new CClassFactory(definition));
    return factory;
}

} // namespace sim
