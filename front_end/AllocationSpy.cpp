#include "front_end/AllocationSpy.h"

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>
#include <unordered_map>

namespace {

// Each block gets no header of its own: the sizes are kept on the side, so
// that the spy changes nothing of what the allocator hands out.
class CAllocationSpy : public IMallocSpy {
public:
    explicit CAllocationSpy(const wchar_t *secret) : m_secret(secret != nullptr ? secret : L"") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **out) override {
        if (out == nullptr)
            return E_POINTER;
        if (iid == IID_IUnknown || iid == IID_IMallocSpy) {
            *out = static_cast<IMallocSpy *>(this);
            AddRef();
            return S_OK;
        }
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InterlockedIncrement(&m_refs); }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG refs = InterlockedDecrement(&m_refs);
        if (refs == 0)
            delete this;
        return static_cast<ULONG>(refs);
    }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T request) override {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_pendingSize = request;
        return request;
    }
    void *STDMETHODCALLTYPE PostAlloc(void *actual) override {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (actual != nullptr)
            m_live[actual] = m_pendingSize;
        return actual;
    }
    void *STDMETHODCALLTYPE PreFree(void *request, BOOL spyed) override {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (spyed && request != nullptr)
            Forget(request);
        return request;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void *request, SIZE_T cb, void **newRequest, BOOL spyed) override {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (spyed && request != nullptr)
            Forget(request);
        m_pendingSize = cb;
        *newRequest = request;
        return cb;
    }
    void *STDMETHODCALLTYPE PostRealloc(void *actual, BOOL) override {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (actual != nullptr)
            m_live[actual] = m_pendingSize;
        return actual;
    }
    void *STDMETHODCALLTYPE PreGetSize(void *request, BOOL) override { return request; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T actual, BOOL) override { return actual; }
    void *STDMETHODCALLTYPE PreDidAlloc(void *request, BOOL) override { return request; }
    int STDMETHODCALLTYPE PostDidAlloc(void *, BOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

    AllocationCount Outstanding() {
        std::lock_guard<std::mutex> lock(m_mutex);
        AllocationCount count{static_cast<long>(m_live.size()), 0};
        for (const auto &block : m_live)
            count.bytes += static_cast<long long>(block.second);
        return count;
    }

    long Unwiped() {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_unwiped;
    }

private:
    virtual ~CAllocationSpy() = default;

    // A block on its way back: counted when it still holds the watched text.
    void Forget(void *block) {
        auto it = m_live.find(block);
        if (it == m_live.end())
            return;
        if (Holds(static_cast<const unsigned char *>(block), it->second))
            ++m_unwiped;
        m_live.erase(it);
    }

    bool Holds(const unsigned char *bytes, SIZE_T size) const {
        const size_t needle = m_secret.size() * sizeof(wchar_t);
        if (needle == 0 || size < needle)
            return false;
        for (SIZE_T at = 0; at + needle <= size; ++at)
            if (std::memcmp(bytes + at, m_secret.data(), needle) == 0)
                return true;
        return false;
    }

    const std::wstring m_secret; // empty: nothing is watched
    long m_unwiped = 0;

    LONG m_refs = 1;
    std::mutex m_mutex; // the allocator is called from COM's threads too
    SIZE_T m_pendingSize = 0;
    std::unordered_map<void *, SIZE_T> m_live;
};

} // namespace

IMallocSpy *NewAllocationSpy(const wchar_t *secret) {
    return new CAllocationSpy(secret);
}

long UnwipedFrees(IMallocSpy *spy) {
    return static_cast<CAllocationSpy *>(spy)->Unwiped();
}

AllocationCount OutstandingAllocations(IMallocSpy *spy) {
    return static_cast<CAllocationSpy *>(spy)->Outstanding();
}

AllocationAccounting::AllocationAccounting() {
    const DWORD length = GetEnvironmentVariableW(L"CVCLI_ALLOCATION_REPORT", m_reportPath, ARRAYSIZE(m_reportPath));
    if (length == 0 || length >= ARRAYSIZE(m_reportPath)) {
        m_reportPath[0] = L'\0';
        return;
    }
    wchar_t secret[256] = L"";
    const DWORD secretLength = GetEnvironmentVariableW(L"CVCLI_ALLOCATION_SECRET", secret, ARRAYSIZE(secret));
    m_watching = secretLength > 0 && secretLength < ARRAYSIZE(secret);
    m_spy = NewAllocationSpy(m_watching ? secret : nullptr);
    SecureZeroMemory(secret, sizeof(secret));
    if (CoRegisterMallocSpy(m_spy) != S_OK) {
        m_spy->Release();
        m_spy = nullptr;
    }
}

void AllocationAccounting::WriteReport(const char *note) const {
    if (m_spy == nullptr)
        return;
    const AllocationCount count = OutstandingAllocations(m_spy);
    if (FILE *report = _wfopen(m_reportPath, L"w")) {
        fprintf(report, "outstanding %ld %lld\n", count.blocks, count.bytes);
        if (m_watching)
            fprintf(report, "unwiped %ld\n", UnwipedFrees(m_spy));
        if (note != nullptr) {
            fputs(note, report);
            fputc('\n', report);
        }
        fclose(report);
    }
}

AllocationAccounting::~AllocationAccounting() {
    if (m_spy == nullptr)
        return;
    WriteReport();
    // Revoking fails while blocks are outstanding; the system then keeps the
    // spy until they go, which is the end of the process.
    CoRevokeMallocSpy();
    m_spy->Release();
}
