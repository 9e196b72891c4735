// The operation handlers, one per dispatched (command, operation) pair. Each
// family declares its own handlers in its own block.
#pragma once

#include "front_end/CommandLine.h"

// disk
void DiskList(CCommandLine &cl);
void DiskDelete(CCommandLine &cl);
void DiskDisconnect(CCommandLine &cl);
void DiskExpand(CCommandLine &cl);
void DiskAddMount(CCommandLine &cl);
void DiskRemoveMount(CCommandLine &cl);

// snap
void SnapDelete(CCommandLine &cl);
void SnapRename(CCommandLine &cl);
void MirrorUpdate(CCommandLine &cl);
void ListMirrors(CCommandLine &cl);
void SnapCreate(CCommandLine &cl);
void SnapList(CCommandLine &cl);
void SnapMount(CCommandLine &cl);
void SnapUnmount(CCommandLine &cl);
void SnapshotRestore(CCommandLine &cl);
void VolumeRestoreCheck(CCommandLine &cl);
void VolumeRestore(CCommandLine &cl);

// iscsi_initiator, iscsi_target, fcp_initiator, preferredIP
void IscsiInitiatorList(CCommandLine &cl);
void IscsiInitiatorEstablishSession(CCommandLine &cl);
void IscsiInitiatorTerminateSession(CCommandLine &cl);
void IscsiTargetList(CCommandLine &cl);
void IscsiTargetDisconnect(CCommandLine &cl);
void FcpInitiatorList(CCommandLine &cl);
void PreferredIpList(CCommandLine &cl);
void PreferredIpSet(CCommandLine &cl);
void PreferredIpDelete(CCommandLine &cl);

// igroup, transport_protocol
void ListInitiatorGroups(CCommandLine &cl);
void CreateInitiatorGroup(CCommandLine &cl);
void RenameInitiatorGroup(CCommandLine &cl);
void DeleteInitiatorGroup(CCommandLine &cl);
void ListTransportProtocolSettings(CCommandLine &cl);
void SetTransportProtocol(CCommandLine &cl);
void DeleteTransportProtocolSetting(CCommandLine &cl);

// hyperv
void HyperVList(CCommandLine &cl);
