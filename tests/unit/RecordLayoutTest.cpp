// The service reads and writes its records at fixed offsets: a shifted field
// is a silent corruption, so every offset the service relies on is pinned here.
#include "Corvane.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace {

struct Layout {
    const char *field;
    size_t actual;
    size_t expected;
};

#define AT(type, field, offset)                                                                                                  \
    { #type "." #field, offsetof(type, field), offset }
#define SIZE(type, bytes)                                                                                                        \
    { "sizeof " #type, sizeof(type), bytes }

TEST(RecordLayoutTest, EveryFieldSitsWhereTheServiceExpectsIt) {
    const Layout layouts[] = {
        // disks
        SIZE(DiskInfo, 160), AT(DiskInfo, dwPartitionStyle, 4), AT(DiskInfo, wszUncPath, 8), AT(DiskInfo, wszStorageSystem, 16),
        AT(DiskInfo, wszStorageSystemPath, 24), AT(DiskInfo, wszVolumeName, 32), AT(DiskInfo, szSerialNumber, 40),
        AT(DiskInfo, wszExtra, 48), AT(DiskInfo, bBackedBySnapshot, 56), AT(DiskInfo, wszSnapshotName, 64),
        AT(DiskInfo, bShared, 72), AT(DiskInfo, bReflexaSource, 73), AT(DiskInfo, bArkholdPrimary, 74),
        AT(DiskInfo, bBootOrSystemDisk, 75), AT(DiskInfo, bySCSIPort, 77), AT(DiskInfo, byBus, 78), AT(DiskInfo, byTarget, 79),
        AT(DiskInfo, byLun, 80), AT(DiskInfo, bReadOnly, 81), AT(DiskInfo, llSize, 88), AT(DiskInfo, dwDiskId, 96),
        AT(DiskInfo, dwMountPointCount, 104), AT(DiskInfo, pwszMountPoints, 112), AT(DiskInfo, dwIpAddressCount, 120),
        AT(DiskInfo, pwszIpAddresses, 128), AT(DiskInfo, dwCloneSplitPercent, 136), SIZE(DiskInfoEx, 32),
        AT(DiskInfoEx, bHyperVVhdPresent, 8), AT(DiskInfoEx, dwVmCount, 16), AT(DiskInfoEx, pVms, 24), SIZE(VmUsage, 24),
        AT(InitiatorInfo, wszName, 8), SIZE(InitiatorInfo, 16), AT(ExpandLimits, llMaxWithReserve, 8),
        AT(ExpandLimits, llMaxWithoutReserve, 16), AT(ExpandLimits, llMin, 24), AT(ExpandLimits, llCurrentSize, 32),
        AT(ExpandLimits, bSmallDiskLimit, 40), AT(ExpandLimits, bLimitsValid, 41), AT(ExpandLimits, dwPartitionStyle, 48),
        AT(ExpandRequest, wszStorageSystem, 8), AT(ExpandRequest, wszStorageSystemPath, 16), AT(ExpandRequest, llExpandSize, 24),
        AT(UncPathInfo, wszStorageSystemPath, 8), AT(PreferredIPEntry, wszIpAddress, 8), SIZE(PreferredIPEntry, 16),
        // iSCSI
        SIZE(IscsiPortal, 20), AT(IscsiPortal, dwPortalId, 4), AT(IscsiPortal, dwIpAddress, 8), AT(IscsiPortal, dwPort, 12),
        AT(IscsiPortal, dwGroupTag, 16), SIZE(IscsiHba, 40), AT(IscsiHba, wszName, 8), AT(IscsiHba, wszDescription, 16),
        AT(IscsiHba, dwPortalCount, 24), AT(IscsiHba, pPortals, 32), SIZE(IscsiConnection, 72),
        AT(IscsiConnection, ullConnectionId1, 8), AT(IscsiConnection, ullConnectionId2, 16), AT(IscsiConnection, byCid, 24),
        AT(IscsiConnection, initiatorPortal, 28), AT(IscsiConnection, targetPortal, 48), SIZE(IscsiSession, 96),
        AT(IscsiSession, ullSessionId1, 8), AT(IscsiSession, ullSessionId2, 16), AT(IscsiSession, dwInitiatorType, 32),
        AT(IscsiSession, hba, 40), AT(IscsiSession, dwConnectionCount, 80), AT(IscsiSession, pConnections, 88),
        SIZE(IscsiConnectedTarget, 40), AT(IscsiConnectedTarget, wszTargetName, 8), AT(IscsiConnectedTarget, dwLunCount, 16),
        AT(IscsiConnectedTarget, dwSessionCount, 24), AT(IscsiConnectedTarget, pSessions, 32), SIZE(IscsiStorageTarget, 88),
        AT(IscsiStorageTarget, dwLunCount, 64), AT(IscsiStorageTarget, dwPortalCount, 72), AT(IscsiStorageTarget, pPortals, 80),
        SIZE(IscsiChap, 24), AT(IscsiChap, wszPassword, 16),
        // initiator groups and transport protocols
        SIZE(IGroupInfo, 352), AT(IGroupInfo, wszGroupName, 64), AT(IGroupInfo, dwOsType, 320), AT(IGroupInfo, dwGroupType, 324),
        AT(IGroupInfo, dwInitiatorCount, 328), AT(IGroupInfo, pInitiators, 336), SIZE(InitiatorNameField, 256),
        SIZE(TransportProtocolInfo, 48), AT(TransportProtocolInfo, dwPort, 16), AT(TransportProtocolInfo, wszPassword, 24),
        AT(TransportProtocolInfo, dwProtocolType, 32), AT(TransportProtocolInfo, dwOtherAddressCount, 36),
        AT(TransportProtocolInfo, pwszOtherAddresses, 40),
        // snapshots
        SIZE(SnapshotDriveEntry, 16), AT(SnapshotCreateRequest, bAllLunsOnVolumes, 1), AT(SnapshotCreateRequest, dwDriveCount, 4),
        AT(SnapshotCreateRequest, pDrives, 8), SIZE(SnapshotInfo, 48), AT(SnapshotInfo, ftCreated, 8),
        AT(SnapshotInfo, nUsedInnerPercent, 16), AT(SnapshotInfo, nTotalInnerPercent, 20), AT(SnapshotInfo, nUsedPercent, 24),
        AT(SnapshotInfo, nTotalPercent, 28), AT(SnapshotInfo, dwConsistency, 40), AT(SnapshotArray, pSnapshots, 8),
        SIZE(DriveSnapshots, 64), AT(DriveSnapshots, hrStatus, 8), AT(DriveSnapshots, wszError, 16),
        AT(DriveSnapshots, dwSnapshotCount, 48), AT(DriveSnapshots, pSnapshots, 56), SIZE(VolumeSnapshot, 40),
        SIZE(NewerSnapshot, 56), AT(NewerSnapshot, bBusy, 16), AT(NewerSnapshot, bConsistent, 17),
        AT(NewerSnapshot, wszDependency, 24), SIZE(NonLunFile, 16), SIZE(MirrorDestinationState, 8),
        AT(MirrorDestinationState, dwMirrorState, 4), SIZE(MirrorDestination, 32), AT(MirrorDestination, dwRelationState, 24),
        AT(MirrorDestination, dwCloneStatus, 28), SIZE(MountPointMirror, 32), AT(MountPointMirror, dwDiskId, 4),
        AT(MountPointMirror, wszMountPoint, 8), AT(MountPointMirror, bValidMountPoint, 16),
        AT(MountPointMirror, pDestinations, 24), SIZE(MirrorProgress, 24), AT(MirrorProgress, countValid, 16),
        AT(MirrorProgress, mirrorState, 20),
        // Hyper-V
        SIZE(VirtualMachineInfo, 40), AT(VirtualMachineInfo, dwState, 16), AT(VirtualMachineInfo, dwVhdCount, 24),
        AT(VirtualMachineInfo, pVhds, 32), SIZE(VhdInfo, 32), AT(VhdInfo, bBootDisk, 16), AT(VhdInfo, pLun, 24),
        AT(VhdLunInfo, dwPartitionStyle, 4), AT(VhdLunInfo, wszStorageSystem, 16), AT(VhdLunInfo, wszStorageSystemPath, 24),
        AT(VhdLunInfo, wszVolumeName, 32), AT(VhdLunInfo, szSerialNumber, 40), AT(VhdLunInfo, bShared, 72),
        AT(VhdLunInfo, bScsiPort, 77), AT(VhdLunInfo, bLun, 80), AT(VhdLunInfo, llSize, 88), AT(VhdLunInfo, dwDiskId, 96),
        AT(VhdLunInfo, dwMountPointCount, 104), AT(VhdLunInfo, pwszMountPoints, 112),
        // every list: a 32-bit count, then the pointer at the next 8-byte boundary
        AT(DiskInfoList, pDisks, 8), AT(DiskInfoExList, pDisks, 8), AT(InitiatorList, pInitiators, 8),
        AT(PreferredIPTable, pEntries, 8), AT(IscsiConnectedTargetList, pTargets, 8), AT(IscsiStorageTargetList, pTargets, 8),
        AT(IGroupList, pGroups, 8), AT(TransportProtocolList, pProtocols, 8), AT(DriveNameArray, pwszDrives, 8),
        AT(DriveSnapshotsArray, pDrives, 8), AT(VolumeSnapshotArray, pSnapshots, 8), AT(NewerSnapshotList, pSnapshots, 8),
        AT(NonLunFileList, pFiles, 8), AT(MirrorDestinationList, pDestinations, 8), AT(MountPointMirrorList, pMountPoints, 8),
        AT(VirtualMachineList, pVms, 8)};
    for (const Layout &l : layouts)
        EXPECT_EQ(l.actual, l.expected) << l.field;
}

} // namespace
