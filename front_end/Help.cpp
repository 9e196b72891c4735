// The three help printers and the operation lists of `help <command>`.
// The usage blocks themselves live in the Usage*.cpp files, one per family.
#include "front_end/Help.h"

#include "front_end/Console.h"
#include "front_end/Startup.h"
#include "front_end/Words.h"

#include <cwchar>

namespace {

constexpr const wchar_t *kHelpWord = L"help";

// The common heading; the subject sits between "operations" and the full stop.
#define CV_HEADING(subject) L"\nThe %s command performs operations " subject L". The following operations are available:\n"
#define CV_HEADING_SPACED(subject)                                                                                               \
    L"\nThe %s command performs operations " subject L". The following operations are available:\n\n"

constexpr const wchar_t *kFooter = L"For information about an individual operation type \"%s %s %s <operation>\"\n";
constexpr const wchar_t *kFcpFooter = L"For information about an individual operation, type \"%s %s %s <operation>\"\n";

constexpr unsigned kSnapOps[] = {op::Create,       op::Delete,  op::Restore,      op::Rename,     op::List,
                                 op::Mount,        op::Unmount, op::UpdateMirror, op::MirrorList, op::RestoreVolumeCheck,
                                 op::RestoreVolume};
constexpr unsigned kArkholdOps[] = {op::VerifyConfiguration, op::SnapshotRename, op::SnapshotDelete, op::Archive,
                                    op::RelationshipStatus,  op::SnapList};
constexpr unsigned kDiskOps[] = {op::Create, op::Delete,       op::Connect,         op::Disconnect, op::Expand,
                                 op::List,   op::AddInitiator, op::RemoveInitiator, op::AddMount,   op::RemoveMount};
constexpr unsigned kFcpOps[] = {op::List};
constexpr unsigned kIscsiInitiatorOps[] = {op::List, op::EstablishSession, op::TerminateSession};
constexpr unsigned kIscsiTargetOps[] = {op::List, op::Disconnect};
constexpr unsigned kSysconfigOps[] = {op::List};
constexpr unsigned kListSetDeleteOps[] = {op::List, op::Set, op::Delete};
constexpr unsigned kSpacemonOps[] = {op::List, op::Set, op::Delete, op::SnapDelta, op::SnapReclaimable, op::VolInfo};
constexpr unsigned kHiddenOps[] = {
    op::Cache,           op::GetActiveDrives3,         op::GetActiveDrives4, op::ExecuteEMSHomecall,
    op::Lunstats,        op::ValidateConnectionParams, op::ConnectStorages,  op::DisconnectStorages,
    op::DoVbsr,          op::GetReflexaStatus,         op::BreakReflexas,    op::ResyncReflexas,
    op::ReleaseReflexas, op::GetClonaraStatus};
constexpr unsigned kIGroupOps[] = {op::List, op::Create, op::Rename, op::Delete};
constexpr unsigned kSpaceReclaimerOps[] = {op::Start, op::Stop, op::Analyze, op::Status};
constexpr unsigned kDatasetOps[] = {op::ListMembers,
                                    op::AddMembers,
                                    op::RemoveMembers,
                                    op::SetMetadata,
                                    op::GetMetadata,
                                    op::Info,
                                    op::Create,
                                    op::Delete,
                                    op::GetPolicy,
                                    op::SetPolicy,
                                    op::TransferNow,
                                    op::RestoreStatus,
                                    op::BackupList,
                                    op::BackupStatus,
                                    op::BackupAdd,
                                    op::BackupStart,
                                    op::BackupDelete,
                                    op::MountBackup,
                                    op::CreateLocalBackup,
                                    op::VssBackupPrepare,
                                    op::VssBackupEnd,
                                    op::Restore,
                                    op::GetRetentionInfo,
                                    op::BackupGetMetadata,
                                    op::BackupSetMetadata,
                                    op::BackupVersionConvert,
                                    op::GetAvailablePolicies,
                                    op::InitiateConformance,
                                    op::BackupChangeRetentionType,
                                    op::Protect,
                                    op::GetBackupLocation,
                                    op::GetBackupVersionInfo};
constexpr unsigned kVsconfigOps[] = {op::List, op::Set};
constexpr unsigned kHyperVOps[] = {op::List};

#define CV_OPS(list) list, sizeof(list) / sizeof(list[0])

constexpr CommandHelp kCommandHelp[] = {
    {cmd::Snap, CV_HEADING(L"on snapshot copies"), CV_OPS(kSnapOps), kFooter, false},
    {cmd::Arkhold, CV_HEADING(L"on a arkhold archive"), CV_OPS(kArkholdOps), kFooter, false},
    {cmd::Disk, CV_HEADING(L"on LUNs"), CV_OPS(kDiskOps), kFooter, false},
    {cmd::FcpInitiator,
     L"\nThe %s command performs operations on FCP initiators on the system. Following operations are available:\n",
     CV_OPS(kFcpOps), kFcpFooter, false},
    {cmd::IscsiInitiator, CV_HEADING(L"on iSCSI initiators"), CV_OPS(kIscsiInitiatorOps), kFooter, false},
    {cmd::IscsiTarget, CV_HEADING(L"on iSCSI targets"), CV_OPS(kIscsiTargetOps), kFooter, false},
    {cmd::Sysconfig, CV_HEADING(L"related to Corvane configuration"), CV_OPS(kSysconfigOps), kFooter, false},
    {cmd::PreferredIP, CV_HEADING(L"on preferred IP addresses"), CV_OPS(kListSetDeleteOps), kFooter, false},
    {cmd::Spacemon, CV_HEADING(L"on space reservations monitor"), CV_OPS(kSpacemonOps), kFooter, false},
    {cmd::Hidden, CV_HEADING(L"for testing purpose only"), CV_OPS(kHiddenOps), kFooter, false},
    {cmd::IGroup, CV_HEADING_SPACED(L"on Initiator group"), CV_OPS(kIGroupOps), kFooter, false},
    {cmd::SpaceReclaimer, CV_HEADING_SPACED(L"on Space Reclamation"), CV_OPS(kSpaceReclaimerOps), kFooter, false},
    {cmd::TransportProtocol, CV_HEADING_SPACED(L"related to transport protocol configuration"), CV_OPS(kListSetDeleteOps),
     kFooter, false},
    {cmd::Dataset, CV_HEADING(L"on a dataset and related objects"), CV_OPS(kDatasetOps), kFooter, true},
    {cmd::Vsconfig, CV_HEADING(L"related to Corvane configuration"), CV_OPS(kVsconfigOps), kFooter, false},
    {cmd::QrmConfig, CV_HEADING(L"related to Corvane QRM configuration"), CV_OPS(kListSetDeleteOps), kFooter, false},
    {cmd::HyperV, CV_HEADING(L"on Hyper-V virtual machines"), CV_OPS(kHyperVOps), kFooter, false},
};

#undef CV_OPS
#undef CV_HEADING_SPACED
#undef CV_HEADING

// The general list leaves out the commands that are not meant for everyday use.
constexpr unsigned kGeneralFirstRow[] = {cmd::Sysconfig, cmd::Disk,           cmd::Snap,
                                         cmd::Arkhold,   cmd::IscsiInitiator, cmd::IscsiTarget};
constexpr unsigned kGeneralSecondRow[] = {cmd::PreferredIP, cmd::Spacemon, cmd::IGroup, cmd::SpaceReclaimer,
                                          cmd::TransportProtocol};

constexpr UsageTable (*kUsageFamilies[])() = {SnapUsageTable, DiskUsageTable, ConnectivityUsageTable, SpaceUsageTable,
                                              DataProtectionUsageTable};

void PrintFormat(const wchar_t *format, const wchar_t *const *args, unsigned count) {
    PrintText(SubstituteStrings(format, args, count));
}

template <size_t N> void PrintCommandRow(const unsigned (&row)[N]) {
    for (unsigned command : row) {
        const wchar_t *word = CommandWord(command);
        PrintFormat(L"\t%s", &word, 1);
    }
    PrintText(L"\n");
}

void PrintOperationList(const CommandHelp &help) {
    for (unsigned i = 0; i < help.operationCount; ++i) {
        const wchar_t *word = OperationWord(help.operations[i]);
        if (!help.threeColumns) {
            PrintFormat(L"\t%s", &word, 1);
            continue;
        }
        PrintText(FormatText(L"\t%-30ls", word != nullptr ? word : L"(null)"));
        if (i % 3 == 2 && i + 1 < help.operationCount)
            PrintText(L"\n");
    }
    PrintText(L"\n\n");
}

} // namespace

