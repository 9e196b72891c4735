// Every scripted method of the contract, called once through the real
// proxy/stub DLL: what comes back must be what the scenario wrote, down to the
// nested strings and arrays, and the call log must hold what the client sent.
// Records are left to the end of the process: these are one-shot calls.
#include "simulator/tests/contract/Client.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <functional>

using Microsoft::WRL::ComPtr;

namespace contract {
namespace {

template <typename I> I *As(IUnknown *unknown) {
    return static_cast<I *>(unknown);
}

std::wstring N(unsigned long long value) {
    return std::to_wstring(value);
}

struct Case {
    const char *method;
    const CLSID *clsid;
    const IID *iid;
    std::function<std::wstring(IUnknown *)> call; // what came back, as text
    std::wstring expected;
    const char *request; // what the log must show the client sent; null: not checked
};

wchar_t kDrivesE[] = L"E:\\";
wchar_t kDrivesF[] = L"F:\\";
wchar_t *kDrives[] = {kDrivesE, kDrivesF};

const Case kCases[] = {
    {"IVirtualDisk.EnumerateDisks", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         DiskInfoList list{};
         HRESULT hr = As<IVirtualDisk>(u)->EnumerateDisks(&list);
         if (hr != S_OK || list.dwCount != 2)
             return Hr(hr);
         const DiskInfo &d = list.pDisks[1];
         return Ansi(d.szSerialNumber) + L" " + N(d.bySCSIPort) + L" " + N(d.llSize) + L" " + Text(d.pwszMountPoints[1]) + L" " +
                N(d.dwCloneSplitPercent);
     },
     L"SER-1 7 5368709120 C:\\mnt\\logs 4294967295", "{}"},
    {"IVirtualDisk2.EnumerateDisksEx", &CLSID_VirtualDiskService, &IID_IVirtualDisk2,
     [](IUnknown *u) {
         DiskInfoExList list{};
         HRESULT hr = As<IVirtualDisk2>(u)->EnumerateDisksEx(&list);
         if (hr != S_OK || list.dwCount != 1 || list.pDisks[0].pDisk == nullptr || list.pDisks[0].dwVmCount != 2)
             return Hr(hr);
         return Text(list.pDisks[0].pDisk->wszStorageSystemPath) + L" " + Text(list.pDisks[0].pVms[1].wszVmName);
     },
     L"/vol/vms/lun build-agent", nullptr},
    {"IVirtualDisk.GetPortInitiator", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         InitiatorInfo initiator{};
         HRESULT hr = As<IVirtualDisk>(u)->GetPortInitiator(3, &initiator);
         return hr != S_OK ? Hr(hr) : N(initiator.dwKind) + L" " + Text(initiator.wszName);
     },
     L"1 iqn.1991-05.com.microsoft:host1", R"({"scsiPort": 3})"},
    {"IVirtualDisk.ExpandDisk", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         ExpandRequest request = {nullptr, const_cast<wchar_t *>(L"east"), const_cast<wchar_t *>(L"/vol/a/l1"), 1024};
         DiskInfo *disk = nullptr;
         HRESULT hr = As<IVirtualDisk>(u)->ExpandDisk(&request, &disk);
         if (hr != S_OK || disk == nullptr || disk->dwIpAddressCount != 2)
             return Hr(hr);
         return N(disk->llSize) + L" " + Text(disk->pwszIpAddresses[1]);
     },
     L"118123134976 10.0.0.2",
     R"({"request": {"wszPath": null, "wszStorageSystem": "east", "wszStorageSystemPath": "/vol/a/l1", "llExpandSize": 1024}})"},
    {"IVirtualDisk.GetExpandLimits", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         ExpandLimits limits{};
         HRESULT hr = As<IVirtualDisk>(u)->GetExpandLimits(L"east", L"/vol/a/l1", &limits);
         return hr != S_OK ? Hr(hr) : N(limits.llCurrentSize) + L" " + N(limits.bLimitsValid) + L" " + N(limits.dwPartitionStyle);
     },
     L"102412 1 2", R"({"storageSystem": "east", "storageSystemPath": "/vol/a/l1"})"},
    {"IVirtualDisk.TranslateUncPath", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         UncPathInfo *location = nullptr;
         HRESULT hr = As<IVirtualDisk>(u)->TranslateUncPath(L"\\\\east\\share\\lun", &location);
         if (hr != S_OK || location == nullptr)
             return Hr(hr);
         return Text(location->wszStorageSystem) + L":" + Text(location->wszStorageSystemPath);
     },
     L"east:/vol/unc/lun", R"({"uncPath": "\\\\east\\share\\lun"})"},
    {"IVirtualDisk.GetPreferredIPs", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         PreferredIPTable table{};
         HRESULT hr = As<IVirtualDisk>(u)->GetPreferredIPs(&table);
         return hr != S_OK || table.dwCount != 2
                    ? Hr(hr)
                    : Text(table.pEntries[1].wszStorageSystem) + L" " + Text(table.pEntries[1].wszIpAddress);
     },
     L"west 10.0.9.9", nullptr},
    {"IVirtualDisk.SetPreferredIPs", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         PreferredIPEntry entry = {const_cast<wchar_t *>(L"east"), const_cast<wchar_t *>(L"10.0.0.3")};
         PreferredIPTable table = {1, &entry};
         return Hr(As<IVirtualDisk>(u)->SetPreferredIPs(&table));
     },
     L"0x00000000", R"({"table": [{"wszStorageSystem": "east", "wszIpAddress": "10.0.0.3"}]})"},
    {"IVirtualDisk.DeleteDisk", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) {
         HRESULT hr = As<IVirtualDisk>(u)->DeleteDisk(L"east", L"/vol/a/l0", 0, 0);
         ComPtr<IErrorInfo> info;
         BSTR description = nullptr;
         if (GetErrorInfo(0, info.GetAddressOf()) == S_OK)
             info->GetDescription(&description);
         std::wstring text = Hr(hr) + L" " + Text(description);
         SysFreeString(description);
         return text;
     },
     L"0xC004020F The LUN is in use.", R"({"storageSystem": "east", "storageSystemPath": "/vol/a/l0", "reserved1": 0})"},
    {"IVirtualDisk.Reserved3", &CLSID_VirtualDiskService, &IID_IVirtualDisk,
     [](IUnknown *u) { return Hr(As<IVirtualDisk>(u)->Reserved3()); }, L"0x80004001", nullptr},
    {"IInitiator.GetInitiatorCapabilities", &CLSID_VirtualDiskService, &IID_IInitiator,
     [](IUnknown *u) {
         InitiatorCapabilities *capabilities = nullptr;
         HRESULT hr = As<IInitiator>(u)->GetInitiatorCapabilities(L"HOST1", &capabilities);
         return hr != S_OK || capabilities == nullptr ? Hr(hr) : N(capabilities->dwMultipleSessions);
     },
     L"7", R"({"machineName": "HOST1"})"},
    {"IIGroup.ListIGroups", &CLSID_VirtualDiskService, &IID_IIGroup,
     [](IUnknown *u) {
         IGroupList list{};
         HRESULT hr = As<IIGroup>(u)->ListIGroups(L"west", &list);
         if (hr != S_OK || list.dwCount != 1 || list.pGroups[0].dwInitiatorCount != 2)
             return Hr(hr);
         return std::wstring(list.pGroups[0].wszGroupName) + L" " + N(list.pGroups[0].dwOsType) + L" " +
                list.pGroups[0].pInitiators[1].wszName;
     },
     L"host1_fcp 4 10:00:00:00:c9:6b:2a:42", R"({"storageSystem": "west"})"},
    {"IIGroup.CreateIGroup", &CLSID_VirtualDiskService, &IID_IIGroup,
     [](IUnknown *u) {
         InitiatorNameField names[2] = {{L"iqn.a"}, {L"iqn.b"}};
         IGroupInfo group{};
         wcscpy(group.wszNodeName, L"HOST1");
         wcscpy(group.wszGroupName, L"ig1");
         group.dwGroupType = 1;
         group.dwInitiatorCount = 2;
         group.pInitiators = names;
         return Hr(As<IIGroup>(u)->CreateIGroup(L"east", &group, L"HOST1"));
     },
     L"0x00000000",
     R"({"storageSystem": "east", "localComputerName": "HOST1",
         "group": {"wszNodeName": "HOST1", "wszGroupName": "ig1", "dwOsType": 0, "dwGroupType": 1, "dwInitiatorCount": 2,
                   "pInitiators": [{"wszName": "iqn.a"}, {"wszName": "iqn.b"}], "ullReserved344": 0}})"},
    {"IIscsi.ListTargets", &CLSID_VirtualDiskService, &IID_IIscsi,
     [](IUnknown *u) {
         IscsiStorageTargetList list{};
         HRESULT hr = As<IIscsi>(u)->ListTargets(L"east", &list);
         if (hr != S_OK || list.dwCount != 1 || list.pTargets[0].dwPortalCount != 2)
             return Hr(hr);
         const IscsiStorageTarget &t = list.pTargets[0];
         return Text(t.wszTargetName) + L" " + N(t.dwLunCount) + L" " + N(t.pPortals[0].dwIpAddress) + L" " +
                N(t.pPortals[1].dwPort);
     },
     L"iqn.t1 3 16843018 3261", nullptr},
    {"IIscsi.ListSessions", &CLSID_VirtualDiskService, &IID_IIscsi,
     [](IUnknown *u) {
         IscsiConnectedTargetList list{};
         HRESULT hr = As<IIscsi>(u)->ListSessions(L"HOST1", &list);
         if (hr != S_OK || list.dwCount != 1 || list.pTargets[0].dwSessionCount != 1)
             return Hr(hr);
         const IscsiSession &s = list.pTargets[0].pSessions[0];
         if (s.dwConnectionCount != 1 || s.hba.dwPortalCount != 1)
             return std::wstring(L"counts");
         const IscsiConnection &c = s.pConnections[0];
         return N(s.ullSessionId1) + L" " + Text(s.hba.wszName) + L" " + N(s.hba.pPortals[0].dwPortalId) + L" " + N(c.byCid[1]) +
                L" " + N(c.targetPortal.dwIpAddress) + L" " + N(c.targetPortal.dwPort);
     },
     L"18446708889776500752 Software initiator 2 2 184620042 3260", nullptr},
    {"IIscsi.EstablishSession", &CLSID_VirtualDiskService, &IID_IIscsi,
     [](IUnknown *u) {
         IscsiConnection connection{};
         connection.dwMask = 12;
         connection.targetPortal = {3, 0, 0x0B01140A, 3260, 0};
         IscsiSession session{};
         session.dwMask = 12;
         session.dwInitiatorType = 1;
         session.dwConnectionCount = 1;
         session.pConnections = &connection;
         IscsiChap chap = {1, const_cast<wchar_t *>(L"chapuser"), const_cast<wchar_t *>(L"s3cret!")};
         return Hr(As<IIscsi>(u)->EstablishSession(L"HOST1", L"iqn.t1", &session, &chap));
     },
     L"0x00000000",
     R"({"machineName": "HOST1", "targetName": "iqn.t1", "chap": {"dwUseChap": 1, "wszName": "chapuser", "wszPassword": "sha256:54d70685b3e9a805eb5fcd8c7ead1d9cde18c21f08f5293a97d2586892675203"}})"},
    {"IFcp.ListFcpInitiators", &CLSID_VirtualDiskService, &IID_IFcp,
     [](IUnknown *u) {
         InitiatorList list{};
         HRESULT hr = As<IFcp>(u)->ListFcpInitiators(L"HOST1", &list);
         return hr != S_OK || list.dwCount != 2 ? Hr(hr) : Text(list.pInitiators[1].wszName);
     },
     L"wwpn-2", nullptr},
    {"ITransportProtocol.ListTransportProtocols", &CLSID_VirtualDiskService, &IID_ITransportProtocol,
     [](IUnknown *u) {
         TransportProtocolList list{};
         HRESULT hr = As<ITransportProtocol>(u)->ListTransportProtocols(&list, FALSE);
         if (hr != S_OK || list.dwCount != 2 || list.pProtocols[1].dwOtherAddressCount != 2)
             return Hr(hr);
         return Text(list.pProtocols[0].wszName) + L" " + N(list.pProtocols[1].dwPort) + L" " +
                Text(list.pProtocols[1].pwszOtherAddresses[1]);
     },
     L"#!Default#!SSProtocol 443 east-2", nullptr},
    {"ITransportProtocol.CheckTransportProtocol", &CLSID_VirtualDiskService, &IID_ITransportProtocol,
     [](IUnknown *u) {
         TransportProtocolInfo protocol = {
             const_cast<wchar_t *>(L"east"), const_cast<wchar_t *>(L"root"), 443, const_cast<wchar_t *>(L"pa55"), 3, 0, nullptr};
         return Hr(As<ITransportProtocol>(u)->CheckTransportProtocol(&protocol));
     },
     L"0x00000000",
     R"({"protocol": {"wszName": "east", "wszUserName": "root", "dwPort": 443, "wszPassword": "sha256:55ce58884658fa9f15143b56b6bc7961497cb757bde0ae4f62bdf7223eaf829a", "dwProtocolType": 3,
                      "pwszOtherAddresses": null}})"},
    {"IHyperV.ListVirtualMachines", &CLSID_HyperVService, &IID_IHyperV,
     [](IUnknown *u) {
         VirtualMachineList list{};
         HRESULT hr = As<IHyperV>(u)->ListVirtualMachines(TRUE, &list);
         if (hr != S_OK || list.dwCount != 1 || list.pVms[0].dwVhdCount != 1 || list.pVms[0].pVhds[0].pLun == nullptr)
             return Hr(hr);
         const VhdLunInfo &lun = *list.pVms[0].pVhds[0].pLun;
         return Text(list.pVms[0].pVhds[0].wszVhdPath) + L" " + Ansi(lun.szSerialNumber) + L" " + N(lun.bLun) + L" " +
                N(lun.llSize);
     },
     L"V:\\web-01.vhdx W9kLm2 4 5368709120", R"({"bDetail": 1})"},
    {"ISnapShotList.ListSnapshots", &CLSID_SnapShotService, &IID_ISnapShotList,
     [](IUnknown *u) {
         SnapshotArray list{};
         ULONGLONG r1 = 1, r2 = 0, r3 = 1;
         HRESULT hr = As<ISnapShotList>(u)->ListSnapshots(L"E:\\", &list, &r1, &r2, &r3);
         if (hr != S_OK || list.dwCount != 2)
             return Hr(hr);
         const SnapshotInfo &s = list.pSnapshots[1];
         return Text(s.wszName) + L" " + N(s.ftCreated.dwHighDateTime) + L" " + N(s.dwConsistency) + L" " + N(r1) + N(r2) + N(r3);
     },
     L"nightly.1 31091974 1 090", R"({"mountPoint": "E:\\"})"},
    {"ISnapShotSpace.ListDriveSnapshots", &CLSID_SnapShotService, &IID_ISnapShotSpace,
     [](IUnknown *u) {
         DriveNameArray drives = {2, kDrives};
         DriveSnapshotsArray list{};
         HRESULT hr = As<ISnapShotSpace>(u)->ListDriveSnapshots(&drives, &list, FALSE);
         if (hr != S_OK || list.dwCount != 2 || list.pDrives[1].dwSnapshotCount != 1)
             return Hr(hr);
         const DriveSnapshots &d = list.pDrives[1];
         return Text(d.wszDrive) + L" " + Hr(d.hrStatus) + L" " + Text(d.wszError) + L" " + Text(d.pSnapshots[0].wszName);
     },
     L"F:\\ 0xC0040401 busy hourly.5", R"({"drives": ["E:\\", "F:\\"], "reserved": 0})"},
    {"ISnapShotMount.ListVolumeSnapshots", &CLSID_SnapShotService, &IID_ISnapShotMount,
     [](IUnknown *u) {
         VolumeSnapshotArray list{};
         HRESULT hr = As<ISnapShotMount>(u)->ListVolumeSnapshots(L"east:/vol/a", &list);
         return hr != S_OK || list.dwCount != 2 ? Hr(hr) : Text(list.pSnapshots[1].wszName);
     },
     L"vol.1", nullptr},
    {"ISnapShotMount.GetMirrorDestinations", &CLSID_SnapShotService, &IID_ISnapShotMount,
     [](IUnknown *u) {
         MirrorDestinationList list{};
         HRESULT hr = As<ISnapShotMount>(u)->GetMirrorDestinations(L"F:\\", &list);
         return hr != S_OK || list.dwCount != 1
                    ? Hr(hr)
                    : Text(list.pDestinations[0].wszDestination) + L" " + N(list.pDestinations[0].dwRelationState);
     },
     L"dr:mirror 2", nullptr},
    {"ISnapShotDrives.GetMirrorMountPointLists", &CLSID_SnapShotService, &IID_ISnapShotDrives,
     [](IUnknown *u) {
         DriveNameArray drives = {2, kDrives};
         MountPointMirrorList list{};
         HRESULT hr = As<ISnapShotDrives>(u)->GetMirrorMountPointLists(&drives, &list);
         if (hr != S_OK || list.dwCount != 2 || list.pMountPoints[1].dwDestinationCount != 1)
             return Hr(hr);
         return N(list.pMountPoints[0].dwDiskId) + L" " + Text(list.pMountPoints[1].pDestinations[0].wszSnapshot);
     },
     L"4294967295 nightly.0", nullptr},
    {"ISnapShotVolumeRestore.CheckVolumeRestore", &CLSID_SnapShotService, &IID_ISnapShotVolumeRestore,
     [](IUnknown *u) {
         NewerSnapshotList newer{};
         NonLunFileList files{};
         MirrorDestinationState mirror{};
         HRESULT hr = As<ISnapShotVolumeRestore>(u)->CheckVolumeRestore(L"east", L"a", L"n0", &newer, &files, &mirror);
         if (newer.dwCount != 2 || files.dwCount != 1)
             return Hr(hr) + L" counts";
         return Hr(hr) + L" " + N(newer.pSnapshots[1].bBusy) + L" " + Text(newer.pSnapshots[1].wszDependency) + L" " +
                Text(files.pFiles[0].wszFilePath) + L" " + N(mirror.bIsUnbrokenDestination) + N(mirror.dwMirrorState);
     },
     L"0xC00403F8 1 clone_1 /vol/a/notes.txt 15", R"({"storageSystem": "east", "volume": "a", "snapshotName": "n0"})"},
    {"ISnapShotManage.DeleteSnapshot", &CLSID_SnapShotService, &IID_ISnapShotManage,
     [](IUnknown *u) {
         boolean queued = 0;
         HRESULT hr = As<ISnapShotManage>(u)->DeleteSnapshot(L"E:\\", L"nightly.0", &queued);
         return hr != S_OK ? Hr(hr) : N(queued);
     },
     L"1", R"({"mountPoint": "E:\\", "snapshotName": "nightly.0"})"},
    {"ISnapShotCreate.CreateSnapshot", &CLSID_SnapShotService, &IID_ISnapShotCreate,
     [](IUnknown *u) {
         SnapshotDriveEntry entries[2] = {{kDrivesE, 0}, {kDrivesF, 0}};
         SnapshotCreateRequest request = {0, 1, 2, entries};
         return Hr(As<ISnapShotCreate>(u)->CreateSnapshot(&request, L"nightly.3", TRUE));
     },
     L"0x00000000",
     R"({"snapshotName": "nightly.3", "updateMirror": 1,
         "request": {"bReserved": 0, "bAllLunsOnVolumes": 1,
                     "pDrives": [{"wszDrive": "E:\\", "reserved": 0}, {"wszDrive": "F:\\", "reserved": 0}]}})"},
};

void PrintTo(const Case &c, std::ostream *out) {
    *out << c.method;
}

class Methods : public testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() { WriteScenario(kScenario); }
};

TEST_P(Methods, AnswerCrossesTheProxyAndTheRequestIsLogged) {
    const Case &c = GetParam();
    ClearLog();
    ComPtr<IUnknown> object;
    ASSERT_EQ(Create(*c.clsid, *c.iid, object), S_OK);
    EXPECT_EQ(c.call(object.Get()), c.expected);
    std::vector<Json> calls = LogOf("call");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0]["method"], c.method);
    if (c.request != nullptr) {
        const Json expected = Json::parse(c.request);
        for (auto it = expected.begin(); it != expected.end(); ++it)
            EXPECT_EQ(calls[0]["request"][it.key()], *it) << it.key();
    }
}

INSTANTIATE_TEST_SUITE_P(Contract, Methods, testing::ValuesIn(kCases), [](const testing::TestParamInfo<Case> &info) {
    std::string name = info.param.method;
    for (char &ch : name)
        if (ch == '.')
            ch = '_';
    return name;
});

} // namespace
} // namespace contract
