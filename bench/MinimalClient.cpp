// The yardstick of bench/list_bench.py: a client that makes the calls cvcli
// makes and writes the bytes cvcli writes, with nothing of cvcli's own code.
// It shares only the generated contract headers; its formatting, its one
// UTF-8 conversion per block and its writes are its own, as plain as a
// careful hand-written client would have them.
//
//   minimal_client.exe disk-list   creation, sink, EnumerateDisksEx, one initiator query per LUN
//   minimal_client.exe snap-list   creation, sink, ListSnapshots of drive E, the snapshot table
//   minimal_client.exe help-snap   message library, COM and COM security, the snap help text
//   minimal_client.exe empty       nothing at all
#include "Corvane.h"

#include <objbase.h>
#include <ocidl.h>
#include <windows.h>

#include <cstdarg>
#include <cstdint>
#include <cwchar>
#include <vector>

namespace {

constexpr UINT kCompletionMessage = 5375; // the completion line of the message library

// Wide text gathered in one buffer and written as UTF-8 in blocks of about
// 64 KiB: one conversion and one write per block.
class Out {
public:
    Out() { m_wide.reserve(kBlock + 4096); }
    ~Out() { Flush(); }

    void Add(const wchar_t *format, ...) {
        va_list args;
        va_start(args, format);
        for (;;) {
            const size_t at = m_wide.size();
            const size_t room = m_wide.capacity() - at;
            m_wide.resize(m_wide.capacity());
            va_list copy;
            va_copy(copy, args);
            const int n = _vsnwprintf(m_wide.data() + at, room, format, copy);
            va_end(copy);
            if (n >= 0 && static_cast<size_t>(n) < room) {
                m_wide.resize(at + static_cast<size_t>(n));
                break;
            }
            m_wide.resize(at);
            m_wide.reserve(m_wide.capacity() * 2);
        }
        va_end(args);
        if (m_wide.size() >= kBlock)
            Flush();
    }

    void Flush() {
        if (m_wide.empty())
            return;
        const int chars = static_cast<int>(m_wide.size());
        m_bytes.resize(m_wide.size() * 3);
        const int bytes = WideCharToMultiByte(CP_UTF8, 0, m_wide.data(), chars, m_bytes.data(), static_cast<int>(m_bytes.size()),
                                              nullptr, nullptr);
        DWORD written = 0;
        if (bytes > 0)
            WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), m_bytes.data(), static_cast<DWORD>(bytes), &written, nullptr);
        m_wide.clear();
    }

private:
    static constexpr size_t kBlock = 32 * 1024;
    std::vector<wchar_t> m_wide;
    std::vector<char> m_bytes;
};

const wchar_t *Text(const wchar_t *text) {
    return text ? text : L"(null)";
}

const wchar_t *YesNo(BOOL value) {
    return value ? L"Yes" : L"No";
}

template <typename T> struct Held {
    T *p = nullptr;
    ~Held() {
        if (p)
            p->Release();
    }
};

