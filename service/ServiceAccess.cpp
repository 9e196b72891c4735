#include "service/ServiceAccess.h"

#include "Corvane.h"
#include "MessageIds.h"
#include "front_end/Exceptions.h"

#include <cwchar>
#include <vector>

namespace {

CreateInstanceExFn g_createInstanceEx = nullptr;

HRESULT CallCreateInstanceEx(REFCLSID clsid, DWORD context, COSERVERINFO *server, MULTI_QI *qi) {
    CreateInstanceExFn fn = g_createInstanceEx != nullptr ? g_createInstanceEx : CoCreateInstanceEx;
    return fn(clsid, nullptr, context, server, 1, qi);
}

} // namespace

void SetCreateInstanceExForTesting(CreateInstanceExFn fn) {
    g_createInstanceEx = fn;
}

void CreateServiceInterface(const wchar_t *machineName, REFCLSID clsid, REFIID iid, void **out) {
    MULTI_QI qi = {&iid, nullptr, 0};
    HRESULT hr;
    if (machineName == nullptr || machineName[0] == L'\0') {
        hr = CallCreateInstanceEx(clsid, CLSCTX_LOCAL_SERVER, nullptr, &qi);
    } else {
        // The server info gets a private copy of the name for the length of the call.
        std::vector<wchar_t> name(machineName, machineName + wcslen(machineName) + 1);
        COSERVERINFO server = {0, name.data(), nullptr, 0};
        hr = CallCreateInstanceEx(clsid, CLSCTX_REMOTE_SERVER, &server, &qi);
    }
    if (FAILED(hr)) {
        if (qi.pItf != nullptr)
            qi.pItf->Release();
        throw AlertUserException(MSG_SERVICE_UNAVAILABLE, hr);
    }
    if (FAILED(qi.hr)) {
        if (qi.pItf != nullptr)
            qi.pItf->Release();
        throw AlertUserException(MSG_SERVICE_UNAVAILABLE, qi.hr);
    }
    *out = qi.pItf;
}

void CheckServiceCall(HRESULT hr, unsigned messageId) {
    if (hr != S_OK)
        throw AlertUserException(messageId, hr);
}

bool ProbeDiskService() {
    ComPtr<IVirtualDisk> disk;
    CreateServiceInterface(nullptr, CLSID_VirtualDiskService, disk);
    return false;
}
