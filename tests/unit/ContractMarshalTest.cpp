// Every parameter shape of the contract really crosses an apartment boundary
// through CorvanePS.dll: a wrong type-format entry in the generated proxy code
// corrupts or drops data without any compile-time sign, so each shape is
// marshalled here once, from a fake service object in a single-threaded
// apartment to the test's multithreaded one.
#include "Corvane.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <array>
#include <cwchar>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace {

// ---- A fake service object: a bare vtable whose used slots are set per case.

using Slot = void (*)(void);
constexpr size_t kSlots = 48;

struct FakeObject {
    const Slot *vtbl;
    IID iid;
    LONG refs;
};

HRESULT STDMETHODCALLTYPE FakeQueryInterface(FakeObject *self, REFIID riid, void **out) {
    if (riid != IID_IUnknown && riid != self->iid) {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    InterlockedIncrement(&self->refs);
    *out = self;
    return S_OK;
}
ULONG STDMETHODCALLTYPE FakeAddRef(FakeObject *self) {
    return InterlockedIncrement(&self->refs);
}
ULONG STDMETHODCALLTYPE FakeRelease(FakeObject *self) {
    return InterlockedDecrement(&self->refs);
}
HRESULT STDMETHODCALLTYPE FakeUnexpected(FakeObject *) {
    return E_UNEXPECTED;
}

template <class F> Slot AsSlot(F function) {
    return reinterpret_cast<Slot>(function);
}

struct FakeVtable {
    std::array<Slot, kSlots> slots;
    FakeVtable() {
        slots.fill(AsSlot(&FakeUnexpected));
        slots[0] = AsSlot(&FakeQueryInterface);
        slots[1] = AsSlot(&FakeAddRef);
        slots[2] = AsSlot(&FakeRelease);
    }
};

// ---- The proxy/stub DLL of this build, registered for this process only, so
// that no prefix registration is needed and no stale one is used.

class ProxyStubDll {
public:
    ProxyStubDll() : module_(LoadLibraryW(L"CorvanePS.dll")) {}
    ~ProxyStubDll() {
        if (module_ != nullptr)
            FreeLibrary(module_);
    }
    ProxyStubDll(const ProxyStubDll &) = delete;
    ProxyStubDll &operator=(const ProxyStubDll &) = delete;

    // Registers the DLL's factory as the proxy/stub class of `iid` in the
    // calling apartment. The DLL hands out its factory for the id of any of
    // its interfaces; each interface's own id serves as the class id here.
    ::testing::AssertionResult RegisterIn(REFIID iid, std::vector<DWORD> &cookies) const {
        if (module_ == nullptr)
            return ::testing::AssertionFailure() << "CorvanePS.dll is not beside the test program";
        using GetClassObject = HRESULT(STDAPICALLTYPE *)(REFCLSID, REFIID, void **);
        auto get = reinterpret_cast<GetClassObject>(reinterpret_cast<void *>(GetProcAddress(module_, "DllGetClassObject")));
        IUnknown *factory = nullptr;
        HRESULT hr = get != nullptr ? get(iid, IID_IUnknown, reinterpret_cast<void **>(&factory)) : E_POINTER;
        if (FAILED(hr))
            return ::testing::AssertionFailure() << "DllGetClassObject: 0x" << std::hex << static_cast<unsigned long>(hr);
        DWORD cookie = 0;
        hr = CoRegisterClassObject(iid, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
        factory->Release();
        if (SUCCEEDED(hr)) {
            cookies.push_back(cookie);
            hr = CoRegisterPSClsid(iid, iid);
        }
        if (FAILED(hr))
            return ::testing::AssertionFailure() << "registration: 0x" << std::hex << static_cast<unsigned long>(hr);
        return ::testing::AssertionSuccess();
    }

private:
    HMODULE module_;
};

void Revoke(std::vector<DWORD> &cookies) {
    for (DWORD cookie : cookies)
        CoRevokeClassObject(cookie);
    cookies.clear();
}

// Hosts one fake object in a single-threaded apartment of its own and hands
// the calling (multithreaded) apartment a proxy to it.
class ServedObject {
public:
    ServedObject(const ProxyStubDll &dll, REFIID iid, const FakeVtable &vtable) : object_{vtable.slots.data(), iid, 1} {
        std::promise<HRESULT> marshalled;
        IStream *stream = nullptr;
        server_ = std::thread([&] {
            CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            std::vector<DWORD> cookies;
            ::testing::AssertionResult registered = dll.RegisterIn(iid, cookies);
            HRESULT hr = registered ? S_OK : E_FAIL;
            error_ = registered.message();
            if (SUCCEEDED(hr))
                hr = CoMarshalInterThreadInterfaceInStream(iid, reinterpret_cast<IUnknown *>(&object_), &stream);
            threadId_ = GetCurrentThreadId();
            marshalled.set_value(hr);
            MSG msg;
            while (SUCCEEDED(hr) && GetMessageW(&msg, nullptr, 0, 0) > 0)
                DispatchMessageW(&msg);
            Revoke(cookies);
            CoUninitialize();
        });
        hr_ = marshalled.get_future().get();
        if (SUCCEEDED(hr_)) {
            ::testing::AssertionResult registered = dll.RegisterIn(iid, cookies_);
            error_ = registered.message();
            hr_ = registered ? CoGetInterfaceAndReleaseStream(stream, iid, reinterpret_cast<void **>(&proxy_)) : E_FAIL;
        }
    }
    ~ServedObject() {
        if (proxy_ != nullptr)
            proxy_->Release();
        Revoke(cookies_);
        PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
        server_.join();
    }
    ServedObject(const ServedObject &) = delete;
    ServedObject &operator=(const ServedObject &) = delete;

    HRESULT Status() const { return hr_; }
    const std::string &Error() const { return error_; }
    template <class I> I *As() const { return reinterpret_cast<I *>(proxy_); }

private:
    FakeObject object_;
    std::thread server_;
    DWORD threadId_ = 0;
    std::vector<DWORD> cookies_;
    IUnknown *proxy_ = nullptr;
    HRESULT hr_ = E_FAIL;
    std::string error_;
};

// ---- Service-side helpers: what the service returns is task memory.

wchar_t *Dup(const wchar_t *text) {
    size_t bytes = (wcslen(text) + 1) * sizeof(wchar_t);
    auto *copy = static_cast<wchar_t *>(CoTaskMemAlloc(bytes));
    memcpy(copy, text, bytes);
    return copy;
}
template <class T> T *Alloc(size_t count = 1) {
    auto *block = static_cast<T *>(CoTaskMemAlloc(sizeof(T) * count));
    memset(block, 0, sizeof(T) * count);
    return block;
}

// What the fake saw of the caller's [in] data, read back on the test thread.
std::wstring g_seen;

// Client side: received records are freed as the tool frees them.
struct TaskMem {
    std::vector<void *> blocks;
    ~TaskMem() {
        for (void *block : blocks)
            CoTaskMemFree(block);
    }
    template <class T> T *operator<<(T *block) {
        blocks.push_back(const_cast<void *>(static_cast<const void *>(block)));
        return block;
    }
};

std::wstring Text(const wchar_t *text) {
    return text != nullptr ? text : L"(null)";
}

class ContractMarshalTest : public ::testing::Test {
protected:
    void SetUp() override { g_seen.clear(); }
    ProxyStubDll dll_;
};

#define SERVE(name, Interface, vtable)                                                                                           \
    ServedObject name(dll_, IID_##Interface, vtable);                                                                            \
    ASSERT_EQ(name.Status(), S_OK) << "no proxy for " #Interface ": " << name.Error();                                           \
    Interface *proxy = name.As<Interface>()

// ---- The disk interfaces: lists in caller structs, records the service
// allocates, a caller-provided record, nested string arrays, a narrow string.

HRESULT STDMETHODCALLTYPE EnumerateDisks(FakeObject *, DiskInfoList *list) {
    list->dwCount = 2;
    list->pDisks = Alloc<DiskInfo>(2);
    DiskInfo &disk = list->pDisks[1];
    disk.dwType = 1;
    disk.wszStorageSystem = Dup(L"st1");
    disk.szSerialNumber = static_cast<char *>(CoTaskMemAlloc(5));
    memcpy(disk.szSerialNumber, "SN-1", 5);
    disk.bBackedBySnapshot = 1;
    disk.bySCSIPort = 3;
    disk.byLun = 7;
    disk.llSize = 5368709120LL;
    disk.dwMountPointCount = 2;
    disk.pwszMountPoints = Alloc<LPWSTR>(2);
    disk.pwszMountPoints[0] = Dup(L"E");
    disk.pwszMountPoints[1] = Dup(L"F:\\mnt\\");
    disk.dwCloneSplitPercent = 0xFFFFFFFF;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE GetPortInitiator(FakeObject *, byte port, InitiatorInfo *info) {
    info->dwKind = port;
    info->wszName = Dup(L"iqn.1991-05.com.example:host");
    return S_OK;
}
HRESULT STDMETHODCALLTYPE ExpandDisk(FakeObject *, ExpandRequest *request, DiskInfo **disk) {
    g_seen = Text(request->wszPath) + L"|" + Text(request->wszStorageSystem) + L"|" + std::to_wstring(request->llExpandSize);
    *disk = Alloc<DiskInfo>();
    (*disk)->wszVolumeName = Dup(L"\\\\?\\Volume{1}\\");
    return S_OK;
}
HRESULT STDMETHODCALLTYPE GetExpandLimits(FakeObject *, const wchar_t *, const wchar_t *path, ExpandLimits *limits) {
    g_seen = Text(path);
    limits->llMaxWithoutReserve = 4096;
    limits->bLimitsValid = 1;
    limits->dwPartitionStyle = 1;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE TranslateUncPath(FakeObject *, const wchar_t *, UncPathInfo **info) {
    *info = Alloc<UncPathInfo>();
    (*info)->wszStorageSystemPath = Dup(L"/vol/v/l");
    return S_OK;
}
HRESULT STDMETHODCALLTYPE EnumerateDisksEx(FakeObject *, DiskInfoExList *list) {
    list->dwCount = 1;
    list->pDisks = Alloc<DiskInfoEx>();
    list->pDisks->pDisk = Alloc<DiskInfo>();
    list->pDisks->pDisk->dwDiskId = 4;
    list->pDisks->bHyperVVhdPresent = 1;
    list->pDisks->dwVmCount = 1;
    list->pDisks->pVms = Alloc<VmUsage>();
    list->pDisks->pVms->wszVmName = Dup(L"vm1");
    return S_OK;
}
HRESULT STDMETHODCALLTYPE GetInitiatorCapabilities(FakeObject *, const wchar_t *machine, InitiatorCapabilities **caps) {
    g_seen = Text(machine);
    *caps = Alloc<InitiatorCapabilities>();
    (*caps)->dwMultipleSessions = 1;
    return S_OK;
}

TEST_F(ContractMarshalTest, DiskRecordsCrossTheInterfaceWhole) {
    FakeVtable vtable;
    vtable.slots[11] = AsSlot(&ExpandDisk);
    vtable.slots[12] = AsSlot(&EnumerateDisks);
    vtable.slots[21] = AsSlot(&GetPortInitiator);
    vtable.slots[41] = AsSlot(&GetExpandLimits);
    vtable.slots[43] = AsSlot(&TranslateUncPath);
    vtable.slots[44] = AsSlot(&EnumerateDisksEx);
    SERVE(served, IVirtualDisk2, vtable);
    TaskMem mem;

    DiskInfoList disks{};
    ASSERT_EQ(proxy->EnumerateDisks(&disks), S_OK);
    ASSERT_EQ(disks.dwCount, 2u);
    const DiskInfo &disk = (mem << disks.pDisks)[1];
    EXPECT_EQ(disks.pDisks[0].wszStorageSystem, nullptr);
    EXPECT_STREQ(mem << disk.wszStorageSystem, L"st1");
    EXPECT_STREQ(mem << disk.szSerialNumber, "SN-1");
    EXPECT_EQ(disk.bBackedBySnapshot, 1);
    EXPECT_EQ(disk.bySCSIPort, 3);
    EXPECT_EQ(disk.byLun, 7);
    EXPECT_EQ(disk.llSize, 5368709120LL);
    EXPECT_EQ(disk.dwCloneSplitPercent, 0xFFFFFFFFu);
    ASSERT_EQ(disk.dwMountPointCount, 2u);
    EXPECT_STREQ(mem << (mem << disk.pwszMountPoints)[0], L"E");
    EXPECT_STREQ(mem << disk.pwszMountPoints[1], L"F:\\mnt\\");

    InitiatorInfo initiator{};
    ASSERT_EQ(proxy->GetPortInitiator(1, &initiator), S_OK);
    EXPECT_EQ(initiator.dwKind, 1u);
    EXPECT_STREQ(mem << initiator.wszName, L"iqn.1991-05.com.example:host");

    ExpandRequest request{nullptr, const_cast<wchar_t *>(L"st1"), const_cast<wchar_t *>(L"/vol/v/l"), 2048};
    DiskInfo *expanded = nullptr;
    ASSERT_EQ(proxy->ExpandDisk(&request, &expanded), S_OK);
    EXPECT_EQ(g_seen, L"(null)|st1|2048");
    ASSERT_NE(mem << expanded, nullptr);
    EXPECT_STREQ(mem << expanded->wszVolumeName, L"\\\\?\\Volume{1}\\");

    ExpandLimits limits{};
    ASSERT_EQ(proxy->GetExpandLimits(L"st1", L"/vol/v/l", &limits), S_OK);
    EXPECT_EQ(g_seen, L"/vol/v/l");
    EXPECT_EQ(limits.llMaxWithoutReserve, 4096u);
    EXPECT_EQ(limits.bLimitsValid, 1);
    EXPECT_EQ(limits.dwPartitionStyle, 1u);

    UncPathInfo *unc = nullptr;
    ASSERT_EQ(proxy->TranslateUncPath(L"\\\\st1\\share\\lun", &unc), S_OK);
    ASSERT_NE(mem << unc, nullptr);
    EXPECT_EQ(unc->wszStorageSystem, nullptr);
    EXPECT_STREQ(mem << unc->wszStorageSystemPath, L"/vol/v/l");

    DiskInfoExList ex{};
    ASSERT_EQ(proxy->EnumerateDisksEx(&ex), S_OK);
    ASSERT_EQ(ex.dwCount, 1u);
    ASSERT_NE(mem << (mem << ex.pDisks)->pDisk, nullptr);
    EXPECT_EQ(ex.pDisks->pDisk->dwDiskId, 4u);
    EXPECT_EQ(ex.pDisks->bHyperVVhdPresent, 1);
    ASSERT_EQ(ex.pDisks->dwVmCount, 1u);
    EXPECT_STREQ(mem << (mem << ex.pDisks->pVms)->wszVmName, L"vm1");
}

TEST_F(ContractMarshalTest, AServiceAllocatedRecordComesBackForANullName) {
    FakeVtable vtable;
    vtable.slots[3] = AsSlot(&GetInitiatorCapabilities);
    SERVE(served, IInitiator, vtable);
    InitiatorCapabilities *caps = nullptr;
    ASSERT_EQ(proxy->GetInitiatorCapabilities(nullptr, &caps), S_OK);
    EXPECT_EQ(g_seen, L"(null)");
    ASSERT_NE(caps, nullptr);
    EXPECT_EQ(caps->dwMultipleSessions, 1u);
    CoTaskMemFree(caps);
}

// ---- Connectivity: records embedded in records, arrays inside arrays, fixed
// UTF-16 fields and a block of them.

HRESULT STDMETHODCALLTYPE ListSessions(FakeObject *, const wchar_t *, IscsiConnectedTargetList *list) {
    list->dwCount = 1;
    list->pTargets = Alloc<IscsiConnectedTarget>();
    list->pTargets->wszTargetName = Dup(L"iqn.target");
    list->pTargets->dwSessionCount = 1;
    IscsiSession *session = list->pTargets->pSessions = Alloc<IscsiSession>();
    session->ullSessionId2 = 0xfeedULL;
    session->hba.dwHbaId = 9;
    session->hba.dwPortalCount = 1;
    session->hba.pPortals = Alloc<IscsiPortal>();
    session->hba.pPortals->dwPort = 3260;
    session->dwConnectionCount = 1;
    session->pConnections = Alloc<IscsiConnection>();
    session->pConnections->byCid[1] = 0x12;
    session->pConnections->targetPortal.dwIpAddress = 0x0100007f;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE CreateIGroup(FakeObject *, const wchar_t *, IGroupInfo *group, const wchar_t *computer) {
    g_seen =
        std::wstring(group->wszNodeName) + L"|" + group->wszGroupName + L"|" + group->pInitiators[1].wszName + L"|" + computer;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE ListIGroups(FakeObject *, const wchar_t *, IGroupList *list) {
    list->dwCount = 1;
    list->pGroups = Alloc<IGroupInfo>();
    wcscpy(list->pGroups->wszGroupName, L"ig1");
    list->pGroups->dwOsType = 4;
    list->pGroups->dwInitiatorCount = 1;
    list->pGroups->pInitiators = Alloc<InitiatorNameField>();
    wcscpy(list->pGroups->pInitiators->wszName, L"iqn.host");
    return S_OK;
}

TEST_F(ContractMarshalTest, NestedConnectivityRecordsKeepEveryLevel) {
    FakeVtable iscsiSlots;
    iscsiSlots.slots[5] = AsSlot(&ListSessions);
    SERVE(iscsi, IIscsi, iscsiSlots);
    TaskMem mem;
    IscsiConnectedTargetList targets{};
    ASSERT_EQ(proxy->ListSessions(L"host", &targets), S_OK);
    ASSERT_EQ(targets.dwCount, 1u);
    EXPECT_STREQ(mem << (mem << targets.pTargets)->wszTargetName, L"iqn.target");
    ASSERT_EQ(targets.pTargets->dwSessionCount, 1u);
    const IscsiSession &session = *(mem << targets.pTargets->pSessions);
    EXPECT_EQ(session.ullSessionId2, 0xfeedULL);
    EXPECT_EQ(session.hba.dwHbaId, 9u);
    ASSERT_EQ(session.hba.dwPortalCount, 1u);
    EXPECT_EQ((mem << session.hba.pPortals)->dwPort, 3260u);
    ASSERT_EQ(session.dwConnectionCount, 1u);
    EXPECT_EQ((mem << session.pConnections)->byCid[1], 0x12);
    EXPECT_EQ(session.pConnections->targetPortal.dwIpAddress, 0x0100007fu);

    FakeVtable groupSlots;
    groupSlots.slots[4] = AsSlot(&ListIGroups);
    groupSlots.slots[5] = AsSlot(&CreateIGroup);
    ServedObject groups(dll_, IID_IIGroup, groupSlots);
    ASSERT_EQ(groups.Status(), S_OK) << groups.Error();
    IGroupInfo group{};
    wcscpy(group.wszNodeName, L"node");
    wcscpy(group.wszGroupName, L"ig1");
    InitiatorNameField names[2] = {{L"iqn.a"}, {L"iqn.b"}};
    group.dwInitiatorCount = 2;
    group.pInitiators = names;
    ASSERT_EQ(groups.As<IIGroup>()->CreateIGroup(L"st1", &group, L"HOST"), S_OK);
    EXPECT_EQ(g_seen, L"node|ig1|iqn.b|HOST");
    IGroupList list{};
    ASSERT_EQ(groups.As<IIGroup>()->ListIGroups(L"st1", &list), S_OK);
    ASSERT_EQ(list.dwCount, 1u);
    EXPECT_STREQ((mem << list.pGroups)->wszGroupName, L"ig1");
    EXPECT_EQ(list.pGroups->dwOsType, 4u);
    ASSERT_EQ(list.pGroups->dwInitiatorCount, 1u);
    EXPECT_STREQ((mem << list.pGroups->pInitiators)->wszName, L"iqn.host");
}

// ---- Snapshots: out lists that come back with a failing result, small [out]
// values, an [in] array of strings.

constexpr HRESULT kBothReasons = static_cast<HRESULT>(0xC00403F8);
constexpr HRESULT kPartialFailure = static_cast<HRESULT>(0xC004038B);

HRESULT STDMETHODCALLTYPE CheckVolumeRestore(FakeObject *, const wchar_t *, const wchar_t *, const wchar_t *,
                                             NewerSnapshotList *newer, NonLunFileList *files, MirrorDestinationState *mirror) {
    newer->dwCount = 1;
    newer->pSnapshots = Alloc<NewerSnapshot>();
    newer->pSnapshots->wszName = Dup(L"snap2");
    newer->pSnapshots->bConsistent = 1;
    files->dwCount = 1;
    files->pFiles = Alloc<NonLunFile>();
    files->pFiles->wszFilePath = Dup(L"/vol/v/f");
    mirror->bIsUnbrokenDestination = 1;
    mirror->dwMirrorState = 10;
    return kBothReasons;
}
HRESULT STDMETHODCALLTYPE DeleteSnapshot(FakeObject *, const wchar_t *, const wchar_t *, boolean *queued) {
    *queued = 1;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE ListSnapshots(FakeObject *, const wchar_t *, SnapshotArray *array, ULONGLONG *a, ULONGLONG *b,
                                        ULONGLONG *c) {
    array->dwCount = 1;
    array->pSnapshots = Alloc<SnapshotInfo>();
    array->pSnapshots->ftCreated = {0x89abcdefu, 0x01d00000u};
    array->pSnapshots->nUsedPercent = -5;
    array->pSnapshots->dwConsistency = 3;
    *a = 1, *b = 2, *c = 3;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE ListDriveSnapshots(FakeObject *, DriveNameArray *drives, DriveSnapshotsArray *out, BOOL flag) {
    g_seen = std::wstring(drives->pwszDrives[0]) + L"|" + drives->pwszDrives[1] + L"|" + std::to_wstring(flag);
    out->dwCount = 1;
    out->pDrives = Alloc<DriveSnapshots>();
    out->pDrives->hrStatus = E_ACCESSDENIED;
    out->pDrives->wszError = Dup(L"denied");
    return kPartialFailure;
}

TEST_F(ContractMarshalTest, SnapshotOutputsArriveEvenWithAFailingResult) {
    FakeVtable restoreSlots;
    restoreSlots.slots[3] = AsSlot(&CheckVolumeRestore);
    SERVE(restore, ISnapShotVolumeRestore, restoreSlots);
    TaskMem mem;
    NewerSnapshotList newer{};
    NonLunFileList files{};
    MirrorDestinationState mirror{};
    ASSERT_EQ(proxy->CheckVolumeRestore(L"st1", L"v", L"snap1", &newer, &files, &mirror), kBothReasons);
    ASSERT_EQ(newer.dwCount, 1u);
    EXPECT_STREQ(mem << (mem << newer.pSnapshots)->wszName, L"snap2");
    EXPECT_EQ(newer.pSnapshots->bConsistent, 1);
    ASSERT_EQ(files.dwCount, 1u);
    EXPECT_STREQ(mem << (mem << files.pFiles)->wszFilePath, L"/vol/v/f");
    EXPECT_EQ(mirror.bIsUnbrokenDestination, 1);
    EXPECT_EQ(mirror.dwMirrorState, 10u);

    FakeVtable manageSlots;
    manageSlots.slots[5] = AsSlot(&DeleteSnapshot);
    ServedObject manage(dll_, IID_ISnapShotManage, manageSlots);
    ASSERT_EQ(manage.Status(), S_OK) << manage.Error();
    boolean queued = 0;
    ASSERT_EQ(manage.As<ISnapShotManage>()->DeleteSnapshot(L"E:\\", L"snap1", &queued), S_OK);
    EXPECT_EQ(queued, 1);

    FakeVtable listSlots;
    listSlots.slots[3] = AsSlot(&ListSnapshots);
    ServedObject list(dll_, IID_ISnapShotList, listSlots);
    ASSERT_EQ(list.Status(), S_OK) << list.Error();
    SnapshotArray snapshots{};
    ULONGLONG a = 0, b = 0, c = 0;
    ASSERT_EQ(list.As<ISnapShotList>()->ListSnapshots(nullptr, &snapshots, &a, &b, &c), S_OK);
    EXPECT_EQ(a + b * 10 + c * 100, 321u);
    ASSERT_EQ(snapshots.dwCount, 1u);
    EXPECT_EQ((mem << snapshots.pSnapshots)->ftCreated.dwHighDateTime, 0x01d00000u);
    EXPECT_EQ(snapshots.pSnapshots->nUsedPercent, -5);
    EXPECT_EQ(snapshots.pSnapshots->dwConsistency, 3u);

    FakeVtable spaceSlots;
    spaceSlots.slots[3] = AsSlot(&ListDriveSnapshots);
    ServedObject space(dll_, IID_ISnapShotSpace, spaceSlots);
    ASSERT_EQ(space.Status(), S_OK) << space.Error();
    LPWSTR names[2] = {const_cast<wchar_t *>(L"E"), const_cast<wchar_t *>(L"F:\\mnt\\")};
    DriveNameArray drives{2, names};
    DriveSnapshotsArray perDrive{};
    ASSERT_EQ(space.As<ISnapShotSpace>()->ListDriveSnapshots(&drives, &perDrive, TRUE), kPartialFailure);
    EXPECT_EQ(g_seen, L"E|F:\\mnt\\|1");
    ASSERT_EQ(perDrive.dwCount, 1u);
    EXPECT_EQ((mem << perDrive.pDrives)->hrStatus, E_ACCESSDENIED);
    EXPECT_STREQ(mem << perDrive.pDrives->wszError, L"denied");
}

// ---- Events travel the other way: the service calls the tool's sink.

HRESULT STDMETHODCALLTYPE MirrorProgressEvent(FakeObject *, const wchar_t *name, const wchar_t *drive, const wchar_t *text,
                                              MirrorProgress *progress) {
    g_seen = Text(name) + L"|" + Text(drive) + L"|" + Text(text) + L"|" + std::to_wstring(progress->transferred) + L"|" +
             std::to_wstring(progress->countValid) + L"|" + std::to_wstring(progress->mirrorState);
    return S_OK;
}

TEST_F(ContractMarshalTest, MirrorProgressEventCarriesItsRecord) {
    FakeVtable vtable;
    vtable.slots[3] = AsSlot(&MirrorProgressEvent);
    SERVE(sink, _ISnapShotEvents2, vtable);
    MirrorProgress progress{5000000000ULL, 0, 1, 35};
    ASSERT_EQ(proxy->MirrorProgress(L"snap1", L"E", nullptr, &progress), S_OK);
    EXPECT_EQ(g_seen, L"snap1|E|(null)|5000000000|1|35");
}

} // namespace
