// The operation handlers, one per dispatched (command, operation) pair. Each
// family declares its own handlers in its own block.
#pragma once

#include "front_end/Operation.h"

// disk
void DiskList(const Operation &operation);
void DiskDelete(const Operation &operation);
void DiskDisconnect(const Operation &operation);
void DiskExpand(const Operation &operation);
void DiskAddMount(const Operation &operation);
void DiskRemoveMount(const Operation &operation);

// snap
void SnapDelete(const Operation &operation);
void SnapRename(const Operation &operation);
void MirrorUpdate(const Operation &operation);
void ListMirrors(const Operation &operation);
void SnapCreate(const Operation &operation);
void SnapList(const Operation &operation);
void SnapMount(const Operation &operation);
void SnapUnmount(const Operation &operation);
void SnapshotRestore(const Operation &operation);
void VolumeRestoreCheck(const Operation &operation);
void VolumeRestore(const Operation &operation);

// iscsi_initiator, iscsi_target, fcp_initiator, preferredIP
void IscsiInitiatorList(const Operation &operation);
void IscsiInitiatorEstablishSession(const Operation &operation);
void IscsiInitiatorTerminateSession(const Operation &operation);
void IscsiTargetList(const Operation &operation);
void IscsiTargetDisconnect(const Operation &operation);
void FcpInitiatorList(const Operation &operation);
void PreferredIpList(const Operation &operation);
void PreferredIpSet(const Operation &operation);
void PreferredIpDelete(const Operation &operation);

// igroup, transport_protocol
void ListInitiatorGroups(const Operation &operation);
void CreateInitiatorGroup(const Operation &operation);
void RenameInitiatorGroup(const Operation &operation);
void DeleteInitiatorGroup(const Operation &operation);
void ListTransportProtocolSettings(const Operation &operation);
void SetTransportProtocol(const Operation &operation);
void DeleteTransportProtocolSetting(const Operation &operation);

// hyperv
void HyperVList(const Operation &operation);
