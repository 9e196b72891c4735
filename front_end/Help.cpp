// The three help printers and the operation lists of `help <command>`. The
// usage blocks are rows of the operation table, which the application layer
// puts together and hands in.
#include "front_end/Help.h"

#include "front_end/Console.h"
#include "front_end/Process.h"
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

// In the order of the general usage: first its two rows, then the commands it
// leaves out, which are not meant for everyday use.
constexpr CommandHelp kCommandHelp[] = {
    {cmd::Sysconfig, CV_HEADING(L"related to Corvane configuration"), kFooter, false, 1, UnlistedPair::CommandUsage},
    {cmd::Disk, CV_HEADING(L"on LUNs"), kFooter, false, 1, UnlistedPair::CommandUsage},
    {cmd::Snap, CV_HEADING(L"on snapshot copies"), kFooter, false, 1, UnlistedPair::CommandUsage},
    {cmd::Arkhold, CV_HEADING(L"on a arkhold archive"), kFooter, false, 1, UnlistedPair::CommandUsage},
    {cmd::IscsiInitiator, CV_HEADING(L"on iSCSI initiators"), kFooter, false, 1, UnlistedPair::CommandUsage},
    {cmd::IscsiTarget, CV_HEADING(L"on iSCSI targets"), kFooter, false, 1, UnlistedPair::CommandUsage},
    {cmd::PreferredIP, CV_HEADING(L"on preferred IP addresses"), kFooter, false, 2, UnlistedPair::CommandUsage},
    {cmd::Spacemon, CV_HEADING(L"on space reservations monitor"), kFooter, false, 2, UnlistedPair::CommandUsage},
    {cmd::IGroup, CV_HEADING_SPACED(L"on Initiator group"), kFooter, false, 2, UnlistedPair::CommandUsage},
    {cmd::SpaceReclaimer, CV_HEADING_SPACED(L"on Space Reclamation"), kFooter, false, 2, UnlistedPair::CommandUsage},
    {cmd::TransportProtocol, CV_HEADING_SPACED(L"related to transport protocol configuration"), kFooter, false, 2,
     UnlistedPair::CommandUsage},
    {cmd::FcpInitiator,
     L"\nThe %s command performs operations on FCP initiators on the system. Following operations are available:\n", kFcpFooter,
     false, 0, UnlistedPair::Nothing},
    {cmd::Hidden, CV_HEADING(L"for testing purpose only"), kFooter, false, 0, UnlistedPair::CommandUsage},
    {cmd::Dataset, CV_HEADING(L"on a dataset and related objects"), kFooter, true, 0, UnlistedPair::GeneralUsage},
    {cmd::Vsconfig, CV_HEADING(L"related to Corvane configuration"), kFooter, false, 0, UnlistedPair::GeneralUsage},
    {cmd::QrmConfig, CV_HEADING(L"related to Corvane QRM configuration"), kFooter, false, 0, UnlistedPair::GeneralUsage},
    {cmd::HyperV, CV_HEADING(L"on Hyper-V virtual machines"), kFooter, false, 0, UnlistedPair::CommandUsage},
};

#undef CV_HEADING_SPACED
#undef CV_HEADING

void PrintFormat(const wchar_t *format, const wchar_t *const *args, unsigned count) {
    PrintText(SubstituteStrings(format, args, count));
}

void PrintGeneralRow(unsigned row) {
    for (const CommandHelp &help : kCommandHelp) {
        if (help.generalRow != row)
            continue;
        const wchar_t *word = CommandWord(help.command);
        PrintFormat(L"\t%s", &word, 1);
    }
    PrintText(L"\n");
}

// The command's operations are its rows, in their order.
void PrintOperationList(const OperationTable &operations, const CommandHelp &help) {
    unsigned listed = 0;
    for (unsigned i = 0; i < operations.Count(); ++i) {
        const OperationRow &usage = operations.At(i);
        if (usage.command != help.command)
            continue;
        const wchar_t *word = OperationWord(usage.operation);
        if (!help.threeColumns) {
            PrintFormat(L"\t%s", &word, 1);
            continue;
        }
        if (listed != 0 && listed % 3 == 0)
            PrintText(L"\n");
        PrintText(FormatText(L"\t%-30ls", word != nullptr ? word : L"(null)"));
        ++listed;
    }
    PrintText(L"\n\n");
}

} // namespace

UnlistedPair UnlistedPairBehaviour(unsigned commandId) {
    const CommandHelp *help = FindCommandHelp(commandId);
    return help != nullptr ? help->unlisted : UnlistedPair::CommandUsage;
}

const CommandHelp *FindCommandHelp(unsigned commandId) {
    for (const CommandHelp &help : kCommandHelp)
        if (help.command == commandId)
            return &help;
    return nullptr;
}

unsigned OperationTable::Count() const {
    unsigned count = 0;
    for (unsigned f = 0; f < m_count; ++f)
        count += m_families[f].count;
    return count;
}

const OperationRow &OperationTable::At(unsigned index) const {
    unsigned f = 0;
    // Out of range is a caller's bug; answer with the last row rather than crash.
    while (f + 1 < m_count && index >= m_families[f].count)
        index -= m_families[f++].count;
    return m_families[f].rows[index < m_families[f].count ? index : m_families[f].count - 1];
}

const OperationRow *OperationTable::Find(unsigned commandId, unsigned operationId) const {
    for (unsigned i = 0; i < Count(); ++i)
        if (At(i).command == commandId && At(i).operation == operationId)
            return &At(i);
    return nullptr;
}

void PrintGeneralUsage() {
    PrintText(L"\nThe following commands are available:\n\n");
    PrintGeneralRow(1);
    PrintGeneralRow(2);
    const wchar_t *args[] = {g_programName, kHelpWord};
    PrintFormat(L"\nFor more information type \"%s %s <command>\"\n", args, 2);
}

void PrintCommandUsage(const OperationTable &operations, unsigned commandId) {
    const CommandHelp *help = FindCommandHelp(commandId);
    if (help == nullptr)
        return;
    const wchar_t *word = CommandWord(commandId);
    PrintFormat(help->heading, &word, 1);
    PrintOperationList(operations, *help);
    const wchar_t *args[] = {g_programName, word, kHelpWord};
    PrintFormat(help->footer, args, 3);
}

void PrintOperationUsage(const OperationTable &operations, unsigned commandId, unsigned operationId) {
    const OperationRow *usage = operations.Find(commandId, operationId);
    if (usage == nullptr)
        return;
    const wchar_t *args[3 + 16] = {g_programName, CommandWord(commandId), OperationWord(operationId)};
    unsigned count = 3;
    for (const SwitchSpec &spec : usage->switches) {
        if (spec.word == nullptr)
            break;
        if (spec.need != SwitchNeed::Hidden)
            args[count++] = spec.word;
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
