#include "app/Dispatch.h"

#include "MessageIds.h"
#include "commands/Handlers.h"
#include "front_end/Exceptions.h"
#include "front_end/Help.h"
#include "front_end/Words.h"

namespace {

constexpr OperationHandler NotAvailable = OperationNotAvailable;

constexpr DispatchRow kDispatchTable[] = {
    // disk
    {cmd::Disk, op::Create, NotAvailable},
    {cmd::Disk, op::List, DiskList},
    {cmd::Disk, op::Connect, NotAvailable},
    {cmd::Disk, op::AddInitiator, NotAvailable},
    {cmd::Disk, op::RemoveInitiator, NotAvailable},
    {cmd::Disk, op::Delete, DiskDelete},
    {cmd::Disk, op::Disconnect, DiskDisconnect},
    {cmd::Disk, op::Expand, DiskExpand},
    {cmd::Disk, op::AddMount, DiskAddMount},
    {cmd::Disk, op::RemoveMount, DiskRemoveMount},
    // snap
    {cmd::Snap, op::Delete, SnapDelete},
    {cmd::Snap, op::Rename, SnapRename},
    {cmd::Snap, op::UpdateMirror, MirrorUpdate},
    {cmd::Snap, op::MirrorList, ListMirrors},
    {cmd::Snap, op::Create, SnapCreate},
    {cmd::Snap, op::List, SnapList},
    {cmd::Snap, op::Restore, SnapshotRestore},
    {cmd::Snap, op::Mount, SnapMount},
    {cmd::Snap, op::Unmount, SnapUnmount},
    {cmd::Snap, op::RestoreVolumeCheck, VolumeRestoreCheck},
    {cmd::Snap, op::RestoreVolume, VolumeRestore},
    // iscsi_initiator, iscsi_target, fcp_initiator, preferredIP
    {cmd::IscsiInitiator, op::List, IscsiInitiatorList},
    {cmd::IscsiInitiator, op::EstablishSession, IscsiInitiatorEstablishSession},
    {cmd::IscsiInitiator, op::TerminateSession, IscsiInitiatorTerminateSession},
    {cmd::IscsiTarget, op::List, IscsiTargetList},
    {cmd::IscsiTarget, op::Disconnect, IscsiTargetDisconnect},
    {cmd::FcpInitiator, op::List, FcpInitiatorList},
    {cmd::PreferredIP, op::List, PreferredIpList},
    {cmd::PreferredIP, op::Set, PreferredIpSet},
    {cmd::PreferredIP, op::Delete, PreferredIpDelete},
    // igroup, transport_protocol
    {cmd::IGroup, op::List, ListInitiatorGroups},
    {cmd::IGroup, op::Create, CreateInitiatorGroup},
    {cmd::IGroup, op::Rename, RenameInitiatorGroup},
    {cmd::IGroup, op::Delete, DeleteInitiatorGroup},
    {cmd::TransportProtocol, op::List, ListTransportProtocolSettings},
    {cmd::TransportProtocol, op::Set, SetTransportProtocol},
    {cmd::TransportProtocol, op::Delete, DeleteTransportProtocolSetting},
    // hyperv
    {cmd::HyperV, op::List, HyperVList},
    // arkhold
    {cmd::Arkhold, op::VerifyConfiguration, NotAvailable},
    {cmd::Arkhold, op::Archive, NotAvailable},
    {cmd::Arkhold, op::SnapshotRename, NotAvailable},
    {cmd::Arkhold, op::SnapshotDelete, NotAvailable},
    {cmd::Arkhold, op::RelationshipStatus, NotAvailable},
    {cmd::Arkhold, op::SnapList, NotAvailable},
    // sysconfig
    {cmd::Sysconfig, op::List, NotAvailable},
    // spacemon
    {cmd::Spacemon, op::Delete, NotAvailable},
    {cmd::Spacemon, op::List, NotAvailable},
    {cmd::Spacemon, op::Set, NotAvailable},
    {cmd::Spacemon, op::SnapDelta, NotAvailable},
    {cmd::Spacemon, op::SnapReclaimable, NotAvailable},
    {cmd::Spacemon, op::VolInfo, NotAvailable},
    // hidden
    {cmd::Hidden, op::GetActiveDrives3, NotAvailable},
    {cmd::Hidden, op::GetActiveDrives4, NotAvailable},
    {cmd::Hidden, op::Cache, NotAvailable},
    {cmd::Hidden, op::ExecuteEMSHomecall, NotAvailable},
    {cmd::Hidden, op::Lunstats, NotAvailable},
    // spacereclaimer
    {cmd::SpaceReclaimer, op::Start, NotAvailable},
    {cmd::SpaceReclaimer, op::Stop, NotAvailable},
    {cmd::SpaceReclaimer, op::Analyze, NotAvailable},
    {cmd::SpaceReclaimer, op::Status, NotAvailable},
};

struct CommandBehaviour {
    unsigned command;
    UnlistedPair unlisted;
};

constexpr CommandBehaviour kUnlistedBehaviour[] = {
    {cmd::FcpInitiator, UnlistedPair::Nothing},
    {cmd::Dataset, UnlistedPair::GeneralUsage},
    {cmd::Vsconfig, UnlistedPair::GeneralUsage},
    {cmd::QrmConfig, UnlistedPair::GeneralUsage},
};

} // namespace

OperationHandler FindHandler(unsigned commandId, unsigned operationId) {
    for (const DispatchRow &row : kDispatchTable)
        if (row.command == commandId && row.operation == operationId)
            return row.handler;
    return nullptr;
}

UnlistedPair UnlistedPairBehaviour(unsigned commandId) {
    for (const CommandBehaviour &row : kUnlistedBehaviour)
        if (row.command == commandId)
            return row.unlisted;
    return UnlistedPair::CommandUsage;
}

unsigned DispatchRowCount() {
    return sizeof(kDispatchTable) / sizeof(kDispatchTable[0]);
}
const DispatchRow &DispatchRowAt(unsigned index) {
    return kDispatchTable[index];
}

void DispatchOperation(unsigned commandId, unsigned operationId, CCommandLine &cl) {
    if (OperationHandler handler = FindHandler(commandId, operationId)) {
        handler(cl);
        return;
    }
    switch (UnlistedPairBehaviour(commandId)) {
    case UnlistedPair::CommandUsage:
        PrintCommandUsage(commandId);
        break;
    case UnlistedPair::GeneralUsage:
        PrintGeneralUsage();
        break;
    case UnlistedPair::Nothing:
        break;
    }
}

void OperationNotAvailable(CCommandLine &) {
    throw LocalErrorException(MSG_OPERATION_NOT_AVAILABLE);
}
