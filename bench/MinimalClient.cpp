// The least a client must do to produce what cvcli produces, as a yardstick
// for cvcli's own cost: the same COM start, the same service calls, the same
// bytes, gathered in memory and written with one call.
//
//   minimal_client.exe disk-list   creation, sink, EnumerateDisksEx, one initiator query per LUN
//   minimal_client.exe snap-list   creation, sink, ListSnapshots of drive E, the snapshot table
//   minimal_client.exe help-snap   message library, COM and COM security, the snap help text
//   minimal_client.exe empty       nothing at all
#include "app/Operations.h"
#include "app/Startup.h"
#include "commands/common/DiskPrinters.h"
#include "commands/common/DiskRecords.h"
#include "commands/snap/SnapListPrinters.h"
#include "commands/snap/SnapListRecords.h"
#include "front_end/Console.h"
#include "front_end/Help.h"
#include "front_end/Messages.h"
#include "front_end/Process.h"
#include "front_end/Words.h"
#include "service/EventSinks.h"

#include <objbase.h>
#include <windows.h>

#include <cwchar>
#include <string>

namespace {

void WriteOnce(const std::wstring &text) {
    std::string bytes;
    unsigned heldCrs = 0;
    AppendUtf8WithCrLf(text.data(), text.size(), bytes, heldCrs);
    AppendHeldCrs(bytes, heldCrs);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

int DiskList() {
    ComPtr<IVirtualDisk2> disk;
    HRESULT hr = CoCreateInstance(CLSID_VirtualDiskService, nullptr, CLSCTX_LOCAL_SERVER, IID_IVirtualDisk2,
                                  reinterpret_cast<void **>(disk.GetAddressOf()));
    if (hr != S_OK)
        return 1;
    EventConnection events = ConnectSink<CVirtualDiskEvents>(disk.Get());
    OwnedDiskInfoExList disks;
    if (disk->EnumerateDisksEx(disks.Out()) != S_OK)
        return 1;
    for (DWORD i = 0; i < disks->dwCount; ++i) {
        const DiskInfoEx &entry = disks->pDisks[i];
        PrintDiskInfoEx(entry);
        if (entry.pDisk != nullptr && entry.pDisk->dwType == 1) {
            OwnedInitiatorInfo initiator;
            if (disk->GetPortInitiator(entry.pDisk->bySCSIPort, initiator.Out()) != S_OK)
                return 1;
            PrintInitiatorInfo(L"", initiator.Get());
        }
    }
    return 0;
}

int SnapList() {
    ComPtr<ISnapShotList> service;
    HRESULT hr = CoCreateInstance(CLSID_SnapShotService, nullptr, CLSCTX_LOCAL_SERVER, IID_ISnapShotList,
                                  reinterpret_cast<void **>(service.GetAddressOf()));
    if (hr != S_OK)
        return 1;
    EventConnection events = ConnectSink<CSnapShotEvents>(service.Get());
    OwnedSnapshotArray snapshots;
    ULONGLONG unused1 = 0, unused2 = 0, unused3 = 0;
    if (service->ListSnapshots(L"E", snapshots.Out(), &unused1, &unused2, &unused3) != S_OK)
        return 1;
    PrintSnapshotTable(snapshots.Get());
    return 0;
}

} // namespace

int wmain(int argc, wchar_t **argv) {
    const wchar_t *mode = argc > 1 ? argv[1] : L"empty";
    if (wcscmp(mode, L"empty") == 0)
        return 0;
    SetProgramName(L"cvcli");
    HMODULE resources = LoadLibraryW(kResourceLibraryName);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE,
                         nullptr);
    std::wstring text;
    CaptureOutput(&text);
    int status = 0;
    if (wcscmp(mode, L"help-snap") == 0) {
        PrintCommandUsage(Operations(), cmd::Snap);
    } else if (wcscmp(mode, L"disk-list") == 0) {
        status = DiskList();
        PrintCompletionLine();
    } else if (wcscmp(mode, L"snap-list") == 0) {
        status = SnapList();
        PrintCompletionLine();
    }
    CaptureOutput(nullptr);
    WriteOnce(text);
    CoUninitialize();
    FreeLibrary(resources);
    return status;
}
