#include "front_end/Words.h"

#include <cwchar>
#include <wchar.h>

const WordId g_commandWords[] = {
    {L"snap", cmd::Snap},
    {L"arkhold", cmd::Arkhold},
    {L"dataset", cmd::Dataset},
    {L"qrm_config", cmd::QrmConfig},
    {L"hyperv", cmd::HyperV},
    {L"disk", cmd::Disk},
    {L"fcp_initiator", cmd::FcpInitiator},
    {L"iscsi_target", cmd::IscsiTarget},
    {L"iscsi_initiator", cmd::IscsiInitiator},
    {L"sysconfig", cmd::Sysconfig},
    {L"preferredIP", cmd::PreferredIP},
    {L"spacemon", cmd::Spacemon},
    {L"help", cmd::Help},
    {L"hidden", cmd::Hidden},
    {L"igroup", cmd::IGroup},
    {L"spacereclaimer", cmd::SpaceReclaimer},
    {L"transport_protocol", cmd::TransportProtocol},
    {L"vsconfig", cmd::Vsconfig},
};
const unsigned g_commandWordCount = sizeof(g_commandWords) / sizeof(g_commandWords[0]);

const WordId g_operationWords[] = {
    {L"help", op::Help},
    {L"create", op::Create},
    {L"delete", op::Delete},
    {L"restore", op::Restore},
    {L"rename", op::Rename},
    {L"list", op::List},
    {L"mount", op::Mount},
    {L"unmount", op::Unmount},
    {L"connect", op::Connect},
    {L"disconnect", op::Disconnect},
    {L"expand", op::Expand},
    {L"update_mirror", op::UpdateMirror},
    {L"add_initiator", op::AddInitiator},
    {L"remove_initiator", op::RemoveInitiator},
    {L"set", op::Set},
    {L"establish_session", op::EstablishSession},
    {L"terminate_session", op::TerminateSession},
    {L"add_mount", op::AddMount},
    {L"remove_mount", op::RemoveMount},
    {L"snap_delta", op::SnapDelta},
    {L"snap_reclaimable", op::SnapReclaimable},
    {L"vol_info", op::VolInfo},
    {L"mirror_list", op::MirrorList},
    {L"GetActiveDrives3", op::GetActiveDrives3},
    {L"GetActiveDrives4", op::GetActiveDrives4},
    {L"cache", op::Cache},
    {L"ExecuteEMSHomecall", op::ExecuteEMSHomecall},
    {L"verify_configuration", op::VerifyConfiguration},
    {L"archive", op::Archive},
    {L"snapshot_rename", op::SnapshotRename},
    {L"snapshot_delete", op::SnapshotDelete},
    {L"relationship_status", op::RelationshipStatus},
    {L"snap_list", op::SnapList},
    {L"restore_volume_check", op::RestoreVolumeCheck},
    {L"restore_volume", op::RestoreVolume},
    {L"lunstats", op::Lunstats},
    {L"start", op::Start},
    {L"stop", op::Stop},
    {L"analyze", op::Analyze},
    {L"status", op::Status},
    {L"list_members", op::ListMembers},
    {L"add_members", op::AddMembers},
    {L"remove_members", op::RemoveMembers},
    {L"get_metadata", op::GetMetadata},
    {L"set_metadata", op::SetMetadata},
    {L"info", op::Info},
    {L"initiate_conformance", op::InitiateConformance},
    {L"get_policy", op::GetPolicy},
    {L"set_policy", op::SetPolicy},
    {L"restore_status", op::RestoreStatus},
    {L"transfer_now", op::TransferNow},
    {L"backup_info", op::BackupInfo},
    {L"backup_list", op::BackupList},
    {L"backup_get_metadata", op::BackupGetMetadata},
    {L"backup_set_metadata", op::BackupSetMetadata},
    {L"backup_status", op::BackupStatus},
    {L"backup_add", op::BackupAdd},
    {L"backup_start", op::BackupStart},
    {L"backup_change_retention_type", op::BackupChangeRetentionType},
    {L"backup_delete", op::BackupDelete},
    {L"create_local_backup", op::CreateLocalBackup},
    {L"vss_backup_prepare", op::VssBackupPrepare},
    {L"vss_backup_end", op::VssBackupEnd},
    {L"mount_backup", op::MountBackup},
    {L"get_retention_info", op::GetRetentionInfo},
    {L"backup_version_convert", op::BackupVersionConvert},
    {L"get_available_policies", op::GetAvailablePolicies},
    {L"validate_connection_params", op::ValidateConnectionParams},
    {L"connect_storages", op::ConnectStorages},
    {L"disconnect_storages", op::DisconnectStorages},
    {L"do_vbsr", op::DoVbsr},
    {L"get_reflexa_status", op::GetReflexaStatus},
    {L"break_reflexas", op::BreakReflexas},
    {L"resync_reflexas", op::ResyncReflexas},
    {L"release_reflexas", op::ReleaseReflexas},
    {L"get_clonara_status", op::GetClonaraStatus},
    {L"protect", op::Protect},
    {L"get_backup_location", op::GetBackupLocation},
    {L"get_backup_version_info", op::GetBackupVersionInfo},
};
const unsigned g_operationWordCount = sizeof(g_operationWords) / sizeof(g_operationWords[0]);

static unsigned Lookup(const WordId *table, unsigned count, const wchar_t *word) {
    if (word == nullptr)
        return 0;
    for (unsigned i = 0; i < count; ++i)
        if (_wcsicmp(table[i].word, word) == 0)
            return table[i].id;
    return 0;
}

static const wchar_t *ReverseLookup(const WordId *table, unsigned count, unsigned id) {
    for (unsigned i = 0; i < count; ++i)
        if (table[i].id == id)
            return table[i].word;
    return nullptr;
}

unsigned GetCommandId(const wchar_t *word) {
    return Lookup(g_commandWords, g_commandWordCount, word);
}
unsigned GetOperationId(const wchar_t *word) {
    return Lookup(g_operationWords, g_operationWordCount, word);
}

const wchar_t *CommandWord(unsigned commandId) {
    return ReverseLookup(g_commandWords, g_commandWordCount, commandId);
}
const wchar_t *OperationWord(unsigned operationId) {
    return ReverseLookup(g_operationWords, g_operationWordCount, operationId);
}