const CommandHelp *FindCommandHelp(unsigned commandId) {
    for (const CommandHelp &help : kCommandHelp)
        if (help.command == commandId)
            return &help;
    return nullptr;
}

unsigned OperationUsageCount() {
    unsigned count = 0;
    for (auto family : kUsageFamilies)
        count += family().count;
    return count;
}

const OperationUsage &OperationUsageAt(unsigned index) {
    for (auto family : kUsageFamilies) {
        UsageTable table = family();
        if (index < table.count)
            return table.rows[index];
        index -= table.count;
    }
    // Out of range is a caller's bug; answer with the last block rather than crash.
    UsageTable last = kUsageFamilies[sizeof(kUsageFamilies) / sizeof(kUsageFamilies[0]) - 1]();
    return last.rows[last.count - 1];
}

const OperationUsage *FindOperationUsage(unsigned commandId, unsigned operationId) {
    for (auto family : kUsageFamilies) {
        UsageTable table = family();
        for (unsigned i = 0; i < table.count; ++i)
            if (table.rows[i].command == commandId && table.rows[i].operation == operationId)
                return &table.rows[i];
    }
    return nullptr;
}

void PrintGeneralUsage() {
    PrintText(L"\nThe following commands are available:\n\n");
    PrintCommandRow(kGeneralFirstRow);
    PrintCommandRow(kGeneralSecondRow);
    const wchar_t *args[] = {g_programName, kHelpWord};
    PrintFormat(L"\nFor more information type \"%s %s <command>\"\n", args, 2);
}

void PrintCommandUsage(unsigned commandId) {
    const CommandHelp *help = FindCommandHelp(commandId);
    if (help == nullptr)
        return;
    const wchar_t *word = CommandWord(commandId);
    PrintFormat(help->heading, &word, 1);
    PrintOperationList(*help);
    const wchar_t *args[] = {g_programName, word, kHelpWord};
    PrintFormat(help->footer, args, 3);
}

void PrintOperationUsage(unsigned commandId, unsigned operationId) {
    const OperationUsage *usage = FindOperationUsage(commandId, operationId);
    if (usage == nullptr)
        return;
    const wchar_t *args[3 + 16] = {g_programName, CommandWord(commandId), OperationWord(operationId)};
    unsigned count = 3;
    for (const wchar_t *word : usage->syntaxSwitches) {
        if (word == nullptr)
            break;
        args[count++] = word;
    }
    PrintFormat(usage->syntax, args, count);
    for (const UsageLine &line : usage->lines) {
        if (line.format == nullptr)
            break;
        PrintFormat(line.format, &line.switchWord, line.switchWord != nullptr ? 1 : 0);
    }
    if (usage->machineLine)
        PrintText(L"If the machine name is not specified the command is executed on a local machine.\n");
}