// The sink that the listing connects: it only has to exist.
class Sink : public _IVirtualDiskEvents, public _ISnapShotEvents {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **out) override {
        if (iid == IID_IUnknown || iid == IID__IVirtualDiskEvents)
            *out = static_cast<_IVirtualDiskEvents *>(this);
        else if (iid == IID__ISnapShotEvents)
            *out = static_cast<_ISnapShotEvents *>(this);
        else
            return *out = nullptr, E_NOINTERFACE;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE ProgressMessage(DWORD, const wchar_t *, DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Reserved4(DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ReadyToCreate(DWORD, DWORD, const wchar_t *) override { return S_OK; }
} g_sink;

struct Advise {
    IConnectionPoint *point = nullptr;
    DWORD cookie = 0;
    Advise(IUnknown *source, REFIID events) {
        IConnectionPointContainer *container = nullptr;
        if (source->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void **>(&container)) != S_OK)
            return;
        if (container->FindConnectionPoint(events, &point) == S_OK &&
            point->Advise(static_cast<_IVirtualDiskEvents *>(&g_sink), &cookie) != S_OK)
            cookie = 0;
        container->Release();
    }
    ~Advise() {
        if (point) {
            if (cookie)
                point->Unadvise(cookie);
            point->Release();
        }
    }
};

void AddList(Out &out, const wchar_t *label, wchar_t **items, DWORD count, bool driveRoots) {
    out.Add(L"%ls", label);
    for (DWORD i = 0; items && i < count; ++i) {
        const wchar_t *item = Text(items[i]);
        out.Add(L"%ls%ls%ls", i ? L", " : L"", item, driveRoots && item[0] && !item[1] ? L":\\" : L"");
    }
    out.Add(L"\r\n");
}

void AddDisk(Out &out, const DiskInfoEx &entry) {
    static const DiskInfo none = {};
    const DiskInfo &d = entry.pDisk ? *entry.pDisk : none;
    const wchar_t *unc = d.wszUncPath;
    out.Add(L"UNC Path: %ls\r\nLUN Path: %ls:%ls\r\n\tStorage System:\t\t%ls\r\n\tStorage System Path:\t%ls\r\n",
            unc && unc[0] && unc[1] ? unc : L"None", Text(d.wszStorageSystem), Text(d.wszStorageSystemPath),
            Text(d.wszStorageSystem), Text(d.wszStorageSystemPath));
    out.Add(L"\tHyper-V VHD Present:\t%ls\r\n", YesNo(entry.bHyperVVhdPresent));
    if (entry.bHyperVVhdPresent && entry.dwVmCount && entry.pVms) {
        out.Add(entry.dwVmCount == 1 ? L"\tHyper-V VM Name:\t" : L"\tHyper-V VMs Name:\t");
        for (DWORD i = 0; i < entry.dwVmCount; ++i)
            out.Add(L"%ls%ls", i ? L", " : L"", Text(entry.pVms[i].wszVmName));
        out.Add(L"\r\n");
    }
    static const wchar_t *const styles[] = {L"Unknown", L"Master Boot Record (MBR)", L"GUID Partition Table (GPT)", L"Raw"};
    out.Add(L"\tType:\t\t\t%ls\r\n\tDisk serial number:\t%hs\r\n\tBacked by Snapshot Copy:\t%ls\r\n\tShared:\t\t\t%ls\r\n"
            L"\tBootOrSystem Disk:\t%ls\r\n\tSCSI port:\t\t%d\r\n\tBus:\t\t\t%d\r\n\tTarget:\t\t\t%d\r\n\tLUN:\t\t\t%d\r\n"
            L"\tReadonly:\t\t%ls\r\n\tSize:\t\t\t%d\r\n\tReflexa Source:\t%ls\r\n\tArkhold Primary:\t%ls\r\n"
            L"\tDisk Partition Style:\t%ls\r\n",
            d.dwType == 1 ? L"lun" : L"(null)", d.szSerialNumber ? d.szSerialNumber : "(null)",
            d.bBackedBySnapshot ? Text(d.wszSnapshotName) : L"", YesNo(d.bShared), YesNo(d.bBootOrSystemDisk), d.bySCSIPort,
            d.byBus, d.byTarget, d.byLun, YesNo(d.bReadOnly), static_cast<int>(static_cast<uint32_t>(d.llSize)),
            YesNo(d.bReflexaSource), YesNo(d.bArkholdPrimary), styles[d.dwPartitionStyle <= 3 ? d.dwPartitionStyle : 0]);
    if (d.dwCloneSplitPercent == 0xFFFFFFFFu)
        out.Add(L"\tClone Split Restore status: Normal\r\n");
    else if (static_cast<int>(d.dwCloneSplitPercent) > 0)
        out.Add(L"\tClone Split Restore progress percentage:%d \r\n", static_cast<int>(d.dwCloneSplitPercent));
    out.Add(L"\tDiskID:\t\t\t%d\r\n\tVolume Name:\t\t%ls\r\n", static_cast<int>(d.dwDiskId), Text(d.wszVolumeName));
    AddList(out, L"\tMount points:\t\t", d.pwszMountPoints, d.dwMountPointCount, true);
    AddList(out, L"\tIP Addresses:\t\t", d.pwszIpAddresses, d.dwIpAddressCount, false);
}

void FreeStrings(wchar_t **items, DWORD count) {
    for (DWORD i = 0; items && i < count; ++i)
        CoTaskMemFree(items[i]);
    CoTaskMemFree(items);
}

void FreeDisk(DiskInfo *d) {
    if (!d)
        return;
    for (wchar_t *text :
         {d->wszUncPath, d->wszStorageSystem, d->wszStorageSystemPath, d->wszSnapshotName, d->wszVolumeName, d->wszExtra})
        CoTaskMemFree(text);
    CoTaskMemFree(d->szSerialNumber);
    FreeStrings(d->pwszMountPoints, d->dwMountPointCount);
    FreeStrings(d->pwszIpAddresses, d->dwIpAddressCount);
    CoTaskMemFree(d);
}

int DiskList(Out &out) {
    Held<IVirtualDisk> disk;
    if (CoCreateInstance(CLSID_VirtualDiskService, nullptr, CLSCTX_LOCAL_SERVER, IID_IVirtualDisk,
                         reinterpret_cast<void **>(&disk.p)) != S_OK)
        return 1;
    Held<IVirtualDisk2> disk2;
    if (disk.p->QueryInterface(IID_IVirtualDisk2, reinterpret_cast<void **>(&disk2.p)) != S_OK)
        return 1;
    Advise advise(disk.p, IID__IVirtualDiskEvents);
    DiskInfoExList list = {};
    if (disk2.p->EnumerateDisksEx(&list) != S_OK)
        return 1;
    int status = 0;
    for (DWORD i = 0; i < list.dwCount && status == 0; ++i) {
        const DiskInfoEx &entry = list.pDisks[i];
        AddDisk(out, entry);
        if (entry.pDisk && entry.pDisk->dwType == 1) {
            InitiatorInfo initiator = {};
            if (disk2.p->GetPortInitiator(entry.pDisk->bySCSIPort, &initiator) != S_OK)
                status = 1;
            else if (initiator.dwKind == 0)
                out.Add(L"FCP initiator WWPN:\t%ls\r\n", Text(initiator.wszName));
            else if (initiator.dwKind == 1)
                out.Add(L"iSCSI initiator:\t%ls\r\n", Text(initiator.wszName));
            CoTaskMemFree(initiator.wszName);
        }
    }
    for (DWORD i = 0; i < list.dwCount; ++i) {
        FreeDisk(list.pDisks[i].pDisk);
        for (DWORD v = 0; list.pDisks[i].pVms && v < list.pDisks[i].dwVmCount; ++v)
            CoTaskMemFree(list.pDisks[i].pVms[v].wszVmName);
        CoTaskMemFree(list.pDisks[i].pVms);
    }
    CoTaskMemFree(list.pDisks);
    return status;
}

const wchar_t *Consistency(DWORD value) {
    static const wchar_t *const words[] = {L"Inconsistent snapshot copy",
                                           L"Consistent snapshot copy",
                                           L"CVD-type converted inconsistent snapshot copy",
                                           L"CVD-type converted consistent snapshot copy",
                                           L"LUN does not exist in snapshot copy",
                                           L"Inappropriate disk in snapshot copy"};
    return words[value < 5 ? value : 5];
}

int SnapList(Out &out) {
    Held<ISnapShotList> service;
    if (CoCreateInstance(CLSID_SnapShotService, nullptr, CLSCTX_LOCAL_SERVER, IID_ISnapShotList,
                         reinterpret_cast<void **>(&service.p)) != S_OK)
        return 1;
    Advise advise(service.p, IID__ISnapShotEvents);
    SnapshotArray snapshots = {};
    ULONGLONG unused1 = 0, unused2 = 0, unused3 = 0;
    if (service.p->ListSnapshots(L"E", &snapshots, &unused1, &unused2, &unused3) != S_OK)
        return 1;
    if (snapshots.dwCount == 0 || !snapshots.pSnapshots) {
        out.Add(L"No Disk Snapshot Copies exist \r\n");
    } else {
        out.Add(L"Disk Snapshot Copy Name\t\t%%Used\t\t%%Total\t\tCreated\t\t\tSnapshot Copy Status \r\n"
                L"-----------------------\t\t----- \t\t-----\t\t----------\t\t--------------------- \r\n");
    }
    for (DWORD i = 0; snapshots.pSnapshots && i < snapshots.dwCount; ++i) {
        const SnapshotInfo &s = snapshots.pSnapshots[i];
        wchar_t used[32] = L"--", total[32] = L"--", date[80] = L"", time[80] = L"";
        auto small = [](LONG v) { return v >= -100 && v <= 100; };
        if (small(s.nUsedPercent) && small(s.nUsedInnerPercent) && small(s.nTotalPercent) && small(s.nTotalInnerPercent)) {
            _snwprintf(used, 32, L"%3d%% (%2d%%)", static_cast<int>(s.nUsedPercent), static_cast<int>(s.nUsedInnerPercent));
            _snwprintf(total, 32, L"%3d%% (%2d%%)", static_cast<int>(s.nTotalPercent), static_cast<int>(s.nTotalInnerPercent));
        }
        SYSTEMTIME utc, local;
        if (FileTimeToSystemTime(&s.ftCreated, &utc) && SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) {
            if (!GetDateFormatW(LOCALE_USER_DEFAULT, 0, &local, L"MMM d", date, 80))
                date[0] = 0;
            if (!GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS | TIME_FORCE24HOURFORMAT, &local, L"HH:mm", time, 80))
                time[0] = 0;
        }
        out.Add(L"%ls\t\t%ls\t\t%ls\t\t%ls %ls\t\t%ls \r\n", s.wszName ? s.wszName : L"", used, total, date, time,
                Consistency(s.dwConsistency));
        CoTaskMemFree(s.wszName);
    }
    CoTaskMemFree(snapshots.pSnapshots);
    return 0;
}

// The snap command's help as cvcli prints it: the text is all a client must write.
const wchar_t kSnapHelp[] =
#include "MinimalClientSnapHelp.inc"
    ;

} // namespace

int wmain(int argc, wchar_t **argv) {
    const wchar_t *mode = argc > 1 ? argv[1] : L"empty";
    if (wcscmp(mode, L"empty") == 0)
        return 0;
    HMODULE resources =
        LoadLibraryExW(L"CorvaneRes.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_SEARCH_APPLICATION_DIR);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE,
                         nullptr);
    int status = 0;
    {
        Out out;
        if (wcscmp(mode, L"help-snap") == 0) {
            out.Add(L"%ls", kSnapHelp);
        } else {
            status = wcscmp(mode, L"disk-list") == 0 ? DiskList(out) : SnapList(out);
            wchar_t completion[256] = L"";
            LoadStringW(resources, kCompletionMessage, completion, 256);
            for (const wchar_t *c = completion; *c; ++c) // the library's texts end lines with LF alone
                out.Add(*c == L'\n' ? L"\r\n" : L"%lc", *c);
        }
    }
    CoUninitialize();
    FreeLibrary(resources);
    return status;
}
