#include "simulator/ErrorChannel.h"

#include <oleauto.h>
#include <windows.h>

#include <cstring>

namespace corvane {

namespace {

// {5B8F3E21-7C4D-4E0A-9A61-3D2C8B7E4F10}
const GUID kErrorExtent = {0x5b8f3e21, 0x7c4d, 0x4e0a, {0x9a, 0x61, 0x3d, 0x2c, 0x8b, 0x7e, 0x4f, 0x10}};
const ULONG kMagic = 0x31455643; // "CVE1"

// The error object taken from the service's thread between the two server
// steps of one reply (size, then fill), which run on that same thread.
thread_local IErrorInfo *t_pending = nullptr;

ULONG TextBytes(BSTR text) {
    return static_cast<ULONG>(sizeof(ULONG) + SysStringLen(text) * sizeof(wchar_t));
}

unsigned char *PutText(unsigned char *at, BSTR text) {
    ULONG length = SysStringLen(text);
    std::memcpy(at, &length, sizeof length);
    if (length > 0)
        std::memcpy(at + sizeof length, text, length * sizeof(wchar_t));
    return at + sizeof length + length * sizeof(wchar_t);
}

// Reads one counted text; null when the buffer is too short.
const unsigned char *GetText(const unsigned char *at, const unsigned char *end, BSTR &text) {
    ULONG length = 0;
    if (end - at < static_cast<ptrdiff_t>(sizeof length))
        return nullptr;
    std::memcpy(&length, at, sizeof length);
    at += sizeof length;
    if (static_cast<size_t>(end - at) / sizeof(wchar_t) < length)
        return nullptr;
    text = SysAllocStringLen(reinterpret_cast<const OLECHAR *>(at), length);
    return at + length * sizeof(wchar_t);
}

class CErrorChannelHook final : public IChannelHook {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override {
        if (object == nullptr)
            return E_POINTER;
        if (riid == IID_IUnknown || riid == IID_IChannelHook) {
            *object = static_cast<IChannelHook *>(this);
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    // One static instance that lives as long as the process.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    void STDMETHODCALLTYPE ClientGetSize(REFGUID, REFIID, ULONG *size) override { *size = 0; }
    void STDMETHODCALLTYPE ClientFillBuffer(REFGUID, REFIID, ULONG *size, void *) override { *size = 0; }

    void STDMETHODCALLTYPE ClientNotify(REFGUID, REFIID, ULONG size, void *buffer, DWORD, HRESULT) override {
        if (size < sizeof(ULONG) + sizeof(GUID) || buffer == nullptr)
            return;
        const unsigned char *at = static_cast<const unsigned char *>(buffer);
        const unsigned char *end = at + size;
        ULONG magic = 0;
        std::memcpy(&magic, at, sizeof magic);
        if (magic != kMagic)
            return;
        GUID guid;
        std::memcpy(&guid, at + sizeof magic, sizeof guid);
        at += sizeof magic + sizeof guid;
        BSTR source = nullptr;
        BSTR description = nullptr;
        if ((at = GetText(at, end, source)) != nullptr && GetText(at, end, description) != nullptr) {
            ICreateErrorInfo *create = nullptr;
            if (SUCCEEDED(CreateErrorInfo(&create))) {
                create->SetGUID(guid);
                create->SetSource(source);
                create->SetDescription(description);
                IErrorInfo *info = nullptr;
                if (SUCCEEDED(create->QueryInterface(IID_IErrorInfo, reinterpret_cast<void **>(&info)))) {
                    SetErrorInfo(0, info);
                    info->Release();
                }
                create->Release();
            }
        }
        SysFreeString(source);
        SysFreeString(description);
    }

    void STDMETHODCALLTYPE ServerNotify(REFGUID, REFIID, ULONG, void *, DWORD) override {}

    void STDMETHODCALLTYPE ServerGetSize(REFGUID, REFIID, HRESULT, ULONG *size) override {
        *size = 0;
        if (t_pending != nullptr) {
            t_pending->Release();
            t_pending = nullptr;
        }
        IErrorInfo *info = nullptr;
        if (GetErrorInfo(0, &info) != S_OK || info == nullptr)
            return;
        BSTR source = nullptr;
        BSTR description = nullptr;
        info->GetSource(&source);
        info->GetDescription(&description);
        *size = sizeof(ULONG) + sizeof(GUID) + TextBytes(source) + TextBytes(description);
        SysFreeString(source);
        SysFreeString(description);
        t_pending = info;
    }

    void STDMETHODCALLTYPE ServerFillBuffer(REFGUID, REFIID, ULONG *size, void *buffer, HRESULT) override {
        if (t_pending == nullptr || buffer == nullptr) {
            *size = 0;
            return;
        }
        GUID guid = GUID_NULL;
        BSTR source = nullptr;
        BSTR description = nullptr;
        t_pending->GetGUID(&guid);
        t_pending->GetSource(&source);
        t_pending->GetDescription(&description);
        ULONG needed = sizeof(ULONG) + sizeof(GUID) + TextBytes(source) + TextBytes(description);
        if (needed <= *size) {
            unsigned char *at = static_cast<unsigned char *>(buffer);
            std::memcpy(at, &kMagic, sizeof kMagic);
            std::memcpy(at + sizeof kMagic, &guid, sizeof guid);
            PutText(PutText(at + sizeof kMagic + sizeof guid, source), description);
            *size = needed;
        } else
            *size = 0;
        SysFreeString(source);
        SysFreeString(description);
        t_pending->Release();
        t_pending = nullptr;
    }
};

CErrorChannelHook g_hook;

bool RunningUnderWine() {
    HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

} // namespace

HRESULT RegisterErrorChannel() {
    static const HRESULT result = RunningUnderWine() ? CoRegisterChannelHook(kErrorExtent, &g_hook) : S_FALSE;
    return result;
}

} // namespace corvane

namespace {
// Registered as soon as the module that links this file is loaded, so that a
// client of the proxy/stub DLL needs no code of its own.
const struct ErrorChannelRegistrar {
    ErrorChannelRegistrar() { corvane::RegisterErrorChannel(); }
} g_registrar;
} // namespace
