// A client that disconnects and releases everything leaves no object or
// connection behind in the simulator, and one that leaves a sink advised is
// seen: the end-to-end cases' release checks rest on both.
#include "simulator/tests/contract/Client.h"

#include <gtest/gtest.h>

#include <ocidl.h>
#include <olectl.h>

#include <atomic>
#include <mutex>
#include <set>

using Microsoft::WRL::ComPtr;

namespace contract {
namespace {

// One sink for the three event interfaces: each event becomes a line of text.
class Sink final : public _IVirtualDiskEvents, public _ISnapShotEvents, public _ISnapShotEvents2 {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override {
        if (riid == IID_IUnknown || riid == IID__IVirtualDiskEvents)
            *object = static_cast<_IVirtualDiskEvents *>(this);
        else if (riid == IID__ISnapShotEvents)
            *object = static_cast<_ISnapShotEvents *>(this);
        else if (riid == IID__ISnapShotEvents2)
            *object = static_cast<_ISnapShotEvents2 *>(this);
        else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        return S_OK;
    }
    // Lives as long as the test program: COM may release it late.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE ProgressMessage(DWORD, const wchar_t *subject, DWORD) override { return Add(Text(subject)); }
    HRESULT STDMETHODCALLTYPE Reserved4(DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ReadyToCreate(DWORD, DWORD, const wchar_t *name) override { return Add(Text(name)); }
    HRESULT STDMETHODCALLTYPE MirrorProgress(const wchar_t *name, const wchar_t *, const wchar_t *, ::MirrorProgress *) override {
        return Add(Text(name));
    }

    std::vector<std::wstring> Take() {
        std::lock_guard<std::mutex> guard(lock_);
        return std::move(lines_);
    }

private:
    HRESULT Add(std::wstring line) {
        std::lock_guard<std::mutex> guard(lock_);
        lines_.push_back(std::move(line));
        return S_OK;
    }
    std::mutex lock_;
    std::vector<std::wstring> lines_;
};

Sink g_sink;

// A connection to one event interface of an object, undone on every path.
class Connection {
public:
    Connection(IUnknown *object, const IID &events) {
        ComPtr<IConnectionPointContainer> container;
        if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&container))) &&
            SUCCEEDED(container->FindConnectionPoint(events, point_.GetAddressOf())) &&
            FAILED(point_->Advise(static_cast<_IVirtualDiskEvents *>(&g_sink), &cookie_)))
            cookie_ = 0;
    }
    ~Connection() {
        if (cookie_ != 0)
            point_->Unadvise(cookie_);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    bool Connected() const { return cookie_ != 0; }

private:
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

// Waits for the simulator to log the release of a client's objects, which
// Wine delivers a moment after the client has gone.
std::vector<Json> WaitForDestroys(size_t count) {
    for (int i = 0; i < 40; ++i) {
        std::vector<Json> destroys = LogOf("destroy");
        if (destroys.size() >= count)
            return destroys;
        Sleep(50);
    }
    return LogOf("destroy");
}

TEST(Balance, AClientThatLeavesCleanlyLeavesNothingBehind) {
    WriteScenario(kScenario);
    ClearLog();
    ASSERT_EQ(RunClient(L"listing"), 0u);
    std::vector<Json> creates = LogOf("create");
    ASSERT_EQ(creates.size(), 2u);
    std::vector<Json> destroys = WaitForDestroys(creates.size());
    std::set<unsigned long> created, destroyed;
    for (const Json &line : creates)
        created.insert(line["object"].get<unsigned long>());
    for (const Json &line : destroys) {
        destroyed.insert(line["object"].get<unsigned long>());
        EXPECT_EQ(line["openAdvises"], 0);
    }
    EXPECT_EQ(created, destroyed);
    EXPECT_EQ(LogOf("advise").size(), 3u);
    std::vector<Json> unadvises = LogOf("unadvise");
    EXPECT_EQ(unadvises.size(), 3u);
    for (const Json &line : unadvises)
        EXPECT_EQ(line["known"], true);
}

TEST(Balance, ALeftOverSinkIsCountedWhenItsObjectGoes) {
    WriteScenario(kScenario);
    ClearLog();
    ASSERT_EQ(RunClient(L"leak"), 0u);
    std::vector<Json> destroys = WaitForDestroys(1);
    ASSERT_EQ(destroys.size(), 1u);
    EXPECT_EQ(destroys[0]["openAdvises"], 1);
    EXPECT_TRUE(LogOf("unadvise").empty());
}

// A call on its way to a sink when the client unadvises ends before Unadvise
// answers: a client may then leave COM with no call of the service's still
// open in its process.
TEST(Balance, UnadviseWaitsForAnEventOnItsWay) {
    WriteScenario(R"json({"lingerSeconds": 2, "methods": {"IVirtualDisk2.EnumerateDisksEx": {
        "lateEvents": [{"event": "ProgressMessage", "subject": "filer-east", "code": 28}]}}})json");
    ClearLog();
    EXPECT_EQ(RunClient(L"late"), 0u);
    WriteScenario(kScenario);
}

} // namespace

