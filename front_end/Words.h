// Command and operation words and the numeric ids that dispatch, help and the
// failure classes key on. The ids are fixed: scripts and help printers rely on them.
// Each word is written once, in the list below, which gives both the constant
// (cmd::Snap, op::Create) and the lookup table; the lists are in lookup order,
// and the first case-insensitive match wins.
#pragma once

// X(constant, id, word)
#define CV_COMMAND_WORDS(X)                                                                                                      \
    X(Snap, 2, L"snap")                                                                                                          \
    X(Arkhold, 3, L"arkhold")                                                                                                    \
    X(Dataset, 16, L"dataset")                                                                                                   \
    X(QrmConfig, 18, L"qrm_config")                                                                                              \
    X(HyperV, 19, L"hyperv")                                                                                                     \
    X(Disk, 4, L"disk")                                                                                                          \
    X(FcpInitiator, 5, L"fcp_initiator")                                                                                         \
    X(IscsiTarget, 7, L"iscsi_target")                                                                                           \
    X(IscsiInitiator, 6, L"iscsi_initiator")                                                                                     \
    X(Sysconfig, 9, L"sysconfig")                                                                                                \
    X(PreferredIP, 10, L"preferredIP")                                                                                           \
    X(Spacemon, 11, L"spacemon")                                                                                                 \
    X(Help, 1, L"help")                                                                                                          \
    X(Hidden, 12, L"hidden")                                                                                                     \
    X(IGroup, 13, L"igroup")                                                                                                     \
    X(SpaceReclaimer, 14, L"spacereclaimer")                                                                                     \
    X(TransportProtocol, 15, L"transport_protocol")                                                                              \
    X(Vsconfig, 17, L"vsconfig")

