// Command and operation words and the numeric ids that dispatch, help and the
// failure classes key on. The ids are fixed: scripts and help printers rely on them.
#pragma once

namespace cmd {
constexpr unsigned None = 0;
constexpr unsigned Help = 1;
constexpr unsigned Snap = 2;
constexpr unsigned Arkhold = 3;
constexpr unsigned Disk = 4;
constexpr unsigned FcpInitiator = 5;
constexpr unsigned IscsiInitiator = 6;
constexpr unsigned IscsiTarget = 7;
constexpr unsigned Sysconfig = 9;
constexpr unsigned PreferredIP = 10;
constexpr unsigned Spacemon = 11;
constexpr unsigned Hidden = 12;
constexpr unsigned IGroup = 13;
constexpr unsigned SpaceReclaimer = 14;
constexpr unsigned TransportProtocol = 15;
constexpr unsigned Dataset = 16;
constexpr unsigned Vsconfig = 17;
constexpr unsigned QrmConfig = 18;
constexpr unsigned HyperV = 19;
} // namespace cmd

namespace op {
constexpr unsigned None = 0;
constexpr unsigned Help = 1;
constexpr unsigned Create = 2;
constexpr unsigned Delete = 3;
constexpr unsigned Restore = 4;
constexpr unsigned Rename = 5;
constexpr unsigned List = 6;
constexpr unsigned Mount = 8;
constexpr unsigned Unmount = 9;
constexpr unsigned Connect = 10;
constexpr unsigned Disconnect = 11;
constexpr unsigned Expand = 12;
constexpr unsigned UpdateMirror = 13;
constexpr unsigned AddInitiator = 18;
constexpr unsigned RemoveInitiator = 19;
constexpr unsigned Set = 20;
constexpr unsigned EstablishSession = 21;
constexpr unsigned TerminateSession = 22;
constexpr unsigned AddMount = 23;
constexpr unsigned RemoveMount = 24;
constexpr unsigned SnapDelta = 25;
constexpr unsigned SnapReclaimable = 26;
constexpr unsigned VolInfo = 27;
constexpr unsigned MirrorList = 28;
constexpr unsigned GetActiveDrives3 = 29;
constexpr unsigned GetActiveDrives4 = 30;
constexpr unsigned Cache = 31;
constexpr unsigned ExecuteEMSHomecall = 33;
constexpr unsigned VerifyConfiguration = 34;
constexpr unsigned Archive = 35;
constexpr unsigned SnapshotRename = 36;
constexpr unsigned SnapshotDelete = 37;
constexpr unsigned RelationshipStatus = 38;
constexpr unsigned SnapList = 39;
constexpr unsigned RestoreVolumeCheck = 40;
constexpr unsigned RestoreVolume = 41;
constexpr unsigned Lunstats = 42;
constexpr unsigned Start = 43;
constexpr unsigned Stop = 44;
constexpr unsigned Analyze = 45;
constexpr unsigned Status = 46;
constexpr unsigned ListMembers = 47;
constexpr unsigned AddMembers = 48;
constexpr unsigned RemoveMembers = 49;
constexpr unsigned GetMetadata = 50;
constexpr unsigned SetMetadata = 51;
constexpr unsigned Info = 52;
constexpr unsigned InitiateConformance = 53;
constexpr unsigned GetPolicy = 54;
constexpr unsigned SetPolicy = 55;
constexpr unsigned RestoreStatus = 56;
constexpr unsigned TransferNow = 57;
constexpr unsigned BackupInfo = 58;
constexpr unsigned BackupList = 59;
constexpr unsigned BackupGetMetadata = 60;
constexpr unsigned BackupSetMetadata = 61;
constexpr unsigned BackupStatus = 62;
constexpr unsigned BackupAdd = 63;
constexpr unsigned BackupStart = 64;
constexpr unsigned BackupChangeRetentionType = 65;
constexpr unsigned BackupDelete = 66;
constexpr unsigned CreateLocalBackup = 67;
constexpr unsigned VssBackupPrepare = 68;
constexpr unsigned VssBackupEnd = 69;
constexpr unsigned MountBackup = 70;
constexpr unsigned GetRetentionInfo = 71;
constexpr unsigned BackupVersionConvert = 72;
constexpr unsigned GetAvailablePolicies = 73;
constexpr unsigned ValidateConnectionParams = 74;
constexpr unsigned ConnectStorages = 75;
constexpr unsigned DisconnectStorages = 76;
constexpr unsigned DoVbsr = 77;
constexpr unsigned GetReflexaStatus = 78;
constexpr unsigned BreakReflexas = 79;
constexpr unsigned ResyncReflexas = 80;
constexpr unsigned ReleaseReflexas = 81;
constexpr unsigned GetClonaraStatus = 82;
constexpr unsigned Protect = 83;
constexpr unsigned GetBackupLocation = 84;
constexpr unsigned GetBackupVersionInfo = 85;
} // namespace op

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