// A sink that answers slowly, and says whether a call is still in it.
class SlowSink final : public _IVirtualDiskEvents {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void **object) override {
        *object = riid == IID_IUnknown || riid == IID__IVirtualDiskEvents ? this : nullptr;
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE ProgressMessage(DWORD, const wchar_t *, DWORD) override {
        inside = true;
        SetEvent(entered);
        Sleep(500);
        inside = false;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Reserved4(DWORD) override { return S_OK; }

    HANDLE entered = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::atomic<bool> inside{false};
};

static int UnadviseDuringALateEvent() {
    static SlowSink sink;
    ComPtr<IUnknown> disk;
    if (Create(CLSID_VirtualDiskService, IID_IVirtualDisk, disk) != S_OK)
        return 1;
    ComPtr<IVirtualDisk2> disk2;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    if (FAILED(disk.As(&disk2)) || FAILED(disk.As(&container)) ||
        FAILED(container->FindConnectionPoint(IID__IVirtualDiskEvents, point.GetAddressOf())) ||
        point->Advise(&sink, &cookie) != S_OK)
        return 2;
    DiskInfoExList list{};
    if (disk2->EnumerateDisksEx(&list) != S_OK || WaitForSingleObject(sink.entered, 5000) != WAIT_OBJECT_0)
        return 3;
    if (point->Unadvise(cookie) != S_OK)
        return 4;
    return sink.inside ? 5 : 0;
}

// A client that leaves with its sink still advised: the simulator must see it.
static int LeakASink() {
    ComPtr<IUnknown> disk;
    if (Create(CLSID_VirtualDiskService, IID_IVirtualDisk, disk) != S_OK)
        return 1;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    if (FAILED(disk.As(&container)) || FAILED(container->FindConnectionPoint(IID__IVirtualDiskEvents, point.GetAddressOf())) ||
        point->Advise(static_cast<_IVirtualDiskEvents *>(&g_sink), &cookie) != S_OK)
        return 2;
    return 0;
}

// The child of the balance test: a disk listing and a snapshot creation as
// cvcli makes them, sinks connected and disconnected.
int Client(const std::wstring &mode) {
    if (mode == L"leak")
        return LeakASink();
    if (mode == L"late")
        return UnadviseDuringALateEvent();
    if (mode != L"listing")
        return 100;
    {
        ComPtr<IUnknown> disk;
        if (Create(CLSID_VirtualDiskService, IID_IVirtualDisk, disk) != S_OK)
            return 1;
        ComPtr<IVirtualDisk2> disk2;
        if (FAILED(disk.As(&disk2)))
            return 2;
        Connection events(disk.Get(), IID__IVirtualDiskEvents);
        DiskInfoExList list{};
        InitiatorInfo initiator{};
        if (!events.Connected() || disk2->EnumerateDisksEx(&list) != S_OK || disk2->GetPortInitiator(3, &initiator) != S_OK)
            return 3;
    }
    ComPtr<IUnknown> snap;
    if (Create(CLSID_SnapShotService, IID_ISnapShotCreate, snap) != S_OK)
        return 4;
    Connection progress(snap.Get(), IID__ISnapShotEvents);
    Connection mirror(snap.Get(), IID__ISnapShotEvents2);
    SnapshotCreateRequest request{};
    if (static_cast<ISnapShotCreate *>(snap.Get())->CreateSnapshot(&request, L"nightly.3", FALSE) != S_OK)
        return 5;
    return g_sink.Take().size() == 2 ? 0 : 6;
}

} // namespace contract