// X(constant, id, word)
#define CV_OPERATION_WORDS(X)                                                                                                    \
    X(Help, 1, L"help")                                                                                                          \
    X(Create, 2, L"create")                                                                                                      \
    X(Delete, 3, L"delete")                                                                                                      \
    X(Restore, 4, L"restore")                                                                                                    \
    X(Rename, 5, L"rename")                                                                                                      \
    X(List, 6, L"list")                                                                                                          \
    X(Mount, 8, L"mount")                                                                                                        \
    X(Unmount, 9, L"unmount")                                                                                                    \
    X(Connect, 10, L"connect")                                                                                                   \
    X(Disconnect, 11, L"disconnect")                                                                                             \
    X(Expand, 12, L"expand")                                                                                                     \
    X(UpdateMirror, 13, L"update_mirror")                                                                                        \
    X(AddInitiator, 18, L"add_initiator")                                                                                        \
    X(RemoveInitiator, 19, L"remove_initiator")                                                                                  \
    X(Set, 20, L"set")                                                                                                           \
    X(EstablishSession, 21, L"establish_session")                                                                                \
    X(TerminateSession, 22, L"terminate_session")                                                                                \
    X(AddMount, 23, L"add_mount")                                                                                                \
    X(RemoveMount, 24, L"remove_mount")                                                                                          \
    X(SnapDelta, 25, L"snap_delta")                                                                                              \
    X(SnapReclaimable, 26, L"snap_reclaimable")                                                                                  \
    X(VolInfo, 27, L"vol_info")                                                                                                  \
    X(MirrorList, 28, L"mirror_list")                                                                                            \
    X(GetActiveDrives3, 29, L"GetActiveDrives3")                                                                                 \
    X(GetActiveDrives4, 30, L"GetActiveDrives4")                                                                                 \
    X(Cache, 31, L"cache")                                                                                                       \
    X(ExecuteEMSHomecall, 33, L"ExecuteEMSHomecall")                                                                             \
    X(VerifyConfiguration, 34, L"verify_configuration")                                                                          \
    X(Archive, 35, L"archive")                                                                                                   \
    X(SnapshotRename, 36, L"snapshot_rename")                                                                                    \
    X(SnapshotDelete, 37, L"snapshot_delete")                                                                                    \
    X(RelationshipStatus, 38, L"relationship_status")                                                                            \
    X(SnapList, 39, L"snap_list")                                                                                                \
    X(RestoreVolumeCheck, 40, L"restore_volume_check")                                                                           \
    X(RestoreVolume, 41, L"restore_volume")                                                                                      \
    X(Lunstats, 42, L"lunstats")                                                                                                 \
    X(Start, 43, L"start")                                                                                                       \
    X(Stop, 44, L"stop")                                                                                                         \
    X(Analyze, 45, L"analyze")                                                                                                   \
    X(Status, 46, L"status")                                                                                                     \
    X(ListMembers, 47, L"list_members")                                                                                          \
    X(AddMembers, 48, L"add_members")                                                                                            \
    X(RemoveMembers, 49, L"remove_members")                                                                                      \
    X(GetMetadata, 50, L"get_metadata")                                                                                          \
    X(SetMetadata, 51, L"set_metadata")                                                                                          \
    X(Info, 52, L"info")                                                                                                         \
    X(InitiateConformance, 53, L"initiate_conformance")                                                                          \
    X(GetPolicy, 54, L"get_policy")                                                                                              \
    X(SetPolicy, 55, L"set_policy")                                                                                              \
    X(RestoreStatus, 56, L"restore_status")                                                                                      \
    X(TransferNow, 57, L"transfer_now")                                                                                          \
    X(BackupInfo, 58, L"backup_info")                                                                                            \
    X(BackupList, 59, L"backup_list")                                                                                            \
    X(BackupGetMetadata, 60, L"backup_get_metadata")                                                                             \
    X(BackupSetMetadata, 61, L"backup_set_metadata")                                                                             \
    X(BackupStatus, 62, L"backup_status")                                                                                        \
    X(BackupAdd, 63, L"backup_add")                                                                                              \
    X(BackupStart, 64, L"backup_start")                                                                                          \
    X(BackupChangeRetentionType, 65, L"backup_change_retention_type")                                                            \
    X(BackupDelete, 66, L"backup_delete")                                                                                        \
    X(CreateLocalBackup, 67, L"create_local_backup")                                                                             \
    X(VssBackupPrepare, 68, L"vss_backup_prepare")                                                                               \
    X(VssBackupEnd, 69, L"vss_backup_end")                                                                                       \
    X(MountBackup, 70, L"mount_backup")                                                                                          \
    X(GetRetentionInfo, 71, L"get_retention_info")                                                                               \
    X(BackupVersionConvert, 72, L"backup_version_convert")                                                                       \
    X(GetAvailablePolicies, 73, L"get_available_policies")                                                                       \
    X(ValidateConnectionParams, 74, L"validate_connection_params")                                                               \
    X(ConnectStorages, 75, L"connect_storages")                                                                                  \
    X(DisconnectStorages, 76, L"disconnect_storages")                                                                            \
    X(DoVbsr, 77, L"do_vbsr")                                                                                                    \
    X(GetReflexaStatus, 78, L"get_reflexa_status")                                                                               \
    X(BreakReflexas, 79, L"break_reflexas")                                                                                      \
    X(ResyncReflexas, 80, L"resync_reflexas")                                                                                    \
    X(ReleaseReflexas, 81, L"release_reflexas")                                                                                  \
    X(GetClonaraStatus, 82, L"get_clonara_status")                                                                               \
    X(Protect, 83, L"protect")                                                                                                   \
    X(GetBackupLocation, 84, L"get_backup_location")                                                                             \
    X(GetBackupVersionInfo, 85, L"get_backup_version_info")

#define CV_WORD_ID(constant, id, word) constexpr unsigned constant = id;
namespace cmd {
constexpr unsigned None = 0;
CV_COMMAND_WORDS(CV_WORD_ID)
} // namespace cmd

namespace op {
constexpr unsigned None = 0;
CV_OPERATION_WORDS(CV_WORD_ID)
} // namespace op
#undef CV_WORD_ID

struct WordId {
    const wchar_t *word;
    unsigned id;
};

// Both tables are in lookup order; the first case-insensitive match wins.
extern const WordId g_commandWords[];
extern const unsigned g_commandWordCount;
extern const WordId g_operationWords[];
extern const unsigned g_operationWordCount;

// 0 for a null or unknown word.
unsigned GetCommandId(const wchar_t *word);
unsigned GetOperationId(const wchar_t *word);

// The word of an id, or null when the id has none.
const wchar_t *CommandWord(unsigned commandId);
const wchar_t *OperationWord(unsigned operationId);
