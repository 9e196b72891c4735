#include "service/EventSinks.h"

#include "MessageIds.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "service/EventLines.h"

#include <utility>
#include <vector>

// Every event is printed with one call, so lines from COM threads never
// interleave with each other.

HRESULT STDMETHODCALLTYPE CSnapShotEvents::ProgressMessage(DWORD, const wchar_t *subject, DWORD eventCode) {
    Print(L"%ls\n", ProgressLine(subject, eventCode).c_str());
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CSnapShotEvents::ReadyToCreate(DWORD, DWORD, const wchar_t *snapshotName) {
    Print(L"%ls\n", ReadyToCreateLine(snapshotName).c_str());
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CSnapShotEvents2::MirrorProgress(const wchar_t *snapshotName, const wchar_t *drive, const wchar_t *text,
                                                           ::MirrorProgress *progress) {
    const ::MirrorProgress none = {};
    const ::MirrorProgress &state = progress != nullptr ? *progress : none;
    Print(L"\n%ls",
          MirrorProgressLine(snapshotName, drive, text, state.transferred, state.countValid, state.mirrorState).c_str());
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CVirtualDiskEvents::ProgressMessage(DWORD, const wchar_t *subject, DWORD eventCode) {
    Print(L"%ls\n", ProgressLine(subject, eventCode).c_str());
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CVirtualDiskEvents::Reserved4(DWORD) {
    return S_OK;
}

EventConnection::EventConnection(EventConnection &&other) noexcept
    : m_point(std::move(other.m_point)), m_cookie(std::exchange(other.m_cookie, 0)) {}

// The move assignment of this ComPtr copies (an AddRef, the source keeps its
// reference); a swap after the disconnection really moves the point.
EventConnection &EventConnection::operator=(EventConnection &&other) noexcept {
    if (this != &other) {
        Disconnect();
        m_point.Swap(other.m_point);
        m_cookie = std::exchange(other.m_cookie, 0);
    }
    return *this;
}

void EventConnection::Connect(IUnknown *source, REFIID eventInterface, IUnknown *sink) {
    Disconnect();
    ComPtr<IConnectionPointContainer> container;
    HRESULT hr = source->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void **>(container.GetAddressOf()));
    if (FAILED(hr))
        throw AlertUserException(MSG_EVENTS_NOT_CONNECTED, hr);
    ComPtr<IConnectionPoint> point;
    hr = container->FindConnectionPoint(eventInterface, point.GetAddressOf());
    if (FAILED(hr))
        throw AlertUserException(MSG_EVENTS_NOT_CONNECTED, hr);
    DWORD cookie = 0;
    hr = point->Advise(sink, &cookie);
    if (FAILED(hr))
        throw AlertUserException(MSG_EVENTS_NOT_CONNECTED, hr);
    m_point.Swap(point);
    m_cookie = cookie;
}

void EventConnection::Disconnect() {
    if (m_point && m_cookie != 0)
        m_point->Unadvise(m_cookie);
    m_point.Reset();
    m_cookie = 0;
}

namespace {

struct KeptInterface {
    IID iid;
    ComPtr<IStream> marshalled;
};

// Only the handler's thread connects sinks and leaves COM.
std::vector<KeptInterface> &KeptInterfaces() {
    static std::vector<KeptInterface> kept;
    return kept;
}

} // namespace

void KeepSinkInterface(REFIID eventInterface, IUnknown *sink) {
    for (const KeptInterface &kept : KeptInterfaces())
        if (kept.iid == eventInterface)
            return;
    // Not kept is not an error: the connection works as well, only without
    // the protection.
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf())) ||
        FAILED(CoMarshalInterface(stream.Get(), eventInterface, sink, MSHCTX_LOCAL, nullptr, MSHLFLAGS_TABLESTRONG)))
        return;
    KeptInterfaces().push_back({eventInterface, stream});
}

void ReleaseKeptSinkInterfaces() {
    for (KeptInterface &kept : KeptInterfaces()) {
        const LARGE_INTEGER start = {};
        kept.marshalled->Seek(start, STREAM_SEEK_SET, nullptr);
        CoReleaseMarshalData(kept.marshalled.Get());
    }
    KeptInterfaces().clear();
}

void RefuseUnconnectedSink(const AlertUserException &failure, HRESULT &lastHr) {
    lastHr = failure.Hresult();
    throw LocalErrorException(MSG_EVENTS_NOT_CONNECTED, failure.SystemError());
}
