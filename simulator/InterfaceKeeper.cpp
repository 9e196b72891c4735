#include "simulator/InterfaceKeeper.h"

#include <oleauto.h>

using Microsoft::WRL::ComPtr;

namespace sim {

InterfaceKeeper::InterfaceKeeper(const std::vector<ClassDef> &classes) {
    for (const ClassDef &definition : classes) {
        ComPtr<IUnknown> object;
        object.Attach(static_cast<IConnectionPointContainer *>(new CServiceObject(definition, CServiceObject::Kept{})));
        for (const InterfaceDef &entry : definition.interfaces)
            Keep(object.Get(), *entry.iid);
        // A creation hands the object out as IUnknown first.
        Keep(object.Get(), IID_IUnknown);
        Keep(object.Get(), IID_ISupportErrorInfo);
        if (!definition.events.empty()) {
            Keep(object.Get(), IID_IConnectionPointContainer);
            ComPtr<IConnectionPointContainer> container;
            ComPtr<IConnectionPoint> point;
            if (SUCCEEDED(object.As(&container)) &&
                SUCCEEDED(container->FindConnectionPoint(*definition.events.front().iid, point.GetAddressOf())))
                Keep(point.Get(), IID_IConnectionPoint);
        }
        objects_.push_back(object);
    }
    // The error objects that failing calls leave for their clients.
    ComPtr<ICreateErrorInfo> error;
    if (SUCCEEDED(CreateErrorInfo(error.GetAddressOf()))) {
        ComPtr<IErrorInfo> info;
        if (SUCCEEDED(error.As(&info)))
            Keep(info.Get(), IID_IErrorInfo);
    }
}

InterfaceKeeper::~InterfaceKeeper() {
    for (ComPtr<IStream> &stream : marshalled_) {
        const LARGE_INTEGER start = {};
        stream->Seek(start, STREAM_SEEK_SET, nullptr);
        CoReleaseMarshalData(stream.Get());
    }
}

// An interface that cannot be marshalled is simply not kept: nothing is lost
// but the protection.
void InterfaceKeeper::Keep(IUnknown *object, REFIID iid) {
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf())))
        return;
    if (SUCCEEDED(CoMarshalInterface(stream.Get(), iid, object, MSHCTX_LOCAL, nullptr, MSHLFLAGS_TABLESTRONG)))
        marshalled_.push_back(stream);
}

} // namespace sim
