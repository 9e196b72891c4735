// The common shape of a scripted service method: what the client sent goes to
// the call log, the scenario's response is played and its data become the
// out-parameters. Also the call-log forms shared by the interface families.
#pragma once

#include "simulator/MethodCall.h"

#include <cwchar>
#include <utility>

namespace sim {

// A method without out data.
inline HRESULT Answer(CServiceObject &owner, const char *key, const IID &iid, Json request) {
    Call call(owner, key, iid);
    call.Request() = std::move(request);
    return call.Finish();
}

// A method whose response data fill its out-parameters through `fill`. The
// out-parameters start zeroed (the marshaller sends them back whatever the
// result) and are zeroed again when the data cannot be built.
template <typename... Outs>
HRESULT Answer(CServiceObject &owner, const char *key, const IID &iid, Json request, void (*fill)(Reader &, Outs &...),
               Outs *...outs) {
    if (((outs == nullptr) || ...))
        return E_POINTER;
    auto reset = [&] { ((*outs = Outs{}), ...); };
    reset();
    Call call(owner, key, iid);
    call.Request() = std::move(request);
    return call.Finish([&](Reader &data) { fill(data, *outs...); }, reset);
}

// A counted array of strings as the client sent it.
inline Json LogStrings(unsigned long count, wchar_t *const *items) {
    if (items == nullptr)
        return nullptr;
    Json list = Json::array();
    for (unsigned long i = 0; i < count; ++i)
        list.push_back(LogText(items[i]));
    return list;
}

// A counted array of records, each logged by `each`.
template <typename T, typename Each> Json LogArray(unsigned long count, const T *items, Each each) {
    if (items == nullptr)
        return nullptr;
    Json list = Json::array();
    for (unsigned long i = 0; i < count; ++i)
        list.push_back(each(items[i]));
    return list;
}

// A fixed-size text field, which a careless client may leave unterminated.
template <size_t N> Json LogFixed(const wchar_t (&text)[N]) {
    return LogText(std::wstring(text, wcsnlen(text, N)).c_str());
}

} // namespace sim

// A placeholder slot of the contract: logged, never scripted.
#define SIM_RESERVED(Interface, Slot)                                                                                            \
    HRESULT STDMETHODCALLTYPE Reserved##Slot() override {                                                                        \
        return NotImplemented(owner_, #Interface ".Reserved" #Slot);                                                             \
    }
