// One answer per scripted method, each with a distinctive value deep in its
// records, so that a record shifted or cut short by the marshaller shows.
#include "simulator/tests/contract/Client.h"

namespace contract {

const char kScenario[] = R"json({
  "lingerSeconds": 2,
  "methods": {
    "IVirtualDisk.EnumerateDisks": {"disks": [
      {"dwType": 1, "wszStorageSystem": "east", "wszStorageSystemPath": "/vol/a/l0", "szSerialNumber": "SER-0"},
      {"dwType": 1, "wszStorageSystem": "east", "wszStorageSystemPath": "/vol/a/l1", "szSerialNumber": "SER-1",
       "bySCSIPort": 7, "llSize": 5368709120, "pwszMountPoints": ["F", "C:\\mnt\\logs"], "dwCloneSplitPercent": "0xFFFFFFFF"}]},
    "IVirtualDisk2.EnumerateDisksEx": {"disks": [
      {"pDisk": {"wszStorageSystemPath": "/vol/vms/lun"}, "bHyperVVhdPresent": true,
       "pVms": [{"wszVmName": "web-01"}, {"wszVmName": "build-agent"}]}]},
    "IVirtualDisk.GetPortInitiator": {"initiator": {"dwKind": 1, "wszName": "iqn.1991-05.com.microsoft:host1"}},
    "IVirtualDisk.ExpandDisk": {"disk": {"llSize": 118123134976, "pwszIpAddresses": ["10.0.0.1", "10.0.0.2"]}},
    "IVirtualDisk.GetExpandLimits": {"limits": {"llCurrentSize": 102412, "bLimitsValid": true, "dwPartitionStyle": 2}},
    "IVirtualDisk.TranslateUncPath": {"location": {"wszStorageSystem": "east", "wszStorageSystemPath": "/vol/unc/lun"}},
    "IVirtualDisk.GetPreferredIPs": {"table": [{"wszStorageSystem": "east", "wszIpAddress": "10.0.0.1"},
                                               {"wszStorageSystem": "west", "wszIpAddress": "10.0.9.9"}]},
    "IVirtualDisk.DeleteDisk": {"result": "0xC004020F", "errorDescription": "The LUN is in use."},
    "IInitiator.GetInitiatorCapabilities": {"capabilities": {"dwMultipleSessions": 7}},
    "IIGroup.ListIGroups": {"groups": [
      {"wszNodeName": "HOST1", "wszGroupName": "host1_fcp", "dwOsType": 4,
       "pInitiators": [{"wszName": "10:00:00:00:c9:6b:2a:41"}, {"wszName": "10:00:00:00:c9:6b:2a:42"}]}]},
    "IIscsi.ListTargets": {"targets": [
      {"dwMask": 25, "wszTargetName": "iqn.t1", "dwLunCount": 3,
       "pPortals": [{"dwMask": 3, "dwIpAddress": "10.1.1.1", "dwPort": 3260}, {"dwMask": 3, "dwPort": 3261}]}]},
    "IIscsi.ListSessions": {"targets": [
      {"dwMask": 7, "wszTargetName": "iqn.t1", "pSessions": [
        {"dwMask": 13, "ullSessionId1": "0xFFFFE0001A2B3010", "dwInitiatorType": 1,
         "hba": {"dwMask": 15, "wszName": "Software initiator", "pPortals": [{"dwMask": 8, "dwPortalId": 2}]},
         "pConnections": [{"dwMask": 15, "byCid": [1, 2], "targetPortal": {"dwMask": 3, "dwIpAddress": "10.20.1.11",
                                                                           "dwPort": 3260}}]}]}]},
    "IFcp.ListFcpInitiators": {"initiators": [{"dwKind": 0, "wszName": "wwpn-1"}, {"dwKind": 0, "wszName": "wwpn-2"}]},
    "ITransportProtocol.ListTransportProtocols": {"protocols": [
      {"wszName": "#!Default#!SSProtocol", "dwProtocolType": 1},
      {"wszName": "east", "dwProtocolType": 3, "dwPort": 443, "pwszOtherAddresses": ["10.0.0.1", "east-2"]}]},
    "IHyperV.ListVirtualMachines": {"machines": [
      {"wszVmName": "web-01", "dwState": 2, "pVhds": [
        {"wszVhdPath": "V:\\web-01.vhdx", "pLun": {"szSerialNumber": "W9kLm2", "bLun": 4, "llSize": 5368709120}}]}]},
    "ISnapShotList.ListSnapshots": {"snapshots": [{"wszName": "nightly.0"},
      {"wszName": "nightly.1", "ftCreated": "2024-03-03T01:00:00Z", "dwConsistency": 1}], "reserved2": 9},
    "ISnapShotSpace.ListDriveSnapshots": {"snapshots": [{"wszDrive": "E:\\"},
      {"wszDrive": "F:\\", "hrStatus": "0xC0040401", "wszError": "busy", "pSnapshots": [{"wszName": "hourly.5"}]}]},
    "ISnapShotMount.ListVolumeSnapshots": {"snapshots": [{"wszName": "vol.0"}, {"wszName": "vol.1"}]},
    "ISnapShotMount.GetMirrorDestinations": {"destinations": [{"wszDestination": "dr:mirror", "dwRelationState": 2}]},
    "ISnapShotDrives.GetMirrorMountPointLists": {"lists": [{"wszMountPoint": "E:\\", "dwDiskId": "0xFFFFFFFF"},
      {"wszMountPoint": "F:\\", "dwDiskId": 2, "pDestinations": [{"wszSnapshot": "nightly.0"}]}]},
    "ISnapShotVolumeRestore.CheckVolumeRestore": {"result": "0xC00403F8",
      "newer": [{"wszName": "n0"}, {"wszName": "n1", "bBusy": true, "wszDependency": "clone_1"}],
      "files": [{"wszFileName": "notes.txt", "wszFilePath": "/vol/a/notes.txt"}],
      "mirror": {"bIsUnbrokenDestination": true, "dwMirrorState": 5}},
    "ISnapShotManage.DeleteSnapshot": {"queued": true},
    "IVirtualDisk.AddMountPoint": {"events": [{"event": "ProgressMessage", "subject": "G:\\", "code": 29}]},
    "ISnapShotCreate.CreateSnapshot": {"events": [
      {"event": "ProgressMessage", "subject": "E:\\", "code": 3}, {"event": "ReadyToCreate", "name": "nightly.3"}]},
    "ISnapShotMount.MountSnapshot": {"events": [
      {"event": "MirrorProgress", "name": "nightly.1", "drive": "G", "text": "vol1", "transferred": 4096,
       "countValid": 1, "mirrorState": 35}]}
  }
})json";

} // namespace contract
