// The three levels of help: general usage (the command list), command usage
// (the operations of one command) and operation usage (syntax and description
// of one operation). All name the program as it was invoked (g_programName).
#pragma once

// One description line of an operation's usage. When switchWord is set, the
// line's single "%s" is filled with it.
struct UsageLine {
    const wchar_t *format;
    const wchar_t *switchWord;
};

// The usage block of one (command, operation), and with it the operation's
// place in the list that `help <command>` prints. The syntax line starts with
// "%s %s %s" (program, command word, operation word); each further "%s" is
// filled, in order, from syntaxSwitches. Both arrays end at the first null
// (a line with a null format). Switch words always come from the sw::
// constants, so the help shows exactly the words that handlers look up.
struct OperationUsage {
    unsigned command;
    unsigned operation;
    const wchar_t *syntax;
    const wchar_t *syntaxSwitches[16];
    UsageLine lines[12];
    bool machineLine; // closes with the line about the local machine
};

// What `help <command>` shows around the command's operation list; the list
// itself is the command's usage blocks, in their order.
struct CommandHelp {
    unsigned command;
    const wchar_t *heading; // one "%s": the command word
    const wchar_t *footer;  // "%s %s %s": program, command word, "help"
    bool threeColumns;      // "\t%-30s" fields, three to a line
};

const CommandHelp *FindCommandHelp(unsigned commandId);
const OperationUsage *FindOperationUsage(unsigned commandId, unsigned operationId);

// Every usage block, for consistency checks.
unsigned OperationUsageCount();
const OperationUsage &OperationUsageAt(unsigned index);

// The usage blocks by command family, each defined in its own Usage*.cpp.
struct UsageTable {
    const OperationUsage *rows;
    unsigned count;
};
UsageTable SnapUsageTable();           // snap, arkhold
UsageTable DiskUsageTable();           // disk, sysconfig
UsageTable ConnectivityUsageTable();   // fcp_initiator, iscsi_*, preferredIP, igroup, transport_protocol
UsageTable SpaceUsageTable();          // spacemon, spacereclaimer, hidden
UsageTable DataProtectionUsageTable(); // dataset, vsconfig, qrm_config, hyperv

void PrintGeneralUsage();
void PrintCommandUsage(unsigned commandId);
void PrintOperationUsage(unsigned commandId, unsigned operationId);
